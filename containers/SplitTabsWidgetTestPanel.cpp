#include <zowidgets/containers/SplitTabsWidgetTestPanel.h>

#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

// A test panel has no place in the menus: it carries no label, description
// or key.
CommandRegistrar const registration(
    SplitTabsWidgetTestPanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(SplitTabsWidgetTestPanel::open(), context.origin); },
    UIString(), UIString(), kCmdScopeApplication, MapItem{});

constexpr unsigned kStandardWidgets = StandardPanel::kTitle | StandardPanel::kPoot;

TextLabel::InitArgs label(wchar_t const* text) {
  TextLabel::InitArgs args;
  args.text = text;
  args.alignment = Glib::eTextAlignment::Centre;
  return args;
}

} // namespace

int SplitTabsWidgetTestPanel::minSplitWidth() { return 16 * UifStd::getRowHeight(); }

SplitTabsWidgetTestPanel::SplitTabsWidgetTestPanel(InitArgs const& args) : StandardPanel(args) {
  Zo::Box<int> const user = getUserArea();
  SplitTabsWidget::InitArgs tabArgs(XY<int>(user.width(), user.height()), static_cast<unsigned short>(minSplitWidth()));
  tabs_ = createWidget<SplitTabsWidget>(tabArgs, UserTopLeft(0, 0));
  tabs_->addLeftPage<TextLabel>(L"L1", label(L"Left One"));
  tabs_->addLeftPage<TextLabel>(L"L2", label(L"Left Two"));
  tabs_->addRightPage<TextLabel>(L"R1", label(L"Right One"));
  tabs_->addRightPage<TextLabel>(L"R2", label(L"Right Two"));
  tabs_->resize(user.width(), user.height());
}

SplitTabsWidgetTestPanel* SplitTabsWidgetTestPanel::open(XY<int> screenPosition) {
  Drawable::Suspender holdRedraws;
  int const row = UifStd::getRowHeight();
  InitArgs args(calcPanelSize(XY<int>(24 * row, 8 * row), kStandardWidgets, getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = kStandardWidgets;
  args.title = UIString(L"SplitTabsWidget test");
  auto* panel = new SplitTabsWidgetTestPanel(args);
  GlobManager::realize(panel);
  return panel;
}

void SplitTabsWidgetTestPanel::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (tabs_) {
    Zo::Box<int> const user = getUserArea();
    tabs_->resize(user.width(), user.height());
  }
}
