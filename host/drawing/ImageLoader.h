#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <string>
#include <string_view>
#include <vector>

namespace ZoImage {

// Reads JPEG, PNG and WebP pictures into surfaces. The format is told by the
// file's first bytes, never by its name, so a misnamed file still loads and a
// file that only claims an extension is refused.
//
// Every failure (missing, empty, truncated or corrupt file, a header that
// claims more pixels than kMaxPixels) gives an empty surface and one line in
// the log naming the file and the reason. Safe from any thread.
class ZO_API Loader {
public:
  // Pictures claiming more pixels than this are refused from their header,
  // before any pixel memory is taken.
  static constexpr long long kMaxPixels = 1ll << 26;

  // The whole picture when `fitWithin` is (0, 0); otherwise a copy no larger
  // than `fitWithin` with its proportions kept (a smaller picture is kept as
  // it is). A JPEG is then decoded at 1/2, 1/4 or 1/8 of its size where that
  // still covers `fitWithin`, so a thumbnail never costs a full decode. The
  // orientation a JPEG records in its EXIF data is applied.
  static Zo::Image::Surface loadImage(std::string const& path, XY<int> fitWithin = {0, 0});
  static Zo::Image::Surface loadImage(LightweightString<wchar_t> const& path, XY<int> fitWithin = {0, 0});
  // The same from bytes in memory; `name` only labels log lines.
  static Zo::Image::Surface decode(std::string_view bytes, XY<int> fitWithin = {0, 0},
                                   std::string_view name = "(memory)");

  // True when the file starts as a picture of a supported format.
  static bool canLoadImage(std::string const& path);
  static bool canLoadImage(LightweightString<wchar_t> const& path);
  // The extensions, lower case without the dot, that the formats use.
  static std::vector<LightweightString<wchar_t>> getSupportedImageExtensions();
};

} // namespace ZoImage
