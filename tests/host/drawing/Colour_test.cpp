#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/NormalisedRGB.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<NormalisedRGB>);

TEST(Colour, DefaultIsOpaqueBlack) {
  Colour colour;
  EXPECT_TRUE(colour.use());
  EXPECT_EQ(colour.red(), 0.0);
  EXPECT_EQ(colour.green(), 0.0);
  EXPECT_EQ(colour.blue(), 0.0);
  EXPECT_EQ(colour.alpha(), 1.0);
  EXPECT_EQ(colour.get_vlib_colour(), 0xFF000000u);
}

TEST(Colour, KeepsChannelsAndFlagApartFromAlpha) {
  Colour amber(1.0, 0.7, 0.0);
  EXPECT_EQ(amber.red(), 1.0);
  EXPECT_EQ(amber.green(), 0.7);
  EXPECT_EQ(amber.blue(), 0.0);
  EXPECT_EQ(amber.alpha(), 1.0);
  EXPECT_EQ(amber.flag(), 0);
  Colour flagged(1.0, 0.0, 0.0, 1);
  EXPECT_EQ(flagged.flag(), 1);
  EXPECT_EQ(flagged.alpha(), 1.0);
}

TEST(Colour, EqualityIgnoresTheFlag) {
  EXPECT_EQ(Colour(1.0, 0.0, 0.0, 1), Colour(1.0, 0.0, 0.0, 0));
  EXPECT_NE(Colour(1.0, 0.0, 0.0), Colour(1.0, 0.0, 0.5));
  Colour seeThrough(1.0, 0.0, 0.0);
  seeThrough.setAlpha(0.5);
  EXPECT_NE(seeThrough, Colour(1.0, 0.0, 0.0));
}

TEST(Colour, InvalidIsRefusedUntilGivenChannels) {
  Colour none = Colour::invalid();
  EXPECT_FALSE(none.use());
  EXPECT_EQ(none.get_vlib_colour(), 0u);
  EXPECT_EQ(none, Colour::invalid());
  EXPECT_NE(none, Colour(0.0, 0.0, 0.0));
  none.setrgb(0.0, 1.0, 0.0);
  EXPECT_TRUE(none.use());
  none.setAlpha(1.0);
  EXPECT_EQ(none, Colour(0.0, 1.0, 0.0));
}

TEST(Colour, SetrgbKeepsAlpha) {
  Colour colour(0.1, 0.2, 0.3);
  colour.setAlpha(0.25);
  colour.setrgb(0.4, 0.5, 0.6);
  EXPECT_EQ(colour.red(), 0.4);
  EXPECT_EQ(colour.green(), 0.5);
  EXPECT_EQ(colour.blue(), 0.6);
  EXPECT_EQ(colour.alpha(), 0.25);
}

TEST(Colour, PacksAsAlphaRedGreenBlueBytes) {
  EXPECT_EQ(Colour(1.0, 0.0, 0.0).get_vlib_colour(), 0xFFFF0000u);
  EXPECT_EQ(Colour(0.0, 1.0, 0.0).get_vlib_colour(), 0xFF00FF00u);
  EXPECT_EQ(Colour(0.0, 0.0, 1.0).get_vlib_colour(), 0xFF0000FFu);
  Colour half(0.5, 0.2, 1.0);
  half.setAlpha(0.0);
  // 0.5 * 255 = 127.5 rounds to 128 (0x80); 0.2 * 255 = 51 (0x33).
  EXPECT_EQ(half.get_vlib_colour(), 0x008033FFu);
}

TEST(Colour, PackingClampsOutOfRangeChannels) {
  Colour wild(1.5, -0.5, 2.0);
  wild.setAlpha(-1.0);
  EXPECT_EQ(wild.get_vlib_colour(), 0x00FF00FFu);
  EXPECT_EQ(wild.red(), 1.5); // stored as given; only packing clamps
}

TEST(Colour, MixWeighsTheFirstColourByTheShare) {
  Colour white(1.0, 1.0, 1.0);
  Colour black(0.0, 0.0, 0.0, 3);
  EXPECT_EQ(Colour::mix(white, black, 1.0), white);
  EXPECT_EQ(Colour::mix(white, black, 0.0), black);
  Colour grey = Colour::mix(white, black, 0.8);
  EXPECT_DOUBLE_EQ(grey.red(), 0.8);
  EXPECT_DOUBLE_EQ(grey.green(), 0.8);
  EXPECT_DOUBLE_EQ(grey.blue(), 0.8);
  EXPECT_EQ(grey.flag(), 0);
  EXPECT_EQ(Colour::mix(black, white, 0.8).flag(), 3);
  EXPECT_EQ(white.mix(black, 0.3), Colour::mix(white, black, 0.3));
}

