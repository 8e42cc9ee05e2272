#include "support/TestPanelCommands.h"

#include <zowidgets/containers/PageIndexTestPanel.h>
#include <zowidgets/containers/SpaceDividerTestPanel.h>
#include <zowidgets/containers/SplitTabsWidgetTestPanel.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(ContainerTestPanelCommands, CarryScopeTwoAndNothingElse) {
  expectBareTestCommand("PageIndexWidgetTest");
  expectBareTestCommand("Space Divider Test");
  expectBareTestCommand("SplitTabsWidgetTest");
  EXPECT_EQ(std::string(PageIndexTestPanel::kCommand), "PageIndexWidgetTest");
  EXPECT_EQ(std::string(SpaceDividerTestPanel::kCommand), "Space Divider Test");
  EXPECT_EQ(std::string(SplitTabsWidgetTestPanel::kCommand), "SplitTabsWidgetTest");
}

} // namespace
