#pragma once

#include <zowidgets/host/base/Export.h>

// Screen refresh control, for a change that must reach the screen in one
// piece (a dialogue built, sized and shadowed before anyone sees it). While
// refresh is off no window paints, whatever asks it to (held redraws ending,
// update(), a read of the screen): the screen keeps showing what it showed,
// and damage collects. The calls nest and belong to the user-interface
// thread; the outermost refresh_on paints every window that has damage.
// Unlike Drawable::disableRedraws, which holds only the paints that
// invalidation would make at once, this holds every paint.
ZO_API void refresh_off();
ZO_API void refresh_on();
ZO_API bool refresh_is_off();

// Turns refresh off for as long as it lives, exception-safely.
class ZO_API ScreenRefreshHold {
public:
  ScreenRefreshHold() { refresh_off(); }
  ~ScreenRefreshHold() { refresh_on(); }
  ScreenRefreshHold(ScreenRefreshHold const&) = delete;
  ScreenRefreshHold& operator=(ScreenRefreshHold const&) = delete;
};
