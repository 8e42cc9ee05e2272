#include "CredentialsTestSupport.h"

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/textentry/PasswordEntryBox.h>
#include <zowidgets/values/binding/ValAdaptor.h>
#include <zowidgets/values/notify/ValServer.h>

#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

struct PasswordEntryBoxTest : CredentialsTest {
  // Outlives the widgets bound to it, which go in TearDown.
  ValServer<WString> server;
  PasswordEntryBox* entry = nullptr;
  std::vector<TextBoxEvent> events;

  void SetUp() override {
    CredentialsTest::SetUp();
    int const row = UifStd::getRowHeight();
    entry = add<PasswordEntryBox>(PasswordEntryBox::InitArgs(GlobCreationInfo(XY<int>(row * 10, row))));
    entry->addListener(
        Broadcaster<TextBoxEvent>::makeCallback([this](TextBoxEvent const& event) { events.push_back(event); }));
  }
  void TearDown() override {
    Tooltips::dismiss();
    CredentialsTest::TearDown();
  }

  void clickEye() { HeadlessInput::clickOn(*entry->getRevealButton()); }
};

TEST_F(PasswordEntryBoxTest, ThePasswordStartsHiddenAndTheFirstClickOnTheEyeRevealsIt) {
  typeInto(*entry->getTextBox(), "hunter2");
  EXPECT_FALSE(entry->isPasswordRevealed());
  EXPECT_TRUE(entry->getTextBox()->isObfuscatedDisplay());
  clickEye();
  EXPECT_TRUE(entry->isPasswordRevealed());
  EXPECT_EQ(entry->getRevealButton()->getPickState(), PasswordEntryBox::kRevealed);
  clickEye();
  EXPECT_FALSE(entry->isPasswordRevealed());
  EXPECT_EQ(entry->getString().str(), L"hunter2");
}

TEST_F(PasswordEntryBoxTest, TheEyeShowsThePresentStateStruckThroughWhileHidden) {
  CycleButton* eye = entry->getRevealButton();
  EXPECT_EQ(eye->getIconName(), PasswordEntryBox::kHiddenIcon);
  clickEye();
  EXPECT_EQ(eye->getIconName(), PasswordEntryBox::kRevealedIcon);
  clickEye();
  EXPECT_EQ(eye->getIconName(), PasswordEntryBox::kHiddenIcon);
}

TEST_F(PasswordEntryBoxTest, ClickingTheEyeRevealsThePasswordAndLeavesTheFocusInTheBox) {
  typeInto(*entry->getTextBox(), "abc");
  ASSERT_TRUE(entry->getTextBox()->hasKbdFocus());
  clickEye();
  EXPECT_TRUE(entry->isPasswordRevealed());
  EXPECT_TRUE(entry->getTextBox()->hasKbdFocus());
  // The user goes on typing where the caret was.
  HeadlessInput::typeText("d");
  EXPECT_EQ(entry->getString().str(), L"abcd");
}

TEST_F(PasswordEntryBoxTest, ClickingTheEyeWithTheFocusElsewhereGivesItToTheBox) {
  TextBox* other = window->createWidget<TextBox>(
      TextBox::InitArgs(GlobCreationInfo(XY<int>(100, UifStd::getRowHeight()))), Glob::Below(UifStd::getRowGap()));
  typeInto(*other, "x");
  ASSERT_TRUE(other->hasKbdFocus());
  clickEye();
  EXPECT_TRUE(entry->getTextBox()->hasKbdFocus());
}

TEST_F(PasswordEntryBoxTest, SpaceOnTheEyeFromTheKeyboardRevealsAndGivesTheFocusBack) {
  typeInto(*entry->getTextBox(), "abc");
  window->tabOrder().addTabStops(*entry, 0);
  HeadlessInput::key(kKeyTab);
  ASSERT_TRUE(entry->getRevealButton()->hasKbdFocus());
  HeadlessInput::key(' ');
  EXPECT_TRUE(entry->isPasswordRevealed());
  EXPECT_TRUE(entry->getTextBox()->hasKbdFocus());
}

TEST_F(PasswordEntryBoxTest, TextEventsArePassedOnWithTheWidgetAsTheirSource) {
  typeInto(*entry->getTextBox(), "ab");
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(events.size(), 3u);
  for (TextBoxEvent const& event : events)
    EXPECT_EQ(event.source, entry);
  EXPECT_EQ(events[0].kind, TextBoxEvent::kTextChanged);
  EXPECT_EQ(events[1].text.str(), L"ab");
  EXPECT_EQ(events[2].kind, TextBoxEvent::kReturnPressed);
  EXPECT_EQ(events[2].text.str(), L"ab");
}

