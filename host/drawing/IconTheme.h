#pragma once

#include <zowidgets/host/base/Export.h>

#include <string>
#include <string_view>

// Where the artwork of our icon names lies: the system's icon theme,
// "Adwaita", found under the data folders of the desktop's conventions.
//
// The theme's folder is the one named by the environment variable
// ZOWIDGETS_ICON_THEME_DIR when it is set (a missing folder then means no
// theme, which is how tests ask for the drawn fallback); otherwise the first
// <dir>/icons/Adwaita that exists for a <dir> of XDG_DATA_DIRS (by default
// /usr/local/share and /usr/share). Empty when there is none.
ZO_API std::string iconThemeDir();

// The full path of the theme's SVG for one of our icon names
// (host/drawing/IconNames.h): the first <theme>/scalable*/<context>/<icon>.svg,
// folders taken in name order, so "scalable" comes before
// "scalable-up-to-32". Empty when the name is not in the table, or the theme
// or the file is missing. Only SVGs count: a bitmap would blur when scaled.
ZO_API std::string getIconPath(std::string_view name);
