#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>

#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace {
struct Table {
  std::mutex mutex;
  std::unordered_map<std::string, int> numbers;
  std::vector<std::string> names{""}; // index 0 is the any-type
};
Table& table() {
  static Table instance;
  return instance;
}
} // namespace

NotifyMsgTypeDictionary& NotifyMsgTypeDictionary::instance() {
  static NotifyMsgTypeDictionary dictionary;
  return dictionary;
}

int NotifyMsgTypeDictionary::lookup(std::string_view name) {
  if (name.empty())
    return kAnyType;
  Table& t = table();
  std::lock_guard lock(t.mutex);
  auto [entry, added] = t.numbers.try_emplace(std::string(name), static_cast<int>(t.names.size()));
  if (added)
    t.names.emplace_back(name);
  return entry->second;
}

LightweightString<char> NotifyMsgTypeDictionary::nameOf(int type) const {
  Table& t = table();
  std::lock_guard lock(t.mutex);
  if (type < 0 || static_cast<std::size_t>(type) >= t.names.size())
    return {};
  return LightweightString<char>(t.names[static_cast<std::size_t>(type)]);
}
