#include "EditorTestSupport.h"

#include <zowidgets/editor/AngleIndicatorWidget.h>
#include <zowidgets/host/toolkit/CursorCodes.h>

#include <cmath>
#include <vector>

namespace {

using namespace HeadlessInput;

TEST(AngleDifference, TakesTheShortWayRound) {
  EXPECT_DOUBLE_EQ(calcSmallestDifference(350, 10), 20);
  EXPECT_DOUBLE_EQ(calcSmallestDifference(10, 350), 20);
  EXPECT_DOUBLE_EQ(calcSmallestDifference(30, 90), 60);
  EXPECT_DOUBLE_EQ(calcSmallestDifference(0, 180), 180);
  EXPECT_DOUBLE_EQ(calcSmallestDifference(-10, 10), 20);
}

class AngleIndicatorTest : public EditorWidgetTest {
protected:
  static constexpr int kSize = 101; // the centre falls on a pixel: (51, 51)

  void SetUp() override {
    EditorWidgetTest::SetUp();
    openHeader();
    AngleControl::InitArgs args(GlobCreationInfo(kSize, kSize));
    dial = add<AngleControl>(args, Glob::UserTopLeft(10, 10));
    dial->addListener(Broadcaster<AngleControlEvent>::makeCallback(
        [this](AngleControlEvent const& event) { heard.push_back(event); }));
  }
  // A point at `degrees` clockwise from straight up, `distance` from the
  // centre, in the dial's coordinates.
  XY<int> at(double degrees, double distance = 30) const {
    XY<int> const centre = dial->getCentre();
    double const r = degrees * 3.14159265358979323846 / 180;
    return XY<int>(centre.x + static_cast<int>(std::lround(std::sin(r) * distance)),
                   centre.y + static_cast<int>(std::lround(std::cos(r) * distance)));
  }

  AngleControl* dial = nullptr;
  std::vector<AngleControlEvent> heard;
};

TEST_F(AngleIndicatorTest, ItsGeometry) {
  EXPECT_STREQ(dial->idstring(), "AngleControl");
  EXPECT_EQ(dial->getCentre(), XY<int>(51, 51));
  EXPECT_EQ(dial->getRadius(), 50);
}

TEST_F(AngleIndicatorTest, TheSquareConstructorMakesASquare) {
  struct Fixed : AngleIndicatorWidget {
    Fixed() : AngleIndicatorWidget(64, Palette()) {}
    Angle getAngle() const override { return 0; }
    void setAngle(int, Angle) override {}
    Angle getResetAngle() const override { return 0; }
  } fixed;
  EXPECT_EQ(fixed.getSize(), XY<int>(64, 64));
  EXPECT_STREQ(fixed.idstring(), "AngleIndicatorWidget");
}

TEST_F(AngleIndicatorTest, AnglesOfPointsRunClockwiseFromStraightUp) {
  XY<int> const c = dial->getCentre();
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x, c.y + 10)), 360.0); // dx = 0 counts as the left side
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x + 10, c.y + 10)), 45.0);
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x + 10, c.y)), 90.0);
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x + 10, c.y - 10)), 135.0);
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x, c.y - 10)), 180.0);
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x - 10, c.y - 10)), 225.0);
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x - 10, c.y)), 270.0);
  EXPECT_DOUBLE_EQ(dial->calcAngleToPos(XY<int>(c.x - 10, c.y + 10)), 315.0);
}

TEST_F(AngleIndicatorTest, TheCentreItselfIs270) { EXPECT_DOUBLE_EQ(dial->calcAngleToPos(dial->getCentre()), 270.0); }

TEST_F(AngleIndicatorTest, ANegativeDialStaysNegativeAcrossTheTop) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, -10);
  XY<int> const c = dial->getCentre();
  // 350 degrees by the point, so -10 for the dial.
  EXPECT_NEAR(dial->calcAngle(at(350)), -10.0, 1.0);
  EXPECT_NEAR(dial->calcAngle(at(10)), 10.0, 1.0);
  EXPECT_DOUBLE_EQ(dial->calcAngle(XY<int>(c.x + 10, c.y)), 90.0);
}

TEST_F(AngleIndicatorTest, DraggingTheHandAcrossZeroKeepsItContinuous) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 20);
  heard.clear();
  // From 20 degrees anticlockwise over the top to 340, in small steps.
  moveTo(pointOn(*dial, at(20)));
  press();
  for (int degrees = 15; degrees >= -20; degrees -= 5)
    moveTo(pointOn(*dial, at(degrees < 0 ? 360 + degrees : degrees)));
  release();
  ASSERT_GE(heard.size(), 3u);
  EXPECT_EQ(heard.front().kind, AngleIndicatorWidget::kDragStart);
  EXPECT_EQ(heard[1].kind, AngleIndicatorWidget::kDragMove);
  EXPECT_EQ(heard.back().kind, AngleIndicatorWidget::kDragEnd);
  EXPECT_NEAR(dial->getAngle(), -20.0, 1.0) << "past the top the dial goes negative, not to 340";
  EXPECT_FALSE(dial->isDragging());
}

