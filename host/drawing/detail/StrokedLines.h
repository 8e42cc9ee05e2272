#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/XY.h>

#include <cstddef>
#include <memory>

class CoverageMask;

// Straight strokes with butt ends kept as coverage masks. A widget's small
// strokes (a drop-down button's chevron, a tick) come back at the same
// length and the same fraction of a pixel paint after paint, and cairo's
// stroker costs several times laying colour through a mask of them.
class ZO_API StrokedLines {
public:
  // A stroke placed in a mask, its ends in pixels from the mask's top-left,
  // rows running down.
  struct Shape {
    XY<double> from;
    XY<double> to;
    double width = 0.0;
    bool antialias = true;
    friend bool operator==(Shape const&, Shape const&) = default;
  };
  // A mask and the whole pixel its top-left goes on.
  struct Placed {
    std::shared_ptr<CoverageMask const> mask;
    XY<int> at;
  };
  // The stroke from `from` to `to` (pixels of the target, rows running
  // down) `width` wide; no mask for an empty stroke or one too large to keep.
  static Placed coverage(XY<double> from, XY<double> to, double width, bool antialias);

  static constexpr std::size_t kMasksKept = 128;
  static std::size_t masksKept();
  // Masks made since the process started (misses).
  static std::size_t masksMade();
  static void forgetMasks();
};
