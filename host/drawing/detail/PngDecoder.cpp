// PNG through libpng's simplified interface, which expands palettes, grey,
// 16-bit channels and interlacing to 8-bit BGRA and reports every failure by
// its return value.
#include <zowidgets/host/drawing/detail/ImageDecoders.h>

#include <png.h>

#include <cstring>

namespace ZoImage::detail {

namespace {

class PngReading {
public:
  PngReading() {
    std::memset(&image_, 0, sizeof image_);
    image_.version = PNG_IMAGE_VERSION;
  }
  ~PngReading() { png_image_free(&image_); }
  PngReading(PngReading const&) = delete;
  PngReading& operator=(PngReading const&) = delete;

  png_image& image() noexcept { return image_; }
  std::string message() const { return image_.message[0] ? image_.message : "not a readable PNG"; }

private:
  png_image image_;
};

std::uint32_t premultiply(std::uint32_t channel, std::uint32_t alpha) { return (channel * alpha + 127) / 255; }

void premultiplyRows(Zo::Image::Surface& surface) {
  for (int row = 0; row < surface.height(); ++row) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(surface.data() + std::size_t(row) * surface.stride());
    for (int x = 0; x < surface.width(); ++x) {
      std::uint32_t const p = pixels[x];
      std::uint32_t const alpha = p >> 24;
      if (alpha == 255)
        continue;
      pixels[x] = alpha << 24 | premultiply((p >> 16) & 0xFF, alpha) << 16 | premultiply((p >> 8) & 0xFF, alpha) << 8 |
                  premultiply(p & 0xFF, alpha);
    }
  }
}

} // namespace

Zo::Image::Surface decodePng(std::string_view bytes, std::string& error) {
  PngReading reading;
  png_image& image = reading.image();
  if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size())) {
    error = reading.message();
    return {};
  }
  if (!acceptableSize(image.width, image.height)) {
    error = "the picture claims " + std::to_string(image.width) + " by " + std::to_string(image.height) +
            " pixels, more than allowed";
    return {};
  }
  image.format = PNG_FORMAT_BGRA;
  Zo::Image::Surface surface(int(image.width), int(image.height));
  if (surface.empty()) {
    error = "no memory for the pixels";
    return {};
  }
  if (!png_image_finish_read(&image, nullptr, surface.data(), surface.stride(), nullptr)) {
    error = reading.message();
    return {};
  }
  premultiplyRows(surface);
  return surface;
}

} // namespace ZoImage::detail
