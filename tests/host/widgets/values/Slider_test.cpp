#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Slider.h>
#include <zowidgets/values/binding/ValAdaptor.h>
#include <zowidgets/values/notify/ValServer.h>

#include <functional>
#include <vector>

namespace {

// A manager that rewrites every value, as a parameter with a constraint would.
class RewritingManager : public ValManagerBase<double> {
public:
  explicit RewritingManager(std::function<double(double)> rewrite) : rewrite_(std::move(rewrite)) {}
  bool requestValChange(ValServer<double>*, double& value) override {
    requested.push_back(value);
    value = rewrite_(value);
    return true;
  }
  void releaseServer(ValServer<double>*) override {}

  std::vector<double> requested;

private:
  std::function<double(double)> rewrite_;
};

struct SliderTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  Slider* slider = nullptr;
  std::vector<SliderEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(300, 80));
    Slider::InitArgs args(XY<int>(200, UifStd::getRowHeight()));
    args.minValue = 0.0;
    args.maxValue = 100.0;
    args.initialValue = 50.0;
    slider = panel->createWidget<Slider>(args, Glob::UserTopLeft(10, 10));
    slider->addListener(Slider::makeCallback([this](SliderEvent const& event) { events.push_back(event); }));
  }

  XY<int> trackPoint(double value) const { return XY<int>(slider->valueToX(value), slider->height() / 2); }
};

TEST_F(SliderTest, MapsValuesToTheTrackBetweenTheThumbRadii) {
  int const r = slider->thumbRadius();
  EXPECT_EQ(slider->valueToX(0.0), r);
  EXPECT_EQ(slider->valueToX(100.0), slider->width() - r);
  EXPECT_NEAR(slider->xToValue(slider->valueToX(37.0)), 37.0, 100.0 / (slider->width() - 2 * r));
  EXPECT_EQ(slider->xToValue(-50), 0.0);
  EXPECT_EQ(slider->xToValue(slider->width() + 50), 100.0);
}

TEST_F(SliderTest, DraggingTheThumbMovesTheValueWithThePointer) {
  XY<int> const from = HeadlessInput::pointOn(*slider, trackPoint(50.0));
  XY<int> const to = HeadlessInput::pointOn(*slider, trackPoint(80.0));
  HeadlessInput::drag(from, to);
  EXPECT_NEAR(slider->getPosition(), 80.0, 0.5);
  ASSERT_GE(events.size(), 3u);
  EXPECT_EQ(events.front().kind, SliderEvent::kDragStarted);
  EXPECT_EQ(events.back().kind, SliderEvent::kDragEnded);
  EXPECT_FALSE(slider->isDragging());
}

TEST_F(SliderTest, ADragThatGrabsOffCentreKeepsTheGrabOffset) {
  int const offset = slider->thumbRadius() / 2;
  XY<int> const grab(slider->valueToX(50.0) + offset, slider->height() / 2);
  XY<int> const release(slider->valueToX(70.0) + offset, slider->height() / 2);
  HeadlessInput::drag(HeadlessInput::pointOn(*slider, grab), HeadlessInput::pointOn(*slider, release));
  EXPECT_NEAR(slider->getPosition(), 70.0, 0.5);
}

TEST_F(SliderTest, DraggingPastTheEndsClampsToTheRange) {
  XY<int> const from = HeadlessInput::pointOn(*slider, trackPoint(50.0));
  HeadlessInput::drag(from, from + XY<int>(1000, 0));
  EXPECT_EQ(slider->getPosition(), 100.0);
  HeadlessInput::drag(HeadlessInput::pointOn(*slider, trackPoint(100.0)), from - XY<int>(1000, 0));
  EXPECT_EQ(slider->getPosition(), 0.0);
}

TEST_F(SliderTest, AClickOnTheTrackJumpsThere) {
  HeadlessInput::clickOn(*slider, trackPoint(20.0));
  EXPECT_NEAR(slider->getPosition(), 20.0, 0.5);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.front().kind, SliderEvent::kValueRequested);
  EXPECT_NEAR(events.front().value, 20.0, 0.5);
}

TEST_F(SliderTest, TheWheelStepsByTheIncrement) {
  slider->setIncrement(5.0);
  HeadlessInput::wheel(HeadlessInput::pointOn(*slider), 2);
  EXPECT_EQ(slider->getPosition(), 60.0);
  HeadlessInput::wheel(HeadlessInput::pointOn(*slider), -3);
  EXPECT_EQ(slider->getPosition(), 45.0);
}

