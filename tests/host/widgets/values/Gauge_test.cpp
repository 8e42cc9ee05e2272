#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Gauge.h>
#include <zowidgets/host/widgets/values/SharkGauge.h>

#include <limits>

namespace {

Colour const kBar(0.9, 0.2, 0.1);
Colour const kBackground(0.1, 0.3, 0.8);

struct GaugeTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  Gauge* gauge = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(300, 80));
    Gauge::InitArgs args(XY<int>(200, UifStd::getRowHeight()));
    args.measure = 0.3;
    args.barColour = kBar;
    args.backgroundColour = kBackground;
    gauge = panel->createWidget<Gauge>(args, Glob::UserTopLeft(10, 10));
  }

  Rgb at(int x) { return rgbOf(widgetPixel(*gauge, XY<int>(x, gauge->height() / 2))); }
  // The first column, from the left, that shows the background.
  int firstBackgroundColumn() {
    for (int x = 0; x < gauge->width(); ++x)
      if (near(at(x), rgbOf(kBackground), 2))
        return x;
    return gauge->width();
  }
};

TEST_F(GaugeTest, ShowsTheFractionItWasGivenFromTheLeft) {
  EXPECT_EQ(gauge->filledWidth(), 60);
  EXPECT_TRUE(near(at(1), rgbOf(kBar), 2)) << at(1);
  EXPECT_TRUE(near(at(59), rgbOf(kBar), 2)) << at(59);
  EXPECT_TRUE(near(at(60), rgbOf(kBackground), 2)) << at(60);
  EXPECT_TRUE(near(at(198), rgbOf(kBackground), 2)) << at(198);
  EXPECT_EQ(firstBackgroundColumn(), 60);
}

TEST_F(GaugeTest, ANewMeasureShowsWhenDisplayed) {
  gauge->setMeasure(0.75);
  EXPECT_EQ(gauge->getMeasure(), 0.75);
  EXPECT_EQ(firstBackgroundColumn(), 60) << "the setter only stores";
  gauge->display();
  EXPECT_EQ(firstBackgroundColumn(), 150);
  gauge->setMeasure(0.1, kRedrawNow);
  EXPECT_EQ(firstBackgroundColumn(), 20) << "unless asked to show it at once";
}

TEST_F(GaugeTest, KeepsTheMeasureBetweenEmptyAndFull) {
  gauge->setMeasure(1.7);
  gauge->display();
  EXPECT_EQ(gauge->getMeasure(), 1.0);
  EXPECT_EQ(firstBackgroundColumn(), gauge->width());
  gauge->setMeasure(-0.2);
  EXPECT_EQ(gauge->getMeasure(), 0.0);
  gauge->setMeasure(std::numeric_limits<double>::quiet_NaN());
  gauge->display();
  EXPECT_EQ(gauge->getMeasure(), 0.0);
  EXPECT_EQ(firstBackgroundColumn(), 0);
}

TEST_F(GaugeTest, IsShowingAValueThatWouldNotMoveTheBarByAPixel) {
  gauge->setMeasure(0.5);
  ASSERT_EQ(gauge->filledWidth(), 100);
  EXPECT_TRUE(gauge->isShowingValue(0.5));
  EXPECT_TRUE(gauge->isShowingValue(0.501)) << "100.2 pixels round to the same bar";
  EXPECT_FALSE(gauge->isShowingValue(0.51));
  EXPECT_FALSE(gauge->isShowingValue(0.49));
  gauge->setMeasure(1.0);
  EXPECT_TRUE(gauge->isShowingValue(3.0)) << "past full is still full";
}

TEST_F(GaugeTest, TakesItsColoursFromThePaletteUnlessGiven) {
  Palette const& palette = gauge->getPalette();
  gauge->setCols(Colour::invalid(), Colour::invalid());
  EXPECT_EQ(gauge->getBarColour(), palette.subheadingText());
  EXPECT_EQ(gauge->getBackgroundColour(), palette.childWindow());
  EXPECT_EQ(gauge->getTextColour(), palette.text());
  gauge->setCols(kBar, kBackground);
  EXPECT_EQ(gauge->getBarColour(), kBar);
  EXPECT_EQ(gauge->getBackgroundColour(), kBackground);
}

TEST_F(GaugeTest, DrawsItsLabelOverTheBarInItsTextColour) {
  Colour const white(1.0, 1.0, 1.0);
  auto whitePixels = [&] {
    int count = 0;
    for (int y = 0; y < gauge->height(); ++y)
      for (int x = 0; x < gauge->width(); ++x)
        if (near(rgbOf(widgetPixel(*gauge, XY<int>(x, y))), rgbOf(white), 8))
          ++count;
    return count;
  };
  EXPECT_EQ(whitePixels(), 0);
  gauge->setTextColour(white);
  gauge->setLabel(L"Rendering", kRedrawNow);
  EXPECT_GT(whitePixels(), 20);
}

