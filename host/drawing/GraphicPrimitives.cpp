#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <zowidgets/host/drawing/TextLayout.h>

#include <algorithm>
#include <cmath>

namespace Glib {

EllipseDescription EllipseDescription::inBox(Zo::Box<double> const& box, double lineWidth, Colour const& lineColour,
                                             Colour const& fillColour) {
  XY<double> const centre((box.x0 + box.x1) / 2.0, (box.y0 + box.y1) / 2.0);
  return EllipseDescription(centre, XY<double>(box.width() / 2.0, box.height() / 2.0), lineWidth, lineColour,
                            fillColour);
}

EllipseDescription EllipseDescription::disc(XY<double> centre, double radius, Colour const& fill) {
  return EllipseDescription(centre, XY<double>(radius, radius), 0.0, Colour::invalid(), fill);
}

EllipseDescription EllipseDescription::ring(XY<double> centre, double radius, double width, Colour const& colour) {
  return EllipseDescription(centre, XY<double>(radius, radius), width, colour);
}

ImageDescription::ImageDescription(Zo::Image::Surface const& image, XY<double> position)
    : image(image), destination(position.x, position.y, position.x + image.width(), position.y + image.height()) {}

Zo::Box<double> TextDescription::calcBounds(LightweightString<wchar_t> const& text, FontDesc const& font,
                                            double scale) {
  TextMetrics const metrics = TextLayout::measure(text, font, scale);
  return Zo::Box<double>(0.0, metrics.baseline - metrics.height, metrics.width, metrics.baseline);
}

Zo::Box<double> TextDescription::calcBounds() const {
  TextLayout::Placement const placement = TextLayout::place(*this);
  double const left = placement.topLeft.x + placement.metrics.left;
  double const top = placement.topLeft.y;
  return Zo::Box<double>(left, top - placement.metrics.height, left + placement.metrics.width, top);
}

XY<double> TextDescription::baselineStart() const {
  TextLayout::Placement const placement = TextLayout::place(*this);
  return XY<double>(placement.topLeft.x + placement.metrics.left, placement.topLeft.y - placement.metrics.baseline);
}

} // namespace Glib

iRegion::iRegion(std::vector<Zo::Box<int>> boxes) {
  for (Zo::Box<int> const& box : boxes)
    add(box);
}

void iRegion::add(Zo::Box<int> const& box) {
  if (!box.empty())
    boxes_.push_back(box);
}

bool iRegion::contains(XY<int> const& point) const noexcept {
  return std::any_of(boxes_.begin(), boxes_.end(), [&point](Zo::Box<int> const& box) { return box.contains(point); });
}

bool iRegion::intersects(Zo::Box<int> const& box) const noexcept {
  return std::any_of(boxes_.begin(), boxes_.end(),
                     [&box](Zo::Box<int> const& own) { return !own.intersect(box).empty(); });
}

std::vector<Zo::Box<int>> iRegion::intersect(Zo::Box<int> const& box) const {
  std::vector<Zo::Box<int>> parts;
  for (Zo::Box<int> const& own : boxes_) {
    if (Zo::Box<int> const part = own.intersect(box); !part.empty())
      parts.push_back(part);
  }
  return parts;
}

Zo::Box<int> iRegion::bounds() const noexcept {
  Zo::Box<int> result;
  for (Zo::Box<int> const& box : boxes_)
    result = result.unite(box);
  return result;
}

namespace {

using Glib::RectDescription;

// The pixel spans of one triangle, as rectangles one row high: a pixel is in
// when its centre is, as rasterisers do it.
void addTriangleSpans(XY<double> a, XY<double> b, XY<double> c, Colour const& colour,
                      std::vector<RectDescription>& spans) {
  double const bottom = std::min({a.y, b.y, c.y});
  double const top = std::max({a.y, b.y, c.y});
  XY<double> const corners[3] = {a, b, c};
  for (int row = static_cast<int>(std::floor(bottom)); row < static_cast<int>(std::ceil(top)); ++row) {
    double const y = row + 0.5;
    double left = HUGE_VAL;
    double right = -HUGE_VAL;
    for (int i = 0; i < 3; ++i) {
      XY<double> const p = corners[i];
      XY<double> const q = corners[(i + 1) % 3];
      if ((p.y <= y && y < q.y) || (q.y <= y && y < p.y)) {
        double const x = p.x + (y - p.y) * (q.x - p.x) / (q.y - p.y);
        left = std::min(left, x);
        right = std::max(right, x);
      }
    }
    if (!(left < right))
      continue;
    int const first = static_cast<int>(std::ceil(left - 0.5));
    int const end = static_cast<int>(std::ceil(right - 0.5));
    if (first < end)
      spans.emplace_back(Zo::Box<int>(first, row, end, row + 1), colour);
  }
}

// A triangle of per-point colours drawn flat takes the mean of its corners.
Colour triangleColour(std::vector<Colour> const& colours, std::size_t i0, std::size_t i1, std::size_t i2) {
  if (colours.size() == 1)
    return colours.front();
  Colour const& a = colours[i0];
  Colour const& b = colours[i1];
  Colour const& c = colours[i2];
  return Colour::mix(Colour::mix(a, b, 0.5), c, 2.0 / 3.0);
}

bool coloursFit(std::vector<Colour> const& colours, std::size_t points) {
  return colours.size() == 1 || (colours.size() >= points && points > 0);
}

} // namespace

