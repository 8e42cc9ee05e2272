// The tutorial file format: key order, conditional keys, the two forms of
// pointer and message, case rules, missing and wrong keys, and narrowing of
// every number to single precision.
#include "tutorials/TutorialTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Phase = Tutorial::Phase;
using Action = Tutorial::Action;

// The example tutorial with one component and two phases.
Zo::Ptr<Tutorial> twoPhaseTutorial() {
  auto tutorial = Zo::make<Tutorial>();
  tutorial->setName(L"Trimming a clip");
  tutorial->setCategory(L"Editing");
  Tutorial::UIComponent viewer;
  viewer.type = "viewer";
  viewer.size = XY<double>(320.0, 200.0);
  viewer.position = XY<double>(40.0, 60.0);
  tutorial->components().push_back(viewer);

  auto first = Zo::make<Phase>();
  first->pause = 1.5f;
  first->pointer.target = L"viewer";
  first->message.target = L"viewer";
  first->message.relativity = kRelativeRight;
  first->message.text = L"This is the viewer";
  tutorial->addPhase(first);

  auto second = Zo::make<Phase>();
  second->pointer.position = XY<double>(100.0, 150.0);
  second->message.origin = kOriginTopLeft;
  second->message.text = L"Drag the edge";
  second->action.event = "drag";
  second->action.modifiers = Action::kShift | Action::kAlt;
  tutorial->addPhase(second);
  return tutorial;
}

TEST(TutorialFileFormat, KeysAreWrittenInTheirOrderWithConditionalKeysLeftOut) {
  EXPECT_EQ(writtenText(*twoPhaseTutorial()), R"({
  "name": "Trimming a clip",
  "category": "Editing",
  "components": [
    {
      "type": "viewer",
      "width": 320,
      "height": 200,
      "x": 40,
      "y": 60
    }
  ],
  "phases": [
    {
      "pause": 1.5,
      "pointer": {
        "target": "viewer"
      },
      "message": {
        "target": "viewer",
        "relativity": "right",
        "text": "This is the viewer"
      }
    },
    {
      "pointer": {
        "x": 100,
        "y": 150
      },
      "message": {
        "origin": "topleft",
        "text": "Drag the edge"
      },
      "action": {
        "event": "drag",
        "modifiers": [
          "shift",
          "alt"
        ]
      }
    }
  ]
})");
}

TEST(TutorialFileFormat, TheExampleReadsBackAsWritten) {
  auto const back = readTutorial(writtenText(*twoPhaseTutorial()));
  EXPECT_EQ(back->name(), L"Trimming a clip");
  EXPECT_EQ(back->category(), L"Editing");
  ASSERT_EQ(back->components().size(), 1u);
  EXPECT_EQ(back->components()[0].type, "viewer");
  EXPECT_EQ(back->components()[0].size, XY<double>(320.0, 200.0));
  EXPECT_EQ(back->components()[0].position, XY<double>(40.0, 60.0));
  ASSERT_EQ(back->getNumPhases(), 2);

  Phase const& first = *back->getPhase(0);
  EXPECT_EQ(first.pause, 1.5f);
  EXPECT_EQ(first.pointer.target, L"viewer");
  EXPECT_EQ(first.pointer.position, XY<double>(-1234.0, -1234.0)) << "a target pointer has no position";
  EXPECT_EQ(first.message.origin, kOriginCentre);
  EXPECT_EQ(first.message.relativity, kRelativeRight);
  EXPECT_FALSE(first.action.valid());
  EXPECT_EQ(first.action.modifiers, 0u);

  Phase const& second = *back->getPhase(1);
  EXPECT_EQ(second.pause, 0.0f);
  EXPECT_EQ(second.message.relativity, kRelativeBelow);
  EXPECT_EQ(second.message.origin, kOriginTopLeft);
  EXPECT_EQ(second.pointer.position, XY<double>(100.0, 150.0));
  EXPECT_EQ(second.action.event, "drag");
  EXPECT_EQ(second.action.modifiers, 0x5000000u);
}

