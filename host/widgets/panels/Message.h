#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/popups/MessageText.h>

#include <vector>

// A window that tells the user something: a title bar with a close box over
// its text, wrapped, in the message palette. Return and Escape close it too.
// Made with InitArgs(text, title), it is just big enough for its text.
class ZO_API Message : public MessageBase {
public:
  // The text laid out, as a message shows it.
  using Analysis = MessageText;

  struct InitArgs : MessageBase::InitArgs {
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : MessageBase::InitArgs(info) {}
    // Sized by calcSize for the text wrapped at the standard width.
    InitArgs(UIString text, UIString title);
    UIString text;
  };

  explicit Message(InitArgs const& args);
  char const* idstring() const override { return "Message"; }
  eWindowKind windowKind() const override { return eWindowKind::kDialogue; }

  // `text` wrapped at words to at most `maxWidth` pixels (0: the standard
  // width), and the size it then takes.
  static Analysis analyse(UIString const& text, int maxWidth = 0, Glib::FontDesc const& font = {});
  // The outer size of a message showing `text` over a row `footerHeight`
  // high (0: none) at least `footerWidth` wide.
  static XY<int> calcSize(Analysis const& text, int footerHeight = 0, int footerWidth = 0);
  // The standard widgets every message has: a title bar and a close box.
  static unsigned standardWidgets();

  LightweightString<wchar_t> const& getText() const noexcept { return text_.text; }
  // Where the text is drawn: the user area above any footer row, less a
  // widget gap round it.
  Zo::Box<int> getTextArea() const;
  // Closes the window after the current event.
  void close();

  int handleKeyboardEvent(int key) override;

protected:
  void draw(CanvasRenderer& renderer) override;
  // The height kept below the text for a row of buttons; none here.
  virtual int footerRowHeight() const { return 0; }

private:
  Analysis text_;
};

// A message with a row of buttons, the question it asks. Pressing a button
// runs its callback, then the window goes; it answers once, so presses after
// the first, before it has gone, do nothing. The close box and Escape close
// it without an answer. The first button has the keyboard focus at first;
// Return presses the focused button, or the first when none is focused.
class ZO_API Warn : public Message {
public:
  using Callback = Broadcaster<ButtonEvent>::Callback;

  struct InitArgs : Message::InitArgs {
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : Message::InitArgs(info) {}
    // Sized by calcSize for the text and the buttons.
    InitArgs(UIString text, std::vector<UIString> buttons, std::vector<Callback> callbacks = {}, UIString title = {});
    // Left to right. callbacks[i] belongs to buttons[i]; a missing or empty
    // one does nothing but close the window.
    std::vector<UIString> buttons;
    std::vector<Callback> callbacks;
    // While it is up, other windows take no input.
    bool modal = false;
  };

  explicit Warn(InitArgs const& args);
  char const* idstring() const override { return "warn"; }

  // The width of each button: enough for the longest label, and never less
  // than three row heights.
  static int calcButtonWidth(std::vector<UIString> const& buttons);
  // The buttons side by side, a widget gap apart.
  static int calcButtonRowWidth(std::vector<UIString> const& buttons);
  static XY<int> calcSize(Analysis const& text, std::vector<UIString> const& buttons);

  int getNumButtons() const noexcept { return static_cast<int>(buttons_.size()); }
  Button* getButton(int index) const;
  // The index of the button pressed; -1 until one is.
  int getAnswer() const noexcept { return answer_; }

  void handlePoot() override;
  int handleKeyboardEvent(int key) override;

protected:
  int footerRowHeight() const override;

private:
  void answer(int index, ButtonEvent const& event);

  std::vector<Button*> buttons_;
  std::vector<Callback> callbacks_;
  int answer_ = -1;
  bool closed_ = false;
};

// Opens a Warn with these buttons and callbacks, modal, at `screenPosition`
// (unset: the centre of the screen), and returns it.
ZO_API Warn* make_warn(UIString const& text, std::vector<UIString> const& buttons,
                       std::vector<Warn::Callback> const& callbacks = {}, UIString const& title = {},
                       XY<int> screenPosition = XY<int>::unset());
// Opens a Warn with one "OK" button that only closes it, not modal unless a
// modal window is up, which it then stacks on.
ZO_API Warn* makeMessage(UIString const& text, UIString const& title = {}, XY<int> screenPosition = XY<int>::unset());
