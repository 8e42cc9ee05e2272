#include <zowidgets/builder/UIBuilderJSONTestPanel.h>
#include <zowidgets/builder/UIBuilderTestPanel.h>
#include <zowidgets/host/shell/Command.h>

#include <gtest/gtest.h>

#include <string>

namespace {

// A test panel's command is application-wide and carries no label,
// description, short label or key: it has no place in the menus.
void expectBareTestCommand(std::string const& name) {
  std::optional<Cmd::Command> const command = CommandMap::findCommand(name);
  ASSERT_TRUE(command.has_value()) << name;
  EXPECT_EQ(command->scope, 2) << name;
  EXPECT_TRUE(command->label.empty()) << name;
  EXPECT_TRUE(command->description.empty()) << name;
  EXPECT_TRUE(command->shortLabel.empty()) << name;
  EXPECT_EQ(command->mapItem, MapItem{}) << name;
  EXPECT_EQ(command->mapItem.keyCode, 0) << name;
}

TEST(BuilderTestPanelCommands, CarryScopeTwoAndNothingElse) {
  expectBareTestCommand("makeUIBuilderTestPanel");
  expectBareTestCommand("UIBuilderTest2");
  EXPECT_EQ(std::string(UIBuilderJSONTestPanel::kCommand), "makeUIBuilderTestPanel");
  EXPECT_EQ(std::string(UIBuilderTestPanel::kCommand), "UIBuilderTest2");
}

} // namespace