TEST(TutorialFileFormat, AnEmptyTutorialStillWritesItsListsAndTexts) {
  EXPECT_EQ(writtenText(Tutorial()), R"({
  "name": "",
  "category": "",
  "components": [],
  "phases": []
})");
}

TEST(TutorialFileFormat, NumberKeysMatchInAnyCaseAndTheFirstMatchWins) {
  auto const tutorial = readTutorial(R"({"components":[{"type":"bin","X":3,"x":9,"Y":4,"WIDTH":5,"Height":6}],
      "phases":[{"PAUSE":2.5,"pointer":{"X":11,"y":12}}]})");
  Tutorial::UIComponent const& component = tutorial->components()[0];
  EXPECT_EQ(component.position, XY<double>(3.0, 4.0));
  EXPECT_EQ(component.size, XY<double>(5.0, 6.0));
  EXPECT_EQ(tutorial->getPhase(0)->pause, 2.5f);
  EXPECT_EQ(tutorial->getPhase(0)->pointer.position, XY<double>(11.0, 12.0));
}

TEST(TutorialFileFormat, TextKeysAndObjectKeysMatchOnlyInTheirOwnCase) {
  auto const tutorial = readTutorial(R"({"Name":"n","CATEGORY":"c","Components":[{"type":"x"}],
      "Phases":[{}],"phases":[{"Text":"t","Pointer":{"x":1},"Message":{"text":"m"},
      "Action":{"event":"e"}}, {"action":{"Event":"e","modifiers":["Shift","ALT","ctrl"]}}]})");
  EXPECT_TRUE(tutorial->name().empty());
  EXPECT_TRUE(tutorial->category().empty());
  EXPECT_TRUE(tutorial->components().empty());
  ASSERT_EQ(tutorial->getNumPhases(), 2);
  Phase const& first = *tutorial->getPhase(0);
  EXPECT_FALSE(first.pointer.valid());
  EXPECT_FALSE(first.message.valid());
  EXPECT_FALSE(first.action.valid());
  Action const& second = tutorial->getPhase(1)->action;
  EXPECT_TRUE(second.event.empty());
  EXPECT_EQ(second.modifiers, unsigned(Action::kCtrl)) << "\"Shift\" and \"ALT\" set nothing";
}

TEST(TutorialFileFormat, MissingKeysTakeTheirDefaults) {
  auto const tutorial = readTutorial(R"({"components":[{}],"phases":[{"pointer":{},"message":{},"action":{}}]})");
  EXPECT_TRUE(tutorial->name().empty());
  EXPECT_TRUE(tutorial->category().empty());
  Tutorial::UIComponent const& component = tutorial->components()[0];
  EXPECT_TRUE(component.type.empty());
  EXPECT_EQ(component.position, XY<double>(0.0, 0.0));
  EXPECT_EQ(component.size, XY<double>(0.0, 0.0));
  Phase const& phase = *tutorial->getPhase(0);
  EXPECT_EQ(phase.pause, 0.0f);
  EXPECT_EQ(phase.pointer.position, XY<double>(-1234.0, -1234.0));
  EXPECT_FALSE(phase.pointer.valid());
  EXPECT_TRUE(phase.message.text.empty());
  EXPECT_EQ(phase.message.relativity, kRelativeNone);
  EXPECT_TRUE(phase.action.event.empty());
  EXPECT_EQ(phase.action.modifiers, 0u);

  auto const bare = readTutorial("{}");
  EXPECT_TRUE(bare->components().empty());
  EXPECT_EQ(bare->getNumPhases(), 0);
}

