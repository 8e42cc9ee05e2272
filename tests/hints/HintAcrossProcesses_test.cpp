#include "HintWindowTestSupport.h"

#include <zowidgets/host/shell/Preferences.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include <sys/wait.h>

#ifndef ZO_HINT_HELPER
#error "the build names the helper program in ZO_HINT_HELPER"
#endif

namespace {

// What the helper, started afresh on the preference store in `folder`, says
// of the hint with this id; empty when it did not run cleanly.
std::string askAnotherProcess(std::filesystem::path const& folder, unsigned id) {
  std::string const command =
      "ZOWIDGETS_CONFIG_DIR='" + folder.string() + "' '" ZO_HINT_HELPER "' issued " + std::to_string(id);
  FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe)
    return {};
  std::string output;
  char buffer[64];
  while (std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe))
    output.append(buffer, got);
  int const status = ::pclose(pipe);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? output : std::string();
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
