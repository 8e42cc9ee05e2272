#pragma once

#include <zowidgets/host/drawing/Palette.h>

#include <algorithm>
#include <cmath>

namespace FocusRing {

// The ring that says the keyboard is on a widget is drawn in the selection
// colour; over a face of nearly that colour (a ticked box, a switch that is
// on, a button showing its default or pressed state) it would not show, so
// there it takes the text colour.
inline Colour colourOver(Palette const& palette, Colour const& face) {
  Colour const ring = palette.selection();
  double const apart = std::max(
      {std::abs(ring.red() - face.red()), std::abs(ring.green() - face.green()), std::abs(ring.blue() - face.blue())});
  return apart < 0.2 ? palette.text() : ring;
}

} // namespace FocusRing