TEST_F(SliderTest, ArrowKeysStepOnlyWhileFocused) {
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(slider->getPosition(), 50.0) << "no focus yet";
  ASSERT_TRUE(slider->claimKbdFocus());
  HeadlessInput::key(kKeyRight);
  EXPECT_DOUBLE_EQ(slider->getPosition(), 51.0); // a hundredth of the range
  HeadlessInput::key(kKeyLeft);
  HeadlessInput::key(kKeyLeft);
  EXPECT_DOUBLE_EQ(slider->getPosition(), 49.0);
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(slider->getPosition(), 100.0);
  HeadlessInput::key(kKeyUp);
  EXPECT_EQ(slider->getPosition(), 100.0);
  HeadlessInput::key(kKeyPageDown);
  EXPECT_DOUBLE_EQ(slider->getPosition(), 90.0);
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(slider->getPosition(), 0.0);
}

TEST_F(SliderTest, AClickGivesItTheFocus) {
  HeadlessInput::clickOn(*slider, trackPoint(50.0));
  EXPECT_TRUE(slider->hasKbdFocus());
}

TEST_F(SliderTest, ValuesSnapToTheIncrementAndTheRange) {
  slider->setIncrement(10.0);
  slider->setPosition(44.0);
  EXPECT_EQ(slider->getPosition(), 40.0);
  slider->setPosition(250.0);
  EXPECT_EQ(slider->getPosition(), 100.0);
  slider->setValueRange(0.0, 50.0);
  EXPECT_EQ(slider->getPosition(), 50.0);
}

TEST_F(SliderTest, AnInactiveSliderIgnoresInput) {
  slider->setActive(false, kRedrawNow);
  HeadlessInput::clickOn(*slider, trackPoint(10.0));
  HeadlessInput::wheel(HeadlessInput::pointOn(*slider), 3);
  EXPECT_EQ(slider->getPosition(), 50.0);
  EXPECT_TRUE(events.empty());
}

TEST_F(SliderTest, MovingTheThumbDamagesOnlyTheBandBetweenOldAndNewThumb) {
  slider->update();
  Zo::Box<int> damage;
  {
    Drawable::Suspender holdRedraws;
    slider->setPosition(55.0);
    damage = slider->canvas()->pendingDamage();
    slider->clearPendingRedraws();
  }
  Zo::Box<int> const whole = slider->canvasBox();
  int const origin = whole.x0;
  EXPECT_GT(damage.width(), 0);
  EXPECT_LT(damage.width(), whole.width() / 2);
  EXPECT_LE(damage.x0, origin + slider->valueToX(50.0) - slider->thumbRadius());
  EXPECT_GE(damage.x1, origin + slider->valueToX(55.0) + slider->thumbRadius());
}

TEST_F(SliderTest, TheFilledPartOfTheTrackFollowsTheValue) {
  Colour const accent = slider->thumbColour();
  XY<int> const probe(slider->valueToX(30.0), slider->height() / 2);
  slider->setPosition(80.0);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*slider, probe)), rgbOf(accent), 2));
  slider->setPosition(10.0);
  EXPECT_FALSE(near(rgbOf(widgetPixel(*slider, probe)), rgbOf(accent), 30));
}

struct BoundSliderTest : SliderTest {
  ValServer<double> server{25.0};
  Zo::Ptr<ValAdaptorBase<double>> adaptor;

  void SetUp() override {
    SliderTest::SetUp();
    adaptor = Zo::Ptr<ValAdaptorBase<double>>(new ValAdaptor<double, double>(&server));
    slider->setDataAdaptor(adaptor);
  }
};

TEST_F(BoundSliderTest, ShowsTheServersValueWhenBound) { EXPECT_EQ(slider->getPosition(), 25.0); }

TEST_F(BoundSliderTest, ADragReachesTheServer) {
  HeadlessInput::drag(HeadlessInput::pointOn(*slider, trackPoint(25.0)),
                      HeadlessInput::pointOn(*slider, trackPoint(60.0)));
  EXPECT_NEAR(server.get(), 60.0, 0.5);
  EXPECT_EQ(slider->getPosition(), server.get());
}

TEST_F(BoundSliderTest, TheSliderShowsWhatTheManagerMakesOfTheValue) {
  RewritingManager halving([](double value) { return value / 2.0; });
  server.setManager(&halving);
  HeadlessInput::clickOn(*slider, trackPoint(80.0));
  server.setManager(nullptr);
  ASSERT_EQ(halving.requested.size(), 1u);
  EXPECT_NEAR(halving.requested.front(), 80.0, 0.5);
  EXPECT_NEAR(server.get(), 40.0, 0.25);
  EXPECT_EQ(slider->getPosition(), server.get());
}

TEST_F(BoundSliderTest, ServerChangesMoveTheSlider) {
  server = 90.0;
  EXPECT_EQ(slider->getPosition(), 90.0);
}

} // namespace
