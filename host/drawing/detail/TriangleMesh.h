#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <cstddef>
#include <vector>

typedef struct _cairo cairo_t;

// Triangle strips and fans as cairo fills them: one path for all the
// triangles of a strip (so shared edges leave no seam) in a flat colour, or a
// mesh pattern blending each triangle's corner colours.
namespace TriangleMesh {

// Index triples (p0 p1 p2), (p1 p2 p3), ... of a strip of `points` points.
std::vector<std::size_t> stripCorners(std::size_t points);
// Index triples (p0 p1 p2), (p0 p2 p3), ... of a fan around the first point.
std::vector<std::size_t> fanCorners(std::size_t points);
// One colour for all, or one for each point.
bool coloursFit(std::vector<Colour> const& colours, std::size_t points);

// Fills the triangles (index triples into `points`) in the context's
// current coordinates.
void fill(cairo_t* context, std::vector<XY<double>> const& points, std::vector<Colour> const& colours,
          std::vector<std::size_t> const& corners);

// The triangles drawn on their own into a transparent picture covering the
// whole pixels they touch; `where` is that picture's bottom-up box. An empty
// picture when nothing would show.
struct Picture {
  Zo::Image::Surface image;
  Zo::Box<double> where;
};
Picture draw(std::vector<XY<double>> const& points, std::vector<Colour> const& colours,
             std::vector<std::size_t> const& corners);

} // namespace TriangleMesh
