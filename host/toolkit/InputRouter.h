#pragma once

#include <zowidgets/host/events/Event.h>
#include <zowidgets/values/notify/GenericNotifier.h>

#include <string_view>
#include <vector>

class Glob;

// The one path of input for every backend: the headless screen's injection
// and the real display's window events both come here. Positions are screen
// coordinates, bottom-up. User-interface thread only.
//
// Mouse events go to the widget that captured the pointer (the one that took
// the press, until every button is up), else to the deepest widget under the
// pointer in the front window, then up the tree until one uses them. Key and
// text events start at the keyboard focus. A modal window refuses input meant
// for other windows. Widgets on the intercept stack see every event first.
namespace InputRouter {
ZO_API void mouseMoved(XY<int> screen, int modifiers = 0);
ZO_API void mouseButton(XY<int> screen, int button, bool pressed, int modifiers = 0, int clicks = 1);
ZO_API void mouseWheel(XY<int> screen, int steps, int modifiers = 0);
ZO_API void keyPressed(int key, int modifiers = 0);
ZO_API void keyReleased(int key, int modifiers = 0);
ZO_API void textTyped(std::string_view utf8);

ZO_API XY<int> mousePosition();
ZO_API int buttonsHeld();
ZO_API Glob* mouseCapture();
ZO_API Glob* hoveredWidget();
// Moves the keyboard focus to the next (or previous) focusable widget of the
// focused widget's window, in its panel's tab order.
ZO_API bool moveFocus(bool forward);
// A dying widget is forgotten as a target.
void forget(Glob* widget);

// What shows hints about the widget under the pointer; tooltips install it.
// `pointerMoved` hears every move the pointer makes while no widget holds
// it; `dismiss` hears every press and key, before anything else.
struct HoverHook {
  void (*pointerMoved)(Glob* under, XY<int> screen) = nullptr;
  void (*dismiss)() = nullptr;
};
ZO_API void setHoverHook(HoverHook hook);
} // namespace InputRouter

// Widgets that see every mouse and key event first, wherever it happens (the
// eye dropper captures the pointer this way). The most recently pushed one is
// asked first; if its intercept() uses the event, nothing else sees it.
class ZO_API EventInterceptStack {
public:
  void push(Glob* widget);
  void remove(Glob* widget);
  Glob* top() const;
  bool empty() const noexcept { return stack_.empty(); }

private:
  std::vector<Glob*> stack_;
};
ZO_API EventInterceptStack& getEventInterceptStack();

// Cursor ids: 0 is the arrow; others are the host's shapes (see
// docs/host-toolkit.md).
ZO_API void glib_setCursor(int cursorId);
ZO_API int glib_getCursor();
ZO_API XY<int> glib_getMousePos();

namespace Glib {
// Hears every mouse event on the screen, inside our windows or not, with
// screen positions; for as long as the returned guard is held.
ZO_API Zo::Ptr<Zo::Guard> addMouseListener(Zo::Ptr<iCallbackBase<int, Event>> const& listener);
} // namespace Glib
