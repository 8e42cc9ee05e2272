#include <zowidgets/host/base/Emoji.h>
#include <zowidgets/host/base/TextSearch.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Emoji::eCategory;

// Unicode's file read here by a plain scan of its own, to hold the table to:
// each group heading, and under it each line whose status is
// fully-qualified, as "code points ; status # emoji version name".
struct FileEmoji {
  std::wstring text;
  std::string name;
};

struct FileGroup {
  std::string name;
  std::vector<FileEmoji> emoji;
};

std::string trimmed(std::string text) {
  auto const blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!text.empty() && blank(text.back()))
    text.pop_back();
  while (!text.empty() && blank(text.front()))
    text.erase(text.begin());
  return text;
}

std::vector<FileGroup> readUnicodeFile() {
  std::vector<FileGroup> groups;
  std::ifstream file(ZO_EMOJI_TEST_FILE);
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("# group:", 0) == 0) {
      groups.push_back({trimmed(line.substr(8)), {}});
      continue;
    }
    std::size_t const semicolon = line.find(';');
    std::size_t const hash = line.find('#');
    if (line.empty() || line[0] == '#' || semicolon == std::string::npos || hash < semicolon)
      continue;
    if (trimmed(line.substr(semicolon + 1, hash - semicolon - 1)) != "fully-qualified")
      continue;
    FileEmoji emoji;
    std::istringstream codes(line.substr(0, semicolon));
    for (std::string code; codes >> code;)
      emoji.text += static_cast<wchar_t>(std::stoul(code, nullptr, 16));
    std::istringstream comment(line.substr(hash + 1));
    std::string glyph, version;
    comment >> glyph >> version;
    std::getline(comment, emoji.name);
    emoji.name = trimmed(emoji.name);
    groups.back().emoji.push_back(emoji);
  }
  std::erase_if(groups, [](FileGroup const& group) { return group.emoji.empty(); });
  return groups;
}

std::vector<FileGroup> const& unicodeFile() {
  static std::vector<FileGroup> const groups = readUnicodeFile();
  return groups;
}

std::string displayName(eCategory category) { return toNarrow(Emoji::getDisplayString(category).getString()); }

std::vector<Emoji::Character> everyEmoji() {
  std::vector<Emoji::Character> all;
  for (eCategory category : Emoji::getCategories()) {
    std::vector<Emoji::Character> const emoji = Emoji::getEmojis(category);
    all.insert(all.end(), emoji.begin(), emoji.end());
  }
  return all;
}

Emoji::Character const* findByName(std::vector<Emoji::Character> const& list, std::string const& name) {
  auto const found = std::find_if(list.begin(), list.end(), [&](auto const& c) { return name == c.name; });
  return found == list.end() ? nullptr : &*found;
}

// The names that TextSearch accepts, as the emoji panel searches them:
// converted from UTF-8 and matched with the given flags.
std::set<std::string> namesMatching(TextSearch::Criteria const& criteria, int flags) {
  std::set<std::string> names;
  for (Emoji::Character const& emoji : everyEmoji())
    if (TextSearch::match(LightweightString<wchar_t>::fromUTF8(emoji.name), criteria, flags))
      names.insert(emoji.name);
  return names;
}

} // namespace

TEST(Emoji, TheTableHoldsEveryFullyQualifiedLineOfUnicodesFile) {
  std::size_t lines = 0;
  for (FileGroup const& group : unicodeFile())
    lines += group.emoji.size();
  ASSERT_GT(lines, 0u) << "no fully-qualified lines read from " << ZO_EMOJI_TEST_FILE;
  EXPECT_EQ(everyEmoji().size(), lines);
}

TEST(Emoji, CategoriesFollowUnicodesGroupOrderWithoutComponent) {
  std::vector<eCategory> const categories = Emoji::getCategories();
  ASSERT_EQ(categories.size(), unicodeFile().size());
  for (std::size_t i = 0; i < categories.size(); ++i)
    EXPECT_EQ(displayName(categories[i]), unicodeFile()[i].name) << i;
  std::vector<eCategory> const expected = {Emoji::kSmileysAndEmotion, Emoji::kPeopleAndBody,   Emoji::kAnimalsAndNature,
                                           Emoji::kFoodAndDrink,      Emoji::kTravelAndPlaces, Emoji::kActivities,
                                           Emoji::kObjects,           Emoji::kSymbols,         Emoji::kFlags};
  EXPECT_EQ(categories, expected);
  for (eCategory category : categories)
    EXPECT_NE(displayName(category), "Component");
}

