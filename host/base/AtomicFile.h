#pragma once

#include <zowidgets/host/base/Export.h>

#include <string>
#include <string_view>

namespace Zo {

// Replaces the file at `path` by one holding `bytes`, or leaves it as it was:
// the bytes go to a temporary file beside it, which is flushed to the disk
// and then renamed over the old one, so that a crash or a full disk never
// leaves half a file. Makes the folder if it is missing. On failure, errno
// says why.
ZO_API bool writeFileAtomically(std::string const& path, std::string_view bytes);

} // namespace Zo
