#pragma once

#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/text/TextBoxEvent.h>
#include <zowidgets/host/widgets/text/TextEditCore.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <string>
#include <vector>

class ScrollBar;

// A sunken box of text lines in the interface font that scrolls vertically,
// by the wheel and by a scroll bar at its right that shows while the lines
// do not all fit. Subclasses say how many display lines there are at the
// text area's width and draw them from firstVisibleLine().
class ZO_API ScrollableTextBoxBase : public Glob {
public:
  using InitArgs = GlobCreationInfo;

  explicit ScrollableTextBoxBase(InitArgs const& args);
  char const* idstring() const override { return "ScrollableTextBoxBase"; }

  // The height of a box showing `lines` lines of a font of `fontSize`
  // pixels, with `margin` pixels around the text.
  static int calcHeightForLines(int lines, int fontSize, int margin);
  // Pixels between the edge of the box and the text; the widget gap unless
  // set.
  void setMargins(int margin);
  int getMargins() const noexcept { return margin_; }

  int lineHeight() const;
  int firstVisibleLine() const noexcept { return firstLine_; }
  // Lines that fit in the text area, at least 1.
  int visibleLineCount() const;
  // Scrolls so that `line` is at the top, within the lines there are.
  void scrollToLine(int line);
  ScrollBar* getScrollBar() const noexcept { return scrollBar_; }

  void resize(double width, double height) override;
  int react(Event const& event) override;

protected:
  virtual int numDisplayLines() const = 0;
  // Where the lines go, in the box's coordinates: inside the margins, left of
  // the scroll bar's place.
  Zo::Box<int> textArea() const;
  // The top of a display line in the box's coordinates.
  int lineTop(int line) const { return textArea().y1 - (line - firstLine_) * lineHeight(); }
  // The display line at a height in the box, not limited to the lines there
  // are.
  int lineAt(int y) const;
  // After the number of lines changed.
  void linesChanged();
  // Scrolls as little as needed to show the line.
  void revealLine(int line);
  Palette fieldPalette() const;

  void drawBackground(CanvasRenderer& renderer) override;

private:
  int maxFirstLine() const;
  void fitScrollBar();

  ScrollBar* scrollBar_ = nullptr;
  int margin_;
  int firstLine_ = 0;
};

// Plain text over many lines, wrapped at words to the box's width: the user
// types at the caret (Return starts a new line), selects with the mouse and
// the keyboard, and uses the clipboard. Listeners hear every change the user
// makes (TextBoxEvent::kTextChanged), and Ctrl+Return, which enters the
// text (TextBoxEvent::kReturnPressed); text set by the program raises no
// event.
class ZO_API MultiLineTextBox : public ScrollableTextBoxBase, public Broadcaster<TextBoxEvent> {
public:
  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    bool editable = true;
    UIString ghostLabel;
  };

  // A display line: the characters [start, end) of the text, without the
  // line break that may follow.
  struct Line {
    std::size_t start = 0;
    std::size_t end = 0;
  };

  explicit MultiLineTextBox(InitArgs const& args);
  char const* idstring() const override { return "MultiLineTextBox"; }

  // Replaces the text without raising an event; the caret goes to the end.
  void setString(LightweightString<wchar_t> const& text);
  LightweightString<wchar_t> getString() const;
  TextEditCore const& editor() const noexcept { return editor_; }
  // Puts the caret before the character at `position` (clamped to the text),
  // with no selection, and scrolls its line into view.
  void placeCaret(std::size_t position);
  // Types `text` at the caret, in place of the selection, as the user would;
  // each line break in it (\n, \r\n or \r) starts a new line.
  void insertAtCaret(std::wstring_view text);
  void setEditable(bool editable);
  bool isEditable() const noexcept { return editable_; }
  // Shown, dimmed, on the first line while the box is empty.
  void setGhostLabel(UIString const& label);
  UIString const& getGhostLabel() const noexcept { return ghostLabel_; }

  // The wrapped lines at the present width.
  std::vector<Line> const& displayLines() const;
  // The display line the caret is on.
  int caretLine() const;

  int react(Event const& event) override;
  void resize(double width, double height) override;

protected:
  int numDisplayLines() const override { return static_cast<int>(displayLines().size()); }
  void draw(CanvasRenderer& renderer) override;

private:
  int handleKey(int key);
  double advance(std::size_t start, std::size_t end) const;
  std::size_t indexAt(XY<int> point) const;
  std::size_t indexOnLine(int line, double x) const;
  // The furthest the caret goes on a display line.
  std::size_t lastCaretPosition(int line) const;
  void moveVertically(int lines, bool extend);
  void textEdited();
  void caretMoved();
  void copySelection() const;

  TextEditCore editor_;
  UIString ghostLabel_;
  mutable std::vector<Line> lines_;
  mutable std::wstring wrappedText_;
  mutable int wrappedWidth_ = -1;
  mutable unsigned wrappedFontSize_ = 0;
  // Where up and down aim, kept across a run of vertical moves.
  double goalX_ = -1.0;
  bool editable_ = true;
  bool dragging_ = false;
};
