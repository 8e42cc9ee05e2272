#include <zowidgets/host/widgets/values/Slider.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {
constexpr int kPageSteps = 10;
constexpr double kContinuousStepFraction = 0.01;
} // namespace

Slider::Slider(InitArgs const& args)
    : Glob(args), min_(std::min(args.minValue, args.maxValue)), max_(std::max(args.minValue, args.maxValue)),
      increment_(std::max(args.increment, 0.0)), value_(constrain(args.initialValue)), thumbColour_(args.thumbColour) {
  setCanBeIt(true);
}

void Slider::setValueRange(double minValue, double maxValue) {
  min_ = std::min(minValue, maxValue);
  max_ = std::max(minValue, maxValue);
  value_ = constrain(value_);
  if (hasPointOfInterest_)
    pointOfInterest_ = std::clamp(pointOfInterest_, min_, max_);
  invalidate();
}

void Slider::setIncrement(double increment) {
  increment_ = std::max(increment, 0.0);
  setPosition(value_);
}

double Slider::stepSize() const noexcept {
  return increment_ > 0.0 ? increment_ : (max_ - min_) * kContinuousStepFraction;
}

double Slider::constrain(double value) const {
  if (!std::isfinite(value))
    return min_;
  if (increment_ > 0.0)
    value = min_ + std::round((value - min_) / increment_) * increment_;
  return std::clamp(value, min_, max_);
}

void Slider::setPosition(double value, eRedrawFlag redraw) {
  double const shown = constrain(value);
  if (shown == value_)
    return;
  int const oldX = valueToX(value_);
  value_ = shown;
  if (redraw == kRedrawNow)
    invalidateBetween(oldX, valueToX(value_));
}

void Slider::setPointOfInterest(double value) {
  if (hasPointOfInterest_)
    invalidateBetween(valueToX(pointOfInterest_), valueToX(pointOfInterest_));
  pointOfInterest_ = std::clamp(value, min_, max_);
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

int Slider::thumbRadius() const { return std::max(1, std::min(UifStd::getRowHeight(), height()) / 3); }

int Slider::valueToX(double value) const {
  int const r = thumbRadius();
  int const span = std::max(width() - 2 * r, 0);
  if (max_ <= min_)
    return r;
  double const fraction = (std::clamp(value, min_, max_) - min_) / (max_ - min_);
  return r + static_cast<int>(std::lround(fraction * span));
}

double Slider::xToValue(int x) const {
  int const r = thumbRadius();
  int const span = width() - 2 * r;
  if (span <= 0)
    return min_;
  double const fraction = std::clamp(static_cast<double>(x - r) / span, 0.0, 1.0);
  return min_ + fraction * (max_ - min_);
}

void Slider::setNewWidgetValue(double& value, eRedrawFlag redraw) { setPosition(value, redraw); }

void Slider::requestValue(double value) {
  double const wanted = constrain(value);
  broadcast(SliderEvent{SliderEvent::kValueRequested, wanted});
  if (!getDataAdaptor())
    setPosition(wanted);
  else
    requestSetNewDataValue(wanted, kDataChangeAll);
}

void Slider::invalidateBetween(int xA, int xB) {
  // The thumb's ring of focus reaches a little past its radius.
  int const reach = thumbRadius() + UifStd::getIndentWidth() + 1;
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
    int const thumbX = valueToX(value_);
    if (std::abs(x - thumbX) <= thumbRadius()) {
      grabOffset_ = x - thumbX;
    } else {
      grabOffset_ = 0;
      requestValue(xToValue(x));
    }
    dragging_ = true;
    broadcast(SliderEvent{SliderEvent::kDragStarted, value_});
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
    broadcast(SliderEvent{SliderEvent::kDragEnded, value_});
    return 1;
  case Event::kMouseWheel:
    if (event.wheel == 0)
      return 0;
    requestValue(value_ + event.wheel * stepSize());
    return 1;
  default:
    return 0;
  }
}

int Slider::reactToKey(int key) {
  switch (key & ~kKeyModifierMask) {
  case kKeyLeft:
  case kKeyDown:
    requestValue(value_ - stepSize());
    return 1;
  case kKeyRight:
  case kKeyUp:
    requestValue(value_ + stepSize());
    return 1;
  case kKeyPageDown:
    requestValue(value_ - kPageSteps * stepSize());
    return 1;
  case kKeyPageUp:
    requestValue(value_ + kPageSteps * stepSize());
    return 1;
  case kKeyHome:
    requestValue(min_);
    return 1;
  case kKeyEnd:
    requestValue(max_);
    return 1;
  default:
    return 0;
  }
}

void Slider::handleKbdFocus(bool gained) {
  Glob::handleKbdFocus(gained);
  invalidateBetween(valueToX(value_), valueToX(value_));
}

void Slider::setActive(bool active, eRedrawFlag redraw) {
  if (!active)
    dragging_ = false;
  Glob::setActive(active, redraw);
}

void Slider::draw(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  int const r = thumbRadius();
  int const trackHeight = std::max(2, r / 2);
  int const midY = height() / 2;
  int const y0 = midY - trackHeight / 2;
  Zo::Box<int> const track(r, y0, std::max(width() - r, r), y0 + trackHeight);
  int const thumbX = valueToX(value_);
  bool const active = isActive();
  Colour const accent = active ? thumbColour() : Colour::mix(thumbColour(), palette.window(), 0.35);

  renderer.renderPrimitive(
      Glib::RoundedRectDescription(Glib::toDoubleBox(track), trackHeight / 2.0, palette.window(active ? 3 : 2)));
  Zo::Box<int> const filled(track.x0, track.y0, thumbX, track.y1);
  if (filled.width() > 0)
    renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(filled), trackHeight / 2.0, accent));

  if (hasPointOfInterest_) {
    int const poiX = valueToX(pointOfInterest_);
    int const tick = r + UifStd::getIndentWidth();
    renderer.renderPrimitive(Glib::LineDescription(XY<double>(poiX, midY - tick), XY<double>(poiX, midY + tick), 1.0,
                                                   palette.text(active ? -4 : -10)));
  }

  XY<double> const centre(thumbX + 0.5, midY + 0.5);
  if (hasKbdFocus() && active)
    renderer.renderPrimitive(Glib::EllipseDescription::ring(centre, r + UifStd::getIndentWidth() / 2.0,
                                                            UifStd::getIndentWidth(), palette.selection()));
  Colour const face = active ? palette.text() : palette.text(-10);
  renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, r, face));
  renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, r / 2.0, accent));
}
