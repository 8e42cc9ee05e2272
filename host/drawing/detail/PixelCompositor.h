#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <cstdint>
#include <vector>

class CoverageMask;
typedef union pixman_image pixman_image_t;

// Lays flat colour straight into a surface's pixels with pixman, which is
// what cairo does for these cases in the end: whole-pixel opaque boxes, and
// colour through a coverage mask. Skipping cairo's setup for each call
// matters for the many small parts of a widget, where that setup costs more
// than the pixels. The pixels come out the same as cairo's.
//
// Rectangles are in the surface's own pixels, top-down. Drawing stays within
// the union of `clip`, whose rectangles must not overlap.
class ZO_API PixelCompositor {
public:
  explicit PixelCompositor(Zo::Image::Surface const& target);
  ~PixelCompositor();
  PixelCompositor(PixelCompositor const&) = delete;
  PixelCompositor& operator=(PixelCompositor const&) = delete;

  Zo::Image::Surface const& target() const noexcept { return target_; }

  // Sets the pixels of `rect` to `colour`, which must be opaque.
  void fill(Glib::TopDownRect const& rect, Colour const& colour, std::vector<Glib::TopDownRect> const& clip);
  // Lays `colour` over the pixels as much as `mask` covers them, with the
  // mask's top-left pixel at `at`.
  void composite(CoverageMask const& mask, XY<int> at, Colour const& colour,
                 std::vector<Glib::TopDownRect> const& clip);

  // The colour as one premultiplied ARGB pixel, rounded as cairo rounds it.
  static std::uint32_t premultiplied(Colour const& colour);

private:
  pixman_image_t* solid(Colour const& colour);

  Zo::Image::Surface target_;
  pixman_image_t* image_ = nullptr;
  pixman_image_t* solid_ = nullptr;
  std::uint32_t solidPixel_ = 0;
};
