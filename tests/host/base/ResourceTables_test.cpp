#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/base/UIString.h>

#include "host/shell/ServicesTestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using services_test::ScopedEnvironment;

namespace {

// Every id whose text the library's components ask for.
constexpr ResId kQuotedIds[] = {
    10000, 10001, 10006, 10019, 10071, 10082, 10493, 10550, 10553, 10563, 10568, 10647, 10739, 10786, 10806, 10807,
    10850, 10852, 10883, 11233, 11235, 11293, 11391, 11414, 11415, 11417, 11427, 11428, 11670, 11675, 11846, 11872,
    12031, 12078, 12195, 12344, 12503, 12855, 12964, 13030, 13234, 13340, 13597, 13598, 13599, 13638, 13639, 13731,
};

bool contains(LightweightString<wchar_t> const& text, std::wstring_view part) {
  return text.find(part) != LightweightString<wchar_t>::npos;
}

// The tables are process-wide: each test starts and ends in English with no
// texts set at run time.
class ResourceTables : public ::testing::Test {
protected:
  void SetUp() override { reset(); }
  void TearDown() override { reset(); }
  static void reset() {
    clearResourceStrings();
    setResourceLanguage("en");
  }
};

} // namespace

TEST_F(ResourceTables, EveryQuotedIdHasEnglishText) {
  EXPECT_EQ(std::size(kQuotedIds), 48u);
  for (ResId id : kQuotedIds) {
    EXPECT_TRUE(hasResourceString(id)) << id;
    auto text = resourceStrW(id);
    EXPECT_FALSE(text.empty()) << id;
    EXPECT_FALSE(text.startsWith(L"\u2039res")) << id;
  }
}

TEST_F(ResourceTables, TextsHoldWhatTheirUsersFillIn) {
  // Yes and no are compared with what a checkbox relays, "Yes" or "No".
  EXPECT_EQ(resourceStrW(10000), L"Yes");
  EXPECT_EQ(resourceStrW(10001), L"No");
  for (ResId id : {10563, 10806, 10807})
    EXPECT_TRUE(contains(resourceStrW(id), L"$FILE$")) << id;
  for (ResId id : {11414, 11415})
    EXPECT_TRUE(contains(resourceStrW(id), L"$TIME$")) << id;
  auto remaining = resourceStrW(11415);
  remaining.substitute(L"$TIME$", L"00:01:30");
  EXPECT_TRUE(contains(remaining, L"00:01:30"));
  EXPECT_FALSE(contains(remaining, L"$"));
}

TEST_F(ResourceTables, TextsThatOpenADialogueTakeAnEllipsis) {
  EXPECT_EQ(ellipsisResourceStrW(10082), L"Save\u2026");
  EXPECT_EQ(ellipsisResourceStrW(10071), L"Open\u2026");
}

TEST_F(ResourceTables, AnUnknownIdShowsAPlaceholderWithItsNumber) {
  EXPECT_FALSE(hasResourceString(12345));
  EXPECT_EQ(resourceStrW(12345), L"\u2039res 12345\u203A");
  EXPECT_EQ(resourceStrW(-7), L"\u2039res -7\u203A");
  EXPECT_EQ(UIString(12345).getString(), L"\u2039res 12345\u203A");
  EXPECT_EQ(UIString(12345, L"Literal").getString(), L"Literal");
  EXPECT_EQ(ResStrFmt(12345).arg(1).str(), L"\u2039res 12345\u203A");
}

TEST_F(ResourceTables, UIStringReadsTheTables) {
  EXPECT_EQ(UIString(10850).getString(), L"Next");
  EXPECT_EQ(UIString(10852, L"ignored").getString(), L"Back");
}

TEST_F(ResourceTables, TextsSetAtRunTimeComeFirstUntilCleared) {
  setResourceString(10000, L"Sure");
  EXPECT_EQ(resourceStrW(10000), L"Sure");
  clearResourceStrings();
  EXPECT_EQ(resourceStrW(10000), L"Yes");
}

TEST_F(ResourceTables, ASecondLanguageFallsBackToEnglishForMissingIds) {
  EXPECT_EQ(resourceLanguage(), "en");
  ASSERT_TRUE(setResourceLanguage("de"));
  EXPECT_EQ(resourceLanguage(), "de");
  EXPECT_EQ(resourceStrW(10000), L"Ja");
  EXPECT_EQ(resourceStrW(10852), L"Zur\u00fcck");
  EXPECT_TRUE(contains(resourceStrW(11415), L"$TIME$"));
  EXPECT_EQ(resourceStrW(10883), L"Rendering"); // not in the German table
  EXPECT_EQ(resourceStrW(12345), L"\u2039res 12345\u203A");
  ASSERT_TRUE(setResourceLanguage("en"));
  EXPECT_EQ(resourceStrW(10000), L"Yes");
}

TEST_F(ResourceTables, TheLanguageComesFromTheEnvironmentByDefault) {
  {
    ScopedEnvironment german("ZOWIDGETS_LANGUAGE", "de");
    EXPECT_TRUE(setResourceLanguage(""));
    EXPECT_EQ(resourceLanguage(), "de");
    EXPECT_EQ(resourceStrW(10001), L"Nein");
  }
  ScopedEnvironment unset("ZOWIDGETS_LANGUAGE", std::nullopt);
  EXPECT_TRUE(setResourceLanguage(""));
  EXPECT_EQ(resourceLanguage(), "en");
  EXPECT_EQ(resourceStrW(10001), L"No");
}

TEST_F(ResourceTables, AnUnknownLanguageLeavesEnglishInUse) {
  ASSERT_TRUE(setResourceLanguage("de"));
  EXPECT_FALSE(setResourceLanguage("xx"));
  EXPECT_EQ(resourceLanguage(), "en");
  EXPECT_EQ(resourceStrW(10000), L"Yes");
  EXPECT_FALSE(setResourceLanguage("../strings/de"));
  EXPECT_FALSE(setResourceLanguage("de.json"));
  EXPECT_EQ(resourceLanguage(), "en");
}
