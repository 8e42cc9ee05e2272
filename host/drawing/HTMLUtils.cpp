#include <zowidgets/host/drawing/HTMLUtils.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwchar>
#include <cwctype>

namespace HTMLUtils {

namespace {

struct NamedEntity {
  std::wstring_view name;
  wchar_t character;
};

constexpr std::array<NamedEntity, 6> kNamedEntities{{
    {L"amp", L'&'},
    {L"lt", L'<'},
    {L"gt", L'>'},
    {L"quot", L'"'},
    {L"apos", L'\''},
    {L"nbsp", L'\u00A0'},
}};

// Characters of an entity name or number between '&' and ';' at most.
constexpr std::size_t kMaxEntityLength = 10;

std::optional<wchar_t> decodeEntity(std::wstring_view body) {
  for (NamedEntity const& entity : kNamedEntities)
    if (body == entity.name)
      return entity.character;
  if (body.size() < 2 || body[0] != L'#')
    return std::nullopt;
  bool const hex = body[1] == L'x' || body[1] == L'X';
  std::wstring_view const digits = body.substr(hex ? 2 : 1);
  if (digits.empty())
    return std::nullopt;
  std::uint32_t value = 0;
  for (wchar_t c : digits) {
    int digit = -1;
    if (c >= L'0' && c <= L'9')
      digit = c - L'0';
    else if (hex && c >= L'a' && c <= L'f')
      digit = c - L'a' + 10;
    else if (hex && c >= L'A' && c <= L'F')
      digit = c - L'A' + 10;
    if (digit < 0)
      return std::nullopt;
    value = value * (hex ? 16 : 10) + static_cast<std::uint32_t>(digit);
    if (value > 0x10FFFF)
      return std::nullopt;
  }
  // A NUL or a lone surrogate would only corrupt the text further on.
  if (value == 0 || (value >= 0xD800 && value <= 0xDFFF) || value > static_cast<std::uint32_t>(WCHAR_MAX))
    return std::nullopt;
  return static_cast<wchar_t>(value);
}

struct Range {
  std::size_t start;
  std::size_t end;
};

Range clampRange(std::size_t size, int start, int end) {
  std::size_t const from = start < 0 ? 0 : std::min<std::size_t>(static_cast<std::size_t>(start), size);
  std::size_t const to = end < 0 ? size : std::min<std::size_t>(static_cast<std::size_t>(end), size);
  return {from, std::max(from, to)};
}

LightweightString<wchar_t> wrapRange(std::wstring_view text, int start, int end, std::wstring_view open,
                                     std::wstring_view close) {
  Range const range = clampRange(text.size(), start, end);
  LightweightString<wchar_t> result(text.substr(0, range.start));
  result += open;
  result += text.substr(range.start, range.end - range.start);
  result += close;
  result += text.substr(range.end);
  return result;
}

int hexDigit(wchar_t c) {
  if (c >= L'0' && c <= L'9')
    return c - L'0';
  c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  if (c >= L'a' && c <= L'f')
    return c - L'a' + 10;
  return -1;
}

struct NamedColour {
  std::wstring_view name;
  double red, green, blue;
};

constexpr std::array<NamedColour, 11> kNamedColours{{
    {L"black", 0, 0, 0},
    {L"white", 1, 1, 1},
    {L"grey", 0.5, 0.5, 0.5},
    {L"gray", 0.5, 0.5, 0.5},
    {L"red", 1, 0, 0},
    {L"green", 0, 0.5, 0},
    {L"blue", 0, 0, 1},
    {L"yellow", 1, 1, 0},
    {L"orange", 1, 0.647, 0},
    {L"cyan", 0, 1, 1},
    {L"magenta", 1, 0, 1},
}};

} // namespace

LightweightString<wchar_t> escape(std::wstring_view text) {
  LightweightString<wchar_t> result;
  result.resizeFor(text.size());
  for (wchar_t c : text) {
    switch (c) {
    case L'&':
      result += L"&amp;";
      break;
    case L'<':
      result += L"&lt;";
      break;
    case L'>':
      result += L"&gt;";
      break;
    case L'"':
      result += L"&quot;";
      break;
    default:
      result += c;
    }
  }
  return result;
}

LightweightString<wchar_t> unescape(std::wstring_view text) {
  LightweightString<wchar_t> result;
  result.resizeFor(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    if (text[i] == L'&') {
      // Looking no further than the longest entity keeps a text full of '&'
      // linear.
      std::size_t const length = text.substr(i + 1, kMaxEntityLength + 1).find(L';');
      if (length != std::wstring_view::npos) {
        if (std::optional<wchar_t> const decoded = decodeEntity(text.substr(i + 1, length))) {
          result += *decoded;
          i += length + 2;
          continue;
        }
      }
    }
    result += text[i];
    ++i;
  }
  return result;
}

LightweightString<wchar_t> addParagraphTags(std::wstring_view text, int start, int end) {
  return wrapRange(text, start, end, L"<p>", L"</p>");
}

LightweightString<wchar_t> addColourTags(std::wstring_view text, Colour const& colour, int start, int end) {
  if (!colour.use())
    return LightweightString<wchar_t>(text);
  LightweightString<wchar_t> const open = LightweightString<wchar_t>(L"<font color=\"") + colourToHex(colour) + L"\">";
  return wrapRange(text, start, end, open.view(), L"</font>");
}

LightweightString<wchar_t> addStyleTags(std::wstring_view text, unsigned style, int start, int end) {
  LightweightString<wchar_t> open;
  LightweightString<wchar_t> close;
  if (style & kStyleBold) {
    open += L"<b>";
    close = L"</b>";
  }
  if (style & kStyleItalic) {
    open += L"<i>";
    close = LightweightString<wchar_t>(L"</i>") + close;
  }
  if (style & kStyleUnderline) {
    open += L"<u>";
    close = LightweightString<wchar_t>(L"</u>") + close;
  }
  return wrapRange(text, start, end, open.view(), close.view());
}

std::optional<Colour> parseColour(std::wstring_view text) {
  while (!text.empty() && std::iswspace(static_cast<wint_t>(text.front())))
    text.remove_prefix(1);
  while (!text.empty() && std::iswspace(static_cast<wint_t>(text.back())))
    text.remove_suffix(1);
  if (!text.empty() && text.front() == L'#') {
    std::wstring_view const digits = text.substr(1);
    if (digits.size() != 3 && digits.size() != 6)
      return std::nullopt;
    std::array<int, 6> values{};
    for (std::size_t i = 0; i < digits.size(); ++i) {
      values[i] = hexDigit(digits[i]);
      if (values[i] < 0)
        return std::nullopt;
    }
    auto channel = [&](std::size_t index) {
      if (digits.size() == 3)
        return (values[index] * 17) / 255.0;
      return (values[2 * index] * 16 + values[2 * index + 1]) / 255.0;
    };
    return Colour(channel(0), channel(1), channel(2));
  }
  std::wstring lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](wchar_t c) { return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c))); });
  for (NamedColour const& named : kNamedColours)
    if (lower == named.name)
      return Colour(named.red, named.green, named.blue);
  return std::nullopt;
}

LightweightString<wchar_t> colourToHex(Colour const& colour) {
  std::uint32_t const packed = colour.get_vlib_colour();
  constexpr std::wstring_view kDigits = L"0123456789abcdef";
  LightweightString<wchar_t> result(L"#");
  for (int shift = 20; shift >= 0; shift -= 4)
    result += kDigits[(packed >> shift) & 0xF];
  return result;
}

} // namespace HTMLUtils
