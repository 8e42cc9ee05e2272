#include "fonts/FontChooserTestSupport.h"

#include <zowidgets/fonts/FontChooserButton.h>
#include <zowidgets/fonts/TitledFontChooserButton.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>

#include <algorithm>
#include <vector>

namespace {

using namespace FontChooserInput;
using WString = LightweightString<wchar_t>;

struct FontChooserButtonTest : HeadlessScreenTest {
  StandardPanel* window = nullptr;
  FontChooserButton* button = nullptr;
  std::vector<NotifyMsg> messages;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    window = openPanel(XY<int>(row * 12, row * 3), XY<int>(200, 700));
    FontChooserButton::InitArgs args(XY<int>(row * 8, row), fontNamed(kLiberationSans, 18.0f, Glib::FontDesc::kBold),
                                     kRecentKey);
    args.callback = Zo::Ptr<iCallbackBase<int, NotifyMsg>>(new FunctionCallback<NotifyMsg>([this](NotifyMsg const& m) {
      messages.push_back(m);
      return 0;
    }));
    button = window->createWidget<FontChooserButton>(args, Glob::UserTopLeft(0, 0));
    pump();
  }

  static FontDefinition fontIn(NotifyMsg const& message) {
    auto const* event = dynamic_cast<FontChooserButton::Event const*>(message.data().get());
    return event ? FontDefinition(event->font) : FontDefinition();
  }

  void wheel(int steps) {
    HeadlessInput::wheel(HeadlessInput::pointOn(*button), steps);
    pump();
  }

  static std::vector<LightweightString<char>> families() {
    std::vector<LightweightString<char>> names;
    for (Glib::FontDesc const& font : FontChooserPanel::getFontList(LightweightString<char>()))
      names.push_back(font.family());
    return names;
  }
};

TEST_F(FontChooserButtonTest, ShowsTheFamilyInItself) {
  EXPECT_STREQ(button->idstring(), "FontChooserButton");
  EXPECT_EQ(button->getLabel(), WString(L"Liberation Sans"));
  EXPECT_EQ(button->getFont(), Glib::FontDesc(kLiberationSans, 0, Glib::FontDesc::kBold));
  button->setSelectedFont(fontNamed(kNotoMono, 9.0f, Glib::FontDesc::kItalic | 0x40));
  EXPECT_EQ(button->getLabel(), WString(L"Noto Mono"));
  EXPECT_EQ(button->getFont(), Glib::FontDesc(kNotoMono, 0, Glib::FontDesc::kItalic));
  EXPECT_TRUE(messages.empty()); // set by code: nobody is told
  EXPECT_EQ(button->getSelectedFont(), fontNamed(kNotoMono, 9.0f, Glib::FontDesc::kItalic | 0x40));
}

TEST_F(FontChooserButtonTest, AClickOpensThePanelOnTheFontAndAChoiceComesBackToTheButton) {
  HeadlessInput::clickOn(*button);
  pump();
  FontChooserPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(button->getState(), 1);
  EXPECT_EQ(panel->getFont(), button->getSelectedFont());
  EXPECT_TRUE(panel->getBoldBox()->isChecked());
  typeFilter(*panel, "liberation m");
  ASSERT_TRUE(clickFamily(*panel, kLiberationMono));
  pump();
  FontDefinition const expected = fontNamed(kLiberationMono, 18.0f, Glib::FontDesc::kBold);
  EXPECT_EQ(button->getSelectedFont(), expected);
  EXPECT_EQ(button->getLabel(), WString(L"Liberation Mono"));
  EXPECT_EQ(button->getFont().family(), LightweightString<char>(kLiberationMono));
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].name(), LightweightString<char>(FontChooserButton::kChangedMsg));
  EXPECT_EQ(fontIn(messages[0]), expected);
  // A press outside closes the panel; the family joins the recent fonts.
  HeadlessInput::click(XY<int>(1500, 200));
  pump();
  EXPECT_EQ(button->getDropDownPanel(), nullptr);
  EXPECT_EQ(prefs().getPreference(kRecentKey, L""), WString(L"Liberation Mono"));
}

TEST_F(FontChooserButtonTest, EscapeTakesBackTheFamiliesTriedAndRecordsNoRecentFont) {
  FontDefinition const opening = button->getSelectedFont();
  HeadlessInput::clickOn(*button);
  pump();
  FontChooserPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  typeFilter(*panel, "liberation m");
  ASSERT_TRUE(clickFamily(*panel, kLiberationMono));
  pump();
  ASSERT_EQ(button->getSelectedFont().name, WString(L"Liberation Mono"));
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(button->getDropDownPanel(), nullptr);
  EXPECT_EQ(button->getSelectedFont(), opening);
  EXPECT_EQ(button->getLabel(), WString(L"Liberation Sans"));
  ASSERT_EQ(messages.size(), 2u) << "the listener hears the family tried and the one restored";
  EXPECT_EQ(fontIn(messages[1]), opening);
  EXPECT_EQ(prefs().getPreference(kRecentKey, L""), WString(L""));
}

TEST_F(FontChooserButtonTest, EscapeWithNothingTriedTellsNoOne) {
  HeadlessInput::clickOn(*button);
  pump();
  ASSERT_NE(button->getDropDownPanel(), nullptr);
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(button->getDropDownPanel(), nullptr);
  EXPECT_TRUE(messages.empty());
}

