#pragma once

#include <zowidgets/host/drawing/FontDefinition.h>

// A font as one line of text: the text colour and the background colour (each
// as ColourUtils::asLong), the style, the size cut to a whole number, and the
// family, joined by ",". "0,16777215,1,12,DejaVu Sans" is black on white,
// bold, 12 points.
ZO_API LightweightString<wchar_t> asString(FontDefinition const& font);

// Reads asString's form. Anything but exactly five fields (so an empty text,
// or a family with a comma in its name) gives FontDefinition(); fields that
// are not numbers read as 0. Colours lose their alpha and keep eight bits a
// channel; the style keeps its low eight bits.
ZO_API FontDefinition fontFromString(LightweightString<wchar_t> const& text);
