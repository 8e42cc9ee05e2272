#include <zowidgets/host/widgets/text/MultiLineTextBox.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <algorithm>
#include <cmath>
#include <cwctype>

namespace {

// Lines and outlines grow with the scale, never thinner than a pixel.
double lineWidth() { return std::max(1.0, std::round(UifStd::getScale())); }

int lineHeightOf(Glib::FontDesc const& font) {
  return static_cast<int>(std::ceil(Glib::TextLayout::fontMetrics(font).lineHeight));
}

double widthOf(std::wstring_view text, Glib::FontDesc const& font) {
  if (text.empty())
    return 0.0;
  return Glib::TextLayout::measure(LightweightString<wchar_t>(text), font).width;
}

// Greedy word wrap of the text to `width` pixels (no wrapping at 0 or less):
// a line takes words while they fit, with the spaces after its last word; a
// word wider than the width gets a line to itself.
std::vector<MultiLineTextBox::Line> wrap(std::wstring const& text, double width, Glib::FontDesc const& font) {
  std::vector<MultiLineTextBox::Line> lines;
  std::size_t paragraphStart = 0;
  while (true) {
    std::size_t const paragraphEnd = std::min(text.find(L'\n', paragraphStart), text.size());
    std::size_t start = paragraphStart;
    do {
      std::size_t end = start;
      std::size_t next = start;
      while (next < paragraphEnd) {
        std::size_t wordEnd = next;
        while (wordEnd < paragraphEnd && text[wordEnd] == L' ')
          ++wordEnd;
        while (wordEnd < paragraphEnd && text[wordEnd] != L' ')
          ++wordEnd;
        bool const fits =
            width <= 0.0 || widthOf(std::wstring_view(text).substr(start, wordEnd - start), font) <= width;
        if (!fits && end > start)
          break;
        while (wordEnd < paragraphEnd && text[wordEnd] == L' ')
          ++wordEnd;
        end = next = wordEnd;
      }
      lines.push_back(MultiLineTextBox::Line{start, end});
      start = end;
    } while (start < paragraphEnd);
    if (paragraphEnd >= text.size())
      break;
    paragraphStart = paragraphEnd + 1;
  }
  return lines;
}

} // namespace

// ---- ScrollableTextBoxBase ----

ScrollableTextBoxBase::ScrollableTextBoxBase(InitArgs const& args) : Glob(args), margin_(UifStd::getWidgetGap()) {
  scrollBar_ = createChild<ScrollBar>(ScrollBar::InitArgs(), TopRight(0, 0));
  // Shown by the first fit, once the subclass can count its lines.
  scrollBar_->setVisible(false);
}

int ScrollableTextBoxBase::calcHeightForLines(int lines, int fontSize, int margin) {
  Glib::FontDesc font = UifStd::getFont();
  font.setSize(static_cast<unsigned>(std::max(fontSize, 1)));
  return std::max(lines, 1) * lineHeightOf(font) + 2 * margin;
}

void ScrollableTextBoxBase::setMargins(int margin) {
  margin_ = std::max(margin, 0);
  linesChanged();
  invalidate();
}

int ScrollableTextBoxBase::lineHeight() const { return lineHeightOf(UifStd::getFont()); }

int ScrollableTextBoxBase::visibleLineCount() const { return std::max(textArea().height() / lineHeight(), 1); }

int ScrollableTextBoxBase::maxFirstLine() const { return std::max(numDisplayLines() - visibleLineCount(), 0); }

void ScrollableTextBoxBase::scrollToLine(int line) {
  int const clamped = std::clamp(line, 0, maxFirstLine());
  if (clamped != firstLine_) {
    firstLine_ = clamped;
    invalidate();
  }
  fitScrollBar();
}

void ScrollableTextBoxBase::revealLine(int line) {
  if (line < firstLine_)
    scrollToLine(line);
  else if (line >= firstLine_ + visibleLineCount())
    scrollToLine(line - visibleLineCount() + 1);
}

void ScrollableTextBoxBase::linesChanged() { scrollToLine(firstLine_); }

void ScrollableTextBoxBase::fitScrollBar() {
  int const lines = numDisplayLines();
  int const visible = visibleLineCount();
  scrollBar_->resize(ScrollBar::thickness(), std::max(height() - 2 * margin_, 0));
  scrollBar_->setPosition(XY<int>(width() - margin_ - ScrollBar::thickness(), margin_));
  scrollBar_->setVisible(lines > visible);
  scrollBar_->setThumbSize(lines > 0 ? std::min(1.0, static_cast<double>(visible) / lines) : 1.0);
  int const range = maxFirstLine();
  scrollBar_->setThumbPosition(range > 0 ? static_cast<double>(firstLine_) / range : 0.0);
}

