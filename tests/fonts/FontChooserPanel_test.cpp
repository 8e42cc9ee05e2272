#include "fonts/FontChooserTestSupport.h"

#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>

#include <algorithm>
#include <cmath>
#include <cwctype>
#include <memory>
#include <strings.h>
#include <vector>

namespace {

using namespace FontChooserInput;
using WString = LightweightString<wchar_t>;

struct FontChooserPanelTest : HeadlessScreenTest {
  ValServer<FontDefinition> font{fontNamed(kLiberationSans, 20.0f)};
  std::vector<ValServerEvent<FontDefinition>> heard;
  Zo::Ptr<Zo::Guard> guard;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    guard = font.addListener(
        Zo::Ptr<iCallbackBase<int, ValServerEvent<FontDefinition>>>(
            new FunctionCallback<ValServerEvent<FontDefinition>>([this](ValServerEvent<FontDefinition> const& e) {
              heard.push_back(e);
              return 0;
            })),
        NotifyMsgTypeDictionary::instance().anyType());
  }

  FontChooserPanel* open(LightweightString<char> const& key = kRecentKey, ValServer<FontDefinition>* value = nullptr) {
    FontChooserPanel::InitArgs args(value ? value : &font, key);
    args.screenPosition = XY<int>(100, 100);
    auto* panel = new FontChooserPanel(args);
    GlobManager::realize(panel);
    pump();
    return panel;
  }

  static void close(FontChooserPanel* panel) {
    GlobManager::requestDeletion(panel);
    pump();
  }

  // Chooses a family in a panel of its own, as a user choosing fonts one
  // after another would.
  void chooseInNewPanel(LightweightString<char> const& family) {
    FontChooserPanel* panel = open();
    typeFilter(*panel, family.c_str());
    ASSERT_TRUE(clickFamily(*panel, family)) << family.c_str();
    close(panel);
  }

  static std::vector<LightweightString<char>> recentRows(FontChooserPanel const& panel) {
    std::vector<LightweightString<char>> names;
    for (FontItem const* item : panel.getItems())
      if (item->category() == kRecentFont)
        names.push_back(item->name());
    return names;
  }

  static std::vector<LightweightString<char>> shownNames(FontChooserPanel const& panel) {
    std::vector<LightweightString<char>> names;
    for (FontItem const* item : panel.getShownItems())
      names.push_back(item->name());
    return names;
  }

  static WString stored() { return prefs().getPreference(kRecentKey, L"<unset>"); }

  // Installed families, case ignored, holding `part`.
  static std::vector<LightweightString<char>> installedHolding(std::wstring part) {
    auto lower = [](std::wstring text) {
      std::transform(text.begin(), text.end(), text.begin(), [](wchar_t c) { return std::towlower(c); });
      return text;
    };
    std::vector<LightweightString<char>> found;
    for (LightweightString<char> const& family : Glib::getAvailableFonts())
      if (lower(WString::fromUTF8(family.view()).str()).find(lower(part)) != std::wstring::npos)
        found.push_back(family);
    return found;
  }
};

TEST_F(FontChooserPanelTest, ListsEveryInstalledFamilyOnceInOrderWithCaseIgnored) {
  FontChooserPanel* panel = open();
  EXPECT_STREQ(panel->idstring(), "FontChooserPanel");
  std::vector<LightweightString<char>> ordinary;
  for (FontItem const* item : panel->getItems())
    if (item->category() == kOrdinaryFont)
      ordinary.push_back(item->name());
  std::vector<LightweightString<char>> installed = Glib::getAvailableFonts();
  ASSERT_GE(installed.size(), 6u);
  EXPECT_EQ(ordinary.size(), installed.size());
  EXPECT_TRUE(std::is_sorted(ordinary.begin(), ordinary.end(),
                             [](auto const& a, auto const& b) { return strcasecmp(a.c_str(), b.c_str()) < 0; }));
  for (char const* family : {kLiberationSans, kLiberationMono, kNotoMono, "DejaVu Sans"})
    EXPECT_NE(std::find(ordinary.begin(), ordinary.end(), LightweightString<char>(family)), ordinary.end()) << family;
  EXPECT_EQ(panel->getTree()->rowCount(), static_cast<int>(panel->getItems().size()));
  close(panel);
}

