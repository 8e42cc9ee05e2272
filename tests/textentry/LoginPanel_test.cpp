#include "CredentialsTestSupport.h"

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/textentry/Credentials.h>
#include <zowidgets/textentry/LoginPanel.h>

#include <string>
#include <vector>

namespace {

// The owner of a login panel: keeps each "StartLogin" and what came with it.
class LoginTarget : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  int handleDataMessageEvent(LightweightString<char> const& message, Glob*, Zo::Ptr<iObject> const& data) override {
    messages.push_back(message.str());
    auto const* credentials = dynamic_cast<LoginPanel::Credentials const*>(data.get());
    received.push_back(credentials ? Credentials{credentials->userName, credentials->password} : Credentials{});
    return 1;
  }
  std::vector<std::string> messages;
  std::vector<Credentials> received;
};

// Tries the login itself instead of sending it.
class SelfCheckingLoginPanel : public LoginPanel {
public:
  using LoginPanel::LoginPanel;
  void attemptLogIn() override {
    ++attempts;
    showErrorMessage(UIString(L"Wrong password"));
  }
  int attempts = 0;
};

struct LoginPanelTest : HeadlessScreenTest {
  LoginTarget* target = nullptr;
  LoginPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    StandardPanel::InitArgs args(XY<int>(200, 100));
    args.screenPosition = XY<int>(50, 50);
    target = new LoginTarget(args);
    GlobManager::realize(target);
  }

  template <class Panel = LoginPanel> Panel* open(UIString const& message, Glob* to) {
    LoginPanel::InitArgs args(message, UIString(L"Sign in to the server"), to);
    args.screenPosition = XY<int>(400, 300);
    auto* made = new Panel(args);
    GlobManager::realize(made);
    panel = made;
    return made;
  }
};

TEST_F(LoginPanelTest, TheLoginButtonIsInactiveUntilBothBoxesHoldText) {
  open(UIString(L"Log in to share your project."), target);
  PushButton* login = panel->getLoginButton();
  EXPECT_FALSE(login->isActive());
  typeInto(*panel->getNameBox(), "ada");
  EXPECT_FALSE(login->isActive());
  typeInto(*panel->getPasswordBox(), "x");
  EXPECT_TRUE(login->isActive());
  HeadlessInput::key(kKeyBackspace);
  EXPECT_FALSE(login->isActive());
}

TEST_F(LoginPanelTest, WithAnEmptyNameOrPasswordReturnStillSendsStartLogin) {
  open(UIString(L"Log in."), target);
  typeInto(*panel->getPasswordBox(), "only-a-password");
  ASSERT_FALSE(panel->getLoginButton()->isActive());
  HeadlessInput::key(kKeyReturn);
  pump();
  ASSERT_EQ(target->messages, std::vector<std::string>{"StartLogin"});
  EXPECT_EQ(target->received[0], (Credentials{L"", L"only-a-password"}));
  // With both empty too.
  panel->getPasswordBox()->setString(L"");
  HeadlessInput::clickOn(*panel->getPasswordBox());
  HeadlessInput::key(kKeyReturn);
  pump();
  ASSERT_EQ(target->received.size(), 2u);
  EXPECT_EQ(target->received[1], (Credentials{L"", L""}));
}

TEST_F(LoginPanelTest, ReturnInTheNameBoxSendsNothing) {
  open(UIString(L"Log in."), target);
  typeInto(*panel->getNameBox(), "ada");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_TRUE(target->messages.empty());
}

TEST_F(LoginPanelTest, ClickingTheActiveButtonSendsTheNameAndPassword) {
  open(UIString(L"Log in."), target);
  typeInto(*panel->getNameBox(), "ada");
  typeInto(*panel->getPasswordBox(), "engine");
  HeadlessInput::clickOn(*panel->getLoginButton());
  pump();
  ASSERT_EQ(target->received.size(), 1u);
  EXPECT_EQ(target->received[0], (Credentials{L"ada", L"engine"}));
  EXPECT_EQ(LoginPanel::loginMsg().str(), "StartLogin");
}

TEST_F(LoginPanelTest, WithoutATargetOrWithADeadOneNothingIsSent) {
  open(UIString(L"Log in."), nullptr);
  typeInto(*panel->getPasswordBox(), "x");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_TRUE(target->messages.empty());
  GlobManager::requestDeletion(panel);
  pump();

  open(UIString(L"Log in."), target);
  GlobManager::requestDeletion(target);
  pump();
  typeInto(*panel->getPasswordBox(), "x");
  HeadlessInput::key(kKeyReturn);
  pump(); // a message to the dead target would crash here
  EXPECT_TRUE(is_good_glob_ptr(panel));
}

TEST_F(LoginPanelTest, ASubclassTakesOverTheLoginAttempt) {
  auto* own = open<SelfCheckingLoginPanel>(UIString(L"Log in."), target);
  typeInto(*panel->getPasswordBox(), "x");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(own->attempts, 1);
  EXPECT_TRUE(target->messages.empty());
  EXPECT_EQ(panel->getErrorLabel()->getString().getString().str(), L"Wrong password");
}

