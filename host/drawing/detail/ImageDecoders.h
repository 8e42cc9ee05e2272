#pragma once

#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <string>
#include <string_view>

// One decoder per format behind ZoImage::Loader. Each returns an empty
// surface and says why in `error` when the bytes are not a whole, sane
// picture; none allocates pixels before the header's size has been checked.
namespace ZoImage::detail {

enum class Format { kUnknown, kJpeg, kPng, kWebp, kSvg };

// Told from the first bytes alone; an SVG drawing (or any XML, which its
// decoder then refuses) from its first tag after a byte order mark and white
// space.
Format sniffFormat(std::string_view head) noexcept;

// True when a picture of this size may be decoded.
bool acceptableSize(long long width, long long height) noexcept;

// `fitWithin` lets the JPEG decoder pick a reduced scale and the PNG decoder
// shrink rows as they arrive; either result still covers it, and `fullSize`
// gets the picture's own size (as shown, turned upright), so the final fit
// keeps its exact proportions. WebP ignores it.
Zo::Image::Surface decodeJpeg(std::string_view bytes, XY<int> fitWithin, XY<int>& fullSize, std::string& error);
Zo::Image::Surface decodePng(std::string_view bytes, XY<int> fitWithin, XY<int>& fullSize, std::string& error);
Zo::Image::Surface decodeWebp(std::string_view bytes, std::string& error);
// Drawn at the size that fits `fitWithin` (never larger than the drawing's
// own), or whole at no more than 4096 pixels a side; `fullSize` gets the
// drawing's own size. A drawing that states no size is refused.
Zo::Image::Surface decodeSvg(std::string_view bytes, XY<int> fitWithin, XY<int>& fullSize, std::string& error);

// The EXIF orientation (1 to 8) recorded in the payload of a JPEG APP1
// marker, or 1 when there is none or it cannot be read.
int exifOrientation(std::string_view app1) noexcept;

} // namespace ZoImage::detail
