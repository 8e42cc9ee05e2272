#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/CursorCodes.h>

#include <vector>

namespace {

// Takes every event offered to it first, and counts them by kind.
class Interceptor : public Glob {
public:
  Interceptor() : Glob(GlobCreationInfo(XY<int>(10, 10))) {}
  int intercept(Event const& event) override {
    (event.isMouse() ? mouse : keys) += 1;
    return 1;
  }
  int mouse = 0;
  int keys = 0;
};

// Shows a cursor of its own over itself.
class CursorArea : public Glob {
public:
  explicit CursorArea(int cursor) : Glob(GlobCreationInfo(XY<int>(40, 40))), cursor_(cursor) {}
  int contextCursor(XY<int>) const override { return cursor_; }

private:
  int cursor_;
};

struct EventInterceptStackTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(200, 200), XY<int>(300, 300));
  }
  void TearDown() override {
    for (Glob* child : panel->getChildren())
      getEventInterceptStack().remove(child);
    HeadlessScreenTest::TearDown();
  }
  template <class T> T* add(T* widget) { return static_cast<T*>(panel->addChild(widget, Glob::UserTopLeft(0, 0))); }
};

TEST_F(EventInterceptStackTest, EachPushHasItsOwnStampAndAWidgetIsOnTheStackOnce) {
  auto* a = add(new Interceptor);
  auto* b = add(new Interceptor);
  IdStamp const first = getEventInterceptStack().push(a);
  IdStamp const second = getEventInterceptStack().push(b);
  EXPECT_TRUE(first.valid());
  EXPECT_TRUE(second.valid());
  EXPECT_NE(first, second);
  EXPECT_FALSE(getEventInterceptStack().push(a).valid());
  EXPECT_FALSE(getEventInterceptStack().push(nullptr).valid());
  EXPECT_EQ(getEventInterceptStack().top(), b);

  EXPECT_TRUE(getEventInterceptStack().pop(second));
  EXPECT_FALSE(getEventInterceptStack().pop(second));
  EXPECT_FALSE(getEventInterceptStack().pop(IdStamp::null()));
  EXPECT_EQ(getEventInterceptStack().top(), a);
  getEventInterceptStack().remove(a);
  EXPECT_FALSE(getEventInterceptStack().pop(first));
  EXPECT_TRUE(getEventInterceptStack().empty());
}

TEST_F(EventInterceptStackTest, AnEntrySeesOnlyTheKindsOfEventsInItsMask) {
  auto* mouseOnly = add(new Interceptor);
  auto* keysOnly = add(new Interceptor);
  getEventInterceptStack().push(mouseOnly, EventInterceptStack::kMouse);
  getEventInterceptStack().push(keysOnly, EventInterceptStack::kKeys);
  HeadlessInput::click(XY<int>(20, 20));
  HeadlessInput::key('x');
  // The newer entry takes keys alone, so the mouse passes it by.
  EXPECT_EQ(keysOnly->mouse, 0);
  EXPECT_GT(keysOnly->keys, 0);
  EXPECT_GT(mouseOnly->mouse, 0);
  EXPECT_EQ(mouseOnly->keys, 0);
}

TEST_F(EventInterceptStackTest, WithMouseContextLogicOffTheCursorNoLongerFollowsTheWidgets) {
  auto* area = add(new CursorArea(kCursorGrab));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*area));
  EXPECT_EQ(screen().cursor(), kCursorGrab);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*panel, XY<int>(150, 20)));
  EXPECT_EQ(screen().cursor(), kCursorDefault);

  glib_enableMouseContextLogic(false);
  EXPECT_FALSE(glib_mouseContextLogicEnabled());
  glib_setCursor(kCursorCapture);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*area));
  EXPECT_EQ(screen().cursor(), kCursorCapture);
  glib_enableMouseContextLogic(true);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*area, XY<int>(5, 5)));
  EXPECT_EQ(screen().cursor(), kCursorGrab);
}

TEST_F(EventInterceptStackTest, AWidgetWithoutACursorShowsItsParentsChoice) {
  auto* area = add(new CursorArea(kCursorResizeVertical));
  auto* inner =
      static_cast<Glob*>(area->addChild(new Glob(GlobCreationInfo(XY<int>(10, 10))), Glob::UserTopLeft(5, 5)));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*inner));
  EXPECT_EQ(screen().cursor(), kCursorResizeVertical);
  inner->setDefaultMouseCursor(kCursorHand);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*inner, XY<int>(2, 2)));
  EXPECT_EQ(screen().cursor(), kCursorHand);
}

} // namespace