Zo::Box<int> ScrollableTextBoxBase::textArea() const {
  int const right = width() - margin_ - ScrollBar::thickness() - UifStd::getWidgetGap();
  return Zo::Box<int>(margin_, margin_, std::max(right, margin_), std::max(height() - margin_, margin_));
}

int ScrollableTextBoxBase::lineAt(int y) const {
  int const fromTop = textArea().y1 - y;
  return firstLine_ + static_cast<int>(std::floor(static_cast<double>(fromTop) / lineHeight()));
}

void ScrollableTextBoxBase::resize(double width, double height) {
  Glob::resize(width, height);
  linesChanged();
}

int ScrollableTextBoxBase::react(Event const& event) {
  if (event.type == Event::kMouseWheel && event.wheel != 0) {
    scrollToLine(firstLine_ - event.wheel);
    return 1;
  }
  if (event.isMessage() && event.sourceWidget == scrollBar_) {
    if (event.message == ScrollBar::thumbMovedMsg)
      scrollToLine(static_cast<int>(std::lround(scrollBar_->getThumbPosition() * maxFirstLine())));
    else if (event.message == ScrollBar::leftButtonPressedMsg)
      scrollToLine(firstLine_ - 1);
    else if (event.message == ScrollBar::rightButtonPressedMsg)
      scrollToLine(firstLine_ + 1);
    else
      return 0;
    return 1;
  }
  return Glob::react(event);
}

Palette ScrollableTextBoxBase::fieldPalette() const { return makeChildPalette(getPalette(), kChildTextEntry); }

void ScrollableTextBoxBase::drawBackground(CanvasRenderer& renderer) {
  Palette const palette = fieldPalette();
  Colour const edge = hasKbdFocus() ? palette.selection() : palette.window(-3);
  renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(Zo::Box<int>(0, 0, width(), height())),
                                                        UifStd::getIndentWidth(), palette.window(), edge, lineWidth()));
}

// ---- MultiLineTextBox ----

MultiLineTextBox::MultiLineTextBox(InitArgs const& args)
    : ScrollableTextBoxBase(args), ghostLabel_(args.ghostLabel), editable_(args.editable) {
  setCanBeIt(true);
  editor_.setLineBreaksAllowed(true);
  linesChanged();
}

void MultiLineTextBox::setGhostLabel(UIString const& label) {
  ghostLabel_ = label;
  invalidate();
}

void MultiLineTextBox::setString(LightweightString<wchar_t> const& text) {
  editor_.setText(text.view());
  caretMoved();
}

void MultiLineTextBox::placeCaret(std::size_t position) {
  editor_.setCaret(std::min(position, editor_.size()));
  caretMoved();
}

LightweightString<wchar_t> MultiLineTextBox::getString() const { return LightweightString<wchar_t>(editor_.text()); }

void MultiLineTextBox::insertAtCaret(std::wstring_view text) {
  // Every kind of line break becomes "\n", and the whole text goes in as one
  // edit, so that one undo takes back a paste of many lines.
  std::wstring normalised;
  normalised.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != L'\r') {
      normalised += text[i];
      continue;
    }
    normalised += L'\n';
    if (i + 1 < text.size() && text[i + 1] == L'\n')
      ++i;
  }
  if (editor_.insert(normalised))
    textEdited();
}

void MultiLineTextBox::setEditable(bool editable) {
  editable_ = editable;
  invalidate();
}

std::vector<MultiLineTextBox::Line> const& MultiLineTextBox::displayLines() const {
  Glib::FontDesc const font = UifStd::getFont();
  int const width = textArea().width();
  if (lines_.empty() || wrappedText_ != editor_.text() || wrappedWidth_ != width || wrappedFontSize_ != font.size()) {
    wrappedText_ = editor_.text();
    wrappedWidth_ = width;
    wrappedFontSize_ = font.size();
    lines_ = wrap(wrappedText_, width, font);
  }
  return lines_;
}

