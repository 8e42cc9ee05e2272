#include <zowidgets/editor/TrackButton.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/GlobTheme.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr char const* kResizePrefix = "TrackBtnResize";
constexpr char const* kGlowKey = "track_button_glow";
constexpr int kTrackTipResource = 13234;
constexpr int kMinTextLineHeight = 9;

double textHeight(Glib::FontDesc const& font) {
  Zo::Box<double> const bounds = Glib::TextDescription::calcBounds(LightweightString<wchar_t>(L"Xg"), font);
  return bounds.y1 - bounds.y0;
}

double textWidth(LightweightString<wchar_t> const& text, Glib::FontDesc const& font) {
  Zo::Box<double> const bounds = Glib::TextDescription::calcBounds(text, font);
  return bounds.x1 - bounds.x0;
}

} // namespace

// --- ResizeParams ----------------------------------------------------------

TrackButton::ResizeParams::ResizeParams(LightweightString<char> const& text) {
  std::string const s = text.str();
  if (s.empty() || s.compare(0, std::strlen(kResizePrefix), kResizePrefix) != 0)
    return;
  int first = 0, second = 0;
  if (std::sscanf(s.c_str(), "TrackBtnResize %d %d", &first, &second) == 2) {
    delta = first;
    startHeight = second;
  }
}

LightweightString<char> TrackButton::ResizeParams::asString() const {
  return LightweightString<char>(std::string(kResizePrefix) + " " + std::to_string(delta) + " " +
                                 std::to_string(startHeight));
}

// --- TrackButton -------------------------------------------------------------

TrackButton::TrackButton(InitArgs const& args) : Button(args) {
  init();
  setTrackName(args.names);
  setStyle(kStyleFlat, kNoRedraw);
  setSelected(true, kNoRedraw);
}

TrackButton::TrackButton(unsigned short width, unsigned short height, Canvas*)
    : TrackButton(InitArgs(std::vector<UIString>{}, XY<int>(width, height))) {}

TrackButton::TrackButton(LightweightString<wchar_t> const& name, unsigned short width, unsigned short height, Canvas*)
    : TrackButton(InitArgs(UIString(name), XY<int>(width, height))) {}

Colour const& TrackButton::defaultGlowColour() {
  static Colour const glow(0.1, 0.4, 0.5);
  return glow;
}

void TrackButton::init() {
  resizeAllowed_ = false;
  glowEnabled_ = config_int(kGlowKey, 0, INT_MIN, INT_MAX) != 0;
  setContextString(TooltipDetails(UIString(kTrackTipResource)));
  setLatching(true);
  Glib::FontDesc font = Button::getFont();
  font.setSize(static_cast<unsigned>(std::max(1, getDefaultFontSize() * 7 / 8)));
  Button::setFont(font, kNoRedraw);
  glowColour_ = defaultGlowColour();
  selectedTextColour_ = Colour(0.8, 0.9, 1.0);
}

void TrackButton::setTrackName(std::vector<UIString> const& names) {
  if (&names == &names_)
    return;
  names_ = names;
  LightweightString<wchar_t> const first = names_.empty() ? LightweightString<wchar_t>() : names_.front().getString();
  setLabel(UIString(fittedLabel(first)), kNoRedraw);
  invalidate();
}

void TrackButton::setTrackName(UIString const& name) { setTrackName(std::vector<UIString>{name}); }

LightweightString<wchar_t> TrackButton::fittedLabel(LightweightString<wchar_t> const& text) const {
  double const room = width() - 4.0 * UifStd::getWidgetGap();
  Glib::FontDesc const font = getFont();
  if (text.empty() || width() <= 0 || textWidth(text, font) <= room)
    return text;
  std::wstring shortened = text.str();
  while (!shortened.empty()) {
    shortened.pop_back();
    LightweightString<wchar_t> const candidate(shortened + L"\u2026");
    if (textWidth(candidate, font) <= room)
      return candidate;
  }
  return LightweightString<wchar_t>(L"\u2026");
}

