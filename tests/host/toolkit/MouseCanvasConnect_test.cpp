#include "support/WidgetTestSupport.h"

#include <vector>

namespace {

// Records the mouse events it is offered, and takes them all.
class MouseRecorder : public Glob {
public:
  explicit MouseRecorder(XY<int> size) : Glob(GlobCreationInfo(size)) {}
  int react(Event const& event) override {
    if (!event.isMouse() || event.type == Event::kMouseEnter || event.type == Event::kMouseLeave)
      return 0;
    types.push_back(event.type);
    return 1;
  }
  std::vector<int> types;
};

struct MouseCanvasConnectTest : HeadlessScreenTest {
  MouseRecorder* left = nullptr;
  MouseRecorder* right = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    left = open(XY<int>(100, 100));
    right = open(XY<int>(400, 100));
  }
  static MouseRecorder* open(XY<int> at) {
    Glob::setupRootPos(nullptr, at);
    auto* made = new MouseRecorder(XY<int>(100, 100));
    GlobManager::realize(made);
    return made;
  }
};

TEST_F(MouseCanvasConnectTest, NullHandsTheRestOfTheGestureToTheDesktop) {
  HeadlessInput::moveTo(XY<int>(150, 150));
  HeadlessInput::press();
  std::vector<int> const pressed{Event::kMouseMove, Event::kMouseDown};
  ASSERT_EQ(left->types, pressed);
  mouse_canvas_connect(nullptr);
  HeadlessInput::moveTo(XY<int>(160, 150));
  HeadlessInput::moveTo(XY<int>(450, 150));
  HeadlessInput::release();
  EXPECT_EQ(left->types, pressed);
  EXPECT_TRUE(right->types.empty());
  // The next gesture is ours again.
  HeadlessInput::click(XY<int>(450, 150));
  EXPECT_EQ(right->types, (std::vector<int>{Event::kMouseMove, Event::kMouseDown, Event::kMouseUp}));
}

TEST_F(MouseCanvasConnectTest, MouseListenersStillHearAHandedOverGesture) {
  int heard = 0;
  auto guard = Glib::addMouseListener(
      Zo::Ptr<iCallbackBase<int, Event>>(new FunctionCallback<Event>([&](Event const&) { return ++heard, 0; })));
  HeadlessInput::moveTo(XY<int>(150, 150));
  HeadlessInput::press();
  mouse_canvas_connect(nullptr);
  int const before = heard;
  HeadlessInput::moveTo(XY<int>(170, 150));
  HeadlessInput::release();
  EXPECT_EQ(heard, before + 2);
}

TEST_F(MouseCanvasConnectTest, ACanvasTakesTheRestOfTheGestureWhereverThePointerGoes) {
  HeadlessInput::moveTo(XY<int>(150, 150));
  HeadlessInput::press();
  mouse_canvas_connect(right->canvas());
  HeadlessInput::moveTo(XY<int>(160, 150));
  HeadlessInput::release();
  EXPECT_EQ(left->types, (std::vector<int>{Event::kMouseMove, Event::kMouseDown}));
  EXPECT_EQ(right->types, (std::vector<int>{Event::kMouseMove, Event::kMouseUp}));
}

TEST_F(MouseCanvasConnectTest, WithNoButtonHeldNothingChanges) {
  mouse_canvas_connect(nullptr);
  HeadlessInput::click(XY<int>(150, 150));
  EXPECT_EQ(left->types, (std::vector<int>{Event::kMouseMove, Event::kMouseDown, Event::kMouseUp}));
}

} // namespace
