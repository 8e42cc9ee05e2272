#include <zowidgets/host/shell/DiskManager.h>

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/detail/WatcherThread.h>

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr char const* kMountTable = "/proc/self/mountinfo";

// Mount tables write a space as \040, a tab \011, a newline \012 and a
// backslash \134.
std::string unescape(std::string_view field) {
  std::string out;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] == '\\' && i + 3 < field.size() && field[i + 1] >= '0' && field[i + 1] <= '3' && field[i + 2] >= '0' &&
        field[i + 2] <= '7' && field[i + 3] >= '0' && field[i + 3] <= '7') {
      out += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0'));
      i += 3;
    } else {
      out += field[i];
    }
  }
  return out;
}

bool isSystemMount(std::string_view mountPoint) {
  for (std::string_view hidden : {"/proc", "/sys", "/dev", "/run", "/snap", "/var/lib/docker"}) {
    if (mountPoint == hidden ||
        (mountPoint.starts_with(hidden) && mountPoint.size() > hidden.size() && mountPoint[hidden.size()] == '/'))
      return !mountPoint.starts_with("/run/media/");
  }
  return false;
}

std::vector<std::string_view> fieldsOf(std::string_view line) {
  std::vector<std::string_view> fields;
  std::size_t at = 0;
  while (at < line.size()) {
    std::size_t const end = std::min(line.find(' ', at), line.size());
    if (end > at)
      fields.push_back(line.substr(at, end - at));
    at = end + 1;
  }
  return fields;
}

LightweightString<wchar_t> wide(std::string const& utf8) { return LightweightString<wchar_t>::fromUTF8(utf8); }

} // namespace

std::vector<MediaDrive> DiskManager::parseMountInfo(std::string_view table) {
  std::vector<MediaDrive> drives;
  while (!table.empty()) {
    std::size_t const newline = std::min(table.find('\n'), table.size());
    std::vector<std::string_view> const fields = fieldsOf(table.substr(0, newline));
    table.remove_prefix(std::min(newline + 1, table.size()));
    // id parent major:minor root mount-point options [optional...] - type source super-options
    auto const dash = std::find(fields.begin(), fields.end(), std::string_view("-"));
    if (fields.size() < 6 || dash == fields.end() || fields.end() - dash < 3 || dash - fields.begin() < 6)
      continue;
    std::string const mountPoint = unescape(fields[4]);
    std::string const type = unescape(*(dash + 1));
    std::string const source = unescape(*(dash + 2));
    bool const root = mountPoint == "/";
    if (!root && (!source.starts_with("/dev/") || isSystemMount(mountPoint) || type == "squashfs"))
      continue;
    if (mountPoint.empty() || mountPoint[0] != '/')
      continue;
    // A folder mounted twice (a later mount hides the first) is one drive.
    auto const same = std::find_if(drives.begin(), drives.end(),
                                   [&](MediaDrive const& drive) { return drive.getMountPoint() == wide(mountPoint); });
    if (same != drives.end())
      drives.erase(same);
    drives.emplace_back(wide(mountPoint), wide(source), wide(type));
  }
  std::stable_sort(drives.begin(), drives.end(), [](MediaDrive const& a, MediaDrive const& b) {
    bool const aRoot = a.getMountPoint() == L"/";
    bool const bRoot = b.getMountPoint() == L"/";
    if (aRoot != bRoot)
      return aRoot;
    return a.getMountPoint() < b.getMountPoint();
  });
  return drives;
}

// A thread that waits for the kernel to flag a change of the mount table
// (poll reports POLLPRI on it) and queues a refresh on the user-interface
// thread.
struct DiskManager::Watch {
  int tableFd = -1;
  int stopFd = -1;
  std::thread thread;

  ~Watch() { Zo::detail::stopWatcherThread(thread, stopFd, tableFd); }
};

DiskManager& DiskManager::instance() {
  static DiskManager manager;
  return manager;
}

DiskManager::DiskManager() : watch_(std::make_unique<Watch>()) {
  drives_ = readDrives();
  watchMountTable();
}

DiskManager::~DiskManager() = default;

void DiskManager::watchMountTable() {
  watch_->tableFd = ::open(kMountTable, O_RDONLY | O_CLOEXEC);
  watch_->stopFd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (watch_->tableFd < 0 || watch_->stopFd < 0)
    return;
  watch_->thread = std::thread([tableFd = watch_->tableFd, stopFd = watch_->stopFd] {
    while (short const happened = Zo::detail::waitForWatchedFd(tableFd, POLLPRI, stopFd)) {
      if (!(happened & (POLLPRI | POLLERR)))
        continue;
      // Rewind, or the kernel reports the same change again at once.
      char scratch[4096];
      ::lseek(tableFd, 0, SEEK_SET);
      while (::read(tableFd, scratch, sizeof scratch) > 0) {
      }
      deferUnique([] { DiskManager::instance().refresh(); }, "DiskManager refresh");
    }
  });
}

std::vector<MediaDrive> DiskManager::readDrives() const {
  std::vector<MediaDrive> drives;
  if (realDrivesListed_) {
    std::ifstream file(kMountTable);
    std::stringstream text;
    text << file.rdbuf();
    drives = parseMountInfo(text.str());
    for (MediaDrive& drive : drives)
      drive.readSizes();
  }
  drives.insert(drives.end(), injected_.begin(), injected_.end());
  return drives;
}

int DiskManager::getDriveIndex(DriveId const& drive) const {
  if (drive.isFirstDrive())
    return drives_.empty() ? -1 : 0;
  for (std::size_t i = 0; i < drives_.size(); ++i)
    if (drives_[i].getMountPoint() == drive.mountPoint())
      return static_cast<int>(i);
  return -1;
}

void DiskManager::refresh() {
  std::vector<MediaDrive> fresh = readDrives();
  auto sameDrive = [](MediaDrive const& a, MediaDrive const& b) {
    return a.getMountPoint() == b.getMountPoint() && a.getDevice() == b.getDevice();
  };
  bool const changed = !std::equal(fresh.begin(), fresh.end(), drives_.begin(), drives_.end(), sameDrive);
  drives_ = std::move(fresh);
  if (changed)
    notifier_.issueNotification(DiskManagerEvent{}, NotifyMsgTypeDictionary::instance().anyType());
}

Zo::Ptr<Zo::Guard> DiskManager::addListener(std::function<void(DiskManagerEvent const&)> listener) {
  auto callback = [listener = std::move(listener)](DiskManagerEvent const& event) {
    listener(event);
    return 0;
  };
  return notifier_.addListener(
      Zo::Ptr<iCallbackBase<int, DiskManagerEvent>>(new FunctionCallback<DiskManagerEvent, int>(std::move(callback))),
      NotifyMsgTypeDictionary::instance().anyType());
}

void DiskManager::injectDrive(MediaDrive const& drive) {
  injected_.push_back(drive);
  refresh();
}

void DiskManager::removeInjectedDrive(DriveId const& drive) {
  std::erase_if(injected_, [&](MediaDrive const& d) { return d.id() == drive; });
  refresh();
}

void DiskManager::setRealDrivesListed(bool listed) {
  if (listed == realDrivesListed_)
    return;
  realDrivesListed_ = listed;
  refresh();
}

void DiskManager::clearInjectedDrives() {
  if (injected_.empty())
    return;
  injected_.clear();
  refresh();
}
