#include <zowidgets/colour/ColourTextAdaptors.h>

#include <gtest/gtest.h>

namespace {

using WString = LightweightString<wchar_t>;

std::wstring shown(ValAdaptorWStringT& adaptor) { return adaptor.getDataValue().str(); }

// --- Component boxes --------------------------------------------------------

TEST(ColourComponentAdaptor, RGBComponentsShowAsRoundedBytes) {
  ValServer<ColourData> server(ColourData(0.5, 1.0, 0.0));
  ColourComponentAdaptor red(0, ColourSpace::RGB, &server);
  ColourComponentAdaptor green(1, ColourSpace::RGB, &server);
  ColourComponentAdaptor blue(2, ColourSpace::RGB, &server);
  EXPECT_EQ(shown(red), L"128");
  EXPECT_EQ(shown(green), L"255");
  EXPECT_EQ(shown(blue), L"0");
}

TEST(ColourComponentAdaptor, HalfComponentShows128WhereTheHexBoxShows7F) {
  ValServer<ColourData> server(ColourData(0.5, 0.5, 0.5));
  ColourComponentAdaptor red(0, ColourSpace::RGB, &server);
  HexColourAdaptor hex(&server);
  EXPECT_EQ(shown(red), L"128");
  EXPECT_EQ(shown(hex), L"7F7F7F");
}

TEST(ColourComponentAdaptor, AlphaOneShows255AndSaturationOneShows100) {
  ValServer<ColourData> server(ColourData(200.0, 1.0, 0.25, ColourSpace::HSV, 1.0));
  ColourComponentAdaptor rgbAlpha(3, ColourSpace::RGB, &server);
  ColourComponentAdaptor saturation(1, ColourSpace::HSV, &server);
  ColourComponentAdaptor value(2, ColourSpace::HSV, &server);
  ColourComponentAdaptor hsvAlpha(3, ColourSpace::HSV, &server);
  AlphaTextAdaptor alphaText(&server);
  EXPECT_EQ(shown(rgbAlpha), L"255");
  EXPECT_EQ(shown(alphaText), L"255");
  EXPECT_EQ(shown(saturation), L"100.00");
  EXPECT_EQ(shown(value), L"25.00");
  EXPECT_EQ(shown(hsvAlpha), L"100.00");
}

TEST(ColourComponentAdaptor, HueShowsInDegreesWithTwoDecimals) {
  ValServer<ColourData> server(ColourData(359.5, 0.5, 0.5, ColourSpace::HSV));
  ColourComponentAdaptor hue(0, ColourSpace::HSV, &server);
  EXPECT_EQ(shown(hue), L"359.50");
  // Read from an RGB colour, the hue is converted first.
  server = ColourData(0.0, 1.0, 0.0);
  EXPECT_EQ(shown(hue), L"120.00");
}

TEST(ColourComponentAdaptor, ComponentAboveThreeIsTakenAsAlpha) {
  ValServer<ColourData> server(ColourData(0.0, 0.0, 0.0, ColourSpace::RGB, 0.2));
  ColourComponentAdaptor beyond(9, ColourSpace::RGB, &server);
  EXPECT_EQ(beyond.getComponent(), 3);
  EXPECT_EQ(shown(beyond), L"51");
}

TEST(ColourComponentAdaptor, NegativeComponentShowsZeroInEachSpace) {
  ValServer<ColourData> server(ColourData(0.7, 0.7, 0.7));
  ColourComponentAdaptor inRGB(-1, ColourSpace::RGB, &server);
  ColourComponentAdaptor inHSV(-1, ColourSpace::HSV, &server);
  EXPECT_EQ(shown(inRGB), L"0");
  EXPECT_EQ(shown(inHSV), L"0.00");
}

TEST(ColourComponentAdaptor, WithoutAServerShowsDashesAndRefusesEdits) {
  ColourComponentAdaptor orphan(0, ColourSpace::RGB, nullptr);
  EXPECT_EQ(shown(orphan), L"---");
  EXPECT_FALSE(orphan.requestSetNewDataValue(WString(L"12"), kDataChangeAll));
}

TEST(ColourComponentAdaptor, TypedRGBIsScaledAndCappedButNotRaised) {
  ValServer<ColourData> server(ColourData(0.0, 0.0, 0.0));
  ColourComponentAdaptor green(1, ColourSpace::RGB, &server);
  EXPECT_TRUE(green.requestSetNewDataValue(WString(L"51"), kDataChangeAll));
  EXPECT_DOUBLE_EQ(server.get().getGreen(), 51.0 / 255.0);
  green.requestSetNewDataValue(WString(L"300"), kDataChangeAll);
  EXPECT_DOUBLE_EQ(server.get().getGreen(), 1.0);
  green.requestSetNewDataValue(WString(L"-20"), kDataChangeAll);
  EXPECT_DOUBLE_EQ(server.get().getGreen(), -20.0 / 255.0);
}

TEST(ColourComponentAdaptor, UnreadableTextReadsAsZero) {
  ValServer<ColourData> server(ColourData(0.5, 0.5, 0.5));
  ColourComponentAdaptor blue(2, ColourSpace::RGB, &server);
  blue.requestSetNewDataValue(WString(L"lots"), kDataChangeAll);
  EXPECT_EQ(server.get().getBlue(), 0.0);
  EXPECT_DOUBLE_EQ(server.get().getRed(), 0.5);
}

TEST(ColourComponentAdaptor, TypedHSVIsUsedAsTyped) {
  ValServer<ColourData> server(ColourData(10.0, 0.5, 0.5, ColourSpace::HSV));
  ColourComponentAdaptor hue(0, ColourSpace::HSV, &server);
  ColourComponentAdaptor saturation(1, ColourSpace::HSV, &server);
  ColourComponentAdaptor alpha(3, ColourSpace::HSV, &server);
  hue.requestSetNewDataValue(WString(L"500"), kDataChangeAll);
  EXPECT_EQ(server.get().getComponent(0), 500.0);
  saturation.requestSetNewDataValue(WString(L"150"), kDataChangeAll);
  EXPECT_DOUBLE_EQ(server.get().getComponent(1), 1.5);
  alpha.requestSetNewDataValue(WString(L"40"), kDataChangeAll);
  EXPECT_DOUBLE_EQ(server.get().getAlpha(), 0.4);
}

TEST(ColourComponentAdaptor, EditingRedOfAnHSVColourLeavesItInHSV) {
  ValServer<ColourData> server(ColourData(240.0, 1.0, 1.0, ColourSpace::HSV, 0.6));
  ColourComponentAdaptor red(0, ColourSpace::RGB, &server);
  red.requestSetNewDataValue(WString(L"255"), kDataChangeAll);
  ColourData const after = server.get();
  EXPECT_EQ(after.getColourSpace(), ColourSpace::HSV);
  EXPECT_DOUBLE_EQ(after.getRed(), 1.0);
  EXPECT_DOUBLE_EQ(after.getGreen(), 0.0);
  EXPECT_DOUBLE_EQ(after.getBlue(), 1.0);
  EXPECT_DOUBLE_EQ(after.getAlpha(), 0.6);
}

// --- Hex box ----------------------------------------------------------------

TEST(HexColourAdaptor, ChannelsAreTruncatedAndClamped) {
  ValServer<ColourData> server(ColourData(1.0, 0.999, -0.5));
  HexColourAdaptor hex(&server);
  EXPECT_EQ(shown(hex), L"FFFE00");
  server = ColourData(2.0, 0.1, 0.2);
  EXPECT_EQ(shown(hex), L"FF1933");
}

TEST(HexColourAdaptor, AnHSVColourShowsItsRGB) {
  ValServer<ColourData> server(ColourData(120.0, 1.0, 1.0, ColourSpace::HSV));
  HexColourAdaptor hex(&server);
  EXPECT_EQ(shown(hex), L"00FF00");
}

TEST(HexColourAdaptor, EmptyBoxGivesBlackWithTheOldAlpha) {
  ValServer<ColourData> server(ColourData(0.3, 0.6, 0.9, ColourSpace::RGB, 0.25));
  HexColourAdaptor hex(&server);
  EXPECT_TRUE(hex.requestSetNewDataValue(WString(), kDataChangeAll));
  EXPECT_EQ(server.get(), ColourData(0.0, 0.0, 0.0, ColourSpace::RGB, 0.25));
}

TEST(HexColourAdaptor, ThreeLettersAreFilledOnTheLeft) {
  ValServer<ColourData> server(ColourData(1.0, 1.0, 1.0));
  HexColourAdaptor hex(&server);
  hex.requestSetNewDataValue(WString(L"abc"), kDataChangeAll);
  EXPECT_EQ(server.get(), ColourData(0.0, 10.0 / 255.0, 188.0 / 255.0));
  EXPECT_EQ(shown(hex), L"000ABC");
}

TEST(HexColourAdaptor, CharactersAfterTheSixthAreIgnored) {
  ValServer<ColourData> server;
  HexColourAdaptor hex(&server);
  hex.requestSetNewDataValue(WString(L"FF8000FF"), kDataChangeAll);
  EXPECT_EQ(server.get(), ColourData(1.0, 128.0 / 255.0, 0.0));
}

TEST(HexColourAdaptor, AnHSVColourComesBackInRGB) {
  ValServer<ColourData> server(ColourData(30.0, 0.5, 0.5, ColourSpace::HSV, 0.5));
  HexColourAdaptor hex(&server);
  hex.requestSetNewDataValue(WString(L"0000FF"), kDataChangeAll);
  EXPECT_EQ(server.get(), ColourData(0.0, 0.0, 1.0, ColourSpace::RGB, 0.5));
}

// --- Alpha box --------------------------------------------------------------

TEST(AlphaTextAdaptor, AlphaShowsAsRoundedByte) {
  ValServer<ColourData> server(ColourData(0.1, 0.2, 0.3, ColourSpace::RGB, 0.5));
  AlphaTextAdaptor alpha(&server);
  EXPECT_EQ(shown(alpha), L"128");
}

TEST(AlphaTextAdaptor, TypedAlphaIsScaledAndCapped) {
  ValServer<ColourData> server(ColourData(0.1, 0.2, 0.3, ColourSpace::RGB, 1.0));
  AlphaTextAdaptor alpha(&server);
  alpha.requestSetNewDataValue(WString(L"51"), kDataChangeAll);
  EXPECT_DOUBLE_EQ(server.get().getAlpha(), 0.2);
  EXPECT_DOUBLE_EQ(server.get().getRed(), 0.1);
  alpha.requestSetNewDataValue(WString(L"999"), kDataChangeAll);
  EXPECT_DOUBLE_EQ(server.get().getAlpha(), 1.0);
  alpha.requestSetNewDataValue(WString(L"junk"), kDataChangeAll);
  EXPECT_EQ(server.get().getAlpha(), 0.0);
}

// --- Notification -----------------------------------------------------------

// The value side of a text widget, remembering what it was told to show.
class ShownText : public ValWidget<WString> {
public:
  void setNewWidgetValue(WString& value, eRedrawFlag redraw) override {
    text = value.str();
    lastRedraw = redraw;
    ++updates;
  }
  WString getWidgetValue() override { return WString(text); }

  std::wstring text;
  eRedrawFlag lastRedraw = kNoRedraw;
  int updates = 0;
};

TEST(ColourTextAdaptors, EveryBoxFollowsTheServer) {
  ValServer<ColourData> server(ColourData(0.0, 0.0, 0.0));
  ShownText redBox;
  ShownText hexBox;
  ShownText alphaBox;
  redBox.setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ColourComponentAdaptor(0, ColourSpace::RGB, &server)));
  hexBox.setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new HexColourAdaptor(&server)));
  alphaBox.setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new AlphaTextAdaptor(&server)));
  EXPECT_EQ(redBox.text, L"0");

  // An edit in one box reaches the others through the server.
  hexBox.requestSetNewDataValue(WString(L"800000"), kDataChangeAll);
  EXPECT_EQ(redBox.text, L"128");
  EXPECT_EQ(hexBox.text, L"800000");
  EXPECT_EQ(alphaBox.text, L"255");
  EXPECT_EQ(redBox.lastRedraw, kRedrawNow);
  redBox.setDataAdaptor(nullptr);
  hexBox.setDataAdaptor(nullptr);
  alphaBox.setDataAdaptor(nullptr);
}

} // namespace
