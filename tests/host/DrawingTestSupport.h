#pragma once

#include <zowidgets/host/ImageSurface.h>

#include <cstdint>

// Reading a surface the way the renderer addresses it: bottom-up, (0, 0) the
// bottom-left pixel.
inline std::uint32_t pixelAt(Zo::Image::Surface const& surface, int x, int y) {
  return surface.pixel(x, surface.height() - 1 - y);
}

inline int countPixels(Zo::Image::Surface const& surface, std::uint32_t value) {
  int count = 0;
  for (int row = 0; row < surface.height(); ++row)
    for (int x = 0; x < surface.width(); ++x)
      count += surface.pixel(x, row) == value ? 1 : 0;
  return count;
}

inline int countNonTransparent(Zo::Image::Surface const& surface) {
  return surface.width() * surface.height() - countPixels(surface, 0u);
}

inline int alphaOf(std::uint32_t pixel) { return int(pixel >> 24); }
inline int redOf(std::uint32_t pixel) { return int((pixel >> 16) & 0xFF); }
inline int greenOf(std::uint32_t pixel) { return int((pixel >> 8) & 0xFF); }
inline int blueOf(std::uint32_t pixel) { return int(pixel & 0xFF); }
