#include <zowidgets/host/Drawable.h>

namespace {
thread_local int disableDepth = 0;
}

void Drawable::disableRedraws() noexcept { ++disableDepth; }

void Drawable::enableRedraws() noexcept {
  if (disableDepth > 0)
    --disableDepth;
}

bool Drawable::redrawsDisabled() noexcept { return disableDepth > 0; }

int Drawable::redrawDisableDepth() noexcept { return disableDepth; }
