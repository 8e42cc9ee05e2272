#include <zowidgets/host/base/Emoji.h>

#include <zowidgets/host/base/detail/EmojiTable.h>

#include <cstring>
#include <iterator>

static_assert(sizeof(wchar_t) == 4, "asWString and Character::text hold one code point per wchar_t");

namespace Emoji {

namespace {

EmojiTable::Group const* groupOf(eCategory category) {
  for (std::size_t i = 0; i < EmojiTable::kGroupCount; ++i)
    if (EmojiTable::kGroups[i].category == category)
      return &EmojiTable::kGroups[i];
  return nullptr;
}

// Every emoji as a Character, made on first use and kept, so that the lists
// handed out share their strings.
std::vector<Character> const& allCharacters() {
  static std::vector<Character> const characters = [] {
    std::vector<Character> list;
    list.reserve(EmojiTable::kEntryCount);
    for (std::size_t i = 0; i < EmojiTable::kEntryCount; ++i) {
      EmojiTable::Entry const& entry = EmojiTable::kEntries[i];
      LightweightString<wchar_t> text = LightweightString<wchar_t>::fromUTF8(entry.utf8);
      unsigned int const first = static_cast<unsigned int>(text[0]);
      list.push_back({std::move(text), entry.name, first});
    }
    return list;
  }();
  return characters;
}

bool isScalarValue(unsigned int codePoint) {
  return codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
}

} // namespace

bool operator==(Character const& a, Character const& b) noexcept {
  auto const nameOf = [](Character const& c) { return c.name ? c.name : ""; };
  return a.codePoint == b.codePoint && a.text == b.text && std::strcmp(nameOf(a), nameOf(b)) == 0;
}

std::vector<eCategory> getCategories() {
  std::vector<eCategory> categories;
  for (std::size_t i = 0; i < EmojiTable::kGroupCount; ++i)
    categories.push_back(EmojiTable::kGroups[i].category);
  return categories;
}

std::vector<Character> getEmojis(eCategory category) {
  EmojiTable::Group const* group = groupOf(category);
  if (!group)
    return {};
  auto const first = allCharacters().begin();
  return std::vector<Character>(std::next(first, std::ptrdiff_t(group->first)),
                                std::next(first, std::ptrdiff_t(group->end)));
}

unsigned int getRepresentative(eCategory category) {
  EmojiTable::Group const* group = groupOf(category);
  return group ? allCharacters()[group->first].codePoint : 0;
}

LightweightString<wchar_t> asWString(unsigned int codePoint) {
  if (codePoint == 0)
    return {};
  return LightweightString<wchar_t>(1, static_cast<wchar_t>(isScalarValue(codePoint) ? codePoint : 0xFFFD));
}

UIString getDisplayString(eCategory category) {
  EmojiTable::Group const* group = groupOf(category);
  if (!group)
    return {};
  return UIString(LightweightString<wchar_t>::fromUTF8(group->name));
}

} // namespace Emoji
