#pragma once

#include <zowidgets/host/base/LightweightString.h>

// Numbers as a user reads and types them in small boxes (colour components,
// percentages). Unlike DataConvert's text forms these do not read back
// exactly: they round for display and forgive what a user types.
namespace Zo {

// Fixed-point text with `decimals` digits after the point (0 to 17; values
// outside are clamped), padded on the left with spaces to at least
// `minimumWidth` characters. Not-a-number and infinities print as "nan",
// "inf" and "-inf".
ZO_API LightweightString<wchar_t> WStringFromFloat(double value, int decimals, int minimumWidth);

// The same with at most `decimals` digits after the point: the zeros that
// end the fraction and a point left bare are dropped, and a negative zero
// reads "0" ("0.250" reads "0.25", "25.000" reads "25", "-0.000" reads "0").
ZO_API LightweightString<wchar_t> WStringFromFloatTrimmed(double value, int decimals);

// The decimal text of the integer, with a minus sign when negative.
ZO_API LightweightString<wchar_t> WStringFromInteger(long long value);

// The number at the start of the text, after any blanks ("12.5", "-3",
// ".5", "7px" all read); `fallback` when there is none or it is not finite.
ZO_API double FloatFromWString(LightweightString<wchar_t> const& text, double fallback);

// The decimal integer at the start of the text, after any blanks ("12",
// "-3", "7px" all read); `fallback` when there is none or it lies outside
// the range of int.
ZO_API int IntFromWString(LightweightString<wchar_t> const& text, int fallback);

} // namespace Zo
