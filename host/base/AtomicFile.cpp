#include <zowidgets/host/base/AtomicFile.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fstream>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
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

// The process's file creation mask, read without changing it (umask() would
// change it for every thread while it is read).
mode_t creationMask() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind("Umask:", 0) == 0)
      return static_cast<mode_t>(std::strtoul(line.c_str() + 6, nullptr, 8));
  return 022;
}

// The file keeps the permissions it had; a new one gets those any file the
// user makes gets. A temporary file is made private, which the rename would
// otherwise pass on to the file.
mode_t modeFor(std::string const& path) {
  struct stat existing {};
  if (::stat(path.c_str(), &existing) == 0)
    return existing.st_mode & 07777;
  return 0666 & ~creationMask();
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
  bool written = ::fchmod(fd, modeFor(path)) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
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
