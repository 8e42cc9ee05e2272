#include <zowidgets/diagnostics/LabelledLine.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>

namespace {

int textWidth(LightweightString<wchar_t> const& text, Glib::FontDesc const& font) {
  if (text.empty())
    return 0;
  return static_cast<int>(std::ceil(Glib::TextDescription::calcBounds(text, font).width()));
}

int pairGap() { return 2 * UifStd::getWidgetGap(); }

} // namespace

int LabelledText::lineWidth(LabelledLine const& line) {
  int width = 0;
  for (LabelledValue const& pair : line)
    width += textWidth(pair.label, UifStd::getFont()) + textWidth(pair.value, UifStd::getSubheadingFont());
  if (line.size() > 1)
    width += pairGap() * static_cast<int>(line.size() - 1);
  return width;
}

void LabelledText::drawLine(CanvasRenderer& renderer, LabelledLine const& line, Zo::Box<int> const& row,
                            Palette const& palette) {
  Colour const labelColour = palette.text().mix(palette.window(), 0.7);
  int x = row.x0;
  for (LabelledValue const& pair : line) {
    for (bool const isValue : {false, true}) {
      LightweightString<wchar_t> const& text = isValue ? pair.value : pair.label;
      Glib::FontDesc const font = isValue ? UifStd::getSubheadingFont() : UifStd::getFont();
      int const width = textWidth(text, font);
      if (width > 0)
        renderer.renderPrimitive(Glib::TextDescription(text, Zo::Box<double>(x, row.y0, x + width, row.y1), font,
                                                       isValue ? palette.text() : labelColour));
      x += width;
    }
    x += pairGap();
  }
}
