#pragma once

#include <zowidgets/host/base/Export.h>

#include <span>
#include <string_view>

// The icons the library shows, by the names widgets ask for them, and the
// icon of the system theme that draws each. One table holds every pair, so a
// new icon is one line in IconNames.cpp. docs/host-icons.md lists the names.
struct IconName {
  std::string_view ours;  // as widgets ask for it: "eye-open.png"
  std::string_view theme; // the theme's icon, without folder or extension
};

// Every icon name, in the table's order.
ZO_API std::span<IconName const> iconNames();

// The theme's icon for one of our names; empty when the table has no such
// name.
ZO_API std::string_view themeIconName(std::string_view ours);
