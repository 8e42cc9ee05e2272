#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>

SliderParamHost::SliderParamHost(InitArgs const& args) : WidgetHost(args) {
  // A row, not a panel: no frame, so its legend lines up with the others.
  setBorder(Border());
  TitledGlob<Slider>::InitArgs titled(args.legend, XY<int>(args.sliderWidth, height()), args.slider);
  titledSlider_ = createChild<TitledGlob<Slider>>(titled, Glob::LeftCentre(0, 0));
}

NumericTextBox* SliderParamHost::getTextBox() const {
  for (Glob* child : getChildren())
    if (auto* box = dynamic_cast<NumericTextBox*>(child))
      return box;
  return nullptr;
}

void SliderParamHost::setActive(bool active, eRedrawFlag redraw) {
  for (Glob* child : getChildren())
    child->setActive(active, kNoRedraw);
  Glob::setActive(active, kNoRedraw);
  if (redraw == kRedrawNow)
    invalidate();
}

void SliderParamHost::resize(double newWidth, double newHeight) {
  int const change = static_cast<int>(newWidth) - width();
  titledSlider_->resize(titledSlider_->width() + change, titledSlider_->height());
  Glob::resize(newWidth, newHeight);
}
