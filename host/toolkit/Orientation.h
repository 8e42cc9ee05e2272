#pragma once

// How two things share a length: side by side (left and right, divided by an
// upright bar) or stacked (one above the other, divided by a level bar).
enum Orientation : int {
  kStacked = 0,
  kSideBySide = 1,
};
