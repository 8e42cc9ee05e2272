#pragma once

#include <zowidgets/host/base/Export.h>

#include <string_view>

// Whether two texts are the same but for the case of their letters, as file
// extensions and format names are compared ("MOV" is "mov").
ZO_API bool sameIgnoringCase(std::wstring_view a, std::wstring_view b);
