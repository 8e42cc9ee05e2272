// SVG drawings through librsvg, drawn by cairo straight into the surface at
// the size the picture is wanted at, so that a drawing is never scaled up
// from a small rendering.
#include <zowidgets/host/drawing/ImageOperations.h>
#include <zowidgets/host/drawing/detail/ImageDecoders.h>
#include <zowidgets/host/drawing/detail/SvgDrawing.h>

#include <algorithm>
#include <cmath>

namespace ZoImage::detail {

namespace {

using namespace SvgDrawing;

// A drawing asked for whole is drawn no larger than this a side: it can be
// drawn again at any size, so a huge stated size costs no memory.
constexpr int kLargestWholeSide = 4096;

} // namespace

Zo::Image::Surface decodeSvg(std::string_view bytes, XY<int> fitWithin, XY<int>& fullSize, std::string& error) {
  Handle const document = readDocument(bytes);
  if (!document) {
    error = "not a readable SVG drawing";
    return {};
  }
  double width = 0.0;
  double height = 0.0;
  if (!rsvg_handle_get_intrinsic_size_in_pixels(document.get(), &width, &height) || !(width >= 1.0) ||
      !(height >= 1.0) || width > 1e9 || height > 1e9) {
    error = "the drawing states no size in pixels";
    return {};
  }
  fullSize = XY<int>(static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height)));
  XY<int> const room = fitWithin.x > 0 && fitWithin.y > 0 ? fitWithin : XY<int>(kLargestWholeSide, kLargestWholeSide);
  XY<int> size = Zo::Image::fitSize(fullSize, room);
  size = XY<int>(std::max(1, size.x), std::max(1, size.y));
  if (!acceptableSize(size.x, size.y)) {
    error = "the drawing would be " + std::to_string(size.x) + " by " + std::to_string(size.y) +
            " pixels, more than allowed";
    return {};
  }
  Zo::Image::Surface surface(size.x, size.y);
  if (surface.empty()) {
    error = "no memory for the pixels";
    return {};
  }
  CairoSurface const target(
      cairo_image_surface_create_for_data(surface.data(), CAIRO_FORMAT_ARGB32, size.x, size.y, surface.stride()));
  Context const context(cairo_create(target.get()));
  RsvgRectangle const viewport{0.0, 0.0, double(size.x), double(size.y)};
  GError* failure = nullptr;
  bool const drawn = rsvg_handle_render_document(document.get(), context.get(), &viewport, &failure);
  g_clear_error(&failure);
  cairo_surface_flush(target.get());
  if (!drawn || cairo_status(context.get()) != CAIRO_STATUS_SUCCESS) {
    error = "the drawing could not be drawn";
    return {};
  }
  return surface;
}

} // namespace ZoImage::detail
