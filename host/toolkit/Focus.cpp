#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/toolkit/FocusReveal.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/detail/GlobRegistry.h>

#include <algorithm>

namespace {

Glob*& focused() {
  static Glob* widget = nullptr;
  return widget;
}

void collectFocusable(Glob* widget, std::vector<Glob*>& out) {
  if (!widget->isShowing())
    return;
  if (widget->canBeIt())
    out.push_back(widget);
  // A widget of several parts says in what order Tab visits them, which its
  // children's order (kept for drawing) need not be.
  if (auto* host = dynamic_cast<TabOrderableHost*>(widget)) {
    std::vector<TabOrderable*> parts;
    host->getTabOrderables(parts);
    for (Glob* part : parts)
      if (part)
        collectFocusable(part, out);
    return;
  }
  for (Glob* child : widget->getChildren())
    collectFocusable(child, out);
}

Glob* stepThrough(std::vector<Glob*> const& order, Glob const* current, bool forward) {
  if (order.empty())
    return nullptr;
  auto at = std::find(order.begin(), order.end(), current);
  if (at == order.end())
    return forward ? order.front() : order.back();
  std::size_t index = static_cast<std::size_t>(at - order.begin());
  std::size_t count = order.size();
  return order[forward ? (index + 1) % count : (index + count - 1) % count];
}

// The key moving the focus, for the widget that gains it to hear in its
// focus event's key (a text box entered by Tab selects its text, where one
// clicked into does not); 0 when no key moves it.
int& keyMovingFocus() {
  static int key = 0;
  return key;
}

// The widget each shown window took the keyboard from, with its stamp, as
// the widget may be gone and another made where it was.
struct TakenKeyboard {
  Glob* window = nullptr;
  Glob* widget = nullptr;
  IdStamp stamp;
};

std::vector<TakenKeyboard>& takenKeyboards() {
  static std::vector<TakenKeyboard> list;
  return list;
}

bool isAlive(TakenKeyboard const& entry) { return EventHandler::stampOf(entry.widget) == entry.stamp; }

bool isInside(Glob const* widget, Glob const* root) { return widget == root || isParentedTo(widget, root); }

// Notes that `window` takes the keyboard from `widget`, in another window.
void rememberKeyboard(Glob* window, Glob& widget) {
  auto& taken = takenKeyboards();
  std::erase_if(taken, [window](TakenKeyboard const& entry) { return entry.window == window; });
  taken.push_back({window, &widget, widget.handlerStamp()});
}

// The widget of each window that last had the keyboard.
std::vector<TakenKeyboard>& lastFocusOfWindows() {
  static std::vector<TakenKeyboard> list;
  return list;
}

void rememberLastFocus(Glob& widget) {
  Glob* window = widget.getRootParent();
  auto& last = lastFocusOfWindows();
  std::erase_if(last, [window](TakenKeyboard const& entry) { return entry.window == window || !isAlive(entry); });
  last.push_back({window, &widget, widget.handlerStamp()});
}

std::vector<FocusRevealer>& revealers() {
  static std::vector<FocusRevealer> list;
  return list;
}

// Gives `next` the keyboard as Tab does, and brings it into view.
bool tabTo(Glob* next, bool forward) {
  keyMovingFocus() = forward ? int{kKeyTab} : int{kKeyTab} | kKeyShift;
  bool const moved = set_kbd_focus(next);
  keyMovingFocus() = 0;
  if (moved && get_kbd_focus() == next)
    for (FocusRevealer const revealer : revealers())
      revealer(*next);
  return moved;
}

// The stop after (before) `widget` and everything inside it, in `order`,
// round the end; null when there is none.
Glob* stepPast(std::vector<Glob*> const& order, Glob const* widget, bool forward) {
  std::size_t const count = order.size();
  std::size_t edge = count;
  for (std::size_t index = 0; index < count; ++index)
    if (isInside(order[index], widget) && (edge == count || forward))
      edge = index;
  if (edge == count)
    return stepThrough(order, widget, forward);
  return order[forward ? (edge + 1) % count : (edge + count - 1) % count];
}

bool stepFocus(bool forward) {
  Glob* focus = get_kbd_focus();
  if (!focus)
    return false;
  Glob* next = TabOrderManager::nextFor(focus, forward);
  if (!next || next == focus)
    return false;
  return tabTo(next, forward);
}

} // namespace

