#pragma once

#include <zowidgets/builder/UIBuilder.h>
#include <zowidgets/host/base/NotifyMsg.h>
#include <zowidgets/values/notify/Callback.h>

#include <map>

// The rules a builder wires into a panel: activity and visibility of rows
// driven by other parameters' values, and limits between parameters.
namespace BuilderRules {

// Makes its widget active when every parameter it names has a value that
// matches; inactive as soon as one does not, or is missing.
class ZO_API ActiveIfCondition : public UIBuilder::iPostCondition {
public:
  ActiveIfCondition(Glob* widget, std::vector<GenericParam::Condition> const& conditions);
  void execute(LightweightVector<Zo::Ptr<GenericParam::iParam>> const& params) override;

private:
  Glob* widget_;
  std::map<LightweightString<char>, TextSearch::Criteria> criteria_;
};

// On the controlling parameter: shows its widget while the value matches.
class ZO_API VisibleIfHandler : public GenericParam::iValueChangeHandler {
public:
  VisibleIfHandler(Glob* widget, TextSearch::Criteria const& criteria) : widget_(widget), criteria_(criteria) {}
  void handleValueChange(LightweightString<char> const& paramId, LightweightString<wchar_t> const& value) override;

private:
  Glob* widget_;
  TextSearch::Criteria criteria_;
};

// The parameter a limit is taken from, held without keeping it alive: a
// limit that holds both ways puts one on each parameter, and two strong
// references would keep both for ever. Once that parameter is gone the
// limit has no effect.
class ZO_API LimitSource {
public:
  explicit LimitSource(Zo::Ptr<GenericParam::iParam> const& other);
  // The parameter, or null once it is gone.
  GenericParam::iParam* get() const noexcept;

private:
  GenericParam::iParam* other_;
  Zo::Ptr<GenericParam::ParamLife> life_;
  Zo::Ptr<GenericParam::iParam> kept_; // a parameter that tells no life is kept
};

// Keeps a numeric value from going below another parameter's value.
class ZO_API LowerLimitConstraint : public GenericParam::iValueConstraint {
public:
  explicit LowerLimitConstraint(Zo::Ptr<GenericParam::iParam> const& other) : other_(other) {}
  LightweightString<wchar_t> constrain(LightweightString<wchar_t> const& value) override;

private:
  LimitSource other_;
};

// Keeps a numeric value from going above another parameter's value.
class ZO_API UpperLimitConstraint : public GenericParam::iValueConstraint {
public:
  explicit UpperLimitConstraint(Zo::Ptr<GenericParam::iParam> const& other) : other_(other) {}
  LightweightString<wchar_t> constrain(LightweightString<wchar_t> const& value) override;

private:
  LimitSource other_;
};

// Passes a parameter's change on as a message named by its id.
class ZO_API ParamChangeRelay : public GenericParam::iValueChangeHandler {
public:
  explicit ParamChangeRelay(Zo::Ptr<iCallbackBase<int, NotifyMsg>> const& target) : target_(target) {}
  void handleValueChange(LightweightString<char> const& paramId, LightweightString<wchar_t> const& value) override;

private:
  Zo::Ptr<iCallbackBase<int, NotifyMsg>> target_;
};

} // namespace BuilderRules
