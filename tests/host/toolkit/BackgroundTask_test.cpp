#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/BackgroundTask.h>

#include "host/toolkit/BackgroundTaskTestSupport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <future>
#include <limits>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using services_test::EventLog;
using services_test::FunctionTask;
using services_test::SteppedTask;
using services_test::waitUntil;

namespace {

using Status = iBackgroundTask::eStatus;

class BackgroundTaskTest : public ::testing::Test {
protected:
  void SetUp() override { MessageLoop::runPending(); }
  void TearDown() override { MessageLoop::runPending(); }
};

template <class Task, class... Args> Zo::Ptr<Task> makeTask(Args&&... args) {
  return Zo::Ptr<Task>(new Task(std::forward<Args>(args)...));
}

class CountingAction : public iExecutableAction {
public:
  CountingAction(int& runs, int& thread) : runs_(runs), thread_(thread) {}
  void execute() override {
    ++runs_;
    thread_ = co_pid();
  }

private:
  int& runs_;
  int& thread_;
};

} // namespace

TEST_F(BackgroundTaskTest, ExecuteRunsTheWorkAndReportsEachStepInOrder) {
  auto task = makeTask<SteppedTask>(4);
  EventLog log;
  auto guard = log.listenTo(*task);
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kNotStarted);
  task->execute();
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kCompleted);
  EXPECT_EQ(task->getProgress(), 1.0f);
  EXPECT_EQ(log.statuses(), (std::vector<Status>{iBackgroundTask::kRunning, iBackgroundTask::kCompleted}));
  EXPECT_EQ(log.progress(), (std::vector<float>{0.25f, 0.5f, 0.75f, 1.0f}));
  auto entries = log.entries();
  ASSERT_EQ(entries.size(), 6u);
  EXPECT_EQ(entries.front().event.kind, 2);
  EXPECT_EQ(entries[1].event.kind, 0);
  EXPECT_EQ(entries[1].event.status, iBackgroundTask::kRunning);
  EXPECT_EQ(entries.back().event.snapshot.progress, 1.0f); // a status event carries the latest snapshot
  EXPECT_TRUE(task->waitForCompletion(std::chrono::milliseconds(0)));
}

TEST_F(BackgroundTaskTest, ATaskAbortedBeforeItStartsNeverRuns) {
  auto task = makeTask<SteppedTask>(3);
  EventLog log;
  auto guard = log.listenTo(*task);
  task->abort();
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kAborted);
  EXPECT_TRUE(task->isAbortRequested());
  task->execute();
  EXPECT_FALSE(task->ran());
  EXPECT_EQ(log.statuses(), (std::vector<Status>{iBackgroundTask::kAborted}));
  EXPECT_FALSE(BackgroundTaskQueue::instance().submit(task));
}

TEST_F(BackgroundTaskTest, ATaskAbortedHalfWayStopsAndReportsIt) {
  auto task = makeTask<SteppedTask>(10, 6);
  EventLog log;
  auto guard = log.listenTo(*task);
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  ASSERT_TRUE(waitUntil([&] { return task->stepsDone() == 5; }, std::chrono::seconds(20)));
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kRunning);
  task->abort();
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kRunning); // it stops when it next looks
  task->openGate();
  ASSERT_TRUE(task->waitForCompletion(std::chrono::seconds(20)));
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kAborted);
  EXPECT_EQ(task->stepsDone(), 5);
  EXPECT_FLOAT_EQ(task->getProgress(), 0.5f);
  EXPECT_EQ(log.statuses(),
            (std::vector<Status>{iBackgroundTask::kQueued, iBackgroundTask::kRunning, iBackgroundTask::kAborted}));
  EXPECT_EQ(log.progress().size(), 5u);
  EXPECT_EQ(log.entries().back().event.status, iBackgroundTask::kAborted);
}

TEST_F(BackgroundTaskTest, ListenersHearAPooledTaskOnItsWorker) {
  auto task = makeTask<SteppedTask>(3);
  EventLog log;
  auto guard = log.listenTo(*task);
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  ASSERT_TRUE(task->waitForCompletion(std::chrono::seconds(20)));
  auto entries = log.entries();
  ASSERT_EQ(entries.size(), 6u);        // queued, running, three steps, completed
  EXPECT_EQ(entries.front().thread, 0); // queued by the submitting thread
  for (std::size_t i = 1; i < entries.size(); ++i)
    EXPECT_NE(entries[i].thread, 0) << i;
}

