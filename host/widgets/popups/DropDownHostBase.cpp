#include <zowidgets/host/widgets/popups/DropDownHostBase.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>
#include <vector>

DropDownHostBase::DropDownHostBase(InitArgs const& args)
    : TipWindowBase(args), owner_(args.owner), title_(args.title), eventCallback_(args.eventCallback),
      detachable_(args.detachable) {
  getEventInterceptStack().push(this);
  if (Glob* owner = owner_.get()) {
    ownerWindowAt_ = owner->getRootParent()->screenPosition();
    ownerWindowGuard_ = GlobManager::notifier().addListener(
        Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
            new MethodCallback<DropDownHostBase, GlobManagerEvent>(this, &DropDownHostBase::followOwnersWindow)),
        NotifyMsgTypeDictionary::instance().anyType());
  }
}

int DropDownHostBase::followOwnersWindow(GlobManagerEvent const& event) {
  Glob* owner = owner_.get();
  if (event.kind != GlobManagerEvent::kMoved || !owner || event.glob != owner->getRootParent())
    return 0;
  XY<int> const at = event.glob->screenPosition();
  XY<int> const moved = at - ownerWindowAt_;
  ownerWindowAt_ = at;
  if (Canvas* own = canvas(); own && !detached_ && !closing_)
    own->move(screenPosition() + moved);
  return 0;
}

DropDownHostBase::~DropDownHostBase() {
  stopIntercepting();
  report(Event::kClosed);
}

void DropDownHostBase::report(int kind) {
  if (eventCallback_)
    eventCallback_->execute(NotifyMsg(kEventMsg, Zo::Ptr<iObject>(new Event(kind, this))));
}

void DropDownHostBase::stopIntercepting() {
  getEventInterceptStack().remove(this);
  unsetModalContextGlob();
}

Glob* DropDownHostBase::popupOwnerWindow() const {
  Glob* owner = owner_.get();
  return owner ? owner->getRootParent() : nullptr;
}

LightweightString<wchar_t> DropDownHostBase::windowTitle() const {
  return detached_ ? title_.getString() : LightweightString<wchar_t>();
}

int DropDownHostBase::titleBarHeight() const { return detached_ ? UifStd::getRowHeight() : 0; }

void DropDownHostBase::detach() {
  if (detached_ || closing_)
    return;
  // The user area keeps its size: the tip goes and a title bar comes.
  Zo::Box<int> const user = getUserArea();
  detached_ = true;
  // Named now: the owner may go while the torn-off window stays.
  if (title_.empty())
    if (Glob const* owner = owner_.get(); owner && owner->canvas())
      title_ = UIString(owner->canvas()->title());
  if (Canvas* shown = canvas())
    shown->kindChanged();
  setMovable(true);
  stopIntercepting();
  Drawable::Suspender holdRedraws;
  setRelativeDirection(kRelativeNone);
  XY<int> const outer = calcSizeFor(XY<int>(user.width(), user.height()), kRelativeNone, getBorder());
  resize(outer.x, outer.y + titleBarHeight());
  invalidate();
  report(Event::kDetached);
}

void DropDownHostBase::setModalContextGlob(Glob* context) {
  if (!is_good_glob_ptr(context))
    return;
  GlobManager::addModalGlob(this);
}

void DropDownHostBase::unsetModalContextGlob() { GlobManager::removeModalGlob(this); }

void DropDownHostBase::dismiss() {
  if (closing_)
    return;
  close();
  report(Event::kDismissed);
}

void DropDownHostBase::close() {
  if (closing_)
    return;
  closing_ = true;
  stopIntercepting();
  // Off the screen at once; the widget itself goes after the current event.
  if (Canvas* own = canvas())
    own->unmap();
  GlobManager::requestDeletion(this);
}

void DropDownHostBase::resize(double newWidth, double newHeight) {
  XY<int> const least = getMinSize();
  XY<int> const most = getMaxSize();
  if (least.x > 0)
    newWidth = std::max<double>(newWidth, least.x);
  if (least.y > 0)
    newHeight = std::max<double>(newHeight, least.y);
  if (most.x > 0)
    newWidth = std::min<double>(newWidth, most.x);
  if (most.y > 0)
    newHeight = std::min<double>(newHeight, most.y);
  TipWindowBase::resize(newWidth, newHeight);
}

