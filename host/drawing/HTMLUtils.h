#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/drawing/Colour.h>

#include <optional>
#include <string_view>

// Small helpers for the HTML subset that HTMLRenderer reads. Ranges are
// [start, end) in characters of the given text; -1 for start means its
// beginning, -1 for end its end, and a range past the text is cut to it.
namespace HTMLUtils {

// The text with &, <, > and " replaced by entities, so that it reads as
// itself inside markup or an attribute value.
ZO_API LightweightString<wchar_t> escape(std::wstring_view text);
// Entities replaced by their characters: the named ones escape writes, &nbsp;
// and numeric ones (&#65; &#x41;). Anything that is not a complete entity is
// kept as written.
ZO_API LightweightString<wchar_t> unescape(std::wstring_view text);

// The range wrapped in <p>...</p>.
ZO_API LightweightString<wchar_t> addParagraphTags(std::wstring_view text, int start = -1, int end = -1);
// The range wrapped in <font color="#rrggbb">...</font>; an invalid colour
// leaves the text as it is.
ZO_API LightweightString<wchar_t> addColourTags(std::wstring_view text, Colour const& colour, int start = -1,
                                                int end = -1);
// Style bits for addStyleTags.
inline constexpr unsigned kStyleBold = 1;
inline constexpr unsigned kStyleItalic = 2;
inline constexpr unsigned kStyleUnderline = 4;
// The range wrapped in <b>, <i> and <u> for the bits of `style` (outermost in
// that order).
ZO_API LightweightString<wchar_t> addStyleTags(std::wstring_view text, unsigned style, int start = -1, int end = -1);

// "#rgb", "#rrggbb" or one of the names black, white, grey (gray), red, green,
// blue, yellow, orange, cyan, magenta; case and surrounding spaces ignored.
ZO_API std::optional<Colour> parseColour(std::wstring_view text);
// "#rrggbb" for a colour.
ZO_API LightweightString<wchar_t> colourToHex(Colour const& colour);

} // namespace HTMLUtils