LightweightString<wchar_t> TrackButton::getDisplayString(unsigned short, Glib::FontDesc const&) const {
  return getLabel();
}

void TrackButton::setGlowColour(Colour const& colour) {
  glowColour_ = colour;
  glowEnabled_ = true;
  invalidate();
}

void TrackButton::setSelectedTextColour(Colour const& colour) {
  selectedTextColour_ = colour;
  invalidate();
}

void TrackButton::setSelected(bool selected, eRedrawFlag redraw) { setState(selected ? 1 : 0, redraw); }

bool TrackButton::isSelected() const { return getState() == 1; }

int TrackButton::calcLineHeight() const {
  int const divisor = std::max<int>(1, static_cast<int>(names_.size()));
  return height() / divisor;
}

Glib::FontDesc TrackButton::getFont() const {
  Glib::FontDesc font = Button::getFont();
  if (font.family().empty())
    font.setFamily(UifStd::getFont().family());
  font.setSize(static_cast<unsigned>(std::max(1, getDefaultFontSize() * 7 / 8)));
  int const lineHeight = calcLineHeight();
  if (lineHeight < getDefaultFontSize())
    font.setSize(static_cast<unsigned>(std::max(1, lineHeight)));
  return font;
}

Colour TrackButton::textColour() const {
  Colour colour = isSelected() && isActive() ? selectedTextColour_ : labelColour();
  if (isActive() && mouseInside_)
    colour = scale(colour, 1.6);
  return colour;
}

Colour TrackButton::getBackCol() const {
  Colour face = isSelected() ? latchedBackColour() : makeButtonPalette(getPalette()).window();
  if (!isActive())
    face = Colour::mix(face, getPalette().window(), 0.5);
  return face;
}

void TrackButton::handleMouseContainment(bool inside) {
  mouseInside_ = inside;
  if (isActive() && !(inside && isPressedLook()))
    invalidate();
}

bool TrackButton::nearResizeEdge(XY<int> point) const {
  int const edge = GlobTheme::edgeGrabSize();
  return point.y < edge || point.y > height() - edge;
}

int TrackButton::contextCursor(XY<int> point) const {
  if (!isActive())
    return kCursorArrow;
  if (auto const* owner = dynamic_cast<CursorOwner const*>(parent()); owner && owner->takesOverCursor())
    return kCursorResizeVertical;
  if (!resizeAllowed_)
    return kCursorHand;
  // Below getY() + E, or above getY() + height() - E, measured where the
  // point is: in the button's own coordinates, so getY() is 0 here.
  if (nearResizeEdge(point))
    return kCursorResizeVertical;
  return kCursorHand;
}

void TrackButton::sendResize(int delta) {
  lastSentDelta_ = delta;
  Glob::sendMsg(parent(), ResizeParams(delta, dragStartHeight_).asString(), this);
}

int TrackButton::react(Event const& event) {
  if (event.isMouse() && height() > GlobTheme::edgeGrabSize() && mouse_chord_event(event))
    Glob::sendMsg(parent(), SoloSelectChanMsg, this);

  // Hover: the containment follows the pointer.
  if (event.type == Event::kMouseEnter || event.type == Event::kMouseLeave) {
    handleMouseContainment(event.type == Event::kMouseEnter);
  } else if (event.type == Event::kMouseMove && !dragEdge_) {
    bool const inside =
        event.position.x >= 0 && event.position.y >= 0 && event.position.x < width() && event.position.y < height();
    if (inside != mouseInside_)
      handleMouseContainment(inside);
  }

  // Dragging an edge: the owner hears the height asked for at each move.
  if (isActive() && resizeAllowed_ && event.type == Event::kMouseDown && event.buttons == kMouseLeft &&
      nearResizeEdge(event.position)) {
    dragEdge_ = true;
    dragUpperEdge_ = event.position.y > height() / 2;
    dragStartScreenY_ = event.screenPosition.y;
    dragStartHeight_ = height();
    lastSentDelta_ = 0;
    return 1;
  }
  if (dragEdge_) {
    if (event.type == Event::kMouseMove || event.type == Event::kMouseUp) {
      int const moved = event.screenPosition.y - dragStartScreenY_;
      // The lower edge goes down (y falls) to make the track taller; the
      // upper edge goes up.
      int const delta = dragUpperEdge_ ? moved : -moved;
      if (delta != lastSentDelta_)
        sendResize(delta);
      if (event.type == Event::kMouseUp)
        dragEdge_ = false;
    }
    return 1;
  }

  if (event.type == Event::kKeyDown && resizeAllowed_ && isActive()) {
    int const key = event.key & ~kKeyModifierMask;
    if ((event.key & kKeyShift) && (key == kKeyDown || key == kKeyUp)) {
      dragStartHeight_ = height();
      int const step = std::max(1, UifStd::getRowHeight() / 2);
      sendResize(key == kKeyDown ? step : -step);
      return 1;
    }
  }
  return Button::react(event);
}

