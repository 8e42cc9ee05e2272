#include <zowidgets/values/params/GenericParam.h>

namespace GenericParam {

ParamBase::ParamBase(LightweightString<char> const& type, LightweightString<char> const& id, UIString const& legend,
                     UIString const& tooltip)
    : type_(type), id_(id), legend_(legend), tooltip_(tooltip) {}

void ParamBase::addChangeHandler(Zo::Ptr<iValueChangeHandler> const& handler) {
  if (handler)
    changeHandlers_.push_back(handler);
}

void ParamBase::addValueConstraint(Zo::Ptr<iValueConstraint> const& constraint) {
  if (constraint)
    valueConstraints_.push_back(constraint);
}

LightweightString<wchar_t> ParamBase::requestValueChange(LightweightString<wchar_t> const& text) const {
  LightweightString<wchar_t> result = text;
  for (auto const& constraint : valueConstraints_)
    result = constraint->constrain(result);
  return result;
}

void ParamBase::handleDataChange(LightweightString<wchar_t> const& text) {
  // A handler may add handlers (a builder wiring rules); those hear the next
  // change, not this one.
  std::list<Zo::Ptr<iValueChangeHandler>> const handlers = changeHandlers_;
  for (auto const& handler : handlers)
    handler->handleValueChange(id_, text);
}

} // namespace GenericParam
