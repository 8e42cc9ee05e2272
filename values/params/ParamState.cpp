#include <zowidgets/host/base/configb.h>
#include <zowidgets/values/params/GenericParam.h>
#include <zowidgets/values/params/GroupParam.h>

#include <functional>
#include <set>

namespace GenericParam {

namespace {

bool isAction(iParam const& param) { return param.getValueType() == "action"; }

// Visits every parameter that has a value to keep, groups' children
// included, each id once.
void forEachStateful(ParamList const& params, std::function<void(iParam&)> const& visit) {
  std::set<LightweightString<char>> seen;
  std::function<void(ParamList const&)> walk = [&](ParamList const& list) {
    for (auto const& param : list) {
      if (!param)
        continue;
      if (auto* group = dynamic_cast<GroupParam*>(param.get())) {
        walk(group->getChildren());
        continue;
      }
      if (isAction(*param) || !seen.insert(param->getID()).second)
        continue;
      visit(*param);
    }
  };
  walk(params);
}

} // namespace

void saveState(ParamList const& params, configb& state) {
  forEachStateful(params, [&](iParam& param) { state.set(param.getID(), param.getValueAsString()); });
}

void restoreState(ParamList& params, configb const& state) {
  forEachStateful(params, [&](iParam& param) {
    if (state.in(param.getID()))
      param.setValueFromString(state.getString(param.getID()));
  });
}

int validateState(ParamList const& params, configb& state) {
  std::set<LightweightString<char>> keep;
  forEachStateful(params, [&](iParam& param) {
    LightweightString<char> id = param.getID();
    if (state.in(id) && param.isAcceptableValueString(state.getString(id)))
      keep.insert(id);
  });
  int dropped = 0;
  for (auto const& key : state.keys())
    if (!keep.count(key) && state.remove(key))
      ++dropped;
  while (!state.children().empty()) {
    state.removeChild(state.children().front().first);
    ++dropped;
  }
  return dropped;
}

} // namespace GenericParam
