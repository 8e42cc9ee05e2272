#include <zowidgets/host/drawing/detail/CoverageMask.h>
#include <zowidgets/host/drawing/detail/PixelCompositor.h>

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdint>

using Glib::TopDownRect;

namespace {

// What cairo itself makes of `colour` laid through `mask` at `at` over
// `target`.
void layWithCairo(Zo::Image::Surface& target, CoverageMask& mask, XY<int> at, Colour const& colour) {
  cairo_surface_t* surface = cairo_image_surface_create_for_data(target.data(), CAIRO_FORMAT_ARGB32, target.width(),
                                                                 target.height(), target.stride());
  cairo_surface_t* coverage =
      cairo_image_surface_create_for_data(mask.data(), CAIRO_FORMAT_A8, mask.width(), mask.height(), mask.stride());
  cairo_t* context = cairo_create(surface);
  cairo_set_source_rgba(context, colour.red(), colour.green(), colour.blue(), colour.alpha());
  cairo_mask_surface(context, coverage, at.x, at.y);
  cairo_destroy(context);
  cairo_surface_destroy(coverage);
  cairo_surface_destroy(surface);
}

void fillWithCairo(Zo::Image::Surface& target, Colour const& colour) {
  cairo_surface_t* surface = cairo_image_surface_create_for_data(target.data(), CAIRO_FORMAT_ARGB32, target.width(),
                                                                 target.height(), target.stride());
  cairo_t* context = cairo_create(surface);
  cairo_set_source_rgba(context, colour.red(), colour.green(), colour.blue(), colour.alpha());
  cairo_paint(context);
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

// A mask whose coverage grows along each row, 0 to 255.
CoverageMask ramp(int width, int height) {
  CoverageMask mask(width, height);
  for (int row = 0; row < height; ++row)
    for (int x = 0; x < width; ++x)
      mask.data()[row * mask.stride() + x] = static_cast<std::uint8_t>(x * 255 / (width - 1));
  return mask;
}

} // namespace

TEST(PixelCompositor, FillSetsExactlyTheRectangleWithinTheClip) {
  Zo::Image::Surface surface(20, 12);
  PixelCompositor pixels(surface);
  pixels.fill(TopDownRect(2, 3, 10, 6), Colour(1.0, 0.0, 0.0), {TopDownRect(0, 0, 6, 12), TopDownRect(8, 0, 12, 5)});
  for (int row = 0; row < 12; ++row)
    for (int x = 0; x < 20; ++x) {
      bool const inRect = x >= 2 && x < 12 && row >= 3 && row < 9;
      bool const inClip = x < 6 || (x >= 8 && row < 5);
      ASSERT_EQ(surface.pixel(x, row), inRect && inClip ? 0xFFFF0000u : 0u) << x << ", " << row;
    }
}

TEST(PixelCompositor, ColoursAreRoundedAsCairoRoundsThem) {
  for (Colour const& colour : {Colour(0.3, 0.6, 0.9), Colour(0.1, 0.5, 0.7, 0.5), Colour(1.0, 0.25, 0.0, 0.2)}) {
    Zo::Image::Surface cairo(1, 1);
    fillWithCairo(cairo, colour);
    EXPECT_EQ(PixelCompositor::premultiplied(colour), cairo.pixel(0, 0));
  }
}

TEST(PixelCompositor, ColourThroughAMaskIsWhatCairoLays) {
  for (Colour const& colour : {Colour(0.2, 0.4, 0.9), Colour(0.9, 0.1, 0.3, 0.6)}) {
    Zo::Image::Surface ours(40, 10);
    Zo::Image::Surface cairo(40, 10);
    for (Zo::Image::Surface* surface : {&ours, &cairo})
      fillWithCairo(*surface, Colour(0.8, 0.8, 0.1));
    CoverageMask mask = ramp(30, 6);
    PixelCompositor(ours).composite(mask, XY<int>(5, 2), colour, {TopDownRect(0, 0, 40, 10)});
    layWithCairo(cairo, mask, XY<int>(5, 2), colour);
    for (int row = 0; row < 10; ++row)
      for (int x = 0; x < 40; ++x)
        ASSERT_EQ(ours.pixel(x, row), cairo.pixel(x, row)) << x << ", " << row;
  }
}

TEST(PixelCompositor, AMaskIsLaidOnlyWithinTheClipAndTheSurface) {
  Zo::Image::Surface surface(20, 10);
  CoverageMask mask(30, 30);
  std::fill(mask.data(), mask.data() + mask.stride() * mask.height(), std::uint8_t(255));
  PixelCompositor(surface).composite(mask, XY<int>(-5, -5), Colour(0.0, 1.0, 0.0), {TopDownRect(0, 0, 8, 10)});
  for (int row = 0; row < 10; ++row)
    for (int x = 0; x < 20; ++x)
      ASSERT_EQ(surface.pixel(x, row), x < 8 ? 0xFF00FF00u : 0u) << x << ", " << row;
}

TEST(PixelCompositor, AnEmptySurfaceOrMaskDrawsNothing) {
  Zo::Image::Surface empty;
  PixelCompositor onEmpty(empty);
  CoverageMask mask = ramp(4, 4);
  onEmpty.fill(TopDownRect(0, 0, 4, 4), Colour(1.0, 0.0, 0.0), {TopDownRect(0, 0, 4, 4)});
  onEmpty.composite(mask, XY<int>(0, 0), Colour(1.0, 0.0, 0.0), {TopDownRect(0, 0, 4, 4)});
  Zo::Image::Surface surface(4, 4);
  PixelCompositor(surface).composite(CoverageMask(0, 3), XY<int>(0, 0), Colour(1.0, 0.0, 0.0),
                                     {TopDownRect(0, 0, 4, 4)});
  for (int row = 0; row < 4; ++row)
    for (int x = 0; x < 4; ++x)
      EXPECT_EQ(surface.pixel(x, row), 0u);
}

TEST(CoverageMask, StartsEmptyWithRowsPaddedToWords) {
  CoverageMask mask(5, 3);
  EXPECT_EQ(mask.width(), 5);
  EXPECT_EQ(mask.height(), 3);
  EXPECT_EQ(mask.stride(), 8);
  for (int row = 0; row < 3; ++row)
    for (int x = 0; x < 5; ++x)
      EXPECT_EQ(mask.at(x, row), 0);
  EXPECT_EQ(CoverageMask(-2, 4).width(), 0);
}
