#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/UIString.h>

#include <cstdint>

// The times that progress panels show, in whole seconds.
namespace LogTimes {

// Equal within a billionth, so a fraction computed as 1.0 counts as done.
ZO_API bool tolerantEq(double a, double b);
// Time gone, rounded to the nearest second (500 ms added, then cut).
ZO_API int elapsedSeconds(double elapsedMs);
// Time left at this fraction done, if the rest goes as fast: cut to whole
// seconds, never rounded up.
ZO_API int remainingSeconds(double elapsedMs, double fraction);
// "hh:mm:ss".
ZO_API LightweightString<wchar_t> hoursMinutesSeconds(int seconds);
// The resource text with "$TIME$" replaced by hoursMinutesSeconds.
ZO_API LightweightString<wchar_t> timeText(ResId textId, int seconds);

// Steadies a jumpy estimate: a new figure that differs from the last is
// shown as the mean of the two.
class ZO_API EstimateSmoother {
public:
  int next(int remaining);
  void reset() { last_ = kNone; }

private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFFu;
  std::uint32_t last_ = kNone;
};

} // namespace LogTimes
