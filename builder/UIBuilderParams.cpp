#include <zowidgets/builder/BuilderRules.h>
#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/host/base/configb.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/values/params/GroupParam.h>

UIBuilder::Params::Params(ParamList const& params, WidgetMap const& widgets,
                          std::vector<Zo::Ptr<iPostCondition>> const& postConditions)
    : params_(params), widgets_(widgets), postConditions_(postConditions) {
  using Relay = MethodCallback<Params, NotifyMsg, int>;
  Zo::Ptr<iCallbackBase<int, NotifyMsg>> const target(new Relay(this, &Params::handleParameterModification));
  for (Zo::Ptr<iParam> const& param : params_)
    if (param)
      param->addChangeHandler(Zo::Ptr<GenericParam::iValueChangeHandler>(new BuilderRules::ParamChangeRelay(target)));
}

int UIBuilder::Params::handleParameterModification(NotifyMsg const& message) {
  if (!notifyEnabled_)
    return 0;
  // Copies: a listener may add listeners while being told.
  std::vector<Zo::Ptr<iPostCondition>> const conditions = postConditions_;
  for (Zo::Ptr<iPostCondition> const& condition : conditions)
    condition->execute(params_);
  std::vector<Listener> const listeners = listeners_;
  for (Listener const& listener : listeners)
    listener->execute(message);
  return 0;
}

void UIBuilder::Params::handleActionParam(Zo::Ptr<GenericParam::ActionParam> const& param) {
  if (!param)
    return;
  notifyEnabled_ = false;
  bool changed = false;
  try {
    changed = param->invoke();
  } catch (...) {
    notifyEnabled_ = true;
    throw;
  }
  notifyEnabled_ = true;
  if (changed)
    handleParameterModification(NotifyMsg(param->getID(), param));
}

void UIBuilder::Params::saveState(configb& config) {
  config.clear();
  // A text box sends its text when it loses the focus: moving the focus out
  // of the row commits a half-typed entry before it is saved.
  Glob* const focus = get_kbd_focus();
  for (auto const& [id, widget] : widgets_)
    if (focus && isParentedTo(focus, widget)) {
      set_kbd_focus(getRootParent(widget));
      break;
    }
  GenericParam::saveState(params_, config);
}

void UIBuilder::Params::restoreState(configb const& config) { GenericParam::restoreState(params_, config); }

unsigned short UIBuilder::Params::calcHeight() const {
  if (widgets_.empty())
    return 0;
  int total = 0;
  int visible = 0;
  for (auto const& [id, widget] : widgets_)
    if (widget->isShowing()) {
      total += widget->height();
      ++visible;
    }
  if (visible == 0)
    return static_cast<unsigned short>(total);
  return static_cast<unsigned short>(total - UifStd::getRowGap());
}

namespace {

Zo::Ptr<GenericParam::iParam> findIn(GenericParam::ParamList const& params, LightweightString<char> const& id) {
  for (Zo::Ptr<GenericParam::iParam> const& param : params) {
    if (param->getID() == id)
      return param;
    if (auto const* group = dynamic_cast<GenericParam::GroupParam const*>(param.get()))
      if (Zo::Ptr<GenericParam::iParam> found = findIn(group->getChildren(), id))
        return found;
  }
  return {};
}

} // namespace

Zo::Ptr<GenericParam::iParam> UIBuilder::Params::getParam(LightweightString<char> const& id) const {
  return findIn(params_, id);
}

Glob* UIBuilder::Params::getWidget(LightweightString<char> const& id) const {
  auto const found = widgets_.find(id);
  return found == widgets_.end() ? nullptr : found->second;
}
