#include <zowidgets/builder/UIBuilderTestPanel.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/values/params/Params.h>

using namespace GenericParam;

namespace {

// A test panel has no place in the menus: it carries no label, description
// or key.
CommandRegistrar const registration(
    UIBuilderTestPanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(UIBuilderTestPanel::open(), context.origin); },
    UIString(), UIString(), kCmdScopeApplication, MapItem{});

int panelWidth() { return 18 * UifStd::getRowHeight(); }

// Puts every value back to its default; says it changed something.
class ResetAll : public ActionParam::Callback {
public:
  explicit ResetAll(ParamList const& params) : params_(params) {}
  bool execute(ActionParam::CallbackData const&) override {
    bool changed = false;
    for (Zo::Ptr<iParam> const& param : params_)
      changed = param->reset() || changed;
    return changed;
  }

private:
  ParamList params_;
};

} // namespace

UIBuilderTestPanel::UIBuilderTestPanel(InitArgs const& args) : StandardPanel(args) {
  setDoItLabel(UIString(L"Build"));
  rebuild();
}

UIBuilderTestPanel* UIBuilderTestPanel::open(XY<int> screenPosition) {
  InitArgs args(
      calcPanelSize(XY<int>(panelWidth(), UifStd::getRowHeight()), kTitle | kPoot | kDoIt, getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = kTitle | kPoot | kDoIt;
  args.title = UIString(L"UIBuilder Test Panel");
  auto* panel = new UIBuilderTestPanel(args);
  GlobManager::realize(panel);
  return panel;
}

ParamList UIBuilderTestPanel::makeParams() {
  Zo::Ptr<iParam> about(
      new LabelParam(L"About", "about", L"Every kind of row the builder makes. Tick Advanced for more settings."));
  Zo::Ptr<iParam> advanced(new BoolParam(L"Advanced", "advanced", UIString(L"Shows the advanced settings"), false));
  Zo::Ptr<iParam> quality(new IntParam(L"Quality", "quality", {}, 75, 0, 100));
  auto* strength = new DoubleParam(L"Strength", "strength", {}, 0.5, 0, 1);
  strength->step = 0.05;
  strength->setVisibleIf(Condition("advanced", L"true"));
  Zo::Ptr<iParam> low(new DoubleParam(L"Low level", "low", {}, 0.2, 0, 1));
  Zo::Ptr<iParam> high(new DoubleParam(L"High level", "high", {}, 0.8, 0, 1));
  low->isLessThan("high");
  high->isGreaterThan("low");
  std::vector<ChoiceParam::Choice> speeds{{L"Fast", {}, 1, true}, {L"Balanced", {}, 2, true}, {L"Best", {}, 3, true}};
  Zo::Ptr<iParam> speed(new ChoiceParam(L"Speed", "speed", {}, 2, speeds));
  Zo::Ptr<iParam> name(new TextParam(L"Name", "name", {}, L"", UIString(L"Clip name")));
  name->setActiveIf(Condition("advanced", L"true"));
  Zo::Ptr<iParam> password(
      new TextParam(L"Password", "password", {}, L"", {}, TextParam::kObfuscated | TextParam::kShowPasswordControl));
  ParamList outputChildren{Zo::Ptr<iParam>(new BoolParam(L"Overwrite", "overwrite", {}, false)),
                           Zo::Ptr<iParam>(new IntParam(L"Copies", "copies", {}, 1, 1, 10))};
  Zo::Ptr<iParam> output(new GroupParam(L"Output", "output", {}, outputChildren));
  ParamList params{about, advanced, quality, Zo::Ptr<iParam>(strength), low, high, speed, name, password, output};
  ParamList everything = params.clone();
  for (Zo::Ptr<iParam> const& child : outputChildren)
    everything.push_back(child);
  params.push_back(
      Zo::Ptr<iParam>(new ActionParam(L"Reset all", "reset", UIString(L"Puts every value back to its default"),
                                      Zo::Ptr<ActionParam::Callback>(new ResetAll(everything)))));
  return params;
}

void UIBuilderTestPanel::rebuild() {
  Drawable::Suspender hold;
  for (Glob* child : std::vector<Glob*>(getChildren()))
    removeWidget(child);
  tabOrder().clear();
  built_.reset();
  params_ = makeParams();
  changesHeard_ = 0;
  built_ = UIBuilder::build(params_, this, 0);
  built_->addListener(Zo::Ptr<iCallbackBase<int, NotifyMsg>>(
      new MethodCallback<UIBuilderTestPanel, NotifyMsg, int>(this, &UIBuilderTestPanel::handleChange)));
  fitToRows();
}

int UIBuilderTestPanel::handleChange(NotifyMsg const&) {
  ++changesHeard_;
  fitToRows();
  return 0;
}

void UIBuilderTestPanel::fitToRows() {
  XY<int> const size = calcPanelSize(XY<int>(panelWidth(), built_->calcHeight()), getStandardWidgets(), getBorder());
  if (size == getSize())
    return;
  // A window grows and shrinks at its bottom edge, as its rows do.
  Canvas* own = parent() ? nullptr : canvas();
  int const topEdge = own ? own->screenBox().y1 : 0;
  resize(size.x, size.y);
  if (own)
    own->move(XY<int>(own->screenBox().x0, topEdge - size.y));
}
