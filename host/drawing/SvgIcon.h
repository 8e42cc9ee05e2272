#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <string>
#include <string_view>

// Draws SVG artwork (librsvg through cairo) straight at the pixel size it is
// wanted at, so an icon stays sharp at every interface scale: nothing is
// drawn small and magnified.
//
// The document is fitted into a `side` x `side` square, keeping its
// proportions, centred, and turned clockwise by `turnDegrees` about the
// centre. Every pixel takes `tint`, its coverage (the drawing's alpha times
// the tint's own) carried as alpha; this suits single-colour "symbolic"
// icons, whose own colours mean nothing. An invalid tint draws nothing.
//
// The answer is empty when `side` is outside 1..kMaxIconSide or the bytes
// are not an SVG document that librsvg reads and draws. Documents are read
// without a base location, so they cannot pull in other files.
namespace SvgIcon {

constexpr int kMaxIconSide = 1024;
// Files larger than this are not icons: loadFile refuses them unread.
constexpr std::size_t kMaxFileBytes = 4u << 20;

ZO_API Zo::Image::Surface render(std::string_view svg, int side, Colour const& tint, double turnDegrees = 0.0);
// The same for a file; empty when it cannot be read.
ZO_API Zo::Image::Surface renderFile(std::string const& path, int side, Colour const& tint, double turnDegrees = 0.0);

} // namespace SvgIcon