TEST_F(FontChooserPanelTest, ChoosersShareTheInstalledRowsAndEachKeepsItsOwnRecentOnes) {
  chooseInNewPanel(kLiberationMono);
  FontChooserPanel* withRecent = open();
  FontChooserPanel* without = open(LightweightString<char>());
  ASSERT_EQ(recentRows(*withRecent).size(), 1u);
  ASSERT_TRUE(recentRows(*without).empty());
  ASSERT_EQ(withRecent->itemCount(), without->itemCount() + 1);
  for (std::size_t index = 0; index < without->itemCount(); ++index)
    ASSERT_EQ(&withRecent->item(index + 1), &without->item(index)) << "row " << index;
  EXPECT_EQ(withRecent->item(0).category(), kRecentFont);
  close(without);
  close(withRecent);
}

TEST_F(FontChooserPanelTest, EachRowIsDrawnInItsOwnFamily) {
  FontChooserPanel* panel = open();
  typeFilter(*panel, "liberation");
  pump();
  TreeView& tree = *panel->getTree();
  ASSERT_GE(tree.rowCount(), 3);
  Glib::FontDesc const interfaceFont = UifStd::getFont();
  for (int row = 0; row < tree.rowCount(); ++row) {
    iTreeViewAdaptor::Item const* item = tree.itemAt(row);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->font.family(), item->text.getString().toUTF8());
    // The ink of the row's text spans the text's width in its own family,
    // which differs from its width in the interface font.
    Glob const& rowGlob = *tree.getRowGlob(row);
    Zo::Image::Surface const shot = screen().grab(screenBoxOf(rowGlob));
    std::uint32_t const ground = shot.pixel(shot.width() - 2, shot.height() / 2);
    int first = -1;
    int last = -1;
    for (int x = 0; x < shot.width(); ++x)
      for (int y = 0; y < shot.height(); ++y)
        if (Rgb a = rgbOf(shot.pixel(x, y)), b = rgbOf(ground); !near(a, b, 40)) {
          first = first < 0 ? x : first;
          last = x;
        }
    Glib::FontDesc own = item->font;
    own.setSize(interfaceFont.size());
    double const ownWidth = Glib::TextLayout::measure(item->text.getString(), own).width;
    double const defaultWidth = Glib::TextLayout::measure(item->text.getString(), interfaceFont).width;
    ASSERT_GT(std::abs(ownWidth - defaultWidth), 4.0) << item->font.family().c_str();
    EXPECT_NEAR(last - first + 1, ownWidth, 3.0) << item->font.family().c_str();
  }
  close(panel);
}

TEST_F(FontChooserPanelTest, TypingInTheFilterNarrowsTheListAsYouType) {
  FontChooserPanel* panel = open();
  typeFilter(*panel, "lib");
  pump();
  EXPECT_EQ(shownNames(*panel), installedHolding(L"lib"));
  HeadlessInput::typeText("eration m");
  pump();
  EXPECT_EQ(shownNames(*panel), installedHolding(L"liberation m"));
  EXPECT_EQ(shownNames(*panel), (std::vector<LightweightString<char>>{kLiberationMono}));
  EXPECT_EQ(panel->getTree()->rowCount(), 1);
  // Deleting brings the wider list back at once.
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyBackspace);
  pump();
  EXPECT_EQ(shownNames(*panel), installedHolding(L"liberation"));
  close(panel);
}

