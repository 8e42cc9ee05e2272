#include "containers/SpaceDividerTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>

#include <cstdlib>

namespace {

using Divider = SpaceDivider;

struct SpaceDividerDrag : SpaceDividerTest {
  FlagRecorder* recorderFirst = nullptr;
  FlagRecorder* recorderSecond = nullptr;

  void makeRecorded(XY<int> size, Orientation orientation, Divider::eSplitterType type) {
    makeDivider(size, orientation, 0.5f, type);
    recorderFirst = addChild<FlagRecorder>(Divider::kFirstWidget);
    recorderSecond = addChild<FlagRecorder>(Divider::kSecondWidget);
    divider->resize(size.x, size.y);
  }
  XY<int> grip() const { return HeadlessInput::pointOn(*divider->getSplitter()); }
  void forget() {
    recorderFirst->seen.clear();
    recorderSecond->seen.clear();
  }
};

TEST_F(SpaceDividerDrag, DraggingBeyondEitherEndStopsHalfASplitterFromTheEdge) {
  int const t = Splitter::calcThickness();
  int const half = t / 2;
  int const extent = 200 + t;
  makeRecorded(XY<int>(extent, 60), kSideBySide, Divider::kStandardSplitter);
  XY<int> const start = grip();
  HeadlessInput::moveTo(start);
  HeadlessInput::press();
  HeadlessInput::moveTo(XY<int>(start.x - 40, start.y));
  HeadlessInput::moveTo(XY<int>(0, start.y));
  EXPECT_EQ(first()->width(), 0) << "c is 0 at the left end";
  EXPECT_EQ(second()->width(), extent - t);
  HeadlessInput::moveTo(XY<int>(start.x + 40, start.y));
  HeadlessInput::moveTo(XY<int>(1900, start.y));
  EXPECT_EQ(first()->width(), extent - t - half) << "c is E - t - half at the right end";
  EXPECT_EQ(second()->width(), half);
  HeadlessInput::release();
}

TEST_F(SpaceDividerDrag, ADragMovesTheDivisionAndTheEndRereadsTheWholeLengthFraction) {
  makeRecorded(XY<int>(201, 60), kSideBySide, Divider::kDiscreetSplitter);
  XY<int> const start = grip();
  HeadlessInput::moveTo(start);
  HeadlessInput::press();
  HeadlessInput::moveTo(start + XY<int>(15, 3));
  HeadlessInput::moveTo(start + XY<int>(30, 5));
  EXPECT_EQ(first()->width(), 130) << "while dragging, the first child ends under the pointer";
  EXPECT_EQ(second()->width(), 70);
  EXPECT_FLOAT_EQ(divider->getSplitPos(), 130.0f / 201.0f) << "taken from the first child over the whole width";
  HeadlessInput::release();
  // Released, the sizes come from that fraction over the width less the line.
  EXPECT_EQ(first()->width(), static_cast<int>(200 * (130.0f / 201.0f)));
  EXPECT_EQ(second()->getX(), first()->width() + 1);
  EXPECT_EQ(divider->getSplitter()->getBarPosition(), first()->width());
}

TEST_F(SpaceDividerDrag, StackedADragUpGrowsTheBottomChild) {
  makeRecorded(XY<int>(60, 201), kStacked, Divider::kDiscreetSplitter);
  XY<int> const start = grip();
  HeadlessInput::drag(start, start + XY<int>(0, 40));
  EXPECT_GT(second()->height(), 130);
  EXPECT_LE(second()->height(), 140);
  EXPECT_EQ(first()->height(), 200 - second()->height());
  EXPECT_EQ(first()->getY(), second()->height() + 1);
}

TEST_F(SpaceDividerDrag, SideBySideTheChildrenHearWhichEdgesMove) {
  makeRecorded(XY<int>(201, 60), kSideBySide, Divider::kDiscreetSplitter);
  XY<int> const start = grip();
  HeadlessInput::moveTo(start);
  HeadlessInput::press();
  EXPECT_EQ(recorderFirst->getResizeDirection(), 18u) << "live, right edge";
  EXPECT_EQ(recorderSecond->getResizeDirection(), 17u) << "live, left edge";
  forget();
  HeadlessInput::moveTo(start + XY<int>(10, 0));
  ASSERT_FALSE(recorderFirst->seen.empty());
  EXPECT_EQ(recorderFirst->seen.front(), 18u);
  EXPECT_EQ(recorderSecond->seen.front(), 17u);
  EXPECT_EQ(recorderFirst->getResizeDirection(), 2u) << "restored without the live bit";
  EXPECT_EQ(recorderSecond->getResizeDirection(), 1u);
  forget();
  HeadlessInput::moveTo(start + XY<int>(20, 0));
  ASSERT_FALSE(recorderFirst->seen.empty());
  EXPECT_EQ(recorderFirst->seen.front(), 2u);
  forget();
  HeadlessInput::release();
  ASSERT_FALSE(recorderFirst->seen.empty());
  EXPECT_EQ(recorderFirst->seen.front(), 34u) << "final, right edge";
  EXPECT_EQ(recorderSecond->seen.front(), 33u) << "final, left edge";
  EXPECT_EQ(recorderFirst->getResizeDirection(), 0u);
  EXPECT_EQ(recorderSecond->getResizeDirection(), 0u);
}

TEST_F(SpaceDividerDrag, StackedTheChildrenHearWhichEdgesMove) {
  makeRecorded(XY<int>(60, 201), kStacked, Divider::kStandardSplitter);
  XY<int> const start = grip();
  HeadlessInput::moveTo(start);
  HeadlessInput::press();
  EXPECT_EQ(recorderFirst->getResizeDirection(), 20u) << "live, the top child's bottom edge";
  EXPECT_EQ(recorderSecond->getResizeDirection(), 24u) << "live, the bottom child's top edge";
  forget();
  HeadlessInput::moveTo(start - XY<int>(0, 10));
  HeadlessInput::release();
  ASSERT_FALSE(recorderFirst->seen.empty());
  EXPECT_EQ(recorderFirst->seen.back(), 36u);
  EXPECT_EQ(recorderSecond->seen.back(), 40u);
  EXPECT_EQ(recorderFirst->getResizeDirection(), 0u);
}

TEST_F(SpaceDividerDrag, ArrowKeysOnTheSplitterMoveTheDivision) {
  makeRecorded(XY<int>(201, 60), kSideBySide, Divider::kStandardSplitter);
  int const before = first()->width();
  HeadlessInput::clickOn(*divider->getSplitter());
  ASSERT_TRUE(divider->getSplitter()->hasKbdFocus());
  HeadlessInput::key(kKeyRight);
  EXPECT_GT(first()->width(), before);
  EXPECT_LE(first()->width(), before + UifStd::getWidgetGap());
  EXPECT_EQ(second()->width(), 201 - Splitter::calcThickness() - first()->width());
  HeadlessInput::key(kKeyHome);
  EXPECT_LE(first()->width(), Splitter::calcThickness() / 2) << "the bar's lowest place";
}

TEST_F(SpaceDividerDrag, TheDragStopsAtAChildsMinimum) {
  makeDivider(XY<int>(201, 60), kSideBySide, 0.5f, Divider::kDiscreetSplitter);
  addChild(Divider::kFirstWidget)->setMinSize(XY<int>(80, 0));
  addChild(Divider::kSecondWidget);
  divider->resize(201, 60);
  HeadlessInput::drag(grip(), XY<int>(0, grip().y));
  EXPECT_EQ(first()->width(), 80);
  EXPECT_EQ(second()->width(), 120);
}

} // namespace
