#pragma once

#include <zowidgets/forms/FoEleme.h>
#include <zowidgets/host/base/UIString.h>

#include <vector>

// The base of elements that pick one of a list of choices. It keeps the
// choices and the chosen index; the kinds below it show them.
class ZO_API fo_choic : public fo_eleme {
public:
  // The name of a choice that stands for nothing.
  static constexpr wchar_t const* kVoidChoice = L"__void";

  fo_choic(unsigned short width, unsigned short height, int index, UIString const& prompt,
           std::vector<UIString> const& choices, double fraction);
  char const* idstring() const override { return "fo_choic"; }

  int m_get_choice_state() const override { return static_cast<int>(chosen); }
  LightweightString<wchar_t> m_get_choice_state_label() override;
  // Stores `index` when it is among the choices. With `notify` set, sends
  // this element the chosen choice's text as a message.
  void m_set_choice_state(unsigned int index, int notify) override;

  std::vector<UIString> const& getChoices() const noexcept { return choices; }
  // A choice's text: its literal text, or its resource's when it has none.
  static LightweightString<wchar_t> choiceText(UIString const& choice);

protected:
  fo_choic(unsigned short width, unsigned short height, form_element_type type, int index, UIString const& prompt,
           std::vector<UIString> const& choices, double fraction);

  std::vector<UIString> choices;
  unsigned chosen = 0;
};
