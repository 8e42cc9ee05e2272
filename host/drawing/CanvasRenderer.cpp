#include <zowidgets/host/drawing/CanvasRenderer.h>

#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/drawing/detail/PixelCompositor.h>
#include <zowidgets/host/drawing/detail/RoundedBoxes.h>
#include <zowidgets/host/drawing/detail/StrokedLines.h>
#include <zowidgets/host/drawing/detail/TriangleMesh.h>

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <numbers>

struct CanvasRenderer::Cairo {
  explicit Cairo(Zo::Image::Surface& target)
      : surface(cairo_image_surface_create_for_data(target.data(), CAIRO_FORMAT_ARGB32, target.width(), target.height(),
                                                    target.stride())),
        context(cairo_create(surface)) {}
  ~Cairo() {
    cairo_destroy(context);
    cairo_surface_destroy(surface);
  }
  Cairo(Cairo const&) = delete;
  Cairo& operator=(Cairo const&) = delete;

  cairo_surface_t* surface;
  cairo_t* context;
};

namespace {

using Glib::TopDownRect;

double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

void setSource(cairo_t* context, Colour const& colour, double opacity = 1.0) {
  cairo_set_source_rgba(context, colour.red(), colour.green(), colour.blue(), colour.alpha() * opacity);
}

bool isWhole(double value) { return value == std::floor(value); }

// Whether a box whose top-left corner lands at `topLeft` lies within the
// coordinates cairo itself can hold, so that whole pixels of it fit an int.
bool withinPixelRange(XY<double> topLeft, Zo::Box<double> const& box) {
  constexpr double kLimit = 1 << 23;
  return std::abs(topLeft.x) < kLimit && std::abs(topLeft.y) < kLimit && box.width() < kLimit && box.height() < kLimit;
}

bool isWhole(Zo::Box<double> const& box) {
  return isWhole(box.x0) && isWhole(box.y0) && isWhole(box.x1) && isWhole(box.y1);
}

// Lines of odd whole width along a pixel edge are moved to the pixel centres
// so that they cover whole pixels.
Glib::LineDescription snapToPixels(Glib::LineDescription line) {
  bool const oddWidth = isWhole(line.width) && static_cast<long long>(line.width) % 2 == 1;
  bool const whole = isWhole(line.from.x) && isWhole(line.from.y) && isWhole(line.to.x) && isWhole(line.to.y);
  if (!oddWidth || !whole)
    return line;
  if (line.from.y == line.to.y) {
    line.from.y += 0.5;
    line.to.y += 0.5;
  } else if (line.from.x == line.to.x) {
    line.from.x += 0.5;
    line.to.x += 0.5;
  }
  return line;
}

cairo_filter_t toCairo(Glib::eImageFilter filter) {
  switch (filter) {
  case Glib::eImageFilter::Nearest:
    return CAIRO_FILTER_NEAREST;
  case Glib::eImageFilter::Bilinear:
    return CAIRO_FILTER_BILINEAR;
  case Glib::eImageFilter::Good:
    break;
  }
  return CAIRO_FILTER_GOOD;
}

// Draws `source` (top-down pixels of `image`) over `destination` (bottom-up).
void paintImage(cairo_t* context, Zo::Image::Surface const& target, Zo::Image::Surface const& image,
                TopDownRect const& source, Zo::Box<double> const& destination, cairo_filter_t filter, double alpha) {
  if (image.empty() || source.empty() || destination.empty() || alpha <= 0.0)
    return;
  // Drawing a surface onto itself would read pixels already overwritten.
  Zo::Image::Surface const pixels = image.sharesPixelsWith(target) ? image.clone() : image;
  cairo_surface_t* picture = cairo_image_surface_create_for_data(
      const_cast<std::uint8_t*>(pixels.data()), CAIRO_FORMAT_ARGB32, pixels.width(), pixels.height(), pixels.stride());
  cairo_save(context);
  // From here on a unit is one source pixel, rows counting down from the
  // destination's top edge.
  cairo_translate(context, destination.x0, destination.y1);
  cairo_scale(context, destination.width() / source.width, -destination.height() / source.height);
  cairo_rectangle(context, 0, 0, source.width, source.height);
  cairo_clip(context);
  cairo_set_source_surface(context, picture, -source.x, -source.y);
  cairo_pattern_set_filter(cairo_get_source(context), filter);
  cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
  cairo_paint_with_alpha(context, alpha);
  cairo_restore(context);
  cairo_surface_destroy(picture);
}

void addCornerColour(cairo_pattern_t* mesh, unsigned int corner, Colour const& colour) {
  cairo_mesh_pattern_set_corner_color_rgba(mesh, corner, colour.red(), colour.green(), colour.blue(), colour.alpha());
}

} // namespace

