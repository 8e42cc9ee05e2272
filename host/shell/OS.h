#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/ShellBackend.h>

#include <memory>
#include <vector>

namespace Zo {

// headless: nothing outside the process is touched. Open, reveal and drag
// requests are recorded (recordedShellRequests) and the clipboard lives in
// the process. desktop: requests go to the installed iShellBackend.
enum class ShellMode { headless, desktop };

// Which entries of a folder a listing gives.
enum class FolderEntries { files, folders, all };

// The process-wide service object, reached through OS(): the desktop shell
// (clipboard, opening documents, revealing files), the user's folders and the
// file system. Safe from any thread. Paths are UTF-8 on disk.
class ZO_API OperatingSystem {
public:
  OperatingSystem();
  ~OperatingSystem();
  OperatingSystem(OperatingSystem const&) = delete;
  OperatingSystem& operator=(OperatingSystem const&) = delete;

  // Starts headless, so a program without a display never launches
  // anything. setShellMode(desktop) installs makeXdgShell(); a display
  // backend installs its own with setShellBackend, and a null backend goes
  // back to headless.
  // Screen images and the like.
  iMediaServices& media() const;

  void setShellMode(ShellMode mode);
  void setShellBackend(std::shared_ptr<iShellBackend> backend);
  ShellMode shellMode() const;
  // What headless mode was asked to do, oldest first.
  std::vector<ShellRequest> recordedShellRequests() const;
  void clearRecordedShellRequests();

  LightweightString<wchar_t> clipboardText() const;
  void setClipboardText(LightweightString<wchar_t> const& text);
  // Puts the items on the clipboard, one per line.
  void copyToClipboard(std::vector<LightweightString<wchar_t>> const& items);

  // Empty targets are dropped, and with none left nothing is done and the
  // answer is false; otherwise true when the request was recorded (headless)
  // or started (desktop).
  bool open(LightweightString<wchar_t> const& urlOrPath);
  bool revealFiles(std::vector<LightweightString<wchar_t>> const& paths);
  bool dragFiles(std::vector<LightweightString<wchar_t>> const& paths);

  // The user's documents folder: XDG_DOCUMENTS_DIR from user-dirs.dirs in
  // $XDG_CONFIG_HOME (~/.config), else ~/Documents. It may not exist.
  LightweightString<wchar_t> documentsFolder() const;
  // $XDG_DATA_HOME/zowidgets (~/.local/share/zowidgets); not created here.
  LightweightString<wchar_t> appDataFolder() const;

  // False for an empty path and for a link to nothing.
  bool fileExists(LightweightString<wchar_t> const& path) const;
  // Whether a file can be made in `folder`, found by making one and removing
  // it again; false when `folder` is not a folder.
  bool canWriteTo(LightweightString<wchar_t> const& folder) const;
  // Names (not paths) of the folder's entries that match `pattern` (see
  // matchesWildcard; "*" for all), sorted. Names starting with '.' are left
  // out unless the pattern starts with '.' too. A folder that cannot be read
  // gives an empty list.
  std::vector<LightweightString<wchar_t>> listFolder(LightweightString<wchar_t> const& folder,
                                                     LightweightString<wchar_t> const& pattern,
                                                     FolderEntries entries = FolderEntries::files) const;
  // Whether a file may be written at `path`: an existing file that opens
  // for writing, or a new one in a folder that takes files (canWriteTo).
  // A path whose folder does not exist is not refused here.
  bool canWriteFile(LightweightString<wchar_t> const& path) const;
  // True when `path`, or the nearest folder above it that exists, lies on a
  // floppy disk drive.
  bool isFloppy(LightweightString<wchar_t> const& path) const;
  // Makes the folder and any missing parents; true when it exists afterwards.
  bool createFolder(LightweightString<wchar_t> const& folder) const;
  // Removes a file (never a folder); true when it was removed.
  bool deleteFile(LightweightString<wchar_t> const& path) const;

private:
  struct Shell;
  std::unique_ptr<Shell> shell_;
};

} // namespace Zo

ZO_API Zo::OperatingSystem& OS();

// The toolkit's names for the shell services above.
namespace Glib {
ZO_API bool viewDocument(LightweightString<wchar_t> const& urlOrPath);
ZO_API bool revealFiles(std::vector<LightweightString<wchar_t>> const& paths);
ZO_API bool dragFilesToOS(std::vector<LightweightString<wchar_t>> const& paths);
} // namespace Glib
