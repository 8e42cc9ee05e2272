#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <string>

namespace ZoImage {

// Writes pictures as PNG files (8-bit RGBA, straight alpha). The file is
// replaced atomically: a failed or interrupted save leaves the old file whole.
class ZO_API Saver {
public:
  // False, with a line in the log, when the surface is empty, the name does
  // not end in ".png", or the file cannot be written (errno then says why).
  static bool saveImage(Zo::Image::Surface const& image, std::string const& path);
  static bool saveImage(Zo::Image::Surface const& image, LightweightString<wchar_t> const& path);
};

} // namespace ZoImage