void DropDownHostBase::handleChildResize(Glob* child) {
  Zo::Box<int> const user = getUserArea();
  XY<int> const before = getSize();
  resize(child->width() + width() - user.width(), child->height() + height() - user.height());
  TipWindowBase::handleChildResize(child);
  // The edge against the owner stays where it is (and a free window keeps
  // its title bar under the pointer): the window grows away from it.
  Canvas* own = canvas();
  if (!own || getSize() == before)
    return;
  XY<int> const grown = getSize() - before;
  XY<int> const shift(getRelativeDirection() == kRelativeLeft ? grown.x : 0,
                      getRelativeDirection() == kRelativeAbove ? 0 : grown.y);
  own->move(own->getPosition() - shift);
}

Zo::Box<int> DropDownHostBase::getUserArea() const {
  Zo::Box<int> area = TipWindowBase::getUserArea();
  area.y1 -= titleBarHeight();
  return area;
}

Zo::Box<int> DropDownHostBase::getTitleBarBox() const {
  if (!detached_)
    return {};
  Border const& b = getBorder();
  return Zo::Box<int>(b.left(), height() - b.top() - titleBarHeight(), width() - b.right(), height() - b.top());
}

Zo::Box<int> DropDownHostBase::getCloseBox() const {
  Zo::Box<int> const bar = getTitleBarBox();
  return bar.empty() ? bar : Zo::Box<int>(bar.x1 - bar.height(), bar.y0, bar.x1, bar.y1);
}

int DropDownHostBase::edgesAt(XY<int> point) const {
  if (resizableEdges_ == 0 || !Zo::Box<int>(0, 0, width(), height()).contains(point))
    return 0;
  int const reach = UifStd::getWidgetGap();
  int edges = 0;
  edges |= point.x < reach ? 1 : 0;
  edges |= point.x >= width() - reach ? 2 : 0;
  edges |= point.y >= height() - reach ? 4 : 0;
  edges |= point.y < reach ? 8 : 0;
  return edges & resizableEdges_;
}

void DropDownHostBase::resizeFromEdges(Zo::Box<int> const& screenBox) {
  Canvas* own = canvas();
  if (!own)
    return;
  Drawable::Suspender holdRedraws;
  // Never smaller than the frame round one row.
  Zo::Box<int> const user = getUserArea();
  XY<int> const frame(width() - user.width(), height() - user.height());
  int const row = UifStd::getRowHeight();
  resize(std::max(screenBox.width(), frame.x + row), std::max(screenBox.height(), frame.y + row));
  XY<int> position = screenBox.x0 == pressBox_.x0 ? XY<int>(pressBox_.x0, 0) : XY<int>(pressBox_.x1 - width(), 0);
  position.y = screenBox.y0 == pressBox_.y0 ? pressBox_.y0 : pressBox_.y1 - height();
  own->move(position);
  Zo::Box<int> const area = getUserArea();
  for (Glob* child : getChildren())
    child->resize(area.width(), area.height());
}

bool DropDownHostBase::isOnOwner(XY<int> screen) const {
  Glob const* owner = owner_.get();
  if (!owner)
    return false;
  XY<int> const at = owner->screenPosition();
  return Zo::Box<int>(at.x, at.y, at.x + owner->width(), at.y + owner->height()).contains(screen);
}

int DropDownHostBase::react(::Event const& event) {
  if (event.isMouse())
    return handleMouseEvent(event);
  // Typed at once, before a Tab: the text enters the panel as Tab would and
  // goes to its first stop, so a search box there has the letters.
  if (event.type == ::Event::kTextInput && !get_kbd_focus() && TabOrderManager::enterWindow(*this, true))
    if (Glob* entered = get_kbd_focus(); entered && isParentedTo(entered, this))
      return entered->react(event);
  return TipWindowBase::react(event);
}

int DropDownHostBase::intercept(::Event const& event) {
  if (closing_ || detached_)
    return 0;
  if (event.type == ::Event::kKeyDown && (event.key & ~kKeyModifierMask) == kKeyEscape) {
    for (Glob* child : std::vector<Glob*>(getChildren()))
      sendMsg(child, kEscapedMsg, this);
    dismiss();
    return 1;
  }
  if (event.type != ::Event::kMouseDown)
    return 0;
  if (Zo::Box<int>(0, 0, width(), height()).contains(event.position))
    return 0;
  // A press on the owner is the owner's to handle (it closes the drop-down
  // itself), unless the host is modal and the owner cannot hear it.
  if (isOnOwner(event.screenPosition) && !GlobManager::isModal(this))
    return 0;
  // The press that closes the drop-down does nothing else.
  dismiss();
  return 1;
}

