#include <zowidgets/host/widgets/text/TextBoxBase.h>

#include <zowidgets/host/widgets/buttons/detail/FocusRing.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>
#include <cwctype>

namespace {

constexpr wchar_t kObfuscationBullet = L'\u2022';
constexpr double kEyeIconSize = 16.0;

// Between a field's edges and its text.
int textPadding() { return UifStd::getWidgetGap(); }

// Lines and outlines grow with the scale, never thinner than a pixel.
double lineWidth() { return std::max(1.0, std::round(UifStd::getScale())); }

// An inactive box is drawn towards its background, as inactive buttons and
// check boxes are, so that it is plain why it takes no typing.
Colour unlessActive(Glob const& box, Colour const& colour, Colour const& background) {
  return box.isActive() ? colour : Palette::inactive(colour, background);
}

Glib::TextDescription textIn(std::wstring const& text, Zo::Box<double> const& box, Colour const& colour) {
  Glib::TextDescription description(LightweightString<wchar_t>(text), box, UifStd::getFont(), colour);
  description.verticalAlignment = Glib::eTextVerticalAlignment::Centre;
  return description;
}

} // namespace

TextBoxBase::TextBoxBase(InitArgs const& args) : Glob(args), ghostLabel_(args.ghostLabel), editable_(args.editable) {
  setCanBeIt(true);
}

void TextBoxBase::setString(LightweightString<wchar_t> const& text) {
  editor_.setText(text.view());
  modified_ = false;
  scrollToCaret();
  invalidate();
}

LightweightString<wchar_t> TextBoxBase::getString() const { return LightweightString<wchar_t>(editor_.text()); }

void TextBoxBase::setEditable(bool editable) {
  editable_ = editable;
  invalidate();
}

void TextBoxBase::setAlignment(Glib::eTextAlignment alignment) {
  alignment_ = alignment;
  invalidate();
}

void TextBoxBase::setGhostLabel(UIString const& label) {
  ghostLabel_ = label;
  invalidate();
}

void TextBoxBase::setObfuscatedDisplay(bool obfuscated) {
  obfuscated_ = obfuscated;
  revealed_ = false;
  scrollToCaret();
  invalidate();
}

void TextBoxBase::setShowPasswordControl(bool shown) {
  showPasswordControl_ = shown;
  invalidate();
}

void TextBoxBase::setCharacters(LightweightString<wchar_t> const& characters, eCharacterRestriction restriction) {
  editor_.setCharacters(characters.view(), restriction);
}

void TextBoxBase::requestCallback(LightweightString<char> const& message, Glob* target, int kinds) {
  callbackRequests_.push_back(CallbackRequest{message, target, kinds});
}

Zo::Box<int> TextBoxBase::getFieldBox() const { return Zo::Box<int>(0, 0, width(), height()); }

void TextBoxBase::setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) {
  editor_.setText(value.view());
  modified_ = false;
  scrollToCaret();
  if (redraw == kRedrawNow)
    invalidate();
}

int TextBoxBase::react(Event const& event) {
  switch (event.type) {
  case Event::kMouseDown: {
    if (!mouse_left_event(event))
      return 0;
    if (eyeBox().contains(event.position)) {
      toggleReveal();
      return 1;
    }
    setEyeFocused(false);
    dragging_ = editor_.pressAt(indexAt(event.position.x), event.clicks, (event.modifiers & kKeyShift) != 0);
    caretMoved();
    return 1;
  }
  case Event::kMouseMove:
    if (!dragging_)
      return 0;
    editor_.setCaret(indexAt(event.position.x), true);
    caretMoved();
    return 1;
  case Event::kMouseUp:
    dragging_ = false;
    return mouse_left_event(event) ? 1 : 0;
  case Event::kKeyDown:
    if (int const taken = handleEyeKey(event.key); taken >= 0)
      return taken;
    return handleKeyboardEvent(event.key);
  case Event::kTextInput:
    // The space that follows a Space pressed on the eye is not typed.
    if (isEyeFocused() && event.text.view() == " ")
      return 1;
    setEyeFocused(false);
    if (!editable_)
      return 0;
    if (editor_.insert(toWide(event.text.view()).view()))
      textEdited();
    return 1;
  case Event::kFocusIn:
    // Entered by Tab, the whole text is selected, ready to be typed over.
    if ((event.key & ~kKeyModifierMask) == kKeyTab) {
      editor_.selectAll();
      caretMoved();
    }
    // Shift-Tab from the widget after comes back to the eye first.
    setEyeFocused(event.key == (int{kKeyTab} | kKeyShift) && !eyeBox().empty());
    return Glob::react(event);
  default:
    return Glob::react(event);
  }
}

