#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobHandle.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/detail/GlobRegistry.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

struct RouterState {
  XY<int> mouse;
  int buttons = 0;
  Glob* capture = nullptr;
  // The gesture under way was handed to the desktop (mouse_canvas_connect):
  // no widget sees it until every button is up.
  bool handedOver = false;
  Glob* hovered = nullptr;
  int cursor = 0;
  bool contextCursors = true;
  // Tips taken off the screen while another program was in front.
  std::vector<GlobHandle> tipsAside;
};

RouterState& state() {
  static RouterState instance;
  return instance;
}

InputRouter::HoverHook& hoverHook() {
  static InputRouter::HoverHook hook;
  return hook;
}

void hoverDismiss() {
  if (hoverHook().dismiss)
    hoverHook().dismiss();
}

GenericNotifier<Event>& mouseListeners() {
  static auto* instance = new GenericNotifier<Event>;
  return *instance;
}

int any() { return NotifyMsgTypeDictionary::instance().anyType(); }

Event mouseEvent(int type, XY<int> screen, int buttons, int modifiers) {
  Event event;
  event.type = type;
  event.screenPosition = screen;
  event.buttons = buttons;
  event.modifiers = modifiers;
  return event;
}

// Gives `event` to `widget` in its own coordinates; true if used.
bool offer(Glob* widget, Event event, bool intercepting = false) {
  if (!is_good_glob_ptr(widget))
    return false;
  XY<int> origin = widget->screenPosition();
  event.position = XY<int>(event.screenPosition.x - origin.x, event.screenPosition.y - origin.y);
  event.canvas = widget->canvas();
  return (intercepting ? widget->intercept(event) : widget->react(event)) != 0;
}

// Up the tree from `start` until a widget uses the event; returns that one.
Glob* bubble(Glob* start, Event const& event) {
  for (Glob* widget = start; is_good_glob_ptr(widget); widget = widget->parent())
    if (widget->isActive() && offer(widget, event))
      return widget;
  return nullptr;
}

bool interceptedFirst(Event const& event) {
  Glob* interceptor = getEventInterceptStack().topFor(event);
  return interceptor && offer(interceptor, event, true);
}

// The widget under a screen point, refusing windows a modal window blocks.
Glob* widgetAt(XY<int> screen) {
  Canvas* canvas = Canvas::atScreenPoint(screen);
  if (!canvas)
    return nullptr;
  Glob* root = canvas->root();
  if (GlobManager::refusesInput(root))
    return nullptr;
  XY<int> at = canvas->getPosition();
  return root->pick(XY<int>(screen.x - at.x, screen.y - at.y));
}

void updateHover(Glob* target, XY<int> screen, int modifiers) {
  RouterState& s = state();
  if (target == s.hovered)
    return;
  Glob* old = s.hovered;
  s.hovered = target;
  if (is_good_glob_ptr(old))
    offer(old, mouseEvent(Event::kMouseLeave, screen, s.buttons, modifiers));
  if (target)
    offer(target, mouseEvent(Event::kMouseEnter, screen, s.buttons, modifiers));
}

void updateCursor(Glob* target, XY<int> screen) {
  if (!state().contextCursors)
    return;
  int cursor = 0;
  if (is_good_glob_ptr(target)) {
    XY<int> origin = target->screenPosition();
    cursor = target->contextCursor(XY<int>(screen.x - origin.x, screen.y - origin.y));
  }
  glib_setCursor(cursor);
}

Glob* focusableAncestor(Glob* widget) {
  for (Glob* w = widget; w; w = w->parent())
    if (w->canBeIt())
      return w;
  return nullptr;
}

// A press in another panel with nothing there to take the keyboard: the
// keys go to that panel (the front window) rather than stay with a widget
// the user has left. Popups (menus, drop-downs, tips) leave the focus alone.
bool leavesTheFocusBehind(Glob const* target) {
  Glob const* focus = get_kbd_focus();
  if (!focus || !target || focus->canvas() == target->canvas())
    return false;
  Canvas const* canvas = target->canvas();
  return canvas && canvas->root() && !canvas->root()->isPopupWindow();
}

} // namespace

