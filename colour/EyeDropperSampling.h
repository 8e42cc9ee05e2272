#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/LightweightString.h>

#include <array>

// One pixel of the screen, in the order blue, green, red.
template <class T> struct ZO_API RgbTriple_ : std::array<T, 3> {
  T blue() const noexcept { return (*this)[0]; }
  T green() const noexcept { return (*this)[1]; }
  T red() const noexcept { return (*this)[2]; }
};

// Reading colours off the screen, and the text message that carries a picked
// colour to the dropper's parent: "colour_eye_dropper HSV h s v", with hue in
// degrees, saturation in 0..1 and value in 0..1 divided by 255 (the receiver
// multiplies it back).
class ZO_API ColEyeDropBase {
public:
  static constexpr char const* kMessagePrefix = "colour_eye_dropper HSV ";
  static constexpr char const* kMessageName = "colour_eye_dropper";

  virtual ~ColEyeDropBase() = default;

  // The mean colour of a screen box (bottom-up; truncated to whole pixels and
  // cut to the screen), each channel an integer mean; black when nothing of
  // it can be read.
  static RgbTriple_<unsigned char> getPixelColour(Zo::Box<double> const& area);
  // Minimum and maximum hue, saturation and value of the box's coloured
  // pixels (greys and black are skipped): all -1.0 when none is coloured or
  // the pixels cannot be read, all 0.0 when the box is off the screen.
  static std::array<double, 6> getPixelRange(Zo::Box<double> const& area);
  static LightweightString<char> pixelToMsg(RgbTriple_<unsigned char> const& pixel);
  // The message for the pixel at a screen point.
  virtual void grabPixelColour(int x, int y, LightweightString<char>& message);
  // Reads a message of five words whose first is "colour_eye_dropper" into
  // h, s and v (unreadable numbers read as 0) and leaves them alone
  // otherwise. Always 0, which receivers take as success.
  static int parse(char const* text, double& h, double& s, double& v);
};
