#include <zowidgets/colour/MagnifyEnlarge.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

namespace {

std::uint32_t* rowOf(Zo::Image::Surface& picture, int row) {
  return reinterpret_cast<std::uint32_t*>(picture.data() + static_cast<std::ptrdiff_t>(row) * picture.stride());
}

std::uint32_t const* rowOf(Zo::Image::Surface const& picture, int row) {
  return reinterpret_cast<std::uint32_t const*>(picture.data() + static_cast<std::ptrdiff_t>(row) * picture.stride());
}

// Where each column of the view finds its pixel in the grabbed rows: the
// same for every row, so worked out once. Columns from `first` to `end`
// (not included) lie on grabbed pixels.
struct ColumnMap {
  ColumnMap(int width, int grabbedWidth, int firstColumn, int level, int phase) : source(width) {
    for (int x = 0; x < width; ++x) {
      int const column = firstColumn + (x + phase) / level;
      source[x] = column;
      if (column >= 0 && column < grabbedWidth) {
        first = std::min(first, x);
        end = x + 1;
      }
    }
    first = std::min(first, end);
  }
  std::vector<int> source;
  int first = std::numeric_limits<int>::max();
  int end = 0;
};

void enlargeRow(std::uint32_t* out, int width, std::uint32_t const* in, ColumnMap const& map, bool plainCopy,
                std::uint32_t outside) {
  if (!in) {
    std::fill(out, out + width, outside);
    return;
  }
  std::fill(out, out + map.first, outside);
  if (plainCopy && map.end > map.first) {
    std::memcpy(out + map.first, in + map.source[map.first], static_cast<std::size_t>(map.end - map.first) * 4);
  } else if (!plainCopy) {
    int const* column = map.source.data();
    for (int x = map.first; x < map.end; ++x)
      out[x] = in[column[x]];
  }
  std::fill(out + map.end, out + width, outside);
}

} // namespace

void magnifyInto(Zo::Image::Surface& view, Zo::Image::Surface const& grabbed, XY<int> grabbedAt, int level,
                 XY<int> crop, std::uint32_t outside) {
  level = std::max(level, 1);
  int const width = view.width();
  ColumnMap const map(width, grabbed.width(), crop.x / level - grabbedAt.x, level, crop.x % level);
  int previousSourceRow = 0;
  for (int row = 0; row < view.height(); ++row) {
    int const sourceRow = (row + crop.y) / level - grabbedAt.y;
    std::uint32_t* out = rowOf(view, row);
    // Rows showing the same source row are alike: the first one is copied.
    if (row > 0 && sourceRow == previousSourceRow) {
      std::memcpy(out, rowOf(view, row - 1), static_cast<std::size_t>(width) * 4);
      continue;
    }
    previousSourceRow = sourceRow;
    bool const read = sourceRow >= 0 && sourceRow < grabbed.height();
    enlargeRow(out, width, read ? rowOf(grabbed, sourceRow) : nullptr, map, level == 1, outside);
  }
}

void copyPixels(Zo::Image::Surface& target, XY<int> to, Zo::Image::Surface const& picture, XY<int> from, XY<int> size) {
  // Cut the block to both pictures, moving both corners alike.
  XY<int> const skip(std::max({0, -to.x, -from.x}), std::max({0, -to.y, -from.y}));
  to += skip;
  from += skip;
  int const width = std::min({size.x - skip.x, target.width() - to.x, picture.width() - from.x});
  int const height = std::min({size.y - skip.y, target.height() - to.y, picture.height() - from.y});
  for (int row = 0; row < height && width > 0; ++row)
    std::memcpy(rowOf(target, to.y + row) + to.x, rowOf(picture, from.y + row) + from.x,
                static_cast<std::size_t>(width) * 4);
}
