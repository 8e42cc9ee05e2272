// The colour picker: a swatch button that opens it in a drop-down, and the
// picker itself, both editing one clip colour.
#include "PageLayout.h"

#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

// Shared by every opening of the page, so it outlives the windows bound to it.
ValServer<ColourData>& clipColour() {
  static ValServer<ColourData> colour(ColourData(0.1, 0.6, 0.65));
  return colour;
}

Zo::Ptr<ValAdaptorBase<ColourData>> bindToClipColour() {
  return Zo::Ptr<ValAdaptorBase<ColourData>>(new ValAdaptor<ColourData, ColourData>(&clipColour()));
}

Glob* buildColourPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  unsigned const flags = ColourPicker::kDefaultFlags | ColourPicker::kAlpha;
  XY<int> const pickerSize = ColourPicker::calcSize(flags);
  StandardPanel* panel = openPageWindow(
      context, XY<int>(pickerSize.x + 2 * m.gap, m.row + m.rowGap + pickerSize.y + 2 * m.gap), L"Colour");

  TextLabel::InitArgs label(XY<int>(m.row * 4, m.row));
  label.text = L"Clip colour";
  auto* legend = panel->createWidget<TextLabel>(label, Glob::UserTopLeft(m.gap, m.gap));
  DropDownColourPickerButton::InitArgs buttonArgs(XY<int>(m.row * 3, m.row),
                                                  ColourPicker::InitArgs(flags, clipColour().get()));
  auto* button = panel->createWidget<DropDownColourPickerButton>(buttonArgs, Glob::RightOf(m.gap, legend));
  button->setDataAdaptor(bindToClipColour());
  // Dragged by its edge, the open picker tears off to stay as a window.
  button->setDetachMode(1);

  ColourPicker::InitArgs pickerArgs(flags, clipColour().get());
  pickerArgs.dataAdaptor = bindToClipColour();
  panel->createWidget<ColourPicker>(pickerArgs, Glob::Below(m.rowGap, legend));
  return panel;
}

PageRegistrar const colourPage{"colour", "Colour picker",
                               "A swatch button that opens the colour picker in a drop-down (click it; drag the "
                               "drop-down's edge to tear it off as a window of its own), and the "
                               "picker itself with an alpha row; both edit one clip colour, so an edit in either "
                               "shows in the other. The pipette picks a colour off the screen",
                               buildColourPage};

} // namespace