TEST_F(FontChooserPanelTest, AFilterThatMatchesNothingShowsAnEmptyTreeAndTheClearButtonShowsAllAgain) {
  FontChooserPanel* panel = open();
  typeFilter(*panel, "zqxjv");
  HeadlessInput::key(kKeyReturn); // the focus goes to the button, which becomes the clear button
  pump();
  EXPECT_TRUE(panel->getShownItems().empty());
  EXPECT_EQ(panel->getTree()->rowCount(), 0);
  EXPECT_EQ(panel->getTree()->liveRowCount(), 0);
  ASSERT_EQ(panel->getFilter()->getIconName(), LightweightString<char>(TextFilterWidget::kClearIcon));
  HeadlessInput::clickOn(*panel->getFilter()->getButton());
  pump();
  EXPECT_TRUE(panel->getFilter()->getString().empty());
  EXPECT_EQ(panel->getTree()->rowCount(), static_cast<int>(panel->getItems().size()));
  close(panel);
}

TEST_F(FontChooserPanelTest, ClickingARowChangesTheFamilyAloneWithNoticesBeforeAndAfter) {
  font = fontNamed(kLiberationSans, 20.0f, Glib::FontDesc::kItalic);
  FontChooserPanel* panel = open();
  typeFilter(*panel, "noto mono");
  heard.clear();
  ASSERT_TRUE(clickFamily(*panel, kNotoMono));
  pump();
  FontDefinition expected = fontNamed(kNotoMono, 20.0f, Glib::FontDesc::kItalic);
  EXPECT_EQ(font.get(), expected);
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[0].phase, ValServerEvent<FontDefinition>::kAboutToChange);
  EXPECT_EQ(heard[1].phase, ValServerEvent<FontDefinition>::kChanged);
  EXPECT_TRUE(panel->wasFontChosen());
  EXPECT_EQ(panel->getTree()->getSelectedItem(), FontItem::makeID(kNotoMono, kOrdinaryFont));
  close(panel);
}

TEST_F(FontChooserPanelTest, BoldAndItalicToggleTheirOwnBits) {
  font = fontNamed(kLiberationSans, 12.0f, Glib::FontDesc::kItalic | 0x10);
  FontChooserPanel* panel = open();
  EXPECT_TRUE(panel->getItalicBox()->isChecked());
  EXPECT_FALSE(panel->getBoldBox()->isChecked());
  EXPECT_EQ(panel->getBoldBox()->getLabel(), WString(L"Bold"));
  EXPECT_EQ(panel->getItalicBox()->getLabel(), WString(L"Italic"));
  HeadlessInput::clickOn(*panel->getBoldBox());
  pump();
  EXPECT_EQ(font.get().style, Glib::FontDesc::kBold | Glib::FontDesc::kItalic | 0x10);
  HeadlessInput::clickOn(*panel->getItalicBox());
  pump();
  EXPECT_EQ(font.get().style, Glib::FontDesc::kBold | 0x10);
  HeadlessInput::clickOn(*panel->getBoldBox());
  pump();
  EXPECT_EQ(font.get().style, 0x10);
  EXPECT_EQ(font.get().name, WString(L"Liberation Sans"));
  EXPECT_FALSE(panel->wasFontChosen()); // only a family from the list is remembered
  close(panel);
  EXPECT_EQ(stored(), WString(L"<unset>"));
}

TEST_F(FontChooserPanelTest, TabVisitsTheWidgetsAsTheyReadTheFooterLeftToRight) {
  FontChooserPanel* panel = open();
  panel->getFilter()->getTextBox()->claimKbdFocus();
  std::vector<std::string> visited;
  for (int step = 0; step < 6; ++step) {
    HeadlessInput::key(kKeyTab);
    Glob const* focus = get_kbd_focus();
    visited.push_back(focus == panel->getTree()                     ? "list"
                      : focus == panel->getTextColourButton()       ? "text colour"
                      : focus == panel->getBackgroundColourButton() ? "background colour"
                      : focus == panel->getBoldBox()                ? "bold"
                      : focus == panel->getItalicBox()              ? "italic"
                      : focus == panel->getFilter()->getTextBox()   ? "filter"
                                                                    : "other");
  }
  std::vector<std::string> const expected{"list", "text colour", "background colour", "bold", "italic", "filter"};
  EXPECT_EQ(visited, expected);
  close(panel);
}

