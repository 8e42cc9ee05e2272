#pragma once

#include <zowidgets/host/shell/ShellBackend.h>

#include <memory>

namespace Zo {
// The desktop's services for the display backend: the session's clipboard,
// and documents opened through xdg-open, with a message when nothing could
// open one.
ZO_API std::shared_ptr<iShellBackend> makeDisplayShell();
} // namespace Zo
