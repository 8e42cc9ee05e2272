// libFuzzer target for TextSearch, the pattern language of filter boxes and
// panel conditions. The first byte picks the match flags; the rest, up to
// the first NUL, is the pattern in UTF-8 and what follows is the text. Besides
// surviving any pattern, the matcher must keep these promises:
// - every character escaped, a pattern matches exactly its own text, whole
//   and with case;
// - '!' in front turns every answer round;
// - a whole-text match is also a match somewhere in the text.

#include <zowidgets/host/base/TextSearch.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using WString = LightweightString<wchar_t>;

WString escapedEveryCharacter(WString const& text) {
  std::wstring escaped;
  for (wchar_t c : text.view()) {
    escaped += L'\\';
    escaped += c;
  }
  return WString(escaped);
}

void require(bool promise) {
  if (!promise)
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0)
    return 0;
  int const flags = data[0] & (TextSearch::kSubstring | TextSearch::kCaseSensitive);
  std::string_view const rest(reinterpret_cast<char const*>(data + 1), size - 1);
  std::size_t const split = rest.find('\0');
  WString const pattern = WString::fromUTF8(rest.substr(0, split));
  WString const text = split == std::string_view::npos ? WString() : WString::fromUTF8(rest.substr(split + 1));

  TextSearch::Criteria const criteria(pattern);
  bool const matched = TextSearch::match(text, criteria, flags);

  if (!criteria.empty() && !pattern.startsWith(L"!")) {
    TextSearch::Criteria const negated(WString(L"!") + pattern);
    require(TextSearch::match(text, negated, flags) == !matched);
  }
  if (!criteria.empty() && !pattern.startsWith(L"!") && (flags & TextSearch::kSubstring) == 0)
    require(!matched || TextSearch::match(text, criteria, flags | TextSearch::kSubstring));

  if (!text.empty()) {
    TextSearch::Criteria const literal(escapedEveryCharacter(text));
    require(!literal.empty());
    require(TextSearch::match(text, literal, TextSearch::kCaseSensitive));
    require(TextSearch::match(text, literal, 0));
  }
  return 0;
}
