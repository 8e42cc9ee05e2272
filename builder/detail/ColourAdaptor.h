#pragma once

#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/values/binding/ValAdaptor.h>

// A colour row's adaptor: the parameter keeps red, green, blue and alpha;
// the colour button edits a ColourData, in any colour space.
template <> struct ValAdaptorConversion<ColourData, NormalisedRGB> {
  static NormalisedRGB toData(ColourData const& colour) { return colour.toNormalisedRGB(); }
  static ColourData toWidget(NormalisedRGB const& rgb) { return ColourData(rgb); }
};

using ColourAdaptor = ValAdaptor<ColourData, NormalisedRGB>;
