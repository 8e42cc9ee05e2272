// The awkward corners of the tutorial document: what is dropped on writing,
// what an absent key turns into, and the lookups that do not stop early.
#include "tutorials/TutorialTestSupport.h"

#include <gtest/gtest.h>

namespace {

using Phase = Tutorial::Phase;

TEST(TutorialEdgeCases, APhaseWithNothingValidIsAnEmptyObjectAndReadsBackAsDefault) {
  Phase phase;
  phase.pointer.target = L"";
  phase.message.target = L"timeline";
  phase.action.modifiers = Tutorial::Action::kShift;
  ASSERT_FALSE(phase.pointer.valid());
  ASSERT_FALSE(phase.message.valid());
  ASSERT_FALSE(phase.action.valid());
  EXPECT_EQ(writtenPart(phase), "{}");

  Tutorial tutorial;
  tutorial.addPhase(Zo::make<Phase>(phase));
  auto const back = readTutorial(writtenText(tutorial));
  ASSERT_EQ(back->getNumPhases(), 1);
  Phase const& read = *back->getPhase(0);
  EXPECT_EQ(read.pause, 0.0f);
  EXPECT_EQ(read.pointer.position, XY<double>(-1234.0, -1234.0));
  EXPECT_TRUE(read.pointer.target.empty());
  EXPECT_TRUE(read.message.text.empty());
  EXPECT_TRUE(read.message.target.empty());
  EXPECT_EQ(read.message.origin, kOriginCentre);
  EXPECT_EQ(read.message.relativity, kRelativeBelow);
  EXPECT_TRUE(read.action.event.empty());
  EXPECT_EQ(read.action.modifiers, 0u);
}

TEST(TutorialEdgeCases, APointerWithCoordinatesAndATargetLosesTheTargetOnSaving) {
  Phase phase;
  phase.pointer.position = XY<double>(12.0, 34.0);
  phase.pointer.target = L"viewer";
  EXPECT_EQ(writtenPart(phase), R"({"pointer":{"x":12,"y":34}})");

  Tutorial tutorial;
  tutorial.addPhase(Zo::make<Phase>(phase));
  auto const back = readTutorial(writtenText(tutorial));
  EXPECT_EQ(back->getPhase(0)->pointer.position, XY<double>(12.0, 34.0));
  EXPECT_TRUE(back->getPhase(0)->pointer.target.empty());
}

TEST(TutorialEdgeCases, APointerWithOnlyYIsInvalidWritesNoKeysAndIsLeftOut) {
  Tutorial::Pointer pointer;
  pointer.position = XY<double>(-1234.0, 50.0);
  EXPECT_FALSE(pointer.valid()) << "only x decides";
  EXPECT_EQ(writtenPart(pointer), "{}");

  Phase phase;
  phase.pointer = pointer;
  phase.pause = 2.0f;
  EXPECT_EQ(writtenPart(phase), R"({"pause":2})");
}

TEST(TutorialEdgeCases, APointerWithXAndNoYReadsYAsUnsetStaysValidAndWritesIt) {
  auto const tutorial = readTutorial(R"({"phases":[{"pointer":{"x":7}}]})");
  Tutorial::Pointer const& pointer = tutorial->getPhase(0)->pointer;
  EXPECT_EQ(pointer.position, XY<double>(7.0, -1234.0));
  EXPECT_TRUE(pointer.valid());
  EXPECT_EQ(writtenPart(pointer), R"({"x":7,"y":-1234})");
}

TEST(TutorialEdgeCases, AMessageWithoutOriginOrRelativityReadsTheRelativityOfTheEmptyText) {
  auto const tutorial = readTutorial(R"({"phases":[{"message":{"target":"bin","text":"Open it"}}]})");
  Tutorial::Message const& message = tutorial->getPhase(0)->message;
  EXPECT_EQ(message.relativity, WidgetRelativityFromString(""));
  EXPECT_EQ(message.relativity, kRelativeNone) << "the default, below, is not kept";
  EXPECT_EQ(message.target, L"bin");
  EXPECT_EQ(message.text, L"Open it");
}

TEST(TutorialEdgeCases, AModifierTwiceGivesOneFlagAndWritingFollowsTheFlagOrder) {
  auto const tutorial =
      readTutorial(R"({"phases":[{"action":{"event":"click","modifiers":["alt","shift","shift","cmd"]}}]})");
  Tutorial::Action const& action = tutorial->getPhase(0)->action;
  EXPECT_EQ(action.modifiers, unsigned(Tutorial::Action::kShift | Tutorial::Action::kAlt | Tutorial::Action::kCmd));
  EXPECT_EQ(writtenPart(action), R"({"event":"click","modifiers":["shift","cmd","alt"]})");
}

TEST(TutorialEdgeCases, AMessageWithATargetButNoTextIsDroppedOnWriting) {
  Phase phase;
  phase.message.target = L"toolbar";
  phase.message.relativity = kRelativeAbove;
  EXPECT_FALSE(phase.message.valid());
  EXPECT_EQ(writtenPart(phase), "{}");
}

TEST(TutorialEdgeCases, GetPhaseCutsThePhaseCountTo16Bits) {
  Tutorial tutorial;
  for (int i = 0; i < 65536 + 2; ++i)
    tutorial.addPhase(Zo::make<Phase>());
  // 65538 phases count as 2.
  EXPECT_TRUE(tutorial.getPhase(0));
  EXPECT_TRUE(tutorial.getPhase(1));
  EXPECT_FALSE(tutorial.getPhase(2)) << "the third phase exists but lies beyond the cut count";
  EXPECT_FALSE(tutorial.getPhase(65535));
  Tutorial const& constant = tutorial;
  EXPECT_EQ(constant.getPhase(1).get(), tutorial.phases()[1].get());
  EXPECT_FALSE(constant.getPhase(2));
}

TEST(TutorialEdgeCases, GetPhaseBeyondTheEndIsNull) {
  Tutorial tutorial;
  EXPECT_FALSE(tutorial.getPhase(0));
  auto const phase = Zo::make<Phase>();
  tutorial.addPhase(phase);
  EXPECT_EQ(tutorial.getPhase(0), phase);
  EXPECT_FALSE(tutorial.getPhase(1));
}

TEST(TutorialEdgeCases, TheLastComponentOfATypeGivesThePosition) {
  auto const tutorial = readTutorial(R"({"components":[
      {"type":"viewer","x":1,"y":2},
      {"type":"bin","x":3,"y":4},
      {"type":"viewer","x":5,"y":6}]})");
  EXPECT_EQ(tutorial->getComponentPosition("viewer", 0.0f), XY<double>(5.0, 6.0));
  EXPECT_EQ(tutorial->getComponentPosition("viewer", 99.0f), XY<double>(5.0, 6.0)) << "the float has no effect";
  EXPECT_EQ(tutorial->getComponentPosition("bin", 0.0f), XY<double>(3.0, 4.0));
  EXPECT_EQ(tutorial->getComponentPosition("Viewer", 0.0f), XY<double>(0.0, 0.0)) << "types compare exactly";
  EXPECT_EQ(tutorial->getComponentPosition("", 0.0f), XY<double>(0.0, 0.0));
}

TEST(TutorialEdgeCases, APointerWithoutTargetDisplaysAsAComma) {
  Tutorial::Pointer pointer;
  pointer.position = XY<double>(100.0, 150.0);
  EXPECT_EQ(pointer.getDisplayString(), L",");
  EXPECT_EQ(Tutorial::Pointer().getDisplayString(), L",");
  pointer.target = L"trim tool";
  EXPECT_EQ(pointer.getDisplayString(), L"trim tool");
}

} // namespace
