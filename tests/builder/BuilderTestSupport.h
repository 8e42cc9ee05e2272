#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/values/params/Params.h>

// Parameter makers for builder tests, with the ids as legends.
namespace BuilderTest {

using namespace GenericParam;

inline Zo::Ptr<iParam> boolParam(char const* id, bool value, wchar_t const* legend = L"Enabled") {
  return Zo::Ptr<iParam>(new BoolParam(legend, id, {}, value));
}
inline Zo::Ptr<iParam> intParam(char const* id, int value, int min, int max, wchar_t const* legend = L"Count") {
  return Zo::Ptr<iParam>(new IntParam(legend, id, {}, value, min, max));
}
inline Zo::Ptr<iParam> doubleParam(char const* id, double value, double min, double max,
                                   wchar_t const* legend = L"Amount") {
  return Zo::Ptr<iParam>(new DoubleParam(legend, id, {}, value, min, max));
}
inline Zo::Ptr<iParam> textParam(char const* id, wchar_t const* value, wchar_t const* legend = L"Title") {
  return Zo::Ptr<iParam>(new TextParam(legend, id, {}, value));
}
inline Zo::Ptr<iParam> choiceParam(char const* id, unsigned value, wchar_t const* legend = L"Mode") {
  std::vector<ChoiceParam::Choice> choices{{L"Fast", {}, 1, true}, {L"Best", {}, 2, true}, {L"Draft", {}, 7, true}};
  return Zo::Ptr<iParam>(new ChoiceParam(legend, id, {}, static_cast<int>(value), choices));
}

// A panel that collects what its listener hears.
struct Heard {
  std::vector<std::string> names;
  Zo::Ptr<iCallbackBase<int, NotifyMsg>> callback() {
    return Zo::Ptr<iCallbackBase<int, NotifyMsg>>(new FunctionCallback<NotifyMsg, int>([this](NotifyMsg const& m) {
      names.emplace_back(m.name().c_str());
      return 0;
    }));
  }
};

template <class T> T* rowWidget(UIBuilder::Params const& params, char const* id) {
  auto* host = dynamic_cast<UIBuilder::HostWidgetBase*>(params.getWidget(id));
  return host ? dynamic_cast<T*>(host->getChild()) : nullptr;
}

} // namespace BuilderTest
