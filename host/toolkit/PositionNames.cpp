#include <zowidgets/host/toolkit/PositionNames.h>

#include <string_view>
#include <utility>

namespace {

constexpr std::pair<eCoordinateOrigin, std::string_view> kOriginNames[] = {
    {kOriginCentre, "centre"},     {kOriginLeft, "left"},
    {kOriginRight, "right"},       {kOriginTop, "top"},
    {kOriginBottom, "bottom"},     {kOriginBottomLeft, "bottomleft"},
    {kOriginTopLeft, "topleft"},   {kOriginBottomRight, "bottomright"},
    {kOriginTopRight, "topright"}, {kOriginPanelDefault, "default"},
};

constexpr std::pair<eWidgetRelativity, std::string_view> kRelativityNames[] = {
    {kRelativeNone, "none"},   {kRelativeLeft, "left"},   {kRelativeRight, "right"},
    {kRelativeAbove, "above"}, {kRelativeBelow, "below"},
};

template <class Enum, std::size_t N>
LightweightString<char> nameOf(std::pair<Enum, std::string_view> const (&names)[N], Enum value) {
  for (auto const& [each, name] : names)
    if (each == value)
      return LightweightString<char>(name);
  return {};
}

template <class Enum, std::size_t N>
Enum valueOf(std::pair<Enum, std::string_view> const (&names)[N], std::string_view text, Enum none) {
  for (auto const& [each, name] : names)
    if (name == text)
      return each;
  return none;
}

} // namespace

LightweightString<char> asString(eCoordinateOrigin origin) { return nameOf(kOriginNames, origin); }

LightweightString<char> asString(eWidgetRelativity relativity) { return nameOf(kRelativityNames, relativity); }

eCoordinateOrigin CoordinateOriginFromString(LightweightString<char> const& text) {
  return valueOf(kOriginNames, text.view(), kOriginCentre);
}

eWidgetRelativity WidgetRelativityFromString(LightweightString<char> const& text) {
  return valueOf(kRelativityNames, text.view(), kRelativeNone);
}
