#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/BackgroundTask.h>

#include "host/toolkit/BackgroundTaskTestSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using services_test::SteppedTask;
using services_test::waitUntil;

namespace {

// Checks, on the worker, that one task's progress only grows, and carries its
// events to the user-interface thread the way a progress widget does.
class OrderedProgressListener {
public:
  OrderedProgressListener(int index, std::atomic<int>& finalsDelivered) : index_(index), finals_(finalsDelivered) {}

  Zo::Ptr<Zo::Guard> listenTo(iBackgroundTask& task) {
    return task.addListener(Zo::Ptr<iBackgroundTask::Listener>(
        new FunctionCallback<iBackgroundTask::Event>([this](iBackgroundTask::Event const& event) {
          if (event.kind == iBackgroundTask::kProgressChanged) {
            if (event.snapshot.progress <= lastProgress_)
              outOfOrder_ = true;
            lastProgress_ = event.snapshot.progress;
            ++progressEvents_;
            deferUnique([this, progress = event.snapshot.progress] { shownProgress_ = progress; },
                        "progress " + std::to_string(index_));
          } else if (iBackgroundTask::isFinal(event.status)) {
            lastStatus_ = event.status;
            defer([this] { ++finals_; });
          }
          return 0;
        })));
  }

  bool outOfOrder() const { return outOfOrder_; }
  int progressEvents() const { return progressEvents_; }
  float shownProgress() const { return shownProgress_; }
  iBackgroundTask::eStatus lastStatus() const { return lastStatus_; }

private:
  int const index_;
  std::atomic<int>& finals_;
  // Written on the worker while it delivers, read after the task has ended.
  float lastProgress_ = -1.0f;
  bool outOfOrder_ = false;
  int progressEvents_ = 0;
  iBackgroundTask::eStatus lastStatus_ = iBackgroundTask::kNotStarted;
  float shownProgress_ = 0.0f; // user-interface thread only
};

} // namespace

TEST(BackgroundTaskThreads, ManyTasksAtOnceReportInOrderAndAllFinish) {
  MessageLoop::runPending();
  constexpr int kTasks = 64;
  constexpr int kSteps = 100;
  std::atomic<int> finalsDelivered{0};
  std::vector<Zo::Ptr<SteppedTask>> tasks;
  std::vector<std::unique_ptr<OrderedProgressListener>> listeners;
  std::vector<Zo::Ptr<Zo::Guard>> guards;
  for (int i = 0; i < kTasks; ++i) {
    tasks.emplace_back(new SteppedTask(kSteps));
    listeners.push_back(std::make_unique<OrderedProgressListener>(i, finalsDelivered));
    guards.push_back(listeners.back()->listenTo(*tasks.back()));
  }
  for (auto const& task : tasks)
    ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  EXPECT_TRUE(MessageLoop::runUntil([&] { return finalsDelivered.load() == kTasks; }, std::chrono::seconds(60)));
  MessageLoop::runPending();
  for (int i = 0; i < kTasks; ++i) {
    EXPECT_EQ(tasks[i]->getStatus(), iBackgroundTask::kCompleted) << i;
    EXPECT_FALSE(listeners[i]->outOfOrder()) << i;
    EXPECT_EQ(listeners[i]->progressEvents(), kSteps) << i;
    EXPECT_EQ(listeners[i]->shownProgress(), 1.0f) << i; // the latest progress won
    EXPECT_EQ(listeners[i]->lastStatus(), iBackgroundTask::kCompleted) << i;
  }
}

