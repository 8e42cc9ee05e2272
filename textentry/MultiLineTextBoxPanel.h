#pragma once

#include <zowidgets/containers/DropDownButton2.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/text/TextBoxEvent.h>
#include <zowidgets/textentry/EmojiPanel.h>
#include <zowidgets/values/notify/Broadcaster.h>

class MultiLineTextBox;

// The finished text of a multi-line text panel.
struct ZO_API MultiLineTextBoxPanelEvent {
  LightweightString<wchar_t> text;
};

// A small pop-up editor for longer text: a scrolling multi-line box, an
// emoji drop-down beside it and an OK button. OK (or Ctrl+Return in the box)
// reports the whole text once and closes the panel; closing it any other way
// drops the text.
class ZO_API MultiLineTextBoxPanel : public StandardPanel, public Broadcaster<MultiLineTextBoxPanelEvent> {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    InitArgs(XY<int> size, LightweightString<wchar_t> const& text,
             Broadcaster<MultiLineTextBoxPanelEvent>::Callback callback = {});
    LightweightString<wchar_t> text;
    Broadcaster<MultiLineTextBoxPanelEvent>::Callback callback;
  };

  static Border border();
  // A text shown on one line: the first line that holds text, followed by
  // "..." when more lines follow; a text of one line, or of empty lines
  // only, as it is.
  static LightweightString<wchar_t> getDisplayString(LightweightString<wchar_t> const& text);

  explicit MultiLineTextBoxPanel(InitArgs const& args);
  char const* idstring() const override { return "MultiLineTextBoxPanel"; }

  // Puts the emoji in at the caret; the box takes the keyboard focus.
  virtual void insert(EmojiPanelEvent const& event);

  int handleEmojiEvent(EmojiPanelEvent const& event);
  int handleTextEntered(TextBoxEvent const& event);

  MultiLineTextBox* getTextBox() const noexcept { return textBox_; }
  DropDownButton2<EmojiPanel>* getEmojiButton() const noexcept { return emojiButton_; }

  // Escape closes the panel, dropping the text, as its close box does.
  bool closesOnEscape() const override { return true; }

protected:
  void handleDoIt() override;

private:
  void enterText();

  MultiLineTextBox* textBox_ = nullptr;
  DropDownButton2<EmojiPanel>* emojiButton_ = nullptr;
  bool entered_ = false;
};
