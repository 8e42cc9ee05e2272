// The road of one user edit through the value layer, with no screen: a
// widget's edit goes through its adaptor to a parameter, through the
// parameter's constraint, to its handlers and back to every bound widget,
// with redraws held the whole way.
#include "values/binding/ValueTestSupport.h"
#include "values/params/ParamTestSupport.h"

#include <gtest/gtest.h>

namespace {

using Log = std::vector<std::string>;
using Text = LightweightString<wchar_t>;

struct LoggingWidget : FakeValWidget<double> {
  LoggingWidget(Log& log, std::string name) : log(log), name(std::move(name)) {}
  void setNewWidgetValue(double& value, eRedrawFlag redraw) override {
    log.push_back(name + " shows " + toNarrow(DataConvert::convert<double, Text>(value)) +
                  (Drawable::redrawsDisabled() ? " (redraws held)" : ""));
    FakeValWidget<double>::setNewWidgetValue(value, redraw);
  }
  Log& log;
  std::string name;
};

TEST(EventRoad, SliderEditPassesConstraintHandlersAndComesBackToEveryWidget) {
  Log log;
  GenericParam::DoubleParam gain(L"Gain", "gain", L"", 0.5, 0.0, 1.0);
  gain.addValueConstraint(Zo::make<FunctionConstraint>([&](Text const& candidate) {
    log.push_back("constraint sees " + toNarrow(candidate));
    double value = DataConvert::convert<Text, double>(candidate);
    return value > 0.8 ? Text(L"0.8") : candidate;
  }));
  struct Visibility : GenericParam::iValueChangeHandler {
    Log& log;
    explicit Visibility(Log& l) : log(l) {}
    void handleValueChange(LightweightString<char> const&, Text const& value) override {
      bool shown = TextSearch::match(value, TextSearch::Criteria(L"0.8"), 0);
      log.push_back(std::string("row 'boost' ") + (shown ? "shown" : "hidden"));
    }
  };
  gain.addChangeHandler(Zo::make<Visibility>(log));
  struct PanelListener : GenericParam::iValueChangeHandler {
    Log& log;
    explicit PanelListener(Log& l) : log(l) {}
    void handleValueChange(LightweightString<char> const& id, Text const& value) override {
      log.push_back("panel hears " + id.str() + "=" + toNarrow(value) +
                    (Drawable::redrawsDisabled() ? " (redraws held)" : ""));
    }
  };
  gain.addChangeHandler(Zo::make<PanelListener>(log));

  LoggingWidget slider(log, "slider");
  slider.setDataAdaptor(Zo::make<ValAdaptor<double, double>>(&gain.getServer()));
  LoggingWidget other(log, "second view");
  other.setDataAdaptor(Zo::make<ValAdaptor<double, double>>(&gain.getServer()));
  log.clear();

  EXPECT_TRUE(slider.typeValue(0.95));

  EXPECT_EQ(log, (Log{
                     "constraint sees 0.95",
                     "row 'boost' shown",
                     "panel hears gain=0.8 (redraws held)",
                     "slider shows 0.8 (redraws held)",
                     "second view shows 0.8 (redraws held)",
                 }));
  EXPECT_EQ(gain.getValue(), 0.8);
  EXPECT_EQ(slider.shown, 0.8); // what the server holds, not what was dragged
  EXPECT_FALSE(Drawable::redrawsDisabled());
}

} // namespace
