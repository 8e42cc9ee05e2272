#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using WString = LightweightString<wchar_t>;

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
