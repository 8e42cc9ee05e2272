#include <zowidgets/fonts/FontLegend.h>

#include <zowidgets/host/widgets/buttons/Button.h>

Glib::FontDesc legendFontFor(FontDefinition const& font) {
  return Glib::FontDesc(font.name.toUTF8(), 0, font.style & (Glib::FontDesc::kBold | Glib::FontDesc::kItalic));
}

void showFontLegend(Button& button, FontDefinition const& font) {
  button.setLabel(UIString(font.name), kNoRedraw);
  button.setFont(legendFontFor(font), kRedrawNow);
}