void InputRouter::mouseMoved(XY<int> screen, int modifiers) {
  RouterState& s = state();
  s.mouse = screen;
  Event event = mouseEvent(Event::kMouseMove, screen, s.buttons, modifiers);
  mouseListeners().issueNotification(event, any());
  if (s.handedOver || interceptedFirst(event))
    return;
  Glob* target = s.capture ? s.capture : widgetAt(screen);
  if (!s.capture) {
    updateHover(target, screen, modifiers);
    if (hoverHook().pointerMoved)
      hoverHook().pointerMoved(target, screen);
  }
  updateCursor(target, screen);
  bubble(target, event);
}

void InputRouter::mouseButton(XY<int> screen, int button, bool pressed, int modifiers, int clicks) {
  RouterState& s = state();
  s.mouse = screen;
  s.buttons = pressed ? (s.buttons | button) : (s.buttons & ~button);
  // Down and up events carry every button held, the changed one included, so
  // that a chord shows as left and right together.
  Event event = mouseEvent(pressed ? Event::kMouseDown : Event::kMouseUp, screen, s.buttons | button, modifiers);
  event.clicks = clicks;
  mouseListeners().issueNotification(event, any());
  if (s.handedOver) {
    s.handedOver = s.buttons != 0;
    return;
  }
  hoverDismiss();
  if (interceptedFirst(event))
    return;
  Glob* target = s.capture ? s.capture : widgetAt(screen);
  if (pressed && !s.capture) {
    if (Glob* focusable = focusableAncestor(target))
      set_kbd_focus(focusable);
    else if (leavesTheFocusBehind(target))
      set_kbd_focus(nullptr);
    if (Canvas* canvas = target ? target->canvas() : nullptr) {
      canvas->popToTop();
      GlobRegistry::announce(GlobManagerEvent::kActivated, canvas->root());
    }
  }
  Glob* taker = bubble(target, event);
  if (pressed && !s.capture)
    s.capture = taker ? taker : target;
  if (s.buttons == 0)
    s.capture = nullptr;
}

void InputRouter::mouseWheel(XY<int> screen, int steps, int modifiers) {
  RouterState& s = state();
  s.mouse = screen;
  Event event = mouseEvent(Event::kMouseWheel, screen, s.buttons, modifiers);
  event.wheel = steps;
  mouseListeners().issueNotification(event, any());
  if (s.handedOver || interceptedFirst(event))
    return;
  bubble(s.capture ? s.capture : widgetAt(screen), event);
  // What the wheel scrolled may have brought another widget under the
  // pointer, which has not moved: that one is hovered now.
  if (!s.capture) {
    Glob* under = widgetAt(screen);
    updateHover(under, screen, modifiers);
    updateCursor(under, screen);
  }
}

