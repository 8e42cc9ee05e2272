#pragma once

#include <zowidgets/host/base/Export.h>

// Redraw control. Disabling nests and is global to the calling thread:
// redraws asked for while disabled are held until the outermost enable.
class ZO_API Drawable {
public:
  virtual ~Drawable() = default;

  static void disableRedraws() noexcept;
  static void enableRedraws() noexcept;
  static bool redrawsDisabled() noexcept;
  static int redrawDisableDepth() noexcept;
  // Called when the outermost enableRedraws() releases held redraws; the
  // windowing layer installs it.
  static void setFlushHandler(void (*handler)()) noexcept;

  // Brackets a multi-step change exception-safely.
  class ZO_API Suspender {
  public:
    Suspender() noexcept { disableRedraws(); }
    ~Suspender() { enableRedraws(); }
    Suspender(Suspender const&) = delete;
    Suspender& operator=(Suspender const&) = delete;
  };
};