TEST_F(FontChooserPanelTest, TheColourButtonsEditTheTextAndBackgroundColours) {
  FontChooserPanel* panel = open();
  struct Case {
    DropDownColourPickerButton* button;
    NormalisedRGB FontDefinition::*field;
    char const* hex;
    NormalisedRGB expected;
  };
  for (Case const& c :
       {Case{panel->getTextColourButton(), &FontDefinition::fgColour, "FF0000", NormalisedRGB(1, 0, 0)},
        Case{panel->getBackgroundColourButton(), &FontDefinition::bgColour, "0000FF", NormalisedRGB(0, 0, 1)}}) {
    FontDefinition const before = font.get();
    EXPECT_EQ(c.button->getColour(), before.*c.field);
    HeadlessInput::clickOn(*c.button);
    pump();
    ColourPicker* picker = c.button->getDropDownPanel();
    ASSERT_NE(picker, nullptr);
    ComponentTextBox& hex = *picker->getHexBox();
    HeadlessInput::clickOn(hex, XY<int>(hex.getFieldBox().x0 + hex.getFieldBox().width() / 2, hex.height() / 2));
    HeadlessInput::key('a', kKeyCtrl);
    HeadlessInput::typeText(c.hex);
    HeadlessInput::key(kKeyReturn);
    pump();
    FontDefinition expected = before;
    expected.*c.field = c.expected;
    EXPECT_EQ(font.get(), expected) << c.hex;
    c.button->switchState(0, true);
    pump();
  }
  close(panel);
}

TEST_F(FontChooserPanelTest, AChangeFromOutsideShowsInThePanel) {
  FontChooserPanel* panel = open();
  font = fontNamed(kLiberationMono, 12.0f, Glib::FontDesc::kBold);
  pump();
  EXPECT_TRUE(panel->getBoldBox()->isChecked());
  EXPECT_FALSE(panel->getItalicBox()->isChecked());
  EXPECT_EQ(panel->getTree()->getSelectedItem(), FontItem::makeID(kLiberationMono, kOrdinaryFont));
  EXPECT_EQ(panel->getTextColourButton()->getColour(), font.get().fgColour);
  // A family that is not installed leaves the selection where it was.
  font = fontNamed("No Such Family");
  EXPECT_EQ(panel->getTree()->getSelectedItem(), FontItem::makeID(kLiberationMono, kOrdinaryFont));
  close(panel);
}

TEST_F(FontChooserPanelTest, SixFontsChosenInSixPanelsLeaveTheLastFive) {
  std::vector<LightweightString<char>> const families{"DejaVu Sans",   "DejaVu Serif",     kLiberationMono,
                                                      kLiberationSans, "Liberation Serif", kNotoMono};
  for (LightweightString<char> const& family : families)
    chooseInNewPanel(family);
  EXPECT_EQ(stored(), WString(L"Noto Mono|Liberation Serif|Liberation Sans|Liberation Mono|DejaVu Serif"));
  FontChooserPanel* panel = open();
  EXPECT_EQ(recentRows(*panel), (std::vector<LightweightString<char>>{kNotoMono, "Liberation Serif", kLiberationSans,
                                                                      kLiberationMono, "DejaVu Serif"}));
  // The recent rows come first, and the value's family is selected there.
  EXPECT_EQ(panel->getItems().front()->name(), LightweightString<char>(kNotoMono));
  EXPECT_EQ(panel->getSelectedFontID(), FontItem::makeID(kNotoMono, kRecentFont));
  EXPECT_EQ(panel->getTree()->getSelectedItem(), FontItem::makeID(kNotoMono, kRecentFont));
  close(panel);
}

TEST_F(FontChooserPanelTest, ChoosingARecentFontAgainMovesItToTheFront) {
  prefs().setPreference(kRecentKey, L"Noto Mono|Liberation Mono|DejaVu Sans");
  FontChooserPanel* panel = open();
  ASSERT_TRUE(clickFamily(*panel, "DejaVu Sans", kRecentFont));
  close(panel);
  EXPECT_EQ(stored(), WString(L"DejaVu Sans|Noto Mono|Liberation Mono"));
}

