#include <zowidgets/host/drawing/ColourData.h>

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double kTolerance = 1e-9;

// Absolute, so that the tests find it from any working folder.
std::filesystem::path dataDirectory() { return std::filesystem::path(ZO_TESTS_DIR) / "host" / "drawing" / "data"; }

// Rows of six numbers from a table written by make_hsv_reference.py.
std::vector<std::array<double, 6>> readTable(char const* name) {
  std::vector<std::array<double, 6>> rows;
  std::ifstream in(dataDirectory() / name);
  std::string line;
  std::getline(in, line); // header
  while (std::getline(in, line)) {
    std::array<double, 6> row{};
    char const* at = line.data();
    char const* const end = line.data() + line.size();
    for (double& number : row) {
      auto parsed = std::from_chars(at, end, number);
      EXPECT_EQ(parsed.ec, std::errc()) << line;
      at = parsed.ptr + (parsed.ptr < end ? 1 : 0);
    }
    rows.push_back(row);
  }
  return rows;
}

// Distance between two hues on the circle.
double hueDistance(double a, double b) {
  double const apart = std::fmod(std::fabs(a - b), 360.0);
  return std::fmin(apart, 360.0 - apart);
}

} // namespace

TEST(ColourData, DefaultIsOpaqueBlackInRGB) {
  ColourData colour;
  EXPECT_EQ(colour.getColourSpace(), ColourSpace::RGB);
  EXPECT_EQ(colour.getRed(), 0.0);
  EXPECT_EQ(colour.getGreen(), 0.0);
  EXPECT_EQ(colour.getBlue(), 0.0);
  EXPECT_EQ(colour.getAlpha(), 1.0);
  EXPECT_EQ(colour, ColourData(0.0, 0.0, 0.0, ColourSpace::RGB, 1.0));
}

TEST(ColourData, ColourSpaceNumbersAreFixed) {
  EXPECT_EQ(static_cast<int>(ColourSpace::RGB), 0);
  EXPECT_EQ(static_cast<int>(ColourSpace::HSV), 2);
  EXPECT_EQ(ColourData::kAlpha, 3);
}

TEST(ColourData, UnknownSpaceIsTakenAsRGB) {
  ColourData colour(0.2, 0.4, 0.6, static_cast<ColourSpace>(1), 0.5);
  EXPECT_EQ(colour.getColourSpace(), ColourSpace::RGB);
  EXPECT_EQ(colour, ColourData(0.2, 0.4, 0.6, ColourSpace::RGB, 0.5));
  colour.setColourSpace(static_cast<ColourSpace>(1));
  EXPECT_EQ(colour, ColourData(0.2, 0.4, 0.6, ColourSpace::RGB, 0.5));
}

TEST(ColourData, GettersAnswerInTheirOwnModel) {
  ColourData red(1.0, 0.0, 0.0);
  EXPECT_EQ(red.getHue(), 0.0);
  EXPECT_EQ(red.getSaturation(), 1.0);
  EXPECT_EQ(red.getValue(), 1.0);
  ColourData cyan(180.0, 1.0, 0.5, ColourSpace::HSV);
  EXPECT_EQ(cyan.getRed(), 0.0);
  EXPECT_EQ(cyan.getGreen(), 0.5);
  EXPECT_EQ(cyan.getBlue(), 0.5);
  EXPECT_EQ(cyan.getHue(), 180.0);
  EXPECT_EQ(cyan.getSaturation(), 1.0);
  EXPECT_EQ(cyan.getValue(), 0.5);
  EXPECT_EQ(cyan.getColourSpace(), ColourSpace::HSV);
}

TEST(ColourData, GreysHaveHueAndSaturationZero) {
  for (double level : {0.0, 0.25, 0.5, 1.0}) {
    ColourData grey(level, level, level);
    EXPECT_EQ(grey.getHue(), 0.0);
    EXPECT_EQ(grey.getSaturation(), 0.0);
    EXPECT_EQ(grey.getValue(), level);
  }
}

