#pragma once

#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/values/notify/GenericNotifier.h>

#include <string_view>
#include <vector>

class Canvas;
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
// The desktop made `root`'s window the active one (a window manager, a task
// bar, a tool): unless the keyboard is in that window already (or in a popup
// of it), the popups of other windows close and the keyboard goes to the
// widget of that window that last had it, or else to its first stop, as Tab
// enters a window (or to the window itself when it has none). Nothing
// happens while a modal window refuses input to it. Tips put aside while
// another program was in front come back.
ZO_API void windowActivated(Glob* root);
// The desktop made another program's window the active one: open popups
// (menus, drop-downs) close, as a press outside them closes them, and tips
// (hints, status messages) leave the screen until one of our windows is
// activated again, so that they do not float over the other program.
ZO_API void applicationDeactivated();

// What shows hints about the widget under the pointer; tooltips install it.
// `pointerMoved` hears every move the pointer makes while no widget holds
// it; `dismiss` hears every press and key, before anything else.
struct HoverHook {
  void (*pointerMoved)(Glob* under, XY<int> screen) = nullptr;
  void (*dismiss)() = nullptr;
};
ZO_API void setHoverHook(HoverHook hook);
} // namespace InputRouter

// Widgets that see mouse or key events first, wherever they happen (the eye
// dropper captures the pointer this way). Each entry has a mask of the kinds
// it takes; of the entries whose mask covers an event, the most recently
// pushed is asked, and if its intercept() uses the event nothing else sees it.
class ZO_API EventInterceptStack {
public:
  enum eMask : unsigned { kMouse = 256, kKeys = 512, kMouseAndKeys = kMouse | kKeys };

  // A stamp for the new entry; the null stamp, and no entry, for a dead
  // widget or one that has an entry already.
  IdStamp push(Glob* widget, unsigned mask = kMouseAndKeys);
  // Removes the entry with this stamp; false when there is none.
  bool pop(IdStamp const& stamp);
  // Removes the widget's entry, if any.
  void remove(Glob* widget);
  bool contains(Glob const* widget) const;
  Glob* top() const;
  // The entry that is offered `event` first, or null.
  Glob* topFor(Event const& event) const;
  bool empty() const noexcept { return stack_.empty(); }

private:
  struct Entry {
    Glob* widget;
    unsigned mask;
    IdStamp stamp;
  };
  std::vector<Entry> stack_;
};
ZO_API EventInterceptStack& getEventInterceptStack();

// Cursor ids are eCursorCode values.
ZO_API void glib_setCursor(int cursorId);
// With mouse context logic off, moving over widgets no longer changes the
// cursor: whoever turned it off sets the cursor alone. On by default.
ZO_API void glib_enableMouseContextLogic(bool enable);
ZO_API bool glib_mouseContextLogicEnabled();
ZO_API int glib_getCursor();
ZO_API XY<int> glib_getMousePos();
// Ties the rest of the gesture under way (until every button is up) to a
// window: its mouse events go to `canvas`'s root widget wherever the pointer
// goes. Null hands the gesture to the desktop, a drag of files out to another
// program say: no widget sees it again, though mouse listeners still hear
// it. Nothing happens while no button is held.
ZO_API void mouse_canvas_connect(Canvas* canvas);

namespace Glib {
// Hears every mouse event on the screen, inside our windows or not, with
// screen positions; for as long as the returned guard is held.
ZO_API Zo::Ptr<Zo::Guard> addMouseListener(Zo::Ptr<iCallbackBase<int, Event>> const& listener);
} // namespace Glib
