#pragma once

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/NormalisedRGB.h>

#include <array>

// The models a ColourData can hold its components in. The numbers are the
// host's and are stored, so they never change.
enum class ColourSpace : int {
  RGB = 0, // red, green, blue in 0..1
  HSV = 2, // hue in degrees 0..360, saturation and value in 0..1
};

// A colour as the colour tools edit it: three double components in a colour
// space, and an alpha that no space touches. Components are stored as given:
// nothing is clamped or wrapped until a conversion needs it (a hue of 500
// stays 500; converted, it is 140).
class ZO_API ColourData {
public:
  // Indices for getComponent and setComponent: the current space's first,
  // second and third component, then alpha.
  enum ComponentID : int { kComponent0 = 0, kComponent1 = 1, kComponent2 = 2, kAlpha = 3 };

  // Opaque black in RGB.
  ColourData() noexcept = default;
  // A space that is not one of ColourSpace's values is taken as RGB.
  ColourData(double c0, double c1, double c2, ColourSpace space = ColourSpace::RGB, double alpha = 1.0) noexcept
      : components_{c0, c1, c2}, space_(knownOrRGB(space)), alpha_(alpha) {}
  explicit ColourData(NormalisedRGB const& rgb) noexcept : ColourData(rgb.r, rgb.g, rgb.b, ColourSpace::RGB, rgb.a) {}
  explicit ColourData(Colour const& colour) noexcept
      : ColourData(colour.red(), colour.green(), colour.blue(), ColourSpace::RGB, colour.alpha()) {}

  // Each answers in its own model, whatever the current space.
  double getRed() const noexcept { return inSpace(ColourSpace::RGB)[0]; }
  double getGreen() const noexcept { return inSpace(ColourSpace::RGB)[1]; }
  double getBlue() const noexcept { return inSpace(ColourSpace::RGB)[2]; }
  double getHue() const noexcept { return inSpace(ColourSpace::HSV)[0]; }
  double getSaturation() const noexcept { return inSpace(ColourSpace::HSV)[1]; }
  double getValue() const noexcept { return inSpace(ColourSpace::HSV)[2]; }

  // Component of the current space, or alpha for kAlpha; an index outside
  // 0..3 reads as 0 and is ignored when set.
  double getComponent(int index) const noexcept;
  void setComponent(int index, double value) noexcept;

  double getAlpha() const noexcept { return alpha_; }
  void setAlpha(double alpha) noexcept { alpha_ = alpha; }

  ColourSpace getColourSpace() const noexcept { return space_; }
  // Converts the stored components into `space`; a space that is not one of
  // ColourSpace's values leaves the colour as it is.
  void setColourSpace(ColourSpace space) noexcept;

  NormalisedRGB toNormalisedRGB() const noexcept;
  Colour toColour() const noexcept;

  // "RGB r g b a" or "HSV h s v a", each number the shortest text that reads
  // back as the same double.
  LightweightString<wchar_t> toText() const;
  // Reads what toText writes; anything else gives ColourData(): opaque black.
  static ColourData fromText(LightweightString<wchar_t> const& text);

  // Same space, components and alpha: a colour held in RGB is not equal to
  // the same colour held in HSV.
  friend bool operator==(ColourData const&, ColourData const&) = default;

private:
  static constexpr ColourSpace knownOrRGB(ColourSpace space) noexcept {
    return space == ColourSpace::HSV ? space : ColourSpace::RGB;
  }
  std::array<double, 3> inSpace(ColourSpace space) const noexcept;

  std::array<double, 3> components_{0.0, 0.0, 0.0};
  ColourSpace space_ = ColourSpace::RGB;
  double alpha_ = 1.0;
};

// Hue comes out in [0, 360), 0 for greys, where saturation is 0 too. Value is
// the largest channel; with a value of 0 or less, saturation is 0.
ZO_API void RGBToHSV(double red, double green, double blue, double& hue, double& saturation, double& value) noexcept;
// Hue in degrees, taken modulo 360 (so 500 is 140 and -30 is 330); a hue that
// is not finite reads as 0.
ZO_API void HSVToRGB(double hue, double saturation, double value, double& red, double& green, double& blue) noexcept;

// The text form above, for the settings model's one choke point.
namespace DataConvert {
template <> ZO_API LightweightString<wchar_t> convert<ColourData, LightweightString<wchar_t>>(ColourData const&);
template <> ZO_API ColourData convert<LightweightString<wchar_t>, ColourData>(LightweightString<wchar_t> const&);
} // namespace DataConvert
