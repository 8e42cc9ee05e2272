#include <zowidgets/forms/FoVInt.h>

#include <zowidgets/forms/detail/ClampedNumber.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

fo_v_int::fo_v_int(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt,
                   int min, int max, double fraction)
    : fo_entry(width, height, kFormInteger, index, prompt, 0, fraction), min(min), max(max), value(min) {
  m_init_format();
  writeValue();
}

int fo_v_int::m_validate_entry(LightweightString<wchar_t> text) {
  LightweightString<char> const utf8 = msgFromUIText(text.empty() ? entry : text);
  return FormNumbers::clampInto(std::strtol(utf8.c_str(), nullptr, 10), min, max, value);
}

int fo_v_int::m_collect_entry() {
  fo_entry::m_collect_entry();
  int const result = m_validate_entry({});
  if (result == 1)
    writeValue();
  return result;
}

void fo_v_int::m_set_entry(LightweightString<wchar_t> const& text) {
  m_validate_entry(text);
  writeValue();
}

void fo_v_int::m_set_value(int newValue) {
  value = std::clamp(newValue, min, std::max(min, max));
  writeValue();
}

void fo_v_int::writeValue() {
  entry = msgToUIText(FormNumbers::written(format, value).c_str());
  m_reset_entry();
}
