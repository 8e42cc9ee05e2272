#pragma once

#include <zowidgets/values/binding/ColourDataValue.h>

// Adaptors that show one shared ColourData as text and turn typed text back
// into it. Their rounding differs on purpose: component boxes round to the
// nearest step, the hex box truncates, so 0.5 shows as 128 beside 7F.
// Bad text reads as 0; nothing is refused and nothing is reported.

// One component of a colour space: in RGB an integer 0..255, in HSV hue in
// degrees and the rest (alpha too) in percent, all with two decimals.
class ZO_API ColourComponentAdaptor : public ValAdaptorWStringT, public ValClient<ColourData> {
public:
  // `component` 0..2 is the space's first to third component, 3 alpha;
  // anything above 3 is taken as 3. A null server shows "---" and refuses
  // edits.
  ColourComponentAdaptor(int component, ColourSpace space, ValServer<ColourData>* server);

  int getComponent() const noexcept { return component_; }
  ColourSpace getColourSpace() const noexcept { return space_; }

  LightweightString<wchar_t> getDataValue() override;
  // Typed RGB values are capped at 255 but not raised to 0; HSV values are
  // used as typed. The server keeps the space it held before.
  bool requestSetNewDataValue(LightweightString<wchar_t> const& text, DataChangeType) override;
  void valChangedNtfy() override;

private:
  int component_;
  ColourSpace space_;
};

// Red, green and blue as six hex digits, "RRGGBB".
class ZO_API HexColourAdaptor : public ValAdaptorWStringT, public ValClient<ColourData> {
public:
  explicit HexColourAdaptor(ValServer<ColourData>* server);

  LightweightString<wchar_t> getDataValue() override;
  // Short text is zero-filled on the left ("FF" is 0000FF); characters after
  // the sixth are ignored. The alpha is kept.
  bool requestSetNewDataValue(LightweightString<wchar_t> const& text, DataChangeType) override;
  void valChangedNtfy() override;
};

// Alpha as an integer 0..255.
class ZO_API AlphaTextAdaptor : public ValAdaptorWStringT, public ValClient<ColourData> {
public:
  explicit AlphaTextAdaptor(ValServer<ColourData>* server);

  LightweightString<wchar_t> getDataValue() override;
  bool requestSetNewDataValue(LightweightString<wchar_t> const& text, DataChangeType) override;
  void valChangedNtfy() override;
};
