#pragma once

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace FocusRing {

// The ring that says the keyboard is on a widget is drawn in the selection
// colour; over a face of nearly that colour (a ticked box, a switch that is
// on, a button showing its default or pressed state) it would not show, so
// there it takes the text colour.
inline Colour colourOver(Palette const& palette, Colour const& face) {
  Colour const selection = palette.selection();
  double const apart = std::max({std::abs(selection.red() - face.red()), std::abs(selection.green() - face.green()),
                                 std::abs(selection.blue() - face.blue())});
  // The selection colour lifted towards the text's, so that the ring stands
  // out from a grey face as well as from the window.
  return apart < 0.2 ? palette.text() : Colour::mix(selection, palette.text(), 0.7);
}

// Two pixels at scale 1: a ring of one pixel in the selection colour over a
// grey face was hard to find on a screen.
inline double width() { return 2.0 * UifStd::getScale(); }

} // namespace FocusRing