int MultiLineTextBox::caretLine() const {
  std::vector<Line> const& lines = displayLines();
  std::size_t const caret = editor_.caret();
  auto const after = std::upper_bound(lines.begin(), lines.end(), caret,
                                      [](std::size_t index, Line const& line) { return index < line.start; });
  return static_cast<int>(after - lines.begin()) - 1;
}

double MultiLineTextBox::advance(std::size_t start, std::size_t end) const {
  return widthOf(std::wstring_view(editor_.text()).substr(start, end - start), UifStd::getFont());
}

std::size_t MultiLineTextBox::lastCaretPosition(int line) const {
  Line const& span = displayLines()[static_cast<std::size_t>(line)];
  std::wstring const& text = editor_.text();
  // The end of a wrapped line is the start of the next: stop before the
  // space it broke at, so that the caret stays on this line.
  bool const wrapped = span.end < text.size() && text[span.end] != L'\n';
  return wrapped && span.end > span.start ? span.end - 1 : span.end;
}

std::size_t MultiLineTextBox::indexOnLine(int line, double x) const {
  std::size_t const start = displayLines()[static_cast<std::size_t>(line)].start;
  std::size_t const last = lastCaretPosition(line);
  // The nearest character boundary on the line.
  double previous = 0.0;
  for (std::size_t index = start + 1; index <= last; ++index) {
    double const width = advance(start, index);
    if (width >= x)
      return (x - previous < width - x) ? index - 1 : index;
    previous = width;
  }
  return last;
}

std::size_t MultiLineTextBox::indexAt(XY<int> point) const {
  int const line = std::clamp(lineAt(point.y), 0, numDisplayLines() - 1);
  return indexOnLine(line, point.x - textArea().x0);
}

void MultiLineTextBox::moveVertically(int lines, bool extend) {
  int const line = caretLine();
  if (goalX_ < 0.0)
    goalX_ = advance(displayLines()[static_cast<std::size_t>(line)].start, editor_.caret());
  int const target = std::clamp(line + lines, 0, numDisplayLines() - 1);
  double const goal = goalX_;
  editor_.setCaret(indexOnLine(target, goal), extend);
  caretMoved();
  goalX_ = goal;
}

void MultiLineTextBox::textEdited() {
  caretMoved();
  broadcast(TextBoxEvent(TextBoxEvent::kTextChanged, this, getString()));
}

void MultiLineTextBox::caretMoved() {
  goalX_ = -1.0;
  linesChanged();
  revealLine(caretLine());
  invalidate();
}

void MultiLineTextBox::copySelection() const {
  if (editor_.hasSelection())
    OS().setClipboardText(LightweightString<wchar_t>(editor_.selectedText()));
}

void MultiLineTextBox::resize(double width, double height) {
  ScrollableTextBoxBase::resize(width, height);
  revealLine(caretLine());
}

int MultiLineTextBox::react(Event const& event) {
  switch (event.type) {
  case Event::kMouseDown: {
    if (!mouse_left_event(event))
      return 0;
    claimKbdFocus();
    dragging_ = editor_.pressAt(indexAt(event.position), event.clicks, (event.modifiers & kKeyShift) != 0);
    caretMoved();
    return 1;
  }
  case Event::kMouseMove:
    if (!dragging_)
      return 0;
    editor_.setCaret(indexAt(event.position), true);
    caretMoved();
    return 1;
  case Event::kMouseUp:
    dragging_ = false;
    return mouse_left_event(event) ? 1 : 0;
  case Event::kKeyDown:
    return handleKey(event.key);
  case Event::kTextInput:
    if (!editable_)
      return 0;
    insertAtCaret(toWide(event.text.view()).view());
    return 1;
  default:
    return ScrollableTextBoxBase::react(event);
  }
}

