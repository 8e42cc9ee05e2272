#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/DiscreetSplitter.h>
#include <zowidgets/host/widgets/panels/Splitter.h>

#include <string>
#include <vector>

namespace {

constexpr int kLength = 300;
constexpr int kAcross = 100;
constexpr int kFirstLength = 140;

struct SplitterTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  MessageLog* log = nullptr;
  Glob* first = nullptr; // left, or top when stacked
  Glob* second = nullptr;
  Splitter* splitter = nullptr;
  std::vector<SplitterEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(kLength + 40, kLength + 40));
    log = static_cast<MessageLog*>(panel->addChild(new MessageLog(XY<int>(kLength, kLength)), Glob::UserTopLeft(0, 0)));
  }

  template <class T = Splitter> T* makeSideBySide(bool resizes) {
    first = log->addChild(new Glob(GlobCreationInfo(XY<int>(kFirstLength, kAcross))), Glob::TopLeft(0, 0));
    typename T::InitArgs args(kSideBySide, kAcross);
    args.resizesNeighbours = resizes;
    args.callback = Splitter::makeCallback([this](SplitterEvent const& event) { events.push_back(event); });
    T* made = nullptr;
    if constexpr (std::is_same_v<T, DiscreetSplitter>) {
      int const line = DiscreetSplitter::getVisibleThickness();
      second = log->addChild(new Glob(GlobCreationInfo(XY<int>(kLength - kFirstLength - line, kAcross))),
                             Glob::TopRight(0, 0));
      made = log->createChild<T>(args, DiscreetSplitter::LeftOf(second));
    } else {
      made = log->createChild<T>(args, Glob::RightOf(0, first));
      second = log->addChild(
          new Glob(GlobCreationInfo(XY<int>(kLength - kFirstLength - Splitter::calcThickness(), kAcross))),
          Glob::RightOf(0, made));
    }
    splitter = made;
    return made;
  }

  void makeStacked(bool resizes) {
    first = log->addChild(new Glob(GlobCreationInfo(XY<int>(kAcross, kFirstLength))), Glob::TopLeft(0, 0));
    Splitter::InitArgs args(kStacked, kAcross);
    args.resizesNeighbours = resizes;
    args.callback = Splitter::makeCallback([this](SplitterEvent const& event) { events.push_back(event); });
    splitter = log->createChild<Splitter>(args, Glob::Below(0, first));
    second =
        log->addChild(new Glob(GlobCreationInfo(XY<int>(kAcross, kLength - kFirstLength - Splitter::calcThickness()))),
                      Glob::Below(0, splitter));
  }

  void dragBy(XY<int> by) {
    XY<int> const from = HeadlessInput::pointOn(*splitter);
    HeadlessInput::drag(from, from + by);
  }
  std::vector<int> kinds() const {
    std::vector<int> found;
    for (SplitterEvent const& event : events)
      found.push_back(event.kind);
    return found;
  }
};

TEST_F(SplitterTest, ItsThicknessAndSizeFollowTheScale) {
  EXPECT_EQ(Splitter::calcThickness(), 2 * UifStd::getRowGap());
  EXPECT_EQ(Splitter::calcDimensions(kSideBySide, 80), XY<int>(Splitter::calcThickness(), 80));
  EXPECT_EQ(Splitter::calcDimensions(kStacked, 80), XY<int>(80, Splitter::calcThickness()));
  int const atOne = Splitter::calcThickness();
  UifStd::setScale(2.0);
  EXPECT_EQ(Splitter::calcThickness(), 2 * atOne);
  UifStd::setScale(1.0);
}

TEST_F(SplitterTest, TakesItsOrientationFromItsArgumentsOrItsShape) {
  EXPECT_EQ(Splitter(Splitter::InitArgs(kStacked, 50)).getOrientation(), kStacked);
  EXPECT_EQ(Splitter(Splitter::InitArgs(kSideBySide, 50)).getOrientation(), kSideBySide);
  EXPECT_EQ(Splitter(GlobCreationInfo(XY<int>(6, 50))).getOrientation(), kSideBySide);
  EXPECT_EQ(Splitter(GlobCreationInfo(XY<int>(50, 6))).getOrientation(), kStacked);
}

TEST_F(SplitterTest, FindsTheChildrenOnEitherSide) {
  makeSideBySide(true);
  EXPECT_EQ(splitter->neighbourBefore(), first);
  EXPECT_EQ(splitter->neighbourAfter(), second);
  EXPECT_EQ(splitter->getBarPosition(), kFirstLength);
}

TEST_F(SplitterTest, DraggingItResizesBothNeighboursWhenToldTo) {
  makeSideBySide(true);
  int const secondEnd = second->getX() + second->width();
  dragBy(XY<int>(30, 5));
  EXPECT_EQ(first->width(), kFirstLength + 30);
  EXPECT_EQ(first->getX(), 0);
  EXPECT_EQ(splitter->getX(), kFirstLength + 30);
  EXPECT_EQ(second->getX(), splitter->getX() + splitter->width());
  EXPECT_EQ(second->getX() + second->width(), secondEnd);
  EXPECT_EQ(first->height(), kAcross) << "only the length along the axis changes";
}

