#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include "support/SharedState.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// Every test leaves the process-wide appearance as it found it.
class UifStdTest : public ::testing::Test {
protected:
  void SetUp() override { resetSharedState(); }
  void TearDown() override {
    UifStd::setScale(1.0);
    UifStd::setColourScheme(Palette());
    UifStd::setWindowArrangement(0);
  }
};

struct Expected {
  double scale;
  int fontSize;
  int rowHeight;
  int widgetGap;
  int rowGap;
  int indent;
  unsigned titleSize;
  unsigned subscriptSize;
};

} // namespace

TEST_F(UifStdTest, SizesAtTheThreeScales) {
  for (Expected const& e : {Expected{1.0, 13, 23, 4, 3, 2, 15, 10}, Expected{1.5, 20, 35, 6, 5, 3, 23, 15},
                            Expected{2.0, 26, 46, 8, 6, 4, 30, 20}}) {
    UifStd::setScale(e.scale);
    SCOPED_TRACE(e.scale);
    EXPECT_EQ(UifStd::getScale(), e.scale);
    EXPECT_EQ(getDefaultFontSize(), e.fontSize);
    EXPECT_EQ(UifStd::getRowHeight(), e.rowHeight);
    EXPECT_EQ(UifStd::getWidgetGap(), e.widgetGap);
    EXPECT_EQ(UifStd::getRowGap(), e.rowGap);
    EXPECT_EQ(UifStd::getIndentWidth(), e.indent);
    EXPECT_EQ(UifStd::getFont().size(), unsigned(e.fontSize));
    EXPECT_EQ(UifStd::getTitleFont().size(), e.titleSize);
    EXPECT_EQ(UifStd::getSubheadingFont().size(), unsigned(e.fontSize));
    EXPECT_EQ(UifStd::getSubscriptFont().size(), e.subscriptSize);
  }
}

TEST_F(UifStdTest, WholeScalesMultiplyEverySize) {
  UifStd::setScale(1.0);
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  int const rowGap = UifStd::getRowGap();
  int const indent = UifStd::getIndentWidth();
  int const font = getDefaultFontSize();
  for (int scale : {2, 3, 4}) {
    UifStd::setScale(scale);
    EXPECT_EQ(UifStd::getRowHeight(), scale * row);
    EXPECT_EQ(UifStd::getWidgetGap(), scale * gap);
    EXPECT_EQ(UifStd::getRowGap(), scale * rowGap);
    EXPECT_EQ(UifStd::getIndentWidth(), scale * indent);
    EXPECT_EQ(getDefaultFontSize(), scale * font);
  }
}

TEST_F(UifStdTest, TextFitsInARowAtEveryScale) {
  for (double scale : {1.0, 1.25, 1.5, 2.0}) {
    UifStd::setScale(scale);
    XY<int> const size = UifStd::measure(UIString(L"Ág"));
    EXPECT_LT(size.y, UifStd::getRowHeight()) << scale;
    EXPECT_GT(size.y, UifStd::getRowHeight() / 2) << scale;
  }
}

TEST_F(UifStdTest, ImpossibleScalesAreIgnored) {
  UifStd::setScale(1.5);
  UifStd::setScale(0.0);
  UifStd::setScale(-2.0);
  UifStd::setScale(std::nan(""));
  EXPECT_EQ(UifStd::getScale(), 1.5);
}

TEST_F(UifStdTest, InstanceAndStaticCallsAgree) {
  UifStd::setScale(2.0);
  EXPECT_EQ(UifStd::instance().getRowHeight(), UifStd::getRowHeight());
  EXPECT_EQ(&UifStd::instance(), &UifStd::instance());
}

TEST_F(UifStdTest, RowSeparatorIsOnTheNamedSide) {
  int const rowGap = UifStd::getRowGap();
  int const gap = UifStd::getWidgetGap();
  WidgetSurround const below = UifStd::getRowSeparator(kRelativeBelow);
  EXPECT_EQ(below, WidgetSurround::on(kRelativeBelow, rowGap));
  EXPECT_EQ(below.left + below.right + below.top + below.bottom, rowGap);
  EXPECT_EQ(UifStd::getRowSeparator(kRelativeAbove), WidgetSurround::on(kRelativeAbove, rowGap));
  EXPECT_EQ(UifStd::getRowSeparator(kRelativeLeft), WidgetSurround::on(kRelativeLeft, gap));
  EXPECT_EQ(UifStd::getRowSeparator(kRelativeNone), WidgetSurround::none());
}

TEST_F(UifStdTest, MeasureUsesTheDefaultFont) {
  UifStd::setScale(1.5);
  Glib::TextMetrics const metrics = Glib::TextLayout::measure(L"Measured", UifStd::getFont());
  XY<int> const size = UifStd::measure(UIString(L"Measured"));
  EXPECT_EQ(size.x, static_cast<int>(std::ceil(metrics.width)));
  EXPECT_EQ(size.y, static_cast<int>(std::ceil(metrics.height)));
  UifStd::setScale(1.0);
  EXPECT_LT(UifStd::measure(UIString(L"Measured")).x, size.x);
}

TEST_F(UifStdTest, FontsAreTheInterfaceFamilyInTheirStyles) {
  EXPECT_EQ(getDefaultFontName(0), "DejaVu Sans");
  EXPECT_EQ(getDefaultFontName(1), "DejaVu Sans Mono");
  EXPECT_EQ(getDefaultFontName(2), "DejaVu Serif");
  EXPECT_EQ(getDefaultFontName(7), "DejaVu Sans");
  EXPECT_EQ(UifStd::getFont().family(), getDefaultFontName(0));
  EXPECT_FALSE(UifStd::getFont().bold());
  EXPECT_TRUE(UifStd::getTitleFont().bold());
  EXPECT_TRUE(UifStd::getSubheadingFont().bold());
  EXPECT_FALSE(UifStd::getSubscriptFont().bold());
}

TEST_F(UifStdTest, ThemeParametersKeepTheFirstRegistration) {
  Theme& theme = UifStd::getTheme();
  EXPECT_FALSE(theme.has("test.appearance"));
  EXPECT_EQ(theme.getInt("test.appearance", 1), 1);
  UifStd::registerThemeParam("test.appearance", 2.0);
  UifStd::registerThemeParam("test.appearance", 5.0);
  EXPECT_TRUE(theme.has("test.appearance"));
  EXPECT_EQ(theme.getInt("test.appearance", 1), 2);
  theme.set("test.appearance", 0.4);
  EXPECT_EQ(theme.get("test.appearance", 1.0), 0.4);
  EXPECT_EQ(theme.getInt("test.appearance", 1), 0);
}

TEST_F(UifStdTest, ColourSchemeAndArrangement) {
  EXPECT_EQ(UifStd::getColourScheme(), Palette());
  Palette const light = makeWindowPalette(Palette(), Colour(0.9, 0.9, 0.9));
  UifStd::setColourScheme(light);
  EXPECT_EQ(UifStd::getColourScheme(), light);
  EXPECT_EQ(UifStd::getWindowArrangement(), 0);
  UifStd::setWindowArrangement(1);
  EXPECT_EQ(UifStd::getWindowArrangement(), 1);
}
