#include <zowidgets/host/toolkit/BackgroundTask.h>

#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/events/MessageQueue.h>

#include <cmath>
#include <deque>
#include <exception>
#include <thread>

namespace {

// Keeps the task alive while a subscription to it lasts, so that dropping
// the guard never reaches a dead notifier.
class TaskListenerGuard : public Zo::Guard {
public:
  TaskListenerGuard(Zo::Ptr<iBackgroundTask> task, Zo::Ptr<Zo::Guard> subscription)
      : task_(std::move(task)), subscription_(std::move(subscription)) {}

private:
  Zo::Ptr<iBackgroundTask> task_; // released last
  Zo::Ptr<Zo::Guard> subscription_;
};

int anyEventType() { return NotifyMsgTypeDictionary::instance().anyType(); }

float clampedProgress(float progress) {
  if (std::isnan(progress) || progress < 0.0f)
    return 0.0f;
  return progress > 1.0f ? 1.0f : progress;
}

// A wait this long has no end in practice, and adding it to a clock overflows.
bool endless(std::chrono::milliseconds timeout) {
  return timeout >= std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::years(100));
}

} // namespace

void BackgroundTaskBase::execute() {
  {
    std::lock_guard report(reportLock_);
    eStatus status = getStatus();
    if (status != kNotStarted && status != kQueued)
      return; // aborted before it started, or run already
    setStatus(kRunning);
  }
  try {
    run();
  } catch (std::exception const& error) {
    LogBoth(std::string("background task failed: ") + error.what());
    setStatus(kFailed);
  } catch (...) {
    LogBoth("background task failed");
    setStatus(kFailed);
  }
  std::lock_guard report(reportLock_);
  if (getStatus() == kRunning)
    setStatus(isAbortRequested() ? kAborted : kCompleted);
}

void BackgroundTaskBase::abort() {
  abortRequested_.store(true, std::memory_order_release);
  std::lock_guard report(reportLock_);
  eStatus status = getStatus();
  if (status == kNotStarted || status == kQueued)
    setStatus(kAborted);
}

Zo::Ptr<Zo::Guard> BackgroundTaskBase::addListener(Zo::Ptr<Listener> const& listener) {
  if (!listener)
    return {};
  Zo::Ptr<Zo::Guard> subscription = listeners_.addListener(listener, anyEventType());
  return Zo::Ptr<Zo::Guard>(new TaskListenerGuard(Zo::Ptr<iBackgroundTask>(this), subscription));
}

void BackgroundTaskBase::setStatus(eStatus status) {
  std::lock_guard report(reportLock_);
  eStatus const old = getStatus();
  if (status == old || isFinal(old))
    return;
  status_.store(status, std::memory_order_release);
  listeners_.issueNotification(Event{kStatusChanged, snapshot_, status}, anyEventType());
  if (isFinal(status))
    finish();
}

void BackgroundTaskBase::reportProgress(ProgressReportClient::ProgressSnapshot const& snapshot) {
  std::lock_guard report(reportLock_);
  snapshot_ = snapshot;
  snapshot_.progress = clampedProgress(snapshot.progress);
  progress_.store(snapshot_.progress, std::memory_order_release);
  listeners_.issueNotification(Event{kProgressChanged, snapshot_, getStatus()}, anyEventType());
}

void BackgroundTaskBase::reportProgress(float progress, LightweightString<wchar_t> const& text) {
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = progress;
  snapshot.text = text;
  reportProgress(snapshot);
}

void BackgroundTaskBase::setCompletionEvent(Zo::Ptr<iExecutableAction> const& action) {
  {
    std::lock_guard lock(finishMutex_);
    if (!hasFinished_) {
      completionAction_ = action;
      return;
    }
  }
  defer(action);
}

bool BackgroundTaskBase::waitForCompletion(std::chrono::milliseconds timeout) {
  if (co_pid() == 0)
    return MessageLoop::runUntil([this] { return isDone(); }, timeout);
  std::unique_lock lock(finishMutex_);
  if (endless(timeout)) {
    finished_.wait(lock, [this] { return hasFinished_; });
    return true;
  }
  return finished_.wait_for(lock, timeout, [this] { return hasFinished_; });
}

bool BackgroundTaskBase::isDone() {
  std::lock_guard lock(finishMutex_);
  return hasFinished_;
}

void BackgroundTaskBase::finish() {
  Zo::Ptr<iExecutableAction> action;
  {
    std::lock_guard lock(finishMutex_);
    hasFinished_ = true;
    action = std::move(completionAction_);
  }
  finished_.notify_all();
  MessageLoop::wake(); // a user-interface thread waiting in waitForCompletion
  defer(action);
}

struct BackgroundTaskQueue::Work {
  std::mutex mutex;
  std::condition_variable posted;
  std::deque<Zo::Ptr<iBackgroundTask>> tasks;

  void serve() {
    for (;;) {
      Zo::Ptr<iBackgroundTask> task;
      {
        std::unique_lock lock(mutex);
        posted.wait(lock, [this] { return !tasks.empty(); });
        task = std::move(tasks.front());
        tasks.pop_front();
      }
      task->execute();
    }
  }
};

BackgroundTaskQueue& BackgroundTaskQueue::instance() {
  // Never destroyed: its workers run until the process ends.
  static BackgroundTaskQueue* queue = new BackgroundTaskQueue;
  return *queue;
}

BackgroundTaskQueue::BackgroundTaskQueue()
    : work_(new Work), workerCount_(std::thread::hardware_concurrency() > 0 ? std::thread::hardware_concurrency() : 1) {
  for (unsigned i = 0; i < workerCount_; ++i)
    std::thread([work = work_] { work->serve(); }).detach();
}

bool BackgroundTaskQueue::submit(Zo::Ptr<iBackgroundTask> const& task) {
  if (!task || task->getStatus() != iBackgroundTask::kNotStarted)
    return false;
  task->setStatus(iBackgroundTask::kQueued);
  {
    std::lock_guard lock(work_->mutex);
    work_->tasks.push_back(task);
  }
  work_->posted.notify_one();
  return true;
}

std::size_t glob_poll_background_tasks() { return MessageLoop::runPending(); }