TEST_F(BackgroundTaskTest, ProgressEventsArriveInOrderOnTheUserInterfaceThread) {
  // The route a progress widget takes: hear on the worker, defer to the
  // user-interface thread, and let the loop (or a blocking loop's
  // glob_poll_background_tasks) deliver.
  auto task = makeTask<SteppedTask>(50);
  std::vector<float> delivered;
  std::vector<int> deliveredOn;
  Status finalStatus = iBackgroundTask::kNotStarted;
  auto guard = task->addListener(Zo::Ptr<iBackgroundTask::Listener>(
      new FunctionCallback<iBackgroundTask::Event>([&](iBackgroundTask::Event const& event) {
        defer([&, event] {
          deliveredOn.push_back(co_pid());
          if (event.kind == iBackgroundTask::kProgressChanged)
            delivered.push_back(event.snapshot.progress);
          else if (iBackgroundTask::isFinal(event.status))
            finalStatus = event.status;
        });
        return 0;
      })));
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (finalStatus == iBackgroundTask::kNotStarted && std::chrono::steady_clock::now() < deadline) {
    glob_poll_background_tasks();
    std::this_thread::yield();
  }
  EXPECT_EQ(finalStatus, iBackgroundTask::kCompleted);
  ASSERT_EQ(delivered.size(), 50u);
  for (std::size_t i = 0; i < delivered.size(); ++i)
    EXPECT_FLOAT_EQ(delivered[i], static_cast<float>(i + 1) / 50.0f);
  for (int thread : deliveredOn)
    EXPECT_EQ(thread, 0);
}

TEST_F(BackgroundTaskTest, WaitForCompletionTimesOutWhileTheTaskWaits) {
  auto task = makeTask<SteppedTask>(2, 1);
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  std::thread waiter([&] { EXPECT_FALSE(task->waitForCompletion(std::chrono::milliseconds(20))); });
  waiter.join();
  EXPECT_FALSE(task->waitForCompletion(std::chrono::milliseconds(20)));
  task->openGate();
  std::thread([&] { EXPECT_TRUE(task->waitForCompletion()); }).join();
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kCompleted);
}

TEST_F(BackgroundTaskTest, WaitingOnTheUserInterfaceThreadKeepsItsQueueMoving) {
  // The work needs the user-interface thread before it can finish; a plain
  // blocking wait there would never end.
  auto task = makeTask<FunctionTask>([](FunctionTask&) {
    std::promise<void> ranThere;
    defer([&] { ranThere.set_value(); });
    ranThere.get_future().wait();
  });
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  EXPECT_TRUE(task->waitForCompletion(std::chrono::seconds(20)));
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kCompleted);
}

TEST_F(BackgroundTaskTest, TheCompletionEventRunsOnTheUserInterfaceThreadOnce) {
  int runs = 0;
  int thread = -1;
  auto task = makeTask<SteppedTask>(1);
  task->setCompletionEvent(Zo::Ptr<iExecutableAction>(new CountingAction(runs, thread)));
  ASSERT_TRUE(BackgroundTaskQueue::instance().submit(task));
  EXPECT_TRUE(MessageLoop::runUntil([&] { return runs == 1; }, std::chrono::seconds(20)));
  EXPECT_EQ(thread, 0);
  MessageLoop::runPending();
  EXPECT_EQ(runs, 1);

  // Set after the end, it is queued at once.
  task->setCompletionEvent(Zo::Ptr<iExecutableAction>(new CountingAction(runs, thread)));
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(runs, 2);
}

