#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <pixman.h>

#include <algorithm>

namespace {

// A pixman region made from boxes: pixman unites them into sorted bands of
// boxes that do not overlap.
class PixmanRegion {
public:
  explicit PixmanRegion(std::vector<Zo::Box<int>> const& boxes) {
    std::vector<pixman_box32_t> rects;
    rects.reserve(boxes.size());
    for (Zo::Box<int> const& box : boxes)
      rects.push_back(pixman_box32_t{box.x0, box.y0, box.x1, box.y1});
    pixman_region32_init_rects(&region_, rects.data(), static_cast<int>(rects.size()));
  }
  ~PixmanRegion() { pixman_region32_fini(&region_); }
  PixmanRegion(PixmanRegion const&) = delete;
  PixmanRegion& operator=(PixmanRegion const&) = delete;

  pixman_region32_t* get() noexcept { return &region_; }

  static std::vector<Zo::Box<int>> boxesOf(pixman_region32_t* region) {
    int count = 0;
    pixman_box32_t const* rects = pixman_region32_rectangles(region, &count);
    std::vector<Zo::Box<int>> boxes;
    boxes.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
      boxes.emplace_back(rects[i].x1, rects[i].y1, rects[i].x2, rects[i].y2);
    return boxes;
  }

private:
  pixman_region32_t region_;
};

} // namespace

iRegion::iRegion(std::vector<Zo::Box<int>> boxes) {
  PixmanRegion region(boxes);
  boxes_ = PixmanRegion::boxesOf(region.get());
}

void iRegion::add(Zo::Box<int> const& box) {
  if (box.empty())
    return;
  PixmanRegion region(boxes_);
  pixman_region32_union_rect(region.get(), region.get(), box.x0, box.y0, static_cast<unsigned>(box.width()),
                             static_cast<unsigned>(box.height()));
  boxes_ = PixmanRegion::boxesOf(region.get());
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
  return PixmanRegion::boxesOf(region.get());
}

Zo::Box<int> iRegion::bounds() const noexcept {
  Zo::Box<int> result;
  for (Zo::Box<int> const& box : boxes_)
    result = result.unite(box);
  return result;
}
