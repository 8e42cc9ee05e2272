#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/toolkit/Glob.h>

// What the virtual screen draws around and over a window beyond its own
// pixels. `out` shows the screen's box `area`; `window` is the window's box on
// the screen. Both boxes are bottom-up screen coordinates.
namespace WindowEffects {

// The window's surround (Glob::addSurround), drawn over what lies behind it.
void drawSurround(Zo::Image::Surface& out, Zo::Box<int> const& area, Zo::Box<int> const& window,
                  Glob::Surround const& surround);

// Composites the window's pixels with its corners cut to a curve of
// `radius`: outside the curve what lies behind stays.
void blitWithCurvedCorners(Zo::Image::Surface& out, Zo::Box<int> const& area, Zo::Box<int> const& window,
                           Zo::Image::Surface const& pixels, int radius);

// Whether a pixel (from the window's bottom-left corner) of a window of
// `size` lies outside corners cut to a curve of `radius`.
bool isCutAway(XY<int> pixel, XY<int> size, int radius);

} // namespace WindowEffects
