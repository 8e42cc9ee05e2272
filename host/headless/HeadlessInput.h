#pragma once

#include <zowidgets/host/events/Event.h>

#include <string_view>

class Glob;

// Input as a person would give it, injected into the headless screen through
// the same path as real input. Positions are screen coordinates (bottom-up);
// the ...On forms take a point in a widget's own coordinates, or its centre.
namespace HeadlessInput {
ZO_API void moveTo(XY<int> screen);
ZO_API void press(int button = kMouseLeft, int modifiers = 0);
ZO_API void release(int button = kMouseLeft, int modifiers = 0);
ZO_API void click(XY<int> screen, int button = kMouseLeft, int modifiers = 0);
ZO_API void doubleClick(XY<int> screen, int button = kMouseLeft);
// Press at `from`, move in `steps` even steps to `to`, release there.
ZO_API void drag(XY<int> from, XY<int> to, int steps = 8, int button = kMouseLeft);
ZO_API void wheel(XY<int> screen, int steps);
ZO_API void keyPress(int key, int modifiers = 0);
ZO_API void keyRelease(int key, int modifiers = 0);
// Press and release.
ZO_API void key(int key, int modifiers = 0);
// Each character as a person types it: key down, text, key up.
ZO_API void typeText(std::string_view utf8);

ZO_API XY<int> pointOn(Glob const& widget);
ZO_API XY<int> pointOn(Glob const& widget, XY<int> local);
ZO_API void clickOn(Glob const& widget, int button = kMouseLeft);
ZO_API void clickOn(Glob const& widget, XY<int> local, int button = kMouseLeft);
} // namespace HeadlessInput