TEST(TutorialFileFormat, AValueOfTheWrongKindReadsAsAbsent) {
  auto const tutorial = readTutorial(R"({"name":5,"category":true,
      "components":[{"type":7,"x":"1","y":null,"width":[2],"height":{"h":3}}],
      "phases":[{"pause":"3","text":4,"pointer":"there","message":["m"],
                 "action":{"event":1,"modifiers":"shift"}},
                {"pointer":{"target":8,"x":"5","y":6},"message":{"origin":3,"target":"bin","relativity":2,"text":"t"}}]})");
  EXPECT_TRUE(tutorial->name().empty());
  EXPECT_TRUE(tutorial->category().empty());
  Tutorial::UIComponent const& component = tutorial->components()[0];
  EXPECT_TRUE(component.type.empty());
  EXPECT_EQ(component.position, XY<double>(0.0, 0.0));
  EXPECT_EQ(component.size, XY<double>(0.0, 0.0));

  Phase const& first = *tutorial->getPhase(0);
  EXPECT_EQ(first.pause, 0.0f);
  EXPECT_FALSE(first.pointer.valid()) << "a string is no pointer object";
  EXPECT_TRUE(first.message.text.empty()) << "an array of strings holds no key \"text\"";
  EXPECT_TRUE(first.action.event.empty());
  EXPECT_EQ(first.action.modifiers, 0u) << "a string is no list of modifiers";

  Phase const& second = *tutorial->getPhase(1);
  EXPECT_EQ(second.pointer.position, XY<double>(-1234.0, 6.0));
  EXPECT_FALSE(second.pointer.valid());
  EXPECT_EQ(second.message.target, L"bin") << "a number \"origin\" does not choose the screen form";
  EXPECT_EQ(second.message.relativity, kRelativeNone);
  EXPECT_EQ(second.message.text, L"t");
}

TEST(TutorialFileFormat, ListsOfAnotherShapeAreReadForTheObjectsTheyHold) {
  // "phases" as an object: its member objects are read as phases, in order.
  auto const tutorial = readTutorial(R"({"phases":{"a":{"pause":1},"b":2,"c":{"pause":3}},"components":"none"})");
  ASSERT_EQ(tutorial->getNumPhases(), 2);
  EXPECT_EQ(tutorial->getPhase(0)->pause, 1.0f);
  EXPECT_EQ(tutorial->getPhase(1)->pause, 3.0f);
  EXPECT_TRUE(tutorial->components().empty());
  EXPECT_EQ(readTutorial(R"({"phases":[1,"two",true]})")->getNumPhases(), 0);
}

TEST(TutorialFileFormat, ExtraKeysAreIgnoredAndNotWrittenBack) {
  auto const tutorial = readTutorial(R"({"version":3,"name":"N","author":"someone","category":"C",
      "components":[{"type":"bin","colour":"red","x":1}],
      "phases":[{"sound":"ding","pointer":{"x":1,"y":2,"z":3},"message":{"origin":"left","text":"m","font":"big"},
                 "action":{"event":"click","repeat":2}}],"extra":{"phases":[{}]}})");
  EXPECT_EQ(tutorial->name(), L"N");
  EXPECT_EQ(tutorial->getNumPhases(), 1);
  std::string const written = writtenText(*tutorial);
  for (char const* extra : {"version", "author", "colour", "sound", "\"z\"", "font", "repeat", "extra"})
    EXPECT_EQ(written.find(extra), std::string::npos) << extra;
  EXPECT_EQ(writtenText(*readTutorial(written)), written);
}

TEST(TutorialFileFormat, EveryNumberGoesThroughSinglePrecision) {
  auto const tutorial =
      readTutorial(R"({"components":[{"type":"bin","x":0.1,"y":16777217,"width":1e-50,"height":1e300}],
      "phases":[{"pause":0.1,"pointer":{"x":3.14159265358979,"y":-0.0}}]})");
  Tutorial::UIComponent const& component = tutorial->components()[0];
  EXPECT_EQ(component.position.x, double(0.1f));
  EXPECT_NE(component.position.x, 0.1);
  EXPECT_EQ(component.position.y, 16777216.0) << "the nearest float";
  EXPECT_EQ(component.size.x, 0.0);
  EXPECT_TRUE(std::isinf(component.size.y)) << "beyond a float's range is infinite";
  EXPECT_EQ(tutorial->getPhase(0)->pause, 0.1f);
  EXPECT_EQ(tutorial->getPhase(0)->pointer.position.x, double(3.14159265358979f));

  // Doubles set in code are narrowed on writing.
  Tutorial written;
  Tutorial::UIComponent exact;
  exact.type = "precise";
  exact.position = XY<double>(0.1, 1.0 / 3.0);
  exact.size = XY<double>(1e-50, 123456789.0);
  written.components().push_back(exact);
  std::string const text = writtenText(written);
  EXPECT_NE(text.find(R"("x": 0.1,)"), std::string::npos) << text;
  EXPECT_NE(text.find(R"("y": 0.33333334)"), std::string::npos) << text;
  EXPECT_NE(text.find(R"("width": 0,)"), std::string::npos) << text;
  EXPECT_NE(text.find(R"("height": 123456792,)"), std::string::npos) << text;
}

