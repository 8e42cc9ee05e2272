#include <zowidgets/host/base/configb.h>
#include <zowidgets/values/params/GenericParam.h>
#include <zowidgets/values/params/GroupParam.h>

#include <unordered_set>

namespace GenericParam {

namespace {

using IdSet = std::unordered_set<LightweightString<char>>;

template <class Visit> void walkStateful(ParamList const& list, IdSet& seen, Visit& visit) {
  for (auto const& param : list) {
    if (!param)
      continue;
    LightweightString<char> const type = param->getValueType();
    // Only what calls itself a group is cast: a failed cast across the
    // shared libraries compares type names up the whole hierarchy.
    auto* group = type == "group" ? dynamic_cast<GroupParam*>(param.get()) : nullptr;
    if (group) {
      walkStateful(group->getChildren(), seen, visit);
      continue;
    }
    if (type == "action" || !seen.insert(param->getID()).second)
      continue;
    visit(*param);
  }
}

// Visits every parameter that has a value to keep, groups' children
// included, each id once.
template <class Visit> void forEachStateful(ParamList const& params, Visit visit) {
  IdSet seen;
  seen.reserve(params.size());
  walkStateful(params, seen, visit);
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
  if (state.size() == 0 && state.children().empty())
    return 0;
  IdSet keep;
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
