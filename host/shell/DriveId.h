#pragma once

#include <zowidgets/host/base/LightweightString.h>

// Names one drive of the machine by where it is mounted, so a choice
// survives other drives coming and going. The empty id means the machine's
// first drive, whatever it is: the fallback when a chosen drive has gone.
class ZO_API DriveId {
public:
  DriveId() = default;
  explicit DriveId(LightweightString<wchar_t> mountPoint) : mountPoint_(std::move(mountPoint)) {}

  LightweightString<wchar_t> const& mountPoint() const noexcept { return mountPoint_; }
  bool isFirstDrive() const noexcept { return mountPoint_.empty(); }
  friend bool operator==(DriveId const&, DriveId const&) = default;

private:
  LightweightString<wchar_t> mountPoint_;
};
