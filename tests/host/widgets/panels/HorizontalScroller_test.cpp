#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/HorizontalScroller.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

namespace {

// The wheel turned `steps` notches (away from the user) with Shift held, as a
// person gives it: the pointer moves there first.
void shiftWheel(XY<int> point, int steps) {
  HeadlessInput::moveTo(point);
  InputRouter::mouseWheel(point, steps, kKeyShift);
}

// A view that scrolls its content sideways by a HorizontalScroller, counting
// the scrolls it hears of.
class SidewaysView : public Glob {
public:
  explicit SidewaysView(XY<int> size) : Glob(GlobCreationInfo(size)) {}
  int react(Event const& event) override {
    if (event.isMessage())
      return scroller.handleMessage(event.message, event.sourceWidget) ? 1 : 0;
    return scroller.handleWheel(event) ? 1 : 0;
  }
  int scrolls = 0;
  HorizontalScroller scroller{*this, [this] { ++scrolls; }};
};

struct HorizontalScrollerTest : HeadlessScreenTest {
  SidewaysView* view = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    StandardPanel* panel = openPanel(XY<int>(320, 200));
    view = static_cast<SidewaysView*>(panel->addChild(new SidewaysView(XY<int>(300, 150)), Glob::UserTopLeft(0, 0)));
  }
  ScrollBar& bar() const { return *view->scroller.getBar(); }
  // Content of `content` pixels in the view's 300, the bar along its foot.
  void overflowBy(int content) {
    view->scroller.setWidths(content, view->width());
    view->scroller.placeBar(XY<int>(0, 0));
  }
};

TEST_F(HorizontalScrollerTest, TheBarShowsOnlyWhileTheContentIsWiderThanTheView) {
  EXPECT_FALSE(view->scroller.isBarShown());
  EXPECT_FALSE(bar().isVisible());
  EXPECT_EQ(view->scroller.barHeight(), 0);
  EXPECT_FALSE(view->scroller.setWidths(300, 300)) << "a content as wide as the view fits";
  EXPECT_FALSE(bar().isVisible());
  EXPECT_TRUE(view->scroller.setWidths(301, 300)) << "one pixel more overflows";
  EXPECT_TRUE(bar().isVisible());
  EXPECT_EQ(view->scroller.barHeight(), ScrollBar::thickness());
  EXPECT_FALSE(view->scroller.setWidths(400, 300)) << "still shown: no change to report";
  EXPECT_TRUE(view->scroller.setWidths(200, 300));
  EXPECT_FALSE(bar().isVisible());
}

TEST_F(HorizontalScrollerTest, ThePlacedBarLiesAlongTheViewsFootAsWideAsTheView) {
  overflowBy(600);
  EXPECT_EQ(bar().getPosition(), XY<int>(0, 0));
  EXPECT_EQ(bar().width(), 300);
  EXPECT_EQ(bar().height(), ScrollBar::thickness());
  EXPECT_FALSE(bar().isVertical());
  EXPECT_DOUBLE_EQ(bar().getThumbSize(), 0.5) << "half the content shows";
}

TEST_F(HorizontalScrollerTest, TheOffsetStaysBetweenTheEnds) {
  overflowBy(500);
  view->scroller.setOffset(-20);
  EXPECT_EQ(view->scroller.offset(), 0);
  view->scroller.setOffset(1000);
  EXPECT_EQ(view->scroller.offset(), 200);
  EXPECT_DOUBLE_EQ(bar().getThumbPosition(), 1.0);
  EXPECT_EQ(view->scrolls, 1) << "told once: the first request changed nothing";
}

TEST_F(HorizontalScrollerTest, ContentThatShrinksPullsTheOffsetBackAndSaysSo) {
  overflowBy(500);
  view->scroller.setOffset(200);
  view->scrolls = 0;
  view->scroller.setWidths(350, 300);
  EXPECT_EQ(view->scroller.offset(), 50);
  EXPECT_EQ(view->scrolls, 1);
  view->scroller.setWidths(250, 300);
  EXPECT_EQ(view->scroller.offset(), 0);
  EXPECT_FALSE(view->scroller.isBarShown());
}

TEST_F(HorizontalScrollerTest, ShowingAPartScrollsAsLittleAsNeeded) {
  overflowBy(1000);
  view->scroller.scrollToShow(100, 200);
  EXPECT_EQ(view->scroller.offset(), 0) << "already in sight";
  view->scroller.scrollToShow(500, 600);
  EXPECT_EQ(view->scroller.offset(), 300) << "its right edge at the view's";
  view->scroller.scrollToShow(250, 320);
  EXPECT_EQ(view->scroller.offset(), 250) << "its left edge at the view's";
  view->scroller.scrollToShow(600, 1000);
  EXPECT_EQ(view->scroller.offset(), 600) << "wider than the view: its left edge shows";
}

TEST_F(HorizontalScrollerTest, ShiftWithTheWheelScrollsSidewaysTowardsTheUserGoingRight) {
  overflowBy(1000);
  XY<int> const middle = HeadlessInput::pointOn(*view);
  shiftWheel(middle, -1);
  int const step = view->scroller.offset();
  EXPECT_EQ(step, 3 * HorizontalScroller::stepWidth());
  shiftWheel(middle, 1);
  EXPECT_EQ(view->scroller.offset(), 0);
}

TEST_F(HorizontalScrollerTest, AWheelTurnIsLeftAloneWhenNothingOverflowsOrItIsNotSideways) {
  overflowBy(200);
  Event shifted;
  shifted.type = Event::kMouseWheel;
  shifted.wheel = -1;
  shifted.modifiers = kKeyShift;
  EXPECT_FALSE(view->scroller.handleWheel(shifted)) << "nothing to scroll: the rows may take it";
  overflowBy(1000);
  Event plain = shifted;
  plain.modifiers = 0;
  EXPECT_EQ(HorizontalScroller::sidewaysSteps(plain), 0);
  EXPECT_FALSE(view->scroller.handleWheel(plain));
  EXPECT_EQ(HorizontalScroller::sidewaysSteps(shifted), 1);
  EXPECT_EQ(view->scroller.offset(), 0);
}

TEST_F(HorizontalScrollerTest, TheBarsEndButtonsStepAndItsThumbDrags) {
  overflowBy(1000);
  int const end = bar().trackStart();
  HeadlessInput::clickOn(bar(), XY<int>(bar().width() - end / 2, bar().height() / 2));
  EXPECT_EQ(view->scroller.offset(), HorizontalScroller::stepWidth());
  HeadlessInput::clickOn(bar(), XY<int>(end / 2, bar().height() / 2));
  EXPECT_EQ(view->scroller.offset(), 0);
  int const grab = bar().thumbStart() + bar().thumbLength() / 2;
  int const y = bar().height() / 2;
  HeadlessInput::drag(HeadlessInput::pointOn(bar(), XY<int>(grab, y)),
                      HeadlessInput::pointOn(bar(), XY<int>(bar().width() - 1, y)));
  EXPECT_EQ(view->scroller.offset(), 700) << "the thumb at the end shows the content's end";
}

} // namespace
