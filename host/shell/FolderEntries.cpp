#include <zowidgets/host/shell/FolderEntries.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

std::string_view FolderEntry::extension() const noexcept {
  std::size_t const dot = name.rfind('.');
  if (dot == std::string::npos || dot == 0)
    return {};
  return std::string_view(name).substr(dot + 1);
}

FolderReader::FolderReader(std::string folder) : folder_(std::move(folder)) {
  dir_ = opendir(folder_.c_str());
  if (!dir_)
    error_ = errno;
}

FolderReader::~FolderReader() {
  if (dir_)
    closedir(dir_);
}

namespace {

void describe(int folderFd, dirent const& item, FolderEntry& entry) {
  struct stat target {};
  entry.isLink = item.d_type == DT_LNK;
  if (fstatat(folderFd, item.d_name, &target, 0) != 0) {
    // A dangling link, or a link loop (ELOOP): the kernel stopped following
    // it, and so do we. Describe the link itself.
    struct stat link {};
    if (fstatat(folderFd, item.d_name, &link, AT_SYMLINK_NOFOLLOW) == 0) {
      entry.isLink = S_ISLNK(link.st_mode);
      entry.isBrokenLink = entry.isLink;
      entry.modified = link.st_mtim.tv_sec;
    }
    return;
  }
  if (item.d_type == DT_UNKNOWN) {
    struct stat link {};
    entry.isLink = fstatat(folderFd, item.d_name, &link, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(link.st_mode);
  }
  entry.isFolder = S_ISDIR(target.st_mode);
  entry.size = entry.isFolder ? 0 : static_cast<std::uint64_t>(target.st_size);
  entry.modified = target.st_mtim.tv_sec;
}

} // namespace

bool FolderReader::readSome(std::size_t most, std::vector<FolderEntry>& into) {
  if (!dir_)
    return false;
  int const fd = dirfd(dir_);
  for (std::size_t n = 0; n < most;) {
    errno = 0;
    dirent const* item = readdir(dir_);
    if (!item) {
      closedir(dir_);
      dir_ = nullptr;
      return false;
    }
    std::string_view const name = item->d_name;
    if (name == "." || name == "..")
      continue;
    FolderEntry& entry = into.emplace_back();
    entry.name = name;
    entry.sortKey = naturalSortKey(name);
    describe(fd, *item, entry);
    ++n;
  }
  return true;
}

std::vector<FolderEntry> readFolderEntries(std::string const& folder, int* error) {
  FolderReader reader(folder);
  std::vector<FolderEntry> entries;
  while (reader.readSome(4096, entries)) {
  }
  if (error)
    *error = reader.error();
  return entries;
}

namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }
char lower(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace

int naturalCompare(std::string_view a, std::string_view b) noexcept {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    if (isDigit(a[i]) && isDigit(b[j])) {
      // Compare the numbers' values: skip leading zeros, then the longer run
      // is larger, else the first differing digit decides.
      while (i < a.size() && a[i] == '0')
        ++i;
      while (j < b.size() && b[j] == '0')
        ++j;
      std::size_t endA = i;
      std::size_t endB = j;
      while (endA < a.size() && isDigit(a[endA]))
        ++endA;
      while (endB < b.size() && isDigit(b[endB]))
        ++endB;
      if (endA - i != endB - j)
        return endA - i < endB - j ? -1 : 1;
      for (; i < endA; ++i, ++j)
        if (a[i] != b[j])
          return a[i] < b[j] ? -1 : 1;
      continue;
    }
    char const x = lower(a[i]);
    char const y = lower(b[j]);
    if (x != y)
      return static_cast<unsigned char>(x) < static_cast<unsigned char>(y) ? -1 : 1;
    ++i;
    ++j;
  }
  if (i < a.size() || j < b.size())
    return i < a.size() ? 1 : -1;
  return a.compare(b) < 0 ? -1 : (a == b ? 0 : 1);
}

std::string naturalSortKey(std::string_view name) {
  std::string key;
  key.reserve(name.size() + 2);
  std::size_t i = 0;
  while (i < name.size()) {
    if (!isDigit(name[i])) {
      key += lower(name[i++]);
      continue;
    }
    while (i < name.size() && name[i] == '0')
      ++i;
    std::size_t end = i;
    while (end < name.size() && isDigit(name[end]))
      ++end;
    // The length's first byte is a digit, so a run meets other characters as
    // its first digit would; runs of nine digits or more carry their whole
    // length after it.
    std::size_t const length = end - i;
    key += static_cast<char>('0' + std::min<std::size_t>(length, 9));
    if (length >= 9)
      for (int shift = 56; shift >= 0; shift -= 8)
        key += static_cast<char>((std::uint64_t(length) >> shift) & 0xff);
    key.append(name.substr(i, length));
    i = end;
  }
  return key;
}

void sortFolderEntries(std::vector<FolderEntry>& entries, FolderSortKey key, bool ascending) {
  for (FolderEntry& entry : entries)
    if (entry.sortKey.empty() && !entry.name.empty())
      entry.sortKey = naturalSortKey(entry.name);
  auto byKey = [key](FolderEntry const& a, FolderEntry const& b) {
    switch (key) {
    case FolderSortKey::kSize:
      if (a.size != b.size)
        return a.size < b.size ? -1 : 1;
      break;
    case FolderSortKey::kModified:
      if (a.modified != b.modified)
        return a.modified < b.modified ? -1 : 1;
      break;
    case FolderSortKey::kName:
      break;
    }
    if (int const natural = a.sortKey.compare(b.sortKey))
      return natural < 0 ? -1 : 1;
    return a.name.compare(b.name) < 0 ? -1 : (a.name == b.name ? 0 : 1);
  };
  // Entries are large (a name, a key and their details): sorting their
  // places and moving each entry once costs less than swapping entries.
  std::vector<std::uint32_t> order(entries.size());
  for (std::uint32_t i = 0; i < order.size(); ++i)
    order[i] = i;
  std::sort(order.begin(), order.end(), [&](std::uint32_t x, std::uint32_t y) {
    FolderEntry const& a = entries[x];
    FolderEntry const& b = entries[y];
    if (a.isFolder != b.isFolder)
      return a.isFolder;
    int const sign = byKey(a, b);
    return ascending ? sign < 0 : sign > 0;
  });
  std::vector<FolderEntry> sorted;
  sorted.reserve(entries.size());
  for (std::uint32_t i : order)
    sorted.push_back(std::move(entries[i]));
  entries = std::move(sorted);
}
