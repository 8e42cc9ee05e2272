#include "support/WidgetTestSupport.h"

#include <vector>

namespace {

// Records what GlobManager tells its listeners while it lives.
struct EventRecorder {
  struct Heard {
    int kind;
    Glob* glob;
    friend bool operator==(Heard const&, Heard const&) = default;
  };

  EventRecorder() {
    guard = GlobManager::notifier().addListener(
        Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
            new FunctionCallback<GlobManagerEvent, int>([this](GlobManagerEvent const& event) {
              heard.push_back(Heard{event.kind, event.glob});
              return 0;
            })),
        NotifyMsgTypeDictionary::instance().anyType());
  }
  // The events of one kind, in order.
  std::vector<Glob*> of(int kind) const {
    std::vector<Glob*> globs;
    for (Heard const& h : heard)
      if (h.kind == kind)
        globs.push_back(h.glob);
    return globs;
  }

  std::vector<Heard> heard;
  Zo::Ptr<Zo::Guard> guard;
};

std::ostream& operator<<(std::ostream& out, EventRecorder::Heard const& heard) {
  return out << "{kind " << heard.kind << ", " << heard.glob << "}";
}

struct GlobManagerEvents : HeadlessScreenTest {};

TEST_F(GlobManagerEvents, AWindowShownIsRealizedThenActivated) {
  EventRecorder recorder;
  StandardPanel* panel = openPanel(XY<int>(100, 100));
  std::vector<EventRecorder::Heard> const expected = {{GlobManagerEvent::kRealized, panel},
                                                      {GlobManagerEvent::kActivated, panel}};
  EXPECT_EQ(recorder.heard, expected);
}

TEST_F(GlobManagerEvents, APressInAWindowActivatesIt) {
  StandardPanel* back = openPanel(XY<int>(100, 100), XY<int>(100, 100));
  Glob* child = back->createChild<Glob>(GlobCreationInfo(XY<int>(40, 40)), Glob::Centre(0, 0));
  openPanel(XY<int>(100, 100), XY<int>(400, 100));
  EventRecorder recorder;
  HeadlessInput::moveTo(XY<int>(700, 700));
  EXPECT_TRUE(recorder.heard.empty()) << "moving the pointer activates nothing";
  HeadlessInput::clickOn(*child);
  EXPECT_EQ(recorder.of(GlobManagerEvent::kActivated), std::vector<Glob*>{back}) << "the window, not the widget";
  HeadlessInput::click(XY<int>(1500, 900)); // on no window
  EXPECT_EQ(recorder.of(GlobManagerEvent::kActivated).size(), 1u);
}

TEST_F(GlobManagerEvents, MovingResizingAndHidingAWindowAreTold) {
  StandardPanel* panel = openPanel(XY<int>(100, 100), XY<int>(100, 100));
  EventRecorder recorder;
  panel->canvas()->move(XY<int>(120, 100));
  panel->canvas()->move(XY<int>(120, 100)); // not a move
  panel->resize(150, 100);
  panel->canvas()->unmap();
  std::vector<EventRecorder::Heard> const expected = {
      {GlobManagerEvent::kMoved, panel}, {GlobManagerEvent::kResized, panel}, {GlobManagerEvent::kHidden, panel}};
  EXPECT_EQ(recorder.heard, expected);
}

TEST_F(GlobManagerEvents, AWindowMovedByTheScreenIsToldAndTakesThePointerWhereItNowIs) {
  StandardPanel* panel = openPanel(XY<int>(100, 100), XY<int>(100, 100));
  Glob* child = panel->createChild<Glob>(GlobCreationInfo(XY<int>(40, 40)), Glob::Centre(0, 0));
  EventRecorder recorder;
  panel->canvas()->movedOnScreen(XY<int>(500, 300));
  panel->canvas()->movedOnScreen(XY<int>(500, 300)); // not a move
  EXPECT_EQ(recorder.of(GlobManagerEvent::kMoved), std::vector<Glob*>{panel});
  EXPECT_EQ(panel->canvas()->getPosition(), XY<int>(500, 300));
  EXPECT_EQ(HeadlessInput::pointOn(*child), XY<int>(500 + child->getX() + 20, 300 + child->getY() + 20));
}

