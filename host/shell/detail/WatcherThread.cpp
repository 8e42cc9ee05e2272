#include <zowidgets/host/shell/detail/WatcherThread.h>

#include <cerrno>
#include <cstdint>

#include <poll.h>
#include <unistd.h>

namespace Zo::detail {

short waitForWatchedFd(int watchedFd, short events, int stopFd) {
  for (;;) {
    pollfd fds[2] = {{watchedFd, events, 0}, {stopFd, POLLIN, 0}};
    if (poll(fds, 2, -1) < 0) {
      if (errno == EINTR)
        continue;
      return 0;
    }
    if (fds[1].revents != 0)
      return 0;
    if (fds[0].revents != 0)
      return fds[0].revents;
  }
}

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
