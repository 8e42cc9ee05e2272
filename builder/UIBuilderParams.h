#pragma once

#include <zowidgets/builder/UIBuilder.h>
#include <zowidgets/host/base/NotifyMsg.h>
#include <zowidgets/values/notify/Callback.h>
#include <zowidgets/values/params/ActionParam.h>

// What stays of a build: the parameters, the rows and the post-conditions.
// It tells its listeners of every change, keeps the rows' activity up to
// date, runs actions, saves and restores the values, and reports the height
// of the visible rows.
class ZO_API UIBuilder::Params : public iObject {
public:
  using Listener = Zo::Ptr<iCallbackBase<int, NotifyMsg>>;

  Params(ParamList const& params, WidgetMap const& widgets, std::vector<Zo::Ptr<iPostCondition>> const& postConditions);

  void addListener(Listener const& listener) { listeners_.push_back(listener); }
  // A parameter changed: runs the post-conditions, then the listeners, unless
  // an action is running.
  int handleParameterModification(NotifyMsg const& message);
  // Runs an action with notification held; afterwards, if the action says it
  // changed something, everyone hears once.
  void handleActionParam(Zo::Ptr<GenericParam::ActionParam> const& param);
  // Commits a text box being edited in the form, then saves every value.
  void saveState(configb& config);
  void restoreState(configb const& config);
  // The height of the visible rows.
  unsigned short calcHeight() const;

  ParamList const& getParams() const noexcept { return params_; }
  WidgetMap const& getWidgets() const noexcept { return widgets_; }
  // The row of a parameter, or null.
  Glob* getWidget(LightweightString<char> const& id) const;
  // The parameter of that id, in groups too; null when there is none.
  Zo::Ptr<iParam> getParam(LightweightString<char> const& id) const;
  std::vector<Zo::Ptr<iPostCondition>> const& getPostConditions() const noexcept { return postConditions_; }
  bool isNotifyEnabled() const noexcept { return notifyEnabled_; }

private:
  ParamList params_;
  WidgetMap widgets_;
  std::vector<Zo::Ptr<iPostCondition>> postConditions_;
  std::vector<Listener> listeners_;
  bool notifyEnabled_ = true;
};
