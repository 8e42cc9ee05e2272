#include <zowidgets/host/base/TextSearch.h>

#include <gtest/gtest.h>

#include <random>
#include <regex>
#include <string>

namespace {

using TextSearch::Criteria;
using TextSearch::kCaseSensitive;
using TextSearch::kSubstring;

bool matches(wchar_t const* pattern, wchar_t const* text, int flags = 0) {
  return TextSearch::match(LightweightString<wchar_t>(text), Criteria(pattern), flags);
}

std::wstring randomText(std::mt19937& random, std::wstring_view alphabet, int maxLength) {
  std::uniform_int_distribution<int> length(0, maxLength);
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  std::wstring text;
  for (int n = length(random); n > 0; --n)
    text += alphabet[pick(random)];
  return text;
}

std::wstring lowered(std::wstring text) {
  for (wchar_t& c : text)
    if (c >= L'A' && c <= L'Z')
      c += 32;
  return text;
}

} // namespace

TEST(TextSearch, PlainWordMatchesOnlyAnEqualValue) {
  EXPECT_TRUE(matches(L"true", L"true"));
  EXPECT_FALSE(matches(L"true", L"false"));
  EXPECT_FALSE(matches(L"false", L"true"));
  EXPECT_FALSE(matches(L"true", L"untrue"));
  EXPECT_FALSE(matches(L"true", L"true1"));
  EXPECT_TRUE(matches(L"1", L"1"));
  EXPECT_FALSE(matches(L"1", L"10"));
  EXPECT_FALSE(matches(L"1", L"01"));
  EXPECT_FALSE(matches(L"1", L""));
  EXPECT_TRUE(matches(L"two words", L"two words"));
}

TEST(TextSearch, LettersMatchWithoutCaseUnlessAsked) {
  EXPECT_TRUE(matches(L"True", L"TRUE"));
  EXPECT_TRUE(matches(L"true", L"True"));
  EXPECT_FALSE(matches(L"True", L"TRUE", kCaseSensitive));
  EXPECT_TRUE(matches(L"True", L"True", kCaseSensitive));
}

TEST(TextSearch, CaseFoldingCoversLatinGreekAndCyrillic) {
  EXPECT_TRUE(matches(L"\u00c9COLE", L"\u00e9cole"));                                         // ÉCOLE, école
  EXPECT_TRUE(matches(L"\u0178", L"\u00ff"));                                                 // Ÿ, ÿ
  EXPECT_TRUE(matches(L"\u0141\u00f3d\u017a", L"\u0142\u00d3D\u0179"));                       // Łódź, łÓDŹ
  EXPECT_TRUE(matches(L"\u03a3\u039f\u03a6\u0399\u0391", L"\u03c3\u03bf\u03c6\u03b9\u03b1")); // ΣΟΦΙΑ
  EXPECT_TRUE(matches(L"\u038c", L"\u03cc"));                                                 // Ό, ό
  EXPECT_TRUE(matches(L"\u041c\u041e\u0421\u041a\u0412\u0410", L"\u043c\u043e\u0441\u043a\u0432\u0430")); // МОСКВА
  EXPECT_TRUE(matches(L"\u0401", L"\u0451"));                                                             // Ё, ё
  EXPECT_FALSE(matches(L"\u00d7", L"\u00f7")); // × and ÷ are not a case pair
  EXPECT_FALSE(matches(L"\u0130", L"i"));      // dotted capital I has no simple fold here
  EXPECT_FALSE(matches(L"\u00c9", L"\u00e9", kCaseSensitive));
}

TEST(TextSearch, StarMatchesAnyRun) {
  EXPECT_TRUE(matches(L"a*", L"a"));
  EXPECT_TRUE(matches(L"a*", L"abc"));
  EXPECT_FALSE(matches(L"a*", L"ba"));
  EXPECT_TRUE(matches(L"*c", L"abc"));
  EXPECT_FALSE(matches(L"*c", L"abcd"));
  EXPECT_TRUE(matches(L"a*b*c", L"aXbYc"));
  EXPECT_TRUE(matches(L"a*b*c", L"abc"));
  EXPECT_FALSE(matches(L"a*b*c", L"acb"));
  EXPECT_TRUE(matches(L"*aab", L"aaab"));
  EXPECT_TRUE(matches(L"*", L""));
  EXPECT_TRUE(matches(L"**", L"anything"));
}

TEST(TextSearch, QuestionMarkMatchesOneCharacter) {
  EXPECT_TRUE(matches(L"a?c", L"abc"));
  EXPECT_FALSE(matches(L"a?c", L"ac"));
  EXPECT_FALSE(matches(L"a?c", L"abbc"));
  EXPECT_TRUE(matches(L"?", L"\U0001F600"));
  EXPECT_FALSE(matches(L"?", L""));
  EXPECT_TRUE(matches(L"*?", L"x"));
}

TEST(TextSearch, BarSeparatesAlternatives) {
  EXPECT_TRUE(matches(L"1|2", L"1"));
  EXPECT_TRUE(matches(L"1|2", L"2"));
  EXPECT_FALSE(matches(L"1|2", L"12"));
  EXPECT_FALSE(matches(L"1|2", L"3"));
  EXPECT_TRUE(matches(L"mp4|mov|a*", L"avi"));
  EXPECT_TRUE(matches(L"1 | 2", L"2"));
  EXPECT_TRUE(matches(L"1||2", L"2"));
  EXPECT_FALSE(matches(L"1||2", L""));
}

TEST(TextSearch, SpaceAroundAlternativesIsDropped) {
  EXPECT_TRUE(matches(L"  true ", L"true"));
  EXPECT_FALSE(matches(L"true", L" true"));
  EXPECT_TRUE(matches(L"a  b", L"a  b"));
  EXPECT_FALSE(matches(L"a  b", L"a b"));
}

