#include "support/WidgetTestSupport.h"

#include <zowidgets/host/widgets/panels/Splitter.h>

namespace {

// A container that needs room for what it holds, whatever was set on it.
class NeedsRoom : public Glob {
public:
  using Glob::Glob;
  XY<int> getMinSize() const override { return XY<int>(70, 0); }
};

using GlobResizeHintsTest = HeadlessScreenTest;

TEST_F(GlobResizeHintsTest, ASplitterHonoursTheMinimumAContainerReports) {
  StandardPanel* panel = openPanel(XY<int>(200, 50));
  Glob* left = panel->addChild(new NeedsRoom(GlobCreationInfo(XY<int>(100, 50))), Glob::UserTopLeft(0, 0));
  auto* bar = panel->createWidget<Splitter>(Splitter::InitArgs(kSideBySide, 50), Glob::RightOf(0, left));
  panel->addChild(new Glob(GlobCreationInfo(XY<int>(200 - 100 - bar->width(), 50))), Glob::RightOf(0, bar));
  EXPECT_EQ(bar->getBarRange().lowest, left->getX() + 70) << "through Glob&, the override answers";
}

TEST_F(GlobResizeHintsTest, TheAllotmentRequestSurvivesCopies) {
  GlobCreationInfo info(XY<int>(5, 5));
  EXPECT_FALSE(info.useParentAllotment);
  info.useParentAllotment = true;
  GlobCreationInfo copied(info);
  EXPECT_TRUE(copied.useParentAllotment);
  GlobCreationInfo assigned;
  assigned = info;
  EXPECT_TRUE(assigned.useParentAllotment);
}

} // namespace
