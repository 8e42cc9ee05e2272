#pragma once

#include <zowidgets/containers/DropDownMessages.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>

#include <cmath>

// A panel T shown as a drop-down window of its own by a DropDownButton. It
// tells its button when it goes (DropDownMsg::kPanelGone, from its
// destructor) and when it is torn off (DropDownMsg::kDetach). While it has a
// modal context it closes on a press outside itself and that context, or on
// Escape. A draggable panel tears off when dragged more than a row's height
// on a part its widgets leave alone; the drag then moves it. Messages its
// children send that it does not use go on to the button.
template <class T> class ZO_API DropDownWidgetWithDtorNotify : public T {
public:
  struct InitArgs : T::InitArgs {
    InitArgs(typename T::InitArgs const& panelArgs, Glob* owner) : T::InitArgs(panelArgs), owner(owner) {}
    Glob* owner;
    bool movable = false;
  };

  explicit DropDownWidgetWithDtorNotify(InitArgs const& args) : T(args), owner_(args.owner) {
    this->setMovable(args.movable);
  }
  ~DropDownWidgetWithDtorNotify() override {
    unsetModalContextGlob();
    Glob::sendMsg(owner_.get(), DropDownMsg::kPanelGone, this);
  }
  char const* idstring() const override { return "DropDownWidgetWithDtorNotify"; }

  Glob* getOwner() const { return owner_.get(); }
  void setDraggable(bool draggable) { draggable_ = draggable; }
  bool isDraggable() const noexcept { return draggable_; }
  bool isAttached() const noexcept { return attached_; }

  // Either way the button hears "detach" and lets the panel go, which then
  // has no modal context. Detached, the panel is independent of its button:
  // movable, closed only by its own means, and carried along by the drag in
  // progress.
  virtual void setAttached(bool attached) {
    attached_ = attached;
    Glob::sendMsg(owner_.get(), DropDownMsg::kDetach, this);
    this->setMovable(!attached);
    unsetModalContextGlob();
    this->invalidate();
    GlobManager::redisplay();
    if (!attached && pressed_)
      moving_ = true;
  }

  void setModalContextGlob(Glob* context) {
    modalContext_ = GlobHandle(context);
    // Asked again, the panel goes back to the top of the stack.
    getEventInterceptStack().remove(this);
    getEventInterceptStack().push(this);
  }
  void unsetModalContextGlob() {
    modalContext_.clear();
    getEventInterceptStack().remove(this);
  }
  bool hasModalContext() const { return modalContext_.isLive(); }

  // A pinned panel stays when the user clicks elsewhere.
  void handlePinned(bool pinned) override {
    T::handlePinned(pinned);
    if (pinned)
      unsetModalContextGlob();
    else if (attached_ && owner_.isLive())
      setModalContextGlob(owner_.get());
  }

  int handleMouseEvent(Event const& event) override {
    int const used = T::handleMouseEvent(event);
    if (used)
      return used;
    if (event.type == Event::kMouseDown && mouse_left_event(event)) {
      pressed_ = true;
      moving_ = this->isMovable();
      pressScreen_ = event.screenPosition;
      grip_ = event.screenPosition - this->screenPosition();
    } else if (event.type == Event::kMouseUp && mouse_left_event(event)) {
      pressed_ = moving_ = false;
    } else if (event.type == Event::kMouseMove && pressed_) {
      XY<int> const drag = event.screenPosition - pressScreen_;
      int const distance = static_cast<int>(std::sqrt(double(drag.x) * drag.x + double(drag.y) * drag.y));
      if (draggable_ && attached_ && distance > UifStd::getRowHeight())
        setAttached(false);
      if (Canvas* own = this->canvas(); moving_ && own)
        own->move(event.screenPosition - grip_);
    }
    return 0;
  }

  // A child that takes the mouse for itself ends a move of the panel.
  void drop(int reason) override {
    pressed_ = moving_ = false;
    T::drop(reason);
  }

  int react(Event const& event) override {
    int const used = T::react(event);
    if (used || !event.isMessage() || event.sourceWidget == owner_.get())
      return used;
    return Glob::sendMsg(owner_.get(), event.message, event.sourceWidget);
  }

  int intercept(Event const& event) override {
    if (!hasModalContext())
      return 0;
    bool const escape = event.type == Event::kKeyDown && (event.key & ~kKeyModifierMask) == kKeyEscape;
    if (!escape && event.type != Event::kMouseDown)
      return 0;
    if (!escape) {
      Zo::Box<int> const own = screenBoxOf(*this);
      Glob const* context = modalContext_.get();
      if (own.contains(event.screenPosition) || (context && screenBoxOf(*context).contains(event.screenPosition)))
        return 0;
    }
    close();
    return 1;
  }

  // Off the screen at once; the panel itself goes after the current event.
  void close() {
    unsetModalContextGlob();
    if (Canvas* own = this->canvas())
      own->unmap();
    GlobManager::requestDeletion(this);
  }

protected:
  // While attached, edges round the panel leave open the side that meets the
  // button, so that the two read as one shape.
  void drawBorder(CanvasRenderer& renderer) override {
    T::drawBorder(renderer);
    Glob const* owner = owner_.get();
    if (!attached_ || !owner)
      return;
    drawOpenFrame(renderer, Zo::Box<int>(0, 0, this->width(), this->height()), UifStd::getIndentWidth(),
                  scale(this->getPalette().selection(), 1.4), sideFacing(screenBoxOf(*this), screenBoxOf(*owner)),
                  relativeBox(*this, *owner));
  }

private:
  GlobHandle owner_;
  GlobHandle modalContext_;
  bool draggable_ = false;
  bool attached_ = true;
  bool pressed_ = false;
  bool moving_ = false;
  XY<int> pressScreen_;
  XY<int> grip_;
};
