#include <zowidgets/host/widgets/lists/RowOffsets.h>

#include <algorithm>
#include <climits>

namespace {

// Past the largest int, rows stop growing rather than wrap.
int capped(long long value) { return static_cast<int>(std::min<long long>(value, INT_MAX)); }

// Rows asked at least at a time while searching for a point.
constexpr int kMeasureStep = 64;

} // namespace

void RowOffsets::setUniform(int count, int height) {
  count_ = std::max(count, 0);
  height_ = std::max(height, 1);
  heightOf_ = nullptr;
  measured_ = count_;
  extent_ = static_cast<long long>(count_) * height_;
  starts_.clear();
}

void RowOffsets::setMeasured(int count, int height, HeightOf heightOf) {
  setUniform(count, height);
  heightOf_ = std::move(heightOf);
  measured_ = heightOf_ ? 0 : count_;
  extent_ = heightOf_ ? 0 : extent_;
}

void RowOffsets::measureTo(int rows) const {
  rows = std::min(rows, count_);
  while (measured_ < rows) {
    int const asked = heightOf_(measured_);
    int const rowHeight = asked > 0 ? asked : height_;
    if (starts_.empty() && rowHeight != height_)
      // The first odd row: those before it were all of the common height.
      for (int before = 0; before <= measured_; ++before)
        starts_.push_back(capped(static_cast<long long>(before) * height_));
    if (!starts_.empty())
      starts_.push_back(capped(static_cast<long long>(starts_.back()) + rowHeight));
    extent_ = std::min<long long>(extent_ + rowHeight, INT_MAX);
    ++measured_;
  }
}

int RowOffsets::top(int index) const {
  index = std::clamp(index, 0, count_);
  measureTo(index);
  return starts_.empty() ? capped(static_cast<long long>(index) * height_) : starts_[index];
}

int RowOffsets::heightOf(int index) const {
  if (index < 0 || index >= count_)
    return 0;
  measureTo(index + 1);
  return starts_.empty() ? height_ : starts_[index + 1] - starts_[index];
}

int RowOffsets::total() const { return capped(extent_ + static_cast<long long>(count_ - measured_) * height_); }

int RowOffsets::indexAt(int y) const {
  if (count_ == 0)
    return -1;
  if (y < 0)
    return 0;
  while (measured_ < count_ && extent_ <= y) {
    long long const rowsShort = (y - extent_) / height_ + 1;
    measureTo(capped(measured_ + std::max<long long>(rowsShort, kMeasureStep)));
  }
  if (y >= extent_)
    return count_ - 1;
  if (starts_.empty())
    return std::min(y / height_, count_ - 1);
  // The last start at or above y, among the measured rows.
  auto const end = starts_.begin() + measured_;
  auto const after = std::upper_bound(starts_.begin(), end, y);
  return std::clamp(static_cast<int>(after - starts_.begin()) - 1, 0, measured_ - 1);
}
