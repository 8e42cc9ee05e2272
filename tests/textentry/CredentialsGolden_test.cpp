#include "CredentialsTestSupport.h"

#include "host/drawing/IconTestSupport.h"

#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/textentry/LoginPanel.h>
#include <zowidgets/textentry/PasswordEntryBox.h>
#include <zowidgets/textentry/ServerConnectionWidget.h>

#include <string>

namespace {

// Pictures of the credentials widgets in a bare window each, with the
// system's icon theme and nothing focused.
struct CredentialsGolden : HeadlessScreenTest {
  ScopedEnv themeFromTheSystem{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};

  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // A window just big enough for a widget of `size` with a gap around it.
  template <class T> T* openWith(typename T::InitArgs const& args) {
    int const gap = UifStd::getWidgetGap();
    StandardPanel::InitArgs windowArgs(XY<int>(args.size.x + 2 * gap, args.size.y + 2 * gap));
    windowArgs.screenPosition = XY<int>(100, 100);
    windowArgs.setBorder(Border(gap));
    window = new StandardPanel(windowArgs);
    GlobManager::realize(window);
    return window->createWidget<T>(args, Glob::UserTopLeft(0, 0));
  }

  PasswordEntryBox* openPasswordBox() {
    int const row = UifStd::getRowHeight();
    auto* box = openWith<PasswordEntryBox>(PasswordEntryBox::InitArgs(GlobCreationInfo(XY<int>(row * 9, row))));
    box->setString(L"correct horse");
    return box;
  }

  ::testing::AssertionResult windowMatches(std::string const& name) {
    set_kbd_focus(nullptr);
    // No button shows its hover look.
    HeadlessInput::moveTo(XY<int>(0, 0));
    pump();
    return matchesGolden(HeadlessScreen::windowShot(*window), ZO_GOLDEN_DIR "/" + name + ".png");
  }

  void signIn() {
    int const row = UifStd::getRowHeight();
    auto* widget = openWith<SignInWidget>(SignInWidget::InitArgs(XY<int>(row * 10, SignInWidget::calcHeight())));
    widget->setCredentials(Credentials{L"Ada Lovelace", L"analytical"});
  }

  void serverConnection() {
    int const row = UifStd::getRowHeight();
    ServerConnectionWidget::InitArgs args(XY<int>(row * 10, ServerConnectionWidget::calcHeight()));
    args.request.serverAddress = L"media.example.org:8443";
    args.request.userName = L"editor";
    openWith<ServerConnectionWidget>(args);
  }

  LoginPanel* loginPanel() {
    LoginPanel::InitArgs args(UIString(L"<p>Log in to share this project with your team. No account yet? "
                                       L"<a href=\"https://example.org/join\">Make one</a>.</p>"),
                              UIString(L"Sign in"), nullptr);
    args.screenPosition = XY<int>(100, 100);
    args.modal = false;
    auto* panel = new LoginPanel(args);
    GlobManager::realize(panel);
    window = panel;
    return panel;
  }

  void failedLogin() {
    LoginPanel* panel = loginPanel();
    HeadlessInput::clickOn(*panel->getNameBox());
    HeadlessInput::typeText("editor");
    HeadlessInput::clickOn(*panel->getPasswordBox());
    HeadlessInput::typeText("guess");
    panel->showErrorMessage(UIString(L"Wrong name or password"));
  }

  StandardPanel* window = nullptr;
};

TEST_F(CredentialsGolden, PasswordBoxHiddenAtScaleOne) {
  openPasswordBox();
  EXPECT_TRUE(windowMatches("password_hidden_scale1"));
}

TEST_F(CredentialsGolden, PasswordBoxRevealedAtScaleOne) {
  HeadlessInput::clickOn(*openPasswordBox()->getRevealButton());
  EXPECT_TRUE(windowMatches("password_revealed_scale1"));
}

TEST_F(CredentialsGolden, PasswordBoxHiddenAtScaleTwo) {
  UifStd::setScale(2.0);
  openPasswordBox();
  EXPECT_TRUE(windowMatches("password_hidden_scale2"));
}

TEST_F(CredentialsGolden, PasswordBoxRevealedAtScaleTwo) {
  UifStd::setScale(2.0);
  HeadlessInput::clickOn(*openPasswordBox()->getRevealButton());
  EXPECT_TRUE(windowMatches("password_revealed_scale2"));
}

TEST_F(CredentialsGolden, SignInWidgetAtScaleOne) {
  signIn();
  EXPECT_TRUE(windowMatches("sign_in_scale1"));
}

TEST_F(CredentialsGolden, SignInWidgetAtScaleTwo) {
  UifStd::setScale(2.0);
  signIn();
  EXPECT_TRUE(windowMatches("sign_in_scale2"));
}

TEST_F(CredentialsGolden, ServerConnectionWidgetAtScaleOne) {
  serverConnection();
  EXPECT_TRUE(windowMatches("server_connection_scale1"));
}

TEST_F(CredentialsGolden, ServerConnectionWidgetAtScaleTwo) {
  UifStd::setScale(2.0);
  serverConnection();
  EXPECT_TRUE(windowMatches("server_connection_scale2"));
}

TEST_F(CredentialsGolden, LoginPanelAtScaleOne) {
  loginPanel();
  EXPECT_TRUE(windowMatches("login_panel_scale1"));
}

TEST_F(CredentialsGolden, LoginPanelAtScaleTwo) {
  UifStd::setScale(2.0);
  loginPanel();
  EXPECT_TRUE(windowMatches("login_panel_scale2"));
}

TEST_F(CredentialsGolden, LoginPanelAfterAFailedLoginAtScaleOne) {
  failedLogin();
  EXPECT_TRUE(windowMatches("login_panel_error_scale1"));
}

TEST_F(CredentialsGolden, LoginPanelAfterAFailedLoginAtScaleTwo) {
  UifStd::setScale(2.0);
  failedLogin();
  EXPECT_TRUE(windowMatches("login_panel_error_scale2"));
}

} // namespace
