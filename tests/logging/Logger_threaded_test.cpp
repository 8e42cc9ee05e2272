#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/logging/Logger.h>
#include <zowidgets/logging/LoggerFunctions.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kWriters = 4;

LightweightString<wchar_t> lineFor(int writer, int index) {
  return LightweightString<wchar_t>(L"w" + std::to_wstring(writer) + L" " + std::to_wstring(index));
}

// Checks that the rows hold every writer's lines exactly once, in the order
// each writer wrote them.
void expectEveryLineOnceInOrder(Logger const& logger, int perWriter) {
  std::vector<int> next(kWriters, 0);
  for (std::size_t row = 0; row < logger.numItems(); ++row) {
    std::wstring const text = logger.rows()[row].text.str();
    ASSERT_EQ(text[0], L'w');
    int const writer = text[1] - L'0';
    ASSERT_TRUE(writer >= 0 && writer < kWriters) << row;
    int const index = std::stoi(text.substr(3));
    ASSERT_EQ(index, next[writer]) << "writer " << writer << " at row " << row;
    ++next[writer];
  }
  for (int writer = 0; writer < kWriters; ++writer)
    EXPECT_EQ(next[writer], perWriter) << "writer " << writer;
}

class LoggerThreads : public ::testing::Test {
protected:
  void SetUp() override { useHeadlessScreen(); }
  void TearDown() override {
    for (Glob* window : GlobManager::topLevelWindows())
      GlobManager::requestDeletion(window);
    while (MessageLoop::runPending() != 0) {
    }
  }
  static Logger* openLogger() {
    Logger::InitArgs args(20, 500, 0);
    return make_logger(args, 20, 20);
  }
};

TEST_F(LoggerThreads, FourThreadsWriteAQuarterMillionLinesEachWhileTheLoggerShowsAndEveryLineArrivesOnceInOrder) {
  constexpr int kPerWriter = 250000;
  Logger* logger = openLogger();
  std::atomic<int> finished{0};
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer)
    writers.emplace_back([logger, writer, &finished] {
      for (int i = 0; i < kPerWriter; ++i)
        loggerWrite(logger, lineFor(writer, i), LoggerBase::kOutputPlain);
      finished.fetch_add(1);
    });
  while (finished.load() < kWriters || MessageLoop::pendingCount() != 0)
    MessageLoop::runPending();
  for (auto& writer : writers)
    writer.join();
  MessageLoop::runPending();
  EXPECT_EQ(logger->numItems(), static_cast<std::size_t>(kWriters * kPerWriter));
  EXPECT_EQ(logger->getLog()->numItems(), static_cast<std::size_t>(kWriters * kPerWriter));
  expectEveryLineOnceInOrder(*logger, kPerWriter);
}

TEST_F(LoggerThreads, ABurstOfLinesFromAnotherThreadCostsOneRefresh) {
  Logger* logger = openLogger();
  while (MessageLoop::runPending() != 0) {
  }
  std::thread writer([logger] {
    for (int i = 0; i < 1000; ++i)
      loggerWrite(logger, lineFor(0, i), LoggerBase::kOutputPlain);
  });
  writer.join();
  EXPECT_EQ(logger->numItems(), 0u);
  EXPECT_EQ(MessageLoop::pendingCount(), 1u);
  MessageLoop::runPending();
  EXPECT_EQ(logger->numItems(), 1000u);
}

TEST_F(LoggerThreads, ALoggerDestroyedWhileThreadsWriteCrashesNothingAndTheLogKeepsEveryLine) {
  constexpr int kPerWriter = 20000;
  Logger* logger = openLogger();
  Zo::Ptr<iTaskLog> const log = logger->getLog();
  std::atomic<int> started{0};
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer)
    writers.emplace_back([log, writer, &started] {
      started.fetch_add(1);
      for (int i = 0; i < kPerWriter; ++i)
        log->write(lineFor(writer, i), LoggerBase::kOutputPlain);
    });
  while (started.load() < kWriters || log->numItems() < 1000)
    MessageLoop::runPending();
  delete logger;
  for (auto& writer : writers)
    writer.join();
  // Work queued for the dead logger is dropped without touching it.
  while (MessageLoop::runPending() != 0) {
  }
  EXPECT_FALSE(is_good_glob_ptr(logger));
  EXPECT_EQ(log->numItems(), static_cast<std::size_t>(kWriters * kPerWriter));
}

} // namespace
