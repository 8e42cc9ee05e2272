#include <zowidgets/host/events/Timer.h>

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/events/MessageQueue.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace {

struct Entry {
  double deadline;
  double interval; // 0 for a one-shot timer
  std::shared_ptr<Timer::Callback> callback;
};

struct Registry {
  std::mutex mutex;
  std::map<std::uint64_t, Entry> timers;
  std::uint64_t nextId = 1;
};

Registry& registry() {
  static Registry* instance = new Registry; // timers may end in static destructors
  return *instance;
}

// The first deadline of the series after `now`, so a late loop skips ticks.
double nextDeadlineAfter(double deadline, double interval, double now) {
  double missed = std::floor((now - deadline) / interval);
  return deadline + (missed + 1.0) * interval;
}

} // namespace

Timer::Timer(Timer&& other) noexcept : id_(std::exchange(other.id_, 0)) {}

Timer& Timer::operator=(Timer&& other) noexcept {
  if (this != &other) {
    cancel();
    id_ = std::exchange(other.id_, 0);
  }
  return *this;
}

Timer::~Timer() { cancel(); }

Timer Timer::repeating(double intervalMs, Callback callback) {
  double interval = std::max(intervalMs, 1.0);
  Registry& r = registry();
  std::uint64_t id;
  {
    std::lock_guard lock(r.mutex);
    id = r.nextId++;
    r.timers.emplace(id, Entry{msecsNow() + interval, interval, std::make_shared<Callback>(std::move(callback))});
  }
  MessageLoop::wake(); // a loop asleep until a later deadline must see this one
  return Timer(id);
}

Timer Timer::oneShot(double delayMs, Callback callback) {
  Registry& r = registry();
  std::uint64_t id;
  {
    std::lock_guard lock(r.mutex);
    id = r.nextId++;
    r.timers.emplace(id,
                     Entry{msecsNow() + std::max(delayMs, 0.0), 0.0, std::make_shared<Callback>(std::move(callback))});
  }
  MessageLoop::wake();
  return Timer(id);
}

void Timer::cancel() noexcept {
  if (id_ == 0)
    return;
  std::shared_ptr<Callback> doomed; // destroyed outside the lock: it may cancel others
  Registry& r = registry();
  {
    std::lock_guard lock(r.mutex);
    auto found = r.timers.find(id_);
    if (found != r.timers.end()) {
      doomed = std::move(found->second.callback);
      r.timers.erase(found);
    }
  }
  id_ = 0;
}

bool Timer::isActive() const {
  if (id_ == 0)
    return false;
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  return r.timers.contains(id_);
}

std::size_t Timer::fireDue() {
  if (co_pid() != 0)
    return 0;
  Registry& r = registry();
  double const now = msecsNow();
  std::vector<std::pair<double, std::uint64_t>> due;
  {
    std::lock_guard lock(r.mutex);
    for (auto const& [id, entry] : r.timers)
      if (entry.deadline <= now)
        due.emplace_back(entry.deadline, id);
  }
  std::sort(due.begin(), due.end());
  std::size_t fired = 0;
  for (auto const& [deadline, id] : due) {
    std::shared_ptr<Callback> callback;
    {
      std::lock_guard lock(r.mutex);
      auto found = r.timers.find(id);
      if (found == r.timers.end())
        continue; // cancelled by an earlier callback of this pass
      Entry& entry = found->second;
      callback = entry.callback;
      if (entry.interval > 0.0)
        entry.deadline = nextDeadlineAfter(deadline, entry.interval, now);
      else
        r.timers.erase(found);
    }
    (*callback)();
    ++fired;
  }
  return fired;
}

std::optional<double> Timer::nextDeadline() {
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  std::optional<double> earliest;
  for (auto const& [id, entry] : r.timers)
    if (!earliest || entry.deadline < *earliest)
      earliest = entry.deadline;
  return earliest;
}

namespace {

struct Interested {
  EventHandler* handler;
  IdStamp stamp;
};

struct Ticks {
  std::mutex mutex;
  std::vector<Interested> handlers;
  Timer timer;
};

Ticks& ticks() {
  static Ticks* instance = new Ticks; // widgets may drop interest in static destructors
  return *instance;
}

auto findHandler(std::vector<Interested>& handlers, EventHandler const* handler) {
  return std::find_if(handlers.begin(), handlers.end(), [&](Interested const& i) { return i.handler == handler; });
}

// Still interested, and the same handler rather than a new one at its address.
bool stillInterested(Interested const& candidate) {
  Ticks& t = ticks();
  std::lock_guard lock(t.mutex);
  auto found = findHandler(t.handlers, candidate.handler);
  return found != t.handlers.end() && found->stamp == candidate.stamp;
}

void tick() {
  Ticks& t = ticks();
  std::vector<Interested> snapshot;
  {
    std::lock_guard lock(t.mutex);
    snapshot = t.handlers;
  }
  Event event;
  event.type = Event::kTimer;
  for (Interested const& candidate : snapshot) {
    if (!stillInterested(candidate))
      continue;
    if (EventHandler::valid(candidate.handler, candidate.stamp))
      candidate.handler->handleEvent(event);
    else
      TimerTicks::removeInterest(candidate.handler);
  }
}

} // namespace

void TimerTicks::addInterest(EventHandler* handler) {
  IdStamp stamp = EventHandler::stampOf(handler);
  if (!stamp.valid())
    return;
  Ticks& t = ticks();
  std::lock_guard lock(t.mutex);
  auto found = findHandler(t.handlers, handler);
  if (found != t.handlers.end())
    found->stamp = stamp; // a new handler where a dead one was
  else
    t.handlers.push_back(Interested{handler, stamp});
  if (!t.timer.isActive())
    t.timer = Timer::repeating(kIntervalMs, tick);
}

void TimerTicks::removeInterest(EventHandler const* handler) {
  Timer stopped; // cancelled outside the lock
  Ticks& t = ticks();
  std::lock_guard lock(t.mutex);
  auto found = findHandler(t.handlers, handler);
  if (found == t.handlers.end())
    return;
  t.handlers.erase(found);
  if (t.handlers.empty())
    stopped = std::move(t.timer);
}

bool TimerTicks::hasInterest(EventHandler const* handler) {
  Ticks& t = ticks();
  std::lock_guard lock(t.mutex);
  return findHandler(t.handlers, handler) != t.handlers.end();
}
