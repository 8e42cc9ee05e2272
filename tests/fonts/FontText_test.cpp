#include <zowidgets/fonts/FontText.h>
#include <zowidgets/host/drawing/ColourUtils.h>

#include <gtest/gtest.h>

#include <random>

namespace {

using WString = LightweightString<wchar_t>;

TEST(FontText, FiveFieldsJoinedByCommasColoursFirst) {
  FontDefinition const font(L"DejaVu Sans", 12.0f, 1, NormalisedRGB(1, 1, 1), NormalisedRGB(0, 0, 0));
  EXPECT_EQ(asString(font), WString(L"0,16777215,1,12,DejaVu Sans"));
  FontDefinition const red(L"Noto Serif", 9.0f, 2, NormalisedRGB(0, 0, 1), NormalisedRGB(1, 0, 0));
  EXPECT_EQ(asString(red), WString(L"16711680,255,2,9,Noto Serif"));
}

TEST(FontText, TheTextFormLosesTheFractionOfTheSize) {
  FontDefinition const font(L"Sans", 10.75f, 0, NormalisedRGB(1, 1, 1), NormalisedRGB(0, 0, 0));
  EXPECT_EQ(asString(font), WString(L"0,16777215,0,10,Sans"));
  EXPECT_EQ(fontFromString(asString(font)).size, 10.0f);
}

TEST(FontText, FourFieldsGiveTheDefaultFontWithNoError) {
  EXPECT_EQ(fontFromString(WString(L"0,16777215,1,12")), FontDefinition());
  EXPECT_EQ(fontFromString(WString()), FontDefinition());
}

TEST(FontText, AFamilyWithACommaMakesSixFieldsAndGivesTheDefault) {
  FontDefinition const font(L"Sans, Condensed", 12.0f, 0, NormalisedRGB(1, 1, 1), NormalisedRGB(0, 0, 0));
  EXPECT_EQ(fontFromString(asString(font)), FontDefinition());
}

TEST(FontText, FieldsThatAreNotNumbersReadAsZeroAndEmptyFieldsCount) {
  FontDefinition const font = fontFromString(WString(L"red,,bold,big,Sans"));
  EXPECT_EQ(font.fgColour, NormalisedRGB(0, 0, 0, 1));
  EXPECT_EQ(font.bgColour, NormalisedRGB(0, 0, 0, 1));
  EXPECT_EQ(font.style, 0);
  EXPECT_EQ(font.size, 0.0f);
  EXPECT_EQ(font.name, WString(L"Sans"));
  EXPECT_EQ(fontFromString(WString(L",,,,")).name, WString()) << "five empty fields are five fields";
}

TEST(FontText, TheStyleKeepsItsLowEightBits) { EXPECT_EQ(fontFromString(WString(L"0,0,259,12,Sans")).style, 3); }

TEST(FontText, ManyRandomFontsComeBackWithWholeSizesAndEightBitColours) {
  std::mt19937 random(20261125);
  std::uniform_real_distribution<float> channel(0.0f, 1.0f);
  std::uniform_int_distribution<int> letter(L'a', L'z');
  for (int round = 0; round < 2000; ++round) {
    std::wstring name;
    for (int i = random() % 20; i > 0; --i)
      name += static_cast<wchar_t>(random() % 7 == 0 ? L' ' : letter(random));
    FontDefinition const font(WString(name), static_cast<float>(random() % 2000) / 10.0f,
                              static_cast<unsigned char>(random() % 256),
                              NormalisedRGB(channel(random), channel(random), channel(random)),
                              NormalisedRGB(channel(random), channel(random), channel(random)));
    FontDefinition const back = fontFromString(asString(font));
    ASSERT_EQ(back.name, font.name);
    ASSERT_EQ(back.size, static_cast<float>(static_cast<int>(font.size)));
    ASSERT_EQ(back.style, font.style);
    ASSERT_EQ(ColourUtils::asLong(back.fgColour), ColourUtils::asLong(font.fgColour));
    ASSERT_EQ(ColourUtils::asLong(back.bgColour), ColourUtils::asLong(font.bgColour));
    ASSERT_EQ(asString(back), asString(font)) << "the text form is a fixed point after one trip";
  }
}

} // namespace
