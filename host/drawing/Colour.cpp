#include <zowidgets/host/drawing/Colour.h>

#include <algorithm>
#include <cmath>

namespace {

std::uint32_t toByte(double channel) {
  return static_cast<std::uint32_t>(std::lround(std::clamp(channel, 0.0, 1.0) * 255.0));
}

} // namespace

Colour::Colour(NormalisedRGB const& rgb) noexcept : red_(rgb.r), green_(rgb.g), blue_(rgb.b), alpha_(rgb.a) {}

Colour Colour::invalid() noexcept {
  Colour none;
  none.alpha_ = 0.0;
  none.valid_ = false;
  return none;
}

void Colour::setrgb(double red, double green, double blue) noexcept {
  red_ = red;
  green_ = green;
  blue_ = blue;
  valid_ = true;
}

Colour Colour::mix(Colour const& first, Colour const& second, double share) noexcept {
  if (!second.valid_)
    return first;
  if (!first.valid_)
    return second;
  auto blend = [share](double x, double y) { return x * share + y * (1.0 - share); };
  Colour result(blend(first.red_, second.red_), blend(first.green_, second.green_), blend(first.blue_, second.blue_),
                first.flag_);
  result.alpha_ = blend(first.alpha_, second.alpha_);
  return result;
}

std::uint32_t Colour::get_vlib_colour() const noexcept {
  if (!valid_)
    return 0;
  return toByte(alpha_) << 24 | toByte(red_) << 16 | toByte(green_) << 8 | toByte(blue_);
}

NormalisedRGB fromColour(Colour const& colour) noexcept {
  return NormalisedRGB(static_cast<float>(colour.red()), static_cast<float>(colour.green()),
                       static_cast<float>(colour.blue()), static_cast<float>(colour.alpha()));
}

Colour scale(Colour const& colour, double factor) {
  if (!colour.use())
    return colour;
  auto channel = [factor](double value) {
    double const scaled = value * factor;
    return scaled > 0.0 ? std::min(scaled, 1.0) : 0.0; // not-a-number counts as 0
  };
  Colour scaled(channel(colour.red()), channel(colour.green()), channel(colour.blue()), colour.flag());
  scaled.setAlpha(colour.alpha());
  return scaled;
}
