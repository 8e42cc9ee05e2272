#include "values/binding/ValueTestSupport.h"
#include "values/params/ParamTestSupport.h"
#include <zowidgets/host/base/ExecutableAction.h>

#include <gtest/gtest.h>

using namespace GenericParam;

namespace {

using Log = std::vector<std::string>;

TEST(GenericParam, ResetOnAValueEqualToItsDefaultNotifiesNobodyAndReturnsFalse) {
  Log log;
  BoolParam param(L"Enabled", "enabled", L"", true);
  param.addChangeHandler(recorder(log));
  PhaseLoggingClient<bool> client(&param.getServer());
  EXPECT_FALSE(param.reset());
  EXPECT_TRUE(log.empty());
  EXPECT_TRUE(client.phases.empty());
}

TEST(GenericParam, ResetOnAChangedValueRestoresTheDefaultAndNotifies) {
  Log log;
  IntParam param(L"Count", "count", L"", 3, 0, 10);
  param.setValueFromString(L"7");
  param.addChangeHandler(recorder(log));
  EXPECT_TRUE(param.reset());
  EXPECT_EQ(param.getValue(), 3);
  EXPECT_EQ(log, (Log{"count=3"}));
}

TEST(GenericParam, ResetOfTextWhoseValueAndDefaultAreEmptyButOneNullReturnsFalse) {
  TextParam param(L"Name", "name", L"", LightweightString<wchar_t>());
  param.setValue(LightweightString<wchar_t>(L"")); // empty but not null
  ASSERT_FALSE(param.getValue().isNull());
  ASSERT_TRUE(param.getDefaultValue().isNull());
  EXPECT_FALSE(param.reset());
}

TEST(GenericParam, IntRangeClampsTextButStillCallsItAcceptable) {
  IntParam param(L"Level", "level", L"", 5, 0, 10);
  param.setValueFromString(L"25");
  EXPECT_EQ(param.getValue(), 10);
  EXPECT_TRUE(param.isAcceptableValueString(L"25"));
  param.setValueFromString(L"-3");
  EXPECT_EQ(param.getValue(), 0);
}

TEST(GenericParam, IntWithoutRangeIsNeverClamped) {
  IntParam param(L"Level", "level", L"", 5, 4, 4); // equal ends: no range
  EXPECT_FALSE(param.hasRange);
  param.setValueFromString(L"25000");
  EXPECT_EQ(param.getValue(), 25000);
}

TEST(GenericParam, IntOutOfRangeThroughTheServerIsStoredAsItIs) {
  IntParam param(L"Level", "level", L"", 5, 0, 10);
  param.getServer() = 99;
  EXPECT_EQ(param.getValue(), 99);
}

TEST(GenericParam, DoubleKeepsItsRangeForThePresenterAndStoresAnything) {
  DoubleParam param(L"Gain", "gain", L"", 0.5, 0.0, 1.0);
  EXPECT_TRUE(param.hasRange);
  param.setValueFromString(L"3.25");
  EXPECT_EQ(param.getValue(), 3.25);
}

TEST(GenericParam, ChoiceRefusesAValueNoChoiceCarries) {
  ChoiceParam param(L"Mode", "mode", L"", 1, {{L"One", L"", 1}, {L"Two", L"", 2}, {L"Four", L"", 4}});
  EXPECT_FALSE(param.isAcceptableValue(3));
  EXPECT_TRUE(param.isAcceptableValue(4));
  EXPECT_FALSE(param.isAcceptableValueString(L"3"));
  param.setValueFromString(L"3"); // refused, yet nothing stops it
  EXPECT_EQ(param.getValue(), 3u);
}

TEST(GenericParam, ChoiceWithNoChoicesRefusesEverything) {
  ChoiceParam param(L"Mode", "mode", L"", 0, {});
  EXPECT_FALSE(param.isAcceptableValue(0));
}

TEST(GenericParam, EnforceConstraintsCallsTheHandlerOnceWithTheCurrentValueAndLeavesIt) {
  Log log;
  int constraintCalls = 0;
  DoubleParam param(L"Gain", "gain", L"", 0.5, 0, 1);
  param.addValueConstraint(Zo::Ptr<iValueConstraint>(new FunctionConstraint([&](auto const&) {
    ++constraintCalls;
    return LightweightString<wchar_t>(L"0.75");
  })));
  param.addChangeHandler(recorder(log));
  param.enforceConstraints();
  EXPECT_EQ(log, (Log{"gain=0.5"}));
  EXPECT_EQ(constraintCalls, 1);
  EXPECT_EQ(param.getValue(), 0.5);
}

TEST(GenericParam, CloneHasNoServerListenersButSharesHandlersAndConstraints) {
  Log log;
  IntParam param(L"Count", "count", L"", 1, 0, 10);
  param.addChangeHandler(recorder(log));
  param.addValueConstraint(Zo::Ptr<iValueConstraint>(new FunctionConstraint([](auto const& text) { return text; })));
  PhaseLoggingClient<int> client(&param.getServer());
  param.setPresentationHints(0x40);

  Zo::Ptr<iParam> copy = param.clone();
  auto* typed = dynamic_cast<IntParam*>(copy.get());
  ASSERT_NE(typed, nullptr);
  EXPECT_EQ(typed->getServer().clientCount(), 1u); // only its own subscription
  EXPECT_EQ(typed->changeHandlerCount(), 1u);
  EXPECT_EQ(typed->valueConstraintCount(), 1u);
  EXPECT_EQ(typed->getPresentationHints(), 0x40u);
  EXPECT_TRUE(typed->hasRange);

  typed->setValueFromString(L"4");
  EXPECT_EQ(log, (Log{"count=4"}));   // the shared handler heard the clone
  EXPECT_TRUE(client.phases.empty()); // the original's client did not
  EXPECT_EQ(param.getValue(), 1);
}

TEST(GenericParam, GroupResetReturnsTrueAndLeavesChildrenAlone) {
  Zo::Ptr<IntParam> child(new IntParam(L"Count", "count", L"", 1, 0, 10));
  child->setValueFromString(L"6");
  GroupParam group(L"Group", "group", L"", ParamList{child});
  EXPECT_TRUE(group.reset());
  EXPECT_TRUE(group.reset());
  EXPECT_EQ(child->getValue(), 6);
  EXPECT_TRUE(group.getValueAsString().empty());
  EXPECT_TRUE(group.isAcceptableValueString(L"anything"));
}

TEST(GenericParam, GroupCloneClonesEachChild) {
  Zo::Ptr<IntParam> child(new IntParam(L"Count", "count", L"", 1, 0, 10));
  GroupParam group(L"Group", "group", L"", ParamList{child});
  Zo::Ptr<iParam> copy = group.clone();
  auto const& children = dynamic_cast<GroupParam&>(*copy).getChildren();
  ASSERT_EQ(children.size(), 1u);
  EXPECT_NE(children[0].get(), child.get());
  children[0]->setValueFromString(L"9");
  EXPECT_EQ(child->getValue(), 1);
}

TEST(GenericParam, TextCloneKeepsHintFlagsAndAdvance) {
  TextParam param(L"Password", "pw", L"", L"", L"type it", TextParam::kObfuscated | TextParam::kShowPasswordControl,
                  true);
  auto copy = param.clone();
  auto& typed = dynamic_cast<TextParam&>(*copy);
  EXPECT_EQ(typed.getFlags(), 6u);
  EXPECT_TRUE(typed.isObfuscated());
  EXPECT_TRUE(typed.getAdvance());
  EXPECT_EQ(typed.getHint().getString(), L"type it");
}

TEST(GenericParam, ActionCloneSharesCallbackAndContext) {
  int calls = 0;
  Zo::Ptr<iObject> context(new WrappedData<int>(41));
  auto callback = Zo::Ptr<ActionParam::Callback>(
      new FunctionCallback<ActionParam::CallbackData, bool>([&](ActionParam::CallbackData const& data) {
        calls += dynamic_cast<WrappedData<int>&>(*data.context).get();
        return true;
      }));
  ActionParam action(L"Go", "go", L"Runs it", callback, context);
  auto copy = action.clone();
  auto& typed = dynamic_cast<ActionParam&>(*copy);
  EXPECT_EQ(typed.getCallback(), callback);
  EXPECT_EQ(typed.getContext(), context);
  EXPECT_TRUE(typed.invoke());
  EXPECT_EQ(calls, 41);
  EXPECT_EQ(typed.getValueType(), "action");
}

TEST(GenericParam, ConstraintsRunInOrderOfAddingEachOnThePreviousResult) {
  TextParam param(L"Name", "name", L"", L"");
  param.addValueConstraint(Zo::Ptr<iValueConstraint>(new FunctionConstraint([](auto const& t) { return t + L"a"; })));
  param.addValueConstraint(Zo::Ptr<iValueConstraint>(new FunctionConstraint([](auto const& t) { return t + L"b"; })));
  param.setValueFromString(L"x");
  EXPECT_EQ(param.getValue(), L"xab");
}

TEST(GenericParam, UnparsableTextIsStoredAsTheConversionGivesIt) {
  DoubleParam param(L"Gain", "gain", L"", 0.5, 0, 1);
  param.setValueFromString(L"not a number");
  EXPECT_EQ(param.getValue(), (DataConvert::convert<LightweightString<wchar_t>, double>(L"not a number")));
}

TEST(GenericParam, RulesAreRecordedForTheBuilder) {
  IntParam param(L"Level", "level", L"", 5, 0, 10);
  param.setActiveIf(Condition("enabled", L"true"));
  param.setActiveIf(Condition("mode", L"1|2"));
  param.setVisibleIf(Condition("advanced", L"true"));
  param.isLessThan("max");
  param.isGreaterThan("min");
  EXPECT_EQ(param.getActiveConditions().size(), 2u);
  EXPECT_EQ(param.getVisibleCondition().paramId, "advanced");
  EXPECT_EQ(param.getLessThanId(), "max");
  EXPECT_EQ(param.getGreaterThanId(), "min");
  EXPECT_TRUE(TextSearch::match(L"2", param.getActiveConditions()[1].criteria, 0));
}

TEST(GenericParam, ValueTypeWords) {
  EXPECT_EQ(BoolParam(L"", "b", L"", false).getValueType(), "bool");
  EXPECT_EQ(IntParam(L"", "i", L"", 0).getValueType(), "int");
  EXPECT_EQ(DoubleParam(L"", "d", L"", 0, 0, 1).getValueType(), "double");
  EXPECT_EQ(ChoiceParam(L"", "c", L"", 0, {}).getValueType(), "int");
  EXPECT_EQ(TextParam(L"", "t", L"", L"").getValueType(), "text");
  EXPECT_EQ(LabelParam(L"", "l", L"label").getValueType(), "text");
  EXPECT_EQ(GroupParam(L"", "g", L"", {}).getValueType(), "group");
}

TEST(GenericParam, BoolTextIsTrueOrFalse) {
  BoolParam param(L"", "b", L"", true);
  EXPECT_EQ(param.getValueAsString(), L"true");
  param.setValueFromString(L"false");
  EXPECT_EQ(param.getValueAsString(), L"false");
}

} // namespace
