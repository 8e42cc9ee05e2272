#pragma once

#include <zowidgets/host/base/Export.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>

// Watches one folder (not its sub-folders) with inotify and tells its owner,
// on the user-interface thread through the message queue, when names appear,
// go, are renamed or change. A burst of changes waiting in the queue is one
// call. Nothing is called once the watcher is destroyed. Make and destroy it
// on the user-interface thread.
class ZO_API FolderWatcher {
public:
  FolderWatcher(std::string const& folder, std::function<void()> changed);
  ~FolderWatcher();
  FolderWatcher(FolderWatcher const&) = delete;
  FolderWatcher& operator=(FolderWatcher const&) = delete;

  // False when the folder could not be watched (gone, unreadable, or the
  // system's watch limit reached): the owner then refreshes by hand.
  bool isWatching() const noexcept { return watchFd_ >= 0; }

private:
  struct Shared;
  void watch();

  std::shared_ptr<Shared> shared_;
  int inotifyFd_ = -1;
  int watchFd_ = -1;
  int stopFd_ = -1;
  std::thread thread_;
};
