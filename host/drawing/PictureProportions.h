#pragma once

#include <zowidgets/host/base/Export.h>

namespace Zo::Image {

// A picture's shape as its width to its height, in whole numbers as video
// formats state it (16:9, 4:3); pixels are taken as square.
struct AspectRatio {
  int width = 16;
  int height = 9;

  friend bool operator==(AspectRatio const&, AspectRatio const&) = default;
};

inline constexpr AspectRatio kAspect16x9{16, 9};
inline constexpr AspectRatio kAspect4x3{4, 3};
inline constexpr AspectRatio kAspect1x1{1, 1};

} // namespace Zo::Image

namespace Zo {

// Width over height; a ratio with a side of zero or less reads as 16:9, so
// nothing divides by zero or lays out a negative picture.
ZO_API double getAspectRatio(Image::AspectRatio aspect) noexcept;

} // namespace Zo
