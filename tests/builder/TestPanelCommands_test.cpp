#include "support/TestPanelCommands.h"

#include <zowidgets/builder/UIBuilderJSONTestPanel.h>
#include <zowidgets/builder/UIBuilderTestPanel.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(BuilderTestPanelCommands, CarryScopeTwoAndNothingElse) {
  expectBareTestCommand("makeUIBuilderTestPanel");
  expectBareTestCommand("UIBuilderTest2");
  EXPECT_EQ(std::string(UIBuilderJSONTestPanel::kCommand), "makeUIBuilderTestPanel");
  EXPECT_EQ(std::string(UIBuilderTestPanel::kCommand), "UIBuilderTest2");
}

} // namespace
