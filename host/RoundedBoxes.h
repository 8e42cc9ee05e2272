#pragma once

#include <zowidgets/host/Box.h>
#include <zowidgets/host/Export.h>
#include <zowidgets/host/XY.h>

#include <cstddef>

typedef struct _cairo cairo_t;

// Boxes with rounded corners for cairo: their paths, and their coverage kept
// as masks. Rasterising arc corners costs several times compositing a mask
// of them, and a widget's rounded parts (a knob, a button) come back at the
// same size and the same fraction of a pixel paint after paint.
class ZO_API RoundedBoxes {
public:
  // Adds a box with corners rounded by `radius` (0: square) to the path.
  static void addPath(cairo_t* context, Zo::Box<double> const& box, double radius);

  // Fills the box, or with `band` > 0 only the band that wide inside its
  // edge, in the context's source, through the context's clip. The shape
  // comes from a kept mask when the transform only moves and flips, and
  // from the path otherwise.
  static void fill(cairo_t* context, Zo::Box<double> const& box, double radius, double band = 0.0);

  static constexpr std::size_t kMasksKept = 128;
  static std::size_t masksKept();
  // Masks made since the process started (misses).
  static std::size_t masksMade();
  static void forgetMasks();
};
