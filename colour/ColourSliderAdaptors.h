#pragma once

#include <zowidgets/values/binding/ColourDataValue.h>

// Adaptors that show one part of a shared ColourData on a slider running
// 0..1, and write the slider's position back into it.

// Alpha, as it stands.
class ZO_API AlphaSliderAdaptor : public ValAdaptorBase<double>, public ValClient<ColourData> {
public:
  explicit AlphaSliderAdaptor(ValServer<ColourData>* server);

  double getDataValue() override;
  bool requestSetNewDataValue(double const& value, DataChangeType) override;
  void valChangedNtfy() override;
};

// Red, green or blue (component 0, 1, 2). The edit is made in RGB and the
// colour goes back to the space the server held when the adaptor was made.
class ZO_API RGBComponentAdaptor : public ValAdaptorBase<double>, public ValClient<ColourData> {
public:
  RGBComponentAdaptor(int component, ValServer<ColourData>* server);

  int getComponent() const noexcept { return component_; }
  ColourSpace getRestoredSpace() const noexcept { return restoredSpace_; }

  double getDataValue() override;
  bool requestSetNewDataValue(double const& value, DataChangeType) override;
  void valChangedNtfy() override;

private:
  int component_;
  ColourSpace restoredSpace_;
};

// The HSV value (brightness). The edit is made in HSV and the colour goes
// back to the space the server held when the adaptor was made.
class ZO_API LuminanceAdaptor : public ValAdaptorBase<double>, public ValClient<ColourData> {
public:
  explicit LuminanceAdaptor(ValServer<ColourData>* server);

  ColourSpace getRestoredSpace() const noexcept { return restoredSpace_; }

  double getDataValue() override;
  bool requestSetNewDataValue(double const& value, DataChangeType) override;
  void valChangedNtfy() override;

private:
  ColourSpace restoredSpace_;
};
