#include <zowidgets/forms/FoVDbl.h>

#include <zowidgets/forms/detail/ClampedNumber.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

fo_v_dbl::fo_v_dbl(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt,
                   double min, double max, int precision, double fraction)
    : fo_entry(width, height, kFormDouble, index, prompt, 0, fraction), min(min), max(max), precision(precision),
      value(min) {
  m_init_format();
  this->min = rounded(min);
  this->max = rounded(max);
  value = this->min;
  writeValue();
}

void fo_v_dbl::m_init_format() {
  char text[32];
  std::snprintf(text, sizeof text, "%%.%df", std::max(0, precision));
  format = text;
}

double fo_v_dbl::rounded(double number) const {
  return std::strtod(FormNumbers::written(format, number).c_str(), nullptr);
}

int fo_v_dbl::m_validate_entry(LightweightString<wchar_t> text) {
  LightweightString<char> const utf8 = msgFromUIText(text.empty() ? entry : text);
  return FormNumbers::clampInto(std::strtod(utf8.c_str(), nullptr), min, max, value);
}

int fo_v_dbl::m_collect_entry() {
  fo_entry::m_collect_entry();
  int const result = m_validate_entry({});
  if (result == 1)
    writeValue();
  return result;
}

void fo_v_dbl::m_set_entry(LightweightString<wchar_t> const& text) {
  m_validate_entry(text);
  writeValue();
}

void fo_v_dbl::m_set_value(double newValue) {
  value = std::clamp(newValue, min, std::max(min, max));
  writeValue();
}

void fo_v_dbl::writeValue() {
  entry = msgToUIText(FormNumbers::written(format, value).c_str());
  m_reset_entry();
}
