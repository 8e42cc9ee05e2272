// libFuzzer target for SvgIcon::render, the one place the host reads SVG
// bytes. The first two bytes choose the side (1..64) and the turn; the rest
// is the document. Whatever librsvg makes of it, the answer must be empty or
// a square of that side whose pixels are valid premultiplied values of the
// tint: no channel above alpha, and the tint's hue wherever the coverage is
// high enough to tell.

#include <zowidgets/host/drawing/SvgIcon.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

// The tint's packed channels; the check below compares against these.
constexpr double kRed = 200.0 / 255.0, kGreen = 100.0 / 255.0, kBlue = 50.0 / 255.0;

void check(Zo::Image::Surface const& icon, int side) {
  if (icon.empty())
    return;
  if (icon.width() != side || icon.height() != side)
    std::abort();
  for (int row = 0; row < side; ++row)
    for (int x = 0; x < side; ++x) {
      std::uint32_t const pixel = icon.pixel(x, row);
      int const alpha = int(pixel >> 24), red = int((pixel >> 16) & 0xFF), green = int((pixel >> 8) & 0xFF),
                blue = int(pixel & 0xFF);
      if (red > alpha || green > alpha || blue > alpha)
        std::abort();
      // Premultiplied rounding leaves a step or two at any coverage.
      if (alpha >= 128 && (std::abs(red - 200 * alpha / 255) > 2 || std::abs(green - 100 * alpha / 255) > 2 ||
                           std::abs(blue - 50 * alpha / 255) > 2))
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size < 2)
    return 0;
  int const side = 1 + data[0] % 64;
  double const turn = data[1] * (360.0 / 256.0);
  std::string_view const svg(reinterpret_cast<char const*>(data + 2), size - 2);
  check(SvgIcon::render(svg, side, Colour(kRed, kGreen, kBlue), turn), side);
  return 0;
}
