#pragma once

#include <zowidgets/host/base/Export.h>

#include <cstdint>
#include <string>

// Three-word identity. A default-constructed stamp is new and unique across
// threads for the life of the process; IdStamp(0, 0, 0) is the null stamp.
class ZO_API IdStamp {
public:
  IdStamp();
  IdStamp(std::uint32_t magic, std::uint32_t high, std::uint32_t low) noexcept
      : magic_(magic), high_(high), low_(low) {}

  static IdStamp null() noexcept { return IdStamp(0, 0, 0); }

  bool valid() const noexcept { return magic_ != 0 || high_ != 0 || low_ != 0; }
  std::string asString() const; // "magic.high.low", each in decimal

  std::uint32_t magic() const noexcept { return magic_; }
  std::uint32_t high() const noexcept { return high_; }
  std::uint32_t low() const noexcept { return low_; }

  friend bool operator==(IdStamp const&, IdStamp const&) = default;
  friend auto operator<=>(IdStamp const&, IdStamp const&) = default;

private:
  std::uint32_t magic_;
  std::uint32_t high_;
  std::uint32_t low_;
};

// Base of things that carry an identity.
class ZO_API Identified {
public:
  Identified() = default;
  explicit Identified(IdStamp const& stamp) : id_(stamp) {}
  virtual ~Identified() = default;

  virtual IdStamp id() const { return id_; }
  virtual void id(IdStamp const& stamp) { id_ = stamp; }

private:
  IdStamp id_;
};
