#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/XY.h>

class Canvas;

namespace Glib {

// The window in hand on the user-interface thread: the one a widget last
// named with Glob::makeCanvasCurrent, while it lives; null otherwise.
ZO_API Canvas* currentCanvas();

// Saves the user-interface thread's drawing state and puts it back when it
// ends, so that a window made or changed on the way (a hint opened while a
// panel is built) leaves the caller's state as it found it. The state is
// what the toolkit keeps between calls: the current canvas
// (Glob::makeCanvasCurrent), the position waiting for the next top-level
// widget (Glob::setupRootPos), and whether widgets choose the pointer's
// cursor (glib_enableMouseContextLogic). Redraws are held and released by
// Drawable::Suspender, not here.
class ZO_API StateSaver {
public:
  StateSaver();
  ~StateSaver();
  StateSaver(StateSaver const&) = delete;
  StateSaver& operator=(StateSaver const&) = delete;

private:
  Canvas* canvas_;
  XY<int> pendingRootPosition_;
  bool contextCursors_;
};

} // namespace Glib
