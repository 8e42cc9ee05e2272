#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/drawing/Colour.h>

class CanvasRenderer;

// Fills `area` but for `hole` (clipped to the area) with `colour`: a strip
// below and one above across the whole width, and one on either side of the
// hole between them, each left out when empty. What lies in the hole is
// never painted, so a child drawn there does not flicker.
void fillAround(CanvasRenderer& renderer, Zo::Box<int> const& area, Zo::Box<int> const& hole, Colour const& colour);
