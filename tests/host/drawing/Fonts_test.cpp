#include <zowidgets/host/drawing/Fonts.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

using Glib::FontDesc;

TEST(FontDesc, DefaultIsTheDefaultFont) {
  FontDesc font;
  EXPECT_TRUE(font.family().empty());
  EXPECT_EQ(font.size(), 0u);
  EXPECT_EQ(font.style(), 0u);
  EXPECT_FALSE(font.bold());
  EXPECT_FALSE(font.italic());
  EXPECT_EQ(font, FontDesc("", 0, 0));
}

TEST(FontDesc, StyleBits) {
  FontDesc font("DejaVu Sans", 12, FontDesc::kBold | FontDesc::kItalic);
  EXPECT_EQ(font.family(), "DejaVu Sans");
  EXPECT_EQ(font.size(), 12u);
  EXPECT_TRUE(font.bold());
  EXPECT_TRUE(font.italic());
  font.setBold(false);
  EXPECT_FALSE(font.bold());
  EXPECT_TRUE(font.italic());
  EXPECT_EQ(font.style(), FontDesc::kItalic);
  font.setItalic(false);
  font.setBold(true);
  EXPECT_EQ(font.style(), FontDesc::kBold);
}

TEST(FontDesc, OtherStyleBitsAreKept) {
  FontDesc font("Mono", 9, 0x81);
  EXPECT_TRUE(font.bold());
  font.setItalic(true);
  EXPECT_EQ(font.style(), 0x83u);
}

TEST(FontDesc, ValueSemantics) {
  FontDesc a("DejaVu Sans", 10, 0);
  FontDesc b = a;
  b.setSize(11);
  EXPECT_EQ(a.size(), 10u);
  EXPECT_NE(a, b);
  b.setSize(10);
  EXPECT_EQ(a, b);
  b.setFamily("DejaVu Serif");
  EXPECT_NE(a, b);
  EXPECT_EQ(a.family(), "DejaVu Sans");
}

TEST(AvailableFonts, ListTheInstalledTestFont) {
  auto families = Glib::getAvailableFonts();
  EXPECT_NE(std::find(families.begin(), families.end(), "DejaVu Sans"), families.end())
      << "fonts-dejavu-core (scripts/packages/fonts.txt) provides it";
  EXPECT_NE(std::find(families.begin(), families.end(), "DejaVu Sans Mono"), families.end());
}

TEST(AvailableFonts, SortedUniqueAndNamed) {
  auto families = Glib::getAvailableFonts();
  ASSERT_FALSE(families.empty());
  EXPECT_TRUE(std::is_sorted(families.begin(), families.end()));
  EXPECT_EQ(std::adjacent_find(families.begin(), families.end()), families.end());
  for (auto const& family : families)
    EXPECT_FALSE(family.empty());
}

TEST(AvailableFonts, StylesAreNotFamilies) {
  auto families = Glib::getAvailableFonts();
  for (auto const* style : {"DejaVu Sans Bold", "DejaVu Sans Oblique", "DejaVu Sans Book"})
    EXPECT_EQ(std::find(families.begin(), families.end(), style), families.end()) << style;
}

TEST(AvailableFonts, TheSharedListIsTheSameObjectUntilReadAgainAndHoldsTheList) {
  auto const first = Glib::getAvailableFontsShared();
  auto const second = Glib::getAvailableFontsShared();
  ASSERT_TRUE(first);
  // Read again at most once a second: two calls in a row share one list,
  // unless a second passed between them and the configuration changed.
  EXPECT_TRUE(first == second || *first != *second);
  EXPECT_EQ(*second, Glib::getAvailableFonts());
}

TEST(AvailableFonts, TextFamiliesDrawLatinAndDingbatsDoNot) {
  auto families = Glib::getAvailableFonts();
  for (char const* text : {"DejaVu Sans", "Liberation Serif", "Noto Mono"})
    EXPECT_TRUE(Glib::drawsLatinText(text)) << text;
  EXPECT_TRUE(Glib::drawsLatinText("No Such Family Here"));
  ASSERT_NE(std::find(families.begin(), families.end(), "D050000L"), families.end())
      << "fonts-urw-base35 (scripts/packages/fonts.txt) provides it";
  EXPECT_FALSE(Glib::drawsLatinText("D050000L"));
}

TEST(MapFontSize, RoundsToWholePoints) {
  EXPECT_EQ(Glib::mapFontSize(12.0), 12u);
  EXPECT_EQ(Glib::mapFontSize(10.4), 10u);
  EXPECT_EQ(Glib::mapFontSize(10.5), 11u);
  EXPECT_EQ(Glib::mapFontSize(0.2), 1u);
}

TEST(MapFontSize, AppliesTheScale) {
  EXPECT_EQ(Glib::mapFontSize(12.0, 1.5), 18u);
  EXPECT_EQ(Glib::mapFontSize(9.0, 2.0), 18u);
  EXPECT_EQ(Glib::mapFontSize(11.0, 0.5), 6u);
}

TEST(MapFontSize, NoSizeMeansTheDefault) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Glib::mapFontSize(0.0), 0u);
  EXPECT_EQ(Glib::mapFontSize(-3.0), 0u);
  EXPECT_EQ(Glib::mapFontSize(nan), 0u);
  EXPECT_EQ(Glib::mapFontSize(12.0, 0.0), 0u);
  EXPECT_EQ(Glib::mapFontSize(12.0, -1.0), 0u);
  EXPECT_EQ(Glib::mapFontSize(12.0, nan), 0u);
}

TEST(MapFontSize, HugeSizesStopAtTheLimit) {
  EXPECT_EQ(Glib::mapFontSize(5000.0), Glib::kMaxFontSize);
  EXPECT_EQ(Glib::mapFontSize(std::numeric_limits<double>::infinity()), Glib::kMaxFontSize);
  EXPECT_EQ(Glib::mapFontSize(500.0, 4.0), Glib::kMaxFontSize);
  EXPECT_EQ(Glib::mapFontSize(12.0, std::numeric_limits<double>::infinity()), Glib::kMaxFontSize);
}
