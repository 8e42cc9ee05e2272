#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Zo {

// One thing the desktop was asked to do with files or addresses.
struct ShellRequest {
  enum class Kind {
    open,   // show a document or an address in its usual program
    reveal, // show the folders that hold the files
    drag,   // drag the files out of the application
  };
  Kind kind = Kind::open;
  std::vector<LightweightString<wchar_t>> targets;

  friend bool operator==(ShellRequest const&, ShellRequest const&) = default;
};

// What OS() hands the desktop's own services to. A display backend installs
// one (OS().setShellBackend) that reaches the system clipboard and starts
// drags on its windows; makeXdgShell below serves a desktop without one.
class ZO_API iShellBackend {
public:
  virtual ~iShellBackend() = default;

  virtual LightweightString<wchar_t> clipboardText() = 0;
  virtual void setClipboardText(LightweightString<wchar_t> const& text) = 0;
  // Starts the request without waiting for it to finish; false when it could
  // not be started.
  virtual bool perform(ShellRequest const& request) = 0;
};

// The backend of a freedesktop session: `opener` (found on PATH when it has
// no '/') is started with one document, address or folder at a time, without
// a shell, and left to run; a reveal opens each distinct folder holding the
// targets once. Its clipboard holds text inside this process, and it cannot
// drag: that needs a window, which a display backend has. An opener that
// ends in failure (no program took the document: the desktop's opener says
// so by its exit status) is reported to `failed` with its target, on a
// thread of its own, when one is given.
using OpenFailedHandler = std::function<void(LightweightString<wchar_t> const& target)>;
ZO_API std::shared_ptr<iShellBackend> makeXdgShell(std::string opener = "xdg-open", OpenFailedHandler failed = {});

} // namespace Zo
