#pragma once

#include <zowidgets/host/base/XY.h>

class Canvas;

// What the toolkit keeps for the user-interface thread between calls while
// windows are made and changed: the window in hand and where the next
// top-level widget goes. Glib::StateSaver saves and restores it.
namespace DrawingState {

struct Values {
  Canvas* currentCanvas = nullptr;
  XY<int> pendingRootPosition = XY<int>::unset();
};

Values& current();
// A dying canvas stops being the current one.
void forgetCanvas(Canvas const* canvas);

} // namespace DrawingState
