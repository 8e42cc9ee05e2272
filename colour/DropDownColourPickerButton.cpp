#include <zowidgets/colour/DropDownColourPickerButton.h>

#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>

DropDownColourPickerButton::DropDownColourPickerButton(InitArgs const& args)
    : DropDownButton2<ColourPicker>(args), Broadcaster<ColourPickerEvent>(args.callback) {
  using Callback = iCallbackBase<int, ColourPickerEvent>;
  ColourPicker::InitArgs picker = getDropDownArgs();
  // A torn-off picker may outlive the button; the guard drops its news then.
  picker.callback.callback = UIThreadCallbackDupe<ColourPickerEvent>::guarded(
      Zo::Ptr<Callback>(new MethodCallback<DropDownColourPickerButton, ColourPickerEvent>(
          this, &DropDownColourPickerButton::handleColourChange)),
      this);
  setDropDownArgs(picker);
  setStyle(kStyleFlat);
  setLatching(true);
  // The swatch leaves the chevron at the right uncovered.
  int const indent = UifStd::getIndentWidth();
  ColourSwatch::InitArgs swatch(XY<int>(labelBox().width() - 2 * indent, height() - 2 * indent), picker.colour);
  swatch_ = createChild<ColourSwatch>(swatch, LeftCentre(indent, 0));
  setDefaultMouseCursor(kCursorHand);
}

void DropDownColourPickerButton::setColour(NormalisedRGB const& colour) {
  swatch_->setColour(ColourData(colour.r, colour.g, colour.b, ColourSpace::RGB, colour.a));
}

NormalisedRGB DropDownColourPickerButton::getColour() const { return swatch_->getColour().toNormalisedRGB(); }

void DropDownColourPickerButton::setDataAdaptor(Zo::Ptr<ValAdaptorBase<ColourData>> const& adaptor) {
  dataAdaptor_ = adaptor;
  ColourPicker::InitArgs picker = getDropDownArgs();
  picker.dataAdaptor = adaptor;
  setDropDownArgs(picker);
  swatch_->setDataAdaptor(adaptor);
}

int DropDownColourPickerButton::handleColourChange(ColourPickerEvent const& event) {
  if (suppressColourChanges_)
    return 0;
  swatch_->setColour(event.colour);
  broadcast(event);
  return 0;
}

void DropDownColourPickerButton::setActive(bool active, eRedrawFlag redraw) {
  DropDownButton2<ColourPicker>::setActive(active, redraw);
  swatch_->setActive(active, redraw);
  if (!active)
    switchState(0, redraw == kRedrawNow);
}

void DropDownColourPickerButton::prepareToDisplayDropDown() {
  ColourPicker::InitArgs picker = getDropDownArgs();
  picker.colour = swatch_->getColour();
  setDropDownArgs(picker);
}
