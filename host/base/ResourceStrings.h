#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <string_view>
#include <vector>

using ResId = int;

// The process-wide string tables. The text of an id is, first found: a text
// set at run time with setResourceString, the table of the chosen language,
// the English table, or else a visible placeholder with the number,
// "\u2039res 12345\u203A", so a missing text shows without harming anything.
// The tables are read on first use from the files shipped with the library
// (docs/host-services.md). Safe from any thread.
ZO_API LightweightString<wchar_t> resourceStrW(ResId id);
// True when a table, or a text set at run time, has the id.
ZO_API bool hasResourceString(ResId id);
ZO_API void setResourceString(ResId id, LightweightString<wchar_t> const& text);
// Forgets the texts set at run time; the tables stay.
ZO_API void clearResourceStrings();

// Chooses the table consulted before the English one, by language code
// ("de" reads de.json). An empty code means $ZOWIDGETS_LANGUAGE, or English
// when that is unset. Returns false, and leaves English alone in use, when
// there is no readable table for the code.
ZO_API bool setResourceLanguage(std::string_view language);
// The code in use: "en" when only the English table is.
ZO_API LightweightString<char> resourceLanguage();

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
