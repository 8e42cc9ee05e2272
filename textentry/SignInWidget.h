#pragma once

#include <zowidgets/host/toolkit/TabOrderableHost.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/Credentials.h>
#include <zowidgets/values/notify/Broadcaster.h>

class PasswordEntryBox;

// What a sign-in widget tells its listeners: the kind of the text box event
// that caused it (TextBoxEvent::kTextChanged or kReturnPressed) and what the
// two boxes now hold.
struct ZO_API SignInWidgetEvent {
  int kind = TextBoxEvent::kTextChanged;
  Credentials credentials;
};

// A user name box above a password box. Listeners hear of every change to
// either, and of Return in the password box; Return in the name box is
// nobody's business, so that a half-filled form is never sent.
class ZO_API SignInWidget : public StandardPanel, public TabOrderableHost, public Broadcaster<SignInWidgetEvent> {
public:
  using InitArgs = StandardPanel::InitArgs;

  explicit SignInWidget(InitArgs const& args);
  char const* idstring() const override { return "SignInWidget"; }

  // The height of each box, and of the whole widget with its margins.
  static int textBoxHeight();
  static int calcHeight();

  Credentials getCredentials() const;
  // Shows these credentials without raising an event.
  void setCredentials(Credentials const& credentials);
  // Ghost labels resolved as every text-entry box resolves them
  // (resolveGhostLabel).
  void setGhostLabels(UIString const& name, UIString const& password);
  // Whether the user may edit the name (a known user signing in again, say).
  void setNameActive(bool active);
  bool isNameActive() const noexcept { return nameActive_; }
  // Whether the password's eye may be used.
  void setAllowPasswordReveal(bool allow, eRedrawFlag redraw);

  TextBox* getNameBox() const noexcept { return name_; }
  PasswordEntryBox* getPasswordBox() const noexcept { return password_; }

  // To the first empty box that may be edited, the name first; with both
  // filled the focus stays where it is. True when the focus moved.
  bool claimKbdFocus() override;
  void setActive(bool active, eRedrawFlag redraw) override;
  void resize(double width, double height) override;
  // The name box, then the password box's parts.
  void getTabOrderables(std::vector<TabOrderable*>& into) override;

  int handleTextEvents(TextBoxEvent const& event);

private:
  PasswordEntryBox* password_ = nullptr;
  TextBox* name_ = nullptr;
  bool nameActive_ = true;
};
