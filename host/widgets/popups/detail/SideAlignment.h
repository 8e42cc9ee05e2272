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
