#pragma once

#include <zowidgets/host/base/Export.h>

#include <functional>
#include <vector>

// Where each of many rows starts, from the top of the first. Rows of one
// height need no storage; rows of several keep a table of starts, so that
// finding the row at a point is a binary search, not a walk.
//
// Heights are asked in order and only as far as a question reaches: showing
// the top of a million rows asks a screenful, and going to the end asks them
// all, once. Until every row has been asked, the total counts the rest at
// the common height.
class ZO_API RowOffsets {
public:
  using HeightOf = std::function<int(int)>;

  // Every row `height` high.
  void setUniform(int count, int height);
  // Rows whose heights `heightOf` tells, 0 or less meaning `height`.
  void setMeasured(int count, int height, HeightOf heightOf);

  int count() const noexcept { return count_; }
  // Whether every row asked so far had the common height.
  bool isUniform() const noexcept { return starts_.empty(); }
  // How many rows have been asked; all of them once the total is exact.
  int measuredCount() const noexcept { return measured_; }
  bool isExact() const noexcept { return measured_ == count_; }
  int top(int index) const;
  int heightOf(int index) const;
  int total() const;
  // The row that holds the point `y` down from the top, clamped to the rows;
  // -1 without rows.
  int indexAt(int y) const;
  void measureAll() const { measureTo(count_); }

private:
  // Asks the rows before `rows` that have not been asked.
  void measureTo(int rows) const;

  int count_ = 0;
  int height_ = 1;
  HeightOf heightOf_;
  mutable int measured_ = 0;
  mutable long long extent_ = 0; // the measured rows' height
  // measured_ + 1 starts once a row differed; empty until then.
  mutable std::vector<int> starts_;
};