TEST_F(LoginPanelTest, AnErrorMessageShowsWithoutMovingAnythingAndThePanelStays) {
  open(UIString(L"Log in."), target);
  std::vector<Zo::Box<int>> before;
  for (Glob* child : panel->getChildren())
    before.push_back(child->canvasBox());
  panel->showErrorMessage(UIString(L"The server refused the password; try again."));
  pump();
  std::vector<Zo::Box<int>> after;
  for (Glob* child : panel->getChildren())
    after.push_back(child->canvasBox());
  EXPECT_EQ(after, before);
  EXPECT_TRUE(is_good_glob_ptr(panel));
  EXPECT_EQ(panel->getErrorLabel()->getString().getString().str(), L"The server refused the password; try again.");
}

TEST_F(LoginPanelTest, TabGoesNamePasswordButton) {
  open(UIString(L"Log in."), target);
  EXPECT_TRUE(panel->getNameBox()->hasKbdFocus());
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(panel->getPasswordBox()->hasKbdFocus());
  // The button is skipped while inactive.
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(panel->getNameBox()->hasKbdFocus());
  HeadlessInput::typeText("a");
  HeadlessInput::key(kKeyTab);
  HeadlessInput::typeText("b");
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(panel->getLoginButton()->hasKbdFocus());
  HeadlessInput::key(' ');
  pump();
  ASSERT_EQ(target->received.size(), 1u);
  EXPECT_EQ(target->received[0], (Credentials{L"a", L"b"}));
}

TEST_F(LoginPanelTest, EscapeClosesThePanelWithoutALogin) {
  open(UIString(L"Log in."), target);
  ASSERT_TRUE(panel->getNameBox()->hasKbdFocus());
  HeadlessInput::typeText("ada");
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
  EXPECT_TRUE(target->messages.empty());
}

TEST_F(LoginPanelTest, ItIsModalTitledAndHidesThePassword) {
  open(UIString(L"Log in."), target);
  EXPECT_TRUE(GlobManager::isModal(panel));
  EXPECT_STREQ(panel->idstring(), "LoginPanel");
  EXPECT_EQ(panel->getTitle().getString().str(), L"Sign in to the server");
  EXPECT_TRUE(panel->getPasswordBox()->isObfuscatedDisplay());
  EXPECT_FALSE(panel->getNameBox()->isObfuscatedDisplay());
  EXPECT_EQ(panel->getNameBox()->getTitle().getString(), resourceStrW(12031));
  EXPECT_EQ(panel->getPasswordBox()->getTitle().getString(), resourceStrW(11427));
  EXPECT_FALSE(panel->isResizable());
  // Input to other windows is refused while it is up.
  EXPECT_EQ(GlobManager::currentModal(), panel);
}

TEST_F(LoginPanelTest, PlainTextIsShownAsWrittenAndHTMLWithItsLinks) {
  open(UIString(L"Use <your> account.\nSecond line"), target);
  EXPECT_EQ(HTMLRenderer::visibleText(panel->getMessageBox()->getHTML()).str(), L"Use <your> account.\nSecond line");
  GlobManager::requestDeletion(panel);
  pump();
  open(UIString(L"<p>No account? <a href=\"https://example.org/join\">Join</a></p>"), target);
  std::vector<HTMLParagraph> const& html = panel->getMessageBox()->getHTML();
  EXPECT_EQ(HTMLRenderer::visibleText(html).str(), L"No account? Join");
  bool linked = false;
  for (HTMLParagraph const& paragraph : html)
    for (HTMLRun const& run : paragraph.runs)
      linked = linked || run.link.str() == L"https://example.org/join";
  EXPECT_TRUE(linked);
}

TEST_F(LoginPanelTest, ALongerMessageMakesATallerPanelThatHoldsEveryWidget) {
  XY<int> const shortSize = LoginPanel::calcSize(L"Log in.");
  std::wstring longMessage;
  for (int i = 0; i < 20; ++i)
    longMessage += L"Your projects are kept on the server until you remove them. ";
  XY<int> const longSize = LoginPanel::calcSize(LightweightString<wchar_t>(longMessage));
  EXPECT_EQ(longSize.x, shortSize.x);
  EXPECT_GT(longSize.y, shortSize.y + 2 * UifStd::getRowHeight());

  open(UIString(LightweightString<wchar_t>(longMessage)), target);
  EXPECT_EQ(panel->getSize(), longSize);
  Zo::Box<int> const area = panel->getUserArea();
  std::vector<Glob*> const widgets{panel->getMessageBox(), panel->getNameBox(), panel->getPasswordBox(),
                                   panel->getErrorLabel(), panel->getLoginButton()};
  for (Glob* widget : widgets) {
    Zo::Box<int> const box(widget->getX(), widget->getY(), widget->getX() + widget->width(),
                           widget->getY() + widget->height());
    EXPECT_EQ(area.intersect(box), box) << widget->idstring() << " sticks out of the user area";
    for (Glob* other : widgets) {
      Zo::Box<int> const otherBox(other->getX(), other->getY(), other->getX() + other->width(),
                                  other->getY() + other->height());
      if (other != widget) {
        EXPECT_TRUE(box.intersect(otherBox).empty()) << widget->idstring() << " overlaps " << other->idstring();
      }
    }
  }
}

} // namespace
