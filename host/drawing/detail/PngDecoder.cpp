// PNG through libpng. A picture wanted whole goes through the simplified
// interface, which expands palettes, grey, 16-bit channels and interlacing to
// 8-bit BGRA. A picture wanted much smaller is read a row at a time through
// the classic interface and shrunk by whole blocks as the rows arrive, so the
// full-size picture is never held: there is no reduced decode in the format
// itself. Interlaced files are read whole either way, since their rows come
// in several passes.
#include <zowidgets/host/drawing/detail/ImageDecoders.h>

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <memory>
#include <vector>

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

void premultiplyRow(std::uint32_t* pixels, int width) {
  for (int x = 0; x < width; ++x) {
    std::uint32_t const p = pixels[x];
    std::uint32_t const alpha = p >> 24;
    if (alpha == 255)
      continue;
    pixels[x] = alpha << 24 | premultiply((p >> 16) & 0xFF, alpha) << 16 | premultiply((p >> 8) & 0xFF, alpha) << 8 |
                premultiply(p & 0xFF, alpha);
  }
}

std::string tooLarge(long long width, long long height) {
  return "the picture claims " + std::to_string(width) + " by " + std::to_string(height) + " pixels, more than allowed";
}

Zo::Image::Surface decodeWhole(std::string_view bytes, std::string& error) {
  PngReading reading;
  png_image& image = reading.image();
  if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size())) {
    error = reading.message();
    return {};
  }
  if (!acceptableSize(image.width, image.height)) {
    error = tooLarge(image.width, image.height);
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
  for (int row = 0; row < surface.height(); ++row)
    premultiplyRow(reinterpret_cast<std::uint32_t*>(surface.data() + std::size_t(row) * surface.stride()),
                   surface.width());
  return surface;
}

// Averages blocks of `factor` by `factor` pixels (premultiplied) into one, a
// band of rows at a time; the blocks at the right and bottom edges may be
// narrower and are averaged over what they hold.
class BlockShrinker {
public:
  BlockShrinker(int width, int height, int factor)
      : width_(width), factor_(factor), out_((width + factor - 1) / factor, (height + factor - 1) / factor),
        sums_(std::size_t(out_.width()) * 4) {}

  Zo::Image::Surface& result() noexcept { return out_; }

  void addRow(std::uint32_t const* pixels) {
    std::uint32_t* sum = sums_.data();
    for (int x = 0; x < width_; sum += 4) {
      int const blockEnd = std::min(x + factor_, width_);
      std::uint32_t blue = 0, green = 0, red = 0, alpha = 0;
      for (; x < blockEnd; ++x) {
        std::uint32_t const p = pixels[x];
        blue += p & 0xFF;
        green += (p >> 8) & 0xFF;
        red += (p >> 16) & 0xFF;
        alpha += p >> 24;
      }
      sum[0] += blue;
      sum[1] += green;
      sum[2] += red;
      sum[3] += alpha;
    }
    if (++rowsInBand_ == factor_)
      finishBand();
  }

  void finish() {
    if (rowsInBand_ > 0)
      finishBand();
  }

private:
  void finishBand() {
    auto* row = reinterpret_cast<std::uint32_t*>(out_.data() + std::size_t(outRow_) * out_.stride());
    for (int x = 0; x < out_.width(); ++x) {
      std::uint32_t const columns = std::uint32_t(std::min(factor_, width_ - x * factor_));
      std::uint32_t const count = columns * std::uint32_t(rowsInBand_);
      std::uint32_t* sum = sums_.data() + std::size_t(x) * 4;
      auto const mean = [&](int channel) { return (sum[channel] + count / 2) / count; };
      row[x] = mean(3) << 24 | mean(2) << 16 | mean(1) << 8 | mean(0);
    }
    std::fill(sums_.begin(), sums_.end(), 0u);
    rowsInBand_ = 0;
    ++outRow_;
  }

  int width_;
  int factor_;
  Zo::Image::Surface out_;
  std::vector<std::uint32_t> sums_;
  int rowsInBand_ = 0;
  int outRow_ = 0;
};

struct MemorySource {
  std::string_view bytes;
  std::size_t at = 0;
};

