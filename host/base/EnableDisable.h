#pragma once

#include <zowidgets/host/base/Export.h>

// A signed disable count: enabled while the count is below 1. Disables nest,
// and an enable without a matching disable can make the count negative.
class ZO_API EnableDisable {
public:
  virtual ~EnableDisable() = default;

  void disable() noexcept { ++disableCount_; }
  void enable() noexcept { --disableCount_; }
  bool isEnabled() const noexcept { return disableCount_ < 1; }
  int disableCount() const noexcept { return disableCount_; }
  void setDisableCount(int count) noexcept { disableCount_ = count; }

private:
  int disableCount_ = 0;
};
