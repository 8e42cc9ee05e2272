#pragma once

#include <zowidgets/host/base/Export.h>

// Mix-in of every value server: remembers, per thread, the server most
// recently constructed, so that tools can find a server just made inside
// another object.
class ZO_API LastValServer {
public:
  // The most recent live server made on this thread, or null.
  static LastValServer* getLastValServer() noexcept;

protected:
  LastValServer() noexcept;
  LastValServer(LastValServer const&) noexcept : LastValServer() {}
  LastValServer& operator=(LastValServer const&) noexcept { return *this; }
  virtual ~LastValServer();
};
