#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/detail/CoverageMask.h>
#include <zowidgets/host/drawing/detail/RoundedBoxes.h>

#include "host/drawing/DrawingTestSupport.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sstream>

namespace {

Colour const kFill(0.2, 0.4, 0.9);

// The shape straight from cairo's path filler, drawn the way the canvas
// renderer sets cairo up (y up from the bottom row, origin moved by whole
// pixels): the box, and for a band the box less its inset, filled even-odd.
void fillFromThePath(Zo::Image::Surface& target, XY<int> origin, Zo::Box<double> const& box, double radius, double band,
                     bool antialias) {
  cairo_surface_t* surface = cairo_image_surface_create_for_data(target.data(), CAIRO_FORMAT_ARGB32, target.width(),
                                                                 target.height(), target.stride());
  cairo_t* context = cairo_create(surface);
  cairo_matrix_t bottomUp;
  cairo_matrix_init(&bottomUp, 1.0, 0.0, 0.0, -1.0, origin.x, target.height() - origin.y);
  cairo_set_matrix(context, &bottomUp);
  cairo_set_antialias(context, antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
  cairo_set_source_rgba(context, kFill.red(), kFill.green(), kFill.blue(), 1.0);
  RoundedBoxes::addPath(context, box, radius);
  if (band > 0.0) {
    Zo::Box<double> const inside(box.x0 + band, box.y0 + band, box.x1 - band, box.y1 - band);
    RoundedBoxes::addPath(context, inside, std::max(radius - band, 0.0));
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
  }
  cairo_fill(context);
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

// The same through the renderer: a filled box, or only its outline.
void fillWithTheRenderer(Zo::Image::Surface& target, XY<int> origin, Zo::Box<double> const& box, double radius,
                         double band, bool antialias) {
  CanvasRenderer renderer(target);
  renderer.setOrigin(origin);
  renderer.setAntialiasingEnabled(antialias);
  if (band > 0.0)
    renderer.renderPrimitive(Glib::RoundedRectDescription(box, radius, Colour::invalid(), kFill, band));
  else
    renderer.renderPrimitive(Glib::RoundedRectDescription(box, radius, kFill));
}

RoundedBoxes::Shape shape(double width, double height, double radius, double band = 0.0) {
  RoundedBoxes::Shape result;
  result.width = width;
  result.height = height;
  result.radius = radius;
  result.band = band;
  return result;
}

} // namespace

TEST(RoundedBoxes, TheRendererLaysThePixelsOfThePath) {
  for (double fraction : {0.0, 0.25, 0.5, 0.8}) {
    for (double radius : {1.5, 3.0, 5.5}) {
      for (double band : {0.0, 1.0, 2.5}) {
        for (bool antialias : {true, false}) {
          std::ostringstream where;
          where << "fraction " << fraction << ", radius " << radius << ", band " << band << ", antialias " << antialias;
          SCOPED_TRACE(where.str());
          Zo::Image::Surface masked(40, 30);
          Zo::Image::Surface path(40, 30);
          Zo::Box<double> const box(4.0 + fraction, 5.0 + fraction / 2.0, 27.5 + fraction, 21.0);
          fillWithTheRenderer(masked, XY<int>(3, 2), box, radius, band, antialias);
          fillFromThePath(path, XY<int>(3, 2), box, radius, band, antialias);
          EXPECT_LE(largestDifference(masked, path), 1);
          EXPECT_GT(countNonTransparent(masked), 50);
        }
      }
    }
  }
}

TEST(RoundedBoxes, TheSameShapeAtTheSameFractionComesFromOneMask) {
  RoundedBoxes::forgetMasks();
  std::size_t const before = RoundedBoxes::masksMade();
  Zo::Image::Surface surface(200, 60);
  CanvasRenderer renderer(surface);
  for (int column = 0; column < 10; ++column)
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(Zo::Box<double>(column * 18.0, 10.0, column * 18.0 + 8.0, 27.0), 3.0, kFill));
  EXPECT_EQ(RoundedBoxes::masksMade(), before + 1);
  renderer.renderPrimitive(Glib::RoundedRectDescription(Zo::Box<double>(2.5, 30.0, 10.5, 47.0), 3.0, kFill));
  EXPECT_EQ(RoundedBoxes::masksMade(), before + 2);
  renderer.renderPrimitive(
      Glib::RoundedRectDescription(Zo::Box<double>(2.0, 30.0, 10.0, 47.0), 3.0, Colour::invalid(), kFill, 1.0));
  EXPECT_EQ(RoundedBoxes::masksMade(), before + 3);
  EXPECT_EQ(RoundedBoxes::masksKept(), 3u);
}

TEST(RoundedBoxes, RadiiPastHalfTheShorterSideShareOneMask) {
  RoundedBoxes::forgetMasks();
  auto const half = RoundedBoxes::coverage(shape(10.0, 16.0, 5.0));
  auto const more = RoundedBoxes::coverage(shape(10.0, 16.0, 40.0));
  ASSERT_NE(half, nullptr);
  EXPECT_EQ(half, more);
  EXPECT_EQ(RoundedBoxes::masksKept(), 1u);
}

TEST(RoundedBoxes, AMaskCoversTheInsideWholeAndTheCornersInPart) {
  auto const mask = RoundedBoxes::coverage(shape(12.0, 8.0, 3.0));
  ASSERT_NE(mask, nullptr);
  EXPECT_EQ(mask->width(), 12);
  EXPECT_EQ(mask->height(), 8);
  EXPECT_EQ(mask->at(6, 4), 255);
  EXPECT_EQ(mask->at(0, 4), 255);
  // The corner pixels hold a sliver of the arc, the same at every corner;
  // the pixels beside them more.
  EXPECT_GT(mask->at(0, 0), 0);
  EXPECT_LT(mask->at(0, 0), 32);
  EXPECT_EQ(mask->at(11, 7), mask->at(0, 0));
  EXPECT_EQ(mask->at(11, 0), mask->at(0, 0));
  EXPECT_GT(mask->at(0, 1), mask->at(0, 0));
  EXPECT_LT(mask->at(0, 1), 255);

  auto const band = RoundedBoxes::coverage(shape(12.0, 8.0, 3.0, 1.0));
  ASSERT_NE(band, nullptr);
  EXPECT_EQ(band->at(6, 0), 255);
  EXPECT_EQ(band->at(6, 4), 0);
}

TEST(RoundedBoxes, MasksKeptStayWithinTheirNumber) {
  RoundedBoxes::forgetMasks();
  for (std::size_t n = 0; n < RoundedBoxes::kMasksKept + 20; ++n)
    RoundedBoxes::coverage(shape(10.0 + n / 100.0, 10.0, 2.0));
  EXPECT_EQ(RoundedBoxes::masksKept(), RoundedBoxes::kMasksKept);
  RoundedBoxes::forgetMasks();
  EXPECT_EQ(RoundedBoxes::masksKept(), 0u);
}

TEST(RoundedBoxes, AMaskIsLaidOnlyWithinTheClip) {
  Zo::Image::Surface surface(30, 30);
  CanvasRenderer renderer(surface);
  renderer.setClipBox(Zo::Box<int>(0, 0, 15, 30));
  renderer.renderPrimitive(Glib::RoundedRectDescription(Zo::Box<double>(5.0, 5.0, 25.0, 25.0), 4.0, kFill));
  EXPECT_NE(pixelAt(surface, 10, 15), 0u);
  for (int y = 0; y < 30; ++y)
    for (int x = 15; x < 30; ++x)
      ASSERT_EQ(pixelAt(surface, x, y), 0u) << x << ", " << y;
}

TEST(RoundedBoxes, ALargeBoxIsFilledFromItsPath) {
  RoundedBoxes::forgetMasks();
  std::size_t const before = RoundedBoxes::masksMade();
  EXPECT_EQ(RoundedBoxes::coverage(shape(290.0, 290.0, 12.0)), nullptr);
  Zo::Image::Surface large(300, 300);
  Zo::Image::Surface path(300, 300);
  Zo::Box<double> const box(0.0, 0.0, 290.0, 290.0);
  fillWithTheRenderer(large, XY<int>(4, 4), box, 12.0, 2.0, true);
  fillFromThePath(path, XY<int>(4, 4), box, 12.0, 2.0, true);
  EXPECT_EQ(largestDifference(large, path), 0);
  EXPECT_EQ(RoundedBoxes::masksMade(), before);
}

TEST(RoundedBoxes, NothingIsKeptOfAnEmptyShape) {
  EXPECT_EQ(RoundedBoxes::coverage(shape(0.0, 8.0, 3.0)), nullptr);
  EXPECT_EQ(RoundedBoxes::coverage(shape(8.0, -1.0, 3.0)), nullptr);
}
