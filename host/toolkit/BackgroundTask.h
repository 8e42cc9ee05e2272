#pragma once

#include <zowidgets/host/base/CriticalSection.h>
#include <zowidgets/host/base/ExecutableAction.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/toolkit/ProgressReportClient.h>
#include <zowidgets/values/notify/GenericNotifier.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>

// Work that runs off the user-interface thread and reports as it goes. Tasks
// are made with new and held through Zo::Ptr, as every iObject.
class ZO_API iBackgroundTask : public iObject {
public:
  // The order matters: every status from kCompleted on is final.
  enum eStatus { kNotStarted = 0, kQueued, kRunning, kCompleted, kAborted, kFailed };
  enum eEventKind { kProgressChanged = 0, kStatusChanged = 2 };

  // Kind 0: the snapshot changed. Kind 2: the status changed, to `status`.
  struct Event {
    int kind = kProgressChanged;
    ProgressReportClient::ProgressSnapshot snapshot;
    eStatus status = kNotStarted;
  };
  using Listener = iCallbackBase<int, Event>;

  static constexpr std::chrono::milliseconds kWaitForever = std::chrono::milliseconds::max();
  static bool isFinal(eStatus status) noexcept { return status >= kCompleted; }

  // Runs the work on the calling thread, normally a worker of
  // BackgroundTaskQueue.
  virtual void execute() = 0;
  // Asks the task to stop. One that has not started never will.
  virtual void abort() = 0;
  // Events are delivered on the thread that raises them, usually a worker,
  // in the order raised. A listener that needs the user-interface thread
  // goes there with defer or deferUnique. Dropping the guard ends the
  // subscription; the guard keeps the task alive.
  virtual Zo::Ptr<Zo::Guard> addListener(Zo::Ptr<Listener> const& listener) = 0;
  virtual eStatus getStatus() const = 0;
  virtual void setStatus(eStatus status) = 0;
  virtual float getProgress() const = 0;
  // Runs `action` on the user-interface thread once the task has finished,
  // or at once (through the queue) if it already has. A later call replaces
  // an action that has not been queued yet.
  virtual void setCompletionEvent(Zo::Ptr<iExecutableAction> const& action) = 0;
  // Blocks until the task has finished and its listeners have heard the
  // final status, or until `timeout`; true when it finished. On the
  // user-interface thread it keeps the message loop running while it waits.
  virtual bool waitForCompletion(std::chrono::milliseconds timeout = kWaitForever) = 0;
};

// The usual base of a task: subclasses write run(), report with
// reportProgress, and look at isAbortRequested() often enough to stop soon
// after abort().
//
// A final status (completed, aborted, failed) is never left again. After
// run() returns, a task still running is completed, or aborted if abort() was
// called; run() may instead set kFailed itself. An exception escaping run()
// fails the task.
class ZO_API BackgroundTaskBase : public iBackgroundTask {
public:
  void execute() final;
  void abort() override;
  Zo::Ptr<Zo::Guard> addListener(Zo::Ptr<Listener> const& listener) override;
  eStatus getStatus() const override { return status_.load(std::memory_order_acquire); }
  void setStatus(eStatus status) override;
  float getProgress() const override { return progress_.load(std::memory_order_acquire); }
  void setCompletionEvent(Zo::Ptr<iExecutableAction> const& action) override;
  bool waitForCompletion(std::chrono::milliseconds timeout = kWaitForever) override;

  bool isAbortRequested() const noexcept { return abortRequested_.load(std::memory_order_acquire); }

protected:
  BackgroundTaskBase() = default;

  virtual void run() = 0;

  // Progress is clamped to [0, 1]; NaN counts as 0.
  void reportProgress(ProgressReportClient::ProgressSnapshot const& snapshot);
  void reportProgress(float progress, LightweightString<wchar_t> const& text = {});

private:
  bool isDone();
  void finish();

  // Held while an event is stored and delivered, so that listeners hear the
  // events in the order their changes were made. Re-entrant: a listener may
  // call abort().
  mutable CriticalSection reportLock_;
  GenericNotifier<Event> listeners_;
  ProgressReportClient::ProgressSnapshot snapshot_;
  std::atomic<eStatus> status_{kNotStarted};
  std::atomic<float> progress_{0.0f};
  std::atomic<bool> abortRequested_{false};

  std::mutex finishMutex_;
  std::condition_variable finished_;
  bool hasFinished_ = false;
  Zo::Ptr<iExecutableAction> completionAction_;
};

// The worker pool that runs background tasks: one worker per hardware thread
// (std::thread::hardware_concurrency, at least one). Tasks start in the order
// they were submitted.
class ZO_API BackgroundTaskQueue {
public:
  static BackgroundTaskQueue& instance();

  // Queues a task that has not started (its status becomes kQueued) and
  // returns true; a task queued, running or finished before is left alone.
  bool submit(Zo::Ptr<iBackgroundTask> const& task);
  unsigned workerCount() const noexcept { return workerCount_; }

private:
  struct Work;
  BackgroundTaskQueue();

  Work* work_;
  unsigned workerCount_;
};

// Runs whatever waits on the user-interface thread (the deferred work through
// which task listeners reach it, and due timers) without blocking. For loops
// that hold the user-interface thread. Returns how many items ran; does
// nothing on other threads.
ZO_API std::size_t glob_poll_background_tasks();
