#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

ScrollBar::ScrollBar(InitArgs const& args) : Glob(args), range_(0.0, 1.0, args.thumbPosition, 0.0, args.thumbSize) {
  // The track fills the whole bar.
  setPaintsOpaquely(true);
}

ScrollBar::Look ScrollBar::Look::make(Palette const& palette, int thickness, bool active) {
  int const inset = UifStd::getIndentWidth();
  return Look{palette.window(-2),
              active ? palette.text(-4) : palette.text(-12),
              active ? palette.window(5) : palette.window(2),
              thickness / 4.0,
              inset,
              (thickness - 2 * inset) / 2.0};
}

// Half a row at scale 1, rounded there and then scaled, as the other metrics
// are, so that whole scales multiply it exactly.
int ScrollBar::thickness() {
  double const atScaleOne = std::round(UifStd::kBaseFontSize * 7.0 / 8.0);
  return static_cast<int>(std::lround(atScaleOne * UifStd::getScale()));
}

void ScrollBar::setThumbSize(double share) {
  range_.setPage(share);
  invalidate();
}

void ScrollBar::setThumbPosition(double position, eRedrawFlag redraw) {
  if (!range_.setValue(position))
    return;
  if (redraw == kRedrawNow)
    invalidate(barBox(trackStart(), trackStart() + trackLength()));
}

int ScrollBar::trackStart() const { return isVertical() ? width() : height(); }

int ScrollBar::trackLength() const {
  int const length = isVertical() ? height() : width();
  return std::max(length - 2 * trackStart(), 0);
}

int ScrollBar::thumbLength() const {
  int const track = trackLength();
  return std::min(track, std::max(static_cast<int>(std::lround(range_.page() * track)), trackStart()));
}

int ScrollBar::thumbStart() const {
  return trackStart() + static_cast<int>(std::lround(range_.value() * (trackLength() - thumbLength())));
}

int ScrollBar::along(XY<int> point) const { return isVertical() ? height() - 1 - point.y : point.x; }

Zo::Box<int> ScrollBar::barBox(int from, int to) const {
  if (isVertical())
    return Zo::Box<int>(0, height() - to, width(), height() - from);
  return Zo::Box<int>(from, 0, to, height());
}

void ScrollBar::report(int kind) {
  static constexpr char const* kMessages[] = {thumbMovedMsg, leftButtonPressedMsg, rightButtonPressedMsg};
  broadcast(ScrollBarEvent{kind, range_.value()});
  sendMsg(kMessages[kind]);
}

void ScrollBar::userMoveThumb(double position) {
  double const before = range_.value();
  setThumbPosition(position);
  if (range_.value() != before)
    report(ScrollBarEvent::kThumbMoved);
}

// A page of the thumb's travel: what shows, whatever the thumb's drawn
// length (kept to a least size over long contents) would say.
double ScrollBar::pageStep() const {
  double const share = range_.page();
  return share > 0.0 && share < 1.0 ? share / (1.0 - share) : 1.0;
}

int ScrollBar::react(Event const& event) {
  if (!isActive())
    return 0;
  int const slack = trackLength() - thumbLength();
  switch (event.type) {
  case Event::kMouseDown: {
    if (event.buttons != kMouseLeft)
      return 0;
    int const at = along(event.position);
    if (at < trackStart())
      report(ScrollBarEvent::kStepBack);
    else if (at >= trackStart() + trackLength())
      report(ScrollBarEvent::kStepForward);
    else if (at < thumbStart())
      userMoveThumb(range_.value() - pageStep());
    else if (at >= thumbStart() + thumbLength())
      userMoveThumb(range_.value() + pageStep());
    else {
      dragging_ = true;
      grabOffset_ = at - thumbStart();
    }
    return 1;
  }
  case Event::kMouseMove:
    if (!dragging_)
      return 0;
    if (slack > 0)
      userMoveThumb(static_cast<double>(along(event.position) - grabOffset_ - trackStart()) / slack);
    return 1;
  case Event::kMouseUp:
    if (!dragging_)
      return 0;
    dragging_ = false;
    return 1;
  case Event::kMouseWheel:
    if (event.wheel == 0)
      return 0;
    for (int step = 0; step < std::abs(event.wheel); ++step)
      report(event.wheel > 0 ? ScrollBarEvent::kStepBack : ScrollBarEvent::kStepForward);
    return 1;
  default:
    return 0;
  }
}

void ScrollBar::draw(CanvasRenderer& renderer) {
  int const end = trackStart();
  Look const look = Look::make(getPalette(), end, isActive());
  int const length = isVertical() ? height() : width();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), look.background));
  // An arrow in each end button, pointing outward.
  for (int which = 0; which < 2; ++which) {
    Zo::Box<int> const button = barBox(which == 0 ? 0 : length - end, which == 0 ? end : length);
    double const cx = (button.x0 + button.x1) / 2.0;
    double const cy = (button.y0 + button.y1) / 2.0;
    double const size = look.arrowHalfSize;
    double const sign = which == 0 ? -1.0 : 1.0; // towards the start, or the end
    Glib::TriangleFanDescription arrow;
    if (isVertical())
      arrow.points = {XY<double>(cx - size, cy + sign * size / 2), XY<double>(cx + size, cy + sign * size / 2),
                      XY<double>(cx, cy - sign * size)};
    else
      arrow.points = {XY<double>(cx - sign * size / 2, cy - size), XY<double>(cx - sign * size / 2, cy + size),
                      XY<double>(cx + sign * size, cy)};
    arrow.colours = {look.arrow};
    renderer.renderPrimitive(arrow);
  }
  int const inset = look.thumbInset;
  Zo::Box<int> thumb = barBox(thumbStart(), thumbStart() + thumbLength());
  thumb = isVertical() ? Zo::Box<int>(thumb.x0 + inset, thumb.y0, thumb.x1 - inset, thumb.y1)
                       : Zo::Box<int>(thumb.x0, thumb.y0 + inset, thumb.x1, thumb.y1 - inset);
  if (thumbLength() > 0)
    renderer.renderPrimitive(Glib::RoundedRectDescription(Glib::toDoubleBox(thumb), look.thumbRadius, look.thumb));
}

bool ScrollBar::requestedOffset(LightweightString<char> const& message, int offset, int step, int maxOffset,
                                int& requested) const {
  if (message == thumbMovedMsg)
    requested = static_cast<int>(std::lround(getThumbPosition() * maxOffset));
  else if (message == leftButtonPressedMsg)
    requested = offset - step;
  else if (message == rightButtonPressedMsg)
    requested = offset + step;
  else
    return false;
  return true;
}
