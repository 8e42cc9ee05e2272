#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/values/binding/ValAdaptor.h>

#include <cmath>
#include <utility>
#include <vector>

namespace {

// Passes edits to the server and remembers each with its change type.
class RecordingAdaptor : public ValAdaptor<ColourData, ColourData> {
public:
  using ValAdaptor::ValAdaptor;
  bool requestSetNewDataValue(ColourData const& value, DataChangeType type) override {
    requests.emplace_back(value, type);
    return ValAdaptor::requestSetNewDataValue(value, type);
  }
  std::vector<std::pair<ColourData, DataChangeType>> requests;
};

// A 200 pixel wheel (radius 96 at scale 1) bound to a grey held in HSV.
struct HSColourWheelInput : HeadlessScreenTest {
  // Outlives the wheel, which closes in TearDown.
  ValServer<ColourData> server{ColourData(0.0, 0.0, 1.0, ColourSpace::HSV)};
  Zo::Ptr<RecordingAdaptor> adaptor;
  StandardPanel* panel = nullptr;
  HSColourWheel* wheel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(240, 240), XY<int>(300, 300));
    wheel = panel->createWidget<HSColourWheel>(HSColourWheel::InitArgs(GlobCreationInfo(XY<int>(200, 200))),
                                               Glob::UserTopLeft(10, 10));
    adaptor = Zo::Ptr<RecordingAdaptor>(new RecordingAdaptor(&server));
    wheel->setDataAdaptor(adaptor);
  }

  // The screen point of a disc point (relative to the centre, y up).
  XY<int> onDisc(double x, double y) const {
    XY<double> const centre = wheel->getCentre();
    return HeadlessInput::pointOn(*wheel, XY<int>(static_cast<int>(centre.x + x), static_cast<int>(centre.y + y)));
  }
};

TEST_F(HSColourWheelInput, DraggingTheCursorEditsHueAndSaturation) {
  HeadlessInput::drag(onDisc(0, 0), onDisc(30, 40));
  double hue = 0.0;
  double saturation = 0.0;
  ASSERT_EQ(wheel->convertXYtoHS(30.0, 40.0, hue, saturation), 0);
  EXPECT_EQ(server.get(), ColourData(hue, saturation, 1.0, ColourSpace::HSV, 1.0));
  EXPECT_NEAR(wheel->getCursor().x, 30.0, 1e-9);
  EXPECT_NEAR(wheel->getCursor().y, 40.0, 1e-9);
  EXPECT_FALSE(wheel->isDragging());
  ASSERT_GE(adaptor->requests.size(), 2u);
  EXPECT_EQ(adaptor->requests.front().second, HSColourWheel::kGestureStart);
  for (std::size_t i = 1; i < adaptor->requests.size(); ++i)
    EXPECT_EQ(adaptor->requests[i].second, HSColourWheel::kGestureContinue);
}

TEST_F(HSColourWheelInput, TheCursorFollowsTheMousesMotionNotTheMouse) {
  // Grabbed 3 right and 2 up of its centre, dragged 20 to the right.
  HeadlessInput::drag(onDisc(3, 2), onDisc(23, 2));
  EXPECT_NEAR(wheel->getCursor().x, 20.0, 1e-9);
  EXPECT_NEAR(wheel->getCursor().y, 0.0, 1e-9);
  EXPECT_NEAR(server.get().getHue(), 256.0, 1e-9); // a quarter turn clockwise
}

TEST_F(HSColourWheelInput, DraggingKeepsValueAndAlpha) {
  server = ColourData(0.0, 0.0, 0.6, ColourSpace::HSV, 0.4);
  HeadlessInput::drag(onDisc(0, 0), onDisc(-50, -10));
  ColourData const now = server.get();
  EXPECT_EQ(now.getComponent(2), 0.6);
  EXPECT_EQ(now.getAlpha(), 0.4);
  EXPECT_GT(now.getSaturation(), 0.5);
}