TEST_F(SplitterTest, ADragPastAChildsMinimumStopsThere) {
  makeSideBySide(true);
  first->setMinSize(XY<int>(100, 0));
  dragBy(XY<int>(-120, 0));
  EXPECT_EQ(first->width(), 100);
  EXPECT_EQ(splitter->getBarPosition(), 100);
  second->setMinSize(XY<int>(120, 0));
  dragBy(XY<int>(200, 0));
  EXPECT_EQ(second->width(), 120);
  EXPECT_EQ(second->getX() + second->width(), kLength);
}

TEST_F(SplitterTest, ADragPastAChildsMaximumStopsThere) {
  makeSideBySide(true);
  first->setMaxSize(XY<int>(160, 0));
  dragBy(XY<int>(60, 0));
  EXPECT_EQ(first->width(), 160);
  second->setMaxSize(XY<int>(kLength - Splitter::calcThickness() - 130, 0));
  dragBy(XY<int>(-80, 0));
  EXPECT_EQ(first->width(), 130) << "the other child's maximum holds the bar back";
  EXPECT_EQ(splitter->getBarRange().lowest, 130);
  EXPECT_EQ(splitter->getBarRange().highest, 160);
}

TEST_F(SplitterTest, ADragStaysInsideTheParentWithoutNeighbours) {
  splitter = log->createChild<Splitter>(Splitter::InitArgs(kSideBySide, kAcross), Glob::TopLeft(50, 0));
  splitter->setResizesNeighbours(true);
  dragBy(XY<int>(-150, 0));
  EXPECT_EQ(splitter->getBarPosition(), 0);
  dragBy(XY<int>(400, 0));
  EXPECT_EQ(splitter->getBarPosition(), kLength - Splitter::calcThickness());
}

TEST_F(SplitterTest, ADragTellsBeginThenMovesThenEnd) {
  makeSideBySide(true);
  dragBy(XY<int>(40, 0));
  ASSERT_GE(events.size(), 3u);
  EXPECT_EQ(events.front().kind, SplitterEvent::kBegin);
  EXPECT_EQ(events.front().position, kFirstLength);
  EXPECT_EQ(events.back().kind, SplitterEvent::kEnd);
  EXPECT_EQ(events.back().position, kFirstLength + 40);
  int previous = kFirstLength;
  for (std::size_t i = 1; i + 1 < events.size(); ++i) {
    EXPECT_EQ(events[i].kind, SplitterEvent::kMove) << i;
    EXPECT_GT(events[i].position, previous) << "each move goes on from the last";
    EXPECT_EQ(events[i].splitter, splitter);
    previous = events[i].position;
  }
  EXPECT_EQ(previous, kFirstLength + 40);
}

TEST_F(SplitterTest, EachMoveReachesTheParentAsAMessage) {
  makeSideBySide(true);
  dragBy(XY<int>(40, 0));
  std::size_t moves = 0;
  for (SplitterEvent const& event : events)
    moves += event.kind == SplitterEvent::kMove;
  ASSERT_GT(moves, 0u);
  ASSERT_EQ(log->messages.size(), moves);
  for (std::size_t i = 0; i < moves; ++i) {
    EXPECT_EQ(log->messages[i], Splitter::kMoveMsg);
    EXPECT_EQ(log->senders[i], splitter);
  }
}

TEST_F(SplitterTest, LeftToItsParentItMovesNothingButReportsTheKeptPosition) {
  makeSideBySide(false);
  first->setMinSize(XY<int>(100, 0));
  dragBy(XY<int>(-120, 0));
  EXPECT_EQ(first->width(), kFirstLength);
  EXPECT_EQ(splitter->getBarPosition(), kFirstLength);
  ASSERT_GE(events.size(), 3u);
  EXPECT_EQ(events[events.size() - 2].kind, SplitterEvent::kMove);
  EXPECT_EQ(events[events.size() - 2].position, 100) << "the position the parent should take";
  EXPECT_FALSE(log->messages.empty());
}

TEST_F(SplitterTest, ArrowKeysMoveItWhileItHasTheFocus) {
  makeSideBySide(true);
  HeadlessInput::clickOn(*splitter);
  ASSERT_TRUE(splitter->hasKbdFocus()) << "a press gives it the focus";
  events.clear();
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(splitter->getBarPosition(), kFirstLength + UifStd::getWidgetGap());
  EXPECT_EQ(kinds(), (std::vector<int>{SplitterEvent::kBegin, SplitterEvent::kMove, SplitterEvent::kEnd}));
  HeadlessInput::key(kKeyLeft);
  HeadlessInput::key(kKeyLeft);
  EXPECT_EQ(splitter->getBarPosition(), kFirstLength - UifStd::getWidgetGap());
  EXPECT_EQ(first->width(), kFirstLength - UifStd::getWidgetGap());
  HeadlessInput::key(kKeyRight, kKeyShift);
  EXPECT_EQ(splitter->getBarPosition(), kFirstLength - UifStd::getWidgetGap() + UifStd::getRowHeight());
}

