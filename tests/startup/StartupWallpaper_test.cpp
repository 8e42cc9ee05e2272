#include "startup/StartupTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/toolkit/WallpaperProvider.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/startup/StartupWallpaper.h>

#include <filesystem>

namespace {

using WString = LightweightString<wchar_t>;

// The buffer's pixel `rowFromTop` rows down, at column `x`. Band colours
// are compared within one step of a channel: the buffer holds them rounded.
std::uint32_t pixelAt(iOffscreenBuffer const& buffer, int x, int rowFromTop) {
  return buffer.surface().pixel(x, rowFromTop);
}

using StartupWallpaperTest = StartupTest;

TEST_F(StartupWallpaperTest, AMissingPictureGivesAnEmptyBufferOfTheSizeAsked) {
  StartupWallpaper const wallpaper(WString((folder() / "missing.png").wstring().c_str()));
  Zo::Ptr<iOffscreenBuffer> const buffer = wallpaper.load(XY<int>(320, 200));
  ASSERT_TRUE(buffer);
  EXPECT_EQ(buffer->size(), XY<int>(320, 200));
  Zo::Image::Surface const pixels = buffer->surface();
  int painted = 0;
  for (int y = 0; y < pixels.height(); ++y)
    for (int x = 0; x < pixels.width(); ++x)
      painted += pixels.pixel(x, y) != 0 ? 1 : 0;
  EXPECT_EQ(painted, 0);
}

TEST_F(StartupWallpaperTest, TheBandsRunFromTheTopInTheThemesColours) {
  StartupWallpaper const wallpaper(writePicture("logo.png", XY<int>(8, 8)));
  Zo::Ptr<iOffscreenBuffer> const buffer = wallpaper.load(XY<int>(400, 300));
  ASSERT_TRUE(buffer);
  Palette const palette = UifStd::getColourScheme();
  int const right = 399; // clear of the picture, which sits at the left
  int const first = StartupWallpaper::topBandHeight();
  int const second = first + StartupWallpaper::secondBandHeight();
  int const third = second + StartupWallpaper::thirdBandHeight();
  EXPECT_TRUE(near(rgbOf(pixelAt(*buffer, right, 0)), rgbOf(scale(palette.window(0), 0.8))));
  EXPECT_TRUE(near(rgbOf(pixelAt(*buffer, right, first - 1)), rgbOf(scale(palette.window(0), 0.8))));
  EXPECT_TRUE(near(rgbOf(pixelAt(*buffer, right, first)), rgbOf(palette.window(-2))));
  EXPECT_TRUE(near(rgbOf(pixelAt(*buffer, right, second)), rgbOf(palette.window(3))));
  EXPECT_TRUE(near(rgbOf(pixelAt(*buffer, right, third)), rgbOf(palette.window(0))));
  EXPECT_TRUE(near(rgbOf(pixelAt(*buffer, right, 299)), rgbOf(palette.window(0))));
}

TEST_F(StartupWallpaperTest, TheBandsFollowAChangeOfColourScheme) {
  StartupWallpaper const wallpaper(writePicture("logo.png", XY<int>(8, 8)));
  Zo::Ptr<iOffscreenBuffer> const before = wallpaper.load(XY<int>(200, 200));
  Palette scheme = UifStd::getColourScheme();
  scheme.setWindow(Colour(0.55, 0.25, 0.2));
  UifStd::setColourScheme(scheme);
  Zo::Ptr<iOffscreenBuffer> const after = wallpaper.load(XY<int>(200, 200));
  EXPECT_NE(rgbOf(pixelAt(*before, 199, 199)), rgbOf(pixelAt(*after, 199, 199)));
  EXPECT_TRUE(near(rgbOf(pixelAt(*after, 199, 199)), rgbOf(scheme.window(0))));
  EXPECT_TRUE(near(rgbOf(pixelAt(*after, 199, 0)), rgbOf(scale(scheme.window(0), 0.8))));
}

TEST_F(StartupWallpaperTest, ThePictureSitsTwoRowsInUnderTheTabRowsPlace) {
  StartupWallpaper const wallpaper(writePicture("logo.png", XY<int>(40, 20)));
  Zo::Ptr<iOffscreenBuffer> const buffer = wallpaper.load(XY<int>(400, 300));
  int const left = 2 * UifStd::getRowHeight();
  int const top = TabbedDialogue::minHeight() + 2 * UifStd::getWidgetGap();
  // The gradient's top-left corner is nearly black-red-free: red 0, blue 0.
  Rgb const corner = rgbOf(pixelAt(*buffer, left, top));
  EXPECT_EQ(corner.r, 0);
  EXPECT_EQ(corner.g, 0x60);
  EXPECT_EQ(corner.b, 0);
  Rgb const far = rgbOf(pixelAt(*buffer, left + 39, top + 19));
  EXPECT_EQ(far.r, 255);
  EXPECT_EQ(far.b, 255);
  // Just outside it, the bands.
  EXPECT_NE(rgbOf(pixelAt(*buffer, left - 1, top)), corner);
}

TEST_F(StartupWallpaperTest, APictureLargerThanTheBufferIsShrunkToFit) {
  StartupWallpaper const wallpaper(writePicture("large.png", XY<int>(800, 800)));
  Zo::Ptr<iOffscreenBuffer> const buffer = wallpaper.load(XY<int>(300, 200));
  int const left = 2 * UifStd::getRowHeight();
  int const top = TabbedDialogue::minHeight() + 2 * UifStd::getWidgetGap();
  // The picture reaches the bottom edge, its whole width in proportion.
  int const side = 200 - top;
  Rgb const bottomRight = rgbOf(pixelAt(*buffer, left + side - 1, 199));
  EXPECT_GT(bottomRight.r, 240);
  EXPECT_GT(bottomRight.b, 240);
  EXPECT_NE(rgbOf(pixelAt(*buffer, left + side + 1, 199)), bottomRight);
}

TEST_F(StartupWallpaperTest, TheHostAsksTheProviderItWasHanded) {
  EXPECT_FALSE(loadStartupWallpaper(XY<int>(100, 100)));
  setWallpaperProvider(Zo::Ptr<iWallpaperProvider>(new StartupWallpaper(writePicture("logo.png", XY<int>(8, 8)))));
  Zo::Ptr<iOffscreenBuffer> const buffer = loadStartupWallpaper(XY<int>(100, 80));
  setWallpaperProvider({});
  ASSERT_TRUE(buffer);
  EXPECT_EQ(buffer->size(), XY<int>(100, 80));
  EXPECT_FALSE(loadStartupWallpaper(XY<int>(100, 100)));
}

TEST_F(StartupWallpaperTest, TheHeadlessScreenShowsTheWallpaperBehindTheFirstWindows) {
  HeadlessScreen& desktop = headlessScreen();
  XY<int> const size = desktop.screenSize();
  Palette const palette = UifStd::getColourScheme();
  std::uint32_t const bare = desktop.screenshot().pixel(size.x - 1, 0);
  setWallpaperProvider(Zo::Ptr<iWallpaperProvider>(new StartupWallpaper(writePicture("logo.png", XY<int>(8, 8)))));
  StandardPanel* window = openPanel(XY<int>(200, 100), XY<int>(size.x - 300, size.y - 200));
  pump();
  Zo::Image::Surface const shown = desktop.screenshot();
  // The top band across the screen's top, where no window is.
  EXPECT_TRUE(near(rgbOf(shown.pixel(size.x - 1, 0)), rgbOf(scale(palette.window(0), 0.8))));
  EXPECT_NE(shown.pixel(size.x - 1, 0), bare);
  // The window lies over it.
  EXPECT_EQ(shown.pixel(size.x - 200, 150), widgetPixel(*window, XY<int>(100, 49)));
  // Handed back, the desktop is bare again.
  setWallpaperProvider({});
  EXPECT_EQ(desktop.screenshot().pixel(size.x - 1, 0), bare);
}

TEST_F(StartupWallpaperTest, AWallpaperFromARealPicture) {
  std::filesystem::path const picture = "/usr/share/backgrounds/gnome/adwaita-l.webp";
  if (!std::filesystem::exists(picture))
    GTEST_SKIP() << picture << " is not installed (Debian package gnome-backgrounds)";
  StartupWallpaper const wallpaper(WString(picture.wstring().c_str()));
  Zo::Ptr<iOffscreenBuffer> const buffer = wallpaper.load(XY<int>(480, 300));
  ASSERT_TRUE(buffer);
  EXPECT_TRUE(matchesGolden(buffer->surface(), ZO_GOLDEN_DIR "/wallpaper.png"));
}

} // namespace
