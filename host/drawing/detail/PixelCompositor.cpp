#include <zowidgets/host/drawing/detail/PixelCompositor.h>

#include <zowidgets/host/drawing/detail/CoverageMask.h>

#include <pixman.h>

#include <algorithm>

namespace {

// A colour channel in sixteen bits, as cairo keeps it before handing pixman
// the top eight.
std::uint16_t toShort(double value) { return static_cast<std::uint16_t>(std::clamp(value, 0.0, 1.0) * 65535.0 + 0.5); }

Glib::TopDownRect intersect(Glib::TopDownRect const& a, Glib::TopDownRect const& b) {
  int const x0 = std::max(a.x, b.x), y0 = std::max(a.y, b.y);
  int const x1 = std::min(a.x + a.width, b.x + b.width), y1 = std::min(a.y + a.height, b.y + b.height);
  return Glib::TopDownRect(x0, y0, std::max(x1 - x0, 0), std::max(y1 - y0, 0));
}

} // namespace

PixelCompositor::PixelCompositor(Zo::Image::Surface const& target) : target_(target) {
  if (!target_.empty())
    image_ = pixman_image_create_bits(PIXMAN_a8r8g8b8, target_.width(), target_.height(),
                                      reinterpret_cast<std::uint32_t*>(target_.data()), target_.stride());
}

PixelCompositor::~PixelCompositor() {
  if (solid_)
    pixman_image_unref(solid_);
  if (image_)
    pixman_image_unref(image_);
}

std::uint32_t PixelCompositor::premultiplied(Colour const& colour) {
  double const alpha = colour.alpha();
  auto byte = [](double value) { return static_cast<std::uint32_t>(toShort(value) >> 8); };
  return byte(alpha) << 24 | byte(colour.red() * alpha) << 16 | byte(colour.green() * alpha) << 8 |
         byte(colour.blue() * alpha);
}

void PixelCompositor::fill(Glib::TopDownRect const& rect, Colour const& colour,
                           std::vector<Glib::TopDownRect> const& clip) {
  if (!image_)
    return;
  std::uint32_t const pixel = premultiplied(colour);
  for (Glib::TopDownRect const& area : clip) {
    Glib::TopDownRect const part = intersect(rect, area);
    if (!part.empty())
      pixman_fill(reinterpret_cast<std::uint32_t*>(target_.data()), target_.stride() / 4, 32, part.x, part.y,
                  part.width, part.height, pixel);
  }
}

void PixelCompositor::composite(CoverageMask const& mask, XY<int> at, Colour const& colour,
                                std::vector<Glib::TopDownRect> const& clip) {
  if (!image_ || mask.width() == 0 || mask.height() == 0)
    return;
  // pixman only reads the mask, but wants its pixels writable.
  pixman_image_t* coverage =
      pixman_image_create_bits(PIXMAN_a8, mask.width(), mask.height(),
                               reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(mask.data())), mask.stride());
  Glib::TopDownRect const whole(at.x, at.y, mask.width(), mask.height());
  for (Glib::TopDownRect const& area : clip) {
    Glib::TopDownRect const part = intersect(whole, area);
    if (!part.empty())
      pixman_image_composite32(PIXMAN_OP_OVER, solid(colour), coverage, image_, 0, 0, part.x - at.x, part.y - at.y,
                               part.x, part.y, part.width, part.height);
  }
  pixman_image_unref(coverage);
}

pixman_image_t* PixelCompositor::solid(Colour const& colour) {
  std::uint32_t const pixel = premultiplied(colour);
  if (solid_ && pixel == solidPixel_)
    return solid_;
  if (solid_)
    pixman_image_unref(solid_);
  // Premultiplied, as pixman wants a solid colour.
  double const alpha = colour.alpha();
  pixman_color_t const shorts{toShort(colour.red() * alpha), toShort(colour.green() * alpha),
                              toShort(colour.blue() * alpha), toShort(alpha)};
  solid_ = pixman_image_create_solid_fill(&shorts);
  solidPixel_ = pixel;
  return solid_;
}
