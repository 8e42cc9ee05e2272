#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/values/binding/ValAdaptor.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

std::uint32_t opaque(std::uint32_t r, std::uint32_t g, std::uint32_t b) { return 0xFF000000u | r << 16 | g << 8 | b; }

std::uint32_t byteOf(double channel) {
  return channel < 0.0 ? 0 : channel > 1.0 ? 255 : static_cast<std::uint32_t>(channel * 255.0);
}

std::uint32_t backgroundPixel(NormalisedRGB const& background) {
  return opaque(byteOf(background.r), byteOf(background.g), byteOf(background.b));
}

// The wheel's picture worked out the plain way, a pixel at a time through the
// wheel's own geometry and the host's HSV conversion, with saturation
// softened into 0.2..1: what the wheel's faster fill must match.
Zo::Image::Surface plainWheelPicture(HSColourWheel const& wheel, NormalisedRGB const& background) {
  int const r = static_cast<int>(wheel.getRadius());
  int const size = 2 * r + 1;
  Zo::Image::Surface picture(size, size);
  for (int row = 0; row < size; ++row)
    for (int column = 0; column < size; ++column) {
      double const x = column - r + 0.5;
      double const y = r + 1 - row - 0.5;
      double hue = 0.0;
      double saturation = 0.0;
      if (wheel.convertXYtoHS(x, y, hue, saturation) != 0) {
        picture.setPixel(column, row, backgroundPixel(background));
        continue;
      }
      double red = 0.0;
      double green = 0.0;
      double blue = 0.0;
      HSVToRGB(hue, saturation * 0.8 + 0.2, wheel.getDisplayValue(), red, green, blue);
      picture.setPixel(column, row, opaque(byteOf(red), byteOf(green), byteOf(blue)));
    }
  return picture;
}

// The largest difference of the red, green and blue bytes.
int colourDistance(std::uint32_t a, std::uint32_t b) {
  int distance = 0;
  for (int shift = 0; shift < 24; shift += 8)
    distance =
        std::max(distance, std::abs(static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF)));
  return distance;
}

// The wheel's fill reaches each hue by another route than the host's: angles
// mirrored in the diagonal and summed from a table and a short series, and
// hues counted in sixths of the circle by a multiply, not a division by 60.
// A hue may then differ from the host's in its last bits, and a channel that
// lies on a byte boundary can truncate to the neighbouring byte: a tolerance
// of 1 per channel allows that and nothing more. Which pixels lie on the disc
// is decided the same way in both, so the background must match exactly, and
// alpha everywhere.
void expectMatchesHostConversion(Zo::Image::Surface const& actual, Zo::Image::Surface const& expected,
                                 NormalisedRGB const& background) {
  ASSERT_EQ(actual.width(), expected.width());
  ASSERT_EQ(actual.height(), expected.height());
  std::uint32_t const outside = backgroundPixel(background);
  long long wrong = 0;
  long long offByOne = 0;
  for (int row = 0; row < expected.height(); ++row)
    for (int column = 0; column < expected.width(); ++column) {
      std::uint32_t const got = actual.pixel(column, row);
      std::uint32_t const want = expected.pixel(column, row);
      bool const onDisc = want != outside && got != outside;
      int const distance = colourDistance(got, want);
      bool const sameAlpha = got >> 24 == want >> 24;
      if ((!sameAlpha || distance > (onDisc ? 1 : 0)) && ++wrong <= 5)
        ADD_FAILURE() << "pixel " << column << ", " << row << ": " << std::hex << got << " instead of " << want;
      offByOne += distance == 1 ? 1 : 0;
    }
  EXPECT_EQ(wrong, 0);
  // Byte boundaries are rarely hit: many near misses would mean a skewed hue.
  EXPECT_LT(offByOne * 100, static_cast<long long>(expected.width()) * expected.height());
}

NormalisedRGB const kDarkGrey(0.15f, 0.16f, 0.18f);

TEST(HSColourWheelPicture, MatchesTheHostConversionPixelByPixelWhenSmall) {
  HSColourWheel wheel(nullptr, 97, 0.8, 3);
  ASSERT_EQ(wheel.getRadius(), 45.0);
  Zo::Image::Surface const picture = wheel.computeWheelImage(kDarkGrey);
  EXPECT_EQ(picture.width(), 91);
  expectMatchesHostConversion(picture, plainWheelPicture(wheel, kDarkGrey), kDarkGrey);
}

