#include <zowidgets/host/widgets/buttons/Button.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/detail/FocusRing.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSpaceKey = ' ';

bool insideSize(XY<int> point, XY<int> size) {
  return point.x >= 0 && point.y >= 0 && point.x < size.x && point.y < size.y;
}

// Room on each side of the label: a row's worth of breathing space.
int labelPadding() { return UifStd::getWidgetGap() * 2; }

// The ring round a button that holds the keyboard, over its face (the
// window's colour for a button without one).
void drawFocusRing(CanvasRenderer& renderer, Zo::Box<double> const& box, Glob const& button, Colour const& face) {
  if (button.hasKbdFocus())
    renderer.renderPrimitive(Glib::RoundedRectDescription(box, UifStd::getIndentWidth() * 1.5, Colour::invalid(),
                                                          FocusRing::colourOver(button.getPalette(), face),
                                                          FocusRing::width()));
}

} // namespace

PressTracker::eOutcome PressTracker::track(Event const& event, XY<int> size) {
  bool const inside = insideSize(event.position, size);
  switch (event.type) {
  case Event::kMouseEnter:
  case Event::kMouseLeave:
    hovered_ = event.type == Event::kMouseEnter;
    inside_ = hovered_;
    return kUsed;
  case Event::kMouseDown:
    if (!mouse_left_event(event))
      return kIgnored;
    down_ = inside_ = hovered_ = true;
    return kUsed;
  case Event::kMouseMove:
    hovered_ = inside;
    inside_ = inside;
    return kUsed;
  case Event::kMouseUp: {
    if (!mouse_left_event(event))
      return kIgnored;
    bool const clicked = down_ && inside;
    down_ = false;
    inside_ = hovered_ = inside;
    return clicked ? kClicked : kUsed;
  }
  default:
    return kIgnored;
  }
}

PressTracker::Reaction PressTracker::react(Event const& event, XY<int> size) {
  if (event.type == Event::kKeyDown) {
    int const key = event.key & ~kKeyModifierMask;
    bool const activates = key == kSpaceKey || key == kKeyReturn;
    return Reaction{activates, false, activates};
  }
  if (!event.isMouse())
    return {};
  bool const wasPressed = isPressed();
  bool const wasHovered = isHovered();
  eOutcome const outcome = track(event, size);
  return Reaction{outcome != kIgnored, wasPressed != isPressed() || wasHovered != isHovered(), outcome == kClicked};
}

Button::Button(InitArgs const& args)
    : Glob(args), label_(args.label.getString()), message_(args.message), icon_(args.icon), style_(args.style),
      glyph_(args.glyph), latching_(args.latching), autoResize_(args.autoResize) {
  setCanBeIt(true);
  if (getSize().y == 0)
    resize(getSize().x, calcHeight());
  if (autoResize_ || getSize().x == 0)
    fitWidth();
}

void Button::setLabel(UIString const& label, eRedrawFlag redraw) {
  LightweightString<wchar_t> text = label.getString();
  setNewWidgetValue(text, redraw);
}

