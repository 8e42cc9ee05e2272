#include <zowidgets/editor/AngleIndicatorWidget.h>

#include <zowidgets/host/base/Angles.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

Angle calcSmallestDifference(Angle a, Angle b) {
  Angle const difference = std::abs(a - b);
  return difference > 180.0 ? 360.0 - difference : difference;
}

AngleIndicatorWidget::AngleIndicatorWidget(StandardPanel::InitArgs const& args) : StandardPanel(args) {
  setCanBeIt(true);
}

namespace {
StandardPanel::InitArgs squareArgs(unsigned short size, Palette const& palette) {
  StandardPanel::InitArgs args(GlobCreationInfo(size, size));
  args.setPalette(palette);
  return args;
}
} // namespace

AngleIndicatorWidget::AngleIndicatorWidget(unsigned short size, Palette const& palette, Canvas*)
    : AngleIndicatorWidget(squareArgs(size, palette)) {}

Colour AngleIndicatorWidget::getCentreColour() const { return getPalette().window(); }

XY<int> AngleIndicatorWidget::getCentre() const {
  return XY<int>(static_cast<int>(std::lround(width() * 0.5)), static_cast<int>(std::lround(height() * 0.5)));
}

int AngleIndicatorWidget::getRadius() const { return width() / 2; }

Angle AngleIndicatorWidget::calcAngleToPos(XY<int> position) const {
  XY<int> const centre = getCentre();
  double const dx = position.x - centre.x;
  double const dy = position.y - centre.y; // upward
  if (dx >= 1) {
    if (dy > 0)
      return deg(std::atan(dx / dy));
    if (dy == 0)
      return 90.0;
    return 180.0 - std::abs(deg(std::atan(dx / dy)));
  }
  if (dy > 0)
    return 360.0 - std::abs(deg(std::atan(dx / dy)));
  if (dy == 0)
    return 270.0;
  return std::abs(deg(std::atan(dx / dy))) + 180.0;
}

Angle AngleIndicatorWidget::calcAngle(XY<int> position) const {
  Angle const a = calcAngleToPos(position);
  Angle const p = getAngle();
  if (std::abs(p + (360.0 - a)) > std::abs(p - a))
    return a;
  return -(360.0 - a);
}

int AngleIndicatorWidget::contextCursor(XY<int> point) const {
  if (!isActive())
    return kCursorArrow;
  // Strictly below 20 degrees here; a press takes up to and including 20
  // (on purpose: a press may land where the cursor does not promise a grab).
  if (dragging_ || calcSmallestDifference(calcAngleToPos(point), getAngle()) < kGrabDegrees)
    return kCursorGrab;
  return kCursorArrow;
}

int AngleIndicatorWidget::react(Event const& event) {
  if (event.type == Event::kMouseEnter || event.type == Event::kMouseLeave) {
    handleMouseContainment(event.type == Event::kMouseEnter);
    return 1;
  }
  return StandardPanel::react(event);
}

void AngleIndicatorWidget::handleMouseContainment(bool inside) {
  mouseInside_ = inside;
  invalidate();
}

int AngleIndicatorWidget::handleMouseEvent(Event const& event) {
  if (!isActive())
    return 0;
  switch (event.type) {
  case Event::kMouseDown: {
    claimKbdFocus();
    Angle const angle = calcAngle(event.position);
    if (calcSmallestDifference(angle, getAngle()) <= kGrabDegrees) {
      setAngle(kDragStart, angle);
      invalidate();
      dragging_ = true;
      return 1;
    }
    if (event.buttons & kMouseLeft) {
      if (getResetAngle() != getAngle()) {
        setAngle(kReset, getResetAngle());
        invalidate();
      }
      return 1;
    }
    return 0;
  }
  case Event::kMouseMove:
    if (!dragging_)
      return 0;
    setAngle(kDragMove, calcAngle(event.position));
    invalidate();
    return 1;
  case Event::kMouseUp:
    if (!dragging_)
      return 0;
    dragging_ = false;
    setAngle(kDragEnd, calcAngle(event.position));
    invalidate();
    return 1;
  default:
    return 0;
  }
}

int AngleIndicatorWidget::handleKeyboardEvent(int key) {
  if (!isActive())
    return 0;
  int const plain = key & ~kKeyModifierMask;
  double const step = (key & kKeyShift) ? 15.0 : 1.0;
  switch (plain) {
  case kKeyRight:
  case kKeyUp:
    setAngle(kDragEnd, getAngle() + step);
    break;
  case kKeyLeft:
  case kKeyDown:
    setAngle(kDragEnd, getAngle() - step);
    break;
  case kKeyHome:
    if (getResetAngle() == getAngle())
      return 1;
    setAngle(kReset, getResetAngle());
    break;
  default:
    return StandardPanel::handleKeyboardEvent(key);
  }
  invalidate();
  return 1;
}

void AngleIndicatorWidget::drawBackground(CanvasRenderer& renderer) {
  StandardPanel::drawBackground(renderer);
  Palette const& palette = getPalette();
  XY<double> const centre(getCentre().x, getCentre().y);
  double const radius = getRadius();
  Colour const disc = Colour::mix(palette.window(), palette.text(), mouseInside_ ? 0.85 : 0.9);
  renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, radius, disc));
  if (hasKbdFocus())
    renderer.renderPrimitive(Glib::EllipseDescription::ring(centre, radius - 0.5, 1.0, palette.selection()));

  // The hand: a line from the centre towards the rim, with a head of two
  // short lines.
  double const head = UifStd::getIndentWidth();
  double const theta = rad(getAngle());
  XY<double> const direction(std::sin(theta), std::cos(theta));
  double const length = std::max(0.0, radius - head * 1.5);
  XY<double> const tip(centre.x + direction.x * length, centre.y + direction.y * length);
  double const lineWidth = std::max(1.0, head / 2);
  Colour const hand = palette.text();
  renderer.renderPrimitive(Glib::LineDescription(centre, tip, lineWidth, hand));
  for (double side : {-1.0, 1.0}) {
    double const back = theta + side * rad(150.0);
    XY<double> const end(tip.x + std::sin(back) * head * 2, tip.y + std::cos(back) * head * 2);
    renderer.renderPrimitive(Glib::LineDescription(tip, end, lineWidth, hand));
  }
  renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, head, getCentreColour()));
}

// --- AngleControl ------------------------------------------------------------

AngleControl::AngleControl(InitArgs const& args)
    : AngleIndicatorWidget(args), angle_(args.angle), resetAngle_(args.resetAngle) {}

void AngleControl::setAngle(int reason, Angle angle) {
  angle_ = angle;
  invalidate();
  listeners_.broadcast(AngleControlEvent{reason, angle});
}
