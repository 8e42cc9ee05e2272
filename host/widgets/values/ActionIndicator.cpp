#include <zowidgets/host/widgets/values/ActionIndicator.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
// Each dot's radius as a share of half the square; the ring keeps half a dot
// clear of the edge.
constexpr double kDotShare = 0.16;
constexpr double kEdgeClearanceInDots = 1.5;
constexpr double kDimmestAlpha = 0.18;
// The icon's share of the square: 16, 24 and 32 pixels in a row-high square
// at scales 1, 1.5 and 2, the sizes its artwork is drawn for.
constexpr double kIconShare = 0.7;
} // namespace

ActionIndicator::Look ActionIndicator::Look::make(Palette const& palette, XY<int> size) {
  double const half = std::min(size.x, size.y) / 2.0;
  double const dotRadius = std::max(1.0, half * kDotShare);
  return Look{std::max(0.0, half - kEdgeClearanceInDots * dotRadius), dotRadius, palette.text(), kDimmestAlpha};
}

ActionIndicator::ActionIndicator(InitArgs const& args) : Glob(args), iconName_(args.iconName) {
  if (args.running)
    start();
}

XY<int> ActionIndicator::calcSize() { return XY<int>(UifStd::getRowHeight(), UifStd::getRowHeight()); }

void ActionIndicator::start() {
  if (running_)
    return;
  running_ = true;
  startMs_ = msecsNow();
  phase_ = 0;
  setInterest(kTimerInterest);
  invalidate();
}

void ActionIndicator::stop() {
  if (!running_)
    return;
  running_ = false;
  clearInterest(kTimerInterest);
  invalidate();
}

int ActionIndicator::phaseAt(double nowMs) const {
  double const steps = std::floor(std::max(0.0, nowMs - startMs_) / kStepMs);
  return static_cast<int>(std::fmod(steps, kDots));
}

int ActionIndicator::react(Event const& event) {
  if (event.type != Event::kTimer || !running_)
    return 0;
  int const now = phaseAt(msecsNow());
  if (now != phase_) {
    phase_ = now;
    invalidate();
  }
  return 1;
}

int ActionIndicator::iconSide(XY<int> size) {
  return std::max(1, static_cast<int>(std::floor(std::min(size.x, size.y) * kIconShare)));
}

bool ActionIndicator::drawIcon(CanvasRenderer& renderer, Colour const& colour) {
  if (iconName_.empty())
    return false;
  int const side = iconSide(getSize());
  IconCache::Icon const icon = IconCache::get(iconName_.view(), side, colour, phase_ * 360 / kDots);
  if (!icon.fromTheme)
    return false;
  // On whole pixels, so the picture is copied as drawn.
  XY<double> const corner((width() - side) / 2, (height() - side) / 2);
  renderer.renderPrimitive(Glib::ImageDescription(icon.surface, corner));
  return true;
}

void ActionIndicator::draw(CanvasRenderer& renderer) {
  if (!running_)
    return;
  Look const look = Look::make(getPalette(), getSize());
  if (drawIcon(renderer, look.dot))
    return;
  XY<double> const centre(width() / 2.0, height() / 2.0);
  for (int dot = 0; dot < kDots; ++dot) {
    // Clockwise from the top; the dots behind the bright one fade.
    double const angle = std::numbers::pi / 2.0 - 2.0 * std::numbers::pi * dot / kDots;
    int const behind = (phase_ - dot + kDots) % kDots;
    double const alpha = std::max(look.dimmestAlpha, 1.0 - static_cast<double>(behind) / (kDots / 2.0));
    Colour colour = look.dot;
    colour.setAlpha(colour.alpha() * alpha);
    XY<double> const at(centre.x + look.ringRadius * std::cos(angle), centre.y + look.ringRadius * std::sin(angle));
    renderer.renderPrimitive(Glib::EllipseDescription::disc(at, look.dotRadius, colour));
  }
}
