#pragma once

#include <zowidgets/host/base/Export.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The editing model of a one-line text entry, with no drawing: the text, a
// caret and an anchor (the selection lies between them), the moves a user
// makes, and the rules for what may be typed (a set of characters, a size
// limit). Positions are character indices, 0 to size().
class ZO_API TextEditCore {
public:
  // What setCharacters' set means.
  enum eCharacterRestriction : int {
    kNoRestriction = 0,
    kOnlyAllowed = 1, // only these characters may be entered
    kNotAllowed = 2,  // these characters are refused
  };

  std::wstring const& text() const noexcept { return text_; }
  std::size_t size() const noexcept { return text_.size(); }
  // Replaces the text, puts the caret at its end and clears the selection.
  // The text is kept as given, even past the size limit. The edits before
  // it can no longer be undone.
  void setText(std::wstring_view text);

  std::size_t caret() const noexcept { return caret_; }
  std::size_t anchor() const noexcept { return anchor_; }
  bool hasSelection() const noexcept { return caret_ != anchor_; }
  std::size_t selectionStart() const noexcept { return caret_ < anchor_ ? caret_ : anchor_; }
  std::size_t selectionEnd() const noexcept { return caret_ < anchor_ ? anchor_ : caret_; }
  std::wstring selectedText() const;

  // Moves the caret; with `extend` the anchor stays, making or growing a
  // selection, else the selection is dropped.
  void setCaret(std::size_t position, bool extend = false);
  // Left and right collapse a selection to its near end unless extending.
  void moveLeft(bool extend);
  void moveRight(bool extend);
  // To the start of the word at or before the caret.
  void moveWordLeft(bool extend);
  // To the start of the next word.
  void moveWordRight(bool extend);
  void moveHome(bool extend) { setCaret(0, extend); }
  void moveEnd(bool extend) { setCaret(text_.size(), extend); }
  void selectAll();
  // Selects the word at `position`, or the run of spaces or punctuation there.
  void selectWordAt(std::size_t position);
  // A mouse press at `position`: a double click (or more) selects the word
  // there, a single one puts the caret there (`extend`: Shift held). True
  // when a drag may follow to select.
  bool pressAt(std::size_t position, int clicks, bool extend);

  // Edits; each answers whether the text changed. Typing replaces the
  // selection with what passes the character rule and fits the size limit.
  bool insert(std::wstring_view typed);
  bool deleteBackward();
  bool deleteForward();
  bool deleteSelection();

  // Steps back through the edits, and forward again, text, caret and
  // selection together. A run of typing, or of deleting, with no caret move
  // between is one step; a paste or a cut is one. True when a step was taken.
  bool undo();
  bool redo();

  void setCharacters(std::wstring_view characters, eCharacterRestriction restriction);
  // A box of many lines lets line breaks ("\n") in; a one-line box keeps
  // them out, as every other control character.
  void setLineBreaksAllowed(bool allowed) noexcept { lineBreaksAllowed_ = allowed; }
  bool accepts(wchar_t character) const noexcept;
  // 0: no limit.
  void setSizeLimit(std::size_t limit) { sizeLimit_ = limit; }
  std::size_t sizeLimit() const noexcept { return sizeLimit_; }

  // What an editor does when a key common to every editor asks for it.
  struct KeyActions {
    std::function<void()> caretMoved;
    std::function<void()> textEdited;
    std::function<void()> copySelection;
    std::function<void()> paste;
    bool mayCut = true; // whether a cut may delete what it copied
  };
  // Carries out Left and Right (by words with Ctrl or Cmd, extending with
  // Shift), Backspace, Delete (only when `editable`), Ctrl+A and the
  // clipboard keys Ctrl+C, X and V. Answers 1 when the key was taken, 0 for
  // a Ctrl or Cmd key no editor uses, -1 for any other key. Home, End,
  // Return and the vertical keys differ between editors: an editor handles
  // those first.
  int applyCommonKey(int key, bool editable, KeyActions const& actions);

  static bool isWordCharacter(wchar_t character) noexcept;

private:
  enum class eEdit { kNone, kTyping, kDeleting, kOther };
  struct State {
    std::wstring text;
    std::size_t caret;
    std::size_t anchor;
  };
  // Keeps the state an edit of this kind is about to change, unless it
  // goes on a run of the same kind.
  void rememberBefore(eEdit edit);
  void restore(State const& state);
  // Takes the last state off `from`, keeping the present one on `to`.
  bool step(std::vector<State>& from, std::vector<State>& to);
  void eraseSelection();
  void placeCaret(std::size_t position);

  std::wstring text_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
  std::vector<State> undone_;
  std::vector<State> redone_;
  eEdit lastEdit_ = eEdit::kNone;
  std::wstring characters_;
  eCharacterRestriction restriction_ = kNoRestriction;
  std::size_t sizeLimit_ = 0;
  bool lineBreaksAllowed_ = false;
};
