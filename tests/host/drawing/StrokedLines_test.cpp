// Short strokes are laid through kept masks of their coverage; these check
// that the pixels are cairo's own stroke's, that one mask serves every
// whole-pixel position, and that long or empty strokes are left to cairo.

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/detail/CoverageMask.h>
#include <zowidgets/host/drawing/detail/StrokedLines.h>

#include "host/drawing/DrawingTestSupport.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

Colour const kInk(0.9, 0.8, 0.3);

// The stroke straight from cairo, set up as the canvas renderer sets it up
// (y up from the bottom row, the origin moved by whole pixels, butt ends).
void strokeWithCairo(Zo::Image::Surface& target, XY<int> origin, XY<double> from, XY<double> to, double width,
                     bool antialias) {
  cairo_surface_t* surface = cairo_image_surface_create_for_data(target.data(), CAIRO_FORMAT_ARGB32, target.width(),
                                                                 target.height(), target.stride());
  cairo_t* context = cairo_create(surface);
  cairo_matrix_t bottomUp;
  cairo_matrix_init(&bottomUp, 1.0, 0.0, 0.0, -1.0, origin.x, target.height() - origin.y);
  cairo_set_matrix(context, &bottomUp);
  cairo_set_antialias(context, antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_BUTT);
  cairo_set_source_rgba(context, kInk.red(), kInk.green(), kInk.blue(), 1.0);
  cairo_set_line_width(context, width);
  cairo_move_to(context, from.x, from.y);
  cairo_line_to(context, to.x, to.y);
  cairo_stroke(context);
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

void strokeWithTheRenderer(Zo::Image::Surface& target, XY<int> origin, XY<double> from, XY<double> to, double width,
                           bool antialias) {
  CanvasRenderer renderer(target);
  renderer.setOrigin(origin);
  renderer.setAntialiasingEnabled(antialias);
  renderer.renderPrimitive(Glib::LineDescription(from, to, width, kInk));
}

} // namespace

TEST(StrokedLines, TheRendererLaysThePixelsOfCairosStroke) {
  struct Stroke {
    XY<double> from, to;
    double width;
  };
  // A chevron's two arms, steep and shallow diagonals, a vertical, a
  // horizontal off the pixel grid, and a thick short tick.
  Stroke const strokes[] = {{{10.3, 12.0}, {14.3, 8.0}, 2.25}, {{14.3, 8.0}, {18.3, 12.0}, 2.25},
                            {{5.0, 4.0}, {7.5, 20.0}, 1.0},    {{20.5, 3.0}, {20.5, 19.0}, 1.5},
                            {{3.0, 6.4}, {25.0, 6.4}, 1.0},    {{8.0, 14.0}, {11.0, 17.5}, 4.0}};
  for (Stroke const& stroke : strokes)
    for (double fraction : {0.0, 0.25, 0.5, 0.8})
      for (bool antialias : {true, false}) {
        std::ostringstream where;
        where << stroke.from.x << "," << stroke.from.y << " to " << stroke.to.x << "," << stroke.to.y << " width "
              << stroke.width << ", fraction " << fraction << ", antialias " << antialias;
        SCOPED_TRACE(where.str());
        XY<double> const shift(fraction, fraction / 2.0);
        Zo::Image::Surface masked(40, 30);
        Zo::Image::Surface cairo(40, 30);
        strokeWithTheRenderer(masked, XY<int>(3, 2), stroke.from + shift, stroke.to + shift, stroke.width, antialias);
        strokeWithCairo(cairo, XY<int>(3, 2), stroke.from + shift, stroke.to + shift, stroke.width, antialias);
        EXPECT_LE(largestDifference(masked, cairo), 1);
        EXPECT_GT(countNonTransparent(masked), 5);
      }
}

TEST(StrokedLines, TheSameStrokeAtTheSameFractionComesFromOneMask) {
  StrokedLines::forgetMasks();
  std::size_t const before = StrokedLines::masksMade();
  Zo::Image::Surface surface(200, 40);
  CanvasRenderer renderer(surface);
  for (int column = 0; column < 10; ++column)
    renderer.renderPrimitive(
        Glib::LineDescription(XY<double>(column * 18.0 + 2.5, 10.0), XY<double>(column * 18.0 + 6.5, 6.0), 2.0, kInk));
  EXPECT_EQ(StrokedLines::masksMade(), before + 1);
  renderer.renderPrimitive(Glib::LineDescription(XY<double>(2.75, 20.0), XY<double>(6.75, 16.0), 2.0, kInk));
  EXPECT_EQ(StrokedLines::masksMade(), before + 2);
  EXPECT_EQ(StrokedLines::masksKept(), 2u);
}

TEST(StrokedLines, LongAndEmptyStrokesAreLeftToCairo) {
  StrokedLines::forgetMasks();
  std::size_t const before = StrokedLines::masksMade();
  EXPECT_EQ(StrokedLines::coverage(XY<double>(0, 0), XY<double>(100, 100), 1.0, true).mask, nullptr);
  EXPECT_EQ(StrokedLines::coverage(XY<double>(4, 4), XY<double>(4, 4), 2.0, true).mask, nullptr);
  EXPECT_EQ(StrokedLines::coverage(XY<double>(4, 4), XY<double>(8, 8), 0.0, true).mask, nullptr);
  EXPECT_EQ(StrokedLines::masksMade(), before);
  EXPECT_EQ(StrokedLines::masksKept(), 0u);
  // A long diagonal is still drawn, by cairo.
  Zo::Image::Surface surface(120, 120);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(Glib::LineDescription(XY<double>(5, 5), XY<double>(105, 105), 1.0, kInk));
  EXPECT_GT(countNonTransparent(surface), 100);
  EXPECT_EQ(StrokedLines::masksKept(), 0u);
}

TEST(StrokedLines, AMaskHoldsTheStrokeAndItsPlace) {
  StrokedLines::forgetMasks();
  StrokedLines::Placed const placed = StrokedLines::coverage(XY<double>(10.0, 5.5), XY<double>(16.0, 5.5), 1.0, true);
  ASSERT_NE(placed.mask, nullptr);
  // The mask starts half the width and a pixel before the stroke.
  EXPECT_EQ(placed.at, XY<int>(8, 4));
  EXPECT_EQ(placed.mask->at(4, 1), 255) << "the stroke's middle, a whole pixel covered";
  EXPECT_EQ(placed.mask->at(4, 0), 0);
  EXPECT_EQ(placed.mask->at(1, 1), 0) << "butt ends stop at the end points";
}
