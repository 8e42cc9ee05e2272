#pragma once

#include <zowidgets/host/base/Export.h>

#include <vector>

// Where each of many rows starts, from the top of the first. Rows of one
// height need no storage; rows of several keep a table of starts, so that
// finding the row at a point is a binary search, not a walk.
class ZO_API RowOffsets {
public:
  // Every row `height` high.
  void setUniform(int count, int height);
  // Asks each row's height (0 or less means `height`); keeps no table when
  // all come back the same. A template, so that a million rows cost a
  // million calls of heightOf and nothing more.
  template <class HeightOf> void measure(int count, int height, HeightOf&& heightOf) {
    setUniform(count, height);
    int index = 0;
    // Rows of the common height need no table until one differs.
    while (index < count_) {
      int const asked = heightOf(index);
      if (asked > 0 && asked != height_)
        break;
      ++index;
    }
    if (index == count_)
      return;
    startTable(index);
    for (; index < count_; ++index) {
      int const asked = heightOf(index);
      append(asked > 0 ? asked : height_);
    }
  }

  int count() const noexcept { return count_; }
  bool isUniform() const noexcept { return starts_.empty(); }
  int top(int index) const;
  int heightOf(int index) const;
  int total() const;
  // The row that holds the point `y` down from the top, clamped to the rows;
  // -1 without rows.
  int indexAt(int y) const;

private:
  // Starts the table with the rows before `firstOdd`, all of the common
  // height.
  void startTable(int firstOdd);
  // The next row's height; past the largest int, rows stop growing rather
  // than wrap.
  void append(int rowHeight);

  int count_ = 0;
  int height_ = 1;
  // count_ + 1 starts when the heights vary; empty when they do not.
  std::vector<int> starts_;
};
