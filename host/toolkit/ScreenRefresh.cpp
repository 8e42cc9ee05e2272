#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/ScreenRefresh.h>

namespace {
int refreshOffDepth = 0;
} // namespace

void refresh_off() { ++refreshOffDepth; }

void refresh_on() {
  // An unmatched on is ignored rather than letting the count go below zero.
  if (refreshOffDepth == 0)
    return;
  if (--refreshOffDepth == 0)
    Canvas::paintAllPending();
}

bool refresh_is_off() { return refreshOffDepth > 0; }
