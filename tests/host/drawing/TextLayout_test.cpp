#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include "host/drawing/DrawingTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using Glib::FontDesc;
using Glib::TextLayout;

namespace {

FontDesc dejaVu(unsigned size, unsigned style = 0) { return FontDesc("DejaVu Sans", size, style); }

} // namespace

TEST(TextLayout, HelloHasTheAdvancesOfDejaVuSans) {
  // Advances in font units (2048 to the em): H 1540, e 1260, l 569, o 1253.
  double const expected = (1540 + 1260 + 569 + 569 + 1253) / 2048.0 * 13.0;
  Glib::TextMetrics const metrics = TextLayout::measure(L"Hello", dejaVu(13));
  EXPECT_NEAR(metrics.width, expected, 0.05);
  EXPECT_EQ(metrics.lineCount, 1);
  EXPECT_GT(metrics.baseline, 0.0);
  EXPECT_LT(metrics.baseline, metrics.height);
  // DejaVu Sans: ascent 0.928 em, descent 0.236 em.
  EXPECT_NEAR(metrics.height, 13.0 * (0.928 + 0.236), 0.5);
}

TEST(TextLayout, WidthGrowsInProportionToSize) {
  double previous = 0.0;
  for (unsigned size : {8u, 10u, 13u, 16u, 20u, 26u, 40u}) {
    double const width = TextLayout::measure(L"Hello", dejaVu(size)).width;
    EXPECT_GT(width, previous);
    EXPECT_NEAR(width / size, TextLayout::measure(L"Hello", dejaVu(13)).width / 13.0, 0.01);
    previous = width;
  }
}

TEST(TextLayout, ScaleMultipliesSizes) {
  Glib::TextMetrics const one = TextLayout::measure(L"Scaled text", dejaVu(13), 1.0);
  Glib::TextMetrics const two = TextLayout::measure(L"Scaled text", dejaVu(13), 2.0);
  EXPECT_NEAR(two.width, 2.0 * one.width, 0.05);
  EXPECT_NEAR(two.height, 2.0 * one.height, 0.5);
  EXPECT_NEAR(TextLayout::measure(L"Scaled text", dejaVu(26)).width, two.width, 0.01);
}

TEST(TextLayout, MeasuringIsStable) {
  Glib::TextMetrics const first = TextLayout::measure(L"The same text", dejaVu(15));
  TextLayout::clearCache();
  Glib::TextMetrics const again = TextLayout::measure(L"The same text", dejaVu(15));
  EXPECT_EQ(first.width, again.width);
  EXPECT_EQ(first.height, again.height);
  EXPECT_EQ(first.baseline, again.baseline);
}

TEST(TextLayout, BoldIsWiderThanRegular) {
  EXPECT_GT(TextLayout::measure(L"Heading", dejaVu(13, FontDesc::kBold)).width,
            TextLayout::measure(L"Heading", dejaVu(13)).width);
}

TEST(TextLayout, EmptyTextIsOneLineWithNoWidth) {
  Glib::TextMetrics const metrics = TextLayout::measure(L"", dejaVu(13));
  EXPECT_EQ(metrics.width, 0.0);
  EXPECT_EQ(metrics.lineCount, 1);
  EXPECT_NEAR(metrics.height, TextLayout::measure(L"x", dejaVu(13)).height, 0.01);
}

TEST(TextLayout, NewlinesStartLines) {
  Glib::TextMetrics const one = TextLayout::measure(L"one", dejaVu(13));
  Glib::TextMetrics const three = TextLayout::measure(L"one\ntwo\nthree", dejaVu(13));
  EXPECT_EQ(three.lineCount, 3);
  EXPECT_NEAR(three.height, 3.0 * one.height, 0.5);
}

