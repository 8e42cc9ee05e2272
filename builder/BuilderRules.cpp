#include <zowidgets/builder/BuilderRules.h>
#include <zowidgets/host/base/DataConvert.h>

#include <optional>

namespace BuilderRules {

ActiveIfCondition::ActiveIfCondition(Glob* widget, std::vector<GenericParam::Condition> const& conditions)
    : widget_(widget) {
  for (GenericParam::Condition const& condition : conditions)
    criteria_.emplace(condition.paramId, condition.criteria); // on equal ids the first stays
}

void ActiveIfCondition::execute(LightweightVector<Zo::Ptr<GenericParam::iParam>> const& params) {
  for (auto const& [id, criteria] : criteria_) {
    Zo::Ptr<GenericParam::iParam> found;
    for (Zo::Ptr<GenericParam::iParam> const& param : params)
      if (param && param->getID() == id) {
        found = param;
        break;
      }
    if (!found || !TextSearch::match(found->getValueAsString(), criteria, 0)) {
      widget_->setActive(false, kRedrawNow);
      return;
    }
  }
  widget_->setActive(true, kRedrawNow);
}

void VisibleIfHandler::handleValueChange(LightweightString<char> const&, LightweightString<wchar_t> const& value) {
  widget_->setVisible(TextSearch::match(value, criteria_, 0));
}

namespace {

// Only numbers have limits: the other parameter's value as a double, or
// nothing when it holds something else or is gone.
std::optional<double> numericValueOf(GenericParam::iParam const* other) {
  if (!other)
    return std::nullopt;
  LightweightString<char> const type = other->getValueType();
  if (type != "int" && type != "double")
    return std::nullopt;
  return DataConvert::convert<LightweightString<wchar_t>, double>(other->getValueAsString());
}

double asDouble(LightweightString<wchar_t> const& text) {
  return DataConvert::convert<LightweightString<wchar_t>, double>(text);
}

} // namespace

LimitSource::LimitSource(Zo::Ptr<GenericParam::iParam> const& other) : other_(other.get()) {
  if (auto const* base = dynamic_cast<GenericParam::ParamBase const*>(other.get()))
    life_ = base->getLife();
  else
    kept_ = other;
}

GenericParam::iParam* LimitSource::get() const noexcept { return life_ && !life_->isAlive() ? nullptr : other_; }

LightweightString<wchar_t> LowerLimitConstraint::constrain(LightweightString<wchar_t> const& value) {
  std::optional<double> const limit = numericValueOf(other_.get());
  if (limit && *limit > asDouble(value))
    return other_.get()->getValueAsString();
  return value;
}

LightweightString<wchar_t> UpperLimitConstraint::constrain(LightweightString<wchar_t> const& value) {
  std::optional<double> const limit = numericValueOf(other_.get());
  if (limit && asDouble(value) > *limit)
    return other_.get()->getValueAsString();
  return value;
}

void ParamChangeRelay::handleValueChange(LightweightString<char> const& paramId, LightweightString<wchar_t> const&) {
  target_->execute(NotifyMsg(paramId));
}

} // namespace BuilderRules