void addFocusRevealer(FocusRevealer revealer) {
  if (std::find(revealers().begin(), revealers().end(), revealer) == revealers().end())
    revealers().push_back(revealer);
}

void GlobRegistry::forgetFocus(Glob* widget) {
  if (focused() == widget)
    focused() = nullptr;
}

void GlobRegistry::windowShown(Glob* root) {
  Glob* focus = get_kbd_focus();
  if (!root || !focus || isInside(focus, root) || !root->takesKeyboardWhenShown())
    return;
  rememberKeyboard(root, *focus);
  set_kbd_focus(nullptr);
}

void GlobRegistry::windowGone(Glob* root, bool dying) {
  auto& taken = takenKeyboards();
  auto found =
      std::find_if(taken.begin(), taken.end(), [root](TakenKeyboard const& entry) { return entry.window == root; });
  if (found == taken.end())
    return;
  TakenKeyboard const entry = *found;
  // Nothing focused is this window's doing only if no later window took it.
  bool const tookItLast = found + 1 == taken.end();
  taken.erase(found);
  // A window shown from this one hands the keyboard back to whom this one
  // would have.
  for (TakenKeyboard& later : taken)
    if (isAlive(later) && isInside(later.widget, root)) {
      later.widget = entry.widget;
      later.stamp = entry.stamp;
    }
  Glob* focus = get_kbd_focus();
  if (focus ? !isInside(focus, root) : !tookItLast)
    return;
  if (dying)
    focused() = nullptr; // its widgets may be half destroyed: not told
  else
    set_kbd_focus(nullptr);
  if (isAlive(entry) && entry.widget->isShowing() && !isInside(entry.widget, root))
    set_kbd_focus(entry.widget);
}

Glob* GlobRegistry::lastFocusIn(Glob const* root) {
  for (TakenKeyboard const& entry : lastFocusOfWindows())
    if (entry.window == root && isAlive(entry) && entry.widget->isShowing() && isInside(entry.widget, root))
      return entry.widget;
  return nullptr;
}

Glob* get_kbd_focus() { return is_good_glob_ptr(focused()) ? focused() : nullptr; }

bool set_kbd_focus(Glob* widget) {
  if (widget && !is_good_glob_ptr(widget))
    return false;
  Glob* old = get_kbd_focus();
  if (old == widget)
    return true;
  // A window being made, or a popup, that gives one of its widgets the
  // keyboard hands it back when it goes, as a window shown does.
  if (Glob* root = widget ? widget->getRootParent() : nullptr;
      old && root && (!root->canvas() || root->isPopupWindow()) && !isInside(old, root))
    rememberKeyboard(root, *old);
  focused() = widget;
  if (old) {
    old->handleKbdFocus(false);
    Event lost;
    lost.type = Event::kFocusOut;
    old->react(lost);
  }
  if (widget && focused() == widget) {
    rememberLastFocus(*widget);
    widget->handleKbdFocus(true);
    Event gained;
    gained.type = Event::kFocusIn;
    gained.key = keyMovingFocus();
    widget->react(gained);
  }
  return true;
}

bool Glob::claimKbdFocus() { return isShowing() && set_kbd_focus(this); }

void Glob::relinquishKbdFocus() {
  if (get_kbd_focus() == this)
    set_kbd_focus(nullptr);
}

void Glob::handleKbdFocus(bool) { invalidate(); }

bool Glob::hasKbdFocus() const { return get_kbd_focus() == this; }

int Glob::intercept(Event const&) { return 0; }

void Glob::setInterest(unsigned flags) {
  interest_ |= flags;
  if (flags & kTimerInterest)
    TimerTicks::addInterest(this);
}

void Glob::clearInterest(unsigned flags) {
  interest_ &= ~flags;
  if (flags & kTimerInterest)
    TimerTicks::removeInterest(this);
}