TEST(HSColourWheelPicture, MatchesTheHostConversionPixelByPixelWhenLarge) {
  HSColourWheel wheel(nullptr, 300, 1.0, 6);
  ASSERT_EQ(wheel.getRadius(), 144.0);
  NormalisedRGB const light(0.9f, 0.9f, 0.9f);
  Zo::Image::Surface const picture = wheel.computeWheelImage(light);
  EXPECT_EQ(picture.width(), 289);
  expectMatchesHostConversion(picture, plainWheelPicture(wheel, light), light);
}

TEST(HSColourWheelPicture, HueRunsClockwiseFromFourteenDegreesBeforeTheTop) {
  HSColourWheel wheel(nullptr, 200, 1.0, 0); // radius 100, picture 201 square
  Zo::Image::Surface const picture = wheel.computeWheelImage(kDarkGrey);
  auto at = [&](int x, int y) { return rgbOf(picture.pixel(x + 100, 100 - y)); };
  // Straight up is hue 346: red with a little blue.
  Rgb const top = at(0, 90);
  EXPECT_EQ(top.r, 255);
  EXPECT_GT(top.b, top.g);
  // A quarter turn clockwise is hue 256: blue with a little red.
  Rgb const right = at(90, 0);
  EXPECT_EQ(right.b, 255);
  EXPECT_GT(right.r, right.g);
  // Straight down is hue 166: green turning to cyan.
  Rgb const bottom = at(0, -90);
  EXPECT_EQ(bottom.g, 255);
  EXPECT_GT(bottom.b, bottom.r);
}

TEST(HSColourWheelPicture, CentreIsAPaleTintNotWhite) {
  HSColourWheel wheel(nullptr, 200, 1.0, 0);
  Zo::Image::Surface const picture = wheel.computeWheelImage(kDarkGrey);
  Rgb const centre = rgbOf(picture.pixel(100, 100));
  EXPECT_EQ(std::max({centre.r, centre.g, centre.b}), 255);
  // Saturation near 0.2 at the centre: the smallest channel sits near 80%.
  int const smallest = std::min({centre.r, centre.g, centre.b});
  EXPECT_GE(smallest, 200);
  EXPECT_LE(smallest, 206);
}

TEST(HSColourWheelPicture, OutsideTheDiscIsTheBackground) {
  HSColourWheel wheel(nullptr, 100, 1.0, 0);
  Zo::Image::Surface const picture = wheel.computeWheelImage(NormalisedRGB(1.0f, 0.5f, 0.0f));
  EXPECT_EQ(picture.pixel(0, 0), 0xFFFF7F00u);
  EXPECT_EQ(picture.pixel(100, 100), 0xFFFF7F00u);
}

TEST(HSColourWheelPicture, RadiusZeroGivesNoDiscPixels) {
  HSColourWheel wheel(nullptr, 8, 1.0, 4);
  ASSERT_EQ(wheel.getRadius(), 0.0);
  Zo::Image::Surface const picture = wheel.computeWheelImage(NormalisedRGB(0.0f, 0.0f, 1.0f));
  ASSERT_EQ(picture.width(), 1);
  EXPECT_EQ(picture.pixel(0, 0), 0xFF0000FFu);
}

TEST(HSColourWheelPicture, NegativeRadiusGivesAnEmptyPicture) {
  HSColourWheel wheel(nullptr, 4, 1.0, 4);
  ASSERT_LT(wheel.getRadius(), 0.0);
  EXPECT_TRUE(wheel.computeWheelImage(kDarkGrey).empty());
}

// --- On the screen ----------------------------------------------------------

struct HSColourWheelOnScreen : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  StandardPanel* openPanelFor(int wheelSize) {
    int const gap = UifStd::getWidgetGap();
    XY<int> const userArea(wheelSize + 2 * gap, wheelSize + 2 * gap);
    return openPanel(StandardPanel::calcPanelSize(userArea, 0, StandardPanel::getDefaultBorder()), XY<int>(60, 60));
  }

  static HSColourWheel* addWheel(StandardPanel& panel, int size) {
    return panel.createWidget<HSColourWheel>(HSColourWheel::InitArgs(GlobCreationInfo(XY<int>(size, size))),
                                             Glob::UserTopLeft(UifStd::getWidgetGap(), UifStd::getWidgetGap()));
  }
};

