#include <zowidgets/host/events/MessageQueue.h>

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/Timer.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>

namespace {

using Action = std::function<void()>;

struct Item {
  std::shared_ptr<Action> action; // shared with the unique-key index
  std::string uniqueKey;          // empty for plain defers
};

struct Queue {
  std::mutex mutex;
  std::condition_variable posted;
  std::deque<Item> items;
  std::unordered_map<std::string, std::shared_ptr<Action>> waitingByKey;
  std::thread::id uiThread = std::this_thread::get_id();
  // Counts wake() calls, so a wake between a check and the wait is not lost.
  std::uint64_t wakeups = 0;
};

Queue& queue() {
  static Queue* instance = new Queue; // used by static destructors of clients
  return *instance;
}

// Loading the library fixes the user-interface thread to the loading thread.
[[maybe_unused]] Queue& loadTimeQueue = queue();

std::atomic<int> nextTaskId{1};

void post(Item item) {
  Queue& q = queue();
  {
    std::lock_guard lock(q.mutex);
    q.items.push_back(std::move(item));
  }
  q.posted.notify_all();
}

bool onUIThread() {
  Queue& q = queue();
  std::lock_guard lock(q.mutex);
  return q.uiThread == std::this_thread::get_id();
}

// Takes the front item, releasing its key so that the action may queue itself
// again while it runs.
bool takeFront(Queue& q, Action& out) {
  std::lock_guard lock(q.mutex);
  if (q.items.empty())
    return false;
  Item item = std::move(q.items.front());
  q.items.pop_front();
  if (!item.uniqueKey.empty())
    q.waitingByKey.erase(item.uniqueKey);
  out = std::move(*item.action);
  return true;
}

} // namespace

int co_pid() {
  if (onUIThread())
    return 0;
  thread_local int id = nextTaskId.fetch_add(1, std::memory_order_relaxed);
  return id;
}

void sendMessageWithData(LightweightString<char> const& name, EventHandler* handler, Zo::Ptr<iObject> const& data,
                         iObject* sender) {
  IdStamp stamp = EventHandler::stampOf(handler);
  if (!stamp.valid())
    return;
  defer([name, handler, stamp, data, sender] {
    if (!EventHandler::valid(handler, stamp))
      return;
    Event event;
    event.type = Event::kMessageEvent;
    event.message = name;
    event.data = data;
    event.sender = sender;
    handler->handleEvent(event);
  });
}

void defer(Zo::Ptr<iExecutableAction> const& action, Canvas* canvas) {
  if (action)
    defer([action] { action->execute(); }, canvas);
}

void defer(std::function<void()> const& action, Canvas*) {
  if (action)
    post(Item{std::make_shared<Action>(action), {}});
}

bool deferUnique(std::function<void()> const& action, LightweightString<char> const& key, Canvas* canvas) {
  if (!action)
    return false;
  if (key.empty()) {
    defer(action, canvas);
    return true;
  }
  Queue& q = queue();
  {
    std::lock_guard lock(q.mutex);
    auto waiting = q.waitingByKey.find(key.str());
    if (waiting != q.waitingByKey.end()) {
      *waiting->second = action;
      return false;
    }
    auto shared = std::make_shared<Action>(action);
    q.waitingByKey.emplace(key.str(), shared);
    q.items.push_back(Item{shared, key.str()});
  }
  q.posted.notify_all();
  return true;
}

std::size_t MessageLoop::runPending() {
  if (!onUIThread())
    return 0;
  Queue& q = queue();
  std::size_t due;
  {
    std::lock_guard lock(q.mutex);
    due = q.items.size();
  }
  std::size_t ran = 0;
  Action action;
  while (ran < due && takeFront(q, action)) {
    action();
    ++ran;
  }
  return ran + Timer::fireDue();
}

namespace {

std::uint64_t wakeupsSoFar(Queue& q) {
  std::lock_guard lock(q.mutex);
  return q.wakeups;
}

// When the next timer falls due, in steady-clock time, if before `limit`.
std::chrono::steady_clock::time_point nextWake(std::chrono::steady_clock::time_point limit) {
  auto deadline = Timer::nextDeadline();
  if (!deadline)
    return limit;
  auto wait = std::chrono::duration<double, std::milli>(std::max(*deadline - msecsNow(), 0.0));
  auto now = std::chrono::steady_clock::now();
  if (wait >= limit - now)
    return limit;
  return now + std::chrono::ceil<std::chrono::steady_clock::duration>(wait);
}

// A timeout too long to add to the present time means no timeout at all.
std::chrono::steady_clock::time_point deadlineAfter(std::chrono::milliseconds timeout) {
  auto const now = std::chrono::steady_clock::now();
  auto const room =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::time_point::max() - now);
  return timeout >= room ? std::chrono::steady_clock::time_point::max() : now + timeout;
}

} // namespace

bool MessageLoop::runUntil(std::function<bool()> const& done, std::chrono::milliseconds timeout) {
  if (!onUIThread())
    return done();
  auto const deadline = deadlineAfter(timeout);
  Queue& q = queue();
  for (;;) {
    std::uint64_t const seen = wakeupsSoFar(q);
    runPending();
    if (done())
      return true;
    auto const wakeAt = nextWake(deadline);
    auto const woken = [&] { return !q.items.empty() || q.wakeups != seen; };
    std::unique_lock lock(q.mutex);
    if (wakeAt == std::chrono::steady_clock::time_point::max())
      q.posted.wait(lock, woken);
    else
      q.posted.wait_until(lock, wakeAt, woken);
    if (q.items.empty() && std::chrono::steady_clock::now() >= deadline) {
      lock.unlock();
      return done();
    }
  }
}

std::size_t MessageLoop::pendingCount() {
  Queue& q = queue();
  std::lock_guard lock(q.mutex);
  return q.items.size();
}

void MessageLoop::adoptCurrentThread() {
  Queue& q = queue();
  std::lock_guard lock(q.mutex);
  q.uiThread = std::this_thread::get_id();
}

void MessageLoop::wake() {
  Queue& q = queue();
  {
    std::lock_guard lock(q.mutex);
    ++q.wakeups;
  }
  q.posted.notify_all();
}
