#include <zowidgets/host/drawing/Palette.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

Colour opaque(double red, double green, double blue) { return Colour(red, green, blue); }

// Shades between a window and the boxes inside it.
constexpr int kChildDepth = 1;
constexpr int kTextEntryDepth = 1;
constexpr int kPopupRaise = 1;
constexpr int kButtonRaise = 3;
// Below this difference of luminance, text no longer reads on its window.
constexpr double kMinTextContrast = 0.35;

double linear(double channel) {
  channel = std::clamp(channel, 0.0, 1.0);
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

Colour readableOn(Colour const& window, Colour const& text, Colour const& light, Colour const& dark) {
  if (std::abs(Palette::luminance(text) - Palette::luminance(window)) >= kMinTextContrast)
    return text;
  return Palette::luminance(window) < 0.5 ? light : dark;
}

} // namespace

Palette::Palette()
    : window_(opaque(0.169, 0.176, 0.192)), childWindow_(shaded(window_, -kChildDepth)),
      text_(opaque(0.863, 0.867, 0.871)), headingText_(opaque(0.953, 0.957, 0.965)),
      subheadingText_(opaque(0.878, 0.643, 0.345)), selection_(opaque(0.184, 0.353, 0.549)),
      warning_(opaque(0.898, 0.325, 0.294)), success_(opaque(0.341, 0.671, 0.353)), doIt_(opaque(0.208, 0.455, 0.941)) {
}

Colour Palette::shaded(Colour const& colour, int shade) noexcept {
  if (shade == 0 || !colour.use())
    return colour;
  double const offset = shade * kShadeStep;
  auto step = [offset](double channel) { return std::clamp(channel + offset, 0.0, 1.0); };
  Colour result(step(colour.red()), step(colour.green()), step(colour.blue()), colour.flag());
  result.setAlpha(colour.alpha());
  return result;
}

double Palette::luminance(Colour const& colour) noexcept {
  // Each row a builder makes derives its palette from the same few colours;
  // the last few answers are kept rather than raised to powers again.
  struct Kept {
    double red = -1.0, green = -1.0, blue = -1.0, luminance = 0.0;
  };
  thread_local std::array<Kept, 8> kept;
  thread_local std::size_t next = 0;
  double const red = colour.red(), green = colour.green(), blue = colour.blue();
  for (Kept const& entry : kept)
    if (entry.red == red && entry.green == green && entry.blue == blue)
      return entry.luminance;
  double const result = 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
  kept[next] = Kept{red, green, blue, result};
  next = (next + 1) % kept.size();
  return result;
}

Palette makeWindowPalette(Palette const& base, Colour const& window) {
  Palette result = base;
  result.setWindow(window);
  bool const dark = Palette::luminance(window) < 0.5;
  result.setChildWindow(Palette::shaded(window, dark ? -kChildDepth : kChildDepth));
  Palette const defaults;
  Colour const darkText = opaque(0.10, 0.10, 0.11);
  Colour const darkHeading = opaque(0.02, 0.02, 0.03);
  result.setText(readableOn(window, base.text(), defaults.text(), darkText));
  result.setHeadingText(readableOn(window, base.headingText(), defaults.headingText(), darkHeading));
  return result;
}

Palette makeWindowPalette(Palette const& base) { return makeWindowPalette(base, base.window()); }

Palette makeChildPalette(Palette const& base, eChildWindowType type) {
  Palette const asWindow = makeWindowPalette(base, base.childWindow());
  if (type != kChildTextEntry)
    return asWindow;
  int const deeper = asWindow.isDark() ? -kTextEntryDepth : kTextEntryDepth;
  return makeWindowPalette(base, base.childWindow(deeper));
}

Palette makeTextPalette(Palette const& base, Colour const& text) {
  Palette result = base;
  result.setText(text);
  return result;
}

Palette makePopupPalette(Palette const& base) {
  return makeWindowPalette(base, base.window(base.isDark() ? kPopupRaise : -kPopupRaise));
}

Palette makeButtonPalette(Palette const& base) {
  return makeWindowPalette(base, base.window(base.isDark() ? kButtonRaise : -kButtonRaise));
}
