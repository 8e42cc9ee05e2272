#include <zowidgets/host/base/AtomicFile.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

bool writeAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR)
      continue;
    if (written <= 0)
      return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Makes the rename itself durable.
void syncFolder(fs::path const& folder) {
  int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd >= 0) {
    ::fsync(fd);
    ::close(fd);
  }
}

} // namespace

namespace Zo {

bool writeFileAtomically(std::string const& path, std::string_view bytes) {
  fs::path const folder = fs::path(path).parent_path();
  std::error_code error;
  if (!folder.empty())
    fs::create_directories(folder, error);
  std::string temp = path + ".XXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0)
    return false;
  bool written = writeAll(fd, bytes) && ::fsync(fd) == 0;
  written = ::close(fd) == 0 && written;
  if (written && std::rename(temp.c_str(), path.c_str()) == 0) {
    syncFolder(folder.empty() ? fs::path(".") : folder);
    return true;
  }
  int const cause = errno;
  ::unlink(temp.c_str());
  errno = cause;
  return false;
}

} // namespace Zo
