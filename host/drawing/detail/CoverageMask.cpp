#include <zowidgets/host/drawing/detail/CoverageMask.h>

#include <algorithm>

CoverageMask::CoverageMask(int width, int height)
    : width_(std::max(width, 0)), height_(std::max(height, 0)), stride_((width_ + 3) / 4 * 4),
      bytes_(static_cast<std::size_t>(stride_) * height_, 0) {}
