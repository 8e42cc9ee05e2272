#pragma once

#include <zowidgets/host/base/Export.h>

#include <string>

// A key code with its modifier bits, as a person reads it on a menu or a
// card: "Ctrl+Shift+M", "F5", "Page Down", "Space". Letters are shown in
// capitals; a code with no key is empty.
ZO_API std::string keyName(int key);
