#pragma once

#include <zowidgets/host/widgets/text/TextBox.h>

// A text box that is one field of several (the parts of an address, say) and
// tells its parent when the caret should leave it: "prev" when the user backs
// out of its start with Left or Backspace, "next" when the user goes past its
// end with Right or ".", or fills it up by typing; "paste" when Ctrl-V would
// paste text with a "." in it, which the parent spreads over all its fields.
// The parent decides where the focus goes.
class ZO_API CustomTextBox : public TextBox {
public:
  static constexpr char const* kNextMsg = "next";
  static constexpr char const* kPrevMsg = "prev";
  static constexpr char const* kPasteMsg = "paste";

  struct InitArgs : TextBox::InitArgs {
    using TextBox::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(TextBox::InitArgs const& args) : TextBox::InitArgs(args) {}
  };

  explicit CustomTextBox(InitArgs const& args) : TextBox(args) {}
  char const* idstring() const override { return "CustomTextBox"; }

  // Whether highlightAllText selects the text; when not, the call does
  // nothing, so that a field the user moves into keeps its caret.
  void setHighlightAllowed(bool allowed) noexcept { highlightAllowed_ = allowed; }
  bool isHighlightAllowed() const noexcept { return highlightAllowed_; }
  void highlightAllText() override;

  // Tells the box that the user has just filled the field before it and may
  // type the separator next: a "." as the very next key is taken as that
  // separator and ignored, instead of moving on again. Any key ends it.
  void setSeparatorPending(bool pending) noexcept { separatorPending_ = pending; }
  bool isSeparatorPending() const noexcept { return separatorPending_; }

  // Whether a paste of `text` goes to the parent rather than into this box.
  static bool isPasteForParent(LightweightString<wchar_t> const& text);

  int react(Event const& event) override;
  void handleKbdFocus(bool gained) override;

protected:
  int handleKeyboardEvent(int key) override;

private:
  bool caretAtStart() const noexcept;
  bool caretAtEnd() const noexcept;
  // Sends "next" when the box is full and the caret after its last character.
  void moveOnWhenFull();

  bool highlightAllowed_ = true;
  bool separatorPending_ = false;
};
