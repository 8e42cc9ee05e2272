#include <zowidgets/host/base/LastValServer.h>

namespace {
thread_local LastValServer* lastServer = nullptr;
}

LastValServer* LastValServer::getLastValServer() noexcept { return lastServer; }

LastValServer::LastValServer() noexcept { lastServer = this; }

LastValServer::~LastValServer() {
  if (lastServer == this)
    lastServer = nullptr;
}
