#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/toolkit/TabOrderableHost.h>

#include <unordered_set>
#include <vector>

// The order in which Tab and Shift-Tab move the keyboard focus through a
// panel's widgets. Stops are visited by their order number, ties in the order
// they were added; stops that are hidden, inactive or dead are skipped.
// Without one, the focusable widgets of a window are visited in tree order.
class ZO_API TabOrderManager {
public:
  void addTabStop(TabOrderable& widget, unsigned order);
  // Adds every focusable widget under `root`, in tree order, after the stops
  // already there.
  void addTabStopsFrom(Glob& root);
  // Adds the parts of `host`, in its order, each with `order`.
  void addTabStops(TabOrderableHost& host, unsigned order);
  void clear() {
    stops_.clear();
    members_.clear();
  }
  bool empty() const noexcept { return stops_.empty(); }
  bool contains(Glob const* widget) const;
  // The stop after (or before) `current`, wrapping; null when none.
  Glob* next(Glob const* current, bool forward) const;

  // The widget Tab moves to from `focus`: by the tab order of the nearest
  // panel that has one and holds `focus`, else by tree order in its window.
  // Tab goes on through the window from a panel's only stop, and from the
  // last stop (Shift-Tab: the first) of a panel within a window, rather
  // than keeping to that panel; a window's own order wraps round. The
  // panel's focusable widgets that are not stops (a button put beside
  // built rows) are visited too, in tree order: those before the first
  // stop in the tree before the stops, the others after them.
  static Glob* nextFor(Glob* focus, bool forward);
  // Move the keyboard focus as Tab and Shift-Tab do; true when it moved.
  static bool incrementTabStop();
  static bool decrementTabStop();
  // Tab or Shift-Tab in `window` while nothing has the keyboard: the focus
  // goes to its first (last) stop, by the window's tab order when it has
  // one, else by tree order; true when it moved. Any widget may stand for
  // the window (a scrolling panel's row entered by Down).
  static bool enterWindow(Glob& window, bool forward);

private:
  // The stops Tab may visit now, with `current` kept in its place.
  std::vector<Glob*> usableStops(Glob const* current) const;
  // What Tab visits in `panel`, whose order this is: the usable stops, and
  // the focusable widgets that are not stops placed around them.
  std::vector<Glob*> sequenceIn(Glob& panel, Glob const* current) const;

  struct Stop {
    Glob* widget;
    unsigned order;
  };
  std::vector<Stop> stops_;
  // The stops' widgets, so that adding one to a long order costs little.
  std::unordered_set<Glob const*> members_;
};
