#include <zowidgets/fonts/FontLegend.h>

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>

Glib::FontDesc legendFontFor(FontDefinition const& font) {
  LightweightString<char> const family = font.name.toUTF8();
  return Glib::FontDesc(Glib::drawsLatinText(family) ? family : UifStd::getFont().family(), 0,
                        font.style & (Glib::FontDesc::kBold | Glib::FontDesc::kItalic));
}

void showFontLegend(Button& button, FontDefinition const& font) {
  button.setLabel(UIString(font.name), kNoRedraw);
  button.setFont(legendFontFor(font), kRedrawNow);
}