void Button::setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) {
  if (value == label_)
    return;
  label_ = value;
  if (autoResize_)
    fitWidth();
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setStyle(int style, eRedrawFlag redraw) {
  style_ = style;
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setGlyph(wchar_t glyph, eRedrawFlag redraw) {
  glyph_ = glyph;
  if (autoResize_)
    fitWidth();
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setIcon(Zo::Image::Surface const& icon, eRedrawFlag redraw) {
  icon_ = icon;
  if (autoResize_)
    fitWidth();
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setIconName(std::string_view name, eRedrawFlag redraw) {
  if (name == iconName_)
    return;
  iconName_ = name;
  if (autoResize_)
    fitWidth();
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setIconTrailing(bool trailing, eRedrawFlag redraw) {
  iconTrailing_ = trailing;
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setIgnoresClicks(bool ignores) {
  ignoresClicks_ = ignores;
  if (ignores && (tracker_.isPressed() || tracker_.isHovered())) {
    // The pointer may rest on it now; without input it would keep that look.
    tracker_.reset();
    invalidate();
  }
}

int Button::iconSide() const {
  return icon_.empty() && iconName_.empty() ? 0 : std::max(1, height() - UifStd::getWidgetGap() * 2);
}

void Button::setState(int state, eRedrawFlag redraw) {
  if (state == state_)
    return;
  state_ = state;
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setTextColour(Colour const& colour, eRedrawFlag redraw) {
  textColour_ = colour;
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setFaceColour(Colour const& colour, eRedrawFlag redraw) {
  faceColour_ = colour;
  if (redraw != kNoRedraw)
    invalidate();
}

void Button::setFont(Glib::FontDesc const& font, eRedrawFlag redraw) {
  font_ = font;
  if (autoResize_)
    fitWidth();
  if (redraw != kNoRedraw)
    invalidate();
}

Glib::FontDesc Button::labelFont() const {
  Glib::FontDesc const standard = UifStd::getFont();
  Glib::FontDesc used = font_;
  if (used.family().empty())
    used.setFamily(standard.family());
  if (used.size() == 0)
    used.setSize(standard.size());
  return used;
}

void Button::setAutoResize(bool autoResize) {
  autoResize_ = autoResize;
  if (autoResize_)
    fitWidth();
}

void Button::fitWidth() {
  int const iconRoom = iconSide() == 0 ? 0 : iconSide() + UifStd::getWidgetGap();
  int const wanted = calcWidth(UIString(displayText()), labelFont()) + iconRoom + (width() - labelBox().width());
  if (wanted != width())
    resize(wanted, height());
}

LightweightString<wchar_t> Button::displayText() const {
  if (glyph_ == 0)
    return label_;
  std::wstring text(1, glyph_);
  if (!label_.empty())
    text += L' ';
  return LightweightString<wchar_t>(text + label_.str());
}

int Button::calcWidth(UIString const& label, Glib::FontDesc const& font) {
  Glib::FontDesc const used = font.family().empty() && font.size() == 0 ? UifStd::getFont() : font;
  Glib::TextMetrics const metrics = Glib::TextLayout::measure(label.getString(), used);
  return static_cast<int>(std::ceil(metrics.width)) + 2 * labelPadding();
}

int Button::calcHeight() { return UifStd::getRowHeight(); }

int Button::getRevealIndicatorWidth() { return UifStd::getRowHeight() * 3 / 4; }

Broadcaster<ButtonEvent>::Callback Button::makeMessageCallback(LightweightString<char> const& message, Glob* listener) {
  IdStamp const stamp = EventHandler::stampOf(listener);
  return Broadcaster<ButtonEvent>::makeCallback([message, listener, stamp](ButtonEvent const& event) {
    if (EventHandler::valid(listener, stamp))
      Glob::sendMsg(listener, message, event.button);
  });
}

void Button::press() {
  if (latching_)
    setState(state_ == 0 ? 1 : 0);
  performAction();
  ButtonEvent const event{ButtonEvent::kPressed, this, getName()};
  listeners_.broadcast(event);
  if (!message_.empty())
    Glob::sendMsg(parent(), message_, this);
}

int Button::react(Event const& event) {
  if (!event.isMouse() && event.type != Event::kKeyDown)
    return Glob::react(event);
  if (ignoresClicks_)
    return 0;
  if (event.type == Event::kKeyDown && (event.key & ~kKeyModifierMask) == kKeyDown &&
      ((event.key | event.modifiers) & kKeyModifierMask & ~kKeyAlt) == 0 && opensOnDownArrow()) {
    press();
    return 1;
  }
  PressTracker::Reaction const reaction = tracker_.react(event, getSize());
  if (reaction.lookChanged)
    invalidate();
  if (reaction.activated)
    press();
  return reaction.handled ? 1 : 0;
}

Zo::Box<int> Button::labelBox() const { return Zo::Box<int>(0, 0, width(), height()); }

Colour Button::labelColour() const {
  Palette const& palette = getPalette();
  if (!isActive())
    return Palette::inactive(palette.text(), palette.window());
  if (style_ == kStyleLink)
    return textColour_.use() ? textColour_ : palette.subheadingText();
  return textColour_.use() ? textColour_ : palette.text();
}

void Button::drawFace(CanvasRenderer& renderer) const {
  Palette const buttonPalette = makeButtonPalette(getPalette());
  bool const down = tracker_.isPressed() || showsStateDown();
  double const inset = 0.5;
  Zo::Box<double> const box(inset, inset, width() - inset, height() - inset);
  // A flat button at rest and a link show no face, but still the ring
  // that tells the keyboard is on them.
  if (style_ == kStyleLink || (style_ == kStyleFlat && !down && !tracker_.isHovered())) {
    drawFocusRing(renderer, box, *this, getPalette().window());
    return;
  }
  Colour face = faceColour_.use() ? faceColour_ : buttonPalette.window();
  if (showsStateDown())
    face = getPalette().selection();
  if (!isActive())
    face = Colour::mix(face, getPalette().window(), 0.5);
  else if (tracker_.isPressed())
    face = Palette::shaded(face, -3);
  else if (tracker_.isHovered())
    face = Palette::shaded(face, 2);
  Colour const outline = Palette::shaded(face, down ? -2 : 2);
  renderer.renderPrimitive(Glib::RoundedRectDescription(box, UifStd::getIndentWidth() * 1.5, face, outline));
  drawFocusRing(renderer, box, *this, face);
}

void Button::drawLabel(CanvasRenderer& renderer, Zo::Box<int> const& box) const {
  Zo::Box<double> area(box.x0 + labelPadding(), box.y0, box.x1 - labelPadding(), box.y1);
  LightweightString<wchar_t> const text = displayText();
  if (int const side = iconSide(); side > 0) {
    // Alone, the icon is centred; with text, it leads (or trails) the text.
    double const x = text.empty() ? box.x0 + (box.width() - side) / 2 : iconTrailing_ ? area.x1 - side : area.x0;
    double const y = box.y0 + (box.height() - side) / 2;
    Zo::Box<double> const square(x, y, x + side, y + side);
    if (iconName_.empty())
      renderer.renderPrimitive(Glib::ImageDescription(icon_, square, isActive() ? 1.0 : 0.4));
    else // the label's colour already shows an inactive button
      renderer.renderPrimitive(Glib::ImageDescription(IconCache::get(iconName_, side, labelColour()).surface, square));
    if (iconTrailing_)
      area.x1 -= side + UifStd::getWidgetGap();
    else
      area.x0 += side + UifStd::getWidgetGap();
  } else if (!text.empty()) {
    // A label wider than the padded room gives up padding before it is cut:
    // a button sized to its number (a page index) shows all of it, centred.
    double const missing = Glib::TextLayout::measure(text, labelFont()).width - area.width();
    if (missing > 0) {
      double const give = std::min(missing / 2, static_cast<double>(labelPadding()));
      area.x0 -= give;
      area.x1 += give;
    }
  }
  Glib::TextDescription description(text, area, labelFont(), labelColour(), Glib::eTextAlignment::Centre);
  renderer.renderPrimitive(description);
  if (style_ == kStyleLink && tracker_.isHovered()) {
    Zo::Box<double> const bounds = description.calcBounds();
    double const y = std::floor(bounds.y0) + 0.5;
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(bounds.x0, y), XY<double>(bounds.x1, y),
                                                   std::max(1, UifStd::getIndentWidth() / 2), labelColour()));
  }
}

void Button::draw(CanvasRenderer& renderer) {
  drawFace(renderer);
  drawLabel(renderer, labelBox());
}
