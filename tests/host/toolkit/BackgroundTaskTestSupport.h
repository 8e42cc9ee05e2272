#pragma once

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/BackgroundTask.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <latch>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace services_test {

// Polls `done` for changes that wake no loop; true once it holds.
inline bool waitUntil(std::function<bool()> const& done, std::chrono::milliseconds timeout) {
  auto const deadline = std::chrono::steady_clock::now() + timeout;
  while (!done()) {
    if (std::chrono::steady_clock::now() >= deadline)
      return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

// Reports `steps` progress events, 1/steps apart; before the step numbered
// `pauseBefore` it waits for the gate to open. Stops early when aborted.
class SteppedTask : public BackgroundTaskBase {
public:
  explicit SteppedTask(int steps, int pauseBefore = -1) : steps_(steps), pauseBefore_(pauseBefore) {}

  void openGate() { gate_.count_down(); }
  int stepsDone() const { return stepsDone_.load(); }
  bool ran() const { return ran_.load(); }

protected:
  void run() override {
    ran_ = true;
    for (int step = 1; step <= steps_; ++step) {
      if (step == pauseBefore_)
        gate_.wait();
      if (isAbortRequested())
        return;
      reportProgress(static_cast<float>(step) / static_cast<float>(steps_));
      ++stepsDone_;
    }
  }

private:
  int const steps_;
  int const pauseBefore_;
  std::latch gate_{1};
  std::atomic<int> stepsDone_{0};
  std::atomic<bool> ran_{false};
};

// A task whose work is a function.
class FunctionTask : public BackgroundTaskBase {
public:
  explicit FunctionTask(std::function<void(FunctionTask&)> work) : work_(std::move(work)) {}
  using BackgroundTaskBase::reportProgress;

protected:
  void run() override { work_(*this); }

private:
  std::function<void(FunctionTask&)> work_;
};

// Records every event a task raises, and the thread (co_pid) it came on.
class EventLog {
public:
  struct Entry {
    iBackgroundTask::Event event;
    int thread;
  };

  Zo::Ptr<Zo::Guard> listenTo(iBackgroundTask& task) {
    return task.addListener(Zo::Ptr<iBackgroundTask::Listener>(
        new FunctionCallback<iBackgroundTask::Event>([this](iBackgroundTask::Event const& event) {
          std::lock_guard lock(mutex_);
          entries_.push_back(Entry{event, co_pid()});
          return 0;
        })));
  }

  std::vector<Entry> entries() const {
    std::lock_guard lock(mutex_);
    return entries_;
  }

  std::vector<iBackgroundTask::eStatus> statuses() const {
    std::vector<iBackgroundTask::eStatus> result;
    for (Entry const& entry : entries())
      if (entry.event.kind == iBackgroundTask::kStatusChanged)
        result.push_back(entry.event.status);
    return result;
  }

  std::vector<float> progress() const {
    std::vector<float> result;
    for (Entry const& entry : entries())
      if (entry.event.kind == iBackgroundTask::kProgressChanged)
        result.push_back(entry.event.snapshot.progress);
    return result;
  }

private:
  mutable std::mutex mutex_;
  std::vector<Entry> entries_;
};

} // namespace services_test
