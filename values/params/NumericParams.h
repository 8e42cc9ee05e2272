#pragma once

#include <zowidgets/values/params/Param.h>

namespace GenericParam {

class ZO_API BoolParam : public Param<bool> {
public:
  BoolParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip, bool value)
      : Param<bool>("bool", id, legend, tooltip, value) {}
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new BoolParam(*this)); }
};

// With min equal to max there is no range and nothing is clamped.
class ZO_API IntParam : public Param<int> {
public:
  IntParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip, int value, int min = 0,
           int max = 0)
      : Param<int>("int", id, legend, tooltip, value) {
    this->min = min;
    this->max = max;
    this->hasRange = min != max;
  }
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new IntParam(*this)); }
};

// Keeps its range for the presenter and stores whatever it is told.
class ZO_API DoubleParam : public Param<double> {
public:
  DoubleParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip, double value,
              double min, double max)
      : Param<double>("double", id, legend, tooltip, value) {
    this->min = min;
    this->max = max;
    this->hasRange = min != max;
  }
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new DoubleParam(*this)); }
};

} // namespace GenericParam
