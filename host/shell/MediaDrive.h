#pragma once

#include <zowidgets/host/shell/DriveId.h>

#include <cstdint>

// One mounted drive: where it is, what it is, and how big.
class ZO_API MediaDrive {
public:
  MediaDrive() = default;
  MediaDrive(LightweightString<wchar_t> mountPoint, LightweightString<wchar_t> device,
             LightweightString<wchar_t> fileSystem);

  DriveId id() const { return DriveId(mountPoint_); }
  LightweightString<wchar_t> const& getMountPoint() const noexcept { return mountPoint_; }
  LightweightString<wchar_t> const& getDevice() const noexcept { return device_; }
  LightweightString<wchar_t> const& getFileSystem() const noexcept { return fileSystem_; }
  // The name a user knows the drive by: "System" for /, "Home" for /home,
  // else the last part of the mount point ("/media/ann/CARD 1" is "CARD 1").
  LightweightString<wchar_t> getUserName() const;
  void setUserName(LightweightString<wchar_t> name) { userName_ = std::move(name); }

  std::uint64_t sizeInMegabytes = 0;
  std::uint64_t freeMegabytes = 0;

  // Fills the sizes from statvfs; false when the drive cannot be asked.
  bool readSizes();

  friend bool operator==(MediaDrive const&, MediaDrive const&) = default;

private:
  LightweightString<wchar_t> mountPoint_;
  LightweightString<wchar_t> device_;
  LightweightString<wchar_t> fileSystem_;
  LightweightString<wchar_t> userName_; // empty: made from the mount point
};
