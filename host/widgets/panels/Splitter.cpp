#include <zowidgets/host/widgets/panels/Splitter.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <limits>

namespace {
constexpr int kGripDots = 3;
// The grip's dots: half as wide as the bar is thick, two thicknesses apart.
constexpr double kGripDotShare = 0.25;
constexpr int kGripSpacingInThicknesses = 2;
} // namespace

Splitter::Look Splitter::Look::make(Palette const& palette, int thickness, bool hot, bool focused, bool active) {
  Colour const grip = !active ? palette.text(-12) : focused ? palette.selection() : palette.text(hot ? 0 : -6);
  return Look{hot && active ? palette.window(3) : palette.window(), grip, std::max(1.0, thickness * kGripDotShare),
              kGripSpacingInThicknesses * thickness, kGripDots};
}

Splitter::InitArgs::InitArgs(Orientation orientation, int length)
    : GlobCreationInfo(calcDimensions(orientation, length)), orientation(orientation) {}

Splitter::Splitter(InitArgs const& args)
    : Glob(args), Broadcaster<SplitterEvent>(args.callback),
      orientation_(args.orientation == kOrientationFromShape
                       ? (args.size.y > args.size.x ? kSideBySide : kStacked)
                       : static_cast<Orientation>(args.orientation == kStacked ? kStacked : kSideBySide)),
      resizesNeighbours_(args.resizesNeighbours) {
  setCanBeIt(true);
  setDefaultMouseCursor(orientation_ == kSideBySide ? kCursorResizeHorizontal : kCursorResizeVertical);
}

// A row gap either side of nothing: thick enough to take hold of, thin
// enough to stay out of the way; whole scales multiply it exactly.
int Splitter::calcThickness() { return 2 * UifStd::getRowGap(); }

XY<int> Splitter::calcDimensions(Orientation orientation, int length) {
  return orientation == kSideBySide ? XY<int>(calcThickness(), length) : XY<int>(length, calcThickness());
}

int Splitter::visibleThickness() const { return lengthOf(getSize()); }

int Splitter::lengthOf(XY<int> size) const { return orientation_ == kSideBySide ? size.x : size.y; }

int Splitter::lowEdge(Glob const& widget) const { return orientation_ == kSideBySide ? widget.getX() : widget.getY(); }

int Splitter::highEdge(Glob const& widget) const { return lowEdge(widget) + lengthOf(widget.getSize()); }

bool Splitter::overlapsAcross(Glob const& widget) const {
  if (orientation_ == kSideBySide)
    return widget.getY() < getY() + height() && getY() < widget.getY() + widget.height();
  return widget.getX() < getX() + width() && getX() < widget.getX() + widget.width();
}

int Splitter::getBarPosition() const { return lowEdge(*this) + visibleInset(); }

void Splitter::setNeighbours(Glob* before, Glob* after) {
  before_ = before;
  after_ = after;
}

Glob* Splitter::liveNeighbour(Glob* chosen) const {
  return chosen && is_good_glob_ptr(chosen) && chosen->parent() == parent() && chosen->isVisible() ? chosen : nullptr;
}

Glob* Splitter::neighbourBefore() const {
  Glob* chosen = liveNeighbour(before_);
  return chosen ? chosen : findNeighbour(true);
}

Glob* Splitter::neighbourAfter() const {
  Glob* chosen = liveNeighbour(after_);
  return chosen ? chosen : findNeighbour(false);
}

Glob* Splitter::findNeighbour(bool before) const {
  if (!parent())
    return nullptr;
  int const bandStart = getBarPosition();
  int const bandEnd = bandStart + visibleThickness();
  Glob* nearest = nullptr;
  for (Glob* sibling : parent()->getChildren()) {
    if (sibling == this || !sibling->isVisible() || !overlapsAcross(*sibling))
      continue;
    if (before && highEdge(*sibling) <= bandStart && (!nearest || highEdge(*sibling) > highEdge(*nearest)))
      nearest = sibling;
    if (!before && lowEdge(*sibling) >= bandEnd && (!nearest || lowEdge(*sibling) < lowEdge(*nearest)))
      nearest = sibling;
  }
  return nearest;
}

Splitter::Range Splitter::getBarRange() const {
  int const present = getBarPosition();
  if (!parent())
    return Range{present, present};
  int const band = visibleThickness();
  Zo::Box<int> const area = parent()->getUserArea();
  int lowest = orientation_ == kSideBySide ? area.x0 : area.y0;
  int highest = (orientation_ == kSideBySide ? area.x1 : area.y1) - band;
  // The neighbour before keeps its low edge and the gap to the band; the one
  // after keeps its high edge and its gap.
  if (Glob const* before = neighbourBefore()) {
    int const start = lowEdge(*before) + (present - highEdge(*before));
    int const minimum = std::max(lengthOf(before->getMinSize()), 0);
    int const maximum = lengthOf(before->getMaxSize());
    lowest = std::max(lowest, start + minimum);
    if (maximum > 0)
      highest = std::min(highest, start + maximum);
  }
  if (Glob const* after = neighbourAfter()) {
    int const end = highEdge(*after) - (lowEdge(*after) - (present + band)) - band;
    int const minimum = std::max(lengthOf(after->getMinSize()), 0);
    int const maximum = lengthOf(after->getMaxSize());
    highest = std::min(highest, end - minimum);
    if (maximum > 0)
      lowest = std::max(lowest, end - maximum);
  }
  if (lowest > highest)
    return Range{present, present};
  return Range{lowest, highest};
}