TEST(TextLayout, LongTextWrapsIntoNarrowWidths) {
  LightweightString<wchar_t> const text = L"The quick brown fox jumps over the lazy dog";
  FontDesc const font = dejaVu(13);
  double const wide = TextLayout::measure(text, font).width;
  EXPECT_EQ(TextLayout::countLines(text, font, wide + 1.0), 1);
  int const narrow = TextLayout::countLines(text, font, wide / 3.0);
  EXPECT_GE(narrow, 3);
  EXPECT_LE(narrow, 5);
  // Each word on its own line when the width fits only the longest word.
  double const longestWord = TextLayout::measure(L"brown", font).width;
  EXPECT_EQ(TextLayout::countLines(text, font, longestWord + 0.5), 9);

  Glib::TextRun run;
  run.text = text;
  run.font = font;
  run.wrapWidth = wide / 3.0;
  Glib::TextMetrics const wrapped = TextLayout::measure(run);
  EXPECT_LE(wrapped.width, wide / 3.0);
  EXPECT_EQ(wrapped.lineCount, narrow);
}

TEST(TextLayout, FontMetricsAreThoseOfTheFont) {
  Glib::FontMetrics const metrics = TextLayout::fontMetrics(dejaVu(20));
  EXPECT_NEAR(metrics.ascent, 20 * 0.928, 0.3);
  EXPECT_NEAR(metrics.descent, 20 * 0.236, 0.3);
  EXPECT_GE(metrics.lineHeight, metrics.ascent + metrics.descent - 0.5);
}

TEST(TextLayout, DefaultsComeFromUifStd) {
  FontDesc const resolved = TextLayout::resolve(FontDesc());
  EXPECT_EQ(resolved.family(), getDefaultFontName(0));
  EXPECT_EQ(resolved.size(), unsigned(getDefaultFontSize()));
  FontDesc const kept = TextLayout::resolve(FontDesc("DejaVu Serif", 30, FontDesc::kItalic));
  EXPECT_EQ(kept, FontDesc("DejaVu Serif", 30, FontDesc::kItalic));
  EXPECT_EQ(TextLayout::measure(L"Same", FontDesc()).width,
            TextLayout::measure(L"Same", FontDesc(getDefaultFontName(0), getDefaultFontSize(), 0)).width);
}

TEST(TextLayout, RepeatedTextIsLaidOutOnce) {
  TextLayout::clearCache();
  std::size_t const before = TextLayout::layoutsMade();
  for (int i = 0; i < 50; ++i)
    TextLayout::measure(L"Cached row text", dejaVu(13));
  EXPECT_EQ(TextLayout::layoutsMade(), before + 1);
  EXPECT_EQ(TextLayout::cachedRuns(), 1u);
  TextLayout::measure(L"Cached row text", dejaVu(14));
  EXPECT_EQ(TextLayout::layoutsMade(), before + 2);
}

TEST(TextLayout, CacheKeepsTheRecentlyUsedWithinItsCapacity) {
  TextLayout::clearCache();
  TextLayout::measure(L"kept", dejaVu(13));
  for (std::size_t i = 0; i < TextLayout::kCacheCapacity + 100; ++i) {
    TextLayout::measure(LightweightString<wchar_t>(std::to_wstring(i)), dejaVu(13));
    TextLayout::measure(L"kept", dejaVu(13));
  }
  EXPECT_EQ(TextLayout::cachedRuns(), TextLayout::kCacheCapacity);
  std::size_t const before = TextLayout::layoutsMade();
  TextLayout::measure(L"kept", dejaVu(13));
  EXPECT_EQ(TextLayout::layoutsMade(), before);
  TextLayout::measure(L"0", dejaVu(13));
  EXPECT_EQ(TextLayout::layoutsMade(), before + 1);
}

TEST(TextLayout, DrawsInTheColourWithinTheClip) {
  Zo::Image::Surface surface(120, 30);
  Glib::TextRun run;
  run.text = L"Drawn";
  run.font = dejaVu(20);
  TextLayout::draw(surface, run, Colour(0.0, 1.0, 0.0), XY<double>(5, 2), {Glib::TopDownRect(0, 0, 40, 30)});
  int opaque = 0;
  for (int row = 0; row < 30; ++row) {
    for (int x = 0; x < 120; ++x) {
      std::uint32_t const pixel = surface.pixel(x, row);
      if (x >= 40) {
        EXPECT_EQ(pixel, 0u);
      }
      EXPECT_EQ(redOf(pixel), 0);
      EXPECT_EQ(blueOf(pixel), 0);
      EXPECT_EQ(greenOf(pixel), alphaOf(pixel));
      opaque += pixel == 0xFF00FF00u ? 1 : 0;
    }
  }
  EXPECT_GT(opaque, 20);
}

