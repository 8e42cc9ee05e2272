#include "startup/StartupTestSupport.h"

#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/startup/AnnouncementPanel.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include <sys/wait.h>

#ifndef ZO_ANNOUNCEMENT_HELPER
#error "the build names the helper program in ZO_ANNOUNCEMENT_HELPER"
#endif

namespace {

// What the helper, started afresh on the preference store in `folder`, says
// of the message with this id; empty when it did not run cleanly.
std::string askAnotherProcess(std::filesystem::path const& folder, std::string const& id) {
  std::string const command =
      "ZOWIDGETS_CONFIG_DIR='" + folder.string() + "' '" ZO_ANNOUNCEMENT_HELPER "' read '" + id + "'";
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
