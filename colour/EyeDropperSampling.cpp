#include <zowidgets/colour/EyeDropperSampling.h>
#include <zowidgets/colour/MagnifyTool.h>
#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/OS.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

// The screen's pixels under a box truncated to whole pixels; null when no
// part of it is on the screen.
Zo::Ptr<iHostImage> screenPixels(Zo::Box<double> const& area) {
  Zo::Box<int> const whole(ftisqq(area.x0), ftisqq(area.y0), ftisqq(area.x1), ftisqq(area.y1));
  Zo::Box<int> const onScreen = MagnifyTool::getScreenRect(whole);
  if (onScreen.empty())
    return {};
  return OS().media().getHostImage(onScreen);
}

// Calls `use(blue, green, red)` for every pixel; the fourth byte of a
// screen pixel says nothing about its colour.
template <class Use> void forEachPixel(Zo::Image::Surface const& pixels, Use use) {
  for (int row = 0; row < pixels.height(); ++row)
    for (int x = 0; x < pixels.width(); ++x) {
      std::uint32_t const argb = pixels.pixel(x, row);
      use(argb & 0xffu, (argb >> 8) & 0xffu, (argb >> 16) & 0xffu);
    }
}

LightweightString<char> numberText(double value) {
  return DataConvert::convert<double, LightweightString<char>>(value);
}

} // namespace

RgbTriple_<unsigned char> ColEyeDropBase::getPixelColour(Zo::Box<double> const& area) {
  RgbTriple_<unsigned char> mean{};
  Zo::Ptr<iHostImage> const image = screenPixels(area);
  if (!image || image->pixels().empty())
    return mean;
  Zo::Image::Surface const& pixels = image->pixels();
  long long const count = static_cast<long long>(pixels.width()) * pixels.height();
  long long sums[3] = {0, 0, 0};
  forEachPixel(pixels, [&](unsigned blue, unsigned green, unsigned red) {
    sums[0] += blue;
    sums[1] += green;
    sums[2] += red;
  });
  for (int channel = 0; channel < 3; ++channel)
    mean[channel] = static_cast<unsigned char>(sums[channel] / count);
  return mean;
}

std::array<double, 6> ColEyeDropBase::getPixelRange(Zo::Box<double> const& area) {
  std::array<double, 6> range{};
  Zo::Ptr<iHostImage> const image = screenPixels(area);
  if (!image)
    return range;
  range.fill(-1.0);
  bool first = true;
  forEachPixel(image->pixels(), [&](unsigned blue, unsigned green, unsigned red) {
    double hue = 0.0, saturation = 0.0, value = 0.0;
    RGBToHSV(red / 255.0, green / 255.0, blue / 255.0, hue, saturation, value);
    // A grey's hue, and anything of black, says nothing about the colour.
    if (saturation == 0.0 || value == 0.0)
      return;
    double const hsv[3] = {hue, saturation, value};
    for (int i = 0; i < 3; ++i) {
      range[i * 2] = first ? hsv[i] : std::min(range[i * 2], hsv[i]);
      range[i * 2 + 1] = first ? hsv[i] : std::max(range[i * 2 + 1], hsv[i]);
    }
    first = false;
  });
  return range;
}

LightweightString<char> ColEyeDropBase::pixelToMsg(RgbTriple_<unsigned char> const& pixel) {
  ColourData const colour(pixel.red() / 255.0, pixel.green() / 255.0, pixel.blue() / 255.0, ColourSpace::RGB);
  LightweightString<char> message(kMessagePrefix);
  message += numberText(colour.getHue());
  message += " ";
  message += numberText(colour.getSaturation());
  message += " ";
  message += numberText(colour.getValue() / 255.0);
  return message;
}

void ColEyeDropBase::grabPixelColour(int x, int y, LightweightString<char>& message) {
  message = pixelToMsg(getPixelColour(Zo::Box<double>(x, y, x + 1, y + 1)));
}

int ColEyeDropBase::parse(char const* text, double& h, double& s, double& v) {
  std::vector<std::string_view> words;
  std::string_view rest(text ? text : "");
  while (!rest.empty()) {
    std::size_t const start = rest.find_first_not_of(' ');
    if (start == std::string_view::npos)
      break;
    rest.remove_prefix(start);
    std::size_t const end = std::min(rest.find(' '), rest.size());
    words.push_back(rest.substr(0, end));
    rest.remove_prefix(end);
  }
  if (words.size() == 5 && words[0] == kMessageName) {
    auto read = [](std::string_view word) {
      return DataConvert::convert<LightweightString<char>, double>(LightweightString<char>(word));
    };
    h = read(words[2]);
    s = read(words[3]);
    v = read(words[4]);
  }
  return 0;
}
