#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>

// The eye dropper's picture: a pipette pointing down to the left, drawn in
// `colour` on a transparent square of `side` pixels, so that it is sharp at
// any scale.
ZO_API Zo::Image::Surface makeEyeDropperIcon(int side, Colour const& colour);
