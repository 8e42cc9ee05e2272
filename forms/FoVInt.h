#pragma once

#include <zowidgets/forms/FoEntry.h>

// A whole-number element with limits. Text is read as far as it makes a
// number, as strtol does; a number outside the limits is clamped and the box
// then shows the clamped value, without any message.
class ZO_API fo_v_int : public fo_entry {
public:
  fo_v_int(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt, int min,
           int max, double fraction);
  char const* idstring() const override { return "fo_v_int"; }

  // Reads `text`, or the entry when `text` is empty, into the value. 1 when
  // the number was clamped (the text changed), 0 otherwise.
  int m_validate_entry(LightweightString<wchar_t> text) override;
  // Collects; a clamped value is written back into the entry and the box.
  int m_collect_entry() override;
  // Reads the text, then always shows the value as the element holds it.
  void m_set_entry(LightweightString<wchar_t> const& text) override;
  void m_init_format() override { format = "%d"; }

  void m_set_value(int newValue);
  int m_get_value() const noexcept { return value; }
  int getMin() const noexcept { return min; }
  int getMax() const noexcept { return max; }

private:
  void writeValue();

  int min;
  int max;
  int value;
};
