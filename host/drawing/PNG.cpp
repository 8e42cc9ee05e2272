// PNG files for Zo::Image::Surface, through libpng's simplified API, which
// reports every failure by its return value.
#include <zowidgets/host/base/AtomicFile.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <png.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

namespace Zo::Image {

namespace {

// Straight alpha from premultiplied, rounded to nearest: premultiplying the
// result again gives back the stored value exactly.
std::uint8_t unpremultiply(std::uint32_t channel, std::uint32_t alpha) {
  return static_cast<std::uint8_t>(std::min<std::uint32_t>((channel * 255 + alpha / 2) / alpha, 255));
}

std::uint32_t premultiply(std::uint32_t channel, std::uint32_t alpha) { return (channel * alpha + 127) / 255; }

// A file may claim any size in its header; this bounds what one load takes.
constexpr unsigned long long kMaxLoadedPixels = 1ull << 27;

} // namespace

namespace {

// The pixels as 8-bit RGBA rows with straight alpha, as PNG wants them.
std::vector<std::uint8_t> straightRGBA(Surface const& surface) {
  std::vector<std::uint8_t> rgba(std::size_t(surface.width()) * surface.height() * 4);
  std::uint8_t* out = rgba.data();
  for (int row = 0; row < surface.height(); ++row) {
    for (int x = 0; x < surface.width(); ++x, out += 4) {
      std::uint32_t const p = surface.pixel(x, row);
      std::uint32_t const alpha = p >> 24;
      if (alpha == 0) {
        std::memset(out, 0, 4);
        continue;
      }
      out[0] = unpremultiply((p >> 16) & 0xFF, alpha);
      out[1] = unpremultiply((p >> 8) & 0xFF, alpha);
      out[2] = unpremultiply(p & 0xFF, alpha);
      out[3] = static_cast<std::uint8_t>(alpha);
    }
  }
  return rgba;
}

png_image rgbaImage(Surface const& surface) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(surface.width());
  image.height = static_cast<png_uint_32>(surface.height());
  image.format = PNG_FORMAT_RGBA;
  return image;
}

} // namespace

bool Surface::savePNG(std::string const& path) const {
  std::string const bytes = pngBytes();
  return !bytes.empty() && writeFileAtomically(path, bytes);
}

std::string Surface::pngBytes() const {
  if (empty())
    return {};
  std::vector<std::uint8_t> const rgba = straightRGBA(*this);
  png_image image = rgbaImage(*this);
  png_alloc_size_t size = 0;
  // The first call measures, the second writes.
  if (!png_image_write_to_memory(&image, nullptr, &size, 0, rgba.data(), 0, nullptr)) {
    png_image_free(&image);
    return {};
  }
  std::string bytes(size, '\0');
  bool const written = png_image_write_to_memory(&image, bytes.data(), &size, 0, rgba.data(), 0, nullptr) != 0;
  png_image_free(&image);
  if (!written)
    return {};
  bytes.resize(size);
  return bytes;
}

Surface Surface::loadPNG(std::string const& path) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str()))
    return Surface();
  if (image.width == 0 || image.height == 0 || image.width > kMaxSide || image.height > kMaxSide ||
      static_cast<unsigned long long>(image.width) * image.height > kMaxLoadedPixels) {
    png_image_free(&image);
    return Surface();
  }
  image.format = PNG_FORMAT_RGBA;
  std::vector<std::uint8_t> rgba;
  try {
    rgba.resize(PNG_IMAGE_SIZE(image));
  } catch (std::bad_alloc const&) {
    png_image_free(&image);
    return Surface();
  }
  if (!png_image_finish_read(&image, nullptr, rgba.data(), 0, nullptr)) {
    png_image_free(&image);
    return Surface();
  }
  Surface surface(static_cast<int>(image.width), static_cast<int>(image.height));
  std::uint8_t const* in = rgba.data();
  for (int row = 0; row < surface.height(); ++row) {
    for (int x = 0; x < surface.width(); ++x, in += 4) {
      std::uint32_t const alpha = in[3];
      surface.setPixel(x, row,
                       alpha << 24 | premultiply(in[0], alpha) << 16 | premultiply(in[1], alpha) << 8 |
                           premultiply(in[2], alpha));
    }
  }
  return surface;
}

} // namespace Zo::Image
