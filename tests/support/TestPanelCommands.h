#pragma once

#include <zowidgets/host/shell/Command.h>

#include <gtest/gtest.h>

#include <string>

// A test panel's command is application-wide and carries no label,
// description, short label or key: it has no place in the menus.
inline void expectBareTestCommand(std::string const& name) {
  std::optional<Cmd::Command> const command = CommandMap::findCommand(name);
  ASSERT_TRUE(command.has_value()) << name;
  EXPECT_EQ(command->scope, 2) << name;
  EXPECT_TRUE(command->label.empty()) << name;
  EXPECT_TRUE(command->description.empty()) << name;
  EXPECT_TRUE(command->shortLabel.empty()) << name;
  EXPECT_EQ(command->mapItem, MapItem{}) << name;
  EXPECT_EQ(command->mapItem.keyCode, 0) << name;
}
