// The one EXIF field the loader needs: the orientation tag (0x0112) of the
// first image directory, read from a TIFF header in either byte order.
#include <zowidgets/host/drawing/detail/ImageDecoders.h>

#include <cstdint>

namespace ZoImage::detail {

namespace {

class TiffReader {
public:
  TiffReader(std::string_view tiff, bool bigEndian) : tiff_(tiff), bigEndian_(bigEndian) {}

  bool has(std::size_t offset, std::size_t length) const noexcept {
    return offset <= tiff_.size() && length <= tiff_.size() - offset;
  }
  std::uint32_t read(std::size_t offset, int length) const noexcept {
    std::uint32_t value = 0;
    for (int i = 0; i < length; ++i) {
      std::uint32_t const byte = static_cast<unsigned char>(tiff_[offset + (bigEndian_ ? i : length - 1 - i)]);
      value = value << 8 | byte;
    }
    return value;
  }

private:
  std::string_view tiff_;
  bool bigEndian_;
};

constexpr std::uint32_t kOrientationTag = 0x0112;
constexpr std::uint32_t kShortType = 3;

} // namespace

int exifOrientation(std::string_view app1) noexcept {
  constexpr std::string_view kSignature("Exif\0\0", 6);
  if (app1.substr(0, kSignature.size()) != kSignature)
    return 1;
  std::string_view const tiff = app1.substr(kSignature.size());
  if (tiff.size() < 8 || (tiff.substr(0, 2) != "MM" && tiff.substr(0, 2) != "II"))
    return 1;
  TiffReader const reader(tiff, tiff[0] == 'M');
  std::size_t const directory = reader.read(4, 4);
  if (!reader.has(directory, 2))
    return 1;
  std::uint32_t const entries = reader.read(directory, 2);
  for (std::uint32_t i = 0; i < entries; ++i) {
    std::size_t const entry = directory + 2 + std::size_t(i) * 12;
    if (!reader.has(entry, 12))
      return 1;
    if (reader.read(entry, 2) != kOrientationTag)
      continue;
    if (reader.read(entry + 2, 2) != kShortType)
      return 1;
    std::uint32_t const value = reader.read(entry + 8, 2);
    return value >= 1 && value <= 8 ? int(value) : 1;
  }
  return 1;
}

} // namespace ZoImage::detail
