#include <zowidgets/host/shell/ImageFormat.h>

namespace Zo::Image {

Format::Format(std::string_view text) : raw_(0) {
  for (std::size_t i = 0; i < 4; ++i) {
    unsigned char const c = i < text.size() ? static_cast<unsigned char>(text[i]) : ' ';
    raw_ = static_cast<std::int32_t>((static_cast<std::uint32_t>(raw_) << 8) | c);
  }
}

LightweightString<char> Format::toString() const {
  if (isNone())
    return {};
  std::uint32_t const bits = static_cast<std::uint32_t>(raw_);
  char const text[5] = {static_cast<char>(bits >> 24), static_cast<char>(bits >> 16), static_cast<char>(bits >> 8),
                        static_cast<char>(bits), '\0'};
  return LightweightString<char>(text);
}

} // namespace Zo::Image
