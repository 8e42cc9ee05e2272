// Whole-surface operations on pictures, with pixman doing the filtering.
#include <zowidgets/host/drawing/ImageOperations.h>

#include <pixman.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace Zo::Image {

namespace {

struct PixmanImageDeleter {
  void operator()(pixman_image_t* image) const noexcept { pixman_image_unref(image); }
};
using PixmanImage = std::unique_ptr<pixman_image_t, PixmanImageDeleter>;

PixmanImage wrap(Surface const& surface) {
  // pixman only reads the source; the cast lets the same call wrap both ends.
  auto* bits = reinterpret_cast<std::uint32_t*>(const_cast<std::uint8_t*>(surface.data()));
  return PixmanImage(
      pixman_image_create_bits(PIXMAN_a8r8g8b8, surface.width(), surface.height(), bits, surface.stride()));
}

// The filter for one axis: averaging under the footprint when shrinking,
// linear interpolation when enlarging.
pixman_kernel_t sampleKernel(double scale) noexcept { return scale > 1.0 ? PIXMAN_KERNEL_BOX : PIXMAN_KERNEL_IMPULSE; }

} // namespace

Surface greyscale(Surface const& source) {
  if (source.empty())
    return {};
  Surface grey(source.width(), source.height());
  for (int row = 0; row < source.height(); ++row) {
    auto const* in = reinterpret_cast<std::uint32_t const*>(source.data() + std::size_t(row) * source.stride());
    auto* out = reinterpret_cast<std::uint32_t*>(grey.data() + std::size_t(row) * grey.stride());
    for (int x = 0; x < source.width(); ++x) {
      std::uint32_t const p = in[x];
      std::uint32_t const luma = (((p >> 16) & 0xFF) * 299 + ((p >> 8) & 0xFF) * 587 + (p & 0xFF) * 114 + 500) / 1000;
      out[x] = (p & 0xFF000000u) | luma << 16 | luma << 8 | luma;
    }
  }
  return grey;
}

Surface resize(Surface const& source, int width, int height) {
  if (source.empty() || width < 1 || height < 1)
    return {};
  Surface target(width, height);
  if (target.empty())
    return {};
  PixmanImage const from = wrap(source);
  PixmanImage const to = wrap(target);
  double const scaleX = double(source.width()) / width;
  double const scaleY = double(source.height()) / height;
  pixman_transform_t transform;
  pixman_transform_init_scale(&transform, pixman_double_to_fixed(scaleX), pixman_double_to_fixed(scaleY));
  pixman_image_set_transform(from.get(), &transform);
  pixman_image_set_repeat(from.get(), PIXMAN_REPEAT_PAD);
  int parameterCount = 0;
  pixman_fixed_t* parameters = pixman_filter_create_separable_convolution(
      &parameterCount, pixman_double_to_fixed(scaleX), pixman_double_to_fixed(scaleY), PIXMAN_KERNEL_LINEAR,
      PIXMAN_KERNEL_LINEAR, sampleKernel(scaleX), sampleKernel(scaleY), 4, 4);
  if (!parameters)
    return {};
  pixman_image_set_filter(from.get(), PIXMAN_FILTER_SEPARABLE_CONVOLUTION, parameters, parameterCount);
  free(parameters);
  pixman_image_composite32(PIXMAN_OP_SRC, from.get(), nullptr, to.get(), 0, 0, 0, 0, 0, 0, width, height);
  return target;
}

XY<int> fitSize(XY<int> size, XY<int> within) noexcept {
  if (size.x <= 0 || size.y <= 0)
    return {0, 0};
  if (size.x <= within.x && size.y <= within.y)
    return size;
  double const scale = std::min(double(within.x) / size.x, double(within.y) / size.y);
  return {std::max(1, int(std::lround(size.x * scale))), std::max(1, int(std::lround(size.y * scale)))};
}

Surface orient(Surface const& source, int exifOrientation) {
  if (source.empty() || exifOrientation < 2 || exifOrientation > 8)
    return source;
  bool const swapsSides = exifOrientation >= 5;
  int const width = source.width();
  int const height = source.height();
  Surface turned(swapsSides ? height : width, swapsSides ? width : height);
  int const lastX = turned.width() - 1;
  int const lastY = turned.height() - 1;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      int toX = x;
      int toY = y;
      switch (exifOrientation) {
      case 2:
        toX = lastX - x;
        break;
      case 3:
        toX = lastX - x;
        toY = lastY - y;
        break;
      case 4:
        toY = lastY - y;
        break;
      case 5:
        toX = y;
        toY = x;
        break;
      case 6:
        toX = lastX - y;
        toY = x;
        break;
      case 7:
        toX = lastX - y;
        toY = lastY - x;
        break;
      case 8:
        toX = y;
        toY = lastY - x;
        break;
      default:
        break;
      }
      turned.setPixel(toX, toY, source.pixel(x, y));
    }
  }
  return turned;
}

} // namespace Zo::Image
