#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

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

// How far apart one channel of two pixels is; `shift` picks the channel (0
// blue, 8 green, 16 red, 24 alpha).
inline int channelDifference(std::uint32_t a, std::uint32_t b, int shift) {
  return std::abs(static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF));
}

// The largest difference in any channel of any pixel of two pictures of one
// size.
inline int largestDifference(Zo::Image::Surface const& a, Zo::Image::Surface const& b) {
  int largest = 0;
  for (int row = 0; row < a.height(); ++row)
    for (int x = 0; x < a.width(); ++x)
      for (int shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, channelDifference(a.pixel(x, row), b.pixel(x, row), shift));
  return largest;
}

// How many pixels have a channel more than `tolerance` apart.
inline int countDifferentBy(Zo::Image::Surface const& a, Zo::Image::Surface const& b, int tolerance) {
  int count = 0;
  for (int row = 0; row < a.height(); ++row)
    for (int x = 0; x < a.width(); ++x)
      for (int shift = 0; shift < 32; shift += 8)
        if (channelDifference(a.pixel(x, row), b.pixel(x, row), shift) > tolerance) {
          ++count;
          break;
        }
  return count;
}

inline bool samePixels(Zo::Image::Surface const& a, Zo::Image::Surface const& b) {
  return a.width() == b.width() && a.height() == b.height() && largestDifference(a, b) == 0;
}
