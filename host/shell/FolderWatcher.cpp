#include <zowidgets/host/shell/FolderWatcher.h>

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/detail/WatcherThread.h>

#include <atomic>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

struct FolderWatcher::Shared {
  std::function<void()> changed;
  bool alive = true; // read and written on the user-interface thread only
  LightweightString<char> key;
};

namespace {

std::atomic<unsigned> watcherSerial{0};

constexpr std::uint32_t kWatchedChanges =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;

} // namespace

FolderWatcher::FolderWatcher(std::string const& folder, std::function<void()> changed)
    : shared_(std::make_shared<Shared>()) {
  shared_->changed = std::move(changed);
  shared_->key = LightweightString<char>(("FolderWatcher " + std::to_string(++watcherSerial)).c_str());
  inotifyFd_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (inotifyFd_ < 0)
    return;
  watchFd_ = inotify_add_watch(inotifyFd_, folder.c_str(), kWatchedChanges);
  stopFd_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (watchFd_ < 0 || stopFd_ < 0) {
    watchFd_ = -1;
    return;
  }
  thread_ = std::thread([this, shared = shared_] { watch(); });
}

FolderWatcher::~FolderWatcher() {
  shared_->alive = false;
  Zo::detail::stopWatcherThread(thread_, stopFd_, inotifyFd_);
}

void FolderWatcher::watch() {
  std::shared_ptr<Shared> const shared = shared_;
  alignas(inotify_event) char buffer[4096];
  while (Zo::detail::waitForWatchedFd(inotifyFd_, POLLIN, stopFd_)) {
    bool any = false;
    while (::read(inotifyFd_, buffer, sizeof buffer) > 0)
      any = true;
    if (any)
      deferUnique(
          [shared] {
            if (shared->alive)
              shared->changed();
          },
          shared->key);
  }
}
