#pragma once

#include <zowidgets/host/drawing/NormalisedRGB.h>

#include <cstdint>

// A display colour: red, green and blue as doubles in 0..1, an alpha that
// defaults to opaque, and a validity that Colour::invalid() clears for
// "no colour here" (a tab without its own colour, say).
class ZO_API Colour {
public:
  // Opaque black.
  Colour() noexcept = default;
  // `flag` is the host's marker, carried along untouched: it plays no part in
  // drawing or comparison. Alpha is not set here but by setAlpha.
  Colour(double red, double green, double blue, int flag = 0) noexcept
      : red_(red), green_(green), blue_(blue), flag_(flag) {}
  explicit Colour(NormalisedRGB const& rgb) noexcept;

  // Transparent black that use() refuses.
  static Colour invalid() noexcept;
  bool use() const noexcept { return valid_; }

  // Sets the three channels and makes the colour valid; alpha is kept.
  void setrgb(double red, double green, double blue) noexcept;
  void setAlpha(double alpha) noexcept { alpha_ = alpha; }

  // Blend in which `share` is the weight of the first colour (this one):
  // share 1 gives the first, 0 the second. Alpha blends alike; the flag is the
  // first colour's. An invalid colour contributes nothing: the result is the
  // other one.
  Colour mix(Colour const& other, double share) const noexcept { return mix(*this, other, share); }
  static Colour mix(Colour const& first, Colour const& second, double share) noexcept;

  // 0xAARRGGBB, each channel clamped to 0..1 and rounded to 0..255; an
  // invalid colour packs to 0.
  std::uint32_t get_vlib_colour() const noexcept;

  double red() const noexcept { return red_; }
  double green() const noexcept { return green_; }
  double blue() const noexcept { return blue_; }
  double alpha() const noexcept { return alpha_; }
  int flag() const noexcept { return flag_; }

  // Same validity, channels and alpha; the flag is not compared.
  friend bool operator==(Colour const& x, Colour const& y) noexcept {
    return x.valid_ == y.valid_ && x.red_ == y.red_ && x.green_ == y.green_ && x.blue_ == y.blue_ &&
           x.alpha_ == y.alpha_;
  }

private:
  double red_ = 0.0;
  double green_ = 0.0;
  double blue_ = 0.0;
  double alpha_ = 1.0;
  int flag_ = 0;
  bool valid_ = true;
};

// The colour narrowed to floats, alpha included.
ZO_API NormalisedRGB fromColour(Colour const& colour) noexcept;

// The colour with red, green and blue multiplied by `factor` and clamped to
// 0..1: above 1 brighter, below 1 darker. Alpha, the flag and validity are
// kept (an invalid colour stays invalid).
ZO_API Colour scale(Colour const& colour, double factor);