TEST_F(FontChooserPanelTest, AnEmptyKeyKeepsNoRecentFonts) {
  prefs().setPreference(kRecentKey, L"Noto Mono");
  FontChooserPanel* panel = open(LightweightString<char>());
  EXPECT_TRUE(recentRows(*panel).empty());
  typeFilter(*panel, "liberation mono");
  ASSERT_TRUE(clickFamily(*panel, kLiberationMono));
  close(panel);
  EXPECT_EQ(stored(), WString(L"Noto Mono"));
  EXPECT_TRUE(FontChooserPanel::getFontList(RecentFonts(LightweightString<char>())).front().category() ==
              kOrdinaryFont);
}

TEST_F(FontChooserPanelTest, ARecentFontNoLongerInstalledIsHiddenButKeptUntilPushedOut) {
  prefs().setPreference(kRecentKey, L"No Such Family|Liberation Sans|Gone Too|Noto Mono");
  FontChooserPanel* panel = open();
  EXPECT_EQ(recentRows(*panel), (std::vector<LightweightString<char>>{kLiberationSans, kNotoMono}));
  typeFilter(*panel, "no such");
  pump();
  EXPECT_TRUE(panel->getShownItems().empty());
  typeFilter(*panel, "liberation mono");
  ASSERT_TRUE(clickFamily(*panel, kLiberationMono));
  close(panel);
  EXPECT_EQ(stored(), WString(L"Liberation Mono|No Such Family|Liberation Sans|Gone Too|Noto Mono"));
  chooseInNewPanel("DejaVu Serif");
  EXPECT_EQ(stored(), WString(L"DejaVu Serif|Liberation Mono|No Such Family|Liberation Sans|Gone Too"));
}

TEST_F(FontChooserPanelTest, APanelOutlivingItsValueGoesOnWithACopy) {
  auto value = std::make_unique<ValServer<FontDefinition>>(fontNamed(kLiberationSans, 30.0f));
  FontChooserPanel* panel = open(kRecentKey, value.get());
  value.reset();
  typeFilter(*panel, "noto mono");
  ASSERT_TRUE(clickFamily(*panel, kNotoMono));
  pump();
  EXPECT_EQ(panel->getFont(), fontNamed(kNotoMono, 30.0f));
  close(panel);
  EXPECT_EQ(stored(), WString(L"Noto Mono"));
}

TEST_F(FontChooserPanelTest, WithoutAValueThePanelEditsOneOfItsOwn) {
  FontChooserPanel::InitArgs args;
  args.screenPosition = XY<int>(100, 100);
  auto* panel = new FontChooserPanel(args);
  GlobManager::realize(panel);
  EXPECT_EQ(panel->getFont(), FontDefinition());
  HeadlessInput::clickOn(*panel->getBoldBox());
  EXPECT_EQ(panel->getFont().style, Glib::FontDesc::kBold);
  close(panel);
}

TEST_F(FontChooserPanelTest, IsSizedInRowsAndItsListFollowsAResize) {
  int const row = UifStd::getRowHeight();
  XY<int> const size = FontChooserPanel::calcSize();
  Border const border = FontChooserPanel::border();
  EXPECT_EQ(size, XY<int>(row * 10 + border.left() + border.right(), row * 15 + border.top() + border.bottom()));
  FontChooserPanel* panel = open();
  EXPECT_EQ(panel->getSize(), size);
  XY<int> const tree = panel->calcTreeSize();
  EXPECT_EQ(panel->getTree()->getSize(), tree);
  EXPECT_EQ(tree.y, row * 13 - 2 * UifStd::getWidgetGap());
  panel->resize(size.x + 40, size.y + 60);
  pump();
  EXPECT_EQ(panel->getTree()->getSize(), XY<int>(tree.x + 40, tree.y + 60));
  EXPECT_EQ(panel->getFilter()->width(), tree.x + 40);
  // The footer stays at the foot, the checkboxes at the right.
  EXPECT_EQ(panel->getItalicBox()->getX() + panel->getItalicBox()->width(), panel->getUserArea().x1);
  EXPECT_EQ(panel->getTextColourButton()->getY(), panel->getUserArea().y0);
  close(panel);
}

} // namespace