void TabOrderManager::addTabStop(TabOrderable& widget, unsigned order) {
  if (!members_.insert(&widget).second)
    return;
  // Stable by order: after every stop of the same or a lower order.
  auto at = std::upper_bound(stops_.begin(), stops_.end(), order,
                             [](unsigned wanted, Stop const& stop) { return wanted < stop.order; });
  stops_.insert(at, Stop{&widget, order});
}

void TabOrderManager::addTabStopsFrom(Glob& root) {
  std::vector<Glob*> found;
  collectFocusable(&root, found);
  unsigned order = stops_.empty() ? 0 : stops_.back().order + 1;
  for (Glob* widget : found)
    addTabStop(*widget, order++);
}

void TabOrderManager::addTabStops(TabOrderableHost& host, unsigned order) {
  std::vector<TabOrderable*> parts;
  host.getTabOrderables(parts);
  for (TabOrderable* part : parts)
    if (part)
      addTabStop(*part, order);
}

bool TabOrderManager::contains(Glob const* widget) const { return members_.count(widget) != 0; }

std::vector<Glob*> TabOrderManager::usableStops(Glob const* current) const {
  std::vector<Glob*> usable;
  for (Stop const& stop : stops_)
    if (stop.widget == current || (is_good_glob_ptr(stop.widget) && stop.widget->canBeIt()))
      usable.push_back(stop.widget);
  return usable;
}

Glob* TabOrderManager::next(Glob const* current, bool forward) const {
  std::vector<Glob*> const usable = usableStops(current);
  Glob* found = stepThrough(usable, current, forward);
  return found == current && usable.size() <= 1 ? nullptr : found;
}

std::vector<Glob*> TabOrderManager::sequenceIn(Glob& panel, Glob const* current) const {
  std::vector<Glob*> const stops = usableStops(current);
  std::vector<Glob*> all;
  collectFocusable(&panel, all);
  auto const firstStop = std::find_if(all.begin(), all.end(), [this](Glob const* widget) { return contains(widget); });
  std::vector<Glob*> sequence;
  sequence.reserve(all.size() + 1);
  for (auto it = all.begin(); it != firstStop; ++it)
    sequence.push_back(*it);
  sequence.insert(sequence.end(), stops.begin(), stops.end());
  for (auto it = firstStop; it != all.end(); ++it)
    if (!contains(*it))
      sequence.push_back(*it);
  return sequence;
}

Glob* TabOrderManager::nextFor(Glob* focus, bool forward) {
  if (!focus)
    return nullptr;
  Glob const* left = focus;
  for (Glob* panel = focus->parent(); panel; panel = panel->parent()) {
    TabOrderManager const* order = panel->getTabOrder();
    if (!order || order->empty())
      continue;
    std::vector<Glob*> const sequence = order->sequenceIn(*panel, focus);
    auto const at = std::find(sequence.begin(), sequence.end(), focus);
    if (at == sequence.end())
      continue;
    bool const atEnd = forward ? at + 1 == sequence.end() : at == sequence.begin();
    if (sequence.size() > 1 && !(atEnd && panel->parent()))
      return stepThrough(sequence, focus, forward);
    // Past its panel's last stop, or its only one: on through the window
    // from the panel's end, whatever order its own widgets lie in.
    left = panel;
    break;
  }
  std::vector<Glob*> all;
  collectFocusable(focus->getRootParent(), all);
  return stepPast(all, left, forward);
}

bool TabOrderManager::incrementTabStop() { return stepFocus(true); }

bool TabOrderManager::decrementTabStop() { return stepFocus(false); }

bool TabOrderManager::enterWindow(Glob& window, bool forward) {
  Glob* first = nullptr;
  if (TabOrderManager const* order = window.getTabOrder(); order && !order->empty()) {
    std::vector<Glob*> const sequence = order->sequenceIn(window, nullptr);
    first = stepThrough(sequence, nullptr, forward);
  }
  if (!first) {
    std::vector<Glob*> all;
    collectFocusable(&window, all);
    first = stepThrough(all, nullptr, forward);
  }
  return first && tabTo(first, forward);
}
