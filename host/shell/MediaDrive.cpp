#include <zowidgets/host/shell/MediaDrive.h>

#include <sys/statvfs.h>

MediaDrive::MediaDrive(LightweightString<wchar_t> mountPoint, LightweightString<wchar_t> device,
                       LightweightString<wchar_t> fileSystem)
    : mountPoint_(std::move(mountPoint)), device_(std::move(device)), fileSystem_(std::move(fileSystem)) {}

LightweightString<wchar_t> MediaDrive::getUserName() const {
  if (!userName_.empty())
    return userName_;
  if (mountPoint_ == L"/")
    return L"System";
  if (mountPoint_ == L"/home")
    return L"Home";
  std::wstring_view path = mountPoint_.view();
  while (path.size() > 1 && path.back() == L'/')
    path.remove_suffix(1);
  std::size_t const slash = path.rfind(L'/');
  std::wstring_view const last = slash == std::wstring_view::npos ? path : path.substr(slash + 1);
  // A mount point of slashes alone has no last part: show it whole.
  return last.empty() ? mountPoint_ : LightweightString<wchar_t>(last);
}

bool MediaDrive::readSizes() {
  struct statvfs info {};
  if (statvfs(mountPoint_.toUTF8().c_str(), &info) != 0)
    return false;
  sizeInMegabytes = (static_cast<std::uint64_t>(info.f_blocks) * info.f_frsize) >> 20;
  freeMegabytes = (static_cast<std::uint64_t>(info.f_bavail) * info.f_frsize) >> 20;
  return true;
}
