#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>

#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/detail/DrawingState.h>
#include <zowidgets/host/toolkit/detail/GlobRegistry.h>

#include <algorithm>
#include <cstring>
#include <utility>

Glob::Glob(GlobCreationInfo const& info)
    : requestedScreenPosition_(info.screenPosition), size_(info.size), oldSize_(info.size), border_(info.border),
      palette_(info.palette ? std::make_unique<Palette>(*info.palette) : nullptr) {
  XY<int>& pendingRootPosition = DrawingState::current().pendingRootPosition;
  if (requestedScreenPosition_.isUnset() && !info.parent && !pendingRootPosition.isUnset()) {
    requestedScreenPosition_ = pendingRootPosition;
    pendingRootPosition = XY<int>::unset();
  }
  GlobRegistry::enrol(this);
}

void Glob::setupRootPos(Canvas* relativeTo, XY<int> position) {
  DrawingState::current().pendingRootPosition = relativeTo ? relativeTo->getPosition() + position : position;
}

bool Glob::isType(char const* name) const { return name && std::strcmp(idstring(), name) == 0; }

Glob::~Glob() {
  GlobRegistry::withdraw(this);
  // At once rather than at the next tick, so the shared ticker stops with
  // the last widget that wanted it.
  if (interest_ & kTimerInterest)
    TimerTicks::removeInterest(this);
  // Children go first, youngest first, while this widget is still whole.
  while (!children_.empty()) {
    Glob* child = children_.back();
    children_.pop_back();
    child->parent_ = nullptr;
    delete child;
  }
  if (parent_)
    parent_->releaseChild(this);
}

Glob* Glob::addChild(Glob* child, WidgetPosition const& position, WidgetSurround surround) {
  if (!child)
    return nullptr;
  WidgetPosition resolved = position;
  if (resolved.isSiblingRelative() && !resolved.sibling && !children_.empty())
    resolved.sibling = children_.back();
  addWidget(child);
  child->placement_ = resolved;
  child->surround_ = surround;
  child->placed_ = true;
  child->position_ = placeChild(*child, child->placement_.sibling);
  invalidate(child->canvasBox().translated(XY<int>(-canvasPosition().x, -canvasPosition().y)));
  return child;
}

Glob* Glob::addWidget(Glob* child) {
  if (!child || child == this)
    return child;
  if (child->parent_)
    child->parent_->releaseChild(child);
  child->parent_ = this;
  children_.push_back(child);
  return child;
}

Glob* Glob::releaseChild(Glob* child) {
  auto found = std::find(children_.begin(), children_.end(), child);
  if (found == children_.end())
    return nullptr;
  children_.erase(found);
  // Widgets placed against the one leaving take its place.
  for (Glob* other : children_)
    if (other->placed_ && other->placement_.isSiblingRelative() && other->placement_.sibling == child) {
      other->placement_ = child->placement_;
      other->placed_ = child->placed_;
    }
  child->parent_ = nullptr;
  child->placed_ = false;
  if (!laying_out_) {
    layoutChildren();
    invalidate();
  }
  return child;
}

void Glob::removeWidget(Glob* child) {
  if (releaseChild(child))
    delete child;
}

bool Glob::isChildGlob(Glob const* widget) const noexcept {
  return std::find(children_.begin(), children_.end(), widget) != children_.end();
}

Glob const* Glob::getRootParent() const noexcept {
  Glob const* root = this;
  while (root->parent_)
    root = root->parent_;
  return root;
}

Canvas* Glob::canvas() const noexcept {
  Glob const* root = this;
  while (root->parent_)
    root = root->parent_;
  return root->ownCanvas_.get();
}

void Glob::setCanvas(std::unique_ptr<Canvas> canvas) { ownCanvas_ = std::move(canvas); }

Glob* Glob::getWidget(LightweightString<char> const& name) {
  if (name_ == name)
    return this;
  for (Glob* child : children_)
    if (Glob* found = child->getWidget(name))
      return found;
  return nullptr;
}

