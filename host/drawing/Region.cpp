#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <zowidgets/host/drawing/detail/PixmanRegion.h>

#include <algorithm>

using Glib::detail::PixmanRegion;

iRegion::iRegion(std::vector<Zo::Box<int>> boxes) {
  PixmanRegion region(boxes);
  boxes_ = region.boxes();
}

void iRegion::add(Zo::Box<int> const& box) {
  if (box.empty())
    return;
  PixmanRegion region(boxes_);
  pixman_region32_union_rect(region.get(), region.get(), box.x0, box.y0, static_cast<unsigned>(box.width()),
                             static_cast<unsigned>(box.height()));
  boxes_ = region.boxes();
}

bool iRegion::contains(XY<int> const& point) const noexcept {
  return std::any_of(boxes_.begin(), boxes_.end(), [&point](Zo::Box<int> const& box) { return box.contains(point); });
}

bool iRegion::intersects(Zo::Box<int> const& box) const noexcept {
  return std::any_of(boxes_.begin(), boxes_.end(),
                     [&box](Zo::Box<int> const& own) { return !own.intersect(box).empty(); });
}

std::vector<Zo::Box<int>> iRegion::intersect(Zo::Box<int> const& box) const {
  if (box.empty())
    return {};
  PixmanRegion region(boxes_);
  pixman_region32_intersect_rect(region.get(), region.get(), box.x0, box.y0, static_cast<unsigned>(box.width()),
                                 static_cast<unsigned>(box.height()));
  return region.boxes();
}

Zo::Box<int> iRegion::bounds() const noexcept {
  Zo::Box<int> result;
  for (Zo::Box<int> const& box : boxes_)
    result = result.unite(box);
  return result;
}
