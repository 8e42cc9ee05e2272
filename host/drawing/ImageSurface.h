#pragma once

#include <zowidgets/host/drawing/Colour.h>

#include <cstdint>
#include <memory>
#include <string>

namespace Zo::Image {

// A picture in memory: 32-bit pixels 0xAARRGGBB with premultiplied alpha,
// stored as native-endian words, rows packed `stride()` bytes apart with row 0
// at the top. This is the layout the drawing layer renders into directly.
//
// Surface is a handle: copies share the pixels, and a change through one is
// seen through all. clone() makes an independent copy.
class ZO_API Surface {
public:
  // The largest side a surface may have; larger requests give an empty one.
  static constexpr int kMaxSide = 32767;

  // An empty surface: no pixels, width and height 0.
  Surface() noexcept = default;
  // A transparent surface; a side of 0 or less (or above kMaxSide) gives an
  // empty surface.
  Surface(int width, int height);

  int width() const noexcept;
  int height() const noexcept;
  // Bytes from the start of one row to the start of the next.
  int stride() const noexcept;
  bool empty() const noexcept { return !pixels_; }
  std::uint8_t* data() noexcept;
  std::uint8_t const* data() const noexcept;
  // True when both handles show the same pixels.
  bool sharesPixelsWith(Surface const& other) const noexcept { return pixels_ && pixels_ == other.pixels_; }

  // The stored (premultiplied) value; 0 for a place outside the surface.
  std::uint32_t pixel(int x, int rowFromTop) const noexcept;
  // Stores a premultiplied value as given; ignored outside the surface.
  void setPixel(int x, int rowFromTop, std::uint32_t argb) noexcept;

  // Every pixel becomes `colour` (its alpha included), replacing what was
  // there. An invalid colour makes the surface transparent.
  void fill(Colour const& colour);
  Surface clone() const;
  // Composites `source` over this surface with its top-left corner at
  // (x, rowFromTop); parts that fall outside are dropped.
  void blit(Surface const& source, int x, int rowFromTop);

  // Writes an 8-bit RGBA PNG (alpha straight, as the format wants), replacing
  // the file atomically. False when the surface is empty or the file cannot be
  // written; an old file at `path` is then left whole.
  bool savePNG(std::string const& path) const;
  // The bytes of that PNG file; empty when the surface is empty or the
  // encoder fails.
  std::string pngBytes() const;
  // Reads any PNG that libpng understands; an empty surface when the file is
  // missing, malformed or too large.
  static Surface loadPNG(std::string const& path);

  struct Difference {
    int maxChannel = 0;            // largest difference of one channel, 0..255
    long long differingPixels = 0; // pixels with a channel differing by more than the tolerance
    bool sameSize = true;
  };
  // Pixel-by-pixel comparison of the stored values of two surfaces of the
  // same size; surfaces of different sizes report sameSize false and
  // maxChannel 255.
  static Difference compare(Surface const& a, Surface const& b, int tolerance = 0) noexcept;
  static int maxChannelDifference(Surface const& a, Surface const& b) noexcept { return compare(a, b).maxChannel; }

private:
  struct Pixels;
  std::shared_ptr<Pixels> pixels_;
};

} // namespace Zo::Image
