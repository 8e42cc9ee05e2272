#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/LightweightString.h>

#include <cstdint>
#include <string_view>

namespace Zo::Image {

// A video compression format, named by a four-character code. The code is
// kept in the order its characters are written ("M701" reads as 'M','7',
// '0','1'); the raw value -1 means no format.
class ZO_API Format {
public:
  static constexpr std::int32_t kNone = -1;

  constexpr Format() = default;
  constexpr explicit Format(std::int32_t raw) : raw_(raw) {}
  // Four characters; shorter text is padded with spaces, longer is cut.
  explicit Format(std::string_view text);

  constexpr std::int32_t raw() const noexcept { return raw_; }
  constexpr bool isNone() const noexcept { return raw_ == kNone; }
  // The four characters, or empty for no format. A code made some other
  // way (a hash of an encoder's name) need not be printable: keep raw().
  LightweightString<char> toString() const;

  friend constexpr bool operator==(Format, Format) = default;
  friend constexpr auto operator<=>(Format, Format) = default;

private:
  std::int32_t raw_ = kNone;
};

// Which raster a clip is (1080-line HD, 576-line SD, ...), as the host's
// video format table numbers them; 0 is unknown.
enum class FormatUID : int { kUnknown = 0 };

} // namespace Zo::Image
