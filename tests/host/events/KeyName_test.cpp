#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/events/KeyName.h>

#include <gtest/gtest.h>

TEST(KeyName, LettersAreCapitalsAfterTheirModifiersInOneOrder) {
  EXPECT_EQ(keyName('m' | kKeyCtrl), "Ctrl+M");
  EXPECT_EQ(keyName('M' | kKeyCtrl), "Ctrl+M");
  EXPECT_EQ(keyName('s' | kKeyShift | kKeyCtrl), "Ctrl+Shift+S");
  EXPECT_EQ(keyName('x' | kKeyAlt | kKeyCmd | kKeyShift | kKeyCtrl), "Ctrl+Alt+Shift+Cmd+X");
  EXPECT_EQ(keyName('5'), "5");
  EXPECT_EQ(keyName('/' | kKeyAlt), "Alt+/");
}

TEST(KeyName, KeysWithoutACharacterHaveTheirNames) {
  EXPECT_EQ(keyName(' '), "Space");
  EXPECT_EQ(keyName(int{kKeyReturn} | kKeyCtrl), "Ctrl+Return");
  EXPECT_EQ(keyName(kKeyEscape), "Escape");
  EXPECT_EQ(keyName(int{kKeyTab} | kKeyShift), "Shift+Tab");
  EXPECT_EQ(keyName(kKeyBackspace), "Backspace");
  EXPECT_EQ(keyName(kKeyPageDown), "Page Down");
  EXPECT_EQ(keyName(int{kKeyDelete} | kKeyShift), "Shift+Delete");
  EXPECT_EQ(keyName(kKeyF1), "F1");
  EXPECT_EQ(keyName(kKeyF1 + 9), "F10");
  EXPECT_EQ(keyName(kKeyLeft), "Left");
}

TEST(KeyName, NoKeyIsEmptyAndAnUnknownOneSaysItsNumber) {
  EXPECT_EQ(keyName(0), "");
  EXPECT_EQ(keyName(kKeyCtrl), "") << "a modifier alone is no key";
  EXPECT_EQ(keyName(kKeySpecial | 0x7A), "Key " + std::to_string(kKeySpecial | 0x7A));
}
