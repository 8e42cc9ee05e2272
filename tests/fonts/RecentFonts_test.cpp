#include "support/SharedState.h"

#include <zowidgets/fonts/RecentFonts.h>
#include <zowidgets/host/shell/Preferences.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

constexpr char const* kKey = "Test : recent fonts";

struct RecentFontsTest : ::testing::Test {
  void SetUp() override { resetSharedState(); }
  static WString stored() { return prefs().getPreference(kKey, L"<unset>"); }
};

TEST_F(RecentFontsTest, ReadsThePreferenceDroppingEmptyParts) {
  prefs().setPreference(kKey, L"|Liberation Sans||Noto Mono|");
  RecentFonts const recent(kKey);
  EXPECT_EQ(recent, (std::vector<WString>{L"Liberation Sans", L"Noto Mono"}));
  EXPECT_TRUE(recent.contains(L"Noto Mono"));
  EXPECT_FALSE(recent.contains(L"noto mono"));
}

TEST_F(RecentFontsTest, KeepsAtMostFiveNewestFirst) {
  RecentFonts recent(kKey);
  for (wchar_t const* name : {L"A", L"B", L"C", L"D", L"E", L"F"})
    recent.add(name);
  EXPECT_EQ(recent, (std::vector<WString>{L"F", L"E", L"D", L"C", L"B"}));
  EXPECT_EQ(stored(), WString(L"F|E|D|C|B"));
  // A longer stored list reads as its first five.
  prefs().setPreference(kKey, L"1|2|3|4|5|6|7");
  EXPECT_EQ(RecentFonts(kKey).size(), RecentFonts::kMaxFonts);
}

TEST_F(RecentFontsTest, AddingANameAlreadyThereMovesItToTheFront) {
  prefs().setPreference(kKey, L"A|B|C");
  RecentFonts recent(kKey);
  recent.add(L"C");
  EXPECT_EQ(recent, (std::vector<WString>{L"C", L"A", L"B"}));
  EXPECT_EQ(stored(), WString(L"C|A|B"));
}

TEST_F(RecentFontsTest, AnEmptyKeyKeepsNothing) {
  RecentFonts recent{LightweightString<char>()};
  recent.add(L"Liberation Sans");
  EXPECT_TRUE(recent.empty());
  EXPECT_FALSE(prefs().hasPreference(""));
}

TEST_F(RecentFontsTest, NamesThatWouldNotReadBackAreRefused) {
  prefs().setPreference(kKey, L"A");
  RecentFonts recent(kKey);
  recent.add(L"Bad|Name");
  recent.add(L"");
  EXPECT_EQ(recent, (std::vector<WString>{L"A"}));
  EXPECT_EQ(stored(), WString(L"A"));
}

} // namespace
