#pragma once

#include <zowidgets/host/base/Emoji.h>

#include <cstddef>

// The emoji table, generated when the library is built from Unicode's emoji
// test data by tools/emoji/generate_emoji_table (cmake/deps/emoji.cmake).
namespace EmojiTable {

struct Entry {
  char const* utf8; // the sequence
  char const* name;
};

// A group's emoji are kEntries[first] to kEntries[end - 1].
struct Group {
  Emoji::eCategory category;
  char const* name;
  std::size_t first;
  std::size_t end;
};

// In Unicode's order.
extern Group const kGroups[];
extern std::size_t const kGroupCount;
extern Entry const kEntries[];
extern std::size_t const kEntryCount;

} // namespace EmojiTable
