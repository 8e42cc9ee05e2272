#pragma once

#include <zowidgets/containers/SplitTabsWidget.h>

// A demonstration for developers: tabs L1 and L2 on the left, R1 and R2 on
// the right, each holding a label; narrow the window and they merge into one
// row. Opened by the command "SplitTabsWidgetTest".
class ZO_API SplitTabsWidgetTestPanel : public StandardPanel {
public:
  static constexpr char const* kCommand = "SplitTabsWidgetTest";

  explicit SplitTabsWidgetTestPanel(InitArgs const& args);
  char const* idstring() const override { return "SplitTabsWidgetTestPanel"; }

  // Unset: where the toolkit puts new windows.
  static SplitTabsWidgetTestPanel* open(XY<int> screenPosition = XY<int>::unset());
  // Below this width of the tabs the groups merge.
  static int minSplitWidth();

  SplitTabsWidget* getTabs() const noexcept { return tabs_; }
  // The tabs fill the window at any size.
  void resize(double width, double height) override;

private:
  SplitTabsWidget* tabs_ = nullptr;
};
