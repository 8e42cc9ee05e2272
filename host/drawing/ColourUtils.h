#pragma once

#include <zowidgets/host/drawing/NormalisedRGB.h>

// A colour as one integer, for one-line text forms: 0xRRGGBB, each channel
// rounded to eight bits. Alpha is not kept: fromLong gives an opaque colour,
// and uses only the low 24 bits of what it is given.
namespace ColourUtils {
ZO_API long asLong(NormalisedRGB const& colour);
ZO_API NormalisedRGB fromLong(long value);
} // namespace ColourUtils
