#include <zowidgets/host/RoundedBoxes.h>

#include <zowidgets/host/LruCache.h>

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <mutex>
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

void fillPath(cairo_t* context, Zo::Box<double> const& box, double radius, double band) {
  RoundedBoxes::addPath(context, box, radius);
  if (band <= 0.0) {
    cairo_fill(context);
    return;
  }
  // The band a stroke of this width along the inside would cover, as the
  // box less its inset: the same pixels, without cairo's stroker.
  RoundedBoxes::addPath(context, inset(box, band), std::max(radius - band, 0.0));
  cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_fill(context);
  cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
}

// A shape to mask, placed `fraction` right of and below a whole pixel.
struct Shape {
  double width, height, radius, band;
  XY<double> fraction;
  cairo_antialias_t antialias;
  friend bool operator==(Shape const&, Shape const&) = default;
};

struct ShapeHash {
  std::size_t operator()(Shape const& shape) const noexcept {
    std::size_t seed = 0;
    for (double value : {shape.width, shape.height, shape.radius, shape.band, shape.fraction.x, shape.fraction.y})
      seed ^= std::hash<double>()(value) + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2);
    return seed ^ static_cast<std::size_t>(shape.antialias);
  }
};

class Mask {
public:
  explicit Mask(cairo_surface_t* coverage) : coverage_(coverage) {}
  Mask(Mask&& other) noexcept : coverage_(std::exchange(other.coverage_, nullptr)) {}
  Mask& operator=(Mask&&) = delete;
  ~Mask() {
    if (coverage_)
      cairo_surface_destroy(coverage_);
  }
  cairo_surface_t* coverage() const noexcept { return coverage_; }

private:
  cairo_surface_t* coverage_;
};

Mask makeMask(Shape const& shape) {
  int const width = static_cast<int>(std::ceil(shape.fraction.x + shape.width));
  int const height = static_cast<int>(std::ceil(shape.fraction.y + shape.height));
  cairo_surface_t* coverage = cairo_image_surface_create(CAIRO_FORMAT_A8, width, height);
  cairo_t* context = cairo_create(coverage);
  cairo_set_antialias(context, shape.antialias);
  // Mask rows run down where the canvas's run up; the shape is the same
  // upside down.
  Zo::Box<double> const box(shape.fraction.x, shape.fraction.y, shape.fraction.x + shape.width,
                            shape.fraction.y + shape.height);
  fillPath(context, box, shape.radius, shape.band);
  cairo_destroy(context);
  cairo_surface_flush(coverage);
  return Mask(coverage);
}

// Kept masks, shared by every renderer on every thread; never destroyed, as
// a renderer may still draw from static destructors.
class MaskStore {
public:
  static MaskStore& instance() {
    static MaskStore& store = *new MaskStore;
    return store;
  }

  // A reference to the shape's mask, which the caller releases.
  cairo_surface_t* coverage(Shape const& shape) {
    std::lock_guard lock(mutex_);
    Mask const* mask = masks_.find(shape);
    if (!mask) {
      mask = &masks_.insert(shape, makeMask(shape));
      ++made_;
    }
    return cairo_surface_reference(mask->coverage());
  }

  std::size_t kept() {
    std::lock_guard lock(mutex_);
    return masks_.size();
  }
  std::size_t made() {
    std::lock_guard lock(mutex_);
    return made_;
  }
  void clear() {
    std::lock_guard lock(mutex_);
    masks_.clear();
  }

private:
  std::mutex mutex_;
  LruCache<Shape, Mask, ShapeHash> masks_{RoundedBoxes::kMasksKept};
  std::size_t made_ = 0;
};

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

void RoundedBoxes::fill(cairo_t* context, Zo::Box<double> const& box, double radius, double band) {
  if (box.empty())
    return;
  cairo_matrix_t transform;
  cairo_get_matrix(context, &transform);
  bool const movesAndFlips =
      transform.xy == 0.0 && transform.yx == 0.0 && std::abs(transform.xx) == 1.0 && std::abs(transform.yy) == 1.0;
  // Square boxes are cairo's own fast case, whole boxes of pixels.
  if (radius <= 0.0 || !movesAndFlips || box.width() * box.height() > kLargestMaskPixels) {
    fillPath(context, box, radius, band);
    return;
  }
  double const left = std::min(transform.xx * box.x0, transform.xx * box.x1) + transform.x0;
  double const top = std::min(transform.yy * box.y0, transform.yy * box.y1) + transform.y0;
  XY<double> const whole(std::floor(left), std::floor(top));
  Shape const shape{box.width(),
                    box.height(),
                    std::min(radius, std::min(box.width(), box.height()) / 2.0),
                    band,
                    XY<double>(left - whole.x, top - whole.y),
                    cairo_get_antialias(context)};
  cairo_surface_t* coverage = MaskStore::instance().coverage(shape);
  cairo_identity_matrix(context);
  cairo_mask_surface(context, coverage, whole.x, whole.y);
  cairo_set_matrix(context, &transform);
  cairo_surface_destroy(coverage);
}

std::size_t RoundedBoxes::masksKept() { return MaskStore::instance().kept(); }

std::size_t RoundedBoxes::masksMade() { return MaskStore::instance().made(); }

void RoundedBoxes::forgetMasks() { MaskStore::instance().clear(); }
