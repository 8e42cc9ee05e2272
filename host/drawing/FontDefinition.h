#pragma once

#include <zowidgets/host/base/JSONPersistable.h>
#include <zowidgets/host/drawing/NormalisedRGB.h>

// A font as a user chooses it: a family, a size in points, style bits (those
// of Glib::FontDesc) and the text and background colours. FontDefinition()
// is the default font: the interface family at 12 points, black on white.
class ZO_API FontDefinition : public JSON::iPersistable {
public:
  FontDefinition();
  FontDefinition(LightweightString<wchar_t> const& name, float size, unsigned char style,
                 NormalisedRGB const& background, NormalisedRGB const& foreground);
  FontDefinition(FontDefinition const&) = default;
  FontDefinition& operator=(FontDefinition const&) = default;
  ~FontDefinition() override = default;

  // An object with the keys "name", "size", "style", "background" and
  // "foreground" (colours as NormalisedRGB's text).
  void write(JSON::Builder& builder) const override;
  // Keys that are missing keep their values; false for no element.
  bool read(Zo::Ptr<JSON::Element> const& element) override;

  friend bool operator==(FontDefinition const& x, FontDefinition const& y) noexcept {
    return x.name == y.name && x.size == y.size && x.style == y.style && x.bgColour == y.bgColour &&
           x.fgColour == y.fgColour;
  }

  LightweightString<wchar_t> name;
  float size = 12.0f;
  unsigned char style = 0;
  NormalisedRGB bgColour{1.0f, 1.0f, 1.0f, 1.0f};
  NormalisedRGB fgColour{0.0f, 0.0f, 0.0f, 1.0f};
};
