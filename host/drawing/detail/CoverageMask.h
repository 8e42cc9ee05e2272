#pragma once

#include <zowidgets/host/base/Export.h>

#include <cstdint>
#include <vector>

// How much of each pixel a shape covers, one byte a pixel (0: none, 255:
// all), rows top-down: a shape rasterised once and then laid in any colour
// wherever it is drawn again. Rows are padded to whole words, as cairo and
// pixman want them.
class ZO_API CoverageMask {
public:
  // A mask that covers nothing.
  CoverageMask(int width, int height);

  int width() const noexcept { return width_; }
  int height() const noexcept { return height_; }
  int stride() const noexcept { return stride_; }
  std::uint8_t* data() noexcept { return bytes_.data(); }
  std::uint8_t const* data() const noexcept { return bytes_.data(); }
  std::uint8_t at(int x, int row) const { return bytes_[static_cast<std::size_t>(row) * stride_ + x]; }

private:
  int width_;
  int height_;
  int stride_;
  std::vector<std::uint8_t> bytes_;
};
