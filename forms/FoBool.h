#pragma once

#include <zowidgets/forms/FoEleme.h>

class Checkbox;

// A yes/no element shown as a checkbox. A toggle by the user reports "Yes" or
// "No". Its entry text is ticked when it equals, case-insensitively, the
// text of resource 10000 ("Yes" in English).
class ZO_API fo_bool : public fo_eleme {
public:
  static constexpr int kYesResource = 10000;

  // The prompt takes the default fraction unless given another, so that the
  // box can line up with the fields of the elements around it.
  fo_bool(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt, bool value,
          double promptFraction = kDefaultPromptFraction);
  char const* idstring() const override { return "fo_bool"; }

  // 1 ticked, 0 not: how an owner reads the box without waiting for a report.
  int m_get_choice_state() const override { return value ? 1 : 0; }
  void m_set_entry(LightweightString<wchar_t> const& text) override;
  void m_post_init() override;

  bool getValue() const noexcept { return value; }
  Checkbox* getCheckbox() const noexcept { return checkbox; }

private:
  void showValue();

  bool value;
  Checkbox* checkbox = nullptr;
};