TEST(TextDescription, BoundsAroundTheBaseline) {
  Zo::Box<double> const bounds = Glib::TextDescription::calcBounds(L"Hello", dejaVu(13));
  Glib::TextMetrics const metrics = TextLayout::measure(L"Hello", dejaVu(13));
  EXPECT_EQ(bounds.x0, 0.0);
  EXPECT_EQ(bounds.x1, metrics.width);
  EXPECT_EQ(bounds.y1, metrics.baseline);
  EXPECT_NEAR(bounds.y0, -(metrics.height - metrics.baseline), 1e-9);
  EXPECT_LT(bounds.y0, 0.0);

  Glib::TextDescription const placed(L"Hello", XY<double>(10, 20), dejaVu(13), Colour());
  Zo::Box<double> const there = placed.calcBounds();
  EXPECT_NEAR(there.x0, 10.0, 1e-9);
  EXPECT_NEAR(there.y1, 20.0 + metrics.baseline, 1e-9);
  EXPECT_EQ(placed.baselineStart(), XY<double>(10, 20));
}

TEST(TextDescription, AlignsInItsBoxOnWholePixels) {
  FontDesc const font = dejaVu(13);
  Zo::Box<double> const box(0, 0, 200, 30);
  Glib::TextDescription text(L"Centre", box, font, Colour(), Glib::eTextAlignment::Centre);
  Zo::Box<double> const centred = text.calcBounds();
  EXPECT_NEAR((centred.x0 + centred.x1) / 2.0, 100.0, 0.5);
  EXPECT_NEAR((centred.y0 + centred.y1) / 2.0, 15.0, 0.5);
  XY<double> const baseline = text.baselineStart();
  EXPECT_EQ(baseline.y, std::round(baseline.y));

  text.alignment = Glib::eTextAlignment::Right;
  text.verticalAlignment = Glib::eTextVerticalAlignment::Top;
  Zo::Box<double> const topRight = text.calcBounds();
  EXPECT_NEAR(topRight.x1, 200.0, 0.5);
  EXPECT_NEAR(topRight.y1, 30.0, 0.5);

  text.alignment = Glib::eTextAlignment::Left;
  text.verticalAlignment = Glib::eTextVerticalAlignment::Bottom;
  Zo::Box<double> const bottomLeft = text.calcBounds();
  EXPECT_EQ(bottomLeft.x0, 0.0);
  EXPECT_NEAR(bottomLeft.y0, 0.0, 0.5);
}

TEST(TextDescription, WrapsToItsBox) {
  Glib::TextDescription text(L"The quick brown fox jumps over the lazy dog", Zo::Box<double>(0, 0, 90, 200), dejaVu(13),
                             Colour());
  text.wordWrap = true;
  text.verticalAlignment = Glib::eTextVerticalAlignment::Top;
  Zo::Box<double> const bounds = text.calcBounds();
  EXPECT_LE(bounds.width(), 90.0);
  double const lineHeight = TextLayout::measure(L"x", dejaVu(13)).height;
  EXPECT_NEAR(bounds.height(), lineHeight * TextLayout::countLines(text.text, text.font, 90.0), 1.0);
  EXPECT_GT(bounds.height(), 2.5 * lineHeight);
}

TEST(TextDescription, WithAnEllipsisTextTooWideForItsBoxIsCutToFitIt) {
  Glib::TextDescription text(L"A title far too long for its tab", Zo::Box<double>(0, 0, 60, 20), dejaVu(13), Colour());
  double const whole = text.calcBounds().width();
  ASSERT_GT(whole, 60.0);
  text.ellipsis = true;
  TextLayout::Placement const cut = TextLayout::place(text);
  EXPECT_LE(cut.metrics.width, 60.0);
  EXPECT_GT(cut.metrics.width, TextLayout::measure(L"\u2026", dejaVu(13)).width)
      << "the start of the text and an ellipsis";
  EXPECT_EQ(cut.metrics.lineCount, 1);
  text.box = Zo::Box<double>(0, 0, 400, 20);
  EXPECT_EQ(TextLayout::place(text).metrics.width, whole) << "text that fits is not cut";
}
