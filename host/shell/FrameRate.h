#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/LightweightString.h>

#include <vector>

namespace Zo {

// A video frame rate as an exact fraction, with whether its time code drops
// frame numbers to keep in step with the clock (only the NTSC rates can).
struct ZO_API FrameRate {
  int numerator = 0;
  int denominator = 1;
  bool dropFrame = false;

  // 0/1: no rate, what an unreadable display string gives.
  bool isValid() const noexcept { return numerator > 0 && denominator > 0; }
  double framesPerSecond() const noexcept { return isValid() ? double(numerator) / denominator : 0.0; }
  friend bool operator==(FrameRate const&, FrameRate const&) = default;
};

namespace FrameRateGroups {
enum FrameRateGroup : int {
  kAll = 0,           // every rate below, slowest first
  kFilm = 1,          // 23.976, 24, 47.952, 48
  kPAL = 2,           // 25, 50, 100
  kNTSC = 3,          // 29.97 (with and without drop frame), 59.94 (both), 119.88
  kHighFrameRate = 4, // 48 and up
};
} // namespace FrameRateGroups

// Replaces `rates` with the group's rates, slowest first.
ZO_API void getFrameRates(FrameRateGroups::FrameRateGroup group, std::vector<FrameRate>& rates);
// "25 fps", "29.97 fps DF": each string reads back to its rate.
ZO_API LightweightString<wchar_t> getDisplayString(FrameRate rate);
// The rate whose display string is `text`; an invalid rate otherwise.
ZO_API FrameRate getFrameRateFromDisplayString(LightweightString<wchar_t> const& text);

} // namespace Zo