TEST(Colour, MixBlendsAlphaToo) {
  Colour opaque(1.0, 0.0, 0.0);
  Colour clear(0.0, 0.0, 1.0);
  clear.setAlpha(0.0);
  Colour blend = opaque.mix(clear, 0.25);
  EXPECT_DOUBLE_EQ(blend.alpha(), 0.25);
  EXPECT_DOUBLE_EQ(blend.red(), 0.25);
  EXPECT_DOUBLE_EQ(blend.blue(), 0.75);
}

TEST(Colour, MixWithAnInvalidColourGivesTheOther) {
  Colour red(1.0, 0.0, 0.0);
  EXPECT_EQ(Colour::mix(red, Colour::invalid(), 0.5), red);
  EXPECT_EQ(Colour::mix(Colour::invalid(), red, 0.5), red);
  EXPECT_FALSE(Colour::mix(Colour::invalid(), Colour::invalid(), 0.5).use());
}

TEST(Colour, ConvertsToAndFromNormalisedRGB) {
  NormalisedRGB rgb(0.25f, 0.5f, 0.75f, 0.125f);
  Colour colour(rgb);
  EXPECT_TRUE(colour.use());
  EXPECT_EQ(colour.red(), 0.25);
  EXPECT_EQ(colour.alpha(), 0.125);
  EXPECT_EQ(fromColour(colour), rgb);
  Colour narrowing(0.1, 0.2, 0.3);
  EXPECT_EQ(fromColour(narrowing), NormalisedRGB(0.1f, 0.2f, 0.3f, 1.0f));
}

TEST(NormalisedRGB, DefaultIsOpaqueBlack) {
  NormalisedRGB rgb;
  EXPECT_EQ(rgb, NormalisedRGB(0.0f, 0.0f, 0.0f, 1.0f));
  EXPECT_EQ(NormalisedRGB(0.1f, 0.2f, 0.3f).a, 1.0f);
}

TEST(NormalisedRGB, EqualityComparesAllFour) {
  NormalisedRGB base(0.1f, 0.2f, 0.3f, 0.4f);
  EXPECT_EQ(base, NormalisedRGB(0.1f, 0.2f, 0.3f, 0.4f));
  EXPECT_NE(base, NormalisedRGB(0.9f, 0.2f, 0.3f, 0.4f));
  EXPECT_NE(base, NormalisedRGB(0.1f, 0.9f, 0.3f, 0.4f));
  EXPECT_NE(base, NormalisedRGB(0.1f, 0.2f, 0.9f, 0.4f));
  EXPECT_NE(base, NormalisedRGB(0.1f, 0.2f, 0.3f, 0.9f));
}

TEST(NormalisedRGB, TextIsFourShortNumbers) {
  EXPECT_EQ(NormalisedRGB(0.5f, 0.25f, 1.0f, 1.0f).toText(), L"0.5 0.25 1 1");
  EXPECT_EQ(NormalisedRGB(0.1f, 0.0f, 0.0f, 0.0f).toText(), L"0.1 0 0 0");
}

TEST(NormalisedRGB, TextRoundTripsExactly) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> unit(0.0f, 1.0f);
  for (int i = 0; i < 5000; ++i) {
    NormalisedRGB rgb(unit(random), unit(random), unit(random), unit(random));
    EXPECT_EQ(NormalisedRGB::fromText(rgb.toText()), rgb) << toNarrow(rgb.toText());
  }
  NormalisedRGB extremes(std::numeric_limits<float>::denorm_min(), std::numeric_limits<float>::max(), -0.5f,
                         std::nextafter(1.0f, 0.0f));
  EXPECT_EQ(NormalisedRGB::fromText(extremes.toText()), extremes);
}

TEST(NormalisedRGB, ReadsExtraSpaces) {
  EXPECT_EQ(NormalisedRGB::fromText(L"  0.5   0.25 1 0.75 "), NormalisedRGB(0.5f, 0.25f, 1.0f, 0.75f));
}

TEST(NormalisedRGB, MalformedTextGivesOpaqueBlack) {
  NormalisedRGB const fallback;
  for (wchar_t const* text : {L"", L"0.5 0.5 0.5", L"0.5 0.5 0.5 0.5 0.5", L"0.5 0.5 x 1", L"0.5,0.5,0.5,1",
                              L"0.5 0.5 0.5 1px", L"+0.5 0.5 0.5 1", L"0.5 0.5 0.5 \u00bd"})
    EXPECT_EQ(NormalisedRGB::fromText(text), fallback) << toNarrow(text);
}
