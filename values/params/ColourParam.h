#pragma once

#include <zowidgets/host/drawing/NormalisedRGB.h>
#include <zowidgets/values/params/Param.h>

namespace GenericParam {

// A colour setting; its text is the colour's "r g b a" form.
class ZO_API ColourParam : public Param<NormalisedRGB> {
public:
  ColourParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
              NormalisedRGB const& value)
      : Param<NormalisedRGB>("colour", id, legend, tooltip, value) {}
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new ColourParam(*this)); }
};

} // namespace GenericParam