TEST(Emoji, EachCategoryHoldsItsGroupInUnicodesOrderWithNames) {
  std::vector<eCategory> const categories = Emoji::getCategories();
  ASSERT_EQ(categories.size(), unicodeFile().size());
  for (std::size_t i = 0; i < categories.size(); ++i) {
    std::vector<Emoji::Character> const emoji = Emoji::getEmojis(categories[i]);
    std::vector<FileEmoji> const& expected = unicodeFile()[i].emoji;
    ASSERT_EQ(emoji.size(), expected.size()) << unicodeFile()[i].name;
    for (std::size_t k = 0; k < emoji.size(); ++k) {
      ASSERT_EQ(emoji[k].text.str(), expected[k].text) << expected[k].name;
      ASSERT_STREQ(emoji[k].name, expected[k].name.c_str());
      ASSERT_EQ(emoji[k].codePoint, static_cast<unsigned int>(expected[k].text[0])) << expected[k].name;
    }
  }
}

TEST(Emoji, ARepresentativeIsTheFirstCodePointOfTheFirstEmoji) {
  for (eCategory category : Emoji::getCategories()) {
    std::vector<Emoji::Character> const emoji = Emoji::getEmojis(category);
    ASSERT_FALSE(emoji.empty()) << displayName(category);
    EXPECT_EQ(Emoji::getRepresentative(category), emoji.front().codePoint) << displayName(category);
    EXPECT_EQ(Emoji::getRepresentative(category), static_cast<unsigned int>(emoji.front().text[0]));
  }
  // Unicode's first emoji, the grinning face, stands for the smileys.
  EXPECT_EQ(Emoji::getRepresentative(Emoji::kSmileysAndEmotion), 0x1F600u);
}

TEST(Emoji, FlagsKeycapsSkinTonesAndJoinedSequencesAreWhole) {
  std::vector<Emoji::Character> const flags = Emoji::getEmojis(Emoji::kFlags);
  Emoji::Character const* france = findByName(flags, "flag: France");
  ASSERT_NE(france, nullptr);
  EXPECT_EQ(france->text, L"\U0001F1EB\U0001F1F7");
  EXPECT_EQ(france->codePoint, 0x1F1EBu);
  Emoji::Character const* wales = findByName(flags, "flag: Wales");
  ASSERT_NE(wales, nullptr);
  EXPECT_EQ(wales->text, L"\U0001F3F4\U000E0067\U000E0062\U000E0077\U000E006C\U000E0073\U000E007F");
  // Names keep their letters beyond ASCII.
  EXPECT_NE(findByName(flags, "flag: C\u00f4te d\u2019Ivoire"), nullptr);

  std::vector<Emoji::Character> const people = Emoji::getEmojis(Emoji::kPeopleAndBody);
  Emoji::Character const* family = findByName(people, "family: man, woman, girl, boy");
  ASSERT_NE(family, nullptr);
  EXPECT_EQ(family->text, L"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466");
  Emoji::Character const* wave = findByName(people, "waving hand: medium skin tone");
  ASSERT_NE(wave, nullptr);
  EXPECT_EQ(wave->text, L"\U0001F44B\U0001F3FD");

  std::vector<Emoji::Character> const symbols = Emoji::getEmojis(Emoji::kSymbols);
  Emoji::Character const* keycap = findByName(symbols, "keycap: #");
  ASSERT_NE(keycap, nullptr);
  EXPECT_EQ(keycap->text, L"#\uFE0F\u20E3");
  EXPECT_EQ(keycap->codePoint, unsigned('#'));
}

TEST(Emoji, NamesStayPutAndListsCompareEqual) {
  std::vector<Emoji::Character> const first = Emoji::getEmojis(Emoji::kAnimalsAndNature);
  std::vector<Emoji::Character> const again = Emoji::getEmojis(Emoji::kAnimalsAndNature);
  ASSERT_EQ(first, again);
  EXPECT_EQ(first.front().name, again.front().name);
  EXPECT_FALSE(first[0] == first[1]);
  Emoji::Character copy = first[0];
  copy.name = "another name";
  EXPECT_FALSE(copy == first[0]);
}

