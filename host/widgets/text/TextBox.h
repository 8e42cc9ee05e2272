#pragma once

#include <zowidgets/host/widgets/text/TextBoxBase.h>

// The plain one-line text box.
class ZO_API TextBox : public TextBoxBase {
public:
  struct InitArgs : TextBoxBase::InitArgs {
    using TextBoxBase::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(TextBoxBase::InitArgs const& args) : TextBoxBase::InitArgs(args) {}
  };

  explicit TextBox(InitArgs const& args) : TextBoxBase(args) {}
  char const* idstring() const override { return "TextBox"; }

  // Puts the caret at a character index (clamped to the text) with nothing
  // selected.
  void setCursorPosition(std::size_t position);
  // Selects the whole text, so that typing replaces it.
  virtual void highlightAllText();
};