int DropDownHostBase::handleMouseEvent(::Event const& event) {
  switch (event.type) {
  case ::Event::kMouseDown:
    if (!mouse_left_event(event))
      return 0;
    if (getCloseBox().contains(event.position)) {
      closePressed_ = true;
      return 1;
    }
    if (int const edges = edgesAt(event.position)) {
      resizingEdges_ = edges;
      pressScreen_ = event.screenPosition;
      pressBox_ = canvas() ? canvas()->screenBox() : Zo::Box<int>();
      return 1;
    }
    if (!isMovable() && !(detachable_ && !detached_))
      return 0;
    pressed_ = true;
    moving_ = isMovable();
    pressScreen_ = event.screenPosition;
    grip_ = event.position;
    return 1;
  case ::Event::kMouseMove: {
    if (resizingEdges_ != 0) {
      XY<int> const drag = event.screenPosition - pressScreen_;
      Zo::Box<int> wanted = pressBox_;
      wanted.x0 += (resizingEdges_ & 1) ? drag.x : 0;
      wanted.x1 += (resizingEdges_ & 2) ? drag.x : 0;
      wanted.y1 += (resizingEdges_ & 4) ? drag.y : 0;
      wanted.y0 += (resizingEdges_ & 8) ? drag.y : 0;
      resizeFromEdges(wanted);
      return 1;
    }
    if (!pressed_)
      return 0;
    XY<int> const drag = event.screenPosition - pressScreen_;
    int const distance = static_cast<int>(std::sqrt(double(drag.x) * drag.x + double(drag.y) * drag.y));
    if (!moving_ && detachable_ && !detached_ && distance > UifStd::getRowHeight()) {
      detach();
      moving_ = true;
    }
    if (Canvas* own = canvas(); moving_ && own)
      own->move(event.screenPosition - grip_);
    return 1;
  }
  case ::Event::kMouseUp: {
    if (!mouse_left_event(event))
      return 0;
    if (closePressed_) {
      closePressed_ = false;
      if (getCloseBox().contains(event.position))
        close();
      return 1;
    }
    bool const wasPressed = pressed_ || resizingEdges_ != 0;
    pressed_ = moving_ = false;
    resizingEdges_ = 0;
    return wasPressed ? 1 : 0;
  }
  default:
    return 0;
  }
}

void DropDownHostBase::draw(CanvasRenderer& renderer) {
  Zo::Box<int> const bar = getTitleBarBox();
  if (bar.empty())
    return;
  Palette const& palette = getPalette();
  renderer.renderPrimitive(Glib::RectDescription(bar, palette.window(-2)));
  // A grip of three short lines at the left says the window can be dragged.
  int const gap = UifStd::getWidgetGap();
  double const line = std::max(1, UifStd::getIndentWidth() / 2);
  double const midY = (bar.y0 + bar.y1) / 2.0;
  double const gripEnd = bar.x0 + gap * 2 + bar.height() * 0.6;
  for (int row = -1; row <= 1; ++row) {
    double const y = midY + row * gap * 0.75;
    renderer.renderPrimitive(
        Glib::LineDescription(XY<double>(bar.x0 + gap * 2, y), XY<double>(gripEnd, y), line, palette.text(-6)));
  }
  Zo::Box<int> const close = getCloseBox();
  if (LightweightString<wchar_t> const title = windowTitle(); !title.empty())
    renderer.renderPrimitive(Glib::TextDescription(title, Zo::Box<double>(gripEnd + gap, bar.y0, close.x0, bar.y1),
                                                   UifStd::getFont(), palette.headingText()));
  double const inset = close.width() * 0.32;
  double const stroke = std::max(1.0, UifStd::getScale() * 1.5);
  Colour const cross = palette.text(-2);
  renderer.renderPrimitive(Glib::LineDescription(XY<double>(close.x0 + inset, close.y0 + inset),
                                                 XY<double>(close.x1 - inset, close.y1 - inset), stroke, cross));
  renderer.renderPrimitive(Glib::LineDescription(XY<double>(close.x0 + inset, close.y1 - inset),
                                                 XY<double>(close.x1 - inset, close.y0 + inset), stroke, cross));
}
