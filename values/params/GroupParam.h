#pragma once

#include <zowidgets/values/params/GenericParam.h>

namespace GenericParam {

// A titled group of parameters. It has no value: its text is empty, it takes
// no text, and reset() does nothing (its children are not reset by it).
class ZO_API GroupParam : public ParamBase {
public:
  GroupParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
             ParamList const& children)
      : ParamBase("group", id, legend, tooltip), children_(children) {}

  LightweightString<wchar_t> getValueAsString() const override { return {}; }
  void setValueFromString(LightweightString<wchar_t> const&) override {}
  bool isAcceptableValueString(LightweightString<wchar_t> const&) const override { return true; }
  LightweightString<wchar_t> getDefaultValueAsString() const override { return {}; }
  bool reset() override { return true; }
  // Clones each child into a new list.
  Zo::Ptr<iParam> clone() const override;

  ParamList const& getChildren() const noexcept { return children_; }

private:
  ParamList children_;
};

} // namespace GenericParam
