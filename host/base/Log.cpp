#include <zowidgets/host/base/Log.h>

#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

namespace {

struct Sinks {
  std::mutex lock;
  int nextId = 1;
  std::vector<std::pair<int, LogSink>> list;
};

Sinks& sinks() {
  static Sinks instance;
  return instance;
}

} // namespace

void LogBoth(std::string_view line) {
  Sinks& all = sinks();
  // One writer at a time, so lines never interleave in either place.
  std::lock_guard<std::mutex> hold(all.lock);
  std::fprintf(stderr, "zowidgets: %.*s\n", static_cast<int>(line.size()), line.data());
  for (auto const& [id, sink] : all.list)
    sink(line);
}

int addLogSink(LogSink sink) {
  Sinks& all = sinks();
  std::lock_guard<std::mutex> hold(all.lock);
  int const id = all.nextId++;
  all.list.emplace_back(id, std::move(sink));
  return id;
}

void removeLogSink(int id) {
  Sinks& all = sinks();
  std::lock_guard<std::mutex> hold(all.lock);
  std::erase_if(all.list, [id](auto const& entry) { return entry.first == id; });
}
