#pragma once

#include <zowidgets/host/base/Export.h>

#include <cstdint>

// Tells whoever watches for a hung interface that the program still moves:
// a long task calls heartbeat() as it reports progress. Safe from any thread.
class ZO_API SystemWatchdog {
public:
  static void heartbeat();
  // How many heartbeats there have been, and the msecsNow() of the last one
  // (0 before the first).
  static std::uint64_t heartbeatCount();
  static double lastHeartbeat();
};
