#pragma once

#include <zowidgets/host/base/detail/LruCache.h>
#include <zowidgets/host/drawing/detail/CoverageMask.h>

#include <cstddef>
#include <memory>
#include <mutex>

// Coverage masks of shapes, each made once by `Make` and kept for the next
// time, the least recently used forgotten past `capacity`. Shared by every
// renderer on every thread.
template <class Shape, class Hash, class Make> class ShapeMaskStore {
public:
  ShapeMaskStore(std::size_t capacity, Make make) : masks_(capacity), make_(make) {}
  ShapeMaskStore(ShapeMaskStore const&) = delete;
  ShapeMaskStore& operator=(ShapeMaskStore const&) = delete;

  std::shared_ptr<CoverageMask const> coverage(Shape const& shape) {
    std::lock_guard lock(mutex_);
    if (auto const* kept = masks_.find(shape))
      return *kept;
    ++made_;
    return masks_.insert(shape, make_(shape));
  }
  std::size_t kept() {
    std::lock_guard lock(mutex_);
    return masks_.size();
  }
  std::size_t made() {
    std::lock_guard lock(mutex_);
    return made_;
  }
  void clear() {
    std::lock_guard lock(mutex_);
    masks_.clear();
  }

private:
  std::mutex mutex_;
  LruCache<Shape, std::shared_ptr<CoverageMask const>, Hash> masks_;
  Make make_;
  std::size_t made_ = 0;
};
