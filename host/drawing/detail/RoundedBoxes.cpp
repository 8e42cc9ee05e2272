#include <zowidgets/host/drawing/detail/RoundedBoxes.h>

#include <zowidgets/host/drawing/detail/CairoMask.h>
#include <zowidgets/host/drawing/detail/ShapeMaskStore.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <utility>

namespace {

// Boxes larger than this (a rounded panel) are filled from their path each
// time rather than kept.
constexpr double kLargestMaskPixels = 256.0 * 256.0;

void addCorner(cairo_t* context, XY<double> centre, double radius, int quarter) {
  constexpr double kQuarter = std::numbers::pi / 2.0;
  cairo_arc(context, centre.x, centre.y, radius, kQuarter * quarter, kQuarter * (quarter + 1));
}

Zo::Box<double> inset(Zo::Box<double> const& box, double by) {
  return Zo::Box<double>(box.x0 + by, box.y0 + by, box.x1 - by, box.y1 - by);
}

using Shape = RoundedBoxes::Shape;

struct ShapeHash {
  std::size_t operator()(Shape const& shape) const noexcept {
    std::size_t seed = 0;
    for (double value : {shape.width, shape.height, shape.radius, shape.band, shape.fraction.x, shape.fraction.y})
      seed ^= std::hash<double>()(value) + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2);
    return seed ^ (shape.antialias ? 1u : 0u);
  }
};

std::shared_ptr<CoverageMask const> makeMask(Shape const& shape) {
  auto mask = std::make_shared<CoverageMask>(static_cast<int>(std::ceil(shape.fraction.x + shape.width)),
                                             static_cast<int>(std::ceil(shape.fraction.y + shape.height)));
  drawIntoMask(*mask, [&shape](cairo_t* context) {
    cairo_set_antialias(context, shape.antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    // Mask rows run down where a canvas's run up; the shape is the same
    // upside down.
    Zo::Box<double> const box(shape.fraction.x, shape.fraction.y, shape.fraction.x + shape.width,
                              shape.fraction.y + shape.height);
    RoundedBoxes::fillPath(context, box, shape.radius, shape.band);
  });
  return mask;
}

// Never destroyed, as a renderer may still draw from static destructors.
auto& maskStore() {
  using Store = ShapeMaskStore<Shape, ShapeHash, std::shared_ptr<CoverageMask const> (*)(Shape const&)>;
  static Store& store = *new Store(RoundedBoxes::kMasksKept, &makeMask);
  return store;
}

} // namespace

void RoundedBoxes::addPath(cairo_t* context, Zo::Box<double> const& box, double radius) {
  radius = std::clamp(radius, 0.0, std::min(box.width(), box.height()) / 2.0);
  if (radius <= 0.0) {
    cairo_rectangle(context, box.x0, box.y0, box.width(), box.height());
    return;
  }
  cairo_new_sub_path(context);
  addCorner(context, {box.x1 - radius, box.y1 - radius}, radius, 0);
  addCorner(context, {box.x0 + radius, box.y1 - radius}, radius, 1);
  addCorner(context, {box.x0 + radius, box.y0 + radius}, radius, 2);
  addCorner(context, {box.x1 - radius, box.y0 + radius}, radius, 3);
  cairo_close_path(context);
}

void RoundedBoxes::fillPath(cairo_t* context, Zo::Box<double> const& box, double radius, double band) {
  addPath(context, box, radius);
  if (band <= 0.0) {
    cairo_fill(context);
    return;
  }
  // The band a stroke of this width along the inside would cover, as the
  // box less its inset: the same pixels, without cairo's stroker.
  addPath(context, inset(box, band), std::max(radius - band, 0.0));
  cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_fill(context);
  cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
}

std::shared_ptr<CoverageMask const> RoundedBoxes::coverage(Shape const& shape) {
  if (shape.width <= 0.0 || shape.height <= 0.0 || shape.width * shape.height > kLargestMaskPixels)
    return nullptr;
  // Radii past half the shorter side draw the same shape: one mask for all.
  Shape kept = shape;
  kept.radius = std::clamp(shape.radius, 0.0, std::min(shape.width, shape.height) / 2.0);
  return maskStore().coverage(kept);
}

std::size_t RoundedBoxes::masksKept() { return maskStore().kept(); }

std::size_t RoundedBoxes::masksMade() { return maskStore().made(); }

void RoundedBoxes::forgetMasks() { maskStore().clear(); }
