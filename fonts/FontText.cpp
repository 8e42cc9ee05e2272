#include <zowidgets/fonts/FontText.h>

#include <zowidgets/host/base/NumberText.h>
#include <zowidgets/host/drawing/ColourUtils.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

LightweightString<wchar_t> asString(FontDefinition const& font) {
  std::wstring text = Zo::WStringFromInteger(ColourUtils::asLong(font.fgColour)).str();
  text += L',' + Zo::WStringFromInteger(ColourUtils::asLong(font.bgColour)).str();
  text += L',' + Zo::WStringFromInteger(font.style).str();
  // Cut towards zero; a size that is no number writes 0.
  double const size = std::isfinite(font.size) ? std::trunc(double(font.size)) : 0.0;
  text += L',' + Zo::WStringFromInteger(static_cast<long long>(std::clamp(size, -1e18, 1e18))).str();
  text += L',' + font.name.str();
  return LightweightString<wchar_t>(text);
}

FontDefinition fontFromString(LightweightString<wchar_t> const& text) {
  FontDefinition font;
  if (text.empty())
    return font;
  std::vector<std::wstring_view> fields;
  std::wstring_view rest = text.view();
  for (std::size_t comma; (comma = rest.find(L',')) != std::wstring_view::npos; rest.remove_prefix(comma + 1))
    fields.push_back(rest.substr(0, comma));
  fields.push_back(rest);
  if (fields.size() != 5)
    return font;
  auto number = [](std::wstring_view field) { return Zo::IntFromWString(LightweightString<wchar_t>(field), 0); };
  font.fgColour = ColourUtils::fromLong(number(fields[0]));
  font.bgColour = ColourUtils::fromLong(number(fields[1]));
  font.style = static_cast<unsigned char>(number(fields[2]) & 0xFF);
  font.size = static_cast<float>(number(fields[3]));
  font.name = LightweightString<wchar_t>(fields[4]);
  return font;
}
