#include <zowidgets/host/toolkit/Drawable.h>

namespace {
thread_local int disableDepth = 0;
void (*flushHandler)() = nullptr;
} // namespace

void Drawable::disableRedraws() noexcept { ++disableDepth; }

void Drawable::enableRedraws() noexcept {
  if (disableDepth > 0 && --disableDepth == 0 && flushHandler)
    flushHandler();
}

void Drawable::setFlushHandler(void (*handler)()) noexcept { flushHandler = handler; }

bool Drawable::redrawsDisabled() noexcept { return disableDepth > 0; }

int Drawable::redrawDisableDepth() noexcept { return disableDepth; }