int MultiLineTextBox::handleKey(int key) {
  int const code = key & ~kKeyModifierMask;
  bool const extend = (key & kKeyShift) != 0;
  bool const command = (key & (kKeyCtrl | kKeyCmd)) != 0;
  switch (code) {
  case kKeyUp:
    moveVertically(-1, extend);
    return 1;
  case kKeyDown:
    moveVertically(1, extend);
    return 1;
  case kKeyPageUp:
    moveVertically(-visibleLineCount(), extend);
    return 1;
  case kKeyPageDown:
    moveVertically(visibleLineCount(), extend);
    return 1;
  case kKeyHome:
    editor_.setCaret(command ? 0 : displayLines()[static_cast<std::size_t>(caretLine())].start, extend);
    caretMoved();
    return 1;
  case kKeyEnd:
    editor_.setCaret(command ? editor_.size() : lastCaretPosition(caretLine()), extend);
    caretMoved();
    return 1;
  case kKeyReturn:
    if (command) {
      broadcast(TextBoxEvent(TextBoxEvent::kReturnPressed, this, getString()));
      return 1;
    }
    if (editable_)
      insertAtCaret(L"\n");
    return editable_ ? 1 : 0;
  default:
    break;
  }
  int const common =
      editor_.applyCommonKey(key, editable_,
                             {[this] { caretMoved(); }, [this] { textEdited(); }, [this] { copySelection(); },
                              [this] { insertAtCaret(OS().clipboardText().view()); }, true});
  if (common >= 0)
    return common;
  // A printable key: its character follows as a text event.
  bool const printable = code >= L' ' && code < kKeySpecial && (key & kKeyAlt) == 0;
  return printable && editable_ ? 1 : 0;
}

void MultiLineTextBox::draw(CanvasRenderer& renderer) {
  Palette const palette = fieldPalette();
  Zo::Box<int> const area = textArea();
  Zo::Box<int> const oldClip = renderer.clipBox();
  renderer.setClipBox(oldClip.intersect(area.translated(renderer.origin())));

  Glib::FontDesc const font = UifStd::getFont();
  Glib::FontMetrics const metrics = Glib::TextLayout::fontMetrics(font);
  int const height = lineHeight();
  double const baselineOffset = std::round((height - metrics.lineHeight) / 2.0 + metrics.ascent);
  bool const focused = hasKbdFocus();
  std::vector<Line> const& lines = displayLines();
  std::wstring const& text = editor_.text();
  if (text.empty() && !ghostLabel_.empty()) {
    LightweightString<wchar_t> const ghost = ghostLabel_.getString();
    Glib::TextDescription line(ghost, XY<double>(area.x0, lineTop(0) - baselineOffset), font, palette.text(-8));
    if (Glib::TextLayout::measure(ghost, font).width <= area.width()) {
      renderer.renderPrimitive(line);
    } else {
      // A ghost text wider than the box wraps, its first line where typed
      // text would start.
      double const top = lineTop(0) - std::round((height - metrics.lineHeight) / 2.0);
      Glib::TextDescription wrapped(ghost, Zo::Box<double>(area.x0, area.y0, area.x1, top), font, palette.text(-8));
      wrapped.wordWrap = true;
      wrapped.verticalAlignment = Glib::eTextVerticalAlignment::Top;
      renderer.renderPrimitive(wrapped);
    }
  }
  int const last = std::min(firstVisibleLine() + visibleLineCount() + 1, static_cast<int>(lines.size()));
  for (int line = firstVisibleLine(); line < last; ++line) {
    Line const& span = lines[static_cast<std::size_t>(line)];
    int const top = lineTop(line);
    std::size_t const selectionStart = std::max(editor_.selectionStart(), span.start);
    std::size_t const selectionEnd = std::min(editor_.selectionEnd(), span.end);
    if (focused && editor_.hasSelection() && selectionStart <= selectionEnd && editor_.selectionEnd() > span.start &&
        editor_.selectionStart() <= span.end) {
      // A selected line break shows as a little more selection past the text.
      bool const breakSelected = selectionEnd == span.end && editor_.selectionEnd() > span.end;
      double const x0 = std::round(area.x0 + advance(span.start, selectionStart));
      double const x1 = std::round(area.x0 + advance(span.start, selectionEnd)) + (breakSelected ? height / 3 : 0);
      if (x1 > x0)
        renderer.renderPrimitive(
            Glib::RectDescription(Zo::Box<double>(x0, top - height, x1, top), palette.selection()));
    }
    if (span.end > span.start)
      renderer.renderPrimitive(Glib::TextDescription(
          LightweightString<wchar_t>(text.substr(span.start, span.end - span.start)),
          XY<double>(area.x0, top - baselineOffset), font, editable_ ? palette.text() : palette.text(-4)));
  }
  if (focused && editable_) {
    int const line = caretLine();
    Line const& span = lines[static_cast<std::size_t>(line)];
    double const x = std::round(area.x0 + advance(span.start, editor_.caret()));
    int const top = lineTop(line);
    renderer.renderPrimitive(
        Glib::RectDescription(Zo::Box<double>(x, top - height, x + lineWidth(), top), palette.headingText()));
  }
  renderer.setClipBox(oldClip);
}
