#pragma once

#include <zowidgets/host/base/Export.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <dirent.h>

// One name in a folder, as a file browser shows it. Names are the bytes the
// file system holds (UTF-8 on any sane system), never re-encoded.
struct ZO_API FolderEntry {
  std::string name;
  bool isFolder = false; // a folder, or a link that leads to one
  bool isLink = false;
  // A link that leads nowhere: its target is missing, or the links loop.
  // Such a link is listed as a file and never followed.
  bool isBrokenLink = false;
  std::uint64_t size = 0;
  std::int64_t modified = 0; // seconds since the epoch
  // naturalSortKey(name), made when the entry is read (or first sorted), so
  // that sorting compares plain bytes.
  std::string sortKey;

  bool isHidden() const noexcept { return !name.empty() && name[0] == '.'; }
  // The text after the last dot, without it; empty for "README" and ".bashrc".
  std::string_view extension() const noexcept;
};

// Reads a folder a slice at a time, so a caller can show the first names of
// a huge folder before the rest are read. "." and ".." are skipped.
class ZO_API FolderReader {
public:
  explicit FolderReader(std::string folder);
  ~FolderReader();
  FolderReader(FolderReader const&) = delete;
  FolderReader& operator=(FolderReader const&) = delete;

  // errno of opening the folder; 0 when it opened.
  int error() const noexcept { return error_; }
  bool finished() const noexcept { return dir_ == nullptr; }
  // Appends up to `most` entries; false once the folder is exhausted (or
  // could not be opened).
  bool readSome(std::size_t most, std::vector<FolderEntry>& into);

private:
  std::string folder_;
  DIR* dir_ = nullptr;
  int error_ = 0;
};

// The whole folder at once; `error` gets errno when it cannot be opened.
ZO_API std::vector<FolderEntry> readFolderEntries(std::string const& folder, int* error = nullptr);

// Orders names as people count: runs of digits compare by their value, so
// "file2" < "file10"; letters compare without case. Equal under those rules,
// the bytes decide, so the order is total. Negative, zero or positive.
ZO_API int naturalCompare(std::string_view a, std::string_view b) noexcept;
// Bytes that order as naturalCompare does, byte by byte: letters in lower
// case, and each run of digits as its length (without leading zeros) then
// its digits. Equal keys leave the order to the names' bytes.
ZO_API std::string naturalSortKey(std::string_view name);

// What a listing is ordered by. Folders always come before files.
enum class FolderSortKey : int { kName = 0, kSize = 1, kModified = 2 };
ZO_API void sortFolderEntries(std::vector<FolderEntry>& entries, FolderSortKey key, bool ascending);