TEST_F(PasswordEntryBoxTest, TheGhostLabelIsThePasswordTextUntilChanged) {
  EXPECT_EQ(entry->getTextBox()->getGhostLabel().getString(), resourceStrW(11427));
  entry->setGhostLabel(UIString(12031));
  EXPECT_EQ(entry->getTextBox()->getGhostLabel().getString(), resourceStrW(12031));
  entry->setGhostLabel(UIString(L"PIN"));
  EXPECT_EQ(entry->getTextBox()->getGhostLabel().getString().str(), L"PIN");
}

TEST_F(PasswordEntryBoxTest, TheEyesTooltipIsTheRevealText) {
  TestClock clock;
  EXPECT_EQ(entry->getRevealButton()->getTooltip().resId(), 13030);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*entry->getRevealButton()));
  clock.advance(Tooltips::kRestMs + 1);
  pump();
  ASSERT_NE(Tooltips::showing(), nullptr);
  EXPECT_EQ(Tooltips::showing()->text(), resourceStrW(13030));
}

TEST_F(PasswordEntryBoxTest, AnEyeMadeInactiveHidesARevealedPasswordAndIgnoresClicks) {
  entry->setString(L"secret");
  clickEye();
  ASSERT_TRUE(entry->isPasswordRevealed());
  entry->setShowPasswordActive(false, kRedrawNow);
  EXPECT_FALSE(entry->isPasswordRevealed());
  EXPECT_FALSE(entry->getRevealButton()->isActive());
  clickEye();
  EXPECT_FALSE(entry->isPasswordRevealed());
  // Allowed again, it works again.
  entry->setShowPasswordActive(true, kRedrawNow);
  clickEye();
  EXPECT_TRUE(entry->isPasswordRevealed());
}

TEST_F(PasswordEntryBoxTest, AnInactiveBoxTakesNoTypingAndKeepsItsEyeInactive) {
  entry->setShowPasswordActive(false, kRedrawNow);
  entry->setActive(false, kRedrawNow);
  EXPECT_FALSE(entry->getTextBox()->isActive());
  EXPECT_FALSE(entry->getRevealButton()->isActive());
  typeInto(*entry->getTextBox(), "x");
  EXPECT_TRUE(entry->getString().empty());
  // Active again, the eye stays as the owner set it.
  entry->setActive(true, kRedrawNow);
  EXPECT_TRUE(entry->getTextBox()->isActive());
  EXPECT_FALSE(entry->getRevealButton()->isActive());
}

TEST_F(PasswordEntryBoxTest, TheBoundValueTakesThePasswordOnReturn) {
  entry->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, WString>(&server)));
  typeInto(*entry->getTextBox(), "pa55");
  EXPECT_TRUE(server.get().empty());
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(server.get().str(), L"pa55");
}

TEST_F(PasswordEntryBoxTest, SetStringRaisesNoEvent) {
  entry->setString(L"quiet");
  EXPECT_EQ(entry->getString().str(), L"quiet");
  EXPECT_TRUE(events.empty());
}

TEST_F(PasswordEntryBoxTest, TheFocusClaimedForTheWidgetGoesToItsBox) {
  // Through the base, as a panel asks any of its widgets.
  Glob* asWidget = entry;
  EXPECT_TRUE(asWidget->claimKbdFocus());
  EXPECT_TRUE(entry->getTextBox()->hasKbdFocus());
}

TEST_F(PasswordEntryBoxTest, ItsTabStopsAreTheBoxThenTheEye) {
  std::vector<TabOrderable*> stops;
  entry->getTabOrderables(stops);
  ASSERT_EQ(stops.size(), 2u);
  EXPECT_EQ(stops[0], entry->getTextBox());
  EXPECT_EQ(stops[1], entry->getRevealButton());
}

TEST_F(PasswordEntryBoxTest, TheEyeIsASquareAtTheRightEndAndTheBoxTakesTheRest) {
  int const row = UifStd::getRowHeight();
  entry->resize(row * 12, row + 4);
  CycleButton* eye = entry->getRevealButton();
  EXPECT_EQ(eye->getSize(), XY<int>(row + 4, row + 4));
  EXPECT_EQ(eye->getX() + eye->width(), entry->width());
  EXPECT_EQ(entry->getTextBox()->getX(), 0);
  EXPECT_EQ(entry->getTextBox()->width(), entry->width() - eye->width());
}

} // namespace
