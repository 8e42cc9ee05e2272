#include <zowidgets/host/RoundedBoxes.h>

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <sstream>

namespace {

// A cairo picture drawn the way the canvas renderer draws: y up from the
// bottom row, origin moved by whole pixels.
class Picture {
public:
  Picture(int width, int height, XY<int> origin = XY<int>(0, 0))
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)), context_(cairo_create(surface_)) {
    cairo_matrix_t bottomUp;
    cairo_matrix_init(&bottomUp, 1.0, 0.0, 0.0, -1.0, origin.x, height - origin.y);
    cairo_set_matrix(context_, &bottomUp);
    cairo_set_source_rgba(context_, 0.2, 0.4, 0.9, 1.0);
  }
  ~Picture() {
    cairo_destroy(context_);
    cairo_surface_destroy(surface_);
  }
  Picture(Picture const&) = delete;
  Picture& operator=(Picture const&) = delete;

  cairo_t* context() const { return context_; }

  std::uint32_t pixel(int x, int row) const {
    cairo_surface_flush(surface_);
    auto const* data = cairo_image_surface_get_data(surface_);
    return *reinterpret_cast<std::uint32_t const*>(data + row * cairo_image_surface_get_stride(surface_) + 4 * x);
  }
  int width() const { return cairo_image_surface_get_width(surface_); }
  int height() const { return cairo_image_surface_get_height(surface_); }

private:
  cairo_surface_t* surface_;
  cairo_t* context_;
};

// The same shape straight from cairo's path filler: the box, and for a band
// the box less its inset, filled even-odd.
void fillFromThePath(Picture& picture, Zo::Box<double> const& box, double radius, double band) {
  cairo_t* context = picture.context();
  RoundedBoxes::addPath(context, box, radius);
  if (band > 0.0) {
    Zo::Box<double> const inside(box.x0 + band, box.y0 + band, box.x1 - band, box.y1 - band);
    RoundedBoxes::addPath(context, inside, std::max(radius - band, 0.0));
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
  }
  cairo_fill(context);
  cairo_set_fill_rule(context, CAIRO_FILL_RULE_WINDING);
}

// The largest difference in any channel of any pixel.
int largestDifference(Picture const& a, Picture const& b) {
  int largest = 0;
  for (int row = 0; row < a.height(); ++row)
    for (int x = 0; x < a.width(); ++x)
      for (int shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, std::abs(static_cast<int>((a.pixel(x, row) >> shift) & 0xFF) -
                                             static_cast<int>((b.pixel(x, row) >> shift) & 0xFF)));
  return largest;
}

int countCovered(Picture const& picture) {
  int covered = 0;
  for (int row = 0; row < picture.height(); ++row)
    for (int x = 0; x < picture.width(); ++x)
      covered += picture.pixel(x, row) != 0u ? 1 : 0;
  return covered;
}

} // namespace

TEST(RoundedBoxes, AMaskGivesThePixelsOfThePath) {
  for (double fraction : {0.0, 0.25, 0.5, 0.8}) {
    for (double radius : {1.5, 3.0, 5.5}) {
      for (double band : {0.0, 1.0, 2.5}) {
        for (cairo_antialias_t antialias : {CAIRO_ANTIALIAS_DEFAULT, CAIRO_ANTIALIAS_NONE}) {
          Picture masked(40, 30, XY<int>(3, 2));
          Picture path(40, 30, XY<int>(3, 2));
          cairo_set_antialias(masked.context(), antialias);
          cairo_set_antialias(path.context(), antialias);
          Zo::Box<double> const box(4.0 + fraction, 5.0 + fraction / 2.0, 27.5 + fraction, 21.0);
          RoundedBoxes::fill(masked.context(), box, radius, band);
          fillFromThePath(path, box, radius, band);
          std::ostringstream where;
          where << "fraction " << fraction << ", radius " << radius << ", band " << band << ", antialias " << antialias;
          SCOPED_TRACE(where.str());
          EXPECT_LE(largestDifference(masked, path), 1);
          EXPECT_GT(countCovered(masked), 0);
        }
      }
    }
  }
}

