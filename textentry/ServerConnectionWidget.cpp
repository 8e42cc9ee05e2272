#include <zowidgets/textentry/GhostLabel.h>
#include <zowidgets/textentry/ServerConnectionWidget.h>

#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

namespace {

constexpr ResId kServerAddressLabel = 12344;

// A margin above only: at the sides and below, the sign-in widget's own
// margin does, and the address box keeps the same inset at its sides, so
// that the three boxes line up.
ServerConnectionWidget::InitArgs withMargin(ServerConnectionWidget::InitArgs args) {
  if (!args.hasBorder) {
    Border border;
    border.setMargins(0, 0, UifStd::getIndentWidth(), 0);
    args.setBorder(border);
  }
  return args;
}

// From the address box to the sign-in widget, so that its name box lies as
// far below the address as its password box lies below the name.
int signInOffset() { return std::max(0, UifStd::getWidgetGap() - UifStd::getIndentWidth()); }

} // namespace

ServerConnectionWidget::ServerConnectionWidget(InitArgs const& args)
    : StandardPanel(withMargin(args)), request_(args.request) {
  int const indent = UifStd::getIndentWidth();
  TextBox::InitArgs url{GlobCreationInfo(XY<int>(addressWidth(), SignInWidget::textBoxHeight()))};
  url.ghostLabel = UIString(resolveGhostLabel(UIString(kServerAddressLabel)));
  url_ = createWidget<TextBox>(url, Glob::UserTopRight(indent, 0));
  url_->setEditable(true);
  url_->setString(request_.serverAddress);

  SignInWidget::InitArgs signIn{GlobCreationInfo(XY<int>(getUserArea().width(), SignInWidget::calcHeight()))};
  signIn_ = createWidget<SignInWidget>(signIn, Glob::UserTopLeft(0, SignInWidget::textBoxHeight() + signInOffset()));
  signIn_->setCredentials(Credentials{request_.userName, request_.password});

  url_->addListener(Broadcaster<TextBoxEvent>::makeCallback(this, &ServerConnectionWidget::handleURLEvents));
  signIn_->addListener(
      Broadcaster<SignInWidgetEvent>::makeCallback(this, &ServerConnectionWidget::handleCredentialsEvents));
}

// The margin above, the address box and the gap under it, and the sign-in
// widget with its own margins.
int ServerConnectionWidget::calcHeight() {
  return UifStd::getIndentWidth() + SignInWidget::textBoxHeight() + signInOffset() + SignInWidget::calcHeight();
}

bool ServerConnectionWidget::isEligibleForConnection(iHTTPServer::ConnectionRequest const& request) {
  return !request.serverAddress.empty() && !request.userName.empty() && !request.password.empty();
}

iHTTPServer::ConnectionRequest ServerConnectionWidget::gatherUserData() const {
  iHTTPServer::ConnectionRequest request = request_;
  Credentials const credentials = signIn_->getCredentials();
  request.serverAddress = url_->getString();
  request.userName = credentials.userName;
  request.password = credentials.password;
  return request;
}

bool ServerConnectionWidget::claimKbdFocus() {
  if (url_->getString().empty())
    return url_->claimKbdFocus();
  return signIn_->claimKbdFocus();
}

void ServerConnectionWidget::setActive(bool active, eRedrawFlag redraw) {
  url_->setActive(active, redraw);
  signIn_->setActive(active, redraw);
  StandardPanel::setActive(active, redraw);
}

void ServerConnectionWidget::resize(double width, double height) {
  StandardPanel::resize(width, height);
  // Made in the constructor, after the panel's first size.
  if (!url_ || !signIn_)
    return;
  url_->resize(addressWidth(), SignInWidget::textBoxHeight());
  signIn_->resize(getUserArea().width(), SignInWidget::calcHeight());
}

int ServerConnectionWidget::addressWidth() const {
  return std::max(0, getUserArea().width() - 2 * UifStd::getIndentWidth());
}

void ServerConnectionWidget::getTabOrderables(std::vector<TabOrderable*>& into) {
  into.push_back(url_);
  signIn_->getTabOrderables(into);
}

int ServerConnectionWidget::handleURLEvents(TextBoxEvent const& event) {
  tellListeners(event.kind);
  return 0;
}

int ServerConnectionWidget::handleCredentialsEvents(SignInWidgetEvent const& event) {
  tellListeners(event.kind);
  return 0;
}

void ServerConnectionWidget::tellListeners(int kind) {
  if (kind == TextBoxEvent::kTextChanged || kind == TextBoxEvent::kReturnPressed)
    broadcast(ServerConnectionWidgetEvent{gatherUserData(), kind});
}