CanvasRenderer::CanvasRenderer(Zo::Image::Surface const& surface)
    : surface_(surface), pixels_(std::make_unique<PixelCompositor>(surface_)) {
  resetClipBox();
}

CanvasRenderer::~CanvasRenderer() = default;

int CanvasRenderer::surfaceHeight() const noexcept { return surface_.height(); }

void CanvasRenderer::setClipBox(Zo::Box<int> const& box) {
  Zo::Box<int> clipped = box.intersect(Zo::Box<int>(0, 0, surface_.width(), surface_.height()));
  if (clipped != clipBox_) {
    clipBox_ = clipped;
    clipKnown_ = stateApplied_ = false;
  }
}

void CanvasRenderer::resetClipBox() { setClipBox(Zo::Box<int>(0, 0, surface_.width(), surface_.height())); }

void CanvasRenderer::addModifiedArea(Zo::Box<int> const& box) {
  modified_ = modified_.unite(box.intersect(Zo::Box<int>(0, 0, surface_.width(), surface_.height())));
}

Zo::Box<int> CanvasRenderer::takeModifiedArea() noexcept { return std::exchange(modified_, Zo::Box<int>()); }

void CanvasRenderer::flush() {
  if (cairo_)
    cairo_surface_flush(cairo_->surface);
}

void CanvasRenderer::setClipRegion(Zo::Ptr<iRegion> region) {
  clipRegion_ = std::move(region);
  clipKnown_ = stateApplied_ = false;
}

void CanvasRenderer::setAntialiasingEnabled(bool enabled) {
  if (enabled != antialias_) {
    antialias_ = enabled;
    stateApplied_ = false;
  }
}

unsigned int CanvasRenderer::getCaps() const { return kCapsFilteredImageScaling; }

std::vector<TopDownRect> CanvasRenderer::clipRects() const {
  std::vector<Zo::Box<int>> boxes = clipRegion_ ? clipRegion_->intersect(clipBox_) : std::vector{clipBox_};
  std::vector<TopDownRect> rects;
  for (Zo::Box<int> const& box : boxes) {
    if (!box.empty())
      rects.push_back(TopDownRect::fromBottomUp(box, surface_.height()));
  }
  return rects;
}

bool CanvasRenderer::begin() {
  if (!accepting_ || surface_.empty())
    return false;
  if (!clipKnown_) {
    clip_ = clipRects();
    clipKnown_ = true;
  }
  return !clip_.empty();
}

cairo_t* CanvasRenderer::cairo() {
  // Made only when a primitive needs it: many paints lay all their pixels
  // with the compositor.
  if (!cairo_)
    cairo_ = std::make_unique<Cairo>(surface_);
  cairo_t* context = cairo_->context;
  // The clip and transform change when a widget starts drawing, not between
  // its primitives (which restore whatever they change), so they are set up
  // only when they changed.
  if (!stateApplied_) {
    cairo_identity_matrix(context);
    cairo_reset_clip(context);
    for (TopDownRect const& rect : clip_)
      cairo_rectangle(context, rect.x, rect.y, rect.width, rect.height);
    cairo_clip(context);
    cairo_matrix_t bottomUp;
    cairo_matrix_init(&bottomUp, 1.0, 0.0, 0.0, -1.0, origin_.x, surface_.height() - origin_.y);
    cairo_set_matrix(context, &bottomUp);
    cairo_set_antialias(context, antialias_ ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    stateApplied_ = true;
  }
  // The compositor and other code may have written to the pixels since.
  cairo_surface_mark_dirty(cairo_->surface);
  cairo_set_operator(context, CAIRO_OPERATOR_OVER);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_MITER);
  cairo_new_path(context);
  return context;
}

void CanvasRenderer::fillAndOutline(Zo::Box<double> const& box, double radius, Colour const& fill,
                                    Colour const& outline, double outlineWidth) {
  if (box.empty())
    return;
  if (fill.use())
    fillShape(box, radius, 0.0, fill);
  if (!outline.use() || outlineWidth <= 0.0)
    return;
  bool const hollow = box.width() > 2.0 * outlineWidth && box.height() > 2.0 * outlineWidth;
  fillShape(box, radius, hollow ? outlineWidth : 0.0, outline);
}