namespace {

void deliverKeyEvent(Event const& event) {
  hoverDismiss();
  if (interceptedFirst(event))
    return;
  Glob* target = get_kbd_focus();
  if (GlobManager::refusesInput(target))
    target = GlobManager::currentModal();
  std::vector<Glob*> const windows = GlobManager::topLevelWindows();
  if (!target) {
    // The front window the user works in: a tip over it (a hint, a status
    // message) answers Return only once it has the keyboard, not because
    // nothing had it.
    auto const front = std::find_if(windows.rbegin(), windows.rend(),
                                    [](Glob const* window) { return window->windowKind() != Glob::eWindowKind::kTip; });
    target = front == windows.rend() ? nullptr : *front;
  }
  if (bubble(target, event) || event.type != Event::kKeyDown)
    return;
  int const bare = event.key & ~kKeyModifierMask;
  // An Escape no widget wanted closes the front tip that closes on it (a
  // hint the user would rather not read), as its own Escape would.
  if (bare == kKeyEscape) {
    for (auto window = windows.rbegin(); window != windows.rend(); ++window)
      if ((*window)->windowKind() == Glob::eWindowKind::kTip && is_good_glob_ptr(*window) && (*window)->react(event))
        break;
    return;
  }
  // F6, when no widget wanted it, takes the keys into the front tip that
  // works with them (a hint's OK and link), as a press in it does, and back
  // out to the window the user works in: a hint is answered by keys alone.
  if (bare == kKeyF1 + 5) {
    Glob* const focus = get_kbd_focus();
    if (focus && focus->getRootParent()->windowKind() == Glob::eWindowKind::kTip) {
      set_kbd_focus(nullptr);
      for (auto window = windows.rbegin(); window != windows.rend(); ++window)
        if ((*window)->windowKind() != Glob::eWindowKind::kTip && !(*window)->isPopupWindow()) {
          if (Glob* last = GlobRegistry::lastFocusIn(*window))
            set_kbd_focus(last);
          else
            TabOrderManager::enterWindow(**window, true);
          break;
        }
      return;
    }
    for (auto window = windows.rbegin(); window != windows.rend(); ++window)
      if ((*window)->windowKind() == Glob::eWindowKind::kTip && TabOrderManager::enterWindow(**window, true))
        break;
    return;
  }
  if (bare != kKeyTab)
    return;
  bool const forward = (event.modifiers & kKeyShift) == 0;
  if (!get_kbd_focus() && target)
    TabOrderManager::enterWindow(*target->getRootParent(), forward);
  else
    InputRouter::moveFocus(forward);
}

} // namespace

namespace {

void deliverKey(int type, int key, int modifiers) {
  Event event;
  event.type = type;
  event.key = key | modifiers;
  event.modifiers = modifiers;
  event.screenPosition = state().mouse;
  deliverKeyEvent(event);
}

} // namespace

void InputRouter::keyPressed(int key, int modifiers) { deliverKey(Event::kKeyDown, key, modifiers); }

void InputRouter::keyReleased(int key, int modifiers) { deliverKey(Event::kKeyUp, key, modifiers); }

void InputRouter::textTyped(std::string_view utf8) {
  if (utf8.empty())
    return;
  Event event;
  event.type = Event::kTextInput;
  event.text = LightweightString<char>(utf8);
  event.screenPosition = state().mouse;
  deliverKeyEvent(event);
}

namespace {

// Whether `widget` lies in the window `root`, or in a popup that belongs to
// it (a menu of one of its buttons, a menu of a drop-down of it).
bool belongsToWindow(Glob const* widget, Glob const* root) {
  constexpr int kDeepestChain = 16;
  Glob const* window = widget ? widget->getRootParent() : nullptr;
  for (int depth = 0; window && depth < kDeepestChain; ++depth) {
    if (window == root)
      return true;
    window = window->isPopupWindow() ? window->popupOwnerWindow() : nullptr;
  }
  return false;
}

// Closes the popups that do not belong to `kept` (all of them for null).
void dismissPopups(Glob const* kept) {
  hoverDismiss();
  for (Glob* window : GlobManager::topLevelWindows())
    if (window->isPopupWindow() && !(kept && belongsToWindow(window, kept)))
      window->dismissPopup();
}

} // namespace

namespace {

// A tip (a hint, a status message) floats over every window, other
// programs' too: while another program is in front, ours step aside.
void putTipsAside() {
  for (Glob* window : GlobManager::topLevelWindows())
    if (window->windowKind() == Glob::eWindowKind::kTip && !GlobManager::isDeletionPending(window))
      if (Canvas* canvas = window->canvas(); canvas && canvas->isMapped()) {
        canvas->unmap();
        state().tipsAside.emplace_back(window);
      }
}

void bringTipsBack() {
  std::vector<GlobHandle> const aside = std::exchange(state().tipsAside, {});
  for (GlobHandle const& tip : aside)
    if (Glob* window = tip.get(); window && !GlobManager::isDeletionPending(window))
      if (Canvas* canvas = window->canvas())
        canvas->map();
}

} // namespace

