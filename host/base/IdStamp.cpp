#include <zowidgets/host/base/IdStamp.h>

#include <atomic>

namespace {
// Marks stamps made by this process, so that a stamp read from saved state is
// unlikely to collide with a live one.
constexpr std::uint32_t kLocalMagic = 0x5a4f0001;
std::atomic<std::uint64_t> nextSerial{1};
} // namespace

IdStamp::IdStamp() {
  std::uint64_t serial = nextSerial.fetch_add(1, std::memory_order_relaxed);
  magic_ = kLocalMagic;
  high_ = static_cast<std::uint32_t>(serial >> 32);
  low_ = static_cast<std::uint32_t>(serial);
}

std::string IdStamp::asString() const {
  return std::to_string(magic_) + "." + std::to_string(high_) + "." + std::to_string(low_);
}
