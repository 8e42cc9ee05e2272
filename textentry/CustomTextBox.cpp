#include <zowidgets/textentry/CustomTextBox.h>

#include <zowidgets/host/shell/OS.h>

#include <cwctype>
#include <utility>

void CustomTextBox::highlightAllText() {
  if (highlightAllowed_)
    TextBox::highlightAllText();
}

bool CustomTextBox::isPasteForParent(LightweightString<wchar_t> const& text) {
  return text.find(L'.') != LightweightString<wchar_t>::npos;
}

int CustomTextBox::react(Event const& event) {
  if (event.type != Event::kTextInput)
    return TextBox::react(event);
  // Typed characters arrive here rather than with their key, so this is
  // where a box fills up.
  int const used = TextBox::react(event);
  moveOnWhenFull();
  return used;
}

void CustomTextBox::handleKbdFocus(bool gained) {
  TextBox::handleKbdFocus(gained);
  if (!gained)
    separatorPending_ = false;
}

int CustomTextBox::handleKeyboardEvent(int key) {
  int const code = key & ~kKeyModifierMask;
  bool const bare = (key & kKeyModifierMask) == 0;
  bool const command = (key & (kKeyCtrl | kKeyCmd)) != 0;
  if (std::exchange(separatorPending_, false) && bare && code == L'.')
    return 1;
  if (bare && (code == kKeyLeft || code == kKeyBackspace) && caretAtStart()) {
    sendMsg(kPrevMsg);
    return 1;
  }
  if (bare && (code == kKeyRight || code == L'.') && caretAtEnd()) {
    sendMsg(kNextMsg);
    return 1;
  }
  bool const paste = command && std::towlower(static_cast<wint_t>(code)) == L'v';
  if (paste && isEditable() && isPasteForParent(OS().clipboardText())) {
    sendMsg(kPasteMsg);
    return 1;
  }
  // Tab belongs to the panel's tab order.
  if (code == kKeyTab)
    return 0;
  int const used = TextBox::handleKeyboardEvent(key);
  // The keys above do only what they say. A printable key's character
  // follows as text input, which moves on there; Return reports the address
  // and stays. Any other key the box used (Delete, Home, End) moves on when
  // it leaves the box full with the caret at its end.
  bool const printable = code >= L' ' && code < kKeySpecial;
  bool const ruled = code == kKeyLeft || code == kKeyRight || code == kKeyBackspace || paste;
  if (used && !printable && !ruled && code != kKeyReturn)
    moveOnWhenFull();
  return used;
}

bool CustomTextBox::caretAtStart() const noexcept { return editor().caret() == 0 && !editor().hasSelection(); }

bool CustomTextBox::caretAtEnd() const noexcept {
  return editor().caret() == editor().size() && !editor().hasSelection();
}

void CustomTextBox::moveOnWhenFull() {
  std::size_t const limit = editor().sizeLimit();
  if (limit != 0 && editor().size() >= limit && caretAtEnd())
    sendMsg(kNextMsg);
}