TEST_F(GaugeTest, AnInactiveGaugeDimsItsBar) {
  gauge->setActive(false, kRedrawNow);
  Rgb const dimmed = at(10);
  EXPECT_FALSE(near(dimmed, rgbOf(kBar), 8)) << dimmed;
  EXPECT_TRUE(near(dimmed, rgbOf(Colour::mix(kBar, kBackground, 0.35)), 2)) << dimmed;
}

TEST_F(GaugeTest, IsMadeFromAPlainCreationInfo) {
  Gauge plain(GlobCreationInfo(XY<int>(40, 10)));
  EXPECT_EQ(plain.getMeasure(), 0.0);
  EXPECT_TRUE(plain.getLabel().empty());
  EXPECT_STREQ(plain.idstring(), "Gauge");
}

struct SharkGaugeTest : HeadlessScreenTest {};

TEST_F(SharkGaugeTest, IsARowHigh) {
  EXPECT_EQ(SharkGauge::calcHeight(), UifStd::getRowHeight());
  UifStd::setScale(2.0);
  EXPECT_EQ(SharkGauge::calcHeight(), UifStd::getRowHeight());
  UifStd::setScale(1.0);
}

TEST_F(SharkGaugeTest, FormatsDurationsAsHoursMinutesSeconds) {
  EXPECT_EQ(SharkGauge::formatDuration(3725.0), LightweightString<wchar_t>(L"01:02:05"));
  EXPECT_EQ(SharkGauge::formatDuration(59.9), LightweightString<wchar_t>(L"00:00:59"));
  EXPECT_EQ(SharkGauge::formatDuration(-4.0), LightweightString<wchar_t>(L"00:00:00"));
  EXPECT_EQ(SharkGauge::formatDuration(std::numeric_limits<double>::quiet_NaN()),
            LightweightString<wchar_t>(L"00:00:00"));
  EXPECT_EQ(SharkGauge::formatDuration(100 * 3600.0), LightweightString<wchar_t>(L"100:00:00"));
}

TEST_F(SharkGaugeTest, CountsWholePercentsRoundedDown) {
  EXPECT_EQ(SharkGauge::percentFor(0.29), 29);
  EXPECT_EQ(SharkGauge::percentFor(0.999), 99);
  EXPECT_EQ(SharkGauge::percentFor(1.0), 100);
  EXPECT_EQ(SharkGauge::percentFor(2.0), 100);
  EXPECT_EQ(SharkGauge::percentFor(-1.0), 0);
}

TEST_F(SharkGaugeTest, AChangeOfPercentageIsAChangeEvenWhenTheBarKeepsItsLength) {
  StandardPanel* panel = openPanel(XY<int>(120, 60));
  SharkGauge* shark = panel->createWidget<SharkGauge>(SharkGauge::InitArgs(XY<int>(50, SharkGauge::calcHeight())),
                                                      Glob::UserTopLeft(0, 0));
  shark->setMeasure(0.499);
  ASSERT_EQ(shark->filledWidthFor(0.501), shark->filledWidth());
  EXPECT_TRUE(shark->Gauge::isShowingValue(0.501));
  EXPECT_FALSE(shark->isShowingValue(0.501)) << "49% would become 50%";
  EXPECT_TRUE(shark->isShowingValue(0.4995));
}

TEST_F(SharkGaugeTest, ShowsThePercentageAtTheRightAndTheLabelAtTheLeft) {
  StandardPanel* panel = openPanel(XY<int>(320, 60));
  SharkGauge::InitArgs args(XY<int>(300, SharkGauge::calcHeight()));
  args.backgroundColour = kBackground;
  args.barColour = kBackground; // only the text differs from the background
  args.textColour = Colour(1.0, 1.0, 1.0);
  SharkGauge* shark = panel->createWidget<SharkGauge>(args, Glob::UserTopLeft(0, 0));
  // Columns with a pixel of text, away from the rounded corners.
  auto textColumns = [&](int from, int to) {
    int count = 0;
    for (int x = from; x < to; ++x)
      for (int y = UifStd::getIndentWidth(); y < shark->height() - UifStd::getIndentWidth(); ++y)
        if (!near(rgbOf(widgetPixel(*shark, XY<int>(x, y))), rgbOf(kBackground), 8)) {
          ++count;
          break;
        }
    return count;
  };
  EXPECT_EQ(textColumns(0, 150), 0) << "no label yet";
  EXPECT_GT(textColumns(250, 300), 5) << "the percentage";
  shark->setLabel(L"Remaining 00:01:23", kRedrawNow);
  EXPECT_GT(textColumns(0, 100), 20);
}

} // namespace
