#include <zowidgets/host/drawing/detail/TriangleMesh.h>

#include <cairo.h>

#include <algorithm>
#include <cmath>

namespace TriangleMesh {

namespace {

void addCornerColour(cairo_pattern_t* mesh, unsigned int corner, Colour const& colour) {
  cairo_mesh_pattern_set_corner_color_rgba(mesh, corner, colour.red(), colour.green(), colour.blue(), colour.alpha());
}

} // namespace

std::vector<std::size_t> stripCorners(std::size_t points) {
  std::vector<std::size_t> corners;
  for (std::size_t i = 2; i < points; ++i)
    corners.insert(corners.end(), {i - 2, i - 1, i});
  return corners;
}

std::vector<std::size_t> fanCorners(std::size_t points) {
  std::vector<std::size_t> corners;
  for (std::size_t i = 2; i < points; ++i)
    corners.insert(corners.end(), {std::size_t(0), i - 1, i});
  return corners;
}

bool coloursFit(std::vector<Colour> const& colours, std::size_t points) {
  return colours.size() == 1 || (colours.size() >= points && points > 0);
}

void fill(cairo_t* context, std::vector<XY<double>> const& points, std::vector<Colour> const& colours,
          std::vector<std::size_t> const& corners) {
  if (corners.empty())
    return;
  cairo_pattern_t* mesh = colours.size() == 1 ? nullptr : cairo_pattern_create_mesh();
  for (std::size_t i = 0; i + 2 < corners.size(); i += 3) {
    XY<double> const& a = points[corners[i]];
    XY<double> const& b = points[corners[i + 1]];
    XY<double> const& c = points[corners[i + 2]];
    cairo_move_to(context, a.x, a.y);
    cairo_line_to(context, b.x, b.y);
    cairo_line_to(context, c.x, c.y);
    cairo_close_path(context);
    if (!mesh)
      continue;
    cairo_mesh_pattern_begin_patch(mesh);
    cairo_mesh_pattern_move_to(mesh, a.x, a.y);
    cairo_mesh_pattern_line_to(mesh, b.x, b.y);
    cairo_mesh_pattern_line_to(mesh, c.x, c.y);
    for (unsigned int corner = 0; corner < 3; ++corner)
      addCornerColour(mesh, corner, colours[corners[i + corner]]);
    cairo_mesh_pattern_end_patch(mesh);
  }
  if (mesh) {
    cairo_set_source(context, mesh);
    cairo_pattern_destroy(mesh);
  } else {
    Colour const& colour = colours.front();
    cairo_set_source_rgba(context, colour.red(), colour.green(), colour.blue(), colour.alpha());
  }
  // Neighbouring triangles wind opposite ways; non-zero filling still covers
  // both, in one pass without seams.
  cairo_fill(context);
}

Picture draw(std::vector<XY<double>> const& points, std::vector<Colour> const& colours,
             std::vector<std::size_t> const& corners) {
  if (corners.empty() || !coloursFit(colours, points.size()))
    return {};
  Zo::Box<double> bounds(points[corners[0]].x, points[corners[0]].y, points[corners[0]].x, points[corners[0]].y);
  for (std::size_t index : corners) {
    XY<double> const& p = points[index];
    bounds = Zo::Box<double>(std::min(bounds.x0, p.x), std::min(bounds.y0, p.y), std::max(bounds.x1, p.x),
                             std::max(bounds.y1, p.y));
  }
  Zo::Box<double> const where(std::floor(bounds.x0), std::floor(bounds.y0), std::ceil(bounds.x1), std::ceil(bounds.y1));
  if (where.width() > Zo::Image::Surface::kMaxSide || where.height() > Zo::Image::Surface::kMaxSide)
    return {};
  Zo::Image::Surface image(static_cast<int>(where.width()), static_cast<int>(where.height()));
  if (image.empty())
    return {};
  cairo_surface_t* surface = cairo_image_surface_create_for_data(image.data(), CAIRO_FORMAT_ARGB32, image.width(),
                                                                 image.height(), image.stride());
  cairo_t* context = cairo_create(surface);
  // Bottom-up points onto the picture's rows, which run down from its top.
  cairo_matrix_t bottomUp;
  cairo_matrix_init(&bottomUp, 1.0, 0.0, 0.0, -1.0, -where.x0, where.y1);
  cairo_set_matrix(context, &bottomUp);
  fill(context, points, colours, corners);
  cairo_destroy(context);
  cairo_surface_flush(surface);
  cairo_surface_destroy(surface);
  return {image, where};
}

} // namespace TriangleMesh
