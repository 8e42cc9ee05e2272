#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/widgets/text/TextEditCore.h>

#include <glib.h>

#include <algorithm>
#include <cwctype>

namespace {

// Characters fall into three classes so that a double click or a word move
// stops where the class changes.
int characterClass(wchar_t character) {
  if (TextEditCore::isWordCharacter(character))
    return 0;
  return g_unichar_isspace(static_cast<gunichar>(character)) ? 1 : 2;
}

} // namespace

bool TextEditCore::isWordCharacter(wchar_t character) noexcept {
  // By the character's Unicode class, whatever the C library's locale (the
  // program's is "C", where only ASCII letters are letters): "ß", "é" and
  // a combining accent belong to their word.
  auto const unicode = static_cast<gunichar>(character);
  return character == L'_' || g_unichar_isalnum(unicode) || g_unichar_ismark(unicode);
}

void TextEditCore::setText(std::wstring_view text) {
  text_.assign(text);
  caret_ = anchor_ = text_.size();
  undone_.clear();
  redone_.clear();
  lastEdit_ = eEdit::kNone;
}

std::wstring TextEditCore::selectedText() const {
  return text_.substr(selectionStart(), selectionEnd() - selectionStart());
}

void TextEditCore::setCaret(std::size_t position, bool extend) {
  caret_ = std::min(position, text_.size());
  if (!extend)
    anchor_ = caret_;
  // A move ends a run of typing: what is typed next is a step of its own.
  lastEdit_ = eEdit::kNone;
}

void TextEditCore::placeCaret(std::size_t position) { caret_ = anchor_ = std::min(position, text_.size()); }

void TextEditCore::moveLeft(bool extend) {
  if (hasSelection() && !extend)
    setCaret(selectionStart());
  else if (caret_ > 0)
    setCaret(caret_ - 1, extend);
  else
    setCaret(caret_, extend);
}

void TextEditCore::moveRight(bool extend) {
  if (hasSelection() && !extend)
    setCaret(selectionEnd());
  else
    setCaret(caret_ + 1, extend);
}

void TextEditCore::moveWordLeft(bool extend) {
  std::size_t position = caret_;
  while (position > 0 && !isWordCharacter(text_[position - 1]))
    --position;
  while (position > 0 && isWordCharacter(text_[position - 1]))
    --position;
  setCaret(position, extend);
}

void TextEditCore::moveWordRight(bool extend) {
  std::size_t position = caret_;
  while (position < text_.size() && isWordCharacter(text_[position]))
    ++position;
  while (position < text_.size() && !isWordCharacter(text_[position]))
    ++position;
  setCaret(position, extend);
}

void TextEditCore::selectAll() {
  anchor_ = 0;
  caret_ = text_.size();
}

void TextEditCore::selectWordAt(std::size_t position) {
  if (text_.empty())
    return;
  // A click past the last character means the last one.
  position = std::min(position, text_.size() - 1);
  int const kind = characterClass(text_[position]);
  std::size_t start = position;
  std::size_t end = position + 1;
  while (start > 0 && characterClass(text_[start - 1]) == kind)
    --start;
  while (end < text_.size() && characterClass(text_[end]) == kind)
    ++end;
  anchor_ = start;
  caret_ = end;
}

bool TextEditCore::insert(std::wstring_view typed) {
  std::wstring accepted;
  for (wchar_t character : typed)
    if (accepts(character))
      accepted += character;
  std::size_t const remaining = text_.size() - (selectionEnd() - selectionStart());
  if (sizeLimit_ != 0)
    accepted.resize(std::min(accepted.size(), sizeLimit_ > remaining ? sizeLimit_ - remaining : 0));
  if (accepted.empty())
    return false;
  // A key's character runs on with the ones before; a paste is a step, and
  // so is typing over a selection, which the next keys then run on from.
  bool const keystroke = typed.size() == 1;
  rememberBefore(keystroke && !hasSelection() ? eEdit::kTyping : eEdit::kOther);
  if (keystroke)
    lastEdit_ = eEdit::kTyping;
  eraseSelection();
  text_.insert(caret_, accepted);
  placeCaret(caret_ + accepted.size());
  return true;
}

void TextEditCore::eraseSelection() {
  std::size_t const start = selectionStart();
  text_.erase(start, selectionEnd() - start);
  placeCaret(start);
}

