#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/widgets/popups/SelectionRectangle.h>

#include <vector>

namespace {

// A board that draws a rubber band while the left button drags over it and
// keeps the areas the drags covered.
class Board : public Glob {
public:
  explicit Board(GlobCreationInfo const& info) : Glob(info) {
    band = static_cast<SelectionRectangle*>(addWidget(new SelectionRectangle(SelectionRectangle::InitArgs())));
    band->setVisible(false);
  }
  int react(Event const& event) override {
    if (!mouse_left_event(event) && event.type != Event::kMouseMove)
      return Glob::react(event);
    if (event.type == Event::kMouseDown)
      band->begin(event.position);
    else if (event.type == Event::kMouseMove)
      band->extendTo(event.position);
    else if (event.type == Event::kMouseUp)
      chosen.push_back(band->finish());
    return 1;
  }
  SelectionRectangle* band = nullptr;
  std::vector<Zo::Box<int>> chosen;
};

struct SelectionRectangleTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  Board* board = nullptr;
  Glob* marker = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(320, 240), XY<int>(100, 100));
    panel->setBorder(Border());
    board = panel->createChild<Board>(GlobCreationInfo(XY<int>(300, 200)), Glob::BottomLeft(0, 0));
    // A sibling added after the band: the band must still come out in front.
    marker = board->createChild<Glob>(GlobCreationInfo(XY<int>(40, 40)), Glob::BottomLeft(100, 60));
  }
};

TEST(SelectionRectangleBox, CoversBothPointsWhicheverWayTheDragWent) {
  EXPECT_EQ(SelectionRectangle::boxBetween(XY<int>(10, 20), XY<int>(30, 5)), Zo::Box<int>(10, 5, 31, 21));
  EXPECT_EQ(SelectionRectangle::boxBetween(XY<int>(7, 7), XY<int>(7, 7)), Zo::Box<int>(7, 7, 8, 8));
}

TEST_F(SelectionRectangleTest, TheBandFollowsTheDragThenGoesAndAnswersTheArea) {
  Palette const& palette = board->getPalette();
  XY<int> const inside(120, 80); // on the marker
  Rgb const before = rgbOf(widgetPixel(*board, inside));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*board, XY<int>(50, 150)));
  HeadlessInput::press();
  HeadlessInput::moveTo(HeadlessInput::pointOn(*board, XY<int>(90, 120)));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*board, XY<int>(200, 40)));
  ASSERT_TRUE(board->band->isDragging());
  EXPECT_EQ(board->band->getArea(), Zo::Box<int>(50, 40, 201, 151));
  EXPECT_EQ(board->getChildren().back(), board->band) << "drawn over the widgets it covers";
  // Inside: the selection colour washed over the marker at half strength.
  Rgb const washed = rgbOf(widgetPixel(*board, inside));
  Rgb const selection = rgbOf(palette.selection());
  Rgb const expected{(before.r + selection.r) / 2, (before.g + selection.g) / 2, (before.b + selection.b) / 2};
  EXPECT_TRUE(near(washed, expected, 2)) << washed << " expected " << expected;
  // Its edge is solid.
  EXPECT_TRUE(near(rgbOf(widgetPixel(*board, XY<int>(50, 100))), selection));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*board, XY<int>(200, 100))), selection));
  HeadlessInput::release();
  ASSERT_EQ(board->chosen.size(), 1u);
  EXPECT_EQ(board->chosen[0], Zo::Box<int>(50, 40, 201, 151));
  EXPECT_FALSE(board->band->isVisible());
  EXPECT_TRUE(near(rgbOf(widgetPixel(*board, inside)), before));
}

TEST_F(SelectionRectangleTest, TheBandStaysInsideItsParentAndTakesNoInput) {
  board->band->begin(XY<int>(250, 20));
  board->band->extendTo(XY<int>(400, -30));
  EXPECT_EQ(board->band->getArea(), Zo::Box<int>(250, 0, 300, 21));
  EXPECT_EQ(board->band->pick(XY<int>(5, 5)), nullptr);
  EXPECT_EQ(board->pick(XY<int>(260, 10)), board) << "what lies under the band gets the events";
  EXPECT_EQ(board->band->finish(), Zo::Box<int>(250, 0, 300, 21));
  EXPECT_TRUE(board->band->finish().empty()) << "nothing was under way";
}

} // namespace
