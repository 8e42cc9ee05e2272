#pragma once

#include <zowidgets/host/base/Export.h>

#include <thread>

namespace Zo::detail {

// A thread that polls its descriptors beside an eventfd, `stopFd`, which
// asks it to return: writes the eventfd, joins the thread, then closes both
// descriptors (either may be -1).
// Waits until `watchedFd` has one of `events`, and returns what it has; 0
// once `stopFd` is raised (or polling fails), when the thread should return.
ZO_API short waitForWatchedFd(int watchedFd, short events, int stopFd);

ZO_API void stopWatcherThread(std::thread& thread, int stopFd, int watchedFd);

} // namespace Zo::detail
