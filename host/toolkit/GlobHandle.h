#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/IdStamp.h>

class Glob;

// A widget referred to but not owned: it counts as there only while it lives
// with the stamp it had when the handle was taken, so a dead widget, or a new
// one at the same address, is never touched.
class ZO_API GlobHandle {
public:
  GlobHandle() = default;
  explicit GlobHandle(Glob* glob);

  // The widget, or null once it has gone.
  Glob* get() const;
  bool isLive() const { return get() != nullptr; }
  IdStamp const& stamp() const noexcept { return stamp_; }
  void clear() noexcept;
  // Deletes the widget after the current event if it still lives, and
  // forgets it.
  void requestDeletion();

private:
  Glob* glob_ = nullptr;
  IdStamp stamp_ = IdStamp::null();
};
