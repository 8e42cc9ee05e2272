#pragma once

#include <zowidgets/host/toolkit/TabOrderableHost.h>
#include <zowidgets/host/widgets/buttons/CycleButton.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/values/notify/Broadcaster.h>

// A password box: a text box whose characters show as bullets, and beside it
// an eye button that shows and hides them. The password starts hidden; the
// first click on the eye shows it, the next hides it again. The eye shows the
// present state: struck through while the password is hidden, open while it
// shows. A click on the eye leaves the keyboard focus in the box.
//
// Listeners hear the text box's events as if from this widget: the event's
// source is the PasswordEntryBox.
class ZO_API PasswordEntryBox : public StandardPanel, public TabOrderableHost, public Broadcaster<TextBoxEvent> {
public:
  // The eye's states.
  enum eRevealState : int { kHidden = 0, kRevealed = 1 };
  // The eye's icons, by state.
  static constexpr char const* kHiddenIcon = "eye-closed.png";
  static constexpr char const* kRevealedIcon = "eye-open.png";

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
    Glib::eTextAlignment alignment = Glib::eTextAlignment::Left;
  };

  explicit PasswordEntryBox(InitArgs const& args);
  char const* idstring() const override { return "PasswordEntryBox"; }

  // Replaces the password without raising an event.
  void setString(LightweightString<wchar_t> const& password);
  LightweightString<wchar_t> getString() const;
  void setGhostLabel(UIString const& label);
  // Binds the text box to a value (it is sent on Return and on losing the
  // keyboard focus).
  void setDataAdaptor(Zo::Ptr<ValAdaptorBase<LightweightString<wchar_t>>> const& adaptor);
  // Whether the eye may be used. Made inactive, it hides the password again.
  void setShowPasswordActive(bool active, eRedrawFlag redraw);
  bool isPasswordRevealed() const;

  TextBox* getTextBox() const noexcept { return textBox_; }
  CycleButton* getRevealButton() const noexcept { return reveal_; }

  // The focus goes to the text box.
  bool claimKbdFocus() override;
  void setActive(bool active, eRedrawFlag redraw) override;
  void resize(double width, double height) override;
  // The text box, then the eye.
  void getTabOrderables(std::vector<TabOrderable*>& into) override;

  // The eye was clicked: shows or hides the password to match its state.
  int toggleShowPassword(ButtonEvent const& event);
  // Passes the text box's events on, with this widget as their source.
  int handleTextEvents(TextBoxEvent const& event);

private:
  // Hides or shows the password as the eye stands.
  void showRevealState();

  CycleButton* reveal_ = nullptr;
  TextBox* textBox_ = nullptr;
  bool revealAllowed_ = true;
};
