// A settings form without a screen: builds a parameter list with rules, edits
// it the way a user's widgets would, and prints what the listeners heard and
// the saved state.
#include <zowidgets/zowidgets.h>

#include <cstdio>
#include <map>
#include <string>

using namespace GenericParam;

namespace {

using Text = LightweightString<wchar_t>;

void say(std::string const& line) { std::printf("%s\n", line.c_str()); }

Zo::Ptr<iParam> findParam(ParamList const& params, LightweightString<char> const& id) {
  for (auto const& param : params)
    if (param->getID() == id)
      return param;
  return {};
}

// Prints every change, as an application's panel listener would.
struct PrintingListener : iValueChangeHandler {
  void handleValueChange(LightweightString<char> const& id, Text const& value) override {
    say("  listener heard: " + id.str() + " = " + toNarrow(value));
  }
};

// "This row is shown while that parameter's value matches a pattern."
struct VisibilityRule : iValueChangeHandler {
  VisibilityRule(Zo::Ptr<iParam> row, TextSearch::Criteria criteria) : row(std::move(row)), criteria(criteria) {}
  void handleValueChange(LightweightString<char> const&, Text const& value) override {
    bool visible = TextSearch::match(value, criteria, 0);
    say(std::string("  rule: row '") + row->getID().c_str() + (visible ? "' shown" : "' hidden"));
  }
  Zo::Ptr<iParam> row;
  TextSearch::Criteria criteria;
};

// "This row is active while every condition holds."
struct ActivityRule : iValueChangeHandler {
  ActivityRule(Zo::Ptr<iParam> row, ParamList params) : row(std::move(row)), params(params) {}
  void handleValueChange(LightweightString<char> const&, Text const&) override {
    bool active = true;
    for (Condition const& condition : dynamic_cast<ParamBase&>(*row).getActiveConditions()) {
      Zo::Ptr<iParam> controller = findParam(params, condition.paramId);
      active = active && controller && TextSearch::match(controller->getValueAsString(), condition.criteria, 0);
    }
    if (active != row->isActive()) {
      row->setActive(active);
      say(std::string("  rule: row '") + row->getID().c_str() + (active ? "' active" : "' inactive"));
    }
  }
  Zo::Ptr<iParam> row;
  ParamList params;
};

// "This value stays below (or above) that one."
struct LimitRule : iValueConstraint {
  LimitRule(Zo::Ptr<iParam> other, bool below) : other(std::move(other)), below(below) {}
  Text constrain(Text const& candidate) override {
    double value = DataConvert::convert<Text, double>(candidate);
    double limit = DataConvert::convert<Text, double>(other->getValueAsString());
    if (below ? value <= limit : value >= limit)
      return candidate;
    say("  rule: " + toNarrow(candidate) + " stopped at " + toNarrow(other->getValueAsString()));
    return other->getValueAsString();
  }
  Zo::Ptr<iParam> other;
  bool below;
};

// Turns the rules recorded on the parameters into handlers and constraints.
void wireRules(ParamList const& params) {
  for (auto const& param : params) {
    auto& base = dynamic_cast<ParamBase&>(*param);
    if (auto const& visible = base.getVisibleCondition(); !visible.paramId.empty())
      if (auto controller = findParam(params, visible.paramId))
        controller->addChangeHandler(Zo::make<VisibilityRule>(param, visible.criteria));
    for (Condition const& condition : base.getActiveConditions())
      if (auto controller = findParam(params, condition.paramId))
        controller->addChangeHandler(Zo::make<ActivityRule>(param, params));
    if (auto other = findParam(params, base.getLessThanId()))
      param->addValueConstraint(Zo::make<LimitRule>(other, true));
    if (auto other = findParam(params, base.getGreaterThanId()))
      param->addValueConstraint(Zo::make<LimitRule>(other, false));
  }
}

// A widget with no pixels: shows what its adaptor tells it and "types" new
// values as a user would.
template <class T> struct HeadlessWidget : ValWidget<T> {
  explicit HeadlessWidget(std::string name) : name(std::move(name)) {}
  void setNewWidgetValue(T& value, eRedrawFlag) override { shown = value; }
  T getWidgetValue() override { return shown; }
  void userEnters(T const& value) {
    shown = value;
    this->requestSetNewDataValue(value, kDataChangeAll);
  }
  std::string name;
  T shown{};
};

std::string show(Text const& text) { return toNarrow(text); }
std::string show(double value) { return toNarrow(DataConvert::convert<double, Text>(value)); }
std::string show(bool value) { return value ? "on" : "off"; }

template <class T> void userEdits(HeadlessWidget<T>& widget, T const& value, char const* what) {
  say(std::string("user ") + what);
  widget.userEnters(value);
  say("  " + widget.name + " now shows " + show(widget.shown));
}

} // namespace

