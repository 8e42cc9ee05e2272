#include <zowidgets/host/base/UIString.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

// Texts set at run time are process-wide; every test starts and ends with
// none. The ids used here are in no shipped table.
class ResourceTable : public ::testing::Test {
protected:
  void SetUp() override { clearResourceStrings(); }
  void TearDown() override { clearResourceStrings(); }
};

using UIStringTest = ResourceTable;
using ResourceStrings = ResourceTable;
using ResStrFmtTest = ResourceTable;

} // namespace

TEST_F(ResourceStrings, MissingIdShowsAPlaceholder) {
  EXPECT_EQ(resourceStrW(1234), L"\u2039res 1234\u203A");
  EXPECT_EQ(resourceStrW(-1), L"\u2039res -1\u203A");
}

TEST_F(ResourceStrings, SetReplaceAndClear) {
  setResourceString(10, L"Open");
  setResourceString(11, L"Close");
  EXPECT_EQ(resourceStrW(10), L"Open");
  EXPECT_EQ(resourceStrW(11), L"Close");
  setResourceString(10, L"Open file");
  EXPECT_EQ(resourceStrW(10), L"Open file");
  clearResourceStrings();
  EXPECT_FALSE(hasResourceString(10));
  EXPECT_FALSE(hasResourceString(11));
}

TEST_F(ResourceStrings, ReadTextOutlivesClearing) {
  setResourceString(1, L"kept");
  auto text = resourceStrW(1);
  clearResourceStrings();
  EXPECT_EQ(text, L"kept");
}

TEST_F(ResourceStrings, EllipsisIsAppendedOnce) {
  setResourceString(1, L"Save as");
  setResourceString(2, L"Export\u2026");
  setResourceString(3, L"Print...");
  EXPECT_EQ(ellipsisResourceStrW(1), L"Save as\u2026");
  EXPECT_EQ(ellipsisResourceStrW(2), L"Export\u2026");
  EXPECT_EQ(ellipsisResourceStrW(3), L"Print...");
  setResourceString(4, L"");
  EXPECT_TRUE(ellipsisResourceStrW(4).empty());
}

TEST_F(ResourceStrings, ConcurrentReadersAndWritersSeeWholeTexts) {
  std::atomic<bool> torn{false};
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t, &torn] {
      for (int i = 0; i < 2000; ++i) {
        if (t % 2 == 0) {
          setResourceString(i % 16, i % 2 ? L"odd text" : L"even text");
        } else {
          auto text = resourceStrW(i % 16);
          if (!(text.startsWith(L"\u2039res") || text == L"odd text" || text == L"even text"))
            torn = true;
        }
      }
    });
  }
  for (auto& thread : threads)
    thread.join();
  EXPECT_FALSE(torn);
  EXPECT_FALSE(resourceStrW(3).empty());
}

TEST_F(ResStrFmtTest, FillsPlaceholdersInOrderOfArguments) {
  setResourceString(1, L"Copied %1 files to %2");
  EXPECT_EQ(ResStrFmt(1).arg(3).arg(LightweightString<wchar_t>(L"Media")).str(), L"Copied 3 files to Media");
  setResourceString(2, L"%2 before %1, %1 again");
  EXPECT_EQ(ResStrFmt(2).arg(L"one").arg(L"two").str(), L"two before one, one again");
}

TEST_F(ResStrFmtTest, NumbersTakeTheirTextForms) {
  setResourceString(1, L"%1|%2|%3");
  EXPECT_EQ(ResStrFmt(1).arg(-5).arg(0.1).arg(2.0).str(), L"-5|0.1|2");
}

