#include "BuilderTestSupport.h"

#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/colour/ColourPicker.h>
#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/fonts/TitledFontChooserButton.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/textentry/PasswordEntryBox.h>

using namespace BuilderTest;

namespace {

struct ChooserRowsTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(16 * UifStd::getRowHeight(), 12 * UifStd::getRowHeight()));
  }
  static Zo::Ptr<iParam> colourParam(NormalisedRGB const& value) {
    return Zo::Ptr<iParam>(new ColourParam(L"Tint", "tint", {}, value));
  }
  static Zo::Ptr<iParam> fontParam(wchar_t const* family) {
    return Zo::Ptr<iParam>(new FontParam(L"Caption font", "caption", {}, family));
  }
  static Zo::Ptr<iParam> passwordParam(unsigned flags) {
    return Zo::Ptr<iParam>(new TextParam(L"Password", "password", {}, L"", {}, flags));
  }
  static std::vector<std::wstring> families() {
    std::vector<std::wstring> names;
    for (auto const& family : Glib::getAvailableFonts())
      names.push_back(LightweightString<wchar_t>::fromUTF8(family.view()).str());
    return names;
  }
};

TEST_F(ChooserRowsTest, ColourRowShowsTheParametersColourAndFollowsIt) {
  Zo::Ptr<iParam> tint = colourParam(NormalisedRGB{1.0f, 0.0f, 0.0f, 1.0f});
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{tint}, panel, 0);
  auto* row = rowWidget<TitledGlob<DropDownColourPickerButton>>(*built, "tint");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->getLegend().getString(), L"Tint");
  EXPECT_EQ(row->height(), UifStd::getRowHeight());
  DropDownColourPickerButton* button = row->getChild();
  EXPECT_EQ(button->height(), UifStd::getRowHeight() - 2 * UifStd::getIndentWidth());
  EXPECT_EQ(button->getColour(), (NormalisedRGB{1.0f, 0.0f, 0.0f, 1.0f}));
  tint->setValueFromString(L"0 0 1 1");
  EXPECT_EQ(button->getColour(), (NormalisedRGB{0.0f, 0.0f, 1.0f, 1.0f}));
}

TEST_F(ChooserRowsTest, ColourTypedIntoThePickerReachesTheParameter) {
  Zo::Ptr<iParam> tint = colourParam(NormalisedRGB{0.0f, 0.0f, 0.0f, 1.0f});
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{tint}, panel, 0);
  DropDownColourPickerButton* button = rowWidget<TitledGlob<DropDownColourPickerButton>>(*built, "tint")->getChild();
  HeadlessInput::clickOn(*button);
  pump();
  ColourPicker* picker = button->getDropDownPanel();
  ASSERT_NE(picker, nullptr);
  ComponentTextBox& hex = *picker->getHexBox();
  HeadlessInput::clickOn(hex, XY<int>(hex.getFieldBox().x0 + hex.getFieldBox().width() / 2, hex.height() / 2));
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("00FF00");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(tint->getValueAsString(), ParamText<NormalisedRGB>::toText(NormalisedRGB{0.0f, 1.0f, 0.0f, 1.0f}));
}

TEST_F(ChooserRowsTest, FontRowIsTwoThirdsWideAndStartsOnTheFamily) {
  std::vector<std::wstring> const names = families();
  ASSERT_GE(names.size(), 2u);
  Zo::Ptr<iParam> caption = fontParam(names[0].c_str());
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{caption}, panel, 0);
  auto* row = rowWidget<TitledFontChooserButton>(*built, "caption");
  ASSERT_NE(row, nullptr);
  FontChooserButton* button = row->getChild();
  int const width = panel->getUserArea().width();
  EXPECT_LE(button->width(), width * 2 / 3);
  EXPECT_EQ(button->getSelectedFont().name, names[0]);
}

TEST_F(ChooserRowsTest, FontChangedWithTheWheelKeepsOnlyTheFamily) {
  std::vector<std::wstring> const names = families();
  ASSERT_GE(names.size(), 2u);
  Zo::Ptr<iParam> caption = fontParam(names[0].c_str());
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{caption}, panel, 0);
  FontChooserButton* button = rowWidget<TitledFontChooserButton>(*built, "caption")->getChild();
  // Towards the user: the next family.
  HeadlessInput::wheel(HeadlessInput::pointOn(*button), -1);
  pump();
  EXPECT_EQ(button->getSelectedFont().name, names[1]);
  EXPECT_EQ(caption->getValueAsString(), names[1]);
}

TEST_F(ChooserRowsTest, CompactObfuscatedTextIsAPasswordBoxWithItsLegendAsGhostText) {
  Zo::Ptr<iParam> password = passwordParam(TextParam::kObfuscated | TextParam::kShowPasswordControl);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{password}, panel, UIBuilder::kCompactText);
  auto* box = rowWidget<PasswordEntryBox>(*built, "password");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->getTextBox()->getGhostLabel().getString(), L"Password");
  EXPECT_TRUE(box->getRevealButton()->isActive());
  HeadlessInput::clickOn(*box->getTextBox());
  HeadlessInput::typeText("s3cret");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(password->getValueAsString(), L"s3cret");
  EXPECT_FALSE(box->isPasswordRevealed());
}

TEST_F(ChooserRowsTest, PasswordWithoutTheShowFlagHasAnInactiveEye) {
  Zo::Ptr<iParam> password = passwordParam(TextParam::kObfuscated);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{password}, panel, UIBuilder::kCompactText);
  auto* box = rowWidget<PasswordEntryBox>(*built, "password");
  ASSERT_NE(box, nullptr);
  EXPECT_FALSE(box->getRevealButton()->isActive());
}

TEST_F(ChooserRowsTest, InactivePasswordParameterGivesAnInactiveBox) {
  Zo::Ptr<iParam> password = passwordParam(TextParam::kObfuscated);
  password->setActive(false);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{password}, panel, UIBuilder::kCompactText);
  EXPECT_FALSE(rowWidget<PasswordEntryBox>(*built, "password")->isActive());
}

TEST_F(ChooserRowsTest, ObfuscatedTextOutsideCompactModeStaysATitledBox) {
  Zo::Ptr<iParam> password = passwordParam(TextParam::kObfuscated);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{password}, panel, 0);
  EXPECT_EQ(rowWidget<PasswordEntryBox>(*built, "password"), nullptr);
  EXPECT_NE(rowWidget<TitleTextBox>(*built, "password"), nullptr);
}

TEST_F(ChooserRowsTest, DescriptionMakesColourAndFontRows) {
  std::vector<std::wstring> const names = families();
  ASSERT_FALSE(names.empty());
  std::wstring const description = LR"({"rows": [
    {"type": "colour", "name": "tint", "legend": "Tint", "value": "0 1 0 1"},
    {"type": "font", "name": "caption", "legend": "Caption font", "value": ")" +
                                   names[0] + LR"("}]})";
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::buildFromJSON(LightweightString<wchar_t>(description), panel);
  auto* colour = rowWidget<TitledGlob<DropDownColourPickerButton>>(*built, "tint");
  ASSERT_NE(colour, nullptr);
  EXPECT_EQ(colour->getChild()->getColour(), (NormalisedRGB{0.0f, 1.0f, 0.0f, 1.0f}));
  auto* font = rowWidget<TitledFontChooserButton>(*built, "caption");
  ASSERT_NE(font, nullptr);
  EXPECT_EQ(font->getChild()->getSelectedFont().name, names[0]);
}

} // namespace