void TextBoxBase::handleKbdFocus(bool gained) {
  Glob::handleKbdFocus(gained);
  if (!gained) {
    eyeFocused_ = false;
    dragging_ = false;
    commit(false);
  }
}

void TextBoxBase::toggleReveal() {
  revealed_ = !revealed_;
  scrollToCaret();
  invalidate();
}

void TextBoxBase::setEyeFocused(bool focused) {
  if (focused == eyeFocused_)
    return;
  eyeFocused_ = focused;
  invalidate();
}

int TextBoxBase::handleEyeKey(int key) {
  if (eyeBox().empty()) {
    eyeFocused_ = false;
    return -1;
  }
  if (key == kKeyTab && !eyeFocused_) {
    setEyeFocused(true);
    return 1;
  }
  if (key == (int{kKeyTab} | kKeyShift) && eyeFocused_) {
    setEyeFocused(false);
    return 1;
  }
  if (!eyeFocused_ || (key & ~kKeyModifierMask) == kKeyTab)
    return -1;
  if (key == L' ' || key == kKeyReturn) {
    toggleReveal();
    return 1;
  }
  // Any other key is for the text again.
  setEyeFocused(false);
  return -1;
}

int TextBoxBase::handleKeyboardEvent(int key) {
  int const code = key & ~kKeyModifierMask;
  bool const extend = (key & kKeyShift) != 0;
  switch (code) {
  case kKeyHome:
    editor_.moveHome(extend);
    caretMoved();
    return 1;
  case kKeyEnd:
    editor_.moveEnd(extend);
    caretMoved();
    return 1;
  case kKeyReturn:
    commit(true);
    notify(TextBoxEvent::kReturnPressed);
    return 1;
  default:
    break;
  }
  int const common = editor_.applyCommonKey(key, editable_,
                                            {[this] { caretMoved(); }, [this] { textEdited(); },
                                             [this] { copySelection(); }, [this] { paste(); }, !obfuscated_});
  if (common >= 0)
    return common;
  // A printable key: its character follows as a text event.
  bool const printable = code >= L' ' && code < kKeySpecial && (key & kKeyAlt) == 0;
  return printable && editable_ ? 1 : 0;
}

void TextBoxBase::commit(bool force) {
  if (!force && !modified_)
    return;
  modified_ = false;
  requestSetNewDataValue(getString(), kDataChangeAll);
}

void TextBoxBase::textEdited() {
  modified_ = true;
  caretMoved();
  notify(TextBoxEvent::kTextChanged);
}

void TextBoxBase::caretMoved() {
  scrollToCaret();
  invalidate();
}

void TextBoxBase::notify(int kind) {
  broadcast(TextBoxEvent(kind, this, getString()));
  // A target may go away in the middle of the round; walk a snapshot.
  std::vector<CallbackRequest> const requests = callbackRequests_;
  for (CallbackRequest const& request : requests)
    if ((request.kinds & kind) != 0 && is_good_glob_ptr(request.target))
      Glob::sendMsg(request.target, request.message, this);
}

void TextBoxBase::copySelection() {
  // A password stays off the clipboard.
  if (obfuscated_ || !editor_.hasSelection())
    return;
  OS().setClipboardText(LightweightString<wchar_t>(editor_.selectedText()));
}

void TextBoxBase::paste() {
  if (!editable_)
    return;
  // Only the first line of what was copied goes into a one-line box.
  std::wstring clip = OS().clipboardText().str();
  clip = clip.substr(0, clip.find_first_of(L"\r\n"));
  if (editor_.insert(clip))
    textEdited();
}

Palette TextBoxBase::fieldPalette() const { return makeChildPalette(getPalette(), kChildTextEntry); }

std::wstring TextBoxBase::displayText() const {
  if (obfuscated_ && !revealed_)
    return std::wstring(editor_.size(), kObfuscationBullet);
  return editor_.text();
}