TEST_F(HSColourWheelInput, DraggingOutOfTheDiscNeverTakesTheCursorOffIt) {
  HeadlessInput::drag(onDisc(0, 0), onDisc(-110, -110));
  XY<double> const cursor = wheel->getCursor();
  EXPECT_LT(std::hypot(cursor.x, cursor.y), wheel->getRadius());
  EXPECT_GT(std::hypot(cursor.x, cursor.y), wheel->getRadius() / 2);
  EXPECT_NEAR(cursor.x, cursor.y, 1e-9); // still on the line of the drag
  EXPECT_LT(server.get().getSaturation(), 1.0);
  EXPECT_NEAR(server.get().getHue(), HSColourWheel::convertDisplayToHueAngle(225.0), 1e-9);
}

TEST_F(HSColourWheelInput, AStepSnappedExactlyToTheRimIsLost) {
  std::size_t const before = adaptor->requests.size();
  wheel->setFromXY(500.0, 0.0, HSColourWheel::kGestureContinue); // snaps to (96, 0): not a disc colour
  EXPECT_EQ(adaptor->requests.size(), before);
}

TEST_F(HSColourWheelInput, MotionWithinThePixelOfTheCursorEmitsNothing) {
  ASSERT_EQ(wheel->setCursor(20.5, 10.5), 0);
  std::size_t const before = adaptor->requests.size();
  wheel->setFromXY(20.9, 10.1, HSColourWheel::kGestureContinue);
  EXPECT_EQ(adaptor->requests.size(), before);
  // The start of a gesture always goes through.
  wheel->setFromXY(20.9, 10.1, HSColourWheel::kGestureStart);
  EXPECT_EQ(adaptor->requests.size(), before + 1);
}

TEST_F(HSColourWheelInput, ALeftClickAwayFromTheCursorResetsToGrey) {
  server = ColourData(120.0, 0.5, 0.7, ColourSpace::HSV, 0.3);
  ASSERT_GT(std::hypot(wheel->getCursor().x, wheel->getCursor().y), 40.0);
  HeadlessInput::click(onDisc(50, 0));
  ASSERT_FALSE(adaptor->requests.empty());
  EXPECT_EQ(adaptor->requests.back().first, ColourData(0.0, 0.0, 0.7, ColourSpace::HSV, 0.3));
  EXPECT_EQ(adaptor->requests.back().second, HSColourWheel::kResetByClick);
  EXPECT_EQ(wheel->getCursor(), XY<double>(0.0, 0.0));
}

TEST_F(HSColourWheelInput, ARightClickAwayFromTheCursorDoesNothing) {
  server = ColourData(120.0, 0.5, 0.7, ColourSpace::HSV, 0.3);
  XY<double> const cursor = wheel->getCursor();
  HeadlessInput::click(onDisc(50, 0), kMouseRight);
  EXPECT_TRUE(adaptor->requests.empty());
  EXPECT_EQ(wheel->getCursor(), cursor);
  EXPECT_EQ(server.get(), ColourData(120.0, 0.5, 0.7, ColourSpace::HSV, 0.3));
}

TEST_F(HSColourWheelInput, AChordAnywhereOnTheWheelPicksTheCursorUp) {
  HeadlessInput::moveTo(onDisc(50, 50));
  HeadlessInput::press(kMouseLeft);
  HeadlessInput::press(kMouseRight);
  EXPECT_TRUE(wheel->isDragging());
  HeadlessInput::moveTo(onDisc(65, 50));
  HeadlessInput::release(kMouseRight);
  HeadlessInput::release(kMouseLeft);
  EXPECT_FALSE(wheel->isDragging());
  EXPECT_NEAR(wheel->getCursor().x, 15.0, 1e-9);
  EXPECT_NEAR(wheel->getCursor().y, 0.0, 1e-9);
}

TEST_F(HSColourWheelInput, WithoutADataAdaptorTheMouseCannotMoveTheCursor) {
  wheel->setDataAdaptor(nullptr);
  HeadlessInput::drag(onDisc(0, 0), onDisc(30, 40));
  EXPECT_EQ(wheel->getCursor(), XY<double>(0.0, 0.0));
  HeadlessInput::click(onDisc(-60, 0));
  EXPECT_EQ(wheel->getCursor(), XY<double>(0.0, 0.0));
  EXPECT_TRUE(adaptor->requests.empty());
}

TEST_F(HSColourWheelInput, AnInactiveWheelIgnoresTheMouse) {
  wheel->setEnabledState(false);
  EXPECT_FALSE(wheel->getEnabledState());
  HeadlessInput::drag(onDisc(0, 0), onDisc(30, 40));
  EXPECT_TRUE(adaptor->requests.empty());
  EXPECT_EQ(wheel->getCursor(), XY<double>(0.0, 0.0));
  wheel->setEnabledState(true);
  EXPECT_TRUE(wheel->getEnabledState());
}

