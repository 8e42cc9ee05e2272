#include "TempFolder.h"

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/FolderWatcher.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace {

using namespace std::chrono_literals;

TEST(FolderWatcher, ANewFileIsReportedOnTheUserInterfaceThread) {
  TempFolder folder;
  int calls = 0;
  int threadOfCall = -1;
  FolderWatcher watcher(folder.path().string(), [&] {
    ++calls;
    threadOfCall = co_pid();
  });
  ASSERT_TRUE(watcher.isWatching());
  folder.write("new clip.mov");
  EXPECT_TRUE(MessageLoop::runUntil([&] { return calls > 0; }, 10s));
  EXPECT_EQ(threadOfCall, 0);
}

TEST(FolderWatcher, ARemovedFileIsReported) {
  TempFolder folder;
  folder.write("old.txt");
  int calls = 0;
  FolderWatcher watcher(folder.path().string(), [&] { ++calls; });
  std::filesystem::remove(folder / "old.txt");
  EXPECT_TRUE(MessageLoop::runUntil([&] { return calls > 0; }, 10s));
}

TEST(FolderWatcher, NothingIsCalledOnceTheWatcherIsGone) {
  TempFolder folder;
  int calls = 0;
  {
    FolderWatcher watcher(folder.path().string(), [&] { ++calls; });
    folder.write("a");
    // Let the thread see the change and queue its call, then end the watcher
    // before the queue runs.
    while (MessageLoop::pendingCount() == 0)
      std::this_thread::sleep_for(1ms);
  }
  MessageLoop::runPending();
  EXPECT_EQ(calls, 0);
}

TEST(FolderWatcher, AFolderThatDoesNotExistIsNotWatched) {
  TempFolder folder;
  FolderWatcher watcher((folder / "missing").string(), [] {});
  EXPECT_FALSE(watcher.isWatching());
}

} // namespace