TEST_F(FontChooserButtonTest, TabRoundThePanelToTheFiltersBlueButtonShowsAClearRingOnIt) {
  HeadlessInput::clickOn(*button);
  pump();
  FontChooserPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  Button* search = panel->getFilter()->getButton();
  HeadlessInput::typeText("mon");
  pump();
  ASSERT_TRUE(search->isActive()) << "blue, with text to search for";
  Zo::Image::Surface const plain = screen().grab(screenBoxOf(*search));
  HeadlessInput::key(kKeyDown);
  pump();
  ASSERT_TRUE(panel->getTree()->hasKbdFocus());
  for (int i = 0; i < 12 && !search->hasKbdFocus(); ++i) {
    HeadlessInput::key(kKeyTab);
    pump();
  }
  ASSERT_TRUE(search->hasKbdFocus()) << "Tab goes round to the filter's button";
  EXPECT_GE(Zo::Image::Surface::maxChannelDifference(screen().grab(screenBoxOf(*search)), plain), 100)
      << "the ring stands out from the blue face";
}

TEST_F(FontChooserButtonTest, ThePanelOpensWithTheKeyboardInItsFilter) {
  HeadlessInput::clickOn(*button);
  pump();
  FontChooserPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  EXPECT_TRUE(panel->getFilter()->getTextBox()->hasKbdFocus());
  HeadlessInput::typeText("liberation m");
  pump();
  EXPECT_EQ(panel->getFilter()->getString(), WString(L"liberation m"));
  std::vector<FontItem const*> const shown = panel->getShownItems();
  ASSERT_FALSE(shown.empty());
  for (FontItem const* item : shown)
    EXPECT_EQ(item->name().str().rfind("Liberation M", 0), 0u) << item->name().str();
}

TEST_F(FontChooserButtonTest, DownLeadsFromTheFilterIntoTheListAndReturnConfirmsAndCloses) {
  HeadlessInput::clickOn(*button);
  pump();
  FontChooserPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  HeadlessInput::typeText("liberation m");
  pump();
  std::vector<FontItem const*> const shown = panel->getShownItems();
  ASSERT_FALSE(shown.empty());
  HeadlessInput::key(kKeyDown);
  pump();
  EXPECT_TRUE(panel->getTree()->hasKbdFocus()) << "the keys went on into the list";
  ASSERT_GE(panel->getTree()->getSelectedIndex(), 0);
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(button->getDropDownPanel(), nullptr) << "Return confirmed and closed";
  EXPECT_EQ(button->getLabel().str().rfind(L"Liberation M", 0), 0u) << button->getLabel().str();
}

TEST_F(FontChooserButtonTest, TheWheelStepsThroughTheFamiliesWithoutOpeningThePanel) {
  std::vector<LightweightString<char>> const names = families();
  auto const at = std::find(names.begin(), names.end(), LightweightString<char>(kLiberationSans));
  ASSERT_NE(at, names.end());
  ASSERT_TRUE(at != names.begin() && at + 2 < names.end());
  wheel(1); // away from the user: the family before
  EXPECT_EQ(button->getSelectedFont().name.toUTF8(), *(at - 1));
  EXPECT_EQ(button->getLabel().toUTF8(), *(at - 1));
  wheel(-1);
  wheel(-1); // towards the user: the family after
  EXPECT_EQ(button->getSelectedFont().name.toUTF8(), *(at + 1));
  EXPECT_EQ(button->getSelectedFont().size, 18.0f);
  EXPECT_EQ(button->getSelectedFont().style, Glib::FontDesc::kBold);
  EXPECT_EQ(messages.size(), 3u);
  EXPECT_EQ(button->getDropDownPanel(), nullptr);
}

TEST_F(FontChooserButtonTest, TheWheelOverAFontNotInTheListDoesNothing) {
  button->setSelectedFont(fontNamed("No Such Family"));
  wheel(1);
  wheel(-1);
  EXPECT_EQ(button->getSelectedFont(), fontNamed("No Such Family"));
  EXPECT_TRUE(messages.empty());
}

TEST_F(FontChooserButtonTest, AtEitherEndTheWheelStaysPutButStillTellsTheListeners) {
  std::vector<LightweightString<char>> const names = families();
  for (auto [family, steps] : {std::pair{names.front(), 1}, std::pair{names.back(), -1}}) {
    button->setSelectedFont(fontNamed(family.c_str()));
    messages.clear();
    wheel(steps);
    EXPECT_EQ(button->getSelectedFont(), fontNamed(family.c_str()));
    ASSERT_EQ(messages.size(), 1u) << family.c_str();
    EXPECT_EQ(fontIn(messages[0]), fontNamed(family.c_str()));
  }
}

TEST_F(FontChooserButtonTest, AnInactiveButtonLetsTheWheelBe) {
  button->setActive(false, kRedrawNow);
  wheel(1);
  EXPECT_EQ(button->getSelectedFont().name, WString(L"Liberation Sans"));
  EXPECT_TRUE(messages.empty());
}

TEST_F(FontChooserButtonTest, ATitledButtonPutsItsLegendBeforeTheButton) {
  int const row = UifStd::getRowHeight();
  TitledFontChooserButton::InitArgs args(UIString(L"Caption font"), XY<int>(row * 11, row),
                                         FontChooserButton::InitArgs(XY<int>(), fontNamed(kNotoMono)));
  auto* titled = window->createWidget<TitledFontChooserButton>(args, Glob::Below(UifStd::getWidgetGap(), button));
  EXPECT_STREQ(titled->idstring(), "TitledFontChooserButton");
  FontChooserButton* child = titled->getChild();
  ASSERT_NE(child, nullptr);
  EXPECT_EQ(child->getLabel(), WString(L"Noto Mono"));
  EXPECT_GT(child->getX(), 0);
  EXPECT_LE(child->getX() + child->width(), titled->width());
  HeadlessInput::clickOn(*child);
  pump();
  EXPECT_NE(child->getDropDownPanel(), nullptr);
}

} // namespace
