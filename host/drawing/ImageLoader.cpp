// Picture files into surfaces: the format is sniffed, the file read whole,
// and the decoder for that format does the rest.
#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/ImageOperations.h>
#include <zowidgets/host/drawing/detail/ImageDecoders.h>

#include <fstream>
#include <new>

namespace ZoImage {

namespace detail {

Format sniffFormat(std::string_view head) noexcept {
  if (head.substr(0, 3) == "\xFF\xD8\xFF")
    return Format::kJpeg;
  if (head.substr(0, 8) == "\x89PNG\r\n\x1A\n")
    return Format::kPng;
  if (head.size() >= 12 && head.substr(0, 4) == "RIFF" && head.substr(8, 4) == "WEBP")
    return Format::kWebp;
  std::string_view text = head;
  if (text.substr(0, 3) == "\xEF\xBB\xBF")
    text.remove_prefix(3);
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t' || text.front() == '\r' || text.front() == '\n'))
    text.remove_prefix(1);
  for (std::string_view const start : {"<svg", "<?xml", "<!DOCTYPE svg", "<!--"})
    if (text.substr(0, start.size()) == start)
      return Format::kSvg;
  return Format::kUnknown;
}

bool acceptableSize(long long width, long long height) noexcept {
  return width > 0 && height > 0 && width <= Zo::Image::Surface::kMaxSide && height <= Zo::Image::Surface::kMaxSide &&
         width * height <= Loader::kMaxPixels;
}

} // namespace detail

namespace {

void logFailure(std::string_view name, std::string_view why) {
  LogBoth("image " + std::string(name) + " not loaded: " + std::string(why));
}

std::string narrow(LightweightString<wchar_t> const& path) { return path.toUTF8().str(); }

Zo::Image::Surface decodeFormat(detail::Format format, std::string_view bytes, XY<int> fitWithin, XY<int>& fullSize,
                                std::string& error) {
  switch (format) {
  case detail::Format::kJpeg:
    return detail::decodeJpeg(bytes, fitWithin, fullSize, error);
  case detail::Format::kPng:
    return detail::decodePng(bytes, fitWithin, fullSize, error);
  case detail::Format::kWebp:
    return detail::decodeWebp(bytes, error);
  case detail::Format::kSvg:
    return detail::decodeSvg(bytes, fitWithin, fullSize, error);
  case detail::Format::kUnknown:
    break;
  }
  error = bytes.empty() ? "the file is empty" : "not a JPEG, PNG, WebP or SVG picture";
  return {};
}

} // namespace

Zo::Image::Surface Loader::decode(std::string_view bytes, XY<int> fitWithin, std::string_view name) {
  std::string error;
  Zo::Image::Surface picture;
  XY<int> fullSize(0, 0);
  try {
    picture = decodeFormat(detail::sniffFormat(bytes), bytes, fitWithin, fullSize, error);
  } catch (std::bad_alloc const&) {
    error = "no memory for the pixels";
  }
  if (picture.empty()) {
    logFailure(name, error);
    return {};
  }
  if (fitWithin.x <= 0 || fitWithin.y <= 0)
    return picture;
  XY<int> const size(picture.width(), picture.height());
  XY<int> const fitted = Zo::Image::fitSize(fullSize.x > 0 ? fullSize : size, fitWithin);
  return fitted == size ? picture : Zo::Image::resize(picture, fitted.x, fitted.y);
}

Zo::Image::Surface Loader::loadImage(std::string const& path, XY<int> fitWithin) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  if (!file) {
    logFailure(path, "the file cannot be opened");
    return {};
  }
  // One read of the whole file; a file that changes size meanwhile reads as
  // far as it goes.
  std::streamoff const length = file.tellg();
  std::string bytes;
  try {
    bytes.resize(length > 0 ? std::size_t(length) : 0);
  } catch (std::bad_alloc const&) {
    logFailure(path, "the file is too large to read");
    return {};
  }
  file.seekg(0);
  file.read(bytes.data(), std::streamsize(bytes.size()));
  bytes.resize(std::size_t(file.gcount()));
  return decode(bytes, fitWithin, path);
}

Zo::Image::Surface Loader::loadImage(LightweightString<wchar_t> const& path, XY<int> fitWithin) {
  return loadImage(narrow(path), fitWithin);
}

bool Loader::canLoadImage(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  char head[64] = {};
  file.read(head, sizeof head);
  return detail::sniffFormat(std::string_view(head, std::size_t(file.gcount()))) != detail::Format::kUnknown;
}

bool Loader::canLoadImage(LightweightString<wchar_t> const& path) { return canLoadImage(narrow(path)); }

std::vector<LightweightString<wchar_t>> Loader::getSupportedImageExtensions() {
  return {L"jpg", L"jpeg", L"png", L"webp", L"svg"};
}

} // namespace ZoImage
