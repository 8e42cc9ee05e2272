#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <unordered_map>
#include <utility>

// A map of at most `capacity` entries that forgets the one used longest ago
// when a new one would not fit. Values are destroyed when they are
// forgotten, so they own whatever they hold. Not synchronised.
template <class Key, class Value, class Hash = std::hash<Key>> class LruCache {
public:
  explicit LruCache(std::size_t capacity) : capacity_(capacity > 0 ? capacity : 1) {}
  LruCache(LruCache const&) = delete;
  LruCache& operator=(LruCache const&) = delete;

  // The value kept for `key`, now the most recently used; null if none.
  Value* find(Key const& key) {
    auto found = index_.find(key);
    if (found == index_.end())
      return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return &found->second->second;
  }

  // Keeps `value` for `key` (replacing any kept before) as the most recently
  // used, forgetting the least recently used entry if the cache is full.
  Value& insert(Key const& key, Value value) {
    if (auto found = index_.find(key); found != index_.end()) {
      entries_.erase(found->second);
      index_.erase(found);
    }
    if (entries_.size() >= capacity_) {
      index_.erase(entries_.back().first);
      entries_.pop_back();
    }
    entries_.emplace_front(key, std::move(value));
    index_.emplace(key, entries_.begin());
    return entries_.front().second;
  }

  std::size_t size() const noexcept { return entries_.size(); }
  std::size_t capacity() const noexcept { return capacity_; }

  void clear() {
    index_.clear();
    entries_.clear();
  }

private:
  using Entry = std::pair<Key, Value>;

  std::size_t capacity_;
  std::list<Entry> entries_;
  std::unordered_map<Key, typename std::list<Entry>::iterator, Hash> index_;
};
