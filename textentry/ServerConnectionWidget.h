#pragma once

#include <zowidgets/host/shell/HTTPServer.h>
#include <zowidgets/host/toolkit/TabOrderableHost.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/SignInWidget.h>
#include <zowidgets/values/notify/Broadcaster.h>

// What a server connection widget tells its listeners: the whole request as
// the boxes now stand, and the kind of the text box event that caused it.
struct ZO_API ServerConnectionWidgetEvent {
  iHTTPServer::ConnectionRequest request;
  int kind = TextBoxEvent::kTextChanged;
};

// A server address box above a sign-in widget. Every keystroke in any box,
// and Return in the address or password box, tells the listeners the whole
// request, so that an owner can enable its connect button as the user types
// (isEligibleForConnection).
class ZO_API ServerConnectionWidget : public StandardPanel,
                                      public Broadcaster<ServerConnectionWidgetEvent>,
                                      public TabOrderableHost {
public:
  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
    // The address, the user and the password start from this; its other
    // fields go out unchanged in every request the widget gathers.
    iHTTPServer::ConnectionRequest request;
  };

  explicit ServerConnectionWidget(InitArgs const& args);
  char const* idstring() const override { return "ServerConnectionWidget"; }

  // The height of the whole widget with its margins.
  static int calcHeight();
  // True when the request names a server, a user and a password.
  static bool isEligibleForConnection(iHTTPServer::ConnectionRequest const& request);

  // The request given at construction with the address, user name and
  // password as the boxes hold them.
  iHTTPServer::ConnectionRequest gatherUserData() const;

  TextBox* getAddressBox() const noexcept { return url_; }
  SignInWidget* getSignInWidget() const noexcept { return signIn_; }

  // The focus goes to the first empty box, the address first.
  bool claimKbdFocus() override;
  void setActive(bool active, eRedrawFlag redraw) override;
  void resize(double width, double height) override;
  // The address box, then the sign-in widget's parts.
  void getTabOrderables(std::vector<TabOrderable*>& into) override;

  int handleURLEvents(TextBoxEvent const& event);
  int handleCredentialsEvents(SignInWidgetEvent const& event);

private:
  void tellListeners(int kind);
  // The address box's width: inset as far as the sign-in widget's boxes.
  int addressWidth() const;

  TextBox* url_ = nullptr;
  SignInWidget* signIn_ = nullptr;
  iHTTPServer::ConnectionRequest request_;
};
