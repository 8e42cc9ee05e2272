#include "CredentialsTestSupport.h"

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/textentry/PasswordEntryBox.h>
#include <zowidgets/textentry/SignInWidget.h>

#include <vector>

namespace {

struct SignInWidgetTest : CredentialsTest {
  SignInWidget* signIn = nullptr;
  std::vector<SignInWidgetEvent> events;

  void SetUp() override {
    CredentialsTest::SetUp();
    int const row = UifStd::getRowHeight();
    signIn = add<SignInWidget>(SignInWidget::InitArgs(XY<int>(row * 12, SignInWidget::calcHeight())));
    signIn->addListener(Broadcaster<SignInWidgetEvent>::makeCallback(
        [this](SignInWidgetEvent const& event) { events.push_back(event); }));
  }

  TextBox* nameBox() const { return signIn->getNameBox(); }
  TextBox* passwordBox() const { return signIn->getPasswordBox()->getTextBox(); }
};

TEST_F(SignInWidgetTest, ReturnInTheNameBoxIsReportedToNobody) {
  typeInto(*nameBox(), "ada");
  events.clear();
  HeadlessInput::key(kKeyReturn);
  EXPECT_TRUE(events.empty());
}

TEST_F(SignInWidgetTest, ReturnInThePasswordBoxIsReportedWithBothTexts) {
  typeInto(*nameBox(), "ada");
  typeInto(*passwordBox(), "lovelace");
  events.clear();
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].kind, TextBoxEvent::kReturnPressed);
  EXPECT_EQ(events[0].credentials.userName.str(), L"ada");
  EXPECT_EQ(events[0].credentials.password.str(), L"lovelace");
}

TEST_F(SignInWidgetTest, EveryKeystrokeInEitherBoxIsReportedWithBothTexts) {
  typeInto(*nameBox(), "al");
  typeInto(*passwordBox(), "x");
  ASSERT_EQ(events.size(), 3u);
  for (SignInWidgetEvent const& event : events)
    EXPECT_EQ(event.kind, TextBoxEvent::kTextChanged);
  EXPECT_EQ(events[1].credentials, (Credentials{L"al", L""}));
  EXPECT_EQ(events[2].credentials, (Credentials{L"al", L"x"}));
  HeadlessInput::key(kKeyBackspace);
  ASSERT_EQ(events.size(), 4u);
  EXPECT_EQ(events[3].credentials, (Credentials{L"al", L""}));
}

TEST_F(SignInWidgetTest, CredentialsSetByTheProgramShowAndRaiseNoEvent) {
  signIn->setCredentials(Credentials{L"grace", L"cobol"});
  EXPECT_EQ(nameBox()->getString().str(), L"grace");
  EXPECT_EQ(passwordBox()->getString().str(), L"cobol");
  EXPECT_EQ(signIn->getCredentials(), (Credentials{L"grace", L"cobol"}));
  EXPECT_TRUE(events.empty());
}

TEST_F(SignInWidgetTest, TheFocusGoesToTheFirstEmptyBoxAndStaysPutWhenBothAreFilled) {
  EXPECT_TRUE(signIn->claimKbdFocus());
  EXPECT_TRUE(nameBox()->hasKbdFocus());
  signIn->setCredentials(Credentials{L"grace", L""});
  EXPECT_TRUE(signIn->claimKbdFocus());
  EXPECT_TRUE(passwordBox()->hasKbdFocus());
  signIn->setCredentials(Credentials{L"grace", L"cobol"});
  nameBox()->claimKbdFocus();
  EXPECT_FALSE(signIn->claimKbdFocus());
  EXPECT_TRUE(nameBox()->hasKbdFocus());
}

