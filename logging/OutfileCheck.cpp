#include <zowidgets/logging/OutfileCheck.h>

#include <zowidgets/host/shell/FileNameRules.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>

namespace {

using WString = LightweightString<wchar_t>;

constexpr wchar_t kSeparator = L'/';

bool isNetworkPath(WString const& path) {
  std::wstring_view const text = path.view();
  return text.size() >= 2 && text[0] == L'\\' && text[1] == L'\\';
}

// "X:" and "X:\" name the root of a drive, which always exists.
bool isDriveRoot(std::wstring_view folder) {
  return (folder.size() == 2 && folder[1] == L':') || (folder.size() == 3 && folder[1] == L':' && folder[2] == L'\\');
}

} // namespace

outfile_check_code outfile_check(WString const& path, bool overwriteAllowed) {
  if (!fileNameValid(path))
    return kOutfileInvalidName;
  if (!isNetworkPath(path) && !OS().canWriteFile(path))
    return OS().isFloppy(path) ? kOutfileNoPermissionFloppy : kOutfileNoPermission;
  if (outfile_check_code const folder = outfile_check_n_make_dir(path); folder != kOutfileUsable)
    return folder;
  if (overwriteAllowed)
    return kOutfileUsable;
  return OS().fileExists(path) ? kOutfileExists : kOutfileUsable;
}

outfile_check_code outfile_check_n_make_dir(WString const& path) {
  std::wstring folder(getPath(path).view());
  if (!folder.empty() && folder.back() == kSeparator)
    folder.pop_back();
  if (OS().fileExists(WString(folder.c_str())))
    return kOutfileUsable;
  return isDriveRoot(folder) ? kOutfileUsable : kOutfileNoFolder;
}