int main(int argc, char** argv) {
  // It takes no arguments; asked for help, or given any, it says what it does.
  if (argc > 1) {
    std::string const argument = argv[1];
    bool const help = argument == "--help" || argument == "-h";
    std::fprintf(help ? stdout : stderr,
                 "%susage: zodemo\nEdits a parameter list with rules as a user's widgets would, without a screen, "
                 "and prints what its listeners heard and its saved state.\n",
                 help ? "" : ("zodemo: unknown argument '" + argument + "'\n").c_str());
    return help ? 0 : 2;
  }
  auto enabled = Zo::make<BoolParam>(L"Enable effect", "enabled", L"Turns the effect on", false);
  auto mode = Zo::make<ChoiceParam>(
      L"Mode", "mode", L"", 1,
      std::vector<ChoiceParam::Choice>{{L"Soft", L"", 1}, {L"Hard", L"", 2}, {L"Custom", L"", 4}});
  auto strength = Zo::make<DoubleParam>(L"Strength", "strength", L"", 0.5, 0.0, 1.0);
  auto low = Zo::make<DoubleParam>(L"Low", "low", L"", 0.2, 0.0, 1.0);
  auto high = Zo::make<DoubleParam>(L"High", "high", L"", 0.8, 0.0, 1.0);
  auto passes = Zo::make<IntParam>(L"Passes", "passes", L"", 3, 1, 10);
  auto label = Zo::make<TextParam>(L"Label", "label", L"", L"Untitled");

  mode->setActiveIf(Condition("enabled", L"true"));
  strength->setVisibleIf(Condition("mode", L"4"));
  low->isLessThan("high");
  high->isGreaterThan("low");

  ParamList params{enabled, mode, strength, low, high, passes, label};
  wireRules(params);
  auto listener = Zo::make<PrintingListener>();
  for (auto const& param : params)
    param->addChangeHandler(listener);

  say("== bringing dependent state up to date");
  for (auto const& param : params)
    param->enforceConstraints();

  HeadlessWidget<bool> checkbox("checkbox 'Enable effect'");
  checkbox.setDataAdaptor(Zo::make<ValAdaptor<bool, bool>>(&enabled->getServer()));
  HeadlessWidget<double> lowSlider("slider 'Low'");
  lowSlider.setDataAdaptor(Zo::make<ValAdaptor<double, double>>(&low->getServer()));
  HeadlessWidget<Text> lowBox("numeric box 'Low'");
  lowBox.setDataAdaptor(Zo::make<ValAdaptor<Text, double>>(&low->getServer()));
  HeadlessWidget<Text> labelBox("text box 'Label'");
  labelBox.setDataAdaptor(Zo::make<ValAdaptor<Text, Text>>(&label->getServer()));

  say("\n== user edits");
  userEdits(checkbox, true, "ticks 'Enable effect'");
  say("user picks 'Custom' from 'Mode'");
  mode->setValueFromString(L"4");
  userEdits(lowSlider, 0.95, "drags 'Low' to 0.95, past 'High'");
  say("  numeric box 'Low' shows " + show(lowBox.shown));
  userEdits(lowBox, Text(L"0.25"), "types 0.25 into the 'Low' box");
  say("  slider 'Low' shows " + show(lowSlider.shown));
  say("user types 25 passes (the range is 1 to 10)");
  passes->setValueFromString(L"25");
  userEdits(labelBox, Text(L"Night grade"), "renames the effect");

  configb saved;
  saveState(params, saved);
  say("\n== saved state\n" + saved.toText().str());

  say("== user resets 'Low' and unticks 'Enable effect'");
  low->reset();
  checkbox.userEnters(false);

  say("\n== restoring the saved state");
  restoreState(params, saved);
  say("  'Low' = " + show(low->getValue()) + ", enabled = " + show(enabled->getValue()));
  return 0;
}
