#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using WString = LightweightString<wchar_t>;

constexpr unsigned kFloppyMajor = 2;

fs::path diskPath(WString const& path) { return fs::path(std::string(path.toUTF8().view())); }

// Tries before the write test gives up on names that keep being taken.
constexpr int kWriteProbeTries = 16;

bool wanted(fs::directory_entry const& entry, Zo::FolderEntries entries) {
  std::error_code error;
  switch (entries) {
  case Zo::FolderEntries::files:
    return entry.is_regular_file(error);
  case Zo::FolderEntries::folders:
    return entry.is_directory(error);
  case Zo::FolderEntries::all:
    return true;
  }
  return false;
}

} // namespace

namespace Zo {

bool OperatingSystem::fileExists(WString const& path) const {
  std::error_code error;
  return !path.empty() && fs::exists(diskPath(path), error);
}

bool OperatingSystem::canWriteFile(WString const& path) const {
  std::error_code error;
  fs::path const where = diskPath(path);
  if (path.empty() || fs::is_directory(where, error))
    return false;
  if (fs::exists(where, error))
    return ::access(where.c_str(), W_OK) == 0;
  fs::path const folder = where.parent_path().empty() ? fs::path(".") : where.parent_path();
  if (!fs::exists(folder, error))
    return true;
  return canWriteTo(WString::fromUTF8(folder.string()));
}

bool OperatingSystem::isFloppy(WString const& path) const {
  std::error_code error;
  fs::path where = fs::absolute(diskPath(path), error);
  while (!where.empty() && !fs::exists(where, error) && where != where.parent_path())
    where = where.parent_path();
  struct stat status {};
  if (where.empty() || ::stat(where.c_str(), &status) != 0)
    return false;
  // Block major 2 is the floppy disk driver's.
  return major(status.st_dev) == kFloppyMajor;
}

bool OperatingSystem::canWriteTo(WString const& folder) const {
  std::error_code error;
  auto where = diskPath(folder);
  if (folder.empty() || !fs::is_directory(where, error))
    return false;
  static std::atomic<unsigned> probeCount{0};
  for (int attempt = 0; attempt < kWriteProbeTries; ++attempt) {
    auto probe = where / (".zowidgets-write-test-" + std::to_string(getpid()) + "-" + std::to_string(probeCount++));
    int descriptor = ::open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor >= 0) {
      ::close(descriptor);
      fs::remove(probe, error);
      return true;
    }
    if (errno != EEXIST)
      return false;
  }
  return false;
}

std::vector<WString> OperatingSystem::listFolder(WString const& folder, WString const& pattern,
                                                 FolderEntries entries) const {
  std::vector<WString> names;
  std::error_code error;
  bool showHidden = pattern.startsWith(L".");
  for (fs::directory_iterator it(diskPath(folder), error), end; !error && it != end; it.increment(error)) {
    auto name = WString::fromUTF8(it->path().filename().native());
    if ((showHidden || !name.startsWith(L".")) && matchesWildcard(name, pattern) && wanted(*it, entries))
      names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool OperatingSystem::createFolder(WString const& folder) const {
  std::error_code error;
  auto where = diskPath(folder);
  fs::create_directories(where, error);
  return !folder.empty() && fs::is_directory(where, error);
}

bool OperatingSystem::deleteFile(WString const& path) const {
  std::error_code error;
  auto where = diskPath(path);
  if (path.empty() || fs::is_directory(where, error))
    return false;
  return fs::remove(where, error);
}

} // namespace Zo
