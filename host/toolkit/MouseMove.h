#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/XY.h>

// Whether the pointer went far enough between a press and a release for the
// gesture to be a drag rather than a click: more than a few pixels (growing
// with the interface's scale) along either axis. A hand is never quite still,
// so a click that wobbles stays a click.
ZO_API bool isMouseMoveSignificant(XY<int> const& pressedAt, XY<int> const& releasedAt);
