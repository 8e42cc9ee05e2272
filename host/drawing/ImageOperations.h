#pragma once

#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/ImageSurface.h>

namespace Zo::Image {

// The picture in grey: each pixel's luma (ITU-R BT.601 weights) in all three
// channels, its alpha kept.
ZO_API Surface greyscale(Surface const& source);

// A copy at `width` by `height`. Shrinking averages the source pixels under
// each target pixel and enlarging interpolates between them, both through
// pixman's separable convolution, so thin lines neither vanish nor alias.
// An empty source or a side under 1 gives an empty surface.
ZO_API Surface resize(Surface const& source, int width, int height);

// The largest size with the proportions of `size` that fits in `within`,
// never larger than `size` itself, and at least one pixel a side.
ZO_API XY<int> fitSize(XY<int> size, XY<int> within) noexcept;

// The picture turned as an EXIF orientation code (1 to 8) asks: 1 is as
// stored, 6 a quarter turn clockwise, and so on. Other codes change nothing.
ZO_API Surface orient(Surface const& source, int exifOrientation);

} // namespace Zo::Image
