#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/toolkit/GlobManager.h>

class EventHandler;
class Glob;

// The toolkit's bookkeeping of live widgets, keyboard focus and the widgets
// that input is routed to. User-interface thread only.
namespace GlobRegistry {
void enrol(Glob* widget);
// Forgets a dying widget everywhere: focus, pointer capture, hover, modal
// and intercept stacks, top-level windows.
void withdraw(Glob* widget);
bool isLive(Glob const* widget);
// The live widget whose event-handler part this is; null for a handler that
// is no live widget (never dereferenced, so a dead one is safe to ask about).
Glob* liveGlobOf(EventHandler const* handler);
// Tells GlobManager's listeners that this happened to `widget`.
void announce(GlobManagerEvent::eKind kind, Glob* widget);
// Drops the keyboard focus if `widget` holds it, without telling anyone.
void forgetFocus(Glob* widget);
// A window that came on the screen takes the keyboard from a widget of
// another window (popups and tips take none); the widget has it back when
// the window goes (hidden, or `dying`), unless the keyboard went elsewhere
// meanwhile.
void windowShown(Glob* root);
void windowGone(Glob* root, bool dying);
// The widget of the window `root` that last had the keyboard, if it lives
// and shows there still; else null.
Glob* lastFocusIn(Glob const* root);
} // namespace GlobRegistry