TEST_F(SplitterTest, HomeAndEndGoAsFarAsTheChildrenAllow) {
  makeSideBySide(true);
  first->setMinSize(XY<int>(60, 0));
  second->setMinSize(XY<int>(70, 0));
  splitter->claimKbdFocus();
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(first->width(), 60);
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(second->width(), 70);
  events.clear();
  HeadlessInput::key(kKeyRight);
  EXPECT_TRUE(events.empty()) << "a key that cannot move it tells nobody";
}

TEST_F(SplitterTest, KeysAcrossItsAxisAreNotItsOwn) {
  makeSideBySide(true);
  splitter->claimKbdFocus();
  HeadlessInput::key(kKeyUp);
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(splitter->getBarPosition(), kFirstLength);
  EXPECT_TRUE(events.empty());
}

TEST_F(SplitterTest, StackedItDividesUpAndDown) {
  makeStacked(true);
  EXPECT_EQ(splitter->neighbourAfter(), first) << "the upper child comes after it in bottom-up coordinates";
  EXPECT_EQ(splitter->neighbourBefore(), second);
  int const top = first->getY() + first->height();
  dragBy(XY<int>(0, 20));
  EXPECT_EQ(first->height(), kFirstLength - 20);
  EXPECT_EQ(first->getY() + first->height(), top);
  EXPECT_EQ(second->getY(), 0);
  EXPECT_EQ(second->height(), kLength - kFirstLength - Splitter::calcThickness() + 20);
  splitter->claimKbdFocus();
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(first->height(), kFirstLength - 20 + UifStd::getWidgetGap());
  first->setMinSize(XY<int>(0, 130));
  dragBy(XY<int>(0, 100));
  EXPECT_EQ(first->height(), 130);
}

TEST_F(SplitterTest, ThePointerShowsWhichWayItMoves) {
  makeSideBySide(true);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*splitter));
  EXPECT_EQ(screen().cursor(), kCursorResizeHorizontal);
  log->removeWidget(splitter);
  makeStacked(true);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*splitter));
  EXPECT_EQ(screen().cursor(), kCursorResizeVertical);
}

TEST_F(SplitterTest, AnInactiveSplitterCannotBeDragged) {
  makeSideBySide(true);
  splitter->setActive(false, kRedrawNow);
  dragBy(XY<int>(40, 0));
  EXPECT_EQ(first->width(), kFirstLength);
  EXPECT_TRUE(events.empty());
}

TEST_F(SplitterTest, ADiscreetSplitterKeepsItsChildrenALineApartAndIsTakenHoldOfBesideIt) {
  makeSideBySide<DiscreetSplitter>(true);
  int const line = DiscreetSplitter::getVisibleThickness();
  int const overhang = DiscreetSplitter::calcOverhang();
  EXPECT_EQ(splitter->getSize(), DiscreetSplitter::calcSize(kSideBySide, kAcross));
  EXPECT_EQ(splitter->getBarPosition(), kFirstLength) << "the line meets the first child's edge";
  EXPECT_EQ(splitter->getX(), kFirstLength - overhang) << "its box reaches over the first child";
  EXPECT_EQ(second->getX(), kFirstLength + line);
  // Taken hold of over the first child, just beside the line.
  XY<int> const grip = HeadlessInput::pointOn(*splitter, XY<int>(1, kAcross / 2));
  HeadlessInput::drag(grip, grip + XY<int>(25, 0));
  EXPECT_EQ(first->width(), kFirstLength + 25);
  EXPECT_EQ(second->getX(), kFirstLength + 25 + line);
  EXPECT_EQ(second->getX() + second->width(), kLength);
  second->setMinSize(XY<int>(100, 0));
  dragBy(XY<int>(200, 0));
  EXPECT_EQ(second->width(), 100);
  EXPECT_EQ(splitter->getBarPosition(), kLength - 100 - line);
}

TEST_F(SplitterTest, ADiscreetSplitterPlacedBelowATopChild) {
  first = log->addChild(new Glob(GlobCreationInfo(XY<int>(kAcross, kFirstLength))), Glob::TopLeft(0, 0));
  auto* discreet =
      log->createChild<DiscreetSplitter>(DiscreetSplitter::InitArgs(kStacked, kAcross), DiscreetSplitter::Below(first));
  EXPECT_EQ(discreet->getBarPosition() + DiscreetSplitter::getVisibleThickness(), first->getY());
  EXPECT_EQ(discreet->getY() + discreet->height(), first->getY() + DiscreetSplitter::calcOverhang());
}

} // namespace
