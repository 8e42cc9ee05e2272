#include <zowidgets/containers/SpaceDividerTestPanel.h>

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

// A test panel has no place in the menus: it carries no label, description
// or key.
CommandRegistrar const registration(
    SpaceDividerTestPanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(SpaceDividerTestPanel::open(), context.origin); },
    UIString(), UIString(), kCmdScopeApplication, MapItem{});

constexpr unsigned kStandardWidgets = StandardPanel::kTitle | StandardPanel::kPoot;

} // namespace

TextLabel::InitArgs SpaceDividerTestPanel::paneArgs(Palette const& palette, wchar_t const* text) {
  TextLabel::InitArgs args;
  args.useParentAllotment = true;
  args.text = text;
  args.alignment = Glib::eTextAlignment::Centre;
  args.setPalette(makeChildPalette(palette, kChildPanel));
  return args;
}

SpaceDividerTestPanel::SpaceDividerTestPanel(InitArgs const& args) : StandardPanel(args) {
  int const row = UifStd::getRowHeight();
  Zo::Box<int> const user = getUserArea();
  outer_ = createWidget<SpaceDivider>(SpaceDivider::InitArgs(XY<int>(user.width(), user.height()), kSideBySide, 0.4f),
                                      UserTopLeft(0, 0));
  outer_->createWidgetX<TextLabel>(paneArgs(getPalette(), L"Left"), SpaceDivider::kFirstWidget)
      ->setMinSize(XY<int>(4 * row, 0));
  SpaceDivider::InitArgs innerArgs(XY<int>(), kStacked, 0.5f);
  innerArgs.useParentAllotment = true;
  inner_ = outer_->createWidgetX<SpaceDivider>(innerArgs, SpaceDivider::kSecondWidget);
  inner_->setSplitterType(SpaceDivider::kStandardSplitter);
  inner_->createWidgetX<TextLabel>(paneArgs(getPalette(), L"Top"), SpaceDivider::kFirstWidget)
      ->setMinSize(XY<int>(0, 2 * row));
  inner_->createWidgetX<TextLabel>(paneArgs(getPalette(), L"Bottom"), SpaceDivider::kSecondWidget)
      ->setMinSize(XY<int>(0, 2 * row));
  Drawable::Suspender holdRedraws;
  inner_->resize(inner_->width(), inner_->height());
  outer_->resize(user.width(), user.height());
}

SpaceDividerTestPanel* SpaceDividerTestPanel::open(XY<int> screenPosition) {
  Drawable::Suspender holdRedraws;
  int const row = UifStd::getRowHeight();
  InitArgs args(calcPanelSize(XY<int>(20 * row, 10 * row), kStandardWidgets, getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = kStandardWidgets;
  args.title = UIString(L"Space Divider Test");
  auto* panel = new SpaceDividerTestPanel(args);
  GlobManager::realize(panel);
  return panel;
}
