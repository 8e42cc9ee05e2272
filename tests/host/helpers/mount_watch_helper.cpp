// A second process for the drive tests: in a private mount namespace of its
// own it mounts a small file system, unmounts it, and says whether the drive
// list heard each change through the message loop, as a program would.
//   mount_watch_helper
// Prints "mounted heard" and "removed heard" as each change arrives; exits 0
// when both arrived, 77 when the machine does not let it make the namespace,
// 1 otherwise.
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/DiskManager.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

namespace {

constexpr int kCannotMakeNamespace = 77;
constexpr auto kHangGuard = std::chrono::seconds(20);

bool listed(std::string const& mountPoint) {
  auto const& drives = DiskManager::instance().drives();
  LightweightString<wchar_t> const wanted = LightweightString<wchar_t>::fromUTF8(mountPoint);
  return std::any_of(drives.begin(), drives.end(),
                     [&](MediaDrive const& drive) { return drive.getMountPoint() == wanted; });
}

} // namespace

int main() {
  // Before any thread exists: a process with threads cannot leave its
  // mount namespace.
  if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
    std::printf("cannot make a private mount namespace: %s\n", std::strerror(errno));
    return kCannotMakeNamespace;
  }
  char folder[] = "/tmp/zowidgets-drive-XXXXXX";
  if (!::mkdtemp(folder))
    return 1;
  std::string const mountPoint = folder;

  MessageLoop::adoptCurrentThread();
  int changes = 0;
  auto guard = DiskManager::instance().addListener([&](DiskManagerEvent const&) { ++changes; });
  if (listed(mountPoint))
    return 1;

  int result = 1;
  if (::mount("/dev/zowidgets-test-card", folder, "tmpfs", 0, "size=1m") == 0) {
    if (MessageLoop::runUntil([&] { return changes > 0 && listed(mountPoint); }, kHangGuard)) {
      std::printf("mounted heard\n");
      int const before = changes;
      ::umount(folder);
      if (MessageLoop::runUntil([&] { return changes > before && !listed(mountPoint); }, kHangGuard)) {
        std::printf("removed heard\n");
        result = 0;
      }
    }
    ::umount(folder);
  } else {
    std::printf("cannot mount: %s\n", std::strerror(errno));
  }
  ::rmdir(folder);
  return result;
}