TEST_F(AngleIndicatorTest, DraggingTheHandAcross360ComesBackPositive) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, -20);
  moveTo(pointOn(*dial, at(340)));
  press();
  for (int degrees = -15; degrees <= 25; degrees += 5)
    moveTo(pointOn(*dial, at(degrees < 0 ? 360 + degrees : degrees)));
  release();
  EXPECT_NEAR(dial->getAngle(), 25.0, 1.0);
}

TEST_F(AngleIndicatorTest, DraggingAroundTheDialFollowsThePointer) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 90);
  drag(pointOn(*dial, at(90)), pointOn(*dial, at(180)), 1);
  EXPECT_NEAR(dial->getAngle(), 180.0, 0.5);
}

TEST_F(AngleIndicatorTest, AClickExactlyTwentyDegreesAwayStartsADragThoughTheCursorThereIsPlain) {
  XY<int> const c = dial->getCentre();
  XY<int> const right(c.x + 30, c.y); // exactly 90 degrees
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 70);
  EXPECT_EQ(dial->contextCursor(right), kCursorArrow) << "below 20 degrees only, for the cursor";
  heard.clear();
  moveTo(pointOn(*dial, right));
  press();
  EXPECT_TRUE(dial->isDragging()) << "up to and including 20 degrees, for a press";
  EXPECT_EQ(dial->contextCursor(right), kCursorGrab) << "while dragging";
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard.front().kind, AngleIndicatorWidget::kDragStart);
  EXPECT_DOUBLE_EQ(heard.front().angle, 90.0);
  release();
}

TEST_F(AngleIndicatorTest, TheCursorGrabsNearTheHand) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 45);
  EXPECT_EQ(dial->contextCursor(at(50)), kCursorGrab);
  EXPECT_EQ(dial->contextCursor(at(120)), kCursorArrow);
  dial->setActive(false, kNoRedraw);
  EXPECT_EQ(dial->contextCursor(at(50)), kCursorArrow);
}

TEST_F(AngleIndicatorTest, ALeftClickAwayFromTheHandResetsTheAngle) {
  dial->setResetAngle(0);
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 120);
  heard.clear();
  clickOn(*dial, at(250));
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard.front().kind, AngleIndicatorWidget::kReset);
  EXPECT_DOUBLE_EQ(dial->getAngle(), 0.0);
  EXPECT_FALSE(dial->isDragging());
  clickOn(*dial, at(250));
  EXPECT_EQ(heard.size(), 1u) << "already at the reset value: nothing set";
}

TEST_F(AngleIndicatorTest, ARightClickAwayFromTheHandChangesNothing) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 120);
  heard.clear();
  clickOn(*dial, at(250), kMouseRight);
  EXPECT_TRUE(heard.empty());
  EXPECT_DOUBLE_EQ(dial->getAngle(), 120.0);
}

TEST_F(AngleIndicatorTest, AnInactiveDialIgnoresTheMouse) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 120);
  dial->setActive(false, kNoRedraw);
  heard.clear();
  drag(pointOn(*dial, at(120)), pointOn(*dial, at(200)));
  clickOn(*dial, at(250));
  EXPECT_TRUE(heard.empty());
}

TEST_F(AngleIndicatorTest, TheKeysTurnAndResetTheFocusedDial) {
  clickOn(*dial, at(0)); // grabs the hand at 0, and the focus
  ASSERT_TRUE(dial->hasKbdFocus());
  key(kKeyRight);
  EXPECT_DOUBLE_EQ(dial->getAngle(), 1.0);
  key(kKeyLeft, kKeyShift);
  EXPECT_DOUBLE_EQ(dial->getAngle(), -14.0);
  key(kKeyHome);
  EXPECT_DOUBLE_EQ(dial->getAngle(), 0.0);
  EXPECT_EQ(heard.back().kind, AngleIndicatorWidget::kReset);
}

TEST_F(AngleIndicatorTest, TheDiscLightensWhileThePointerIsInside) {
  pump();
  XY<int> const probe = at(200, 35);
  std::uint32_t const outside = widgetPixel(*dial, probe);
  moveTo(pointOn(*dial, probe));
  EXPECT_TRUE(dial->isMouseInside());
  pump();
  EXPECT_NE(widgetPixel(*dial, probe), outside);
  Palette const& palette = dial->getPalette();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*dial, probe)), rgbOf(Colour::mix(palette.window(), palette.text(), 0.85)), 2));
}

TEST_F(AngleIndicatorTest, TheHandPointsAtTheAngle) {
  dial->setAngle(AngleIndicatorWidget::kDragEnd, 90);
  pump();
  Colour const hand = dial->getPalette().text();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*dial, at(90, 25))), rgbOf(hand), 8));
  EXPECT_FALSE(near(rgbOf(widgetPixel(*dial, at(0, 25))), rgbOf(hand), 8));
}

} // namespace