TEST(TextSearch, LeadingBangNegatesTheWholePattern) {
  EXPECT_TRUE(matches(L"!true", L"false"));
  EXPECT_FALSE(matches(L"!true", L"true"));
  EXPECT_TRUE(matches(L"!1|2", L"3"));
  EXPECT_FALSE(matches(L"!1|2", L"1"));
  EXPECT_FALSE(matches(L"!1|2", L"2"));
  EXPECT_TRUE(matches(L"a!", L"a!"));
  EXPECT_FALSE(matches(L"!*", L"x"));
}

TEST(TextSearch, BackslashTakesTheNextCharacterLiterally) {
  EXPECT_TRUE(matches(L"\\*", L"*"));
  EXPECT_FALSE(matches(L"\\*", L"a"));
  EXPECT_TRUE(matches(L"\\?", L"?"));
  EXPECT_FALSE(matches(L"\\?", L"x"));
  EXPECT_TRUE(matches(L"a\\|b", L"a|b"));
  EXPECT_FALSE(matches(L"a\\|b", L"a"));
  EXPECT_TRUE(matches(L"\\!x", L"!x"));
  EXPECT_TRUE(matches(L"\\ a\\ ", L" a "));
  EXPECT_TRUE(matches(L"\\\\", L"\\"));
  EXPECT_TRUE(matches(L"a\\", L"a\\"));
}

TEST(TextSearch, SubstringFlagMatchesAnywhere) {
  EXPECT_TRUE(matches(L"ell", L"Hello", kSubstring));
  EXPECT_FALSE(matches(L"ell", L"Hello"));
  EXPECT_TRUE(matches(L"ELL", L"Hello", kSubstring));
  EXPECT_FALSE(matches(L"ELL", L"Hello", kSubstring | kCaseSensitive));
  EXPECT_TRUE(matches(L"e?l", L"Hello", kSubstring));
  EXPECT_TRUE(matches(L"xyz|ell", L"Hello", kSubstring));
  EXPECT_FALSE(matches(L"xyz", L"Hello", kSubstring));
  EXPECT_FALSE(matches(L"!ell", L"Hello", kSubstring));
  EXPECT_TRUE(matches(L"!xyz", L"Hello", kSubstring));
  EXPECT_TRUE(matches(L"1", L"10", kSubstring));
  EXPECT_FALSE(matches(L"x", L"", kSubstring));
}

TEST(TextSearch, EmptyCriteriaMatchEverything) {
  for (Criteria const& criteria : {Criteria(), Criteria(L""), Criteria(static_cast<wchar_t const*>(nullptr)),
                                   Criteria(L"   "), Criteria(L"|"), Criteria(L" | "), Criteria(L"!")}) {
    EXPECT_TRUE(criteria.empty()) << toNarrow(criteria.pattern());
    for (int flags : {0, kSubstring, kCaseSensitive})
      for (wchar_t const* text : {L"", L"x", L"true"})
        EXPECT_TRUE(TextSearch::match(text, criteria, flags));
  }
  EXPECT_FALSE(Criteria(L"x").empty());
  EXPECT_FALSE(Criteria(L"\\ ").empty());
}

TEST(TextSearch, CriteriaKeepItsPatternAndCopiesMatchAlike) {
  Criteria original(LightweightString<wchar_t>(L" a*|b "));
  EXPECT_EQ(original.pattern(), L" a*|b ");
  Criteria copy = original;
  EXPECT_EQ(copy.pattern(), original.pattern());
  for (wchar_t const* text : {L"abc", L"b", L"c", L""})
    EXPECT_EQ(copy.matches(text, 0), original.matches(text, 0)) << toNarrow(text);
  EXPECT_TRUE(copy.matches(L"abc", 0));
  EXPECT_FALSE(copy.matches(L"c", 0));
}

TEST(TextSearch, PlainWordsMatchExactlyTheEqualTexts) {
  std::mt19937 random(5);
  for (int i = 0; i < 3000; ++i) {
    std::wstring word = randomText(random, L"aAb1", 3);
    std::wstring text = randomText(random, L"aAb1", 3);
    if (word.empty())
      continue;
    Criteria criteria(word);
    ASSERT_EQ(criteria.matches(text, 0), lowered(word) == lowered(text)) << toNarrow(word) << " / " << toNarrow(text);
    ASSERT_EQ(criteria.matches(text, kCaseSensitive), word == text);
    ASSERT_EQ(criteria.matches(text, kSubstring), lowered(text).find(lowered(word)) != std::wstring::npos);
  }
}

TEST(TextSearch, WildcardsAgreeWithEquivalentRegularExpressions) {
  std::mt19937 random(11);
  for (int i = 0; i < 3000; ++i) {
    std::wstring pattern = randomText(random, L"ab*?", 6);
    std::wstring text = randomText(random, L"ab", 8);
    if (pattern.empty())
      continue;
    std::wstring expression;
    for (wchar_t c : pattern)
      expression += c == L'*' ? L".*" : c == L'?' ? L"." : std::wstring(1, c);
    bool expected = std::regex_match(text, std::wregex(expression));
    ASSERT_EQ(Criteria(pattern).matches(text, kCaseSensitive), expected)
        << toNarrow(pattern) << " / " << toNarrow(text);
    bool expectedAnywhere = std::regex_search(text, std::wregex(expression));
    ASSERT_EQ(Criteria(pattern).matches(text, kSubstring | kCaseSensitive), expectedAnywhere)
        << toNarrow(pattern) << " / " << toNarrow(text);
  }
}
