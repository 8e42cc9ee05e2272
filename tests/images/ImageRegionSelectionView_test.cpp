#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/images/ImageRegionSelectionView.h>

#include <vector>

namespace {

using namespace HeadlessInput;
using View = ImageRegionSelectionView;

// A picture 200 by 100: red on the left half, blue on the right.
Zo::Image::Surface twoColourPicture() {
  Zo::Image::Surface picture(200, 100);
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 200; ++x)
      picture.setPixel(x, y, x < 100 ? 0xFFE02020u : 0xFF2020E0u);
  return picture;
}

class RegionSelectionTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(280, 180));
    // A widget whose user area, inside its border, is the picture's size, so
    // that one image pixel is one widget pixel.
    View::InitArgs args(GlobCreationInfo(XY<int>(210, 110)));
    view = panel->createWidget<View>(args, Glob::UserTopLeft(20, 20));
    view->setSelectionAspectRatio(2.0);
    view->setImage(twoColourPicture());
    view->addListener(Broadcaster<ImageRegionSelectionViewEvent>::makeCallback(
        [this](ImageRegionSelectionViewEvent const& event) { heard.push_back(event); }));
    pump();
  }
  // A point of the picture, in image pixels, on the screen.
  XY<int> onScreen(XY<int> imagePoint) const {
    Zo::Box<int> const user = view->getUserArea();
    XY<int> const size = view->getImageSize();
    return pointOn(*view, XY<int>(user.x0 + imagePoint.x * user.width() / size.x,
                                  user.y0 + imagePoint.y * user.height() / size.y));
  }
  void dragOnScreen(XY<int> from, XY<int> to) {
    moveTo(from);
    press();
    for (int step = 1; step <= 6; ++step)
      moveTo(XY<int>(from.x + (to.x - from.x) * step / 6, from.y + (to.y - from.y) * step / 6));
    release();
    pump();
  }

  StandardPanel* panel = nullptr;
  View* view = nullptr;
  std::vector<ImageRegionSelectionViewEvent> heard;
};

TEST(RegionHitTest, CornersAndInsideAreGrabbableEdgesAreNot) {
  Zo::Box<int> const box(100, 100, 200, 150);
  EXPECT_EQ(View::hitTest({101, 101}, box, 4), View::kBottomLeft);
  EXPECT_EQ(View::hitTest({99, 149}, box, 4), View::kTopLeft);
  EXPECT_EQ(View::hitTest({199, 102}, box, 4), View::kBottomRight);
  EXPECT_EQ(View::hitTest({201, 148}, box, 4), View::kTopRight);
  EXPECT_EQ(View::hitTest({101, 125}, box, 4), View::kLeft);
  EXPECT_EQ(View::hitTest({199, 125}, box, 4), View::kRight);
  EXPECT_EQ(View::hitTest({150, 125}, box, 4), View::kInside);
  EXPECT_EQ(View::hitTest({150, 149}, box, 4), View::kOutside); // the top edge alone
  EXPECT_EQ(View::hitTest({300, 125}, box, 4), View::kOutside);
  for (unsigned hit : {5u, 6u, 9u, 10u, 15u})
    EXPECT_TRUE(View::isGrabbable(hit)) << hit;
  for (unsigned hit : {0u, 1u, 2u, 4u, 8u})
    EXPECT_FALSE(View::isGrabbable(hit)) << hit;
}

TEST_F(RegionSelectionTest, ANewPictureSelectsTheLargestRegionOfTheRatio) {
  EXPECT_EQ(view->getUserArea().getDimensions(), XY<int>(200, 100));
  EXPECT_STREQ(view->idstring(), "ImageRegionSelectionView");
  EXPECT_EQ(view->getRegion(), Zo::Box<int>(0, 0, 200, 100));
  view->setSelectionAspectRatio(1.0);
  view->setImage(twoColourPicture());
  EXPECT_EQ(view->getRegion(), Zo::Box<int>(50, 0, 150, 100));
}

TEST_F(RegionSelectionTest, ARegionEqualToThePictureShowsNoGreyAndThePlainCursor) {
  Zo::Box<int> const user = view->getUserArea();
  XY<int> const leftInside(user.x0 + user.width() / 4, user.y0 + user.height() / 2);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*view, leftInside)), Rgb{0xE0, 0x20, 0x20}, 2));
  EXPECT_EQ(view->contextCursor(leftInside), kCursorArrow);

  view->setRegion(Zo::Box<int>(120, 20, 180, 50));
  pump();
  Rgb const grey = rgbOf(widgetPixel(*view, leftInside));
  EXPECT_EQ(grey.r, grey.g);
  EXPECT_EQ(grey.g, grey.b);
  XY<int> const inside(user.x0 + 150 * user.width() / 200, user.y0 + 35 * user.height() / 100);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*view, inside)), Rgb{0x20, 0x20, 0xE0}, 2));
  EXPECT_EQ(view->contextCursor(inside), kCursorGrab);
}

TEST_F(RegionSelectionTest, CornerCursorsFollowTheDiagonal) {
  view->setRegion(Zo::Box<int>(40, 20, 140, 70));
  Zo::Box<int> const area = view->getWireframeArea();
  EXPECT_EQ(view->contextCursor({area.x0, area.y0}), kCursorResizeSlash);
  EXPECT_EQ(view->contextCursor({area.x1, area.y1}), kCursorResizeSlash);
  EXPECT_EQ(view->contextCursor({area.x0, area.y1}), kCursorResizeBackslash);
  EXPECT_EQ(view->contextCursor({area.x1, area.y0}), kCursorResizeBackslash);
}

