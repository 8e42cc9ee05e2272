#include <zowidgets/host/drawing/detail/StrokedLines.h>

#include <zowidgets/host/drawing/detail/CairoMask.h>
#include <zowidgets/host/drawing/detail/ShapeMaskStore.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

// Longer strokes (a rule across a panel) are stroked by cairo each time.
constexpr double kLargestMaskPixels = 64.0 * 64.0;

using Shape = StrokedLines::Shape;

struct ShapeHash {
  std::size_t operator()(Shape const& shape) const noexcept {
    std::size_t seed = 0;
    for (double value : {shape.from.x, shape.from.y, shape.to.x, shape.to.y, shape.width})
      seed ^= std::hash<double>()(value) + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2);
    return seed ^ (shape.antialias ? 1u : 0u);
  }
};

// Half the width past each side, and a pixel for antialiasing.
double reachOf(double width) { return width / 2.0 + 1.0; }

XY<int> maskSize(Shape const& shape) {
  double const reach = reachOf(shape.width);
  return XY<int>(static_cast<int>(std::ceil(std::max(shape.from.x, shape.to.x) + reach)),
                 static_cast<int>(std::ceil(std::max(shape.from.y, shape.to.y) + reach)));
}

std::shared_ptr<CoverageMask const> makeMask(Shape const& shape) {
  XY<int> const size = maskSize(shape);
  auto mask = std::make_shared<CoverageMask>(size.x, size.y);
  drawIntoMask(*mask, [&shape](cairo_t* context) {
    cairo_set_antialias(context, shape.antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_width(context, shape.width);
    cairo_move_to(context, shape.from.x, shape.from.y);
    cairo_line_to(context, shape.to.x, shape.to.y);
    cairo_stroke(context);
  });
  return mask;
}

// Never destroyed, as a renderer may still draw from static destructors.
auto& maskStore() {
  using Store = ShapeMaskStore<Shape, ShapeHash, std::shared_ptr<CoverageMask const> (*)(Shape const&)>;
  static Store& store = *new Store(StrokedLines::kMasksKept, &makeMask);
  return store;
}

} // namespace

StrokedLines::Placed StrokedLines::coverage(XY<double> from, XY<double> to, double width, bool antialias) {
  if (!(width > 0.0) || from == to)
    return {};
  double const reach = reachOf(width);
  double const left = std::floor(std::min(from.x, to.x) - reach);
  double const top = std::floor(std::min(from.y, to.y) - reach);
  // Far-off strokes would not fit whole pixels in an int.
  constexpr double kLimit = 1 << 23;
  if (!(std::abs(left) < kLimit && std::abs(top) < kLimit))
    return {};
  Shape const shape{XY<double>(from.x - left, from.y - top), XY<double>(to.x - left, to.y - top), width, antialias};
  XY<int> const size = maskSize(shape);
  if (double(size.x) * size.y > kLargestMaskPixels)
    return {};
  return {maskStore().coverage(shape), XY<int>(static_cast<int>(left), static_cast<int>(top))};
}

std::size_t StrokedLines::masksKept() { return maskStore().kept(); }

std::size_t StrokedLines::masksMade() { return maskStore().made(); }

void StrokedLines::forgetMasks() { maskStore().clear(); }
