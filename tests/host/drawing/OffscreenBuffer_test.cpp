#include <zowidgets/host/drawing/OffscreenBuffer.h>

#include "host/drawing/DrawingTestSupport.h"

#include <gtest/gtest.h>

TEST(OffscreenBuffer, StartsTransparentAtItsSize) {
  Zo::Ptr<iOffscreenBuffer> buffer = glib_makeOffscreenBuffer(XY<int>(30, 20));
  ASSERT_TRUE(buffer);
  EXPECT_EQ(buffer->size(), XY<int>(30, 20));
  EXPECT_EQ(buffer->surface().width(), 30);
  EXPECT_EQ(buffer->surface().height(), 20);
  EXPECT_EQ(countNonTransparent(buffer->surface()), 0);
}

TEST(OffscreenBuffer, RendererDrawsIntoItsSurface) {
  Zo::Ptr<iOffscreenBuffer> buffer = glib_makeOffscreenBuffer(XY<int>(10, 10));
  EXPECT_TRUE(buffer->renderer().surface().sharesPixelsWith(buffer->surface()));
  EXPECT_EQ(buffer->renderer().clipBox(), Zo::Box<int>(0, 0, 10, 10));
  buffer->renderer().renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, 5, 2), Colour(1.0, 0.0, 0.0)));
  buffer->renderer().flush();
  EXPECT_EQ(countPixels(buffer->surface(), 0xFFFF0000u), 10);
  EXPECT_EQ(pixelAt(buffer->surface(), 4, 1), 0xFFFF0000u);
}

TEST(OffscreenBuffer, GrabCopiesAnAreaAndClearsTheRest) {
  Zo::Image::Surface screen(8, 8);
  screen.setPixel(2, 3, 0xFF123456u);
  screen.setPixel(7, 7, 0xFF654321u);
  Zo::Ptr<iOffscreenBuffer> buffer = glib_makeOffscreenBuffer(XY<int>(4, 4));
  buffer->surface().fill(Colour(1.0, 1.0, 1.0));
  buffer->grab(screen, Glib::TopDownRect(2, 3, 6, 6));
  EXPECT_EQ(buffer->surface().pixel(0, 0), 0xFF123456u);
  // Screen pixel (7, 7) is at (5, 4) of the area: outside the 4 by 4 buffer.
  EXPECT_EQ(countNonTransparent(buffer->surface()), 1);

  buffer->grab(screen, Glib::TopDownRect(6, 6, 4, 4));
  EXPECT_EQ(buffer->surface().pixel(1, 1), 0xFF654321u);
  EXPECT_EQ(countNonTransparent(buffer->surface()), 1);
}

TEST(OffscreenBuffer, NoSizeGivesAnEmptyBuffer) {
  Zo::Ptr<iOffscreenBuffer> buffer = glib_makeOffscreenBuffer(XY<int>(0, 10));
  ASSERT_TRUE(buffer);
  EXPECT_TRUE(buffer->surface().empty());
  buffer->renderer().renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, 5, 5), Colour()));
  EXPECT_TRUE(buffer->surface().empty());
}
