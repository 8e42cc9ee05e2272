// Text forms of NormalisedRGB and ColourData, as the settings store them.
#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/host/drawing/NormalisedRGB.h>

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// Shortest text that reads back as the same value.
template <class Number> void appendNumber(std::string& out, Number value) {
  char buffer[32]; // room for any float or double
  if (!out.empty())
    out += ' ';
  out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::vector<std::string_view> splitOnSpaces(std::string_view text) {
  std::vector<std::string_view> words;
  std::size_t start = text.find_first_not_of(' ');
  while (start != std::string_view::npos) {
    std::size_t const end = text.find(' ', start);
    words.push_back(text.substr(start, end - start));
    start = text.find_first_not_of(' ', end);
  }
  return words;
}

// The whole word must be the number.
template <class Number> std::optional<Number> parseNumber(std::string_view word) {
  Number value{};
  auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc() || end != word.data() + word.size())
    return std::nullopt;
  return value;
}

constexpr std::string_view kRGBName = "RGB";
constexpr std::string_view kHSVName = "HSV";

} // namespace

LightweightString<wchar_t> NormalisedRGB::toText() const {
  std::string text;
  for (float component : {r, g, b, a})
    appendNumber(text, component);
  return toWide(text);
}

NormalisedRGB NormalisedRGB::fromText(LightweightString<wchar_t> const& text) {
  std::string const narrow = toNarrow(text);
  std::vector<std::string_view> const words = splitOnSpaces(narrow);
  if (words.size() != 4)
    return NormalisedRGB();
  float parsed[4];
  for (std::size_t i = 0; i < 4; ++i) {
    std::optional<float> number = parseNumber<float>(words[i]);
    if (!number)
      return NormalisedRGB();
    parsed[i] = *number;
  }
  return NormalisedRGB(parsed[0], parsed[1], parsed[2], parsed[3]);
}

LightweightString<wchar_t> ColourData::toText() const {
  std::string text(space_ == ColourSpace::HSV ? kHSVName : kRGBName);
  for (double component : {components_[0], components_[1], components_[2], alpha_})
    appendNumber(text, component);
  return toWide(text);
}

ColourData ColourData::fromText(LightweightString<wchar_t> const& text) {
  std::string const narrow = toNarrow(text);
  std::vector<std::string_view> const words = splitOnSpaces(narrow);
  if (words.size() != 5 || (words[0] != kRGBName && words[0] != kHSVName))
    return ColourData();
  double parsed[4];
  for (std::size_t i = 0; i < 4; ++i) {
    std::optional<double> number = parseNumber<double>(words[i + 1]);
    if (!number)
      return ColourData();
    parsed[i] = *number;
  }
  ColourSpace const space = words[0] == kHSVName ? ColourSpace::HSV : ColourSpace::RGB;
  return ColourData(parsed[0], parsed[1], parsed[2], space, parsed[3]);
}

namespace DataConvert {
template <> LightweightString<wchar_t> convert<NormalisedRGB, LightweightString<wchar_t>>(NormalisedRGB const& colour) {
  return colour.toText();
}
template <> NormalisedRGB convert<LightweightString<wchar_t>, NormalisedRGB>(LightweightString<wchar_t> const& text) {
  return NormalisedRGB::fromText(text);
}
template <> LightweightString<wchar_t> convert<ColourData, LightweightString<wchar_t>>(ColourData const& colour) {
  return colour.toText();
}
template <> ColourData convert<LightweightString<wchar_t>, ColourData>(LightweightString<wchar_t> const& text) {
  return ColourData::fromText(text);
}
} // namespace DataConvert
