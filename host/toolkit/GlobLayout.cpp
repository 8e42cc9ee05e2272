#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Glob.h>

#include <algorithm>

namespace {

// After a widget moved or changed size: the box it left (canvas
// coordinates) and the one it takes now are damaged. Damage may paint at
// once, so the change comes first: damaged before, the widget would be
// drawn again where it no longer is.
void invalidateLeftAndTaken(Glob& widget, Zo::Box<int> const& left) {
  if (Canvas* own = widget.canvas(); own && widget.isShowing())
    own->addDamage(left);
  widget.invalidate();
}

int halfOf(int value) { return value >= 0 ? value / 2 : -((-value + 1) / 2); }

} // namespace

WidgetPosition Glob::UserTopLeft(int x, int y) { return {WidgetPosition::kTopLeft, WidgetPosition::kUserArea, x, y}; }
WidgetPosition Glob::UserTopRight(int x, int y) { return {WidgetPosition::kTopRight, WidgetPosition::kUserArea, x, y}; }
WidgetPosition Glob::UserBottomLeft(int x, int y) {
  return {WidgetPosition::kBottomLeft, WidgetPosition::kUserArea, x, y};
}
WidgetPosition Glob::UserBottomRight(int x, int y) {
  return {WidgetPosition::kBottomRight, WidgetPosition::kUserArea, x, y};
}
WidgetPosition Glob::UserTopCentre(int x, int y, int grid) {
  return {WidgetPosition::kTopCentre, WidgetPosition::kUserArea, x, y, 0, grid};
}
WidgetPosition Glob::UserBottomCentre(int x, int y, int grid) {
  return {WidgetPosition::kBottomCentre, WidgetPosition::kUserArea, x, y, 0, grid};
}
WidgetPosition Glob::TopLeft(int x, int y) { return {WidgetPosition::kTopLeft, WidgetPosition::kWholeArea, x, y}; }
WidgetPosition Glob::TopRight(int x, int y) { return {WidgetPosition::kTopRight, WidgetPosition::kWholeArea, x, y}; }
WidgetPosition Glob::BottomLeft(int x, int y) {
  return {WidgetPosition::kBottomLeft, WidgetPosition::kWholeArea, x, y};
}
WidgetPosition Glob::BottomRight(int x, int y) {
  return {WidgetPosition::kBottomRight, WidgetPosition::kWholeArea, x, y};
}
WidgetPosition Glob::Centre(int x, int y, int grid) {
  return {WidgetPosition::kCentre, WidgetPosition::kWholeArea, x, y, 0, grid};
}
WidgetPosition Glob::LeftCentre(int x, int y, int grid) {
  return {WidgetPosition::kLeftCentre, WidgetPosition::kWholeArea, x, y, 0, grid};
}
WidgetPosition Glob::RightCentre(int x, int y, int grid) {
  return {WidgetPosition::kRightCentre, WidgetPosition::kWholeArea, x, y, 0, grid};
}
WidgetPosition Glob::MarginBottomLeft(int x, int y) {
  return {WidgetPosition::kBottomLeft, WidgetPosition::kMarginArea, x, y};
}
WidgetPosition Glob::MarginBottomRight(int x, int y) {
  return {WidgetPosition::kBottomRight, WidgetPosition::kMarginArea, x, y};
}
WidgetPosition Glob::Above(int gap, Glob* sibling, eWidgetAlignment alignment) {
  return {WidgetPosition::kAbove, WidgetPosition::kUserArea, 0, 0, gap, 1, sibling, alignment};
}
WidgetPosition Glob::Below(int gap, Glob* sibling, eWidgetAlignment alignment) {
  return {WidgetPosition::kBelow, WidgetPosition::kUserArea, 0, 0, gap, 1, sibling, alignment};
}
WidgetPosition Glob::LeftOf(int gap, Glob* sibling, eWidgetAlignment alignment) {
  return {WidgetPosition::kLeftOf, WidgetPosition::kUserArea, 0, 0, gap, 1, sibling, alignment};
}
WidgetPosition Glob::RightOf(int gap, Glob* sibling, eWidgetAlignment alignment) {
  return {WidgetPosition::kRightOf, WidgetPosition::kUserArea, 0, 0, gap, 1, sibling, alignment};
}

Zo::Box<int> Glob::getUserArea() const {
  return Zo::Box<int>(border_.left(), border_.bottom(), width() - border_.right(), height() - border_.top());
}

Zo::Box<int> Glob::getMarginArea() const {
  Zo::Box<int> user = getUserArea();
  return Zo::Box<int>(user.x0, border_.bottom(), user.x1, user.y0);
}

