#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/XY.h>

#include <cstddef>
#include <memory>

class CoverageMask;
typedef struct _cairo cairo_t;

// Boxes with rounded corners: their cairo paths, and their coverage kept as
// masks. Rasterising arc corners costs several times laying colour through a
// mask of them, and a widget's rounded parts (a knob, a button) come back at
// the same size and the same fraction of a pixel paint after paint.
class ZO_API RoundedBoxes {
public:
  // Adds a box with corners rounded by `radius` (0: square) to the path.
  static void addPath(cairo_t* context, Zo::Box<double> const& box, double radius);
  // Fills the box, or with `band` > 0 only the band that wide inside its
  // edge, from its path in the context's source.
  static void fillPath(cairo_t* context, Zo::Box<double> const& box, double radius, double band = 0.0);

  // A box (or its band) placed `fraction` right of and below a whole pixel,
  // in pixels with rows running down.
  struct Shape {
    double width = 0.0;
    double height = 0.0;
    double radius = 0.0;
    double band = 0.0;
    XY<double> fraction;
    bool antialias = true;
    friend bool operator==(Shape const&, Shape const&) = default;
  };
  // The shape's coverage with its top-left at the whole pixel, kept for the
  // next time it is asked for; null when the shape is too large to keep.
  static std::shared_ptr<CoverageMask const> coverage(Shape const& shape);

  static constexpr std::size_t kMasksKept = 128;
  static std::size_t masksKept();
  // Masks made since the process started (misses).
  static std::size_t masksMade();
  static void forgetMasks();
};
