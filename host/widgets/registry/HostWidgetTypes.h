#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/LightweightString.h>

#include <vector>

// The host's widget classes, each registered with GlobManager under its
// idstring as the library loads, so that GlobManager::createGlob, panel
// descriptions and the inspector can make any of them by name. The names
// registered here, in the order registered.
ZO_API std::vector<LightweightString<char>> const& hostWidgetTypeNames();