TEST_F(HSColourWheelOnScreen, PaintedDiscShowsThePicture) {
  StandardPanel* panel = openPanelFor(181);
  HSColourWheel* wheel = addWheel(*panel, 181);
  wheel->setCursor(-40.0, 30.0);
  HeadlessScreenTest::pump();
  Zo::Image::Surface const& picture = wheel->getWheelImage();
  ASSERT_FALSE(picture.empty());
  NormalisedRGB const background = fromColour(wheel->getCol());
  expectMatchesHostConversion(picture, plainWheelPicture(*wheel, background), background);

  int const border = wheel->getWheelBorder();
  Zo::Box<double> const crosshair = wheel->getAreaForCrosshair();
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(*panel);
  Zo::Box<int> const placed = wheel->canvasBox();
  long long compared = 0;
  for (int row = 0; row < picture.height(); ++row)
    for (int column = 0; column < picture.width(); ++column) {
      XY<int> const local(border + column, border + picture.height() - 1 - row);
      double const dx = local.x + 0.5 - wheel->getCentre().x;
      double const dy = local.y + 0.5 - wheel->getCentre().y;
      // The ring covers the rim and the cursor its own box.
      bool const nearCursor = local.x >= crosshair.x0 - 2 && local.x <= crosshair.x1 + 2 &&
                              local.y >= crosshair.y0 - 2 && local.y <= crosshair.y1 + 2;
      if (std::hypot(dx, dy) > wheel->getRadius() - 2 || nearCursor)
        continue;
      std::uint32_t const shown = shot.pixel(placed.x0 + local.x, shot.height() - 1 - (placed.y0 + local.y));
      ASSERT_EQ(shown, picture.pixel(column, row)) << local.x << ", " << local.y;
      ++compared;
    }
  EXPECT_GT(compared, 20000);
}

TEST_F(HSColourWheelOnScreen, RingAndCursorAreDrawnOverThePicture) {
  StandardPanel* panel = openPanelFor(181);
  HSColourWheel* wheel = addWheel(*panel, 181);
  wheel->setCursor(-40.0, 30.0);
  HeadlessScreenTest::pump();
  Zo::Image::Surface const& picture = wheel->getWheelImage();
  XY<double> const centre = wheel->getCentre();
  int const indent = UifStd::getIndentWidth();
  // The middle of the ring, straight to the right of the centre.
  XY<int> const onRing(static_cast<int>(centre.x + wheel->getRadius() + indent), static_cast<int>(centre.y));
  Colour const background = wheel->getCol();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*wheel, onRing)),
                   rgbOf(Colour(background.red() * 0.7, background.green() * 0.7, background.blue() * 0.7)), 2));
  // The cursor's circle crosses the row through its centre a widget gap to
  // the left: darker there than the picture under it.
  XY<int> const onCursor(static_cast<int>(centre.x - 40 - UifStd::getWidgetGap()), static_cast<int>(centre.y + 30));
  int const border = wheel->getWheelBorder();
  Rgb const drawn = rgbOf(widgetPixel(*wheel, onCursor));
  Rgb const under = rgbOf(picture.pixel(onCursor.x - border, border + picture.height() - 1 - onCursor.y));
  EXPECT_LT(drawn.r + drawn.g + drawn.b, under.r + under.g + under.b - 150);
}

TEST_F(HSColourWheelOnScreen, ASecondWheelOfTheSameSizeSharesThePicture) {
  StandardPanel* panel = openPanelFor(2 * 167 + UifStd::getWidgetGap());
  long long const before = HSColourWheel::wheelImageComputations();
  HSColourWheel* first = addWheel(*panel, 167);
  HSColourWheel* second = panel->createWidget<HSColourWheel>(
      HSColourWheel::InitArgs(GlobCreationInfo(XY<int>(167, 167))), Glob::RightOf(UifStd::getWidgetGap(), first));
  HeadlessScreenTest::pump();
  ASSERT_FALSE(first->getWheelImage().empty());
  EXPECT_EQ(HSColourWheel::wheelImageComputations(), before + 1);
  EXPECT_TRUE(second->getWheelImage().sharesPixelsWith(first->getWheelImage()));

  // Painting again costs nothing either.
  first->invalidate();
  second->invalidate();
  first->update();
  EXPECT_EQ(HSColourWheel::wheelImageComputations(), before + 1);
}

