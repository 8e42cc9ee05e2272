#include <zowidgets/logging/LogTimes.h>

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/ResourceStrings.h>

#include <cmath>
#include <cstdio>

namespace LogTimes {

bool tolerantEq(double a, double b) { return std::fabs(a - b) < 1e-9; }

int elapsedSeconds(double elapsedMs) { return ftisqq((elapsedMs + 500.0) / 1000.0); }

int remainingSeconds(double elapsedMs, double fraction) { return ftisqq((elapsedMs / fraction - elapsedMs) / 1000.0); }

LightweightString<wchar_t> hoursMinutesSeconds(int seconds) {
  seconds = std::max(seconds, 0);
  wchar_t buffer[32];
  std::swprintf(buffer, 32, L"%02d:%02d:%02d", seconds / 3600, (seconds / 60) % 60, seconds % 60);
  return LightweightString<wchar_t>(buffer);
}

LightweightString<wchar_t> timeText(ResId textId, int seconds) {
  LightweightString<wchar_t> text = resourceStrW(textId);
  text.substitute(L"$TIME$", hoursMinutesSeconds(seconds).view());
  return text;
}

int EstimateSmoother::next(int remaining) {
  auto const now = static_cast<std::uint32_t>(remaining);
  if (last_ == kNone || last_ == now) {
    last_ = now;
    return remaining;
  }
  int const shown = static_cast<int>((static_cast<std::int64_t>(static_cast<int>(last_)) + remaining) / 2);
  last_ = now;
  return shown;
}

} // namespace LogTimes