void iGraphicPrimitivesRenderer::renderMulti(Glib::RoundedRectDescription const* items, unsigned int count) {
  for (unsigned int n = 0; n < count; ++n) {
    Glib::RoundedRectDescription const& item = items[n];
    Zo::Box<double> const& box = item.box;
    if (box.empty())
      continue;
    double const r = std::clamp(item.radius, 0.0, std::min(box.width(), box.height()) / 2.0);
    XY<double> const centres[4] = {
        {box.x1 - r, box.y1 - r}, {box.x0 + r, box.y1 - r}, {box.x0 + r, box.y0 + r}, {box.x1 - r, box.y0 + r}};
    if (item.fill.use()) {
      RectDescription const rects[3] = {
          RectDescription(Zo::Box<double>(box.x0 + r, box.y0, box.x1 - r, box.y1), item.fill),
          RectDescription(Zo::Box<double>(box.x0, box.y0 + r, box.x0 + r, box.y1 - r), item.fill),
          RectDescription(Zo::Box<double>(box.x1 - r, box.y0 + r, box.x1, box.y1 - r), item.fill)};
      renderMulti(rects, 3);
      if (r > 0.0) {
        Glib::EllipseDescription corners[4];
        for (int i = 0; i < 4; ++i) {
          corners[i] = Glib::EllipseDescription::disc(centres[i], r, item.fill);
          corners[i].startAngle = 90.0 * i;
          corners[i].endAngle = 90.0 * (i + 1);
        }
        renderMulti(corners, 4);
      }
    }
    double const w = std::min(item.outlineWidth, std::min(box.width(), box.height()) / 2.0);
    if (!item.outline.use() || w <= 0.0)
      continue;
    double const half = w / 2.0;
    Glib::LineDescription const edges[4] = {
        {{box.x0 + r, box.y1 - half}, {box.x1 - r, box.y1 - half}, w, item.outline},
        {{box.x0 + r, box.y0 + half}, {box.x1 - r, box.y0 + half}, w, item.outline},
        {{box.x0 + half, box.y0 + r}, {box.x0 + half, box.y1 - r}, w, item.outline},
        {{box.x1 - half, box.y0 + r}, {box.x1 - half, box.y1 - r}, w, item.outline}};
    renderMulti(edges, 4);
    if (r > half) {
      Glib::EllipseDescription arcs[4];
      for (int i = 0; i < 4; ++i) {
        arcs[i] = Glib::EllipseDescription::ring(centres[i], r - half, w, item.outline);
        arcs[i].startAngle = 90.0 * i;
        arcs[i].endAngle = 90.0 * (i + 1);
      }
      renderMulti(arcs, 4);
    }
  }
}

void iGraphicPrimitivesRenderer::renderMulti(Glib::TriangleStripDescription const* items, unsigned int count) {
  std::vector<RectDescription> spans;
  for (unsigned int n = 0; n < count; ++n) {
    auto const& points = items[n].points;
    if (!coloursFit(items[n].colours, points.size()))
      continue;
    for (std::size_t i = 2; i < points.size(); ++i)
      addTriangleSpans(points[i - 2], points[i - 1], points[i], triangleColour(items[n].colours, i - 2, i - 1, i),
                       spans);
  }
  if (!spans.empty())
    renderMulti(spans.data(), static_cast<unsigned int>(spans.size()));
}

void iGraphicPrimitivesRenderer::renderMulti(Glib::TriangleFanDescription const* items, unsigned int count) {
  std::vector<RectDescription> spans;
  for (unsigned int n = 0; n < count; ++n) {
    auto const& points = items[n].points;
    if (!coloursFit(items[n].colours, points.size()))
      continue;
    for (std::size_t i = 2; i < points.size(); ++i)
      addTriangleSpans(points[0], points[i - 1], points[i], triangleColour(items[n].colours, 0, i - 1, i), spans);
  }
  if (!spans.empty())
    renderMulti(spans.data(), static_cast<unsigned int>(spans.size()));
}

void iGraphicPrimitivesRenderer::renderMulti(Glib::LineStripDescription const* items, unsigned int count) {
  std::vector<Glib::LineDescription> lines;
  for (unsigned int n = 0; n < count; ++n) {
    auto const& item = items[n];
    if (item.colours.empty())
      continue;
    for (std::size_t i = 1; i < item.points.size(); ++i) {
      Colour const& colour = item.colours[std::min(i - 1, item.colours.size() - 1)];
      lines.emplace_back(item.points[i - 1], item.points[i], item.width, colour);
    }
  }
  if (!lines.empty())
    renderMulti(lines.data(), static_cast<unsigned int>(lines.size()));
}

namespace Glib {

void drawRoundedRect(iGraphicPrimitivesRenderer& renderer, Zo::Box<double> const& box, Colour const& outline,
                     Colour const& fill, double radius) {
  RoundedRectDescription const description(box, radius, fill, outline, 1.0);
  renderer.renderMulti(&description, 1);
}

void drawRoundedRectOutline(iGraphicPrimitivesRenderer& renderer, Zo::Box<double> const& box, Colour const& colour,
                            double radius, double lineWidth) {
  RoundedRectDescription const description(box, radius, Colour::invalid(), colour, lineWidth);
  renderer.renderMulti(&description, 1);
}

} // namespace Glib
