// Saving pictures through the atomic file writer.
#include <zowidgets/host/base/AtomicFile.h>
#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/drawing/ImageSaver.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>

namespace ZoImage {

namespace {

bool hasPngExtension(std::string const& path) {
  constexpr std::string_view kExtension = ".png";
  if (path.size() < kExtension.size())
    return false;
  return std::equal(kExtension.begin(), kExtension.end(), path.end() - kExtension.size(),
                    [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

bool refuse(std::string const& path, std::string const& why) {
  LogBoth("image " + path + " not saved: " + why);
  return false;
}

} // namespace

bool Saver::saveImage(Zo::Image::Surface const& image, std::string const& path) {
  if (image.empty())
    return refuse(path, "there is no picture");
  if (!hasPngExtension(path))
    return refuse(path, "only PNG files are written");
  std::string const bytes = image.pngBytes();
  if (bytes.empty())
    return refuse(path, "the picture could not be encoded");
  if (!Zo::writeFileAtomically(path, bytes)) {
    int const error = errno;
    refuse(path, std::strerror(error));
    errno = error; // the caller may tell the user why
    return false;
  }
  return true;
}

bool Saver::saveImage(Zo::Image::Surface const& image, LightweightString<wchar_t> const& path) {
  return saveImage(image, path.toUTF8().str());
}

} // namespace ZoImage
