#include "startup/StartupTestSupport.h"
#include "support/ProcessOutput.h"

#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/startup/AnnouncementPanel.h>

#include <filesystem>
#include <string>

#ifndef ZO_ANNOUNCEMENT_HELPER
#error "the build names the helper program in ZO_ANNOUNCEMENT_HELPER"
#endif

namespace {

// What the helper, started afresh on the preference store in `folder`, says
// of the message with this id; empty when it did not run cleanly.
std::string askAnotherProcess(std::filesystem::path const& folder, std::string const& id) {
  std::string const command =
      "ZOWIDGETS_CONFIG_DIR='" + folder.string() + "' '" ZO_ANNOUNCEMENT_HELPER "' read '" + id + "'";
  return outputOfCommand(command);
}

using AnnouncementAcrossProcesses = StartupTest;

TEST_F(AnnouncementAcrossProcesses, AMessageShownOnceStaysReadInAProgramStartedAfresh) {
  std::filesystem::path const store = std::filesystem::path(prefs().filePath()).parent_path();
  EXPECT_EQ(askAnotherProcess(store, "welcome-2026"), "not read");
  StartupMessage const message(L"Welcome", L"<p>Hello</p>", L"", L"welcome-2026", L"test", L"once");
  auto* panel = new AnnouncementPanel(AnnouncementPanel::InitArgs(message));
  GlobManager::realize(panel);
  pump();
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_EQ(askAnotherProcess(store, "welcome-2026"), "read");
  EXPECT_EQ(askAnotherProcess(store, "another-message"), "not read");
}

} // namespace
