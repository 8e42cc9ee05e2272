#pragma once

#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <cstdint>

// Whole-number enlargement with square pixels, written straight into a
// picture: what one magnifier tick needs, without the general scaler's cost.
//
// The source is a box of screen pixels, each shown as `level` by `level`
// pixels; `crop` is how many of the enlarged pixels are cut off the left and
// the top. Only part of the source may have been read (at the screen's
// edges): `grabbed` holds that part, its top-left pixel at `grabbedAt` in the
// source (top-down), and the rest of the view becomes `outside`. Every pixel
// of `view` is written.
ZO_API void magnifyInto(Zo::Image::Surface& view, Zo::Image::Surface const& grabbed, XY<int> grabbedAt, int level,
                        XY<int> crop, std::uint32_t outside);

// Copies a block of `size` pixels from `from` in `picture` to `to` in
// `target` (both top-down), replacing what was there; a block reaching
// outside either picture is cut to both.
ZO_API void copyPixels(Zo::Image::Surface& target, XY<int> to, Zo::Image::Surface const& picture, XY<int> from,
                       XY<int> size);
