#pragma once

#include <zowidgets/host/LightweightString.h>

#include <vector>

using ResId = int;

// The process-wide string table. Safe from any thread; an id with no text
// reads as an empty string.
ZO_API LightweightString<wchar_t> resourceStrW(ResId id);
ZO_API void setResourceString(ResId id, LightweightString<wchar_t> const& text);
ZO_API void clearResourceStrings();

// The text followed by an ellipsis (U+2026), as on a menu item or button that
// opens a dialogue. Empty text stays empty, and text that already ends with an
// ellipsis, "\u2026" or "...", gets no second one.
ZO_API LightweightString<wchar_t> ellipsisResourceStrW(ResId id);

// Fills the placeholders %1, %2, ... of a resource text: the first arg()
// gives %1, the second %2, and so on; all the digits after a '%' make one
// number, so "%12" is the twelfth argument. Placeholders are replaced in one pass, so
// argument text that contains "%2" stays as it is; "%%" writes one '%'; a
// placeholder with no argument, or a '%' before anything but a digit, is left
// as written. Numbers take their DataConvert text forms.
//   ResStrFmt(kCopiedId).arg(count).arg(folder).str()
class ZO_API ResStrFmt {
public:
  explicit ResStrFmt(ResId id);

  ResStrFmt& arg(LightweightString<wchar_t> const& value);
  ResStrFmt& arg(int value);
  ResStrFmt& arg(double value);

  LightweightString<wchar_t> str() const;

private:
  LightweightString<wchar_t> format_;
  std::vector<LightweightString<wchar_t>> args_;
};
