#include <zowidgets/colour/ColourPickerSuffixBox.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

LightweightString<wchar_t> getDegreesString() { return LightweightString<wchar_t>(L"\u00B0"); }

ColourPickerSuffixBox::ColourPickerSuffixBox(InitArgs const& args) : ComponentTextBox(args), suffix_(args.suffix) {}

int ColourPickerSuffixBox::suffixStripWidth() { return UifStd::measure(UIString(L"%")).x + UifStd::getWidgetGap(); }

Zo::Box<int> ColourPickerSuffixBox::getFieldBox() const {
  Zo::Box<int> field = ComponentTextBox::getFieldBox();
  field.x1 = std::max(field.x0, field.x1 - suffixStripWidth());
  return field;
}

void ColourPickerSuffixBox::drawBackground(CanvasRenderer& renderer) {
  ComponentTextBox::drawBackground(renderer);
  Zo::Box<int> const field = getFieldBox();
  Zo::Box<double> const strip(field.x1 + UifStd::getWidgetGap() / 2, 0, width(), height());
  Palette const& palette = getPalette();
  renderer.renderPrimitive(
      Glib::TextDescription(suffix_, strip, UifStd::getFont(), isActive() ? palette.text() : palette.text(-10)));
}
