#include <zowidgets/host/events/TypeAhead.h>

#include <zowidgets/host/events/Clock.h>

#include <algorithm>
#include <cwctype>

void TypeAhead::add(std::wstring_view typed) {
  double const now = msecsNow();
  if (now - lastTypedAt_ > kPauseMs)
    typed_.clear();
  lastTypedAt_ = now;
  typed_ += typed;
}

bool TypeAhead::matches(std::wstring_view name) const {
  return name.size() >= typed_.size() &&
         std::equal(typed_.begin(), typed_.end(), name.begin(),
                    [](wchar_t a, wchar_t b) { return std::towlower(a) == std::towlower(b); });
}
