// The shared picture cache: a small pool of decoding threads in front of a
// least-recently-used store. Everything shared sits under one mutex; decoding
// runs outside it.
#include <zowidgets/host/drawing/ImageCache.h>
#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/events/MessageQueue.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <list>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace ZoImage {

namespace {

struct Key {
  std::wstring path;
  int width;
  int height;
  friend auto operator<=>(Key const&, Key const&) = default;
};

Key keyOf(LightweightString<wchar_t> const& path, XY<int> fitWithin) {
  return Key{path.str(), std::max(fitWithin.x, 0), std::max(fitWithin.y, 0)};
}

struct Asker {
  EventHandler* handler;
  IdStamp stamp;
};

std::size_t bytesOf(Zo::Image::Surface const& picture) {
  return std::size_t(picture.stride()) * std::size_t(picture.height());
}

void deliver(Asker const& asker, Zo::Ptr<ImageLoadInfo> const& info) {
  defer([asker, info] {
    if (!EventHandler::valid(asker.handler, asker.stamp))
      return;
    Event event;
    event.type = Event::kMessageEvent;
    event.message = Cache::kImageLoadedMsg;
    event.data = info;
    asker.handler->handleEvent(event);
  });
}

// Two workers keep the user-interface thread's core free on small machines
// while still overlapping file reads with decoding.
unsigned int workerCount() { return std::clamp(std::thread::hardware_concurrency(), 1u, 2u); }

} // namespace

struct Cache::State {
  struct Entry {
    Zo::Image::Surface picture;
    std::list<Key>::iterator recency;
  };
  struct Job {
    Key key;
    LightweightString<wchar_t> path;
    XY<int> fitWithin;
  };

  mutable std::mutex mutex;
  std::condition_variable work;
  std::map<Key, Entry> entries;
  std::list<Key> recency; // most recently used first
  std::map<Key, std::vector<Asker>> waiting;
  std::deque<Job> jobs;
  std::vector<std::thread> workers;
  std::size_t ceiling = kDefaultMemoryCeiling;
  std::size_t inUse = 0;
  std::size_t decodes = 0;
  std::size_t running = 0;
  bool stopping = false;

  void touch(Entry& entry) { recency.splice(recency.begin(), recency, entry.recency); }

  void erase(std::map<Key, Entry>::iterator at) {
    inUse -= bytesOf(at->second.picture);
    recency.erase(at->second.recency);
    entries.erase(at);
  }

  void evictDownTo(std::size_t limit) {
    while (inUse > limit && !recency.empty())
      erase(entries.find(recency.back()));
  }

  void keep(Key const& key, Zo::Image::Surface const& picture) {
    std::size_t const bytes = bytesOf(picture);
    if (picture.empty() || bytes > ceiling || entries.contains(key))
      return;
    evictDownTo(ceiling - bytes);
    recency.push_front(key);
    entries.emplace(key, Entry{picture, recency.begin()});
    inUse += bytes;
  }

  void runWorker() {
    std::unique_lock lock(mutex);
    for (;;) {
      work.wait(lock, [this] { return stopping || !jobs.empty(); });
      if (stopping)
        return;
      Job job = std::move(jobs.front());
      jobs.pop_front();
      ++decodes;
      ++running;
      lock.unlock();
      Zo::Image::Surface const picture = Loader::loadImage(job.path, job.fitWithin);
      auto const info = Zo::make<ImageLoadInfo>(job.path, job.fitWithin, picture);
      lock.lock();
      keep(job.key, picture);
      std::vector<Asker> const askers = std::move(waiting[job.key]);
      waiting.erase(job.key);
      --running;
      for (Asker const& asker : askers)
        deliver(asker, info);
    }
  }
};

Cache& Cache::instance() {
  static Cache cache;
  return cache;
}

Cache::Cache() : state_(std::make_unique<State>()) {}

Cache::~Cache() {
  {
    std::lock_guard lock(state_->mutex);
    state_->stopping = true;
  }
  state_->work.notify_all();
  for (std::thread& worker : state_->workers)
    worker.join();
}

bool Cache::isCached(LightweightString<wchar_t> const& path, XY<int> fitWithin) const {
  std::lock_guard lock(state_->mutex);
  return state_->entries.contains(keyOf(path, fitWithin));
}

Zo::Image::Surface Cache::retrieve(LightweightString<wchar_t> const& path, XY<int> fitWithin) {
  std::lock_guard lock(state_->mutex);
  auto const found = state_->entries.find(keyOf(path, fitWithin));
  if (found == state_->entries.end())
    return {};
  state_->touch(found->second);
  return found->second.picture;
}

void Cache::loadAsync(LightweightString<wchar_t> const& path, EventHandler* handler, XY<int> fitWithin) {
  Asker const asker{handler, EventHandler::stampOf(handler)};
  if (!asker.stamp.valid())
    return;
  Key key = keyOf(path, fitWithin);
  std::lock_guard lock(state_->mutex);
  if (auto const found = state_->entries.find(key); found != state_->entries.end()) {
    state_->touch(found->second);
    deliver(asker, Zo::make<ImageLoadInfo>(path, fitWithin, found->second.picture));
    return;
  }
  auto& askers = state_->waiting[key];
  askers.push_back(asker);
  if (askers.size() > 1)
    return;
  state_->jobs.push_back(State::Job{std::move(key), path, fitWithin});
  if (state_->workers.empty()) {
    for (unsigned int i = 0; i < workerCount(); ++i)
      state_->workers.emplace_back([state = state_.get()] { state->runWorker(); });
  }
  state_->work.notify_one();
}

void Cache::setMemoryCeiling(std::size_t bytes) {
  std::lock_guard lock(state_->mutex);
  state_->ceiling = bytes;
  state_->evictDownTo(bytes);
}

std::size_t Cache::memoryCeiling() const {
  std::lock_guard lock(state_->mutex);
  return state_->ceiling;
}

std::size_t Cache::memoryInUse() const {
  std::lock_guard lock(state_->mutex);
  return state_->inUse;
}

std::size_t Cache::cachedCount() const {
  std::lock_guard lock(state_->mutex);
  return state_->entries.size();
}

std::size_t Cache::decodeCount() const {
  std::lock_guard lock(state_->mutex);
  return state_->decodes;
}

bool Cache::idle() const {
  std::lock_guard lock(state_->mutex);
  return state_->jobs.empty() && state_->running == 0;
}

void Cache::clear() {
  std::lock_guard lock(state_->mutex);
  state_->entries.clear();
  state_->recency.clear();
  state_->inUse = 0;
  state_->decodes = 0;
  state_->ceiling = kDefaultMemoryCeiling;
}

} // namespace ZoImage
