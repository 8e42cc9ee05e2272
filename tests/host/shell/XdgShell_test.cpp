#include <zowidgets/host/shell/ShellBackend.h>

#include "host/shell/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

using Zo::ShellRequest;

namespace {

using WString = LightweightString<wchar_t>;
using Kind = ShellRequest::Kind;

// An opener program that appends its one argument to a log, one line per
// run, so a test sees exactly what the backend started.
class FakeOpener {
public:
  FakeOpener() {
    folder_.write("opener.sh", "#!/bin/sh\nprintf '%s\\n' \"$1\" >> '" + log().string() + "'\n");
    std::filesystem::permissions(program(), std::filesystem::perms::owner_all);
  }

  std::string program() const { return (folder_ / "opener.sh").string(); }
  std::filesystem::path log() const { return folder_ / "opened.log"; }
  TempFolder const& folder() const { return folder_; }

  // The arguments logged once `count` runs have finished, sorted, since the
  // runs are not waited for and may finish in any order.
  std::vector<std::string> waitForRuns(std::size_t count) const {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    std::vector<std::string> lines;
    while (std::chrono::steady_clock::now() < deadline) {
      lines = readLog();
      if (lines.size() >= count)
        break;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
  }

private:
  std::vector<std::string> readLog() const {
    std::ifstream file(log());
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
      lines.push_back(line);
    return lines;
  }

  TempFolder folder_;
};

} // namespace

TEST(XdgShell, OpenRunsTheOpenerWithTheTarget) {
  FakeOpener opener;
  auto shell = Zo::makeXdgShell(opener.program());
  EXPECT_TRUE(shell->perform({Kind::open, {L"https://example.org/a?b=c&d=e"}}));
  EXPECT_EQ(opener.waitForRuns(1), std::vector<std::string>{"https://example.org/a?b=c&d=e"});
}

TEST(XdgShell, TargetReachesTheOpenerUntouchedByAnyShell) {
  FakeOpener opener;
  auto shell = Zo::makeXdgShell(opener.program());
  auto marker = opener.folder() / "marker";
  std::string target = "x'; touch " + marker.string() + "; echo \"$HOME\" `id` \u00e9t\u00e9.mov";
  EXPECT_TRUE(shell->perform({Kind::open, {WString::fromUTF8(target)}}));
  EXPECT_EQ(opener.waitForRuns(1), std::vector<std::string>{target});
  EXPECT_FALSE(std::filesystem::exists(marker));
}

TEST(XdgShell, TargetStartingWithADashIsNotAnOption) {
  FakeOpener opener;
  auto shell = Zo::makeXdgShell(opener.program());
  EXPECT_TRUE(shell->perform({Kind::open, {L"--help.html"}}));
  EXPECT_EQ(opener.waitForRuns(1), std::vector<std::string>{"./--help.html"});
}

TEST(XdgShell, RevealOpensEachHoldingFolderOnce) {
  FakeOpener opener;
  auto shell = Zo::makeXdgShell(opener.program());
  EXPECT_TRUE(shell->perform({Kind::reveal, {L"/media/day1/a.mov", L"/media/day1/b.mov", L"/media/c.wav", L"d.txt"}}));
  std::vector<std::string> expected = {".", "/media", "/media/day1"};
  EXPECT_EQ(opener.waitForRuns(3), expected);
}

TEST(XdgShell, RevealOfAFolderPathShowsThatFolder) {
  FakeOpener opener;
  auto shell = Zo::makeXdgShell(opener.program());
  EXPECT_TRUE(shell->perform({Kind::reveal, {L"/media/day1/", L"/top.mov"}}));
  std::vector<std::string> expected = {"/", "/media/day1"};
  EXPECT_EQ(opener.waitForRuns(2), expected);
}

TEST(XdgShell, CannotDragWithoutAWindow) {
  FakeOpener opener;
  auto shell = Zo::makeXdgShell(opener.program());
  EXPECT_FALSE(shell->perform({Kind::drag, {L"/media/a.mov"}}));
  EXPECT_TRUE(shell->perform({Kind::open, {L"after"}}));
  EXPECT_EQ(opener.waitForRuns(1), std::vector<std::string>{"after"});
  // Had the drag started a run, it would have been logged by now as well.
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_EQ(opener.waitForRuns(1), std::vector<std::string>{"after"});
}

TEST(XdgShell, MissingOpenerReportsFailure) {
  TempFolder folder;
  auto shell = Zo::makeXdgShell((folder / "no-such-opener").string());
  EXPECT_FALSE(shell->perform({Kind::open, {L"/a.html"}}));
  EXPECT_FALSE(shell->perform({Kind::reveal, {L"/a.html"}}));
  auto unknown = Zo::makeXdgShell("zowidgets-no-such-program-on-path");
  EXPECT_FALSE(unknown->perform({Kind::open, {L"/a.html"}}));
}

// Waits for the failure reports of the opener's runs, up to ten seconds.
class FailureLog {
public:
  Zo::OpenFailedHandler handler() {
    return [this](WString const& target) {
      std::lock_guard lock(mutex_);
      targets_.push_back(target.toUTF8().str());
    };
  }
  std::vector<std::string> after(std::chrono::milliseconds wait) {
    std::this_thread::sleep_for(wait);
    std::lock_guard lock(mutex_);
    return targets_;
  }

private:
  std::mutex mutex_;
  std::vector<std::string> targets_;
};

TEST(XdgShell, AnOpenerThatFailsIsReportedWithItsTarget) {
  FailureLog failures;
  auto shell = Zo::makeXdgShell("false", failures.handler());
  EXPECT_TRUE(shell->perform({Kind::open, {L"https://example.org/notes"}}));
  std::vector<std::string> reported;
  for (int wait = 0; wait < 100 && reported.empty(); ++wait)
    reported = failures.after(std::chrono::milliseconds(100));
  EXPECT_EQ(reported, std::vector<std::string>{"https://example.org/notes"});
}

TEST(XdgShell, AnOpenerThatSucceedsIsNotReported) {
  FailureLog failures;
  FakeOpener opener;
  auto shell = Zo::makeXdgShell(opener.program(), failures.handler());
  EXPECT_TRUE(shell->perform({Kind::open, {L"https://example.org/notes"}}));
  EXPECT_EQ(opener.waitForRuns(1), std::vector<std::string>{"https://example.org/notes"});
  // The run has ended; its reaper would have reported by now.
  EXPECT_TRUE(failures.after(std::chrono::milliseconds(200)).empty());
}

TEST(XdgShell, ClipboardHoldsTextInProcess) {
  auto shell = Zo::makeXdgShell("true");
  EXPECT_TRUE(shell->clipboardText().empty());
  shell->setClipboardText(L"copied");
  EXPECT_EQ(shell->clipboardText(), L"copied");
}
