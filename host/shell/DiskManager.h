#pragma once

#include <zowidgets/host/shell/MediaDrive.h>
#include <zowidgets/values/notify/GenericNotifier.h>

#include <memory>
#include <string_view>
#include <vector>

// What DiskManager tells its listeners, on the user-interface thread.
struct ZO_API DiskManagerEvent {
  enum eKind : int {
    kDrivesChanged = 2, // a drive was mounted or removed; the list is new
  };
  int kind = kDrivesChanged;
};

// The machine's drives: the real file systems mounted now (from
// /proc/self/mountinfo), the root first and then by mount point, with their
// sizes from statvfs. It watches the mount table and tells its listeners,
// through the message queue, when a drive comes or goes. Tests may add
// drives of their own, listed after the real ones.
class ZO_API DiskManager {
public:
  static DiskManager& instance();

  std::vector<MediaDrive> const& drives() const noexcept { return drives_; }
  int numDrives() const noexcept { return static_cast<int>(drives_.size()); }
  // The index of a drive in drives(), -1 when it is not there. The first
  // drive's id (DriveId()) is 0 while any drive exists.
  int getDriveIndex(DriveId const& drive) const;

  // Reads the mount table again; tells the listeners when the list changed.
  void refresh();

  // Listeners hear DiskManagerEvent; hold the guard to stay subscribed.
  Zo::Ptr<Zo::Guard> addListener(std::function<void(DiskManagerEvent const&)> listener);

  // Drives of a test's making, as if mounted; each call tells the listeners.
  void injectDrive(MediaDrive const& drive);
  void removeInjectedDrive(DriveId const& drive);
  void clearInjectedDrives();
  // Lists the machine's drives (the default) or only injected ones, for
  // tests that must see the same list on every machine.
  void setRealDrivesListed(bool listed);

  // The drives a mount table in the form of /proc/self/mountinfo lists: file
  // systems on a device, and the root, without the system's own mounts
  // (/proc, /sys, /dev, /run but /run/media, snaps). Sizes are not read.
  static std::vector<MediaDrive> parseMountInfo(std::string_view table);

  ~DiskManager();

private:
  DiskManager();
  std::vector<MediaDrive> readDrives() const;
  void watchMountTable();

  std::vector<MediaDrive> drives_;
  std::vector<MediaDrive> injected_;
  bool realDrivesListed_ = true;
  GenericNotifier<DiskManagerEvent> notifier_;
  struct Watch;
  std::unique_ptr<Watch> watch_;
};