TEST(ColourData, ComponentsFollowTheCurrentSpaceAndThreeIsAlpha) {
  ColourData colour(0.1, 0.2, 0.3, ColourSpace::RGB, 0.4);
  EXPECT_EQ(colour.getComponent(0), 0.1);
  EXPECT_EQ(colour.getComponent(ColourData::kComponent1), 0.2);
  EXPECT_EQ(colour.getComponent(2), 0.3);
  EXPECT_EQ(colour.getComponent(ColourData::kAlpha), 0.4);
  colour.setComponent(1, 0.9);
  colour.setComponent(3, 0.8);
  EXPECT_EQ(colour, ColourData(0.1, 0.9, 0.3, ColourSpace::RGB, 0.8));
  ColourData hsv(200.0, 0.5, 0.25, ColourSpace::HSV);
  EXPECT_EQ(hsv.getComponent(0), 200.0);
  hsv.setComponent(0, 100.0);
  EXPECT_EQ(hsv.getHue(), 100.0);
}

TEST(ColourData, ComponentIndexOutOfRangeReadsZeroAndIsIgnored) {
  ColourData colour(0.1, 0.2, 0.3, ColourSpace::RGB, 0.4);
  EXPECT_EQ(colour.getComponent(4), 0.0);
  EXPECT_EQ(colour.getComponent(-1), 0.0);
  colour.setComponent(4, 1.0);
  colour.setComponent(-1, 1.0);
  EXPECT_EQ(colour, ColourData(0.1, 0.2, 0.3, ColourSpace::RGB, 0.4));
}

TEST(ColourData, AlphaIsUntouchedByTheSpace) {
  ColourData colour(0.3, 0.6, 0.9, ColourSpace::RGB, 0.7);
  colour.setColourSpace(ColourSpace::HSV);
  EXPECT_EQ(colour.getAlpha(), 0.7);
  colour.setAlpha(0.2);
  colour.setColourSpace(ColourSpace::RGB);
  EXPECT_EQ(colour.getAlpha(), 0.2);
  EXPECT_EQ(colour.getComponent(3), 0.2);
}

TEST(ColourData, SetColourSpaceConvertsTheStoredComponents) {
  ColourData colour(0.0, 0.5, 1.0, ColourSpace::RGB, 0.5);
  colour.setColourSpace(ColourSpace::HSV);
  EXPECT_EQ(colour.getColourSpace(), ColourSpace::HSV);
  EXPECT_NEAR(colour.getComponent(0), 210.0, kTolerance);
  EXPECT_NEAR(colour.getComponent(1), 1.0, kTolerance);
  EXPECT_NEAR(colour.getComponent(2), 1.0, kTolerance);
  colour.setColourSpace(ColourSpace::HSV);
  EXPECT_NEAR(colour.getComponent(0), 210.0, kTolerance);
  colour.setColourSpace(ColourSpace::RGB);
  EXPECT_NEAR(colour.getComponent(0), 0.0, kTolerance);
  EXPECT_NEAR(colour.getComponent(1), 0.5, kTolerance);
  EXPECT_NEAR(colour.getComponent(2), 1.0, kTolerance);
}

TEST(ColourData, HueIsStoredAsGivenAndWrappedOnlyToConvert) {
  ColourData colour(500.0, 1.0, 1.0, ColourSpace::HSV);
  EXPECT_EQ(colour.getHue(), 500.0);
  ColourData same(140.0, 1.0, 1.0, ColourSpace::HSV);
  EXPECT_NEAR(colour.getRed(), same.getRed(), kTolerance);
  EXPECT_NEAR(colour.getGreen(), same.getGreen(), kTolerance);
  EXPECT_NEAR(colour.getBlue(), same.getBlue(), kTolerance);
  ColourData negative(-30.0, 1.0, 1.0, ColourSpace::HSV);
  ColourData positive(330.0, 1.0, 1.0, ColourSpace::HSV);
  EXPECT_NEAR(negative.getRed(), positive.getRed(), kTolerance);
  EXPECT_NEAR(negative.getGreen(), positive.getGreen(), kTolerance);
  EXPECT_NEAR(negative.getBlue(), positive.getBlue(), kTolerance);
  colour.setColourSpace(ColourSpace::RGB);
  EXPECT_NEAR(colour.getHue(), 140.0, kTolerance);
}

