#pragma once

#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/values/binding/ValAdaptor.h>

// The colour tools' value classes: a client of and a widget for one
// ColourData, and the identity adaptor between them.
template <> struct ValAdaptorConversion<ColourData, ColourData> : ValAdaptorIdentity<ColourData> {};

class ZO_API ColourDataValClient : public ValClient<ColourData> {
public:
  using ValClient<ColourData>::ValClient;
  using ValClient<ColourData>::operator=;
};

class ZO_API ColourDataValWidget : public ValWidget<ColourData> {};
