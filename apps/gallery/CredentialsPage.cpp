// Credentials entry: a server connection form whose Connect button follows
// what has been typed, and a login panel whose every attempt is answered
// with an error, as a server that refused it would.
#include "PageLayout.h"

#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/textentry/LoginPanel.h>
#include <zowidgets/textentry/ServerConnectionWidget.h>

namespace {

// Stands in for the server behind a login panel: every "StartLogin" is
// refused, and the panel stays open for another try.
class RefusingServer : public Glob {
public:
  RefusingServer() : Glob(GlobCreationInfo(XY<int>())) {}

  void answer(LoginPanel* panel) {
    panel_ = panel;
    panelStamp_ = EventHandler::stampOf(panel);
  }

  int react(Event const& event) override {
    if (!event.isMessage() || event.message != LoginPanel::loginMsg())
      return Glob::react(event);
    auto const* credentials = dynamic_cast<LoginPanel::Credentials const*>(event.data.get());
    if (credentials && EventHandler::valid(panel_, panelStamp_)) {
      std::wstring const who = credentials->userName.empty() ? L"nobody" : credentials->userName.str();
      panel_->showErrorMessage(UIString(LightweightString<wchar_t>(L"Refused: no server for " + who)));
    }
    return 1;
  }

private:
  LoginPanel* panel_ = nullptr;
  IdStamp panelStamp_ = IdStamp::null();
};

LightweightString<wchar_t> const kLoginMessage(L"<p>Log in to share this project with your team. No account yet? "
                                               L"<a href=\"https://example.org/join\">Make one</a>.</p>");

Glob* buildCredentialsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 14;
  int const buttonHeight = PushButton::calcHeight();
  // The status takes two lines: a request described runs long.
  XY<int> const userArea(width + 2 * m.gap, m.gap + ServerConnectionWidget::calcHeight() + m.rowGap + buttonHeight +
                                                m.rowGap + 2 * m.row + m.gap);
  StandardPanel* panel = openPageWindow(context, userArea, L"Credentials entry");

  ServerConnectionWidget::InitArgs connectionArgs(XY<int>(width, ServerConnectionWidget::calcHeight()));
  connectionArgs.request.serverAddress = L"media.example.org";
  connectionArgs.request.userName = L"editor";
  connectionArgs.request.port = 8443;
  auto* connection = panel->createWidget<ServerConnectionWidget>(connectionArgs, Glob::UserTopLeft(m.gap, m.gap));

  auto* connect = panel->createWidget<PushButton>(PushButton::InitArgs(L"Connect", XY<int>(0, buttonHeight)),
                                                  Glob::Below(m.rowGap, connection, kAlignEnd));
  auto* openLogin = panel->createWidget<PushButton>(
      PushButton::InitArgs(L"Log in to share\u2026", XY<int>(0, buttonHeight)), Glob::Below(m.rowGap, connection));
  TextLabel::InitArgs statusArgs(XY<int>(width, 2 * m.row));
  statusArgs.wordWrap = true;
  statusArgs.text = L"Type a password to enable Connect";
  auto* status = panel->createWidget<TextLabel>(statusArgs, Glob::UserBottomLeft(m.gap, m.gap));

  // Connect is there only while the request names a server, a user and a
  // password; the line below says what it waits for. The window is on show
  // already, so the button is drawn again as it changes.
  auto follow = [connect, status](iHTTPServer::ConnectionRequest const& request) {
    bool const eligible = ServerConnectionWidget::isEligibleForConnection(request);
    connect->setActive(eligible, kRedrawNow);
    bool const onlyPassword = !request.serverAddress.empty() && !request.userName.empty();
    status->setString(eligible       ? L"Ready to connect"
                      : onlyPassword ? L"Type a password to enable Connect"
                                     : L"Fill in all three to enable Connect");
  };
  follow(connection->gatherUserData());
  // Return in the address or the password box connects, as the button does.
  connection->addListener(Broadcaster<ServerConnectionWidgetEvent>::makeCallback(
      [follow, connect](ServerConnectionWidgetEvent const& event) {
        follow(event.request);
        if (event.kind == TextBoxEvent::kReturnPressed && connect->isActive())
          connect->press();
      }));
  connect->setCallback(Broadcaster<ButtonEvent>::makeCallback([connection, status](ButtonEvent const&) {
    LightweightString<wchar_t> const line = connection->gatherUserData().describe();
    LogBoth(line.toUTF8().view());
    status->setString(LightweightString<wchar_t>(L"Connecting: " + line.str()));
  }));

  auto* server = new RefusingServer;
  panel->addWidget(server);
  openLogin->setCallback(Broadcaster<ButtonEvent>::makeCallback([server, openLogin](ButtonEvent const&) {
    auto* login = new LoginPanel(LoginPanel::InitArgs(UIString(kLoginMessage), UIString(L"Sign in"), server));
    GlobManager::realize(login);
    GlobManager::placeBeside(login, openLogin);
    server->answer(login);
  }));

  panel->tabOrder().addTabStops(*connection, 0);
  panel->tabOrder().addTabStop(*openLogin, 1);
  panel->tabOrder().addTabStop(*connect, 2);
  connection->claimKbdFocus();
  return panel;
}

PageRegistrar const credentialsPage{
    "credentials", "Credentials entry",
    "A server connection form: address, user name and a password box whose eye shows and hides it; Connect is "
    "active only while all three are filled. \"Log in to share\" opens the modal login panel, whose every attempt "
    "the page refuses with an error line",
    buildCredentialsPage};

} // namespace