void TrackButton::drawBackground(CanvasRenderer& renderer) {
  int const w = width(), h = height();
  Colour const back = getBackCol();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, w, h), back));
  if (names_.empty() || w <= 0 || h <= 0)
    return; // the label drawing (draw) has nothing to show

  // The glow comes first, so that the bar joining the lines stays in sight
  // on it (docs/editor.md).
  if (isSelected() && glowEnabled_) {
    Zo::Image::Surface glow(w, h);
    double const hw = w / 2.0, hh = h / 2.0;
    for (int y = 0; y < h; ++y) {
      double const fy = 1.0 - std::abs(y - hh) / hh;
      for (int x = 0; x < w; ++x) {
        double const share = (1.0 - std::abs(x - hw) / hw) * fy;
        glow.setPixel(x, y, Colour::mix(glowColour_, back, std::max(0.0, share)).get_vlib_colour());
      }
    }
    renderer.renderPrimitive(Glib::ImageDescription(glow, XY<double>(0, 0)));
  }

  Glib::FontDesc const font = getFont();
  int const band = std::min(h, static_cast<int>(std::lround(textHeight(font))) + UifStd::getWidgetGap());
  int const offset = (calcLineHeight() - band) / 2;
  if (names_.size() > 1) {
    Palette const& palette = getPalette();
    Colour const bar = isSelected() ? Colour::mix(glowColour_, palette.text(0), 0.8) : palette.text(1);
    int const x0 = w / 2;
    int const y0 = band + offset, y1 = h - (band + offset);
    if (y1 > y0)
      renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(x0, y0, x0 + UifStd::getIndentWidth(), y1), bar));
  }
}

void TrackButton::draw(CanvasRenderer& renderer) {
  if (hasKbdFocus()) {
    Zo::Box<double> const ring(0.5, 0.5, width() - 0.5, height() - 0.5);
    renderer.renderPrimitive(Glib::RoundedRectDescription(ring, UifStd::getIndentWidth() * 1.5, Colour::invalid(),
                                                          getPalette().selection()));
  }
  drawText(renderer);
}

void TrackButton::drawText(CanvasRenderer& renderer) {
  int const lineHeight = calcLineHeight();
  if (lineHeight < kMinTextLineHeight || names_.empty())
    return;
  Glib::FontDesc const font = getFont();
  Colour const colour = textColour();
  if (names_.size() == 1) {
    // Button's own label drawing, in this button's font and colour.
    Button::setFont(font, kNoRedraw);
    Button::setTextColour(colour, kNoRedraw);
    drawLabel(renderer, labelBox());
    return;
  }
  double const fontHeight = textHeight(font);
  double baseline = height() - lineHeight + (lineHeight - fontHeight / 2) / 2;
  for (UIString const& name : names_) {
    LightweightString<wchar_t> const text = fittedLabel(name.getString());
    double const x = std::max(0.0, (width() - textWidth(text, font)) / 2);
    renderer.renderPrimitive(Glib::TextDescription(text, XY<double>(x, baseline), font, colour));
    baseline -= lineHeight;
  }
}