Zo::Box<int> TextBoxBase::eyeBox() const {
  if (!obfuscated_ || !showPasswordControl_)
    return Zo::Box<int>();
  Zo::Box<int> const field = getFieldBox();
  return Zo::Box<int>(field.x1 - field.height(), field.y0, field.x1, field.y1);
}

int TextBoxBase::widthToShow(LightweightString<wchar_t> const& text) {
  double const textWidth = Glib::TextDescription::calcBounds(text, UifStd::getFont()).width();
  return static_cast<int>(std::ceil(textWidth)) + 2 * textPadding();
}

Zo::Box<int> TextBoxBase::textArea() const {
  Zo::Box<int> area = getFieldBox();
  int const padding = textPadding();
  area.x0 += padding;
  area.x1 -= eyeBox().empty() ? padding : eyeBox().width();
  return area;
}

void TextBoxBase::measureWhenChanged() const {
  std::wstring const text = displayText();
  unsigned const fontSize = UifStd::getFont().size();
  if (measured_ && text == measuredText_ && fontSize == measuredFontSize_)
    return;
  measured_ = true;
  measuredText_ = text;
  measuredFontSize_ = fontSize;
  textWidth_ = text.empty()
                   ? 0.0
                   : Glib::TextDescription::calcBounds(LightweightString<wchar_t>(text), UifStd::getFont()).width();
  prefixWidths_.clear();
}

double TextBoxBase::textWidth() const {
  measureWhenChanged();
  return textWidth_;
}

std::vector<double> const& TextBoxBase::prefixWidths() const {
  measureWhenChanged();
  if (prefixWidths_.empty()) {
    Glib::FontDesc const font = UifStd::getFont();
    prefixWidths_.assign(1, 0.0);
    for (std::size_t length = 1; length < measuredText_.size(); ++length)
      prefixWidths_.push_back(
          Glib::TextDescription::calcBounds(LightweightString<wchar_t>(measuredText_.substr(0, length)), font).width());
    if (!measuredText_.empty())
      prefixWidths_.push_back(textWidth_);
  }
  return prefixWidths_;
}

double TextBoxBase::textOriginX() const {
  Zo::Box<int> const area = textArea();
  double const width = textWidth();
  if (width > area.width())
    return area.x0 - scroll_;
  switch (alignment_) {
  case Glib::eTextAlignment::Centre:
    return area.x0 + std::floor((area.width() - width) / 2.0);
  case Glib::eTextAlignment::Right:
    return area.x1 - width;
  default:
    return area.x0;
  }
}

std::size_t TextBoxBase::indexAt(int x) const {
  std::vector<double> const& widths = prefixWidths();
  double const offset = x - textOriginX();
  // The first boundary past the point, or the one before it if that is nearer.
  auto const after = std::lower_bound(widths.begin(), widths.end(), offset);
  if (after == widths.end())
    return widths.size() - 1;
  if (after != widths.begin() && offset - *(after - 1) < *after - offset)
    return static_cast<std::size_t>(after - 1 - widths.begin());
  return static_cast<std::size_t>(after - widths.begin());
}

void TextBoxBase::scrollToCaret() {
  double const visible = std::max(0, textArea().width() - static_cast<int>(lineWidth()));
  if (textWidth() <= visible) {
    scroll_ = 0.0;
    return;
  }
  std::vector<double> const& widths = prefixWidths();
  double const caretX = widths[editor_.caret()];
  if (caretX - scroll_ > visible)
    scroll_ = caretX - visible;
  else if (caretX < scroll_)
    scroll_ = caretX;
  scroll_ = std::clamp(scroll_, 0.0, widths.back() - visible);
}

WidgetSurround TextBoxBase::getLightInsetSurround() { return WidgetSurround::all(static_cast<int>(lineWidth())); }

void TextBoxBase::drawBackground(CanvasRenderer& renderer) {
  Palette const palette = fieldPalette();
  Colour const around = getPalette().window();
  // Focused, the edge takes the focus ring's colour, which stands out from
  // the field as the plain selection colour did not.
  Colour const edge = unlessActive(
      *this, hasKbdFocus() ? FocusRing::colourOver(palette, palette.window()) : palette.window(-3), around);
  double const radius = UifStd::getIndentWidth();
  renderer.renderPrimitive(Glib::RoundedRectDescription(
      Glib::toDoubleBox(getFieldBox()), radius, unlessActive(*this, palette.window(), around), edge, lineWidth()));
}

