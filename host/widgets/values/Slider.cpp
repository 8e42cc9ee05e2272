#include <zowidgets/host/widgets/values/Slider.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

Slider::Slider(InitArgs const& args)
    : Glob(args), range_(args.minValue, args.maxValue, args.initialValue, args.increment),
      thumbColour_(args.thumbColour) {
  setCanBeIt(true);
}

int Slider::Look::thumbRadiusFor(int height) { return std::max(1, std::min(UifStd::getRowHeight(), height) / 3); }

Slider::Look Slider::Look::make(Palette const& palette, int height, bool active, Colour const& accent) {
  int const radius = thumbRadiusFor(height);
  int const indent = UifStd::getIndentWidth();
  return Look{radius,
              std::max(2, radius / 2),
              indent,
              radius + indent,
              palette.window(active ? 3 : 2),
              active ? accent : Colour::mix(accent, palette.window(), 0.35),
              palette.text(active ? -4 : -10),
              active ? palette.text() : palette.text(-10),
              palette.selection()};
}

Slider::Look Slider::look() const { return Look::make(getPalette(), height(), isActive(), thumbColour()); }

void Slider::setValueRange(double minValue, double maxValue) {
  range_.setRange(minValue, maxValue);
  if (hasPointOfInterest_)
    pointOfInterest_ = std::clamp(pointOfInterest_, range_.min(), range_.max());
  invalidate();
}

void Slider::setIncrement(double increment) {
  double const before = range_.value();
  range_.setStep(increment);
  if (range_.value() != before)
    invalidateBetween(valueToX(before), valueToX(range_.value()));
}

void Slider::setPosition(double value, eRedrawFlag redraw) {
  double const before = range_.value();
  if (!range_.setValue(value))
    return;
  if (redraw == kRedrawNow)
    invalidateBetween(valueToX(before), valueToX(range_.value()));
}

void Slider::setPointOfInterest(double value) {
  if (hasPointOfInterest_)
    invalidateBetween(valueToX(pointOfInterest_), valueToX(pointOfInterest_));
  pointOfInterest_ = std::clamp(value, range_.min(), range_.max());
  hasPointOfInterest_ = true;
  invalidateBetween(valueToX(pointOfInterest_), valueToX(pointOfInterest_));
}

void Slider::clearPointOfInterest() {
  if (!hasPointOfInterest_)
    return;
  hasPointOfInterest_ = false;
  invalidateBetween(valueToX(pointOfInterest_), valueToX(pointOfInterest_));
}

void Slider::setThumbColour(Colour const& colour) {
  thumbColour_ = colour;
  invalidate();
}

Colour Slider::thumbColour() const { return thumbColour_.use() ? thumbColour_ : getPalette().subheadingText(); }

int Slider::thumbRadius() const { return Look::thumbRadiusFor(height()); }

int Slider::valueToX(double value) const {
  int const r = thumbRadius();
  int const span = std::max(width() - 2 * r, 0);
  return r + static_cast<int>(std::lround(range_.fractionOf(value) * span));
}

double Slider::xToValue(int x) const {
  int const r = thumbRadius();
  int const span = width() - 2 * r;
  if (span <= 0)
    return range_.min();
  return range_.valueAt(static_cast<double>(x - r) / span);
}

void Slider::setNewWidgetValue(double& value, eRedrawFlag redraw) { setPosition(value, redraw); }

void Slider::requestValue(double value) {
  double const wanted = range_.constrain(value);
  broadcast(SliderEvent{SliderEvent::kValueRequested, wanted});
  if (!getDataAdaptor())
    setPosition(wanted);
  else
    requestSetNewDataValue(wanted, kDataChangeAll);
}

void Slider::invalidateBetween(int xA, int xB) {
  // The thumb's ring of focus reaches a little past its radius.
  Look const sizes = look();
  int const reach = sizes.thumbRadius + sizes.focusRingWidth + 1;
  invalidate(Zo::Box<int>(std::min(xA, xB) - reach, 0, std::max(xA, xB) + reach, height()));
}

int Slider::react(Event const& event) {
  if (!isActive())
    return 0;
  if (event.isMouse())
    return reactToMouse(event);
  if (event.type == Event::kKeyDown)
    return reactToKey(event.key);
  return 0;
}

int Slider::reactToMouse(Event const& event) {
  int const x = event.position.x;
  switch (event.type) {
  case Event::kMouseDown: {
    if (event.buttons != kMouseLeft)
      return 0;
    int const thumbX = valueToX(range_.value());
    if (std::abs(x - thumbX) <= thumbRadius()) {
      grabOffset_ = x - thumbX;
    } else {
      grabOffset_ = 0;
      requestValue(xToValue(x));
    }
    dragging_ = true;
    broadcast(SliderEvent{SliderEvent::kDragStarted, range_.value()});
    return 1;
  }
  case Event::kMouseMove:
    if (!dragging_)
      return 0;
    requestValue(xToValue(x - grabOffset_));
    return 1;
  case Event::kMouseUp:
    if (!dragging_)
      return 0;
    dragging_ = false;
    broadcast(SliderEvent{SliderEvent::kDragEnded, range_.value()});
    return 1;
  case Event::kMouseWheel:
    if (event.wheel == 0)
      return 0;
    requestValue(range_.value() + event.wheel * stepSize());
    return 1;
  default:
    return 0;
  }
}

int Slider::reactToKey(int key) {
  switch (key & ~kKeyModifierMask) {
  case kKeyLeft:
  case kKeyDown:
    requestValue(range_.value() - stepSize());
    return 1;
  case kKeyRight:
  case kKeyUp:
    requestValue(range_.value() + stepSize());
    return 1;
  case kKeyPageDown:
    requestValue(range_.value() - range_.pageSize());
    return 1;
  case kKeyPageUp:
    requestValue(range_.value() + range_.pageSize());
    return 1;
  case kKeyHome:
    requestValue(range_.min());
    return 1;
  case kKeyEnd:
    requestValue(range_.max());
    return 1;
  default:
    return 0;
  }
}

void Slider::handleKbdFocus(bool gained) {
  Glob::handleKbdFocus(gained);
  invalidateBetween(valueToX(range_.value()), valueToX(range_.value()));
}

void Slider::setActive(bool active, eRedrawFlag redraw) {
  if (!active)
    dragging_ = false;
  Glob::setActive(active, redraw);
}

void Slider::draw(CanvasRenderer& renderer) {
  Look const look = this->look();
  int const r = look.thumbRadius;
  int const midY = height() / 2;
  int const y0 = midY - look.trackThickness / 2;
  Zo::Box<int> const track(r, y0, std::max(width() - r, r), y0 + look.trackThickness);
  int const thumbX = valueToX(range_.value());
  double const trackRadius = look.trackThickness / 2.0;

  renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(track), trackRadius, look.track));
  Zo::Box<int> const filled(track.x0, track.y0, thumbX, track.y1);
  if (filled.width() > 0)
    renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(filled), trackRadius, look.filled));

  if (hasPointOfInterest_) {
    int const poiX = valueToX(pointOfInterest_);
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(poiX, midY - look.tickHalfLength),
                                                   XY<double>(poiX, midY + look.tickHalfLength), 1.0, look.tick));
  }

  XY<double> const centre(thumbX + 0.5, midY + 0.5);
  if (hasKbdFocus() && isActive())
    renderer.renderPrimitive(
        Glib::EllipseDescription::ring(centre, r + look.focusRingWidth / 2.0, look.focusRingWidth, look.focusRing));
  renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, r, look.thumbFace));
  renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, r / 2.0, look.filled));
}
