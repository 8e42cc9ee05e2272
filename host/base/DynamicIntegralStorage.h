#pragma once

#include <zowidgets/host/base/PStream.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>

// The compact number form of version 1 streams, kept for reading old data: a
// value below the largest Small is stored as a Small; any other as the
// largest Small followed by the value as a Large.
class ZO_API DynamicIntegralStorageBase {
protected:
  static void put(StreamFile& file, std::uint8_t value) { file.setCookedChar(value); }
  static void put(StreamFile& file, std::uint16_t value) { file.setUnsignedShort(value); }
  static void put(StreamFile& file, std::uint32_t value) { file.setUnsignedLong(value); }
  template <class Number> static std::optional<Number> get(StreamFile& file) {
    if constexpr (sizeof(Number) == 1)
      return file.getCookedChar();
    else if constexpr (sizeof(Number) == 2)
      return file.getUnsignedShort();
    else
      return file.getUnsignedLong();
  }
};

template <class Small, class Large> class DynamicIntegralStorage : public DynamicIntegralStorageBase {
  static_assert(std::is_unsigned_v<Small> && std::is_unsigned_v<Large> && sizeof(Small) < sizeof(Large) &&
                sizeof(Large) <= 4);

public:
  DynamicIntegralStorage() = default;
  explicit DynamicIntegralStorage(Large value) : value_(value) {}
  Large value() const noexcept { return value_; }

  void pack(PStream& stream) const {
    constexpr Large escape = std::numeric_limits<Small>::max();
    if (value_ < escape) {
      put(stream.file(), static_cast<Small>(value_));
    } else {
      put(stream.file(), static_cast<Small>(escape));
      put(stream.file(), value_);
    }
  }
  // False, leaving the value as it was, when the file ends first.
  bool unpack(PStream& stream) {
    std::optional<Small> const small = get<Small>(stream.file());
    if (!small)
      return false;
    if (*small < std::numeric_limits<Small>::max()) {
      value_ = *small;
      return true;
    }
    std::optional<Large> const large = get<Large>(stream.file());
    if (large)
      value_ = *large;
    return large.has_value();
  }

private:
  Large value_ = 0;
};