TEST(TutorialFileFormat, AnInfiniteNumberIsWrittenAsNullAndReadsAsItsDefault) {
  Phase phase;
  phase.pause = std::numeric_limits<float>::infinity();
  phase.pointer.position = XY<double>(1e300, 5.0);
  EXPECT_EQ(writtenPart(phase), R"({"pause":null,"pointer":{"x":null,"y":5}})");
  Tutorial tutorial;
  tutorial.addPhase(Zo::make<Phase>(phase));
  auto const back = readTutorial(writtenText(tutorial));
  EXPECT_EQ(back->getPhase(0)->pause, 0.0f);
  EXPECT_EQ(back->getPhase(0)->pointer.position, XY<double>(-1234.0, 5.0));
}

TEST(TutorialFileFormat, TheShortTextIsReadFirstAndAMessageObjectReplacesIt) {
  auto const tutorial = readTutorial(R"({"phases":[{"text":"short"},
      {"message":{"origin":"left","text":"long"},"text":"short"},
      {"text":"short","message":{"origin":"left"}}]})");
  EXPECT_EQ(tutorial->getPhase(0)->message.text, L"short");
  EXPECT_EQ(tutorial->getPhase(1)->message.text, L"long");
  EXPECT_TRUE(tutorial->getPhase(2)->message.text.empty()) << "the message object's missing text replaces it too";
  EXPECT_EQ(writtenPart(*tutorial->getPhase(0)), R"({"message":{"origin":"centre","text":"short"}})")
      << "\"text\" itself is never written";
}

TEST(TutorialFileFormat, AMessageWithOriginAndTargetIsReadInTheScreenForm) {
  auto const tutorial = readTutorial(
      R"({"phases":[{"message":{"target":"bin","relativity":"left","origin":"bottomright","text":"t"}}]})");
  Tutorial::Message const& message = tutorial->getPhase(0)->message;
  EXPECT_EQ(message.origin, kOriginBottomRight);
  EXPECT_TRUE(message.target.empty());
  EXPECT_EQ(message.relativity, kRelativeBelow) << "left as it was";
}

TEST(TutorialFileFormat, APointerTargetStopsTheReadingOfCoordinates) {
  auto const tutorial =
      readTutorial(R"({"phases":[{"pointer":{"target":"bin","x":1,"y":2}},{"pointer":{"target":"","x":1,"y":2}}]})");
  EXPECT_EQ(tutorial->getPhase(0)->pointer.target, L"bin");
  EXPECT_EQ(tutorial->getPhase(0)->pointer.position, XY<double>(-1234.0, -1234.0));
  EXPECT_EQ(tutorial->getPhase(1)->pointer.position, XY<double>(1.0, 2.0));
}

TEST(TutorialFileFormat, UnknownPositionNamesReadAsTheFirstValue) {
  auto const tutorial = readTutorial(R"({"phases":[{"message":{"origin":"TopLeft","text":"a"}},
      {"message":{"target":"bin","relativity":"Above","text":"b"}}]})");
  EXPECT_EQ(tutorial->getPhase(0)->message.origin, kOriginCentre);
  EXPECT_EQ(tutorial->getPhase(1)->message.relativity, kRelativeNone);
}

