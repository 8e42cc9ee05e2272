#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/drawing/ColourUtils.h>
#include <zowidgets/host/drawing/FontDefinition.h>
#include <zowidgets/host/drawing/Fonts.h>

#include <gtest/gtest.h>

namespace {

using WString = LightweightString<wchar_t>;

TEST(ColourUtils, AColourIsOneIntegerOfThreeBytes) {
  EXPECT_EQ(ColourUtils::asLong(NormalisedRGB(1.0f, 0.0f, 0.0f)), 0xFF0000);
  EXPECT_EQ(ColourUtils::asLong(NormalisedRGB(0.0f, 0.5f, 1.0f, 0.2f)), 0x0080FF) << "alpha is not kept";
  EXPECT_EQ(ColourUtils::asLong(NormalisedRGB(2.0f, -1.0f, 0.0f)), 0xFF0000) << "channels are held to 0..1";
  EXPECT_EQ(ColourUtils::fromLong(0x0080FF), NormalisedRGB(0.0f, 128 / 255.0f, 1.0f, 1.0f));
  EXPECT_EQ(ColourUtils::fromLong(-1), NormalisedRGB(1.0f, 1.0f, 1.0f, 1.0f)) << "only the low 24 bits count";
  for (long value : {0L, 0x123456L, 0xFFFFFFL})
    EXPECT_EQ(ColourUtils::asLong(ColourUtils::fromLong(value)), value);
}

TEST(FontDefinition, TheDefaultIsTheInterfaceFamilyAtTwelvePointsBlackOnWhite) {
  FontDefinition const font;
  EXPECT_EQ(font.name, WString::fromUTF8(getDefaultFontName(0).view()));
  EXPECT_EQ(font.size, 12.0f);
  EXPECT_EQ(font.style, 0);
  EXPECT_EQ(font.fgColour, NormalisedRGB(0, 0, 0, 1));
  EXPECT_EQ(font.bgColour, NormalisedRGB(1, 1, 1, 1));
}

TEST(FontDefinition, JSONReadsBackWhatItWrote) {
  FontDefinition const font(L"Caf\u00e9 \"Sans\", Bold", 10.75f, 3, NormalisedRGB(0.1f, 0.2f, 0.3f, 0.4f),
                            NormalisedRGB(0.9f, 0.8f, 0.7f));
  JSON::Builder builder;
  font.write(builder);
  FontDefinition copy;
  ASSERT_TRUE(copy.read(JSON::parse(WString::fromUTF8(builder.getText().view()))));
  EXPECT_EQ(copy, font);
  EXPECT_FALSE(copy.read(nullptr));
}

TEST(FontDefinition, MissingOrBadKeysKeepWhatWasThere) {
  FontDefinition font(L"Kept", 9.0f, 1, NormalisedRGB(1, 0, 0), NormalisedRGB(0, 1, 0));
  FontDefinition const before = font;
  ASSERT_TRUE(font.read(JSON::parse(WString(L"{\"style\": 300, \"size\": \"big\"}"))));
  EXPECT_EQ(font, before);
  ASSERT_TRUE(font.read(JSON::parse(WString(L"{\"style\": 2}"))));
  EXPECT_EQ(font.style, 2);
}

} // namespace