TEST(ColourData, NonFiniteHueReadsAsZero) {
  ColourData colour(std::nan(""), 1.0, 1.0, ColourSpace::HSV);
  EXPECT_EQ(colour.getRed(), 1.0);
  EXPECT_EQ(colour.getGreen(), 0.0);
  EXPECT_EQ(colour.getBlue(), 0.0);
}

TEST(ColourData, EqualityIsOfStoredValuesSpaceIncluded) {
  ColourData rgb(1.0, 0.0, 0.0, ColourSpace::RGB);
  ColourData hsv(0.0, 1.0, 1.0, ColourSpace::HSV);
  EXPECT_NE(rgb, hsv);
  hsv.setColourSpace(ColourSpace::RGB);
  EXPECT_EQ(rgb, hsv);
  EXPECT_NE(rgb, ColourData(1.0, 0.0, 0.0, ColourSpace::RGB, 0.5));
  ColourData copy = rgb;
  EXPECT_EQ(copy, rgb);
}

TEST(ColourData, RGBToHSVMatchesTheReferenceTable) {
  auto rows = readTable("rgb_to_hsv.csv");
  ASSERT_GT(rows.size(), 2000u) << "reference table missing from " << dataDirectory();
  for (auto const& [r, g, b, h, s, v] : rows) {
    double hue, saturation, value;
    RGBToHSV(r, g, b, hue, saturation, value);
    EXPECT_LT(hueDistance(hue, h), kTolerance) << r << ' ' << g << ' ' << b;
    EXPECT_GE(hue, 0.0);
    EXPECT_LT(hue, 360.0);
    EXPECT_NEAR(saturation, s, kTolerance) << r << ' ' << g << ' ' << b;
    EXPECT_NEAR(value, v, kTolerance) << r << ' ' << g << ' ' << b;
    ColourData colour(r, g, b);
    EXPECT_LT(hueDistance(colour.getHue(), h), kTolerance);
    EXPECT_NEAR(colour.getSaturation(), s, kTolerance);
    EXPECT_NEAR(colour.getValue(), v, kTolerance);
  }
}

TEST(ColourData, HSVToRGBMatchesTheReferenceTable) {
  auto rows = readTable("hsv_to_rgb.csv");
  ASSERT_GT(rows.size(), 2000u) << "reference table missing from " << dataDirectory();
  for (auto const& [h, s, v, r, g, b] : rows) {
    double red, green, blue;
    HSVToRGB(h, s, v, red, green, blue);
    EXPECT_NEAR(red, r, kTolerance) << h << ' ' << s << ' ' << v;
    EXPECT_NEAR(green, g, kTolerance) << h << ' ' << s << ' ' << v;
    EXPECT_NEAR(blue, b, kTolerance) << h << ' ' << s << ' ' << v;
    ColourData colour(h, s, v, ColourSpace::HSV);
    EXPECT_NEAR(colour.getRed(), r, kTolerance);
    EXPECT_NEAR(colour.getGreen(), g, kTolerance);
    EXPECT_NEAR(colour.getBlue(), b, kTolerance);
  }
}

TEST(ColourData, RGBSurvivesARoundTripThroughHSV) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (int i = 0; i < 20000; ++i) {
    ColourData original(unit(random), unit(random), unit(random), ColourSpace::RGB, unit(random));
    ColourData converted = original;
    converted.setColourSpace(ColourSpace::HSV);
    converted.setColourSpace(ColourSpace::RGB);
    EXPECT_NEAR(converted.getRed(), original.getRed(), kTolerance);
    EXPECT_NEAR(converted.getGreen(), original.getGreen(), kTolerance);
    EXPECT_NEAR(converted.getBlue(), original.getBlue(), kTolerance);
    EXPECT_EQ(converted.getAlpha(), original.getAlpha());
  }
}

