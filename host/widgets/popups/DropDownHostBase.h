#pragma once

#include <zowidgets/host/base/NotifyMsg.h>
#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/toolkit/GlobHandle.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/popups/TipWindowBase.h>
#include <zowidgets/values/notify/Callback.h>

// The floating window a drop-down panel lives in. It lies beside its owner
// (a button) with its tip towards it, and closes itself on a press outside
// it and its owner, or on Escape. A detachable host torn off by a drag of
// more than a row's height becomes a free window with a title bar: it can be
// moved and closed there and no longer closes on outside presses. Until
// then it moves with its owner's window, however that is moved.
//
// The owner hears of it through a callback: a NotifyMsg named kEventMsg
// whose payload is a DropDownHostBase::Event.
class ZO_API DropDownHostBase : public TipWindowBase {
public:
  static constexpr char const* kEventMsg = "DropDownHostEvent";
  // Sent to the widgets in the host (Glob::sendMsg; a panel hears it in
  // handleMessageEvent) when Escape closes it: a panel that changes a value
  // as the user tries things may take the changes back.
  static constexpr char const* kEscapedMsg = "DropDownEscaped";

  struct ZO_API Event : iObject {
    enum eKind : int {
      kDismissed = 0, // a press outside, or Escape, closed it
      kDetached = 1,  // torn off: it floats on its own now
      kClosed = 2,    // it is being destroyed, for whatever reason
    };
    Event(int kind, DropDownHostBase* host) : kind(kind), host(host), hostStamp(EventHandler::stampOf(host)) {}
    int kind;
    DropDownHostBase* host;
    IdStamp hostStamp;
  };

  struct InitArgs : TipWindowBase::InitArgs {
    InitArgs() = default;
    InitArgs(Glob* owner, Zo::Ptr<iCallbackBase<int, NotifyMsg>> const& eventCallback)
        : owner(owner), eventCallback(eventCallback) {}
    void setRelativeDirection(eWidgetRelativity direction) { relativity = direction; }

    Glob* owner = nullptr;
    Zo::Ptr<iCallbackBase<int, NotifyMsg>> eventCallback;
    bool detachable = false;
    // What a torn-off host's title bar and window say; empty: the title of
    // the owner's window.
    UIString title;
  };

  explicit DropDownHostBase(InitArgs const& args);
  ~DropDownHostBase() override;
  char const* idstring() const override { return "DropDownHostBase"; }
  // Torn off, it is a window like the panels.
  eWindowKind windowKind() const override { return detached_ ? eWindowKind::kPanel : eWindowKind::kPopupMenu; }
  // Torn off, its title; a drop-down has none.
  LightweightString<wchar_t> windowTitle() const override;
  // A drop-down panel is worked in, by Tab and keys as much as the pointer.
  bool takesKeyboardWhenShown() const override { return true; }

  void setDetachable(bool detachable) { detachable_ = detachable; }
  bool isDetachable() const noexcept { return detachable_; }
  bool isDetached() const noexcept { return detached_; }
  // Tears the host off its owner: see above.
  void detach();
  // A movable host (Glob::setMovable) follows drags on any part its
  // children leave alone.
  // The edges the user may drag to resize the host, as bits: 1 left,
  // 2 right, 4 top, 8 bottom. Its children are sized to the user area.
  void setResizableEdges(int edges) { resizableEdges_ = edges; }
  int getResizableEdges() const noexcept { return resizableEdges_; }
  // The resizable edges within reach of a point of the host; 0 for none.
  int edgesAt(XY<int> point) const;
  // While set, input to every other window is refused; a press outside
  // closes the host even on `context` (the owner, usually).
  void setModalContextGlob(Glob* context);
  void unsetModalContextGlob();
  // Closes the host as an outside press does, telling the owner.
  void dismiss();
  // Another window was made the active one: dismissed, unless torn off.
  void dismissPopup() override {
    if (!detached_)
      dismiss();
  }
  // The owner's window.
  Glob* popupOwnerWindow() const override;
  // Closes the host without a dismissal report (the owner asked for it).
  void close();
  bool isClosing() const noexcept { return closing_; }

  // Sizes are kept within the minimum and maximum sizes where those are set.
  void resize(double width, double height) override;
  // The host fits itself round a child that changes size.
  void handleChildResize(Glob* child) override;
  Zo::Box<int> getUserArea() const override;
  // The title bar of a detached host, and its close box; empty otherwise.
  Zo::Box<int> getTitleBarBox() const;
  Zo::Box<int> getCloseBox() const;

  int react(::Event const& event) override;
  int intercept(::Event const& event) override;
  // Mouse input its children did not use: tearing off, moving, closing.
  virtual int handleMouseEvent(::Event const& event);

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  void report(int kind);
  int followOwnersWindow(GlobManagerEvent const& event);
  void stopIntercepting();
  bool isOnOwner(XY<int> screen) const;
  int titleBarHeight() const;
  // Resizes and moves the host to cover `screenBox`, within its limits, with
  // the edges not being dragged kept where they were.
  void resizeFromEdges(Zo::Box<int> const& screenBox);

  GlobHandle owner_;
  UIString title_;
  Zo::Ptr<Zo::Guard> ownerWindowGuard_;
  XY<int> ownerWindowAt_;
  Zo::Ptr<iCallbackBase<int, NotifyMsg>> eventCallback_;
  bool detachable_;
  bool detached_ = false;
  bool closing_ = false;
  bool pressed_ = false;
  bool moving_ = false;
  bool closePressed_ = false;
  int resizableEdges_ = 0;
  int resizingEdges_ = 0;
  Zo::Box<int> pressBox_;
  XY<int> pressScreen_;
  XY<int> grip_;
};
