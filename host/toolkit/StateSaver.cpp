#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/StateSaver.h>
#include <zowidgets/host/toolkit/detail/DrawingState.h>

#include <algorithm>

DrawingState::Values& DrawingState::current() {
  static Values values;
  return values;
}

void DrawingState::forgetCanvas(Canvas const* canvas) {
  if (current().currentCanvas == canvas)
    current().currentCanvas = nullptr;
}

Canvas* Glib::currentCanvas() { return DrawingState::current().currentCanvas; }

Glib::StateSaver::StateSaver()
    : canvas_(DrawingState::current().currentCanvas), pendingRootPosition_(DrawingState::current().pendingRootPosition),
      contextCursors_(glib_mouseContextLogicEnabled()) {}

Glib::StateSaver::~StateSaver() {
  DrawingState::Values& state = DrawingState::current();
  // A window that went while the saver was held is not brought back.
  auto const& live = Canvas::stack();
  state.currentCanvas = std::find(live.begin(), live.end(), canvas_) != live.end() ? canvas_ : nullptr;
  state.pendingRootPosition = pendingRootPosition_;
  glib_enableMouseContextLogic(contextCursors_);
}