TEST(RoundedBoxes, TheSameShapeAtTheSameFractionComesFromOneMask) {
  RoundedBoxes::forgetMasks();
  std::size_t const before = RoundedBoxes::masksMade();
  Picture picture(200, 60);
  for (int column = 0; column < 10; ++column)
    RoundedBoxes::fill(picture.context(), Zo::Box<double>(column * 18.0, 10.0, column * 18.0 + 8.0, 27.0), 3.0);
  EXPECT_EQ(RoundedBoxes::masksMade(), before + 1);
  RoundedBoxes::fill(picture.context(), Zo::Box<double>(2.5, 30.0, 10.5, 47.0), 3.0);
  EXPECT_EQ(RoundedBoxes::masksMade(), before + 2);
  RoundedBoxes::fill(picture.context(), Zo::Box<double>(2.0, 30.0, 10.0, 47.0), 3.0, 1.0);
  EXPECT_EQ(RoundedBoxes::masksMade(), before + 3);
  EXPECT_EQ(RoundedBoxes::masksKept(), 3u);
}

TEST(RoundedBoxes, MasksKeptStayWithinTheirNumber) {
  RoundedBoxes::forgetMasks();
  Picture picture(20, 20);
  for (std::size_t n = 0; n < RoundedBoxes::kMasksKept + 20; ++n)
    RoundedBoxes::fill(picture.context(), Zo::Box<double>(0.0, 0.0, 10.0 + n / 100.0, 10.0), 2.0);
  EXPECT_EQ(RoundedBoxes::masksKept(), RoundedBoxes::kMasksKept);
  RoundedBoxes::forgetMasks();
  EXPECT_EQ(RoundedBoxes::masksKept(), 0u);
}

TEST(RoundedBoxes, AMaskIsDrawnThroughTheClip) {
  Picture picture(30, 30);
  // The clip is set in device space: the left half of the picture.
  cairo_save(picture.context());
  cairo_identity_matrix(picture.context());
  cairo_rectangle(picture.context(), 0, 0, 15, 30);
  cairo_restore(picture.context());
  cairo_clip(picture.context());
  RoundedBoxes::fill(picture.context(), Zo::Box<double>(5.0, 5.0, 25.0, 25.0), 4.0);
  EXPECT_NE(picture.pixel(10, 15), 0u);
  for (int row = 0; row < 30; ++row)
    for (int x = 15; x < 30; ++x)
      ASSERT_EQ(picture.pixel(x, row), 0u) << x << ", " << row;
}

TEST(RoundedBoxes, ATurnedOrLargeBoxIsFilledFromItsPath) {
  RoundedBoxes::forgetMasks();
  std::size_t const before = RoundedBoxes::masksMade();
  Picture turned(40, 40);
  Picture path(40, 40);
  for (Picture* picture : {&turned, &path}) {
    cairo_translate(picture->context(), 20.0, 20.0);
    cairo_rotate(picture->context(), std::numbers::pi / 6.0);
  }
  Zo::Box<double> const box(-10.0, -6.0, 10.0, 6.0);
  RoundedBoxes::fill(turned.context(), box, 4.0);
  fillFromThePath(path, box, 4.0, 0.0);
  EXPECT_EQ(largestDifference(turned, path), 0);

  Picture large(300, 300);
  Picture largePath(300, 300);
  RoundedBoxes::fill(large.context(), Zo::Box<double>(0.0, 0.0, 290.0, 290.0), 12.0, 2.0);
  fillFromThePath(largePath, Zo::Box<double>(0.0, 0.0, 290.0, 290.0), 12.0, 2.0);
  EXPECT_EQ(largestDifference(large, largePath), 0);
  EXPECT_EQ(RoundedBoxes::masksMade(), before);
}

TEST(RoundedBoxes, ASquareOrEmptyBoxNeedsNoMask) {
  RoundedBoxes::forgetMasks();
  std::size_t const before = RoundedBoxes::masksMade();
  Picture picture(20, 20);
  RoundedBoxes::fill(picture.context(), Zo::Box<double>(2.0, 2.0, 12.0, 9.0), 0.0);
  RoundedBoxes::fill(picture.context(), Zo::Box<double>(5.0, 5.0, 5.0, 9.0), 3.0);
  EXPECT_EQ(RoundedBoxes::masksMade(), before);
  EXPECT_EQ(countCovered(picture), 70);
}
