#include <zowidgets/host/drawing/ColourData.h>

#include <cmath>

void RGBToHSV(double red, double green, double blue, double& hue, double& saturation, double& value) noexcept {
  double const largest = std::fmax(red, std::fmax(green, blue));
  double const smallest = std::fmin(red, std::fmin(green, blue));
  double const range = largest - smallest;
  value = largest;
  if (!(range > 0.0) || !(largest > 0.0)) {
    hue = 0.0;
    saturation = 0.0;
    return;
  }
  saturation = range / largest;
  double sextant;
  if (largest == red)
    sextant = (green - blue) / range;
  else if (largest == green)
    sextant = 2.0 + (blue - red) / range;
  else
    sextant = 4.0 + (red - green) / range;
  hue = sextant * 60.0;
  if (hue < 0.0)
    hue += 360.0;
  // A sliver below 0 can round up to 360 when moved into range.
  if (hue >= 360.0)
    hue = 0.0;
}

void HSVToRGB(double hue, double saturation, double value, double& red, double& green, double& blue) noexcept {
  double wrapped = std::isfinite(hue) ? std::fmod(hue, 360.0) : 0.0;
  if (wrapped < 0.0)
    wrapped += 360.0;
  double const position = wrapped / 60.0;
  double const sextant = std::floor(position);
  double const fraction = position - sextant;
  double const lowest = value * (1.0 - saturation);
  double const falling = value * (1.0 - saturation * fraction);
  double const rising = value * (1.0 - saturation * (1.0 - fraction));
  switch (static_cast<int>(sextant) % 6) {
  case 0:
    red = value, green = rising, blue = lowest;
    break;
  case 1:
    red = falling, green = value, blue = lowest;
    break;
  case 2:
    red = lowest, green = value, blue = rising;
    break;
  case 3:
    red = lowest, green = falling, blue = value;
    break;
  case 4:
    red = rising, green = lowest, blue = value;
    break;
  default:
    red = value, green = lowest, blue = falling;
    break;
  }
}

double ColourData::getComponent(int index) const noexcept {
  if (index >= kComponent0 && index <= kComponent2)
    return components_[static_cast<std::size_t>(index)];
  return index == kAlpha ? alpha_ : 0.0;
}

void ColourData::setComponent(int index, double value) noexcept {
  if (index >= kComponent0 && index <= kComponent2)
    components_[static_cast<std::size_t>(index)] = value;
  else if (index == kAlpha)
    alpha_ = value;
}

void ColourData::setColourSpace(ColourSpace space) noexcept {
  if (knownOrRGB(space) != space)
    return;
  components_ = inSpace(space);
  space_ = space;
}

std::array<double, 3> ColourData::inSpace(ColourSpace space) const noexcept {
  if (space == space_)
    return components_;
  std::array<double, 3> converted{};
  if (space == ColourSpace::HSV)
    RGBToHSV(components_[0], components_[1], components_[2], converted[0], converted[1], converted[2]);
  else
    HSVToRGB(components_[0], components_[1], components_[2], converted[0], converted[1], converted[2]);
  return converted;
}

NormalisedRGB ColourData::toNormalisedRGB() const noexcept {
  return NormalisedRGB(static_cast<float>(getRed()), static_cast<float>(getGreen()), static_cast<float>(getBlue()),
                       static_cast<float>(alpha_));
}

Colour ColourData::toColour() const noexcept {
  Colour colour(getRed(), getGreen(), getBlue());
  colour.setAlpha(alpha_);
  return colour;
}
