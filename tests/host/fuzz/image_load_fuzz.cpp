// Arbitrary bytes as a picture file. The first byte picks the size asked for,
// so that the reduced-scale JPEG path, the PNG rows shrunk as they arrive and
// the resize are reached as well as whole decodes. A result must be empty or
// a sane picture of at most the size asked for.
#include <zowidgets/host/drawing/ImageLoader.h>

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size < 1)
    return 0;
  int const side = data[0] & 0x7F; // 0 asks for the whole picture
  std::string_view const bytes(reinterpret_cast<char const*>(data + 1), size - 1);
  XY<int> const fitWithin(side, side * 3 / 4);
  Zo::Image::Surface const picture = ZoImage::Loader::decode(bytes, fitWithin, "fuzz input");
  if (picture.empty())
    return 0;
  if (picture.width() < 1 || picture.height() < 1 || picture.width() > Zo::Image::Surface::kMaxSide)
    std::abort();
  if (side > 0 && fitWithin.y > 0 && (picture.width() > fitWithin.x || picture.height() > fitWithin.y))
    std::abort();
  // Every stored value is premultiplied: no channel above its alpha.
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      std::uint32_t const p = picture.pixel(x, y);
      std::uint32_t const alpha = p >> 24;
      if (((p >> 16) & 0xFF) > alpha || ((p >> 8) & 0xFF) > alpha || (p & 0xFF) > alpha)
        std::abort();
    }
  }
  return 0;
}
