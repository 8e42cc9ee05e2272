#include "support/SharedState.h"

#include <zowidgets/hints/Hint.h>
#include <zowidgets/host/shell/Preferences.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

struct HintTest : ::testing::Test {
  void SetUp() override { resetSharedState(); }

  // What the preference file holds now; empty when there is none.
  static std::string preferenceFile() {
    std::ifstream in(prefs().filePath());
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }
};

TEST_F(HintTest, TheKeyIsThePrefixAndTheDecimalId) {
  EXPECT_EQ(Hint::makePersistableID(0), "UI : Hinted 0");
  EXPECT_EQ(Hint::makePersistableID(4711), "UI : Hinted 4711");
  EXPECT_EQ(Hint::makePersistableID(4294967294u), "UI : Hinted 4294967294");
  EXPECT_EQ(std::string(Hint::kKeyPrefix).size(), 12u);
}

TEST_F(HintTest, IsHintIDWantsTheWholePrefixAndNothingMore) {
  EXPECT_TRUE(Hint::isHintID("UI : Hinted ")) << "no number behind it";
  EXPECT_TRUE(Hint::isHintID("UI : Hinted 12"));
  EXPECT_TRUE(Hint::isHintID(Hint::makePersistableID(99)));
  EXPECT_FALSE(Hint::isHintID("UI : Hinted")) << "the blank is part of the prefix";
  EXPECT_FALSE(Hint::isHintID(""));
  EXPECT_FALSE(Hint::isHintID(LightweightString<char>()));
  EXPECT_FALSE(Hint::isHintID("ui : hinted 12"));
  EXPECT_FALSE(Hint::isHintID("Magnifier level"));
}

TEST_F(HintTest, ANewHintIsNotIssuedUntilSetAndTheValueReachesTheFile) {
  Hint const hint(UIString(L"Drag to trim"), 31);
  EXPECT_FALSE(hint.hasBeenIssued());
  hint.setIssued(true);
  EXPECT_TRUE(hint.hasBeenIssued());
  EXPECT_TRUE(prefs().getPreference("UI : Hinted 31", false));
  EXPECT_TRUE(EditorPreferences(prefs().filePath()).getPreference("UI : Hinted 31", false));
  hint.setIssued(false);
  EXPECT_FALSE(hint.hasBeenIssued());
  EXPECT_FALSE(EditorPreferences(prefs().filePath()).getPreference("UI : Hinted 31", true));
  EXPECT_FALSE(Hint(UIString(L"Another"), 32).hasBeenIssued()) << "each id has its own key";
}

TEST_F(HintTest, AHintWithoutPersistentIdentityCountsAsIssuedAndStoresNothing) {
  Hint const hint(UIString(L"Shown every time it is asked for"), Hint::kNoPersistentId);
  EXPECT_TRUE(hint.hasBeenIssued());
  std::string const before = preferenceFile();
  hint.setIssued(true);
  hint.setIssued(false);
  EXPECT_TRUE(hint.hasBeenIssued());
  EXPECT_FALSE(prefs().hasPreference(Hint::makePersistableID(Hint::kNoPersistentId)));
  EXPECT_EQ(preferenceFile(), before);
}

TEST_F(HintTest, ItKeepsItsTextIdAndLink) {
  Hint const hint(UIString(L"Read about ripple edits"), 5, L"https://example.org/ripple");
  EXPECT_EQ(hint.getText().getString(), L"Read about ripple edits");
  EXPECT_EQ(hint.getId(), 5u);
  EXPECT_EQ(hint.getLink(), L"https://example.org/ripple");
  EXPECT_TRUE(Hint(UIString(L"No link"), 6).getLink().empty());
}

} // namespace
