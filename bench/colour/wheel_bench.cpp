// The hue-saturation wheel's picture: building it for a wheel 256 and 512
// pixels across, against a plain loop that asks the wheel's geometry and the
// host's HSV conversion for every pixel, and against HSV conversion alone;
// then a second wheel's paint that finds the picture in the shared cache.
// Times are reported per pixel of the picture. Every built picture is
// checked against the plain loop's before timing: each channel within one
// step, as the wheel reaches its hues by another rounding than the host.

#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>

#include <benchmark/benchmark.h>

#include <cstdint>

namespace {

NormalisedRGB const kBackground(0.15f, 0.16f, 0.18f);

std::uint32_t byteOf(double channel) {
  return channel < 0.0 ? 0 : channel > 1.0 ? 255 : static_cast<std::uint32_t>(channel * 255.0);
}
std::uint32_t opaque(std::uint32_t r, std::uint32_t g, std::uint32_t b) { return 0xFF000000u | r << 16 | g << 8 | b; }

// One pixel at a time through convertXYtoHS and HSVToRGB: the obvious way.
Zo::Image::Surface plainPicture(HSColourWheel const& wheel) {
  int const r = static_cast<int>(wheel.getRadius());
  int const size = 2 * r + 1;
  Zo::Image::Surface picture(size, size);
  std::uint32_t const background = opaque(byteOf(kBackground.r), byteOf(kBackground.g), byteOf(kBackground.b));
  for (int row = 0; row < size; ++row) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(picture.data() + row * picture.stride());
    for (int column = 0; column < size; ++column) {
      double hue = 0.0;
      double saturation = 0.0;
      if (wheel.convertXYtoHS(column - r + 0.5, r + 1 - row - 0.5, hue, saturation) != 0) {
        pixels[column] = background;
        continue;
      }
      double red = 0.0;
      double green = 0.0;
      double blue = 0.0;
      HSVToRGB(hue, saturation * 0.8 + 0.2, wheel.getDisplayValue(), red, green, blue);
      pixels[column] = opaque(byteOf(red), byteOf(green), byteOf(blue));
    }
  }
  return picture;
}

// Shown as time per pixel of the picture ("6.9ns").
void reportPerPixel(benchmark::State& state, int side) {
  double const pixels = static_cast<double>(side) * side;
  state.counters["pixels"] = pixels;
  state.counters["per_pixel"] = benchmark::Counter(pixels * static_cast<double>(state.iterations()),
                                                   benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void wheelPicture(benchmark::State& state) {
  HSColourWheel wheel(nullptr, static_cast<unsigned short>(state.range(0)), 1.0, 0);
  Zo::Image::Surface const reference = plainPicture(wheel);
  if (Zo::Image::Surface::compare(wheel.computeWheelImage(kBackground), reference, 1).differingPixels != 0) {
    state.SkipWithError("the picture differs from the plain loop's");
    return;
  }
  for (auto _ : state) {
    Zo::Image::Surface picture = wheel.computeWheelImage(kBackground);
    benchmark::DoNotOptimize(picture.data());
  }
  reportPerPixel(state, reference.width());
}

void plainPictureLoop(benchmark::State& state) {
  HSColourWheel wheel(nullptr, static_cast<unsigned short>(state.range(0)), 1.0, 0);
  int side = 0;
  for (auto _ : state) {
    Zo::Image::Surface picture = plainPicture(wheel);
    benchmark::DoNotOptimize(picture.data());
    side = picture.width();
  }
  reportPerPixel(state, side);
}

// HSVToRGB alone, once for each pixel of the same picture, hues spread
// round the circle: the floor under any picture that converts every pixel.
void hsvConversionOnly(benchmark::State& state) {
  int const side = static_cast<int>(state.range(0)) + 1;
  double const step = 360.0 / (static_cast<double>(side) * side);
  for (auto _ : state) {
    double hue = 0.0;
    std::uint32_t sum = 0;
    for (int i = 0; i < side * side; ++i) {
      double red = 0.0;
      double green = 0.0;
      double blue = 0.0;
      HSVToRGB(hue, 0.6, 1.0, red, green, blue);
      sum += opaque(byteOf(red), byteOf(green), byteOf(blue));
      hue += step;
    }
    benchmark::DoNotOptimize(sum);
  }
  reportPerPixel(state, side);
}

// A second wheel of the same size on the same background, painted from
// scratch (its own picture dropped each time): the cache must answer.
void paintFromSharedCache(benchmark::State& state) {
  unsigned short const size = static_cast<unsigned short>(state.range(0));
  Palette palette;
  palette.setWindow(Colour(kBackground));
  HSColourWheel first(nullptr, size, 1.0, 0);
  HSColourWheel second(nullptr, size, 1.0, 0);
  first.setPalette(palette);
  second.setPalette(palette);
  Zo::Image::Surface target(size, size);
  CanvasRenderer renderer(target);
  Zo::Box<int> const all(0, 0, size, size);
  first.paint(renderer, all);
  long long const built = HSColourWheel::wheelImageComputations();
  for (auto _ : state) {
    second.setPalette(palette);
    second.paint(renderer, all);
  }
  if (HSColourWheel::wheelImageComputations() != built ||
      !second.getWheelImage().sharesPixelsWith(first.getWheelImage()))
    state.SkipWithError("the second wheel built its own picture");
  reportPerPixel(state, size + 1);
}

} // namespace

BENCHMARK(wheelPicture)->Arg(256)->Arg(512)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainPictureLoop)->Arg(256)->Arg(512)->Unit(benchmark::kMicrosecond);
BENCHMARK(hsvConversionOnly)->Arg(256)->Arg(512)->Unit(benchmark::kMicrosecond);
BENCHMARK(paintFromSharedCache)->Arg(256)->Arg(512)->Unit(benchmark::kMicrosecond);
