#pragma once

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace FocusRing {

// How far apart two colours' lightnesses are, as a contrast ratio (1: the
// same lightness, 21: black and white).
inline double contrast(Colour const& a, Colour const& b) {
  double const la = Palette::luminance(a);
  double const lb = Palette::luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The ring that says the keyboard is on a widget is drawn in the selection
// colour, lifted towards the text's so that it stands out from a grey face
// as well as from the window. Over a face of nearly that colour or of that
// lightness (a ticked box, a switch that is on, a blue action button) it
// would not show, so there it takes the text's colour, or the window's
// where that stands further off a light face.
inline Colour colourOver(Palette const& palette, Colour const& face) {
  Colour const selection = palette.selection();
  double const apart = std::max({std::abs(selection.red() - face.red()), std::abs(selection.green() - face.green()),
                                 std::abs(selection.blue() - face.blue())});
  Colour const ring = Colour::mix(selection, palette.text(), 0.7);
  if (apart >= 0.2 && contrast(ring, face) >= 1.6)
    return ring;
  Colour const text = palette.text();
  Colour const window = palette.window();
  return contrast(text, face) >= 2.0 || contrast(text, face) >= contrast(window, face) ? text : window;
}

// Two pixels at scale 1: a ring of one pixel in the selection colour over a
// grey face was hard to find on a screen.
inline double width() { return 2.0 * UifStd::getScale(); }

} // namespace FocusRing
