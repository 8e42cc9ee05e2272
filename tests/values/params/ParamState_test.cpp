#include "values/params/ParamTestSupport.h"

#include <zowidgets/host/base/configb.h>

#include <gtest/gtest.h>

using namespace GenericParam;

namespace {

struct ParamStateTest : ::testing::Test {
  Zo::Ptr<BoolParam> enabled = Zo::make<BoolParam>(L"Enabled", "enabled", L"", false);
  Zo::Ptr<IntParam> count = Zo::make<IntParam>(L"Count", "count", L"", 2, 0, 10);
  Zo::Ptr<DoubleParam> gain = Zo::make<DoubleParam>(L"Gain", "gain", L"", 0.1, 0.0, 1.0);
  Zo::Ptr<ChoiceParam> mode =
      Zo::make<ChoiceParam>(L"Mode", "mode", L"", 1, std::vector<ChoiceParam::Choice>{{L"A", L"", 1}, {L"B", L"", 2}});
  Zo::Ptr<TextParam> name = Zo::make<TextParam>(L"Name", "name", L"", L"first");
  Zo::Ptr<ColourParam> tint = Zo::make<ColourParam>(L"Tint", "tint", L"", NormalisedRGB(0.25f, 0.5f, 0.75f, 1.0f));
  Zo::Ptr<ActionParam> go = Zo::make<ActionParam>(L"Go", "go", L"", nullptr);
  ParamList list{enabled, count, mode, Zo::make<GroupParam>(L"More", "more", L"", ParamList{gain, name, tint}), go};
};

TEST_F(ParamStateTest, SaveStoresEachValueTextUnderItsId) {
  configb state;
  saveState(list, state);
  EXPECT_EQ(state.getString("enabled"), L"false");
  EXPECT_EQ(state.getString("count"), L"2");
  EXPECT_EQ(state.getString("gain"), L"0.1");
  EXPECT_EQ(state.getString("name"), L"first");
  EXPECT_EQ(state.getString("tint"), tint->getValueAsString());
  EXPECT_FALSE(state.in("more")); // a group has no value
  EXPECT_FALSE(state.in("go"));   // nor an action
  EXPECT_EQ(state.entryCount(), 6u);
}

TEST_F(ParamStateTest, RestoreSetsWhatItFindsAndLeavesTheRest) {
  configb saved;
  saved.set("count", 7);
  saved.set("name", L"second");
  saved.set("tint", L"1 0 0 1");
  enabled->setValue(true);
  restoreState(list, saved);
  EXPECT_EQ(count->getValue(), 7);
  EXPECT_EQ(name->getValue(), L"second");
  EXPECT_EQ(tint->getValue(), NormalisedRGB(1, 0, 0, 1));
  EXPECT_TRUE(enabled->getValue()); // not in the saved state: left alone
}

TEST_F(ParamStateTest, RestoreGoesThroughSetValueFromStringSoIntRangesClamp) {
  configb saved;
  saved.set("count", 99);
  restoreState(list, saved);
  EXPECT_EQ(count->getValue(), 10);
}

TEST_F(ParamStateTest, SaveThenRestoreRoundTripsEveryValueExactly) {
  count->setValue(9);
  gain->setValue(0.1 + 0.2);
  mode->setValue(2);
  name->setValue(L"caf\u00e9 \"quoted\"\nline");
  tint->setValue(NormalisedRGB(0.1f, 0.2f, 0.3f, 0.4f));
  configb saved;
  saveState(list, saved);
  auto reread = configb::fromText(saved.toText().view());
  ASSERT_TRUE(reread.has_value());
  for (auto const& param : list)
    param->reset();
  restoreState(list, *reread);
  EXPECT_EQ(count->getValue(), 9);
  EXPECT_EQ(gain->getValue(), 0.1 + 0.2);
  EXPECT_EQ(mode->getValue(), 2u);
  EXPECT_EQ(name->getValue(), L"caf\u00e9 \"quoted\"\nline");
  EXPECT_EQ(tint->getValue(), NormalisedRGB(0.1f, 0.2f, 0.3f, 0.4f));
}

TEST_F(ParamStateTest, ValidateDropsUnownedEntriesRefusedValuesAndChildren) {
  configb saved;
  saveState(list, saved);
  saved.set("stranger", L"1");
  saved.set("mode", 3); // no choice carries 3
  saved.child("old panel").set("x", 1);
  EXPECT_EQ(validateState(list, saved), 3);
  EXPECT_FALSE(saved.in("stranger"));
  EXPECT_FALSE(saved.in("mode"));
  EXPECT_EQ(saved.findChild("old panel"), nullptr);
  EXPECT_TRUE(saved.in("count"));
  EXPECT_EQ(saved.entryCount(), 5u);
  EXPECT_EQ(validateState(list, saved), 0); // already in line
}

TEST_F(ParamStateTest, ColourParamCrossesTheChokePointAsText) {
  std::vector<std::string> log;
  tint->addChangeHandler(recorder(log));
  tint->setValueFromString(L"0.5 0.25 0 1");
  EXPECT_EQ(tint->getValue(), NormalisedRGB(0.5f, 0.25f, 0.0f, 1.0f));
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log[0], "tint=" + toNarrow(tint->getValueAsString()));
  EXPECT_TRUE(tint->reset());
  EXPECT_FALSE(tint->reset());
}

} // namespace