TEST_F(GlobManagerEvents, AWindowResizedOnTheScreenResizesItsRootAndLaysItOutAgain) {
  StandardPanel* panel = openPanel(XY<int>(100, 100), XY<int>(100, 100));
  Glob* corner = panel->createChild<Glob>(GlobCreationInfo(XY<int>(10, 10)), Glob::UserTopRight(0, 0));
  EventRecorder recorder;
  panel->canvas()->resizedOnScreen(XY<int>(100, 60), XY<int>(160, 140));
  EXPECT_EQ(panel->getSize(), XY<int>(160, 140));
  EXPECT_EQ(panel->canvas()->getSize(), XY<int>(160, 140));
  EXPECT_EQ(panel->canvas()->getPosition(), XY<int>(100, 60));
  EXPECT_EQ(corner->getX() + corner->width(), panel->getUserArea().x1) << "laid out for the new size";
  EXPECT_EQ(recorder.of(GlobManagerEvent::kResized), std::vector<Glob*>{panel});
  EXPECT_EQ(recorder.of(GlobManagerEvent::kMoved), std::vector<Glob*>{panel});
  // The whole new picture is painted.
  EXPECT_TRUE(panel->canvas()->pendingDamage().empty());
  EXPECT_EQ(HeadlessInput::pointOn(*corner).x, 100 + corner->getX() + corner->width() / 2);
}

TEST_F(GlobManagerEvents, EveryWidgetDeletedIsToldWhileItsChildrenAreWhole) {
  StandardPanel* panel = openPanel(XY<int>(100, 100));
  Glob* group = panel->createChild<Glob>(GlobCreationInfo(XY<int>(60, 60)), Glob::Centre(0, 0));
  Glob* leaf = group->createChild<Glob>(GlobCreationInfo(XY<int>(10, 10)), Glob::Centre(0, 0));
  bool leafWasInsideGroup = false;
  auto guard = GlobManager::notifier().addListener(
      Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
          new FunctionCallback<GlobManagerEvent, int>([&](GlobManagerEvent const& event) {
            if (event.kind == GlobManagerEvent::kWidgetDeleted && event.glob == group)
              leafWasInsideGroup = isParentedTo(leaf, group);
            return 0;
          })),
      NotifyMsgTypeDictionary::instance().anyType());
  EventRecorder recorder;
  panel->removeWidget(group);
  EXPECT_EQ(recorder.of(GlobManagerEvent::kWidgetDeleted), (std::vector<Glob*>{group, leaf}));
  EXPECT_TRUE(leafWasInsideGroup);
  EXPECT_TRUE(recorder.of(GlobManagerEvent::kDeleted).empty()) << "kind 1 is for windows";
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_EQ(recorder.of(GlobManagerEvent::kDeleted), std::vector<Glob*>{panel});
  EXPECT_TRUE(recorder.of(GlobManagerEvent::kHidden).empty()) << "a window destroyed is not merely hidden";
}

TEST_F(GlobManagerEvents, AWindowBesideAModalOneTakesInputWithoutBecomingModal) {
  StandardPanel* dialogue = openPanel(XY<int>(200, 100), XY<int>(100, 100));
  StandardPanel* beside = openPanel(XY<int>(80, 60), XY<int>(350, 100));
  StandardPanel* other = openPanel(XY<int>(80, 60), XY<int>(600, 100));
  Glob* inDialogue = dialogue->createChild<Glob>(GlobCreationInfo(XY<int>(20, 20)), Glob::Centre(0, 0));
  GlobManager::addModalGlob(dialogue);
  EXPECT_TRUE(GlobManager::refusesInput(beside));
  GlobManager::addModalGlob(beside, dialogue);
  EXPECT_EQ(GlobManager::currentModal(), dialogue);
  EXPECT_FALSE(GlobManager::refusesInput(beside));
  EXPECT_FALSE(GlobManager::refusesInput(inDialogue));
  EXPECT_FALSE(GlobManager::refusesInput(dialogue));
  EXPECT_TRUE(GlobManager::refusesInput(other));
  EXPECT_TRUE(GlobManager::refusesInput(nullptr));

  EventRecorder recorder;
  HeadlessInput::clickOn(*beside);
  HeadlessInput::clickOn(*other);
  HeadlessInput::clickOn(*dialogue);
  EXPECT_EQ(recorder.of(GlobManagerEvent::kActivated), (std::vector<Glob*>{beside, dialogue}))
      << "the press in the blocked window reached nothing";

  GlobManager::removeModalGlob(dialogue);
  EXPECT_FALSE(GlobManager::refusesInput(other));
  GlobManager::addModalGlob(dialogue);
  GlobManager::requestDeletion(beside);
  pump();
  StandardPanel* newcomer = openPanel(XY<int>(80, 60), XY<int>(350, 100));
  EXPECT_TRUE(GlobManager::refusesInput(newcomer)) << "the pairing went with the window";
  GlobManager::removeModalGlob(dialogue);
}

} // namespace
