#pragma once

#include <zowidgets/host/base/Export.h>

#include <thread>

namespace Zo::detail {

// A thread that polls its descriptors beside an eventfd, `stopFd`, which
// asks it to return: writes the eventfd, joins the thread, then closes both
// descriptors (either may be -1).
ZO_API void stopWatcherThread(std::thread& thread, int stopFd, int watchedFd);

} // namespace Zo::detail