TEST(BackgroundTaskThreads, TasksAbortedFromAnotherThreadEndAbortedOrCompleted) {
  constexpr int kTasks = 32;
  std::vector<Zo::Ptr<SteppedTask>> tasks;
  std::atomic<int> finalsDelivered{0};
  std::vector<std::unique_ptr<OrderedProgressListener>> listeners;
  std::vector<Zo::Ptr<Zo::Guard>> guards;
  for (int i = 0; i < kTasks; ++i) {
    tasks.emplace_back(new SteppedTask(2000));
    listeners.push_back(std::make_unique<OrderedProgressListener>(1000 + i, finalsDelivered));
    guards.push_back(listeners.back()->listenTo(*tasks.back()));
    ASSERT_TRUE(BackgroundTaskQueue::instance().submit(tasks.back()));
  }
  std::thread aborter([&] {
    for (int i = 0; i < kTasks; i += 2)
      tasks[i]->abort();
  });
  aborter.join();
  for (auto const& task : tasks)
    ASSERT_TRUE(task->waitForCompletion(std::chrono::seconds(60)));
  for (int i = 0; i < kTasks; ++i) {
    auto status = tasks[i]->getStatus();
    if (i % 2 == 0)
      EXPECT_TRUE(status == iBackgroundTask::kAborted || status == iBackgroundTask::kCompleted) << i;
    else
      EXPECT_EQ(status, iBackgroundTask::kCompleted) << i;
    EXPECT_EQ(listeners[i]->lastStatus(), status) << i; // listeners heard the end before the wait ended
    EXPECT_FALSE(listeners[i]->outOfOrder()) << i;
  }
  MessageLoop::runUntil([&] { return finalsDelivered.load() == kTasks; }, std::chrono::seconds(60));
  EXPECT_EQ(finalsDelivered.load(), kTasks);
}

TEST(BackgroundTaskThreads, EveryWorkerRunsATaskAtTheSameTime) {
  unsigned const workers = BackgroundTaskQueue::instance().workerCount();
  std::atomic<unsigned> running{0};
  std::atomic<unsigned> sawAllRunning{0};
  std::vector<Zo::Ptr<iBackgroundTask>> tasks;
  for (unsigned i = 0; i < workers; ++i) {
    tasks.emplace_back(new services_test::FunctionTask([&](services_test::FunctionTask&) {
      ++running;
      if (waitUntil([&] { return running.load() == workers; }, std::chrono::seconds(20)))
        ++sawAllRunning;
    }));
    ASSERT_TRUE(BackgroundTaskQueue::instance().submit(tasks.back()));
  }
  for (auto const& task : tasks)
    ASSERT_TRUE(task->waitForCompletion(std::chrono::seconds(60)));
  EXPECT_EQ(sawAllRunning.load(), workers);
}

TEST(BackgroundTaskThreads, ListenersComeAndGoWhileATaskReports) {
  constexpr int kSteps = 5000;
  auto task = Zo::Ptr<SteppedTask>(new SteppedTask(kSteps));
  std::atomic<int> steadyHeard{0};
  auto steady = task->addListener(Zo::Ptr<iBackgroundTask::Listener>(
      new FunctionCallback<iBackgroundTask::Event>([&](iBackgroundTask::Event const&) {
        ++steadyHeard;
        return 0;
      })));
  std::atomic<bool> stop{false};
  std::thread churn([&] {
    while (!stop.load()) {
      auto guard = task->addListener(Zo::Ptr<iBackgroundTask::Listener>(
          new FunctionCallback<iBackgroundTask::Event>([](iBackgroundTask::Event const&) { return 0; })));
      std::this_thread::yield();
    }
  });
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  EXPECT_TRUE(task->waitForCompletion(std::chrono::seconds(60)));
  stop = true;
  churn.join();
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kCompleted);
  EXPECT_EQ(steadyHeard.load(), kSteps + 3); // queued, running, every step, completed
}

TEST(BackgroundTaskThreads, ManyThreadsMayWaitForOneTask) {
  auto task = Zo::Ptr<SteppedTask>(new SteppedTask(3, 1));
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  std::atomic<int> finished{0};
  std::vector<std::thread> waiters;
  for (int i = 0; i < 4; ++i)
    waiters.emplace_back([&] {
      if (task->waitForCompletion(std::chrono::seconds(60)))
        ++finished;
    });
  task->openGate();
  for (auto& waiter : waiters)
    waiter.join();
  EXPECT_EQ(finished.load(), 4);
}