TEST(Emoji, AsWStringHoldsASupplementaryCodePointWhole) {
  LightweightString<wchar_t> const face = Emoji::asWString(0x1F600);
  ASSERT_EQ(face.size(), 1u);
  EXPECT_EQ(static_cast<unsigned int>(face[0]), 0x1F600u);
  EXPECT_EQ(face.toUTF8(), "\xF0\x9F\x98\x80");
  EXPECT_EQ(LightweightString<wchar_t>::fromUTF8(face.toUTF8().view()), face);
  for (unsigned int codePoint : {0x41u, 0x2764u, 0xFFFFu, 0x10000u, 0x1F9D1u, 0xE007Fu, 0x10FFFFu}) {
    LightweightString<wchar_t> const text = Emoji::asWString(codePoint);
    ASSERT_EQ(text.size(), 1u) << codePoint;
    EXPECT_EQ(static_cast<unsigned int>(LightweightString<wchar_t>::fromUTF8(text.toUTF8().view())[0]), codePoint);
  }
}

TEST(Emoji, AsWStringReplacesWhatIsNoCharacter) {
  for (unsigned int codePoint : {0xD800u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu})
    EXPECT_EQ(Emoji::asWString(codePoint), L"\uFFFD") << codePoint;
  EXPECT_TRUE(Emoji::asWString(0).empty());
}

TEST(Emoji, DisplayStringsAreUnicodesGroupNames) {
  EXPECT_EQ(displayName(Emoji::kSmileysAndEmotion), "Smileys & Emotion");
  EXPECT_EQ(displayName(Emoji::kPeopleAndBody), "People & Body");
  EXPECT_EQ(displayName(Emoji::kAnimalsAndNature), "Animals & Nature");
  EXPECT_EQ(displayName(Emoji::kFoodAndDrink), "Food & Drink");
  EXPECT_EQ(displayName(Emoji::kTravelAndPlaces), "Travel & Places");
  EXPECT_EQ(displayName(Emoji::kActivities), "Activities");
  EXPECT_EQ(displayName(Emoji::kObjects), "Objects");
  EXPECT_EQ(displayName(Emoji::kSymbols), "Symbols");
  EXPECT_EQ(displayName(Emoji::kFlags), "Flags");
  // Literal text, not a string-table id.
  EXPECT_EQ(Emoji::getDisplayString(Emoji::kFlags).resId(), UIString::kNoResource);
}

TEST(Emoji, AValueThatIsNoCategoryHasNothing) {
  auto const none = static_cast<eCategory>(99);
  EXPECT_TRUE(Emoji::getEmojis(none).empty());
  EXPECT_EQ(Emoji::getRepresentative(none), 0u);
  EXPECT_TRUE(Emoji::getDisplayString(none).empty());
}

TEST(Emoji, SearchingNamesForCatFindsTheCatFaces) {
  // Every name that holds "cat", in any case, found by a plain scan.
  std::set<std::string> containing;
  for (Emoji::Character const& emoji : everyEmoji()) {
    std::string lower = emoji.name;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    if (lower.find("cat") != std::string::npos)
      containing.insert(emoji.name);
  }
  for (char const* face :
       {"grinning cat", "grinning cat with smiling eyes", "cat with tears of joy", "smiling cat with heart-eyes",
        "cat with wry smile", "kissing cat", "weary cat", "crying cat", "pouting cat", "cat face", "cat"})
    EXPECT_EQ(containing.count(face), 1u) << face;

  // The search the panel runs with flags 0 matches whole names, so "contains"
  // is the pattern between wildcards; kSubstring gives the same with the bare
  // word.
  EXPECT_EQ(namesMatching(TextSearch::Criteria(L"*cat*"), 0), containing);
  EXPECT_EQ(namesMatching(TextSearch::Criteria(L"cat"), TextSearch::kSubstring), containing);
  EXPECT_EQ(namesMatching(TextSearch::Criteria(L"CAT"), TextSearch::kSubstring), containing);
  // Without either, only the name that is exactly "cat".
  EXPECT_EQ(namesMatching(TextSearch::Criteria(L"cat"), 0), std::set<std::string>{"cat"});
}
