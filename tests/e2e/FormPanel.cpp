#include "FormPanel.h"

#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/values/params/Params.h>

#include <sstream>
#include <string_view>

using namespace GenericParam;

namespace {

Glob* rowChild(UIBuilder::Params const& built, char const* id) {
  auto* host = dynamic_cast<UIBuilder::HostWidgetBase*>(built.getWidget(id));
  return host ? host->getChild() : nullptr;
}

Zo::Box<int> screenBoxOf(Glob const& widget) {
  return Zo::Box<int>(0, 0, widget.width(), widget.height()).translated(widget.screenPosition());
}

// A one-pixel box on the slider's track at a value.
Zo::Box<int> trackPoint(Slider const& slider, double value) {
  XY<int> const at = slider.screenPosition() + XY<int>(slider.valueToX(value), slider.height() / 2);
  return Zo::Box<int>(at.x, at.y, at.x + 1, at.y + 1);
}

std::string quoted(LightweightString<wchar_t> const& text) {
  std::string out = "\"";
  for (char c : toNarrow(text))
    if (c == '"' || c == '\\')
      out += std::string("\\") + c;
    else
      out += c;
  return out + "\"";
}

// The quoted value of the parameter with that id.
std::string quotedValueOf(GenericParam::ParamList const& params, std::string_view id) {
  for (Zo::Ptr<GenericParam::iParam> const& param : params)
    if (param->getID().view() == id)
      return quoted(param->getValueAsString());
  return "null";
}

} // namespace

// The same three rows as the parameters below.
wchar_t const* const kDescription = LR"({"rows": [
  {"type": "text", "name": "title", "legend": "Title"},
  {"type": "int", "name": "count", "legend": "Count", "min": 0, "max": 100, "default": 20},
  {"type": "int", "name": "mode", "legend": "Mode", "values": {"Fast": 1, "Balanced": 2, "Best": 3}, "choice": "1"}
]})";

FormPanel::FormPanel(XY<int> screenPosition, Source source) {
  int const row = UifStd::getRowHeight();
  std::vector<ChoiceParam::Choice> modes{{L"Fast", {}, 1, true}, {L"Balanced", {}, 2, true}, {L"Best", {}, 3, true}};
  params_ = ParamList{Zo::Ptr<iParam>(new TextParam(L"Title", "title", {}, L"")),
                      Zo::Ptr<iParam>(new IntParam(L"Count", "count", {}, 20, 0, 100)),
                      Zo::Ptr<iParam>(new ChoiceParam(L"Mode", "mode", {}, 1, modes))};
  if (source == Source::kParameters) {
    // A row that takes input only while another is ticked (a description
    // keeps no such rule).
    Zo::Ptr<iParam> gain(new IntParam(L"Gain", "gain", {}, 5, 0, 10));
    gain->setActiveIf(Condition("unlock", L"true"));
    params_.push_back(Zo::Ptr<iParam>(new BoolParam(L"Unlock", "unlock", L"Lets Gain take input", false)));
    params_.push_back(gain);
  }
  StandardPanel::InitArgs args(StandardPanel::calcPanelSize(XY<int>(row * 16, UIBuilder::calcHeight(params_, 0)),
                                                            StandardPanel::kTitle, StandardPanel::getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = StandardPanel::kTitle;
  args.title = UIString(source == Source::kParameters ? L"Form" : L"Form from a description");
  panel_ = new StandardPanel(args);
  if (source == Source::kParameters) {
    built_ = UIBuilder::build(params_, panel_, 0);
  } else {
    params_.clear();
    built_ = UIBuilder::buildFromJSON(kDescription, panel_);
  }
  GlobManager::realize(panel_);
}

FormPanel::~FormPanel() {
  if (is_good_glob_ptr(panel_))
    GlobManager::requestDeletion(panel_);
}

std::string FormPanel::stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const {
  auto* text = static_cast<TitleTextBox*>(rowChild(*built_, "title"));
  auto* count = static_cast<SliderParamHost*>(rowChild(*built_, "count"));
  auto* mode = static_cast<ChoiceParamHost*>(rowChild(*built_, "mode"));
  Slider const& slider = *count->getSlider();
  DropDownMenuButton& button = mode->getMenuButton()->getBtn();
  std::ostringstream out;
  out << valuesJson() << ",\"box\":" << quoted(count->getTextBox()->getString())
      << ",\"textbox\":" << toScreen(text->getFieldBox().translated(text->screenPosition()))
      << ",\"thumb\":" << toScreen(trackPoint(slider, slider.getPosition()))
      << ",\"at80\":" << toScreen(trackPoint(slider, 80)) << ",\"menubutton\":" << toScreen(screenBoxOf(button));
  if (auto* gain = static_cast<SliderParamHost*>(rowChild(*built_, "gain"))) {
    Slider const& gainSlider = *gain->getSlider();
    out << ",\"gain\":" << quotedValueOf(params_, "gain")
        << ",\"gainthumb\":" << toScreen(trackPoint(gainSlider, gainSlider.getPosition()))
        << ",\"gainat9\":" << toScreen(trackPoint(gainSlider, 9))
        << ",\"unlock\":" << toScreen(screenBoxOf(*rowChild(*built_, "unlock")));
  }
  // The menu's rows come last: the cases read them up to the end.
  out << ",\"menu\":[";
  if (MenuWindow* menu = button.getMenuWindow())
    for (int i = 0; i < menu->menu().size(); ++i)
      out << (i ? "," : "") << toScreen(menu->rowBox(i).translated(menu->screenPosition()));
  out << "]}";
  return out.str();
}

std::string FormPanel::valuesJson() const {
  if (!params_.empty())
    return "{\"title\":" + quotedValueOf(params_, "title") + ",\"count\":" + quotedValueOf(params_, "count") +
           ",\"mode\":" + quotedValueOf(params_, "mode");
  auto* text = static_cast<TitleTextBox*>(rowChild(*built_, "title"));
  auto* count = static_cast<SliderParamHost*>(rowChild(*built_, "count"));
  auto* mode = static_cast<ChoiceParamHost*>(rowChild(*built_, "mode"));
  return "{\"title\":" + quoted(text->getString()) + ",\"count\":\"" +
         std::to_string(static_cast<int>(count->getSlider()->getPosition())) + "\",\"mode\":\"" +
         std::to_string(mode->getWidgetValue()) + "\"";
}
