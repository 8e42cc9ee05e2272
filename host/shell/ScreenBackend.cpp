#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/headless/HeadlessScreen.h>

namespace {
std::unique_ptr<iScreenBackend>& current() {
  static auto* backend = new std::unique_ptr<iScreenBackend>; // canvases may die at exit
  return *backend;
}
} // namespace

iScreenBackend& screenBackend() {
  if (!current())
    current() = std::make_unique<HeadlessScreen>();
  return *current();
}

void installScreenBackend(std::unique_ptr<iScreenBackend> backend) { current() = std::move(backend); }
