#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <array>
#include <cstdint>
#include <optional>

// An IPv4 address with an optional port, as a user types it: "192.168.0.10"
// or "192.168.0.10:8080". docs/host-text-forms.md gives the text form.
class ZO_API IPAddress {
public:
  // 0.0.0.0 without a port.
  IPAddress() = default;
  IPAddress(std::array<std::uint8_t, 4> const& parts, std::optional<std::uint16_t> port = std::nullopt) noexcept
      : parts_(parts), port_(port) {}

  // Reads "a.b.c.d" or "a.b.c.d:port": four decimal parts of one to three
  // digits, each 0 to 255, then optionally a colon and one to five digits
  // making 0 to 65535. White space around the whole is allowed, anywhere
  // else it is not. Anything else gives nothing.
  static std::optional<IPAddress> fromString(LightweightString<wchar_t> const& text);

  // Part 0 is the leftmost; an index outside 0 to 3 gives 0.
  int getPart(int index) const noexcept;
  // 0 without a port.
  unsigned getPort() const noexcept { return port_.value_or(0); }
  bool hasPort() const noexcept { return port_.has_value(); }

  // "a.b.c.d", with ":port" when there is one; fromString reads it back.
  LightweightString<wchar_t> toString() const;

  friend bool operator==(IPAddress const&, IPAddress const&) = default;

private:
  std::array<std::uint8_t, 4> parts_{};
  std::optional<std::uint16_t> port_;
};