TEST_F(HSColourWheelOnScreen, AnotherBackgroundBuildsAnotherPicture) {
  StandardPanel* panel = openPanelFor(163);
  HSColourWheel* wheel = addWheel(*panel, 163);
  HeadlessScreenTest::pump();
  long long const before = HSColourWheel::wheelImageComputations();
  Colour const slate(0.3, 0.32, 0.36);
  wheel->setCol(slate);
  HeadlessScreenTest::pump();
  EXPECT_EQ(HSColourWheel::wheelImageComputations(), before + 1);
  EXPECT_EQ(wheel->getWheelImage().pixel(0, 0), opaque(byteOf(0.3f), byteOf(0.32f), byteOf(0.36f)));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*wheel, XY<int>(0, 0))), rgbOf(slate)));
}

TEST_F(HSColourWheelOnScreen, ResizingRebuildsThePictureAtTheNewSize) {
  StandardPanel* panel = openPanelFor(240);
  HSColourWheel* wheel = addWheel(*panel, 151);
  HeadlessScreenTest::pump();
  long long const before = HSColourWheel::wheelImageComputations();
  wheel->resize(239, 239);
  HeadlessScreenTest::pump();
  EXPECT_EQ(HSColourWheel::wheelImageComputations(), before + 1);
  EXPECT_EQ(wheel->getWheelImage().width(), 2 * static_cast<int>(wheel->getRadius()) + 1);
}

TEST_F(HSColourWheelOnScreen, AWheelTooSmallForADiscPaintsOnlyItsBackground) {
  StandardPanel* panel = openPanelFor(40);
  HSColourWheel* wheel = addWheel(*panel, UifStd::getWidgetGap());
  HeadlessScreenTest::pump();
  EXPECT_LT(wheel->getRadius(), 0.0);
  EXPECT_TRUE(wheel->getWheelImage().empty());
  EXPECT_TRUE(near(rgbOf(widgetPixel(*wheel, XY<int>(1, 1))), rgbOf(wheel->getCol())));
}

TEST_F(HSColourWheelOnScreen, ASizedWheelMadeOnACanvasJoinsItsRoot) {
  StandardPanel* panel = openPanelFor(120);
  auto* wheel = new HSColourWheel(panel->canvas(), 100, 0.5, 4);
  EXPECT_EQ(wheel->parent(), panel);
  EXPECT_EQ(wheel->getPosition(), XY<int>(0, 0));
  HeadlessScreenTest::pump();
  wheel->invalidate();
  wheel->update();
  EXPECT_FALSE(wheel->getWheelImage().empty());
  EXPECT_EQ(wheel->getDisplayValue(), 0.5);
}

// A wheel bound to a colour, as a picker shows it.
struct HSColourWheelGolden : HSColourWheelOnScreen {
  ValServer<ColourData> server{ColourData(200.0, 0.6, 1.0, ColourSpace::HSV)};

  StandardPanel* openBoundWheel() {
    int const size = UifStd::getRowHeight() * 8;
    StandardPanel* panel = openPanelFor(size);
    HSColourWheel* wheel = addWheel(*panel, size);
    wheel->setDataAdaptor(Zo::Ptr<ValAdaptorBase<ColourData>>(new ValAdaptor<ColourData, ColourData>(&server)));
    HeadlessScreenTest::pump();
    return panel;
  }
};

TEST_F(HSColourWheelGolden, WheelAtScaleOne) {
  StandardPanel* panel = openBoundWheel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/hs_colour_wheel.png"));
}

TEST_F(HSColourWheelGolden, WheelAtScaleTwo) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openBoundWheel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/hs_colour_wheel_scale2.png"));
}

} // namespace