TEST(ColourData, ChromaticHSVSurvivesARoundTripThroughRGB) {
  std::mt19937_64 random(13);
  std::uniform_real_distribution<double> hues(0.0, 360.0);
  std::uniform_real_distribution<double> levels(0.01, 1.0);
  for (int i = 0; i < 20000; ++i) {
    ColourData original(hues(random), levels(random), levels(random), ColourSpace::HSV);
    ColourData converted = original;
    converted.setColourSpace(ColourSpace::RGB);
    converted.setColourSpace(ColourSpace::HSV);
    EXPECT_LT(hueDistance(converted.getHue(), original.getHue()), 1e-6);
    EXPECT_NEAR(converted.getSaturation(), original.getSaturation(), kTolerance);
    EXPECT_NEAR(converted.getValue(), original.getValue(), kTolerance);
  }
}

TEST(ColourData, ConvertsToAndFromNormalisedRGB) {
  NormalisedRGB rgb(0.25f, 0.5f, 0.75f, 0.125f);
  ColourData colour(rgb);
  EXPECT_EQ(colour, ColourData(0.25, 0.5, 0.75, ColourSpace::RGB, 0.125));
  EXPECT_EQ(colour.toNormalisedRGB(), rgb);
  ColourData green(120.0, 1.0, 0.5, ColourSpace::HSV, 0.5);
  EXPECT_EQ(green.toNormalisedRGB(), NormalisedRGB(0.0f, 0.5f, 0.0f, 0.5f));
}

TEST(ColourData, ConvertsToAndFromColour) {
  Colour colour(0.2, 0.4, 0.6);
  colour.setAlpha(0.8);
  ColourData data(colour);
  EXPECT_EQ(data, ColourData(0.2, 0.4, 0.6, ColourSpace::RGB, 0.8));
  EXPECT_EQ(data.toColour(), colour);
  ColourData blue(240.0, 1.0, 1.0, ColourSpace::HSV, 0.5);
  Colour expected(0.0, 0.0, 1.0);
  expected.setAlpha(0.5);
  EXPECT_EQ(blue.toColour(), expected);
}

TEST(ColourData, TextNamesTheSpace) {
  EXPECT_EQ(ColourData(0.5, 0.25, 1.0, ColourSpace::RGB, 1.0).toText(), L"RGB 0.5 0.25 1 1");
  EXPECT_EQ(ColourData(210.0, 0.5, 0.1, ColourSpace::HSV, 0.0).toText(), L"HSV 210 0.5 0.1 0");
}

TEST(ColourData, TextRoundTripsExactly) {
  std::mt19937_64 random(17);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (int i = 0; i < 5000; ++i) {
    ColourSpace space = i % 2 ? ColourSpace::HSV : ColourSpace::RGB;
    double const first = space == ColourSpace::HSV ? unit(random) * 360.0 : unit(random);
    ColourData colour(first, unit(random), unit(random), space, unit(random));
    EXPECT_EQ(ColourData::fromText(colour.toText()), colour) << toNarrow(colour.toText());
  }
  ColourData odd(500.0, -0.25, 1e-300, ColourSpace::HSV, 1.5);
  EXPECT_EQ(ColourData::fromText(odd.toText()), odd);
}

TEST(ColourData, MalformedTextGivesOpaqueBlackRGB) {
  for (wchar_t const* text :
       {L"", L"0.5 0.5 0.5 1", L"RGB 0.5 0.5 0.5", L"rgb 0.5 0.5 0.5 1", L"HSL 0.5 0.5 0.5 1", L"RGB 0.5 0.5 0.5 1 1",
        L"RGB 0.5 0.5 zero 1", L"HSV 10deg 0.5 0.5 1", L"RGB,0.5,0.5,0.5,1"})
    EXPECT_EQ(ColourData::fromText(text), ColourData()) << toNarrow(text);
  EXPECT_EQ(ColourData::fromText(L" HSV  10 0.5 0.5  1 "), ColourData(10.0, 0.5, 0.5, ColourSpace::HSV, 1.0));
}
