#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/toolkit/detail/DrawingState.h>

#include <algorithm>

void Glob::reshape() {
  layoutChildren();
  invalidate();
}

void Glob::reshapeAndDraw(XY<int> screenPosition) {
  reshape();
  if (!screenPosition.isUnset()) {
    if (parent_)
      setPosition(screenPosition);
    else if (Canvas* own = canvas())
      own->move(screenPosition);
  }
  update();
}

Canvas* Glob::makeCanvasCurrent() const {
  Canvas* const own = canvas();
  DrawingState::current().currentCanvas = own;
  return own;
}

Theme& Glob::theme() const { return UifStd::getTheme(); }

void Glob::addSurround(int width, Colour const& colour, float strength, unsigned edges) {
  windowSurround_ = Surround{std::max(width, 0), colour, std::clamp(strength, 0.0f, 1.0f), edges & kAllEdges};
}

void Glob::addShadow() {
  constexpr float kShadowStrength = 0.35f;
  addSurround(2 * UifStd::getWidgetGap(), Colour(0.0, 0.0, 0.0), kShadowStrength, kEdgeRight | kEdgeBottom);
}

void Glob::removeSurround() { windowSurround_ = Surround{}; }

void Glob::setWindowCornerRadius(int radius) {
  radius = std::max(radius, 0);
  if (radius == windowCornerRadius_)
    return;
  windowCornerRadius_ = radius;
  invalidate();
}
