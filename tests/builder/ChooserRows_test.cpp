#include "BuilderTestSupport.h"

#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/builder/detail/TitledFileChooserButton.h>
#include <zowidgets/colour/ColourPicker.h>
#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/fonts/TitledFontChooserButton.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/files/FileChooserWindow.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/textentry/PasswordEntryBox.h>

#include <cstdio>
#include <filesystem>

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
  static Zo::Ptr<iParam> fileParam(wchar_t const* path) {
    return Zo::Ptr<iParam>(new FileParam(L"Logo", "logo", {}, path));
  }
  static FileChooserWindow* openChooser() {
    for (Glob* window : GlobManager::topLevelWindows())
      if (auto* chooser = dynamic_cast<FileChooserWindow*>(window))
        return chooser;
    return nullptr;
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

TEST_F(ChooserRowsTest, FileRowOffersTheFileASeparatorAndBrowse) {
  Zo::Ptr<iParam> logo = fileParam(L"/usr/share/pixmaps/logo.png");
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{logo}, panel, 0);
  auto* row = rowWidget<TitledFileChooserButton>(*built, "logo");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->height(), UifStd::getRowHeight());
  Menu const& menu = row->getBtn().getMenu();
  ASSERT_EQ(menu.size(), 3);
  EXPECT_EQ(menu.item(0).text.getString(), L"logo.png");
  EXPECT_EQ(menu.item(1).style, MenuItem::kSeparator);
  EXPECT_EQ(menu.item(2).text.getString(), L"Browse\u2026");
  EXPECT_EQ(row->getBtn().getSelectedItem(), 0);
}

TEST_F(ChooserRowsTest, AFileChosenThroughBrowseReachesTheParameter) {
  std::filesystem::path const folder = std::filesystem::temp_directory_path() / "zo-file-row";
  std::filesystem::create_directories(folder);
  std::filesystem::path const chosen = folder / "titles.txt";
  std::FILE* file = std::fopen(chosen.c_str(), "w");
  ASSERT_NE(file, nullptr);
  std::fputs("credits", file);
  std::fclose(file);
  Zo::Ptr<iParam> logo = fileParam((folder / "old.txt").wstring().c_str());
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{logo}, panel, 0);
  auto* row = rowWidget<TitledFileChooserButton>(*built, "logo");
  ASSERT_NE(row, nullptr);
  HeadlessInput::clickOn(row->getBtn());
  pump();
  MenuWindow* menu = row->getBtn().getMenuWindow();
  ASSERT_NE(menu, nullptr);
  Zo::Box<int> const browse = menu->rowBox(TitledFileChooserButton::kBrowseRow);
  HeadlessInput::clickOn(*menu, XY<int>((browse.x0 + browse.x1) / 2, (browse.y0 + browse.y1) / 2));
  pump();
  FileChooserWindow* chooser = openChooser();
  ASSERT_NE(chooser, nullptr);
  EXPECT_EQ(chooser->getBrowser().getFolder().str(), folder.wstring());
  ASSERT_TRUE(chooser->getBrowser().openPath(LightweightString<wchar_t>(chosen.wstring().c_str())));
  HeadlessInput::clickOn(chooser->getChooseButton());
  pump();
  EXPECT_EQ(logo->getValueAsString().str(), chosen.wstring());
  EXPECT_EQ(row->getBtn().getMenu().item(0).text.getString(), L"titles.txt");
  EXPECT_EQ(row->getBtn().getSelectedItem(), 0);
  std::filesystem::remove_all(folder);
}

TEST_F(ChooserRowsTest, FileRowFollowsTheParameter) {
  Zo::Ptr<iParam> logo = fileParam(L"/tmp/a.png");
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{logo}, panel, 0);
  auto* row = rowWidget<TitledFileChooserButton>(*built, "logo");
  ASSERT_NE(row, nullptr);
  logo->setValueFromString(L"/tmp/b.png");
  EXPECT_EQ(row->getPath(), L"/tmp/b.png");
  EXPECT_EQ(row->getBtn().getMenu().item(0).text.getString(), L"b.png");
}

TEST_F(ChooserRowsTest, DescriptionMakesAFileRow) {
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::buildFromJSON(
      LightweightString<wchar_t>(
          LR"({"rows": [{"type": "file", "name": "lut", "legend": "LUT", "value": "/luts/film.cube"}]})"),
      panel);
  auto* row = rowWidget<TitledFileChooserButton>(*built, "lut");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->getPath(), L"/luts/film.cube");
  EXPECT_EQ(row->getBtn().getMenu().item(0).text.getString(), L"film.cube");
}

} // namespace
