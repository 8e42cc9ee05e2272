#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/XY.h>

#include <functional>

struct Event;
class Glob;
class ScrollBar;

// The sideways scrolling of a view whose content may be wider than it: a
// horizontal ScrollBar that shows only while the content overflows, the
// offset it sets, and the wheel's sideways turns (the vertical wheel with
// Shift held, as which InputRouter also delivers the horizontal axis). The
// owner takes the bar's height off
// its view, places the bar under it, draws its content shifted left by the
// offset, and hears of every change of offset.
class ZO_API HorizontalScroller {
public:
  // The bar becomes a child of `owner`, hidden until the content overflows;
  // `scrolled` is called after each change of offset.
  HorizontalScroller(Glob& owner, std::function<void()> scrolled);
  HorizontalScroller(HorizontalScroller const&) = delete;
  HorizontalScroller& operator=(HorizontalScroller const&) = delete;

  // Pixels the content is shifted left: 0 .. content width - view width.
  int offset() const noexcept { return offset_; }
  int contentWidth() const noexcept { return content_; }
  int viewWidth() const noexcept { return view_; }
  bool isBarShown() const noexcept { return barShown_; }
  // The height the bar takes from the view: its thickness while it shows.
  int barHeight() const;
  ScrollBar* getBar() const noexcept { return bar_; }

  // The content's and the view's widths as they are now; the offset stays
  // inside the new range. True when the bar came or went, so the owner's
  // room for its view changed.
  bool setWidths(int content, int view);
  // Puts the bar under the view: its left end at `bottomLeft` (the owner's
  // coordinates, bottom-up) and as wide as the view.
  void placeBar(XY<int> bottomLeft);
  void setOffset(int offset);
  // Scrolls as little as needed to show the content from `left` to `right`;
  // when that is wider than the view, its left edge.
  void scrollToShow(int left, int right);

  // The bar's messages to the owner; false for any other.
  bool handleMessage(LightweightString<char> const& message, Glob const* sender);
  // A wheel turn meant sideways scrolls while the content overflows; false
  // when the event is not one, or there is nothing to scroll.
  bool handleWheel(Event const& event);
  // The wheel with Shift held, in steps to the right.
  static int sidewaysSteps(Event const& event);
  // How far one wheel step or one press of the bar's end buttons moves.
  static int stepWidth();

private:
  int maxOffset() const noexcept;
  void showPosition();

  ScrollBar* bar_ = nullptr;
  std::function<void()> scrolled_;
  int offset_ = 0;
  int content_ = 0;
  int view_ = 0;
  bool barShown_ = false;
};