bool Glob::isShowing() const noexcept {
  for (Glob const* w = this; w; w = w->parent_)
    if (!w->visible_)
      return false;
  return true;
}

void Glob::setVisible(bool visible) {
  if (visible == visible_)
    return;
  if (!visible)
    invalidate(); // the area it leaves needs painting
  visible_ = visible;
  handleVisibilityChange(visible);
  if (visible)
    invalidate();
  notifyResized();
}

void Glob::handleVisibilityChange(bool) {}

void Glob::setActive(bool active, eRedrawFlag redraw) {
  if (active == active_)
    return;
  active_ = active;
  if (redraw == kRedrawNow)
    invalidate();
  // A widget put out of use hands the keyboard on, as Tab would (a wizard's
  // Back on its first page gives it to Next), rather than keep keys no one
  // will use.
  if (!active && hasKbdFocus() && !TabOrderManager::incrementTabStop())
    relinquishKbdFocus();
}

Palette const& Glob::getPalette() const {
  for (Glob const* w = this; w; w = w->parent_)
    if (w->palette_)
      return *w->palette_;
  static Palette const standard;
  return standard;
}

void Glob::setPalette(Palette const& palette) {
  palette_ = std::make_unique<Palette>(palette);
  invalidate();
}

void Glob::inheritPalette() {
  palette_.reset();
  invalidate();
}

int Glob::react(Event const&) { return 0; }

void Glob::drop(int) {}

// A widget that names no cursor shows its parent's, so that the parts of a
// compound widget (a swatch inside a button) show the whole's.
int Glob::contextCursor(XY<int> point) const {
  if (defaultCursor_ != kCursorDefault || !parent_)
    return defaultCursor_;
  return parent_->contextCursor(point + position_);
}

int Glob::sendMsg(Glob* target, LightweightString<char> const& message, Glob* sender) {
  if (!is_good_glob_ptr(target))
    return 0;
  Event event;
  event.type = Event::kMessageEvent;
  event.message = message;
  event.canvas = target->canvas();
  event.sourceWidget = sender;
  return target->react(event);
}

void Glob::dump(configb& into) const {
  into.set("x", position_.x);
  into.set("y", position_.y);
  into.set("width", size_.x);
  into.set("height", size_.y);
  into.set("visible", visible_);
  int index = 0;
  for (Glob const* child : children_) {
    if (child->persistable_) {
      LightweightString<char> key =
          child->name_.empty() ? LightweightString<char>(std::to_string(index).c_str()) : child->name_;
      child->dump(into.child(key));
    }
    ++index;
  }
}

void Glob::load(configb const& from) {
  if (from.in("width") && from.in("height"))
    resize(from.getInt("width"), from.getInt("height"));
  if (from.in("x") && from.in("y") && !placed_)
    setPosition(XY<int>(from.getInt("x"), from.getInt("y")));
  if (from.in("visible"))
    setVisible(from.getBool("visible"));
  int index = 0;
  for (Glob* child : std::vector<Glob*>(children_)) {
    LightweightString<char> key =
        child->name_.empty() ? LightweightString<char>(std::to_string(index).c_str()) : child->name_;
    if (configb const* saved = from.findChild(key); saved && child->persistable_)
      child->load(*saved);
    ++index;
  }
}

bool is_good_glob_ptr(Glob const* widget) { return GlobRegistry::isLive(widget); }

bool is_good_glob_ptr(Glob const* widget, char const* kind) {
  return GlobRegistry::isLive(widget) && kind && std::strcmp(widget->idstring(), kind) == 0;
}

bool isParentedTo(Glob const* widget, Glob const* ancestor) {
  if (!is_good_glob_ptr(widget) || !ancestor)
    return false;
  for (Glob const* w = widget->parent(); w; w = w->parent())
    if (w == ancestor)
      return true;
  return false;
}

Glob* getRootParent(Glob* widget) { return is_good_glob_ptr(widget) ? widget->getRootParent() : nullptr; }
