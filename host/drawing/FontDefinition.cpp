#include <zowidgets/host/drawing/FontDefinition.h>

#include <zowidgets/host/drawing/Fonts.h>

FontDefinition::FontDefinition() : name(LightweightString<wchar_t>::fromUTF8(getDefaultFontName(0).view())) {}

FontDefinition::FontDefinition(LightweightString<wchar_t> const& name, float size, unsigned char style,
                               NormalisedRGB const& background, NormalisedRGB const& foreground)
    : name(name), size(size), style(style), bgColour(background), fgColour(foreground) {}

void FontDefinition::write(JSON::Builder& builder) const {
  builder.startChild();
  builder.add("name", name);
  builder.add("size", size);
  builder.add("style", static_cast<unsigned>(style));
  builder.add("background", bgColour.toText());
  builder.add("foreground", fgColour.toText());
  builder.end();
}

bool FontDefinition::read(Zo::Ptr<JSON::Element> const& element) {
  if (!element)
    return false;
  if (element->hasString("name"))
    name = element->getWString("name");
  size = static_cast<float>(element->getNumber("size", size));
  // Style bits outside a byte cannot be ours: the old ones stay.
  if (double const bits = element->getNumber("style", style); bits >= 0 && bits <= 255)
    style = static_cast<unsigned char>(bits);
  if (element->hasString("background"))
    bgColour = NormalisedRGB::fromText(element->getWString("background"));
  if (element->hasString("foreground"))
    fgColour = NormalisedRGB::fromText(element->getWString("foreground"));
  return true;
}
