#pragma once

#include <zowidgets/host/drawing/FontDefinition.h>
#include <zowidgets/host/drawing/Fonts.h>

class Button;

// The font a family's name is shown in: the family itself, bold and italic
// as chosen, at the interface's size, so that any point size fits a button;
// the interface's family for one that cannot spell the name in Latin
// letters (a symbol font).
ZO_API Glib::FontDesc legendFontFor(FontDefinition const& font);

// Puts the family's name on the button, drawn in that family.
ZO_API void showFontLegend(Button& button, FontDefinition const& font);
