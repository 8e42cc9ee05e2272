#include <zowidgets/host/widgets/registry/HostWidgetTypes.h>

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/CycleButton.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/files/FileBrowser.h>
#include <zowidgets/host/widgets/files/FileBrowserButton.h>
#include <zowidgets/host/widgets/lists/ScrollList.h>
#include <zowidgets/host/widgets/lists/ScrollListGridViewBase.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/panels/DiscreetSplitter.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>
#include <zowidgets/host/widgets/panels/Splitter.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/host/widgets/popups/SelectionRectangle.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/host/widgets/values/ActionIndicator.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>
#include <zowidgets/host/widgets/values/Gauge.h>
#include <zowidgets/host/widgets/values/ImageView.h>
#include <zowidgets/host/widgets/values/SharkGauge.h>
#include <zowidgets/host/widgets/values/Slider.h>

namespace {

std::vector<LightweightString<char>>& names() {
  static std::vector<LightweightString<char>> registered;
  return registered;
}

// A widget made from the creation info alone: size, parent, palette, border
// and saved settings; every other argument keeps its default.
template <class T> void add(char const* name) {
  names().emplace_back(name);
  GlobManager::registerGlobType(name, [](GlobCreationInfo const& info) -> Glob* {
    typename T::InitArgs args;
    static_cast<GlobCreationInfo&>(args) = info;
    return new T(args);
  });
}

bool const registered = [] {
  add<Button>("Button");
  add<PushButton>("PushButton");
  add<LinkButton>("LinkButton");
  add<Checkbox>("Checkbox");
  add<CycleButton>("CycleButton");
  add<DropDownMenuButton>("DropDownMenuButton");
  add<TitleMenuButton>("TitleMenuButton");
  add<StandardPanel>("StandardPanel");
  add<MessageBase>("MessageBase");
  add<WidgetHost>("WidgetHost");
  add<OccludedChildWidget>("OccludedChildWidget");
  add<Message>("Message");
  add<Warn>("warn");
  add<TitleGlob>("TitleGlob");
  add<WidgetGroup>("WidgetGroup");
  add<WidgetGroupEx>("WidgetGroupEx");
  add<WidgetGroup2>("WidgetGroup2");
  add<MinimizableGroup>("MinimizableGroup");
  add<VerticalScrollingBase>("VerticalScrollingBase");
  add<ScrollBar>("ScrollBar");
  add<Splitter>("Splitter");
  add<DiscreetSplitter>("DiscreetSplitter");
  add<TabbedDialogue>("TabbedDialogue");
  add<SelectionRectangle>("SelectionRectangle");
  add<TextLabel>("TextLabel");
  add<TextBox>("TextBox");
  add<TitleTextBox>("TitleTextBox");
  add<NumericTextBox>("NumericTextBox");
  add<MultiLineTextBox>("MultiLineTextBox");
  add<LinkAwareMultiLineTextBox>("LinkAwareMultiLineTextBox");
  add<Slider>("Slider");
  add<ColourSwatch>("ColourSwatch");
  add<Gauge>("Gauge");
  add<SharkGauge>("SharkGauge");
  add<ActionIndicator>("ActionIndicator");
  add<ImageView>("ImageView");
  add<ScrollList>("ScrollList");
  add<ScrollListItemWidget>("ScrollListItemWidget");
  add<ScrollListGridViewBase>("ScrollListGridViewBase");
  add<ScrollListGridViewBase::ItemWidgetBase>("ItemWidgetBase");
  add<TreeView>("TreeView");
  add<TableWidget>("TableWidget");
  add<FileBrowser>("FileBrowser");
  add<FileBrowserButton>("FileBrowserButton");
  add<TitledFileBrowserButton>("TitledFileBrowserButton");
  return true;
}();

} // namespace

std::vector<LightweightString<char>> const& hostWidgetTypeNames() { return names(); }
