#pragma once

#include <zowidgets/host/base/Export.h>

class Glob;

// What keeps the widget that Tab or Shift-Tab gives the keyboard in sight:
// a scrolling panel registers once, and every one registered is called with
// the widget after the focus moved, so the view follows the keyboard.
using FocusRevealer = void (*)(Glob& focus);
ZO_API void addFocusRevealer(FocusRevealer revealer);
