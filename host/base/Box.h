#pragma once

#include <zowidgets/host/base/XY.h>

#include <algorithm>

namespace Zo {

// Coordinate convention of the toolkit: the origin is the bottom left corner
// and y grows upward, so (x0, y0) is a box's bottom left and (x1, y1) its top
// right.
struct BottomUpTraits {};

// Axis-aligned rectangle covering [x0, x1) x [y0, y1): the low edges are
// inside, the high edges are not, so width and height are plain differences
// and boxes that merely touch do not overlap. The constructor takes the
// corners in either order; a box with no area is empty.
template <class T, class Traits = BottomUpTraits> class ZO_API Box {
public:
  constexpr Box() noexcept = default;
  constexpr Box(T xa, T ya, T xb, T yb) noexcept
      : x0(std::min(xa, xb)), y0(std::min(ya, yb)), x1(std::max(xa, xb)), y1(std::max(ya, yb)) {}
  constexpr Box(XY<T> const& corner, XY<T> const& opposite) noexcept
      : Box(corner.x, corner.y, opposite.x, opposite.y) {}

  constexpr T width() const noexcept { return x1 - x0; }
  constexpr T height() const noexcept { return y1 - y0; }
  constexpr XY<T> getDimensions() const noexcept { return XY<T>(width(), height()); }
  constexpr bool empty() const noexcept { return !(x0 < x1) || !(y0 < y1); }

  constexpr bool contains(XY<T> const& point) const noexcept {
    return x0 <= point.x && point.x < x1 && y0 <= point.y && point.y < y1;
  }

  // The overlap of the two boxes; Box() when they have none.
  constexpr Box intersect(Box const& other) const noexcept {
    Box overlap;
    overlap.x0 = std::max(x0, other.x0);
    overlap.y0 = std::max(y0, other.y0);
    overlap.x1 = std::min(x1, other.x1);
    overlap.y1 = std::min(y1, other.y1);
    return overlap.empty() ? Box() : overlap;
  }

  // The smallest box covering both; an empty box adds nothing.
  constexpr Box unite(Box const& other) const noexcept {
    if (other.empty())
      return *this;
    if (empty())
      return other;
    return Box(std::min(x0, other.x0), std::min(y0, other.y0), std::max(x1, other.x1), std::max(y1, other.y1));
  }

  constexpr Box translated(XY<T> const& offset) const noexcept {
    return Box(x0 + offset.x, y0 + offset.y, x1 + offset.x, y1 + offset.y);
  }

  friend constexpr bool operator==(Box const&, Box const&) noexcept = default;

  T x0 = T();
  T y0 = T();
  T x1 = T();
  T y1 = T();
};

template <class T, class Traits> constexpr bool point_in_box(Box<T, Traits> const& box, XY<T> const& point) noexcept {
  return box.contains(point);
}

} // namespace Zo
