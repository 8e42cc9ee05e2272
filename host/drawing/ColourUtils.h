#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/NormalisedRGB.h>

// A colour as one integer, for one-line text forms: 0xRRGGBB, each channel
// rounded to eight bits. Alpha is not kept: fromLong gives an opaque colour,
// and uses only the low 24 bits of what it is given.
namespace ColourUtils {
ZO_API long asLong(NormalisedRGB const& colour);
ZO_API NormalisedRGB fromLong(long value);
// The colour with red, green and blue multiplied by `factor` and clamped to
// 0..1: above 1 brighter, below 1 darker. Alpha, the flag and validity are
// kept (an invalid colour stays invalid).
ZO_API Colour scale(Colour const& colour, double factor);
} // namespace ColourUtils