bool TextEditCore::deleteSelection() {
  if (!hasSelection())
    return false;
  rememberBefore(eEdit::kOther);
  eraseSelection();
  return true;
}

bool TextEditCore::deleteBackward() {
  if (deleteSelection())
    return true;
  if (caret_ == 0)
    return false;
  rememberBefore(eEdit::kDeleting);
  text_.erase(caret_ - 1, 1);
  placeCaret(caret_ - 1);
  return true;
}

bool TextEditCore::deleteForward() {
  if (deleteSelection())
    return true;
  if (caret_ >= text_.size())
    return false;
  rememberBefore(eEdit::kDeleting);
  text_.erase(caret_, 1);
  return true;
}

void TextEditCore::rememberBefore(eEdit edit) {
  redone_.clear();
  bool const runsOn = edit == lastEdit_ && edit != eEdit::kOther;
  lastEdit_ = edit;
  if (runsOn)
    return;
  // Enough for any one box; the oldest steps go first.
  constexpr std::size_t kSteps = 100;
  if (undone_.size() == kSteps)
    undone_.erase(undone_.begin());
  undone_.push_back(State{text_, caret_, anchor_});
}

void TextEditCore::restore(State const& state) {
  text_ = state.text;
  caret_ = state.caret;
  anchor_ = state.anchor;
  lastEdit_ = eEdit::kNone;
}

bool TextEditCore::undo() { return step(undone_, redone_); }

bool TextEditCore::redo() { return step(redone_, undone_); }

bool TextEditCore::step(std::vector<State>& from, std::vector<State>& to) {
  if (from.empty())
    return false;
  to.push_back(State{text_, caret_, anchor_});
  restore(from.back());
  from.pop_back();
  return true;
}

void TextEditCore::setCharacters(std::wstring_view characters, eCharacterRestriction restriction) {
  characters_.assign(characters);
  restriction_ = restriction;
}

bool TextEditCore::accepts(wchar_t character) const noexcept {
  if (character == L'\n' && lineBreaksAllowed_)
    return true;
  // Control characters (line breaks, tabs) never enter a one-line box.
  if (character < L' ' || character == 0x7F)
    return false;
  bool const listed = characters_.find(character) != std::wstring::npos;
  switch (restriction_) {
  case kOnlyAllowed:
    return listed;
  case kNotAllowed:
    return !listed;
  default:
    return true;
  }
}

bool TextEditCore::pressAt(std::size_t position, int clicks, bool extend) {
  if (clicks >= 2) {
    selectWordAt(position);
    return false;
  }
  setCaret(position, extend);
  return true;
}

int TextEditCore::applyCommonKey(int key, bool editable, KeyActions const& actions) {
  int const code = key & ~kKeyModifierMask;
  bool const extend = (key & kKeyShift) != 0;
  bool const command = (key & (kKeyCtrl | kKeyCmd)) != 0;
  switch (code) {
  case kKeyLeft:
    command ? moveWordLeft(extend) : moveLeft(extend);
    actions.caretMoved();
    return 1;
  case kKeyRight:
    command ? moveWordRight(extend) : moveRight(extend);
    actions.caretMoved();
    return 1;
  case kKeyBackspace:
    // With Control, the word before the caret (or the run of spaces).
    if (editable && command && !hasSelection())
      moveWordLeft(true);
    if (editable && deleteBackward())
      actions.textEdited();
    return 1;
  case kKeyDelete:
    if (editable && command && !hasSelection())
      moveWordRight(true);
    if (editable && deleteForward())
      actions.textEdited();
    return 1;
  default:
    break;
  }
  if (!command)
    return -1;
  switch (std::towlower(static_cast<wint_t>(code))) {
  case L'a':
    selectAll();
    actions.caretMoved();
    return 1;
  case L'c':
    actions.copySelection();
    return 1;
  case L'x':
    actions.copySelection();
    if (editable && actions.mayCut && deleteSelection())
      actions.textEdited();
    return 1;
  case L'v':
    if (editable)
      actions.paste();
    return 1;
  case L'z':
    // Ctrl+Z steps back; with Shift, forward again, as Ctrl+Y does.
    if (editable && (extend ? redo() : undo()))
      actions.textEdited();
    return 1;
  case L'y':
    if (editable && redo())
      actions.textEdited();
    return 1;
  default:
    return 0;
  }
}
