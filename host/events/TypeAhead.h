#pragma once

#include <zowidgets/host/base/Export.h>

#include <string>
#include <string_view>

// Letters typed to find an entry by the start of its name, as lists of files
// and pages take them: each adds to what was typed lately, and a pause of a
// second starts afresh.
class ZO_API TypeAhead {
public:
  static constexpr double kPauseMs = 1000.0;

  // Adds `typed` to what was typed lately (or starts again after a pause).
  void add(std::wstring_view typed);
  // Forgets what was typed, as when the entries change.
  void clear() noexcept { typed_.clear(); }
  // Whether `name` starts with what was typed, case ignored.
  bool matches(std::wstring_view name) const;

private:
  std::wstring typed_;
  double lastTypedAt_ = -1e9;
};
