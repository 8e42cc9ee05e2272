#include "EditorTestSupport.h"

#include <zowidgets/editor/GestureButton.h>
#include <zowidgets/host/shell/Command.h>

#include <string>
#include <vector>

namespace {

using namespace HeadlessInput;

// Commands that note their name when run, registered for one test.
class GestureButtonTest : public EditorWidgetTest {
protected:
  void SetUp() override {
    EditorWidgetTest::SetUp();
    openHeader();
    for (char const* name : {"gesture.click", "gesture.up", "gesture.down", "gesture.left", "gesture.right",
                             "gesture.diagonal", "gesture.other"}) {
      std::string const command = name;
      ASSERT_TRUE(CommandMap::registerCommand(command, [this, command](Cmd::Context const& context) {
        ran.push_back(command);
        origins.push_back(context.origin);
      }));
      registered.push_back(command);
    }
    button = add<GestureButton>(GestureButton::InitArgs(L"Trim", XY<int>(60, 24), "gesture.click"),
                                Glob::UserTopLeft(80, 80));
    button->addGesture(kDragUp, "gesture.up");
    button->addGesture(kDragDown, "gesture.down");
    button->addGesture(kDragLeft, "gesture.left");
    button->addGesture(kDragRight, "gesture.right");
  }
  void TearDown() override {
    for (std::string const& name : registered)
      CommandMap::unregisterCommand(name);
    EditorWidgetTest::TearDown();
  }
  // A press in the button's middle, released at `local` in its coordinates.
  void pressAndReleaseAt(XY<int> local) { drag(pointOn(*button), pointOn(*button, local), 4); }

  GestureButton* button = nullptr;
  std::vector<std::string> registered;
  std::vector<std::string> ran;
  std::vector<EventHandler*> origins;
};

TEST_F(GestureButtonTest, AClickRunsTheButtonsCommand) {
  EXPECT_STREQ(button->idstring(), "GestureButton");
  clickOn(*button);
  EXPECT_EQ(ran, std::vector<std::string>{"gesture.click"});
  EXPECT_EQ(origins.front(), button);
}

TEST_F(GestureButtonTest, EachDirectionRunsItsGesture) {
  pressAndReleaseAt(XY<int>(30, 24)); // at the height: above
  pressAndReleaseAt(XY<int>(30, -1));
  pressAndReleaseAt(XY<int>(-1, 12));
  pressAndReleaseAt(XY<int>(60, 12)); // at the width: right
  EXPECT_EQ(ran, (std::vector<std::string>{"gesture.up", "gesture.down", "gesture.left", "gesture.right"}));
  for (EventHandler* origin : origins)
    EXPECT_EQ(origin, button) << "with the button's context";
}

TEST_F(GestureButtonTest, ADiagonalRunsNothingUnlessGivenAnEntry) {
  pressAndReleaseAt(XY<int>(70, 40));
  pressAndReleaseAt(XY<int>(-10, -10));
  EXPECT_TRUE(ran.empty());
  button->addGesture(kDragNone, "gesture.diagonal");
  pressAndReleaseAt(XY<int>(-10, 40));
  EXPECT_EQ(ran, std::vector<std::string>{"gesture.diagonal"});
}

TEST_F(GestureButtonTest, AReleaseInsideIsAClickNotAGesture) {
  button->addGesture(kDragNone, "gesture.diagonal");
  pressAndReleaseAt(XY<int>(5, 5));
  EXPECT_EQ(ran, std::vector<std::string>{"gesture.click"});
}

TEST_F(GestureButtonTest, TheDirectionsOfReleasePoints) {
  EXPECT_EQ(button->directionOf(XY<int>(0, 24)), kDragUp);
  EXPECT_EQ(button->directionOf(XY<int>(59, 100)), kDragUp);
  EXPECT_EQ(button->directionOf(XY<int>(0, -1)), kDragDown);
  EXPECT_EQ(button->directionOf(XY<int>(-1, 0)), kDragLeft);
  EXPECT_EQ(button->directionOf(XY<int>(60, 23)), kDragRight);
  EXPECT_EQ(button->directionOf(XY<int>(60, 24)), kDragNone);
  EXPECT_EQ(button->directionOf(XY<int>(-1, -1)), kDragNone);
  EXPECT_EQ(button->directionOf(XY<int>(10, 10)), kDragNone);
}

TEST_F(GestureButtonTest, AnUnknownCommandLeavesTheMapUnchanged) {
  auto const before = button->getGestures();
  button->addGesture(kDragUp, "no.such.command");
  button->addGesture(kDragNone, "no.such.command");
  EXPECT_EQ(button->getGestures(), before);
}

TEST_F(GestureButtonTest, AddingADirectionAgainReplacesItsCommand) {
  button->addGesture(kDragUp, "gesture.other");
  EXPECT_EQ(button->getGestures().size(), 4u);
  pressAndReleaseAt(XY<int>(30, 40));
  EXPECT_EQ(ran, std::vector<std::string>{"gesture.other"});
}

TEST_F(GestureButtonTest, TheKeyboardRunsTheCommandAndTheGestures) {
  ASSERT_TRUE(button->claimKbdFocus());
  key(' ');
  key(kKeyLeft, kKeyCtrl);
  key(kKeyUp, kKeyCtrl);
  EXPECT_EQ(ran, (std::vector<std::string>{"gesture.click", "gesture.left", "gesture.up"}));
}

} // namespace