void Splitter::tell(int kind, int position) {
  broadcast(SplitterEvent{kind, position, this});
  if (kind == SplitterEvent::kMove)
    sendMsg(kMoveMsg);
}

void Splitter::requestBarPosition(int position) {
  Range const range = getBarRange();
  int const kept = std::clamp(position, range.lowest, range.highest);
  if (kept == lastPosition_)
    return;
  lastPosition_ = kept;
  if (resizesNeighbours_)
    applyToNeighbours(kept);
  tell(SplitterEvent::kMove, kept);
}

void Splitter::applyToNeighbours(int position) {
  Drawable::Suspender held;
  Glob* before = neighbourBefore();
  Glob* after = neighbourAfter();
  int const present = getBarPosition();
  int const band = visibleThickness();
  // Taken before anything moves: the edges and gaps each neighbour keeps.
  int const beforeStart = before ? lowEdge(*before) : 0;
  int const beforeLength = before ? position - (present - highEdge(*before)) - beforeStart : 0;
  int const afterEnd = after ? highEdge(*after) : 0;
  int const afterLength = after ? afterEnd - (lowEdge(*after) - (present + band)) - (position + band) : 0;
  auto setLength = [&](Glob& widget, int length) {
    if (orientation_ == kSideBySide)
      widget.resize(length, widget.height());
    else
      widget.resize(widget.width(), length);
  };
  auto setLowEdge = [&](Glob& widget, int edge) {
    if (lowEdge(widget) != edge)
      widget.setPosition(orientation_ == kSideBySide ? XY<int>(edge, widget.getY()) : XY<int>(widget.getX(), edge));
  };
  if (before)
    setLength(*before, beforeLength);
  if (after)
    setLength(*after, afterLength);
  if (before)
    setLowEdge(*before, beforeStart);
  setLowEdge(*this, position - visibleInset());
  if (after)
    setLowEdge(*after, afterEnd - lengthOf(after->getSize()));
}

void Splitter::moveBarTo(int position) {
  Range const range = getBarRange();
  int const kept = std::clamp(position, range.lowest, range.highest);
  if (kept == getBarPosition())
    return;
  lastPosition_ = getBarPosition();
  tell(SplitterEvent::kBegin, lastPosition_);
  requestBarPosition(kept);
  tell(SplitterEvent::kEnd, lastPosition_);
}

int Splitter::react(Event const& event) {
  if (!isActive())
    return 0;
  if (event.isMouse())
    return reactToMouse(event);
  if (event.type == Event::kKeyDown)
    return reactToKey(event.key);
  return 0;
}

int Splitter::reactToMouse(Event const& event) {
  int const along = orientation_ == kSideBySide ? event.position.x : event.position.y;
  switch (event.type) {
  case Event::kMouseEnter:
  case Event::kMouseLeave:
    hovered_ = event.type == Event::kMouseEnter;
    invalidate();
    return 1;
  case Event::kMouseDown:
    if (event.buttons != kMouseLeft)
      return 0;
    dragging_ = true;
    grabOffset_ = along - visibleInset();
    lastPosition_ = getBarPosition();
    invalidate();
    tell(SplitterEvent::kBegin, lastPosition_);
    return 1;
  case Event::kMouseMove:
    if (!dragging_)
      return 0;
    // In the parent's coordinates, so that it holds whether or not the bar
    // has moved under the pointer since the drag began.
    requestBarPosition(lowEdge(*this) + along - grabOffset_);
    return 1;
  case Event::kMouseUp:
    if (!dragging_)
      return 0;
    dragging_ = false;
    invalidate();
    tell(SplitterEvent::kEnd, lastPosition_);
    return 1;
  default:
    return 0;
  }
}

int Splitter::reactToKey(int key) {
  int const code = key & ~kKeyModifierMask;
  int const step = (key & kKeyShift) ? UifStd::getRowHeight() : UifStd::getWidgetGap();
  int const back = orientation_ == kSideBySide ? kKeyLeft : kKeyDown;
  int const forward = orientation_ == kSideBySide ? kKeyRight : kKeyUp;
  if (code == back)
    moveBarTo(getBarPosition() - step);
  else if (code == forward)
    moveBarTo(getBarPosition() + step);
  else if (code == kKeyHome)
    moveBarTo(getBarRange().lowest);
  else if (code == kKeyEnd)
    moveBarTo(getBarRange().highest);
  else
    return 0;
  return 1;
}

void Splitter::setActive(bool active, eRedrawFlag redraw) {
  if (!active && dragging_) {
    dragging_ = false;
    tell(SplitterEvent::kEnd, lastPosition_);
  }
  Glob::setActive(active, redraw);
}

void Splitter::draw(CanvasRenderer& renderer) {
  int const thickness = orientation_ == kSideBySide ? width() : height();
  Look const look = Look::make(getPalette(), thickness, isHot(), hasKbdFocus(), isActive());
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), look.band));
  XY<double> const centre(width() / 2.0, height() / 2.0);
  for (int dot = 0; dot < look.gripDots; ++dot) {
    double const offset = (dot - (look.gripDots - 1) / 2.0) * look.gripDotSpacing;
    XY<double> const at =
        orientation_ == kSideBySide ? XY<double>(centre.x, centre.y + offset) : XY<double>(centre.x + offset, centre.y);
    renderer.renderPrimitive(Glib::EllipseDescription::disc(at, look.gripDotRadius, look.grip));
  }
}
