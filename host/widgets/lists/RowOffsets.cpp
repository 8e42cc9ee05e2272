#include <zowidgets/host/widgets/lists/RowOffsets.h>

#include <algorithm>
#include <climits>

void RowOffsets::setUniform(int count, int height) {
  count_ = std::max(count, 0);
  height_ = std::max(height, 1);
  starts_.clear();
}

void RowOffsets::startTable(int firstOdd) {
  starts_.reserve(static_cast<std::size_t>(count_) + 1);
  for (int before = 0; before <= firstOdd; ++before)
    starts_.push_back(static_cast<int>(std::min<long long>(static_cast<long long>(before) * height_, INT_MAX)));
}

void RowOffsets::append(int rowHeight) {
  starts_.push_back(static_cast<int>(std::min<long long>(static_cast<long long>(starts_.back()) + rowHeight, INT_MAX)));
}

int RowOffsets::top(int index) const {
  index = std::clamp(index, 0, count_);
  if (!starts_.empty())
    return starts_[index];
  return static_cast<int>(std::min<long long>(static_cast<long long>(index) * height_, INT_MAX));
}

int RowOffsets::heightOf(int index) const {
  if (index < 0 || index >= count_)
    return 0;
  return starts_.empty() ? height_ : starts_[index + 1] - starts_[index];
}

int RowOffsets::total() const { return top(count_); }

int RowOffsets::indexAt(int y) const {
  if (count_ == 0)
    return -1;
  if (starts_.empty())
    return std::clamp(y / height_, 0, count_ - 1);
  // The last start at or above y.
  auto const after = std::upper_bound(starts_.begin(), starts_.end() - 1, y);
  return std::clamp(static_cast<int>(after - starts_.begin()) - 1, 0, count_ - 1);
}
