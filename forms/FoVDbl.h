#pragma once

#include <zowidgets/forms/FoEntry.h>

// A decimal element with limits and a number of decimals. Everything it
// writes, its limits included, is rounded to the decimals it shows, so the
// limits are what the user can see. Text is read as far as it makes a
// number, as strtod does; a number outside the limits is clamped.
class ZO_API fo_v_dbl : public fo_entry {
public:
  fo_v_dbl(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt, double min,
           double max, int precision, double fraction);
  char const* idstring() const override { return "fo_v_dbl"; }

  // As fo_v_int: 1 when the number was clamped, 0 otherwise.
  int m_validate_entry(LightweightString<wchar_t> text) override;
  int m_collect_entry() override;
  void m_set_entry(LightweightString<wchar_t> const& text) override;
  // "%.<precision>f", a negative precision counting as 0.
  void m_init_format() override;

  void m_set_value(double newValue);
  double m_get_value() const noexcept { return value; }
  double getMin() const noexcept { return min; }
  double getMax() const noexcept { return max; }
  int getPrecision() const noexcept { return precision; }
  std::string const& getFormat() const noexcept { return format; }

private:
  // `number` as the format writes it, and read back.
  double rounded(double number) const;
  void writeValue();

  double min;
  double max;
  int precision;
  double value;
};
