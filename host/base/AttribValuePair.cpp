#include <zowidgets/host/base/AttribValuePair.h>

#include <string_view>

namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n\f\v";
  auto first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

} // namespace

namespace Zo {

AttribValuePair::AttribValuePair(LightweightString<char> const& text, char separator) {
  std::string_view whole = text.view();
  auto split = whole.find(separator);
  if (split == std::string_view::npos)
    return;
  attrib_ = LightweightString<char>(trimmed(whole.substr(0, split)));
  value_ = LightweightString<char>(trimmed(whole.substr(split + 1)));
}

LightweightString<char> AttribValuePair::asString(char separator) const {
  LightweightString<char> text = attrib_;
  text += separator;
  text += value_;
  return text;
}

std::vector<AttribValuePair> AttribValuePair::vecFromString(LightweightString<char> const& text, char separator,
                                                            char listSeparator) {
  std::vector<AttribValuePair> pairs;
  std::string_view rest = text.view();
  while (true) {
    auto end = rest.find(listSeparator);
    AttribValuePair pair(LightweightString<char>(rest.substr(0, end)), separator);
    if (pair.valid())
      pairs.push_back(pair);
    if (end == std::string_view::npos)
      return pairs;
    rest.remove_prefix(end + 1);
  }
}

} // namespace Zo
