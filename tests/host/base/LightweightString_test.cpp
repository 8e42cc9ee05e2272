#include <zowidgets/host/base/LightweightString.h>

#include <gtest/gtest.h>

#include <map>
#include <unordered_set>

TEST(LightweightString, NullReadsAsEmpty) {
  LightweightString<wchar_t> null;
  EXPECT_TRUE(null.isNull());
  EXPECT_TRUE(null.empty());
  EXPECT_EQ(null.size(), 0u);
  EXPECT_STREQ(null.c_str(), L"");
  EXPECT_EQ(null, LightweightString<wchar_t>(L""));
  EXPECT_EQ(null.compare(LightweightString<wchar_t>(L"")), 0);
  EXPECT_FALSE(LightweightString<wchar_t>(L"").isNull());
}

TEST(LightweightString, CopiesShareUntilWritten) {
  LightweightString<char> a("hello");
  LightweightString<char> b = a;
  EXPECT_EQ(a.shareCount(), 2);
  EXPECT_EQ(a.c_str(), b.c_str());
  b += " world";
  EXPECT_EQ(a, "hello");
  EXPECT_EQ(b, "hello world");
  EXPECT_EQ(a.shareCount(), 1);
}

TEST(LightweightString, CompareOrdersLikeStandardStrings) {
  LightweightString<char> apple("apple"), banana("banana");
  EXPECT_LT(apple.compare(banana), 0);
  EXPECT_GT(banana.compare(apple), 0);
  EXPECT_EQ(apple.compare(LightweightString<char>("apple")), 0);
  EXPECT_TRUE(apple < banana);
}

TEST(LightweightString, ResizeForKeepsTextAndUnshares) {
  LightweightString<wchar_t> a(L"abc");
  LightweightString<wchar_t> b = a;
  b.resizeFor(100);
  EXPECT_GE(b.capacity(), 100u);
  EXPECT_EQ(b, L"abc");
  EXPECT_EQ(a.shareCount(), 1);
}

TEST(LightweightString, SubstituteReplacesEveryPlaceholder) {
  LightweightString<wchar_t> text(L"Took $TIME$, then $TIME$ for $FILE$");
  text.substitute(L"$TIME$", L"00:01:02").substitute(L"$FILE$", L"a.mov");
  EXPECT_EQ(text, L"Took 00:01:02, then 00:01:02 for a.mov");
  LightweightString<wchar_t> unchanged(L"no placeholder");
  unchanged.substitute(L"", L"x");
  EXPECT_EQ(unchanged, L"no placeholder");
}

TEST(LightweightString, AppendingItsOwnTextWorks) {
  LightweightString<char> a("ab");
  a += a;
  EXPECT_EQ(a, "abab");
}

TEST(LightweightString, UTF8RoundTripsEveryPlane) {
  std::wstring wide = L"A\u00e9\u4e2d\U0001F600";
  LightweightString<wchar_t> s(wide);
  LightweightString<char> utf8 = s.toUTF8();
  EXPECT_EQ(utf8, "A\xc3\xa9\xe4\xb8\xad\xf0\x9f\x98\x80");
  EXPECT_EQ(LightweightString<wchar_t>::fromUTF8(utf8.view()), s);
}

TEST(LightweightString, MalformedUTF8BecomesReplacementCharacters) {
  // lone continuation, truncated sequence, overlong slash, encoded surrogate
  auto decoded = LightweightString<wchar_t>::fromUTF8("\x80|\xe4\xb8|\xc0\xaf|\xed\xa0\x80");
  EXPECT_EQ(decoded.view().substr(0, 2), std::wstring_view(L"\uFFFD|"));
  for (wchar_t c : decoded.view())
    EXPECT_TRUE(c == L'|' || c == 0xFFFD);
  EXPECT_EQ(decoded[decoded.size() - 1], wchar_t(0xFFFD));
}

TEST(LightweightString, NonScalarCodePointsEncodeAsReplacement) {
  std::wstring bad;
  bad += static_cast<wchar_t>(0xD800);
  bad += static_cast<wchar_t>(0x110000);
  EXPECT_EQ(LightweightString<wchar_t>(bad).toUTF8(), "\xef\xbf\xbd\xef\xbf\xbd");
}

TEST(LightweightString, UsableAsMapKey) {
  std::map<LightweightString<char>, int> ordered{{"b", 2}, {"a", 1}};
  EXPECT_EQ(ordered.begin()->second, 1);
  std::unordered_set<LightweightString<wchar_t>> hashed{L"x", L"y", L"x"};
  EXPECT_EQ(hashed.size(), 2u);
  EXPECT_TRUE(hashed.count(LightweightString<wchar_t>(L"y")));
}

TEST(LightweightString, SubstrPastTheEndIsNull) {
  LightweightString<char> s("abc");
  EXPECT_EQ(s.substr(1), "bc");
  EXPECT_TRUE(s.substr(9).isNull());
}
