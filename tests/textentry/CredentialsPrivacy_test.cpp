#include "CredentialsTestSupport.h"

#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/base/configb.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/textentry/LoginPanel.h>
#include <zowidgets/textentry/PasswordEntryBox.h>
#include <zowidgets/textentry/ServerConnectionWidget.h>

#include <string>
#include <vector>

namespace {

constexpr char const* kPassword = "Wqm7#jZ";
constexpr wchar_t const* kWidePassword = L"Wqm7#jZ";

// Every line written to the log while it lives.
struct LogRecorder {
  LogRecorder() : id(addLogSink([this](std::string_view line) { lines.emplace_back(line); })) {}
  ~LogRecorder() { removeLogSink(id); }
  std::vector<std::string> lines;
  int id;
};

void collect(Glob& widget, std::vector<Glob*>& into) {
  into.push_back(&widget);
  for (Glob* child : widget.getChildren())
    collect(*child, into);
}

Zo::Box<int> screenBoxOf(Glob const& widget) {
  XY<int> const at = widget.screenPosition();
  return Zo::Box<int>(at.x, at.y, at.x + widget.width(), at.y + widget.height());
}

struct CredentialsPrivacyTest : CredentialsTest {
  ServerConnectionWidget* connection = nullptr;
  LoginPanel* login = nullptr;

  // A server connection and a login panel, each with the password typed in
  // and shown for a moment, as a user would.
  void SetUp() override {
    CredentialsTest::SetUp();
    int const row = UifStd::getRowHeight();
    connection = add<ServerConnectionWidget>(
        ServerConnectionWidget::InitArgs(XY<int>(row * 12, ServerConnectionWidget::calcHeight())));
    typeInto(*connection->getAddressBox(), "media.example.org");
    typeInto(*connection->getSignInWidget()->getNameBox(), "editor");
    PasswordEntryBox* password = connection->getSignInWidget()->getPasswordBox();
    typeInto(*password->getTextBox(), kPassword);
    HeadlessInput::clickOn(*password->getRevealButton());
    HeadlessInput::clickOn(*password->getRevealButton());
    HeadlessInput::key(kKeyReturn);

    LoginPanel::InitArgs args(UIString(L"Log in to share the project."), UIString(L"Sign in"), window);
    args.screenPosition = XY<int>(900, 300);
    // Both windows stay open to the pointer.
    args.modal = false;
    login = new LoginPanel(args);
    GlobManager::realize(login);
    typeInto(*login->getNameBox(), "editor");
    typeInto(*login->getPasswordBox(), kPassword);
    HeadlessInput::key(kKeyReturn);
    pump();
    login->showErrorMessage(UIString(L"Wrong password"));
  }
  void TearDown() override {
    Tooltips::dismiss();
    CredentialsTest::TearDown();
  }

  std::vector<Glob*> everyWidget() {
    std::vector<Glob*> widgets;
    collect(*window, widgets);
    collect(*login, widgets);
    return widgets;
  }
};

TEST_F(CredentialsPrivacyTest, NoLogLineCarriesThePassword) {
  LogRecorder log;
  PasswordEntryBox* password = connection->getSignInWidget()->getPasswordBox();
  typeInto(*password->getTextBox(), "!");
  HeadlessInput::key(kKeyReturn);
  login->attemptLogIn();
  pump();
  // What an owner writes about the request it is about to use.
  LogBoth(connection->gatherUserData().describe().toUTF8().view());
  ASSERT_FALSE(log.lines.empty());
  EXPECT_NE(log.lines.back().find("editor"), std::string::npos);
  EXPECT_NE(log.lines.back().find("media.example.org"), std::string::npos);
  for (std::string const& line : log.lines)
    EXPECT_EQ(line.find(kPassword), std::string::npos) << line;
}

TEST_F(CredentialsPrivacyTest, NoTooltipCarriesThePassword) {
  TestClock clock;
  int shown = 0;
  for (Glob* widget : everyWidget()) {
    EXPECT_EQ(widget->getTooltip().getString().str().find(kWidePassword), std::wstring::npos) << widget->idstring();
    if (!widget->isShowing() || widget->width() == 0)
      continue;
    HeadlessInput::moveTo(HeadlessInput::pointOn(*widget));
    clock.advance(Tooltips::kRestMs + 1);
    pump();
    if (TooltipWindow* tip = Tooltips::showing()) {
      ++shown;
      EXPECT_EQ(tip->text().str().find(kWidePassword), std::wstring::npos) << widget->idstring();
    }
    Tooltips::dismiss();
  }
  EXPECT_GT(shown, 0) << "the eye at least has a tooltip";
}

TEST_F(CredentialsPrivacyTest, SavedStateHoldsNoPassword) {
  configb saved;
  window->dump(saved);
  login->dump(saved.child("login"));
  std::string const text = saved.toText().str();
  ASSERT_NE(text.find("width"), std::string::npos) << "the windows' state was saved";
  EXPECT_EQ(text.find(kPassword), std::string::npos);
  EXPECT_EQ(text.find("editor"), std::string::npos) << "nor the user name";
}

TEST_F(CredentialsPrivacyTest, AHiddenPasswordStaysOffTheClipboard) {
  OS().setClipboardText(L"before");
  HeadlessInput::clickOn(*connection->getSignInWidget()->getPasswordBox()->getTextBox());
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::key('c', kKeyCtrl);
  HeadlessInput::clickOn(*login->getPasswordBox());
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::key('c', kKeyCtrl);
  EXPECT_EQ(OS().clipboardText().str(), L"before");
}

// The hidden box shows exactly what a plain box showing as many bullets
// shows; revealed, it shows something else.
TEST_F(CredentialsPrivacyTest, TheHiddenBoxShowsBulletsNotTheCharacters) {
  set_kbd_focus(nullptr);
  PasswordEntryBox* password = connection->getSignInWidget()->getPasswordBox();
  TextBox* hidden = password->getTextBox();
  TextBox* bullets = window->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(hidden->getSize())),
                                                   Glob::Below(UifStd::getRowHeight(), connection));
  bullets->setString(LightweightString<wchar_t>(std::wstring(hidden->getString().size(), L'\u2022')));
  pump();
  Zo::Image::Surface const shownHidden = screen().grab(screenBoxOf(*hidden)).clone();
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(shownHidden, screen().grab(screenBoxOf(*bullets))), 0);

  HeadlessInput::clickOn(*password->getRevealButton());
  set_kbd_focus(nullptr);
  pump();
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(shownHidden, screen().grab(screenBoxOf(*hidden))), 0);
}

// Two passwords of one length look the same in the login panel's box.
TEST_F(CredentialsPrivacyTest, TheLoginPanelsBoxLooksTheSameForAnyPasswordOfOneLength) {
  set_kbd_focus(nullptr);
  TitleTextBox* box = login->getPasswordBox();
  pump();
  Zo::Image::Surface const first = screen().grab(screenBoxOf(*box)).clone();
  box->setString(L"xY0!pq9");
  ASSERT_EQ(box->getString().size(), std::wstring(kWidePassword).size());
  pump();
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(first, screen().grab(screenBoxOf(*box))), 0);
  box->setObfuscatedDisplay(false);
  pump();
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(first, screen().grab(screenBoxOf(*box))), 0);
}

} // namespace
