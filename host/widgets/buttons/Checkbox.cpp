#include <zowidgets/host/widgets/buttons/Checkbox.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/detail/FocusRing.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr char const* kAppearanceKey = "checkbox.appearance";

// The box is a little over half a row high, so it lines up with text.
int indicatorSide() { return UifStd::getRowHeight() * 3 / 5; }

} // namespace

Checkbox::Checkbox(InitArgs const& args)
    : Glob(args), label_(args.label.getString()), appearance_(args.appearance), checked_(args.checked) {
  setCanBeIt(true);
  if (getSize().y == 0)
    resize(getSize().x, UifStd::getRowHeight());
  if (getSize().x == 0)
    resize(calcWidth(args.label), height());
}

int Checkbox::getDefaultAppearance() { return UifStd::getTheme().getInt(kAppearanceKey, kTickBox); }

int Checkbox::calcWidth(UIString const& label) {
  Glib::TextMetrics const metrics = Glib::TextLayout::measure(label.getString(), UifStd::getFont());
  return indicatorSide() * 2 + UifStd::getWidgetGap() * 2 + static_cast<int>(std::ceil(metrics.width));
}

void Checkbox::setLabel(UIString const& label, eRedrawFlag redraw) {
  label_ = label.getString();
  if (redraw != kNoRedraw)
    invalidate();
}

void Checkbox::setNewWidgetValue(bool& value, eRedrawFlag redraw) {
  if (value == checked_)
    return;
  checked_ = value;
  if (redraw != kNoRedraw)
    invalidate(indicatorBox());
}

void Checkbox::toggle() {
  bool wanted = !checked_;
  requestSetNewDataValue(wanted, kDataChangeAll);
  setNewWidgetValue(wanted, kRedrawNow);
  listeners_.broadcast(CheckboxEvent{CheckboxEvent::kToggled, this, checked_});
}

int Checkbox::react(Event const& event) {
  if (!event.isMouse() && event.type != Event::kKeyDown)
    return Glob::react(event);
  // Space ticks; Return is left to the panel, whose default action it is.
  if (event.type == Event::kKeyDown && (event.key & ~kKeyModifierMask) == kKeyReturn)
    return 0;
  PressTracker::Reaction const reaction = tracker_.react(event, getSize());
  if (reaction.lookChanged)
    invalidate(indicatorBox());
  if (reaction.activated)
    toggle();
  return reaction.handled ? 1 : 0;
}

Zo::Box<int> Checkbox::indicatorBox() const {
  int const side = indicatorSide();
  int const across = appearance_ == kSwitch ? side * 2 - side / 4 : side;
  int const y0 = (height() - side) / 2;
  int const x0 = UifStd::getIndentWidth();
  return Zo::Box<int>(x0, y0, x0 + across, y0 + side);
}

void Checkbox::drawTickBox(CanvasRenderer& renderer, Zo::Box<int> const& box) const {
  Palette const& palette = getPalette();
  Colour base = checked_ ? palette.selection() : makeChildPalette(palette, kChildTextEntry).window();
  if (tracker_.isPressed())
    base = Palette::shaded(base, -2);
  else if (tracker_.isHovered())
    base = Palette::shaded(base, 2);
  if (!isActive())
    base = Colour::mix(base, palette.window(), 0.5);
  Colour const outline = checked_ ? Palette::shaded(base, 2) : palette.window(5);
  Zo::Box<double> const face(box.x0 + 0.5, box.y0 + 0.5, box.x1 - 0.5, box.y1 - 0.5);
  renderer.renderPrimitive(Glib::RoundedRectDescription(face, UifStd::getIndentWidth(), base, outline));
  if (!checked_)
    return;
  double const s = box.width();
  double const thickness = std::max(1.5, s / 8.0);
  Colour const tick = isActive() ? palette.text(4) : palette.text(-6);
  XY<double> const start(box.x0 + s * 0.22, box.y0 + s * 0.52);
  XY<double> const bottom(box.x0 + s * 0.42, box.y0 + s * 0.28);
  XY<double> const end(box.x0 + s * 0.78, box.y0 + s * 0.74);
  renderer.renderPrimitive(Glib::LineDescription(start, bottom, thickness, tick));
  renderer.renderPrimitive(Glib::LineDescription(bottom, end, thickness, tick));
}

void Checkbox::drawSwitch(CanvasRenderer& renderer, Zo::Box<int> const& box) const {
  Palette const& palette = getPalette();
  Colour track = checked_ ? palette.selection() : palette.window(-3);
  if (tracker_.isHovered())
    track = Palette::shaded(track, 2);
  if (!isActive())
    track = Colour::mix(track, palette.window(), 0.5);
  double const radius = box.height() / 2.0;
  renderer.renderPrimitive(
      Glib::RoundedRectDescription(Zo::Box<double>(box.x0, box.y0, box.x1, box.y1), radius, track, palette.window(4)));
  double const knobRadius = radius - UifStd::getIndentWidth();
  double const knobX = checked_ ? box.x1 - radius : box.x0 + radius;
  Colour const knob = isActive() ? palette.text(2) : palette.text(-6);
  renderer.renderPrimitive(Glib::EllipseDescription::disc(XY<double>(knobX, box.y0 + radius), knobRadius, knob));
}

void Checkbox::draw(CanvasRenderer& renderer) {
  Zo::Box<int> const box = indicatorBox();
  if (appearance_ == kSwitch)
    drawSwitch(renderer, box);
  else
    drawTickBox(renderer, box);
  Palette const& palette = getPalette();
  Colour const text = isActive() ? palette.text() : Palette::inactive(palette.text(), palette.window());
  Zo::Box<double> const labelArea(box.x1 + UifStd::getWidgetGap() * 2, 0, width(), height());
  renderer.renderPrimitive(Glib::TextDescription(label_, labelArea, UifStd::getFont(), text));
  if (hasKbdFocus()) {
    double const out = FocusRing::width() - 0.5;
    Zo::Box<double> const ring(box.x0 - out, box.y0 - out, box.x1 + out, box.y1 + out);
    renderer.renderPrimitive(Glib::RoundedRectDescription(
        ring, UifStd::getIndentWidth(), Colour::invalid(),
        FocusRing::colourOver(palette, checked_ ? palette.selection() : palette.window()), FocusRing::width()));
  }
}
