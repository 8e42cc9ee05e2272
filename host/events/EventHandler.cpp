#include <zowidgets/host/events/EventHandler.h>

#include <mutex>
#include <unordered_map>

namespace {

struct Registry {
  std::mutex mutex;
  std::unordered_map<EventHandler const*, IdStamp> live;
};

Registry& registry() {
  static Registry* instance = new Registry; // outlives every static handler
  return *instance;
}

void enrol(EventHandler const* handler, IdStamp const& stamp) {
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  r.live[handler] = stamp;
}

} // namespace

EventHandler::EventHandler() { enrol(this, stamp_); }

EventHandler::EventHandler(EventHandler const&) : EventHandler() {}

EventHandler::~EventHandler() {
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  r.live.erase(this);
}

int EventHandler::handleEvent(Event const&) { return 0; }

bool EventHandler::valid(EventHandler const* handler, IdStamp const& stamp) {
  if (!handler)
    return false;
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  auto found = r.live.find(handler);
  return found != r.live.end() && found->second == stamp;
}

IdStamp EventHandler::stampOf(EventHandler const* handler) {
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  auto found = r.live.find(handler);
  return found != r.live.end() ? found->second : IdStamp::null();
}
