#pragma once

#include <zowidgets/host/base/LightweightString.h>

// Conversions between values and their text forms. Every text form reads
// back its own output exactly; docs/host-text-forms.md describes the forms and
// what malformed text gives. Other headers add specialisations for their own
// types, so the primary template stays undefined: a missing conversion fails
// at link time rather than doing something quietly wrong.
namespace DataConvert {

template <class From, class To> To convert(From const& value);

template <> ZO_API LightweightString<wchar_t> convert<bool, LightweightString<wchar_t>>(bool const&);
template <> ZO_API bool convert<LightweightString<wchar_t>, bool>(LightweightString<wchar_t> const&);
template <> ZO_API LightweightString<wchar_t> convert<int, LightweightString<wchar_t>>(int const&);
template <> ZO_API int convert<LightweightString<wchar_t>, int>(LightweightString<wchar_t> const&);
template <> ZO_API LightweightString<wchar_t> convert<unsigned int, LightweightString<wchar_t>>(unsigned int const&);
template <> ZO_API unsigned int convert<LightweightString<wchar_t>, unsigned int>(LightweightString<wchar_t> const&);
template <> ZO_API LightweightString<wchar_t> convert<double, LightweightString<wchar_t>>(double const&);
template <> ZO_API double convert<LightweightString<wchar_t>, double>(LightweightString<wchar_t> const&);

template <> ZO_API LightweightString<char> convert<bool, LightweightString<char>>(bool const&);
template <> ZO_API bool convert<LightweightString<char>, bool>(LightweightString<char> const&);
template <> ZO_API LightweightString<char> convert<int, LightweightString<char>>(int const&);
template <> ZO_API int convert<LightweightString<char>, int>(LightweightString<char> const&);
template <> ZO_API LightweightString<char> convert<double, LightweightString<char>>(double const&);
template <> ZO_API double convert<LightweightString<char>, double>(LightweightString<char> const&);

// Clamps `value` into [min, max] in place. The lower bound is tested first,
// so with min > max the result is min or max; a NaN stays NaN.
template <class T> void constrain(T& value, T const& min, T const& max) {
  if (value < min)
    value = min;
  else if (max < value)
    value = max;
}

} // namespace DataConvert

// Double to 32-bit int, saturating at the int limits; NaN gives 0.
// ftisql rounds to nearest with halves away from zero (2.5 -> 3, -2.5 -> -3);
// ftisqq truncates toward zero (2.9 -> 2, -2.9 -> -2).
ZO_API int ftisql(double value);
ZO_API int ftisqq(double value);
