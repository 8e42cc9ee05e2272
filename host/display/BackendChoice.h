#pragma once

#include <zowidgets/host/base/Export.h>

enum class ScreenBackendKind { headless, display };

// Picks and installs the program's screen backend. `--headless` or
// `--display` on the command line decide first, then the environment
// variable ZOWIDGETS_BACKEND (headless or display); otherwise a real display
// is used when one can be opened. When the display cannot be opened the
// headless screen stays, with a message on stderr if the display was asked
// for. With a display, the toolkit's scale follows the display's. Returns
// the backend in use.
ZO_API ScreenBackendKind chooseScreenBackend(int argc, char const* const* argv);