void TextBoxBase::draw(CanvasRenderer& renderer) {
  Palette const palette = fieldPalette();
  Zo::Box<int> const area = textArea();
  bool const focused = hasKbdFocus();
  Zo::Box<int> const oldClip = renderer.clipBox();
  renderer.setClipBox(oldClip.intersect(area.translated(renderer.origin())));

  Zo::Box<double> const field = Glib::toDoubleBox(getFieldBox());
  if (editor_.size() == 0) {
    std::wstring const ghost = ghostLabel_.empty() ? std::wstring() : ghostLabel_.getString().str();
    if (!ghost.empty()) {
      Glib::TextDescription description = textIn(ghost, Zo::Box<double>(area.x0, field.y0, area.x1, field.y1),
                                                 unlessActive(*this, palette.text(-8), palette.window()));
      description.alignment = alignment_;
      renderer.renderPrimitive(description);
    }
  }

  double const originX = textOriginX();
  Glib::TextDescription text =
      textIn(displayText(), Zo::Box<double>(originX, field.y0, originX + textWidth() + 1.0, field.y1),
             unlessActive(*this, editable_ ? palette.text() : palette.text(-4), palette.window()));
  Glib::FontMetrics const metrics = Glib::TextLayout::fontMetrics(text.font);
  double const baseline = text.baselineStart().y;
  double const textBottom = std::floor(baseline - metrics.descent);
  double const textTop = std::ceil(baseline + metrics.ascent);

  if (focused && editor_.hasSelection()) {
    std::vector<double> const& widths = prefixWidths();
    Zo::Box<double> const selection(std::round(originX + widths[editor_.selectionStart()]), textBottom,
                                    std::round(originX + widths[editor_.selectionEnd()]), textTop);
    renderer.renderPrimitive(Glib::RectDescription(selection, palette.selection()));
  }
  if (editor_.size() != 0)
    renderer.renderPrimitive(text);
  if (focused && editable_ && !eyeFocused_) {
    double const caretX = std::round(originX + prefixWidths()[editor_.caret()]);
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<double>(caretX, textBottom, caretX + lineWidth(), textTop),
                                                   palette.headingText()));
  }
  renderer.setClipBox(oldClip);

  if (!eyeBox().empty())
    drawEye(renderer, palette);
  if (focused && eyeFocused_ && !eyeBox().empty())
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(Glib::toDoubleBox(eyeBox()), UifStd::getIndentWidth() / 2.0, Colour::invalid(),
                                     FocusRing::colourOver(palette, palette.window()), FocusRing::width()));
}

void TextBoxBase::drawEye(CanvasRenderer& renderer, Palette const& palette) const {
  Zo::Box<int> const box = eyeBox();
  Colour const colour = revealed_ ? palette.text() : palette.text(-6);
  // The theme's eye, open or struck through, 16 pixels at scale 1 and never
  // larger than the box; the drawn eye below where the theme has none.
  int const side = std::min(box.height(), static_cast<int>(std::lround(kEyeIconSize * UifStd::getScale())));
  IconCache::Icon const icon = IconCache::get(revealed_ ? "eye-open.png" : "eye-closed.png", side, colour);
  if (icon.fromTheme) {
    XY<double> const corner(box.x0 + (box.width() - side) / 2, box.y0 + (box.height() - side) / 2);
    renderer.renderPrimitive(Glib::ImageDescription(icon.surface, corner));
    return;
  }
  XY<double> const centre(box.x0 + box.width() / 2.0, box.y0 + box.height() / 2.0);
  double const size = getDefaultFontSize();
  renderer.renderPrimitive(Glib::EllipseDescription(centre, XY<double>(size * 0.5, size * 0.3), lineWidth(), colour));
  renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, size * 0.14, colour));
  // Struck through while the text is hidden.
  if (!revealed_)
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(centre.x - size * 0.45, centre.y - size * 0.4),
                                                   XY<double>(centre.x + size * 0.45, centre.y + size * 0.4),
                                                   lineWidth(), colour));
}
