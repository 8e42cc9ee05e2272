#include <zowidgets/colour/ColourSliderAdaptors.h>

namespace {

ColourSpace spaceOf(ValServer<ColourData> const* server) {
  return server ? server->get().getColourSpace() : ColourData().getColourSpace();
}

} // namespace

AlphaSliderAdaptor::AlphaSliderAdaptor(ValServer<ColourData>* server) { registerWith(server); }

double AlphaSliderAdaptor::getDataValue() {
  ColourData const colour = *this;
  return colour.getComponent(ColourData::kAlpha);
}

bool AlphaSliderAdaptor::requestSetNewDataValue(double const& value, DataChangeType) {
  ColourData colour = *this;
  colour.setComponent(ColourData::kAlpha, value);
  ValClient<ColourData>::operator=(colour);
  return true;
}

void AlphaSliderAdaptor::valChangedNtfy() { setNewWidgetValue(getDataValue(), kRedrawNow); }

RGBComponentAdaptor::RGBComponentAdaptor(int component, ValServer<ColourData>* server)
    : component_(component), restoredSpace_(spaceOf(server)) {
  registerWith(server);
}

double RGBComponentAdaptor::getDataValue() {
  ColourData colour = *this;
  colour.setColourSpace(ColourSpace::RGB);
  return colour.getComponent(component_);
}

bool RGBComponentAdaptor::requestSetNewDataValue(double const& value, DataChangeType) {
  ColourData colour = *this;
  colour.setColourSpace(ColourSpace::RGB);
  colour.setComponent(component_, value);
  colour.setColourSpace(restoredSpace_);
  ValClient<ColourData>::operator=(colour);
  return true;
}

void RGBComponentAdaptor::valChangedNtfy() { setNewWidgetValue(getDataValue(), kRedrawNow); }

LuminanceAdaptor::LuminanceAdaptor(ValServer<ColourData>* server) : restoredSpace_(spaceOf(server)) {
  registerWith(server);
}

double LuminanceAdaptor::getDataValue() {
  ColourData const colour = *this;
  return colour.getValue();
}

bool LuminanceAdaptor::requestSetNewDataValue(double const& value, DataChangeType) {
  ColourData colour = *this;
  colour.setColourSpace(ColourSpace::HSV);
  colour.setComponent(ColourData::kComponent2, value);
  colour.setColourSpace(restoredSpace_);
  ValClient<ColourData>::operator=(colour);
  return true;
}

void LuminanceAdaptor::valChangedNtfy() { setNewWidgetValue(getDataValue(), kRedrawNow); }
