#include <zowidgets/host/drawing/ColourUtils.h>

#include <algorithm>
#include <cmath>

namespace {

long toByte(float channel) {
  // Not-a-number counts as 0.
  float const clamped = channel > 0.0f ? std::min(channel, 1.0f) : 0.0f;
  return std::lround(clamped * 255.0f);
}

float fromByte(long value) { return static_cast<float>(value & 0xFF) / 255.0f; }

} // namespace

long ColourUtils::asLong(NormalisedRGB const& colour) {
  return toByte(colour.r) << 16 | toByte(colour.g) << 8 | toByte(colour.b);
}

NormalisedRGB ColourUtils::fromLong(long value) {
  return NormalisedRGB(fromByte(value >> 16), fromByte(value >> 8), fromByte(value), 1.0f);
}
