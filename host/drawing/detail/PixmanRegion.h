#pragma once

#include <zowidgets/host/base/Box.h>

#include <pixman.h>

#include <vector>

namespace Glib::detail {

// A pixman region made from boxes: pixman unites them into sorted bands of
// boxes that do not overlap.
class PixmanRegion {
public:
  explicit PixmanRegion(Zo::Box<int> const& box) {
    pixman_region32_init_rect(&region_, box.x0, box.y0, static_cast<unsigned>(box.width()),
                              static_cast<unsigned>(box.height()));
  }
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
  bool empty() const noexcept { return !pixman_region32_not_empty(&region_); }

  void subtract(Zo::Box<int> const& box) {
    PixmanRegion cut(box);
    pixman_region32_subtract(&region_, &region_, cut.get());
  }

  std::vector<Zo::Box<int>> boxes() const {
    int count = 0;
    pixman_box32_t const* rects = pixman_region32_rectangles(&region_, &count);
    std::vector<Zo::Box<int>> result;
    result.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
      result.emplace_back(rects[i].x1, rects[i].y1, rects[i].x2, rects[i].y2);
    return result;
  }

private:
  pixman_region32_t region_;
};

} // namespace Glib::detail
