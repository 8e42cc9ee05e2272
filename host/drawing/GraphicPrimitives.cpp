#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/drawing/detail/TriangleMesh.h>

#include <algorithm>

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

namespace {

using Glib::RectDescription;

// Each triangle mesh drawn into a picture of its own, the pictures then
// laid as images: the one primitive every renderer has that carries filled
// triangles with blended corner colours.
void drawMeshesAsImages(iGraphicPrimitivesRenderer& renderer, std::vector<TriangleMesh::Picture> const& pictures) {
  std::vector<Glib::ImageDescription> images;
  for (TriangleMesh::Picture const& picture : pictures) {
    if (!picture.image.empty())
      images.emplace_back(picture.image, picture.where);
  }
  if (!images.empty())
    renderer.renderMulti(images.data(), static_cast<unsigned int>(images.size()));
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
  std::vector<TriangleMesh::Picture> pictures;
  for (unsigned int n = 0; n < count; ++n)
    pictures.push_back(
        TriangleMesh::draw(items[n].points, items[n].colours, TriangleMesh::stripCorners(items[n].points.size())));
  drawMeshesAsImages(*this, pictures);
}

void iGraphicPrimitivesRenderer::renderMulti(Glib::TriangleFanDescription const* items, unsigned int count) {
  std::vector<TriangleMesh::Picture> pictures;
  for (unsigned int n = 0; n < count; ++n)
    pictures.push_back(
        TriangleMesh::draw(items[n].points, items[n].colours, TriangleMesh::fanCorners(items[n].points.size())));
  drawMeshesAsImages(*this, pictures);
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
