#include <zowidgets/colour/ColourTextAdaptors.h>
#include <zowidgets/host/base/NumberText.h>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kAlphaComponent = ColourData::kAlpha;

// Truncating, unlike the component boxes: the hex box has always shown the
// byte below a half step.
int truncatedByte(double channel) {
  if (channel < 0.0)
    return 0;
  if (channel > 1.0)
    return 255;
  return static_cast<int>(channel * 255.0);
}

} // namespace

ColourComponentAdaptor::ColourComponentAdaptor(int component, ColourSpace space, ValServer<ColourData>* server)
    : component_(std::min(component, kAlphaComponent)), space_(space) {
  registerWith(server);
}

LightweightString<wchar_t> ColourComponentAdaptor::getDataValue() {
  if (!getServer())
    return L"---";
  ColourData colour = *this;
  colour.setColourSpace(space_);
  double const component = colour.getComponent(component_);
  if (space_ == ColourSpace::HSV)
    return Zo::WStringFromFloat(component_ == 0 ? component : component * 100.0, 2, 0);
  return Zo::WStringFromInteger(static_cast<int>(component * 255.0 + 0.5));
}

bool ColourComponentAdaptor::requestSetNewDataValue(LightweightString<wchar_t> const& text, DataChangeType) {
  if (!getServer())
    return false;
  ColourData colour = *this;
  ColourSpace const heldSpace = colour.getColourSpace();
  colour.setColourSpace(space_);
  double value = Zo::FloatFromWString(text, 0.0);
  if (space_ == ColourSpace::RGB)
    value = std::min(value / 255.0, 1.0);
  else if (space_ == ColourSpace::HSV && component_ != 0)
    value /= 100.0;
  if (component_ == kAlphaComponent)
    colour.setAlpha(value);
  else
    colour.setComponent(component_, value);
  colour.setColourSpace(heldSpace);
  ValClient<ColourData>::operator=(colour);
  return true;
}

void ColourComponentAdaptor::valChangedNtfy() { setNewWidgetValue(getDataValue(), kRedrawNow); }

HexColourAdaptor::HexColourAdaptor(ValServer<ColourData>* server) { registerWith(server); }

LightweightString<wchar_t> HexColourAdaptor::getDataValue() {
  ColourData colour = *this;
  colour.setColourSpace(ColourSpace::RGB);
  char text[16];
  std::snprintf(text, sizeof text, "%02X%02X%02X", truncatedByte(colour.getRed()), truncatedByte(colour.getGreen()),
                truncatedByte(colour.getBlue()));
  return toWide(text);
}

bool HexColourAdaptor::requestSetNewDataValue(LightweightString<wchar_t> const& text, DataChangeType) {
  std::wstring digits = text.str();
  if (digits.size() < 6)
    digits.insert(0, 6 - digits.size(), L'0');
  unsigned red = 0;
  unsigned green = 0;
  unsigned blue = 0;
  // Whatever does not read stays 0: a box of junk gives black.
  std::sscanf(toNarrow(LightweightString<wchar_t>(digits)).c_str(), "%02X%02X%02X", &red, &green, &blue);
  ColourData const current = *this;
  ValClient<ColourData>::operator=(
      ColourData(red / 255.0, green / 255.0, blue / 255.0, ColourSpace::RGB, current.getAlpha()));
  return true;
}

void HexColourAdaptor::valChangedNtfy() { setNewWidgetValue(getDataValue(), kRedrawNow); }

AlphaTextAdaptor::AlphaTextAdaptor(ValServer<ColourData>* server) { registerWith(server); }

LightweightString<wchar_t> AlphaTextAdaptor::getDataValue() {
  ColourData const colour = *this;
  return Zo::WStringFromInteger(static_cast<int>(255.0 * colour.getAlpha() + 0.5));
}

bool AlphaTextAdaptor::requestSetNewDataValue(LightweightString<wchar_t> const& text, DataChangeType) {
  ColourData colour = *this;
  colour.setAlpha(std::min(Zo::FloatFromWString(text, 0.0) / 255.0, 1.0));
  ValClient<ColourData>::operator=(colour);
  return true;
}

void AlphaTextAdaptor::valChangedNtfy() { setNewWidgetValue(getDataValue(), kRedrawNow); }
