#include <zowidgets/host/shell/ScreenBackend.h>

#include <cstdio>
#include <cstdlib>

namespace {
std::unique_ptr<iScreenBackend>& current() {
  static auto* backend = new std::unique_ptr<iScreenBackend>; // canvases may die at exit
  return *backend;
}

ScreenBackendMaker& defaultMaker() {
  static ScreenBackendMaker maker = nullptr;
  return maker;
}
} // namespace

iScreenBackend& screenBackend() {
  if (!current()) {
    ScreenBackendMaker const maker = defaultMaker();
    if (!maker) {
      // Only a library built without its headless room gets here.
      std::fputs("zowidgets: no screen backend is installed and none is the default\n", stderr);
      std::abort();
    }
    current() = maker();
  }
  return *current();
}

void installScreenBackend(std::unique_ptr<iScreenBackend> backend) { current() = std::move(backend); }

void setDefaultScreenBackendMaker(ScreenBackendMaker maker) { defaultMaker() = maker; }