TEST_F(SignInWidgetTest, AnInactiveNameStaysInactiveWhenTheWidgetIsMadeActive) {
  signIn->setNameActive(false);
  EXPECT_FALSE(signIn->isNameActive());
  EXPECT_FALSE(nameBox()->isActive());
  // An empty name that may not be edited does not take the focus.
  EXPECT_TRUE(signIn->claimKbdFocus());
  EXPECT_TRUE(passwordBox()->hasKbdFocus());
  signIn->setActive(false, kRedrawNow);
  EXPECT_FALSE(passwordBox()->isActive());
  signIn->setActive(true, kRedrawNow);
  EXPECT_TRUE(passwordBox()->isActive());
  EXPECT_FALSE(nameBox()->isActive());
  signIn->setNameActive(true);
  EXPECT_TRUE(nameBox()->isActive());
}

TEST_F(SignInWidgetTest, GhostLabelsAreTheNameAndPasswordTextsUntilSet) {
  EXPECT_EQ(nameBox()->getGhostLabel().getString(), resourceStrW(12031));
  EXPECT_EQ(passwordBox()->getGhostLabel().getString(), resourceStrW(11427));
  signIn->setGhostLabels(UIString(12344), UIString(L"Pass phrase"));
  EXPECT_EQ(nameBox()->getGhostLabel().getString(), resourceStrW(12344));
  EXPECT_EQ(passwordBox()->getGhostLabel().getString().str(), L"Pass phrase");
  // Literal text stands even beside an id.
  signIn->setGhostLabels(UIString(12031, L"E-mail"), UIString(11427, L"Code"));
  EXPECT_EQ(nameBox()->getGhostLabel().getString().str(), L"E-mail");
  EXPECT_EQ(passwordBox()->getGhostLabel().getString().str(), L"Code");
}

TEST_F(SignInWidgetTest, ThePasswordEyeCanBeDisallowed) {
  signIn->setAllowPasswordReveal(false, kRedrawNow);
  HeadlessInput::clickOn(*signIn->getPasswordBox()->getRevealButton());
  EXPECT_FALSE(signIn->getPasswordBox()->isPasswordRevealed());
  signIn->setAllowPasswordReveal(true, kRedrawNow);
  HeadlessInput::clickOn(*signIn->getPasswordBox()->getRevealButton());
  EXPECT_TRUE(signIn->getPasswordBox()->isPasswordRevealed());
}

// Both boxes, the gap between them and the margins make the height: a
// height without the gap would cut the password box off at the bottom.
TEST_F(SignInWidgetTest, CalcHeightCountsTheGapBetweenTheBoxesSoNeitherIsCut) {
  Zo::Box<int> const area = signIn->getUserArea();
  PasswordEntryBox* password = signIn->getPasswordBox();
  EXPECT_EQ(nameBox()->getY() + nameBox()->height(), area.y1);
  EXPECT_EQ(password->getY(), area.y0);
  EXPECT_EQ(nameBox()->getY() - (password->getY() + password->height()), UifStd::getWidgetGap());
  EXPECT_EQ(area.x0, UifStd::getIndentWidth());
  EXPECT_EQ(nameBox()->width(), area.width());
  EXPECT_EQ(password->width(), area.width());
}

TEST_F(SignInWidgetTest, TabGoesFromTheNameToThePasswordAndItsEye) {
  window->tabOrder().addTabStops(*signIn, 0);
  std::vector<TabOrderable*> stops;
  signIn->getTabOrderables(stops);
  ASSERT_EQ(stops.size(), 3u);
  EXPECT_EQ(stops[0], nameBox());
  typeInto(*nameBox(), "a");
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(passwordBox()->hasKbdFocus());
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(signIn->getPasswordBox()->getRevealButton()->hasKbdFocus());
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_TRUE(passwordBox()->hasKbdFocus());
}

TEST_F(SignInWidgetTest, ResizedTheBoxesTakeTheNewWidth) {
  signIn->resize(signIn->width() + 40, signIn->height());
  EXPECT_EQ(nameBox()->width(), signIn->getUserArea().width());
  EXPECT_EQ(signIn->getPasswordBox()->width(), signIn->getUserArea().width());
}

} // namespace
