#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <string>
#include <vector>

namespace {

struct ScrollBarTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  MessageLog* log = nullptr;
  ScrollBar* bar = nullptr;
  std::vector<ScrollBarEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(300, 300));
    log = static_cast<MessageLog*>(panel->addChild(new MessageLog(XY<int>(250, 250)), Glob::UserTopLeft(0, 0)));
  }
  void makeBar(XY<int> size, double share) {
    ScrollBar::InitArgs args(size);
    args.thumbSize = share;
    bar = log->createChild<ScrollBar>(args, Glob::TopLeft(0, 0));
    bar->addListener(ScrollBar::makeCallback([this](ScrollBarEvent const& event) { events.push_back(event); }));
  }
  // A point on a vertical bar's middle, `distance` pixels below its top.
  XY<int> down(int distance) const { return XY<int>(bar->width() / 2, bar->height() - 1 - distance); }
};

TEST_F(ScrollBarTest, ThicknessFollowsTheScale) {
  int const atOne = ScrollBar::thickness();
  UifStd::setScale(2.0);
  EXPECT_EQ(ScrollBar::thickness(), 2 * atOne);
  UifStd::setScale(1.0);
  EXPECT_GT(atOne, UifStd::getWidgetGap());
}

TEST_F(ScrollBarTest, TheThumbIsTheShareThatShows) {
  makeBar(XY<int>(ScrollBar::thickness(), 200), 0.25);
  EXPECT_TRUE(bar->isVertical());
  EXPECT_EQ(bar->trackLength(), 200 - 2 * ScrollBar::thickness());
  EXPECT_NEAR(bar->thumbLength(), bar->trackLength() / 4.0, 1.0);
  EXPECT_EQ(bar->thumbStart(), bar->trackStart());
  bar->setThumbPosition(1.0);
  EXPECT_EQ(bar->thumbStart() + bar->thumbLength(), bar->trackStart() + bar->trackLength());
}

TEST_F(ScrollBarTest, DraggingTheThumbMovesItAndTellsTheParent) {
  makeBar(XY<int>(ScrollBar::thickness(), 200), 0.25);
  int const slack = bar->trackLength() - bar->thumbLength();
  XY<int> const grab = down(bar->thumbStart() + bar->thumbLength() / 2);
  HeadlessInput::drag(HeadlessInput::pointOn(*bar, grab), HeadlessInput::pointOn(*bar, grab) - XY<int>(0, slack / 2));
  EXPECT_NEAR(bar->getThumbPosition(), 0.5, 0.05);
  ASSERT_FALSE(log->messages.empty());
  EXPECT_EQ(log->messages.back(), ScrollBar::thumbMovedMsg);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().kind, ScrollBarEvent::kThumbMoved);
  EXPECT_EQ(events.back().position, bar->getThumbPosition());
  HeadlessInput::drag(HeadlessInput::pointOn(*bar, down(bar->thumbStart() + 2)),
                      HeadlessInput::pointOn(*bar, down(bar->thumbStart() + 2)) - XY<int>(0, 500));
  EXPECT_EQ(bar->getThumbPosition(), 1.0) << "clamped at the end";
}

TEST_F(ScrollBarTest, TheEndButtonsSendTheStepMessages) {
  makeBar(XY<int>(ScrollBar::thickness(), 200), 0.25);
  HeadlessInput::clickOn(*bar, down(ScrollBar::thickness() / 2));
  HeadlessInput::clickOn(*bar, down(200 - ScrollBar::thickness() / 2));
  EXPECT_EQ(log->messages,
            (std::vector<std::string>{ScrollBar::leftButtonPressedMsg, ScrollBar::rightButtonPressedMsg}));
  EXPECT_EQ(bar->getThumbPosition(), 0.0) << "stepping is the owner's business";
}

TEST_F(ScrollBarTest, PressingTheTrackMovesAPage) {
  makeBar(XY<int>(200, ScrollBar::thickness()), 0.25);
  EXPECT_FALSE(bar->isVertical());
  int const slack = bar->trackLength() - bar->thumbLength();
  XY<int> const pastThumb(bar->trackStart() + bar->trackLength() - 2, bar->height() / 2);
  HeadlessInput::clickOn(*bar, pastThumb);
  EXPECT_NEAR(bar->getThumbPosition(), 0.25 / 0.75, 1e-9) << "what shows, a quarter, of the three quarters left";
  EXPECT_NEAR(bar->getThumbPosition(), static_cast<double>(bar->thumbLength()) / slack, 0.01) << "the thumb's length";
  EXPECT_EQ(log->messages, (std::vector<std::string>{ScrollBar::thumbMovedMsg}));
}

TEST_F(ScrollBarTest, OverLongContentsThePageIsWhatShowsNotTheThumbsLeastLength) {
  // A hundred thousand rows with fifteen in sight: the thumb is drawn at its
  // least length, far longer than its share.
  double const share = 15.0 / 100000.0;
  makeBar(XY<int>(ScrollBar::thickness(), 300), share);
  ASSERT_GT(bar->thumbLength(), 300 * share);
  HeadlessInput::clickOn(*bar, down(bar->thumbStart() + bar->thumbLength() + 2));
  EXPECT_NEAR(bar->getThumbPosition(), share / (1.0 - share), 1e-12);
}

TEST_F(ScrollBarTest, TheWheelStepsOncePerNotch) {
  makeBar(XY<int>(ScrollBar::thickness(), 200), 0.25);
  HeadlessInput::wheel(HeadlessInput::pointOn(*bar), 2);
  HeadlessInput::wheel(HeadlessInput::pointOn(*bar), -1);
  EXPECT_EQ(log->messages, (std::vector<std::string>{ScrollBar::leftButtonPressedMsg, ScrollBar::leftButtonPressedMsg,
                                                     ScrollBar::rightButtonPressedMsg}));
}

TEST_F(ScrollBarTest, TheThumbIsDrawnWhereItIs) {
  makeBar(XY<int>(ScrollBar::thickness(), 200), 0.25);
  bar->setThumbPosition(1.0);
  Rgb const thumb = rgbOf(widgetPixel(*bar, down(bar->thumbStart() + bar->thumbLength() / 2)));
  Rgb const track = rgbOf(widgetPixel(*bar, down(bar->trackStart() + 2)));
  EXPECT_TRUE(near(thumb, rgbOf(bar->getPalette().window(5)), 2)) << thumb;
  EXPECT_TRUE(near(track, rgbOf(bar->getPalette().window(-2)), 2)) << track;
}

} // namespace