void CanvasRenderer::fillShape(Zo::Box<double> const& box, double radius, double band, Colour const& colour) {
  // Where the box's top-left corner lands in the surface's own pixels. Far
  // outside any canvas, whole-pixel arithmetic would overflow an int.
  XY<double> const topLeft(origin_.x + box.x0, surface_.height() - origin_.y - box.y1);
  bool const inRange = withinPixelRange(topLeft, box);
  if (radius <= 0.0 && colour.alpha() >= 1.0 && isWhole(box) && isWhole(band)) {
    // A plain box reaching in from far away is cut to the surface first; an
    // outline's edges must stay where they are.
    if (band <= 0.0 || inRange) {
      fillWholePixels(pixelRect(topLeft, box, band <= 0.0), static_cast<int>(band), colour);
      return;
    }
  } else if (radius > 0.0 && inRange && layThroughMask(box, topLeft, radius, band, colour)) {
    return;
  }
  cairo_t* context = cairo();
  setSource(context, colour);
  RoundedBoxes::fillPath(context, box, radius, band);
}

TopDownRect CanvasRenderer::pixelRect(XY<double> topLeft, Zo::Box<double> const& box, bool cutToSurface) const {
  double x0 = topLeft.x, y0 = topLeft.y, x1 = topLeft.x + box.width(), y1 = topLeft.y + box.height();
  if (cutToSurface) {
    auto cut = [](double value, double size) { return std::clamp(value, -1.0, size + 1.0); };
    x0 = cut(x0, surface_.width()), x1 = cut(x1, surface_.width());
    y0 = cut(y0, surface_.height()), y1 = cut(y1, surface_.height());
  }
  return TopDownRect(static_cast<int>(x0), static_cast<int>(y0), static_cast<int>(x1 - x0), static_cast<int>(y1 - y0));
}

bool CanvasRenderer::layThroughMask(Zo::Box<double> const& box, XY<double> topLeft, double radius, double band,
                                    Colour const& colour) {
  XY<int> const whole(static_cast<int>(std::floor(topLeft.x)), static_cast<int>(std::floor(topLeft.y)));
  RoundedBoxes::Shape const shape{box.width(), box.height(), radius, band, topLeft - XY<double>(whole.x, whole.y),
                                  antialias_};
  auto const mask = RoundedBoxes::coverage(shape);
  if (!mask)
    return false;
  pixels_->composite(*mask, whole, colour, clip_);
  return true;
}

void CanvasRenderer::fillWholePixels(TopDownRect const& rect, int band, Colour const& colour) {
  if (band <= 0) {
    pixels_->fill(rect, colour, clip_);
    return;
  }
  int const inner = rect.height - 2 * band;
  pixels_->fill(TopDownRect(rect.x, rect.y, rect.width, band), colour, clip_);
  pixels_->fill(TopDownRect(rect.x, rect.y + rect.height - band, rect.width, band), colour, clip_);
  pixels_->fill(TopDownRect(rect.x, rect.y + band, band, inner), colour, clip_);
  pixels_->fill(TopDownRect(rect.x + rect.width - band, rect.y + band, band, inner), colour, clip_);
}

void CanvasRenderer::renderMulti(Glib::RectDescription const* items, unsigned int count) {
  if (!begin())
    return;
  for (unsigned int n = 0; n < count; ++n)
    fillAndOutline(items[n].box, 0.0, items[n].fill, items[n].outline, items[n].outlineWidth);
}

void CanvasRenderer::renderMulti(Glib::EllipseDescription const* items, unsigned int count) {
  if (!begin())
    return;
  cairo_t* context = cairo();
  for (unsigned int n = 0; n < count; ++n) {
    Glib::EllipseDescription const& item = items[n];
    if (item.radii.x <= 0.0 || item.radii.y <= 0.0)
      continue;
    bool const whole = std::abs(item.endAngle - item.startAngle) >= 360.0;
    auto addArc = [&](bool slice) {
      cairo_save(context);
      cairo_translate(context, item.centre.x, item.centre.y);
      cairo_scale(context, item.radii.x, item.radii.y);
      cairo_new_sub_path(context);
      if (slice)
        cairo_move_to(context, 0.0, 0.0);
      cairo_arc(context, 0.0, 0.0, 1.0, radians(item.startAngle), radians(item.endAngle));
      if (slice)
        cairo_close_path(context);
      cairo_restore(context);
    };
    if (item.fillColour.use()) {
      addArc(!whole);
      setSource(context, item.fillColour);
      cairo_fill(context);
    }
    if (item.lineColour.use() && item.lineWidth > 0.0) {
      addArc(false);
      setSource(context, item.lineColour);
      cairo_set_line_width(context, item.lineWidth);
      cairo_stroke(context);
    }
  }
}