TEST(TutorialFileFormat, ModifierStringsAreThoseOfSingleFlags) {
  EXPECT_EQ(Action::asString(0x1000000), "shift");
  EXPECT_EQ(Action::asString(0x2000000), "ctrl");
  EXPECT_EQ(Action::asString(0x100000), "cmd");
  EXPECT_EQ(Action::asString(0x4000000), "alt");
  EXPECT_TRUE(Action::asString(0).empty());
  EXPECT_TRUE(Action::asString(0x5000000).empty()) << "combinations have no string";
  EXPECT_TRUE(Action::asString(0x8000000).empty());
}

TEST(TutorialFileFormat, ModifiersAreAddedToThoseAlreadySet) {
  Action action;
  action.modifiers = Action::kCmd;
  action.read(parsed(R"({"event":"key","modifiers":["ctrl","hyper"]})"));
  EXPECT_EQ(action.modifiers, unsigned(Action::kCmd | Action::kCtrl));
  Action unknownBits;
  unknownBits.event = "key";
  unknownBits.modifiers = 0x1 | Action::kAlt;
  EXPECT_EQ(writtenPart(unknownBits), R"({"event":"key","modifiers":["alt"]})")
      << "bits without a name are not written";
}

TEST(TutorialFileFormat, ASecondReadAddsToWhatIsThere) {
  std::string const json = R"({"name":"A","category":"B","components":[{"type":"bin"}],"phases":[{"pause":1}]})";
  auto const tutorial = readTutorial(json);
  tutorial->read(parsed(R"({"name":"C","components":[{"type":"viewer"}],"phases":[{"pause":2}]})"));
  EXPECT_EQ(tutorial->name(), L"C");
  EXPECT_TRUE(tutorial->category().empty());
  ASSERT_EQ(tutorial->components().size(), 2u);
  EXPECT_EQ(tutorial->components()[1].type, "viewer");
  ASSERT_EQ(tutorial->getNumPhases(), 2);
  EXPECT_EQ(tutorial->getPhase(1)->pause, 2.0f);
}

TEST(TutorialFileFormat, TheSpareComponentPositionIsCopiedButNeverStored) {
  Tutorial tutorial;
  Tutorial::UIComponent component;
  component.type = "bin";
  component.offset = XY<double>(8.0, 9.0);
  tutorial.components().push_back(component);
  EXPECT_EQ(Tutorial(tutorial).components()[0].offset, XY<double>(8.0, 9.0));
  std::string const text = writtenText(tutorial);
  EXPECT_EQ(text.find('8'), std::string::npos) << text;
  EXPECT_EQ(readTutorial(text)->components()[0].offset, XY<double>(0.0, 0.0));
}

TEST(TutorialFileFormat, ACopyHasPhasesOfItsOwn) {
  auto const source = twoPhaseTutorial();
  Tutorial copy(*source);
  EXPECT_EQ(writtenText(copy), writtenText(*source));
  ASSERT_EQ(copy.getNumPhases(), 2);
  EXPECT_NE(copy.getPhase(0).get(), source->getPhase(0).get());
  copy.getPhase(0)->message.text = L"Changed";
  copy.removePhase(copy.getPhase(1));
  EXPECT_EQ(source->getPhase(0)->message.text, L"This is the viewer");
  EXPECT_EQ(source->getNumPhases(), 2);
}

TEST(TutorialFileFormat, RemovePhaseComparesIdentityAndTakesTheFirstEntryOnly) {
  Tutorial tutorial;
  auto const shared = Zo::make<Phase>();
  auto const other = Zo::make<Phase>();
  tutorial.addPhase(shared);
  tutorial.addPhase(other);
  tutorial.addPhase(shared);
  tutorial.removePhase(Zo::make<Phase>(*shared));
  EXPECT_EQ(tutorial.getNumPhases(), 3) << "an equal copy is another phase";
  tutorial.removePhase(shared);
  ASSERT_EQ(tutorial.getNumPhases(), 2);
  EXPECT_EQ(tutorial.getPhase(0), other);
  EXPECT_EQ(tutorial.getPhase(1), shared);
}

} // namespace