void readFromMemory(png_structp png, png_bytep into, png_size_t length) {
  auto* source = static_cast<MemorySource*>(png_get_io_ptr(png));
  if (length > source->bytes.size() - source->at)
    png_error(png, "the file ends before the picture does");
  std::memcpy(into, source->bytes.data() + source->at, length);
  source->at += length;
}

// Everything a longjmp out of libpng must find intact lives here, outside
// the frame that calls setjmp.
struct RowReading {
  png_structp png = nullptr;
  png_infop info = nullptr;
  MemorySource source;
  std::string message;
  std::vector<std::uint32_t> row;
  std::unique_ptr<BlockShrinker> shrinker;
  bool interlaced = false;
  bool tooLarge = false;
  png_uint_32 width = 0;
  png_uint_32 height = 0;

  ~RowReading() { png_destroy_read_struct(&png, &info, nullptr); }
};

void onError(png_structp png, png_const_charp message) {
  auto* reading = static_cast<RowReading*>(png_get_error_ptr(png));
  reading->message = message;
  png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

// The block size that still leaves at least twice the wanted size, so the
// final resize has real detail to filter; 1 when no shrinking is worth it.
int shrinkFactor(png_uint_32 width, png_uint_32 height, XY<int> fitWithin) {
  if (fitWithin.x <= 0 || fitWithin.y <= 0)
    return 1;
  return int(
      std::max<png_uint_32>(1, std::min(width / png_uint_32(2 * fitWithin.x), height / png_uint_32(2 * fitWithin.y))));
}

// False with reading.message set on a libpng error; true otherwise, with
// reading.shrinker holding the picture unless it must be read whole instead.
bool readShrunk(RowReading& reading, XY<int> fitWithin) {
  if (setjmp(png_jmpbuf(reading.png)))
    return false;
  png_set_read_fn(reading.png, &reading.source, readFromMemory);
  png_read_info(reading.png, reading.info);
  reading.width = png_get_image_width(reading.png, reading.info);
  reading.height = png_get_image_height(reading.png, reading.info);
  if (!acceptableSize(reading.width, reading.height)) {
    reading.tooLarge = true;
    return false;
  }
  reading.interlaced = png_get_interlace_type(reading.png, reading.info) != PNG_INTERLACE_NONE;
  int const factor = shrinkFactor(reading.width, reading.height, fitWithin);
  if (reading.interlaced || factor == 1)
    return true;
  // As the simplified interface does: 8-bit BGRA in sRGB whatever is stored.
  png_set_gamma(reading.png, PNG_DEFAULT_sRGB, PNG_DEFAULT_sRGB);
  png_set_expand(reading.png);
  png_set_scale_16(reading.png);
  png_set_gray_to_rgb(reading.png);
  png_set_bgr(reading.png);
  png_set_add_alpha(reading.png, 0xFF, PNG_FILLER_AFTER);
  png_read_update_info(reading.png, reading.info);
  reading.row.resize(reading.width);
  reading.shrinker = std::make_unique<BlockShrinker>(int(reading.width), int(reading.height), factor);
  for (png_uint_32 y = 0; y < reading.height; ++y) {
    png_read_row(reading.png, reinterpret_cast<png_bytep>(reading.row.data()), nullptr);
    premultiplyRow(reading.row.data(), int(reading.width));
    reading.shrinker->addRow(reading.row.data());
  }
  reading.shrinker->finish();
  png_read_end(reading.png, nullptr);
  return true;
}

} // namespace

Zo::Image::Surface decodePng(std::string_view bytes, XY<int> fitWithin, XY<int>& fullSize, std::string& error) {
  if (fitWithin.x <= 0 || fitWithin.y <= 0)
    return decodeWhole(bytes, error);
  RowReading reading;
  reading.source.bytes = bytes;
  reading.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &reading, onError, onWarning);
  reading.info = reading.png ? png_create_info_struct(reading.png) : nullptr;
  if (!reading.info) {
    error = "no memory for the decoder";
    return {};
  }
  if (!readShrunk(reading, fitWithin)) {
    error = reading.tooLarge ? tooLarge(reading.width, reading.height)
                             : (reading.message.empty() ? std::string("not a readable PNG") : reading.message);
    return {};
  }
  fullSize = XY<int>(int(reading.width), int(reading.height));
  if (!reading.shrinker)
    return decodeWhole(bytes, error);
  return std::move(reading.shrinker->result());
}

} // namespace ZoImage::detail