void CanvasRenderer::renderMulti(Glib::LineDescription const* items, unsigned int count) {
  if (!begin())
    return;
  for (unsigned int n = 0; n < count; ++n) {
    Glib::LineDescription const line = snapToPixels(items[n]);
    if (!line.colour.use() || line.width <= 0.0 || line.from == line.to)
      continue;
    // Where the ends land in the surface's own pixels, rows running down.
    XY<double> const from(origin_.x + line.from.x, surface_.height() - origin_.y - line.from.y);
    XY<double> const to(origin_.x + line.to.x, surface_.height() - origin_.y - line.to.y);
    if (StrokedLines::Placed const placed = StrokedLines::coverage(from, to, line.width, antialias_); placed.mask) {
      pixels_->composite(*placed.mask, placed.at, line.colour, clip_);
      continue;
    }
    cairo_t* context = cairo();
    setSource(context, line.colour);
    cairo_set_line_width(context, line.width);
    cairo_move_to(context, line.from.x, line.from.y);
    cairo_line_to(context, line.to.x, line.to.y);
    cairo_stroke(context);
  }
}

void CanvasRenderer::renderMulti(Glib::TextDescription const* items, unsigned int count) {
  if (!begin())
    return;
  int const height = surface_.height();
  for (unsigned int n = 0; n < count; ++n) {
    Glib::TextDescription const& item = items[n];
    if (item.text.empty() || !item.colour.use())
      continue;
    Glib::TextLayout::Placement const placement = Glib::TextLayout::place(item);
    XY<double> const topLeft(origin_.x + placement.topLeft.x, height - (origin_.y + placement.topLeft.y));
    if (item.box.empty()) {
      Glib::TextLayout::draw(*pixels_, placement.run, item.colour, topLeft, clip_);
      continue;
    }
    Zo::Box<double> const& box = item.box;
    Zo::Box<int> const absolute(
        static_cast<int>(std::floor(box.x0)) + origin_.x, static_cast<int>(std::floor(box.y0)) + origin_.y,
        static_cast<int>(std::ceil(box.x1)) + origin_.x, static_cast<int>(std::ceil(box.y1)) + origin_.y);
    std::vector<TopDownRect> textClip;
    for (TopDownRect const& rect : clip_) {
      Zo::Box<int> const part = rect.toBottomUp(height).intersect(absolute);
      if (!part.empty())
        textClip.push_back(TopDownRect::fromBottomUp(part, height));
    }
    if (!textClip.empty())
      Glib::TextLayout::draw(*pixels_, placement.run, item.colour, topLeft, textClip);
  }
}

void CanvasRenderer::renderMulti(Glib::AlphaRectDescription const* items, unsigned int count) {
  if (!begin())
    return;
  cairo_t* context = cairo();
  for (unsigned int n = 0; n < count; ++n) {
    Glib::AlphaRectDescription const& item = items[n];
    if (item.box.empty() || !item.colour.use())
      continue;
    setSource(context, item.colour, item.alpha);
    cairo_rectangle(context, item.box.x0, item.box.y0, item.box.width(), item.box.height());
    cairo_fill(context);
  }
}

void CanvasRenderer::renderMulti(Glib::BezierCurveDescription const* items, unsigned int count) {
  if (!begin())
    return;
  cairo_t* context = cairo();
  for (unsigned int n = 0; n < count; ++n) {
    Glib::BezierCurveDescription const& item = items[n];
    if (!item.colour.use() || item.width <= 0.0)
      continue;
    setSource(context, item.colour);
    cairo_set_line_width(context, item.width);
    cairo_move_to(context, item.p0.x, item.p0.y);
    cairo_curve_to(context, item.p1.x, item.p1.y, item.p2.x, item.p2.y, item.p3.x, item.p3.y);
    cairo_stroke(context);
  }
}