void InputRouter::windowActivated(Glob* root) {
  if (!is_good_glob_ptr(root) || root->isPopupWindow() || GlobManager::refusesInput(root))
    return;
  bringTipsBack();
  if (belongsToWindow(get_kbd_focus(), root))
    return;
  dismissPopups(root);
  // Its own last widget, or else its first stop, as Tab would enter it.
  if (Glob* last = GlobRegistry::lastFocusIn(root))
    set_kbd_focus(last);
  else if (!TabOrderManager::enterWindow(*root, true))
    set_kbd_focus(nullptr);
  // A window just shown is in front already: its first activation by the
  // desktop is no change of window, and those who hear of one (a hint that
  // closes when another window is activated) hear nothing.
  if (Canvas* canvas = root->canvas(); canvas && canvas->raisedOnScreen())
    GlobRegistry::announce(GlobManagerEvent::kActivated, root);
}

void InputRouter::applicationDeactivated() {
  dismissPopups(nullptr);
  putTipsAside();
}

XY<int> InputRouter::mousePosition() { return state().mouse; }
int InputRouter::buttonsHeld() { return state().buttons; }
Glob* InputRouter::mouseCapture() { return state().capture; }
Glob* InputRouter::hoveredWidget() { return state().hovered; }

bool InputRouter::moveFocus(bool forward) {
  return forward ? TabOrderManager::incrementTabStop() : TabOrderManager::decrementTabStop();
}

void InputRouter::forget(Glob* widget) {
  RouterState& s = state();
  if (s.capture == widget)
    s.capture = nullptr;
  if (s.hovered == widget)
    s.hovered = nullptr;
  getEventInterceptStack().remove(widget);
}

IdStamp EventInterceptStack::push(Glob* widget, unsigned mask) {
  if (!is_good_glob_ptr(widget) || contains(widget))
    return IdStamp::null();
  stack_.push_back(Entry{widget, mask, IdStamp()});
  return stack_.back().stamp;
}

bool EventInterceptStack::pop(IdStamp const& stamp) {
  return stamp.valid() && std::erase_if(stack_, [&](Entry const& entry) { return entry.stamp == stamp; }) != 0;
}

void EventInterceptStack::remove(Glob* widget) {
  std::erase_if(stack_, [&](Entry const& entry) { return entry.widget == widget; });
}

bool EventInterceptStack::contains(Glob const* widget) const {
  return std::any_of(stack_.begin(), stack_.end(), [&](Entry const& entry) { return entry.widget == widget; });
}

Glob* EventInterceptStack::top() const { return stack_.empty() ? nullptr : stack_.back().widget; }

Glob* EventInterceptStack::topFor(Event const& event) const {
  unsigned const kind = event.isMouse() ? kMouse : kKeys;
  for (auto entry = stack_.rbegin(); entry != stack_.rend(); ++entry)
    if (entry->mask & kind)
      return entry->widget;
  return nullptr;
}

EventInterceptStack& getEventInterceptStack() {
  static EventInterceptStack instance;
  return instance;
}

void glib_setCursor(int cursorId) {
  if (cursorId == state().cursor)
    return;
  state().cursor = cursorId;
  screenBackend().cursorChanged(cursorId);
}

int glib_getCursor() { return state().cursor; }

void glib_enableMouseContextLogic(bool enable) { state().contextCursors = enable; }

bool glib_mouseContextLogicEnabled() { return state().contextCursors; }

XY<int> glib_getMousePos() { return state().mouse; }

void mouse_canvas_connect(Canvas* canvas) {
  RouterState& s = state();
  if (s.buttons == 0)
    return; // no gesture under way
  if (!canvas) {
    s.capture = nullptr;
    s.handedOver = true;
    return;
  }
  s.handedOver = false;
  if (Glob* root = canvas->root(); is_good_glob_ptr(root))
    s.capture = root;
}

Zo::Ptr<Zo::Guard> Glib::addMouseListener(Zo::Ptr<iCallbackBase<int, Event>> const& listener) {
  return mouseListeners().addListener(listener, any());
}

void InputRouter::setHoverHook(HoverHook hook) { hoverHook() = hook; }
