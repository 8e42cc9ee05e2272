#include <zowidgets/host/drawing/ImageSurface.h>

#include <cairo.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include <sys/mman.h>

namespace Zo::Image {

namespace {

// A big canvas is first touched page by page as it is painted; in pages of
// 2 MB the kernel takes a five-hundredth of the faults to hand it over.
void askForHugePages(std::uint8_t* bytes, std::size_t size) {
  constexpr std::uintptr_t kHugePage = 2u << 20;
  auto const begin = (reinterpret_cast<std::uintptr_t>(bytes) + kHugePage - 1) & ~(kHugePage - 1);
  auto const end = (reinterpret_cast<std::uintptr_t>(bytes) + size) & ~(kHugePage - 1);
  if (end > begin)
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}

} // namespace

// Rows are as long as cairo wants them for ARGB32, so cairo can draw on the
// bytes in place.
// Zeroed by calloc: a large block comes as fresh pages that are zero
// already, so a big canvas is not written twice before it is painted.
struct Surface::Pixels {
  struct FreeBytes {
    void operator()(std::uint8_t* bytes) const noexcept { std::free(bytes); }
  };

  Pixels(int w, int h)
      : width(w), height(h), stride(cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, w)),
        bytes(static_cast<std::uint8_t*>(std::calloc(std::size_t(stride) * h, 1))) {
    if (!bytes)
      throw std::bad_alloc();
    askForHugePages(bytes.get(), std::size_t(stride) * h);
  }

  int width;
  int height;
  int stride;
  std::unique_ptr<std::uint8_t[], FreeBytes> bytes;
};

namespace {

// cairo's view of a surface's pixels, for the length of one operation.
struct CairoView {
  explicit CairoView(Surface const& pixels)
      : surface(cairo_image_surface_create_for_data(const_cast<std::uint8_t*>(pixels.data()), CAIRO_FORMAT_ARGB32,
                                                    pixels.width(), pixels.height(), pixels.stride())),
        context(cairo_create(surface)) {}
  ~CairoView() {
    cairo_destroy(context);
    cairo_surface_destroy(surface);
  }
  CairoView(CairoView const&) = delete;
  CairoView& operator=(CairoView const&) = delete;

  cairo_surface_t* surface;
  cairo_t* context;
};

} // namespace

Surface::Surface(int width, int height) {
  if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide)
    return;
  pixels_ = std::make_shared<Pixels>(width, height);
}

int Surface::width() const noexcept { return pixels_ ? pixels_->width : 0; }
int Surface::height() const noexcept { return pixels_ ? pixels_->height : 0; }
int Surface::stride() const noexcept { return pixels_ ? pixels_->stride : 0; }
std::uint8_t* Surface::data() noexcept { return pixels_ ? pixels_->bytes.get() : nullptr; }
std::uint8_t const* Surface::data() const noexcept { return pixels_ ? pixels_->bytes.get() : nullptr; }

std::uint32_t Surface::pixel(int x, int rowFromTop) const noexcept {
  if (!pixels_ || x < 0 || rowFromTop < 0 || x >= pixels_->width || rowFromTop >= pixels_->height)
    return 0;
  std::uint32_t value;
  std::memcpy(&value, pixels_->bytes.get() + std::size_t(rowFromTop) * pixels_->stride + std::size_t(x) * 4,
              sizeof value);
  return value;
}

void Surface::setPixel(int x, int rowFromTop, std::uint32_t argb) noexcept {
  if (!pixels_ || x < 0 || rowFromTop < 0 || x >= pixels_->width || rowFromTop >= pixels_->height)
    return;
  std::memcpy(pixels_->bytes.get() + std::size_t(rowFromTop) * pixels_->stride + std::size_t(x) * 4, &argb,
              sizeof argb);
}

void Surface::fill(Colour const& colour) {
  if (!pixels_)
    return;
  CairoView view(*this);
  cairo_set_operator(view.context, CAIRO_OPERATOR_SOURCE);
  if (colour.use())
    cairo_set_source_rgba(view.context, colour.red(), colour.green(), colour.blue(), colour.alpha());
  else
    cairo_set_source_rgba(view.context, 0.0, 0.0, 0.0, 0.0);
  cairo_paint(view.context);
}

Surface Surface::clone() const {
  Surface copy;
  if (pixels_) {
    copy.pixels_ = std::make_shared<Pixels>(pixels_->width, pixels_->height);
    std::memcpy(copy.pixels_->bytes.get(), pixels_->bytes.get(), std::size_t(pixels_->stride) * pixels_->height);
  }
  return copy;
}

void Surface::blit(Surface const& source, int x, int rowFromTop) {
  if (!pixels_ || source.empty())
    return;
  // Copying onto itself would read pixels already overwritten.
  Surface const unshared = source.sharesPixelsWith(*this) ? source.clone() : source;
  CairoView target(*this);
  CairoView image(unshared);
  cairo_set_source_surface(target.context, image.surface, x, rowFromTop);
  cairo_rectangle(target.context, x, rowFromTop, source.width(), source.height());
  cairo_fill(target.context);
}

Surface::Difference Surface::compare(Surface const& a, Surface const& b, int tolerance) noexcept {
  Difference result;
  if (a.width() != b.width() || a.height() != b.height()) {
    result.sameSize = false;
    result.maxChannel = 255;
    return result;
  }
  for (int row = 0; row < a.height(); ++row) {
    for (int x = 0; x < a.width(); ++x) {
      std::uint32_t const p = a.pixel(x, row);
      std::uint32_t const q = b.pixel(x, row);
      if (p == q)
        continue;
      int largest = 0;
      for (int shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, std::abs(int((p >> shift) & 0xFF) - int((q >> shift) & 0xFF)));
      result.maxChannel = std::max(result.maxChannel, largest);
      if (largest > tolerance)
        ++result.differingPixels;
    }
  }
  return result;
}

} // namespace Zo::Image
