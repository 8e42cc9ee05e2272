#include "HintWindowTestSupport.h"
#include "support/ProcessOutput.h"

#include <zowidgets/host/shell/Preferences.h>

#include <filesystem>
#include <string>

#ifndef ZO_HINT_HELPER
#error "the build names the helper program in ZO_HINT_HELPER"
#endif

namespace {

// What the helper, started afresh on the preference store in `folder`, says
// of the hint with this id; empty when it did not run cleanly.
std::string askAnotherProcess(std::filesystem::path const& folder, unsigned id) {
  std::string const command =
      "ZOWIDGETS_CONFIG_DIR='" + folder.string() + "' '" ZO_HINT_HELPER "' issued " + std::to_string(id);
  return outputOfCommand(command);
}

TEST_F(HintWindowTest, OnlyAHintConfirmedWithOkIsAcknowledgedInTheNextProcess) {
  Hint const confirmed = trimHint(21);
  Hint const dismissed = trimHint(22);
  HeadlessInput::clickOn(*showBelowButton(confirmed)->getOkButton());
  pump();
  showBelowButton(dismissed);
  HeadlessInput::clickOn(*panel, XY<int>(10, 10));
  pump();
  ASSERT_EQ(HintWindow::showing(), nullptr);

  std::filesystem::path const folder = std::filesystem::path(prefs().filePath()).parent_path();
  EXPECT_EQ(askAnotherProcess(folder, 21), "issued");
  EXPECT_EQ(askAnotherProcess(folder, 22), "not issued");
  EXPECT_EQ(askAnotherProcess(folder, 23), "not issued");
}

} // namespace
