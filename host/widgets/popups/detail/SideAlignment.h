#pragma once

#include <zowidgets/host/toolkit/WidgetPosition.h>

// Where a length starts along a side running from `start` to `end`, lined up
// by `alignment`; `startIsHigh` for a vertical side, whose start is its top.
// Pop-ups line up with what they belong to this way.
inline int alongSide(int start, int end, int length, eWidgetAlignment alignment, bool startIsHigh) {
  switch (alignment) {
  case kAlignCentre:
    return start + (end - start - length) / 2;
  case kAlignEnd:
    return startIsHigh ? start : end - length;
  default:
    return startIsHigh ? end - length : start;
  }
}

// Whether a pop-up of `size` fits on the screen on that side of `owner`, a
// box in screen coordinates (y counts up).
inline bool roomOnSide(Zo::Box<int> const& owner, XY<int> size, XY<int> screen, eWidgetRelativity side) {
  switch (side) {
  case kRelativeAbove:
    return owner.y1 + size.y <= screen.y;
  case kRelativeLeft:
    return owner.x0 - size.x >= 0;
  case kRelativeRight:
    return owner.x1 + size.x <= screen.x;
  default:
    return owner.y0 - size.y >= 0;
  }
}

// The side a pop-up opens on: the preferred one, or the opposite one when
// only that has room. With room on neither it keeps the preferred side, and
// being kept on the screen then moves it over part of its owner.
inline eWidgetRelativity sideWithRoom(Zo::Box<int> const& owner, XY<int> size, XY<int> screen,
                                      eWidgetRelativity preferred) {
  eWidgetRelativity const opposite = preferred == kRelativeAbove   ? kRelativeBelow
                                     : preferred == kRelativeLeft  ? kRelativeRight
                                     : preferred == kRelativeRight ? kRelativeLeft
                                                                   : kRelativeAbove;
  return !roomOnSide(owner, size, screen, preferred) && roomOnSide(owner, size, screen, opposite) ? opposite
                                                                                                  : preferred;
}
