#pragma once

// Passed along with a change of value. The library itself produces only
// kDataChangeAll, for a whole-value assignment and for a server's farewell.
enum DataChangeType : int {
  kDataChangeNone = 0,
  kDataChangePartial = 1,
  kDataChangeAll = 4,
};

// Whether a widget given a new value repaints now or leaves it to its caller.
enum eRedrawFlag : int {
  kNoRedraw = 0,
  kRedrawNow = 1,
};