TEST_F(RegionSelectionTest, AnEdgeAwayFromTheCornersCannotBeGrabbed) {
  Zo::Box<int> const region(40, 20, 140, 70);
  view->setRegion(region);
  pump();
  dragOnScreen(onScreen({40, 45}), onScreen({10, 45}));
  EXPECT_EQ(view->getRegion(), region);
  EXPECT_TRUE(heard.empty());
}

TEST_F(RegionSelectionTest, DraggingInsideMovesTheRegionAndKeepsItOnThePicture) {
  view->setRegion(Zo::Box<int>(40, 20, 140, 70));
  pump();
  dragOnScreen(onScreen({90, 45}), onScreen({120, 55}));
  EXPECT_EQ(view->getRegion(), Zo::Box<int>(70, 30, 170, 80));
  dragOnScreen(onScreen({120, 55}), onScreen({199, 99}));
  EXPECT_EQ(view->getRegion(), Zo::Box<int>(100, 50, 200, 100));
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[1].region, Zo::Box<int>(100, 50, 200, 100));
  EXPECT_EQ(heard[1].kind, ImageRegionSelectionViewEvent::kSelectionFinished);
}

TEST_F(RegionSelectionTest, ListenersHearNothingUntilTheRelease) {
  view->setRegion(Zo::Box<int>(40, 20, 140, 70));
  pump();
  moveTo(onScreen({90, 45}));
  press();
  moveTo(onScreen({95, 45}));
  moveTo(onScreen({100, 45}));
  pump();
  EXPECT_EQ(view->getRegion().x0, 50);
  EXPECT_NE(view->getDragMode(), 0);
  EXPECT_TRUE(heard.empty());
  release();
  pump();
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].region, Zo::Box<int>(50, 20, 150, 70));
  EXPECT_EQ(view->getDragMode(), 0);
}

// The mouse is held inside the user area, so a left corner pulled far past
// the picture's side stops at it; the height follows at the ratio.
TEST_F(RegionSelectionTest, TheMouseClampKeepsALeftCornerOnThePicture) {
  view->setRegion(Zo::Box<int>(60, 20, 160, 70));
  pump();
  XY<int> const farLeft = pointOn(*view, XY<int>(-400, view->getWireframeArea().y1));
  dragOnScreen(onScreen({60, 70}), XY<int>(farLeft.x, onScreen({60, 70}).y));
  Zo::Box<int> const region = view->getRegion();
  EXPECT_EQ(region.x0, 0);
  EXPECT_EQ(region.x1, 160);
  EXPECT_EQ(region.width(), region.height() * 2);

  view->setRegion(Zo::Box<int>(60, 20, 160, 70));
  pump();
  dragOnScreen(onScreen({60, 20}), XY<int>(farLeft.x, onScreen({60, 20}).y));
  EXPECT_GE(view->getRegion().x0, 0);
  EXPECT_GE(view->getRegion().y0, 0);
}

TEST_F(RegionSelectionTest, ALeftCornerStopsAtTheMinimumWidth) {
  view->setRegion(Zo::Box<int>(40, 20, 140, 70));
  view->setMinimumRegionWidth(80);
  pump();
  dragOnScreen(onScreen({40, 70}), onScreen({130, 70}));
  EXPECT_EQ(view->getRegion().width(), 80);
  EXPECT_EQ(view->getRegion().x1, 140);
}

// Kept on purpose: the right corner tests the minimum only when growing.
TEST_F(RegionSelectionTest, ARightCornerMayBePulledInsidePastTheMinimum) {
  view->setRegion(Zo::Box<int>(40, 20, 140, 70));
  view->setMinimumRegionWidth(80);
  pump();
  dragOnScreen(onScreen({140, 70}), onScreen({80, 70}));
  EXPECT_EQ(view->getRegion().width(), 40);
  EXPECT_EQ(view->getRegion().x0, 40);
}

TEST_F(RegionSelectionTest, AMinimumWiderThanThePictureBecomesItsWidth) {
  Zo::Image::Surface narrow(50, 40);
  narrow.fill(Colour(0.2, 0.6, 0.2));
  view->setImage(narrow);
  view->setMinimumRegionWidth(100);
  EXPECT_EQ(view->getMinimumRegionWidth(), 50u);
}

TEST_F(RegionSelectionTest, WithoutAPictureNothingCanBeGrabbed) {
  view->setImage(Zo::Image::Surface());
  pump();
  EXPECT_TRUE(view->getWireframeArea().empty());
  dragOnScreen(pointOn(*view), pointOn(*view, XY<int>(10, 10)));
  EXPECT_TRUE(heard.empty());
}

TEST_F(RegionSelectionTest, ATransparentPictureIsFlattenedOnTheWindowColour) {
  Zo::Image::Surface clear(20, 10);
  view->setImage(clear);
  EXPECT_EQ(view->getImage().pixel(5, 5) >> 24, 0xFFu);
  EXPECT_TRUE(near(rgbOf(view->getImage().pixel(5, 5)), rgbOf(view->getPalette().window()), 1));
}

} // namespace
