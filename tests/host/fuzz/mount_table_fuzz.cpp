// libFuzzer target for the mount table reader behind DiskManager: any text
// in the form of /proc/self/mountinfo. Besides surviving it, the reader must
// keep these promises:
// - every drive's mount point is an absolute path, and no two are the same;
// - the root, when listed, comes first;
// - there are never more drives than lines.

#include <zowidgets/host/shell/DiskManager.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

namespace {

void require(bool promise) {
  if (!promise)
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view const table(reinterpret_cast<char const*>(data), size);
  std::vector<MediaDrive> const drives = DiskManager::parseMountInfo(table);
  std::size_t const lines = static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n')) + 1;
  require(drives.size() <= lines);
  std::set<std::wstring> seen;
  for (std::size_t i = 0; i < drives.size(); ++i) {
    std::wstring const mount = drives[i].getMountPoint().str();
    require(!mount.empty() && mount[0] == L'/');
    require(seen.insert(mount).second);
    if (mount == L"/")
      require(i == 0);
    require(!drives[i].getUserName().empty());
  }
  return 0;
}
