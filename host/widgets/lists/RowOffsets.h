#pragma once

#include <zowidgets/host/base/Export.h>

#include <functional>
#include <vector>

// Where each of many rows starts, from the top of the first. Rows of one
// height need no storage; rows of several keep a table of starts, so that
// finding the row at a point is a binary search, not a walk.
class ZO_API RowOffsets {
public:
  // Every row `height` high.
  void setUniform(int count, int height);
  // Asks each row's height (0 or less means `height`); keeps no table when
  // all come back the same.
  void measure(int count, int height, std::function<int(int)> const& heightOf);

  int count() const noexcept { return count_; }
  bool isUniform() const noexcept { return starts_.empty(); }
  int top(int index) const;
  int heightOf(int index) const;
  int total() const;
  // The row that holds the point `y` down from the top, clamped to the rows;
  // -1 without rows.
  int indexAt(int y) const;

private:
  int count_ = 0;
  int height_ = 1;
  // count_ + 1 starts when the heights vary; empty when they do not.
  std::vector<int> starts_;
};
