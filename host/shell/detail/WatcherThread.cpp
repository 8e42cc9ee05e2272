#include <zowidgets/host/shell/detail/WatcherThread.h>

#include <cstdint>

#include <unistd.h>

namespace Zo::detail {

void stopWatcherThread(std::thread& thread, int stopFd, int watchedFd) {
  if (thread.joinable()) {
    std::uint64_t const one = 1;
    [[maybe_unused]] ssize_t const written = ::write(stopFd, &one, sizeof one);
    thread.join();
  }
  for (int fd : {stopFd, watchedFd})
    if (fd >= 0)
      ::close(fd);
}

} // namespace Zo::detail
