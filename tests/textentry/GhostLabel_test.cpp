#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/textentry/GhostLabel.h>

#include <gtest/gtest.h>

namespace {

struct GhostLabelTest : ::testing::Test {
  void SetUp() override { clearResourceStrings(); }
  void TearDown() override { clearResourceStrings(); }
};

TEST_F(GhostLabelTest, AnIdWithoutTextIsLookedUp) {
  EXPECT_EQ(resolveGhostLabel(UIString(11427)).str(), L"Password");
  setResourceString(11427, L"Pass phrase");
  EXPECT_EQ(resolveGhostLabel(UIString(11427)).str(), L"Pass phrase");
}

TEST_F(GhostLabelTest, LiteralTextStandsEvenBesideAnId) {
  EXPECT_EQ(resolveGhostLabel(UIString(L"Search clips")).str(), L"Search clips");
  EXPECT_EQ(resolveGhostLabel(UIString(11427, L"PIN")).str(), L"PIN");
}

TEST_F(GhostLabelTest, AnEmptyLabelStaysEmpty) { EXPECT_TRUE(resolveGhostLabel(UIString()).empty()); }

TEST_F(GhostLabelTest, AnIdNoTableHasShowsTheTablesPlaceholder) {
  LightweightString<wchar_t> const shown = resolveGhostLabel(UIString(987654));
  EXPECT_EQ(shown, resourceStrW(987654));
  EXPECT_NE(shown.str().find(L"987654"), std::wstring::npos);
}

} // namespace
