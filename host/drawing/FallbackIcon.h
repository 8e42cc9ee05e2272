#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/ImageSurface.h>

// What an icon shows when its artwork is missing (a name without a theme
// icon, or no theme on the machine): a square frame round a question mark,
// drawn with cairo in `tint` at the pixel size asked for, so it is as sharp
// as the artwork it stands in for. Empty for a side outside 1..1024.
ZO_API Zo::Image::Surface drawFallbackIcon(int side, Colour const& tint);
