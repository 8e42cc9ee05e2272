// Sliders and labels: values the user drags, and text the user reads.
#include "GalleryModel.h"
#include "PageLayout.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Slider.h>

namespace {

using WString = LightweightString<wchar_t>;

// A legend on the left and `child` on the right, `width` wide.
TitleGlob* titledRow(StandardPanel& panel, WidgetPosition const& where, int width, UIString const& legend,
                     Glob* child) {
  TitleGlob::InitArgs args(XY<int>(width, UifStd::getRowHeight()));
  args.legend = legend;
  auto* row = panel.createWidget<TitleGlob>(args, where);
  row->setChildGlob(child);
  return row;
}

Slider* makeSlider(int width, double min, double max, double increment) {
  Slider::InitArgs args(XY<int>(width, UifStd::getRowHeight()));
  args.minValue = min;
  args.maxValue = max;
  args.increment = increment;
  return new Slider(args);
}

// A number box sharing `value` with a slider: each shows the other's edits.
NumericTextBox* numberBox(int width, ValServer<double>& value, double min, double max) {
  auto* box = bindTo<WString>(
      new NumericTextBox(TextBox::InitArgs(GlobCreationInfo(XY<int>(width, UifStd::getRowHeight())))), value);
  box->setValueRange(min, max);
  return box;
}

TextLabel::InitArgs labelArgs(XY<int> size, UIString const& text) {
  TextLabel::InitArgs args(size);
  args.text = text;
  return args;
}

Glob* buildValuesPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 16;
  int const field = m.row * 10;
  StandardPanel* panel =
      openPageWindow(context, XY<int>(width + 2 * m.gap, 10 * m.row + 10 * m.rowGap), L"Values and labels");

  Glob* last = titledRow(*panel, Glob::UserTopLeft(m.gap, m.rowGap), width, L"Gain",
                         bindTo<double>(makeSlider(field, 0.0, 1.0, 0.0), context.model.gain));
  last = titledRow(*panel, Glob::Below(m.rowGap, last), width, L"Gain as a number",
                   numberBox(field, context.model.gain, 0.0, 1.0));

  Slider* speed = bindTo<double>(makeSlider(field, 0.0, 200.0, 25.0), context.model.speed);
  speed->setPointOfInterest(100.0);
  last = titledRow(*panel, Glob::Below(m.rowGap, last), width, L"Speed %", speed);
  last = titledRow(*panel, Glob::Below(m.rowGap, last), width, L"Speed as a number",
                   numberBox(field, context.model.speed, 0.0, 200.0));
  Slider* inactive = makeSlider(field, 0.0, 1.0, 0.0);
  inactive->setPosition(0.6, kRedrawNow);
  last = titledRow(*panel, Glob::Below(m.rowGap, last), width, L"Inactive", inactive);
  inactive->setActive(false, kRedrawNow);

  last =
      panel->createWidget<TextLabel>(labelArgs(XY<int>(width, m.row), L"A plain label"), Glob::Below(m.rowGap, last));
  TextLabel::InitArgs right = labelArgs(XY<int>(width, m.row), L"Right-aligned in the heading colour");
  right.alignment = Glib::eTextAlignment::Right;
  right.colour = UifStd::getColourScheme().headingText();
  last = panel->createWidget<TextLabel>(right, Glob::Below(m.rowGap, last));
  TextLabel::InitArgs wrapped =
      labelArgs(XY<int>(width, 3 * m.row),
                L"A word-wrapped label: long lines of help text break between words to fit the width they are given, "
                L"so a panel can explain itself in a sentence or two.");
  wrapped.wordWrap = true;
  panel->createWidget<TextLabel>(wrapped, Glob::Below(m.rowGap, last));
  return panel;
}

PageRegistrar const valuesPage{"values", "Values and labels",
                               "Sliders bound to shared values (one stepped, with a marked default; one inactive), "
                               "a number box that follows the gain slider, and labels",
                               buildValuesPage};

} // namespace