Zo::Box<int> Glob::placementArea(WidgetPosition::eArea area) const {
  switch (area) {
  case WidgetPosition::kUserArea:
    return getUserArea();
  case WidgetPosition::kMarginArea:
    return getMarginArea();
  case WidgetPosition::kWholeArea:
    break;
  }
  return Zo::Box<int>(border_.left(), border_.bottom(), width() - border_.right(), height() - border_.top());
}

XY<int> Glob::placeChild(Glob const& child, Glob const* sibling) const {
  WidgetPosition const& p = child.placement_;
  WidgetSurround const& s = child.surround_;
  int const w = child.width();
  int const h = child.height();

  if (p.isSiblingRelative()) {
    // A sibling that left was replaced in every placement (releaseChild),
    // so one of ours is one whose parent we are.
    if (!sibling || sibling->parent_ != this) {
      // Nothing to stand beside: start at the top left of the user area.
      Zo::Box<int> user = getUserArea();
      return XY<int>(user.x0 + s.left, user.y1 - s.top - h);
    }
    XY<int> const sp = sibling->position_;
    int const sw = sibling->visible_ ? sibling->width() : 0;
    int const sh = sibling->visible_ ? sibling->height() : 0;
    WidgetSurround const& ss = sibling->surround_;
    bool const shown = sibling->visible_;
    int const gap = shown ? p.gap : 0;
    auto alongX = [&] {
      switch (p.alignment) {
      case kAlignCentre:
        return sp.x + halfOf(sw - w);
      case kAlignEnd:
        return sp.x + sw - w;
      case kAlignStart:
        break;
      }
      return sp.x;
    };
    auto alongY = [&] {
      switch (p.alignment) {
      case kAlignCentre:
        return sp.y + halfOf(sh - h);
      case kAlignEnd:
        return sp.y;
      case kAlignStart:
        break;
      }
      return sp.y + sh - h;
    };
    switch (p.kind) {
    case WidgetPosition::kBelow: {
      int top = shown ? sp.y - ss.bottom - gap - s.top : sp.y + sibling->height() + ss.top - s.top;
      return XY<int>(alongX(), top - h);
    }
    case WidgetPosition::kAbove: {
      int bottom = shown ? sp.y + sh + ss.top + gap + s.bottom : sp.y - ss.bottom + s.bottom;
      return XY<int>(alongX(), bottom);
    }
    case WidgetPosition::kRightOf: {
      int left = shown ? sp.x + sw + ss.right + gap + s.left : sp.x - ss.left + s.left;
      return XY<int>(left, alongY());
    }
    case WidgetPosition::kLeftOf: {
      int right = shown ? sp.x - ss.left - gap - s.right : sp.x + sibling->width() + ss.right - s.right;
      return XY<int>(right - w, alongY());
    }
    default:
      break;
    }
  }

  return p.placeInArea(placementArea(p.area), XY<int>(w, h), s);
}

void Glob::setWidgetDetails(WidgetPosition const& position, WidgetSurround const& surround) {
  placement_ = position;
  surround_ = surround;
  placed_ = true;
  if (parent_)
    parent_->handleChildResize(this);
}

void Glob::setPosition(XY<int> position) {
  if (position == position_ && !placed_)
    return;
  Zo::Box<int> const left = canvasBox();
  placed_ = false;
  position_ = position;
  invalidateLeftAndTaken(*this, left);
}

void Glob::resize(double newWidth, double newHeight) {
  XY<int> wanted(static_cast<int>(newWidth), static_cast<int>(newHeight));
  wanted.x = std::max(wanted.x, 0);
  wanted.y = std::max(wanted.y, 0);
  if (wanted == size_)
    return;
  Zo::Box<int> const left = canvasBox();
  oldSize_ = size_;
  size_ = wanted;
  layoutChildren();
  if (!parent_)
    if (Canvas* own = canvas())
      own->resize(size_);
  invalidateLeftAndTaken(*this, left);
  notifyResized();
}

void Glob::setBorder(Border const& border) {
  border_ = border;
  layoutChildren();
  invalidate();
}

void Glob::notifyResized() {
  if (parent_)
    parent_->handleChildResize(this);
}

void Glob::handleChildResize(Glob*) {
  layoutChildren();
  invalidate();
}

void Glob::layoutChildren() {
  if (laying_out_)
    return;
  laying_out_ = true;
  for (Glob* child : children_)
    if (child->placed_)
      child->position_ = placeChild(*child, child->placement_.sibling);
  laying_out_ = false;
}

Zo::Box<int> Glob::canvasBox() const {
  XY<int> at = canvasPosition();
  return Zo::Box<int>(at.x, at.y, at.x + width(), at.y + height());
}

XY<int> Glob::canvasPosition() const {
  XY<int> at;
  for (Glob const* w = this; w->parent_; w = w->parent_)
    at += w->position_;
  return at;
}
