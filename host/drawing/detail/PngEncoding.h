#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>

#include <string>

namespace Zo::Image::detail {

// The PNG file that Surface::savePNG writes, as bytes in memory; empty when
// the surface is empty or libpng fails.
std::string encodePNG(Surface const& surface);

} // namespace Zo::Image::detail