TEST_F(ResStrFmtTest, UnfilledAndLiteralPercentSigns) {
  setResourceString(1, L"%1 and %2");
  EXPECT_EQ(ResStrFmt(1).arg(L"x").str(), L"x and %2");
  setResourceString(2, L"100%% of %1, 50% off, %x, %");
  EXPECT_EQ(ResStrFmt(2).arg(L"it").str(), L"100% of it, 50% off, %x, %");
  setResourceString(3, L"%%1 is literal");
  EXPECT_EQ(ResStrFmt(3).arg(L"no").str(), L"%1 is literal");
  setResourceString(4, L"%0 stays");
  EXPECT_EQ(ResStrFmt(4).arg(L"no").str(), L"%0 stays");
}

TEST_F(ResStrFmtTest, ArgumentTextIsNotSubstitutedAgain) {
  setResourceString(1, L"%1 then %2");
  EXPECT_EQ(ResStrFmt(1).arg(L"%2").arg(L"%1").str(), L"%2 then %1");
}

TEST_F(ResStrFmtTest, AllDigitsFormOnePlaceholderNumber) {
  setResourceString(1, L"%12/%1");
  ResStrFmt format(1);
  for (int i = 1; i <= 12; ++i)
    format.arg(i * 10);
  EXPECT_EQ(format.str(), L"120/10");
  EXPECT_EQ(ResStrFmt(1).arg(L"a").str(), L"%12/a");
}

TEST_F(ResStrFmtTest, MissingResourceFormatsItsPlaceholder) {
  EXPECT_EQ(ResStrFmt(77).arg(1).str(), L"\u2039res 77\u203A");
}

TEST_F(UIStringTest, DefaultIsEmptyWithNoResource) {
  UIString none;
  EXPECT_EQ(UIString::kNoResource, 999999);
  EXPECT_EQ(none.resId(), UIString::kNoResource);
  EXPECT_TRUE(none.empty());
  EXPECT_TRUE(none.getString().empty());
  EXPECT_TRUE(UIString(static_cast<wchar_t const*>(nullptr)).empty());
}

TEST_F(UIStringTest, LiteralTextShowsAsItIs) {
  UIString literal = L"Hello";
  EXPECT_EQ(literal.getString(), L"Hello");
  EXPECT_EQ(literal.text(), L"Hello");
  EXPECT_EQ(literal.resId(), UIString::kNoResource);
  EXPECT_FALSE(literal.empty());
  EXPECT_EQ(UIString(LightweightString<wchar_t>(L"Wide")).getString(), L"Wide");
}

TEST_F(UIStringTest, ResourceIdReadsTheTable) {
  setResourceString(42, L"From table");
  UIString byId(42);
  EXPECT_EQ(byId.getString(), L"From table");
  EXPECT_EQ(byId.resId(), 42);
  EXPECT_FALSE(byId.empty());
  setResourceString(42, L"Changed");
  EXPECT_EQ(byId.getString(), L"Changed");
  EXPECT_EQ(UIString(43).getString(), L"\u2039res 43\u203A");
  EXPECT_FALSE(UIString(43).empty());
}

TEST_F(UIStringTest, LiteralStandsInForMissingResource) {
  UIString both(50, L"Fallback");
  EXPECT_EQ(both.getString(), L"Fallback");
  setResourceString(50, L"Resource");
  EXPECT_EQ(both.getString(), L"Resource");
  setResourceString(50, L"");
  EXPECT_EQ(both.getString(), L"Fallback");
}

TEST_F(UIStringTest, EqualityComparesIdAndText) {
  EXPECT_EQ(UIString(L"a"), UIString(L"a"));
  EXPECT_FALSE(UIString(L"a") == UIString(L"b"));
  EXPECT_EQ(UIString(5), UIString(5));
  EXPECT_FALSE(UIString(5) == UIString(6));
  EXPECT_FALSE(UIString(5) == UIString(5, L"x"));
  EXPECT_EQ(UIString(), UIString(L""));
}

TEST(UIStringType, IdConstructorIsExplicit) {
  EXPECT_FALSE((std::is_convertible_v<int, UIString>));
  EXPECT_TRUE((std::is_convertible_v<wchar_t const*, UIString>));
  EXPECT_TRUE((std::is_convertible_v<LightweightString<wchar_t>, UIString>));
}