TEST_F(HSColourWheelInput, ThePointerShowsWhenItIsOverTheCursor) {
  HeadlessInput::moveTo(onDisc(1, 1));
  EXPECT_EQ(glib_getCursor(), HSColourWheel::kGrabCursorCode);
  HeadlessInput::moveTo(onDisc(40, 0));
  EXPECT_EQ(glib_getCursor(), HSColourWheel::kPlainCursorCode);
  wheel->setActive(false, kRedrawNow);
  HeadlessInput::moveTo(onDisc(0, 0));
  EXPECT_EQ(glib_getCursor(), HSColourWheel::kPlainCursorCode);
}

TEST_F(HSColourWheelInput, MovingTheCursorRepaintsOnlyAroundItsOldAndNewPlaces) {
  HeadlessScreenTest::pump();
  Zo::Image::Surface const& picture = wheel->getWheelImage();
  ASSERT_FALSE(picture.empty());
  double x = 0.0;
  double y = 0.0;
  wheel->convertHStoXY(280.0, 0.5, x, y);
  Zo::Box<int> damage;
  {
    Drawable::Suspender holdRedraws;
    server = ColourData(280.0, 0.5, 1.0, ColourSpace::HSV);
    damage = wheel->canvas()->pendingDamage();
  }
  int const gap = UifStd::getWidgetGap();
  Zo::Box<int> const wheelBox = wheel->canvasBox();
  EXPECT_EQ(damage.intersect(wheelBox), damage);
  EXPECT_LE(damage.width(), static_cast<int>(std::abs(x)) + 2 * gap + 6);
  EXPECT_LE(damage.height(), static_cast<int>(std::abs(y)) + 2 * gap + 6);

  int const border = wheel->getWheelBorder();
  auto pictureAt = [&](XY<int> local) {
    return picture.pixel(local.x - border, border + picture.height() - 1 - local.y);
  };
  XY<double> const centre = wheel->getCentre();
  // Where the circle was, the picture shows again.
  XY<int> const oldLeft(static_cast<int>(centre.x) - gap, static_cast<int>(centre.y));
  EXPECT_EQ(widgetPixel(*wheel, oldLeft), pictureAt(oldLeft));
  // Where it is now, its line darkens the picture.
  XY<int> const newLeft(static_cast<int>(std::floor(centre.x + x)) - gap, static_cast<int>(std::floor(centre.y + y)));
  Rgb const drawn = rgbOf(widgetPixel(*wheel, newLeft));
  Rgb const under = rgbOf(pictureAt(newLeft));
  EXPECT_LT(drawn.r + drawn.g + drawn.b, under.r + under.g + under.b - 100);
}

} // namespace

// A window that counts what it was told to put down.
class CarryingPanel : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  void drop(int reason) override { drops.push_back(reason); }
  std::vector<int> drops;
};

TEST_F(HSColourWheelInput, PickingUpTheCursorTellsTheParentToDropWhatItCarriesOnce) {
  StandardPanel::InitArgs args(XY<int>(240, 240));
  args.screenPosition = XY<int>(600, 300);
  auto* carrier = new CarryingPanel(args);
  GlobManager::realize(carrier);
  auto* own = carrier->createWidget<HSColourWheel>(HSColourWheel::InitArgs(GlobCreationInfo(XY<int>(200, 200))),
                                                   Glob::UserTopLeft(10, 10));
  own->setDataAdaptor(adaptor);
  XY<double> const centre = own->getCentre();
  auto at = [&](int x, int y) {
    return HeadlessInput::pointOn(*own, XY<int>(static_cast<int>(centre.x) + x, static_cast<int>(centre.y) + y));
  };
  // A click away from the cursor picks nothing up.
  HeadlessInput::click(at(50, 50));
  EXPECT_TRUE(carrier->drops.empty());
  // A drag of the cursor: the press drops, the moves and the release do not.
  HeadlessInput::drag(at(0, 0), at(30, 20));
  EXPECT_EQ(carrier->drops, std::vector<int>{0});
  GlobManager::requestDeletion(carrier);
  pump();
}
