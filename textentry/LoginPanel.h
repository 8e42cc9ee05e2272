#pragma once

#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

class LinkAwareMultiLineTextBox;
class PushButton;
class TextLabel;
class TitleTextBox;

// A modal panel that asks for a user name and a password under a message
// (which may hold links) and hands them to its target as the data of a
// "StartLogin" message. It checks nothing itself: the target tries the
// login, closes the panel on success, or calls showErrorMessage and leaves
// it open for another try.
//
// The login button is active only while both boxes hold text, but Return
// in the password box asks for a login whatever they hold: the target
// decides what an empty name or password means.
class ZO_API LoginPanel : public StandardPanel {
public:
  // What the target receives with "StartLogin".
  struct ZO_API Credentials : iObject {
    Credentials(LightweightString<wchar_t> userName, LightweightString<wchar_t> password)
        : userName(std::move(userName)), password(std::move(password)) {}
    LightweightString<wchar_t> userName;
    LightweightString<wchar_t> password;
  };

  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() : InitArgs(UIString(), UIString(), nullptr) {}
    // Sized by calcSize for the message.
    InitArgs(UIString message, UIString title, Glob* target);
    UIString message;
    Glob* target = nullptr;
    UIString loginLabel{L"Log in"};
    bool modal = true;
  };

  explicit LoginPanel(InitArgs const& args);
  char const* idstring() const override { return "LoginPanel"; }
  eWindowKind windowKind() const override { return eWindowKind::kDialogue; }

  static LightweightString<char> loginMsg() { return "StartLogin"; }
  // The panel's outer size for a message.
  static XY<int> calcSize(LightweightString<wchar_t> const& message);

  // Sends the boxes' texts to the target; nothing without a live target. A
  // subclass may try the login itself instead.
  virtual void attemptLogIn();
  // Shows a line under the boxes, beside the login button; the panel stays.
  void showErrorMessage(UIString const& text);

  TitleTextBox* getNameBox() const noexcept { return name_; }
  TitleTextBox* getPasswordBox() const noexcept { return password_; }
  PushButton* getLoginButton() const noexcept { return login_; }
  TextLabel* getErrorLabel() const noexcept { return error_; }
  LinkAwareMultiLineTextBox* getMessageBox() const noexcept { return message_; }

  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

private:
  // The button is active while both boxes hold text.
  void updateLoginButton();

  LinkAwareMultiLineTextBox* message_ = nullptr;
  TitleTextBox* name_ = nullptr;
  TitleTextBox* password_ = nullptr;
  TextLabel* error_ = nullptr;
  PushButton* login_ = nullptr;
  Glob* target_ = nullptr;
  IdStamp targetStamp_ = IdStamp::null();
};