void CanvasRenderer::renderMulti(Glib::ImageDescription const* items, unsigned int count) {
  if (!begin())
    return;
  for (unsigned int n = 0; n < count; ++n) {
    Glib::ImageDescription const& item = items[n];
    TopDownRect const whole(0, 0, item.image.width(), item.image.height());
    paintImage(cairo(), surface_, item.image, whole, item.destination, CAIRO_FILTER_NEAREST, item.alpha);
  }
}

void CanvasRenderer::renderMulti(Glib::ImageDescriptionEx const* items, unsigned int count) {
  if (!begin())
    return;
  for (unsigned int n = 0; n < count; ++n) {
    Glib::ImageDescriptionEx const& item = items[n];
    paintImage(cairo(), surface_, item.image, item.source, item.destination, toCairo(item.filter), item.alpha);
  }
}

void CanvasRenderer::renderMulti(Glib::RoundedRectDescription const* items, unsigned int count) {
  if (!begin())
    return;
  for (unsigned int n = 0; n < count; ++n)
    fillAndOutline(items[n].box, items[n].radius, items[n].fill, items[n].outline, items[n].outlineWidth);
}

void CanvasRenderer::renderMulti(Glib::TriangleStripDescription const* items, unsigned int count) {
  if (!begin())
    return;
  for (unsigned int n = 0; n < count; ++n) {
    auto const& item = items[n];
    if (TriangleMesh::coloursFit(item.colours, item.points.size()))
      TriangleMesh::fill(cairo(), item.points, item.colours, TriangleMesh::stripCorners(item.points.size()));
  }
}

void CanvasRenderer::renderMulti(Glib::TriangleFanDescription const* items, unsigned int count) {
  if (!begin())
    return;
  for (unsigned int n = 0; n < count; ++n) {
    auto const& item = items[n];
    if (TriangleMesh::coloursFit(item.colours, item.points.size()))
      TriangleMesh::fill(cairo(), item.points, item.colours, TriangleMesh::fanCorners(item.points.size()));
  }
}

void CanvasRenderer::renderMulti(Glib::LineStripDescription const* items, unsigned int count) {
  if (!begin())
    return;
  cairo_t* context = cairo();
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  for (unsigned int n = 0; n < count; ++n) {
    auto const& item = items[n];
    if (item.colours.empty() || item.points.size() < 2 || item.width <= 0.0)
      continue;
    cairo_set_line_width(context, item.width);
    if (item.colours.size() == 1) {
      setSource(context, item.colours.front());
      cairo_move_to(context, item.points[0].x, item.points[0].y);
      for (std::size_t i = 1; i < item.points.size(); ++i)
        cairo_line_to(context, item.points[i].x, item.points[i].y);
      cairo_stroke(context);
      continue;
    }
    for (std::size_t i = 1; i < item.points.size(); ++i) {
      setSource(context, item.colours[std::min(i - 1, item.colours.size() - 1)]);
      cairo_move_to(context, item.points[i - 1].x, item.points[i - 1].y);
      cairo_line_to(context, item.points[i].x, item.points[i].y);
      cairo_stroke(context);
    }
  }
}

void CanvasRenderer::renderMulti(Glib::ShaderRectDescription const* items, unsigned int count) {
  if (!begin())
    return;
  cairo_t* context = cairo();
  for (unsigned int n = 0; n < count; ++n) {
    Glib::ShaderRectDescription const& item = items[n];
    Zo::Box<double> const& box = item.box;
    if (box.empty())
      continue;
    cairo_pattern_t* mesh = cairo_pattern_create_mesh();
    cairo_mesh_pattern_begin_patch(mesh);
    cairo_mesh_pattern_move_to(mesh, box.x0, box.y0);
    cairo_mesh_pattern_line_to(mesh, box.x1, box.y0);
    cairo_mesh_pattern_line_to(mesh, box.x1, box.y1);
    cairo_mesh_pattern_line_to(mesh, box.x0, box.y1);
    addCornerColour(mesh, 0, item.bottomLeft);
    addCornerColour(mesh, 1, item.bottomRight);
    addCornerColour(mesh, 2, item.topRight);
    addCornerColour(mesh, 3, item.topLeft);
    cairo_mesh_pattern_end_patch(mesh);
    cairo_set_source(context, mesh);
    cairo_pattern_destroy(mesh);
    cairo_rectangle(context, box.x0, box.y0, box.width(), box.height());
    cairo_fill(context);
  }
}