TEST_F(BackgroundTaskTest, AnExceptionFromTheWorkFailsTheTask) {
  auto task = makeTask<FunctionTask>([](FunctionTask& self) {
    self.reportProgress(0.3f, L"reading");
    throw std::runtime_error("disk gone");
  });
  EventLog log;
  auto guard = log.listenTo(*task);
  ::testing::internal::CaptureStderr();
  task->execute();
  std::string const warning = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(warning.find("disk gone"), std::string::npos) << warning;
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kFailed);
  EXPECT_EQ(log.statuses(), (std::vector<Status>{iBackgroundTask::kRunning, iBackgroundTask::kFailed}));
  EXPECT_EQ(log.entries().back().event.snapshot.text, L"reading");
}

TEST_F(BackgroundTaskTest, WorkMayFailItself) {
  auto task = makeTask<FunctionTask>([](FunctionTask& self) { self.setStatus(iBackgroundTask::kFailed); });
  task->execute();
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kFailed);
}

TEST_F(BackgroundTaskTest, AFinalStatusIsNeverLeft) {
  auto task = makeTask<SteppedTask>(1);
  task->execute();
  EventLog log;
  auto guard = log.listenTo(*task);
  task->setStatus(iBackgroundTask::kRunning);
  task->abort();
  task->execute();
  EXPECT_EQ(task->getStatus(), iBackgroundTask::kCompleted);
  EXPECT_TRUE(log.statuses().empty());
}

TEST_F(BackgroundTaskTest, ProgressIsClampedToTheUnitRange) {
  auto task = makeTask<FunctionTask>([](FunctionTask& self) {
    self.reportProgress(1.5f);
    self.reportProgress(-2.0f);
    self.reportProgress(std::numeric_limits<float>::quiet_NaN());
  });
  EventLog log;
  auto guard = log.listenTo(*task);
  task->execute();
  EXPECT_EQ(log.progress(), (std::vector<float>{1.0f, 0.0f, 0.0f}));
}

TEST_F(BackgroundTaskTest, DroppingTheGuardEndsTheSubscription) {
  auto task = makeTask<SteppedTask>(2);
  EventLog log;
  auto guard = log.listenTo(*task);
  EventLog stays;
  auto stayingGuard = stays.listenTo(*task);
  guard.reset();
  task->execute();
  EXPECT_TRUE(log.entries().empty());
  EXPECT_EQ(stays.entries().size(), 4u);
  EXPECT_FALSE(task->addListener(Zo::Ptr<iBackgroundTask::Listener>()));
}

TEST_F(BackgroundTaskTest, AGuardKeepsItsTaskAlive) {
  struct Watched : SteppedTask {
    bool& destroyed;
    explicit Watched(bool& d) : SteppedTask(1), destroyed(d) {}
    ~Watched() override { destroyed = true; }
  };
  bool destroyed = false;
  EventLog log;
  Zo::Ptr<Zo::Guard> guard;
  {
    auto task = makeTask<Watched>(destroyed);
    guard = log.listenTo(*task);
  }
  EXPECT_FALSE(destroyed);
  guard.reset();
  EXPECT_TRUE(destroyed);
}

TEST_F(BackgroundTaskTest, ATaskIsQueuedOnlyOnce) {
  auto task = makeTask<SteppedTask>(1, 1);
  auto& queue = BackgroundTaskQueue::instance();
  EXPECT_TRUE(queue.submit(task));
  EXPECT_FALSE(queue.submit(task));
  EXPECT_FALSE(queue.submit(Zo::Ptr<iBackgroundTask>()));
  task->openGate();
  EXPECT_TRUE(task->waitForCompletion(std::chrono::seconds(20)));
  EXPECT_FALSE(queue.submit(task));
}

TEST_F(BackgroundTaskTest, ThePoolHasAWorkerPerHardwareThread) {
  unsigned const hardware = std::thread::hardware_concurrency();
  EXPECT_EQ(BackgroundTaskQueue::instance().workerCount(), hardware > 0 ? hardware : 1u);
}

TEST_F(BackgroundTaskTest, PollingOffTheUserInterfaceThreadRunsNothing) {
  int runs = 0;
  defer([&] { ++runs; });
  std::size_t ranThere = 99;
  std::thread([&] { ranThere = glob_poll_background_tasks(); }).join();
  EXPECT_EQ(ranThere, 0u);
  EXPECT_EQ(glob_poll_background_tasks(), 1u);
  EXPECT_EQ(runs, 1);
}
