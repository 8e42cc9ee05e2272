#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/DropDownButtonEx.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <string>
#include <vector>

namespace {

// A small text-style panel: a caption and a "Bold" button that sends "bold";
// the lower part is bare, for dragging.
class TextStylePanel : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() : StandardPanel::InitArgs(preferredSize()) {}
  };

  explicit TextStylePanel(InitArgs const& args) : StandardPanel(args) {
    TextLabel::InitArgs label(GlobCreationInfo(XY<int>(getUserArea().width(), UifStd::getRowHeight())));
    label.text = UIString(L"Text style");
    createWidget<TextLabel>(label, UserTopLeft(0, 0));
    bold_ = createWidget<PushButton>(PushButton::InitArgs(UIString(L"Bold"), XY<int>(), "bold"),
                                     Below(UifStd::getRowGap()));
  }
  char const* idstring() const override { return "TextStylePanel"; }

  static XY<int> preferredSize() { return XY<int>(UifStd::getRowHeight() * 8, UifStd::getRowHeight() * 5); }
  // A point of the bare lower part, on the screen.
  XY<int> bareSpot() const { return screenPosition() + XY<int>(width() / 2, UifStd::getRowHeight()); }
  PushButton& boldButton() const noexcept { return *bold_; }

private:
  PushButton* bold_ = nullptr;
};

// Keeps what reached the button's hooks.
class StyleButton : public DropDownButtonEx<TextStylePanel> {
public:
  using DropDownButtonEx<TextStylePanel>::DropDownButtonEx;
  std::vector<std::string> panelMessages;
  int wheelSteps = 0;

protected:
  bool handleDropDownMessage(char const* message) override {
    panelMessages.push_back(message);
    return DropDownButtonEx<TextStylePanel>::handleDropDownMessage(message);
  }
  void handleMouseWheelDelta(int steps) override { wheelSteps += steps; }
};

// A window that logs the messages that reach it, with their senders.
class LoggingWindow : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    log.push_back(message.str());
    senders.push_back(sender);
    return 1;
  }
  std::vector<std::string> log;
  std::vector<Glob*> senders;
};

using Panel = DropDownWidgetWithDtorNotify<TextStylePanel>;

struct DropDownButtonExTest : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  StyleButton* openButton(int detachMode, XY<int> at = XY<int>(300, 600), XY<int> size = XY<int>(260, 90)) {
    StandardPanel::InitArgs windowArgs(size);
    windowArgs.screenPosition = at;
    window = new LoggingWindow(windowArgs);
    GlobManager::realize(window);
    StyleButton::InitArgs args(UIString(L"Style"), XY<int>(), TextStylePanel::InitArgs(), detachMode);
    return window->createWidget<StyleButton>(args, Glob::UserTopLeft(0, 0));
  }

  // A click on a widget, with what it set off done.
  static void press(Glob const& widget) {
    HeadlessInput::clickOn(widget);
    pump();
  }

  static Panel* panelOf(StyleButton const& button) { return dynamic_cast<Panel*>(button.getDropDownWindow()); }

  using HeadlessScreenTest::pump;

  static void clickAt(XY<int> screen) {
    HeadlessInput::click(screen);
    pump();
  }

  LoggingWindow* window = nullptr;
};

TEST_F(DropDownButtonExTest, AClickTellsTheParentThenShowsThePanelUnderTheButton) {
  StyleButton* button = openButton(StyleButton::kAttached);
  press(*button);

  ASSERT_EQ(window->log, std::vector<std::string>{"ddBtnClickMsg"});
  EXPECT_EQ(window->senders.front(), button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(button->getDropDownPanel(), panel);
  EXPECT_EQ(button->getState(), 1);
  EXPECT_TRUE(panel->hasModalContext());
  Zo::Box<int> const buttonBox = screenBoxOf(*button);
  Zo::Box<int> const panelBox = screenBoxOf(*panel);
  EXPECT_EQ(panelBox.y1, buttonBox.y0);
  EXPECT_EQ(panelBox.x0, buttonBox.x0);
  EXPECT_GE(panel->width(), button->width());
  // Button and panel are framed as one shape: the button's sides are drawn,
  // its bottom, where the panel meets it, is left open.
  Rgb const frame = rgbOf(scale(button->getPalette().selection(), 1.4));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, XY<int>(0, button->height() / 2))), frame));
  EXPECT_FALSE(near(rgbOf(widgetPixel(*button, XY<int>(button->width() / 3, 0))), frame, 8));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*panel, XY<int>(0, panel->height() / 2))), frame));
}

TEST_F(DropDownButtonExTest, PanelsAreAtLeastAsWideAsTheButton) {
  StyleButton* button = openButton(StyleButton::kAttached);
  TextStylePanel::InitArgs narrow;
  narrow.size.x = 1;
  button->setDropDownArgs(narrow);
  press(*button);
  ASSERT_NE(panelOf(*button), nullptr);
  EXPECT_EQ(panelOf(*button)->width(), button->width());
}

TEST_F(DropDownButtonExTest, PressingAnOpenNonLatchingButtonClosesThePanel) {
  for (int mode : {int(StyleButton::kAttached), int(StyleButton::kMovable)}) {
    StyleButton* button = openButton(mode);
    button->setLatching(false);
    press(*button);
    Panel* panel = panelOf(*button);
    ASSERT_NE(panel, nullptr);
    press(*button);
    EXPECT_FALSE(is_good_glob_ptr(panel)) << "detach mode " << mode;
    EXPECT_EQ(button->getDropDownWindow(), nullptr);
    // The closing press is reported as state 1, yet the button looks up.
    EXPECT_EQ(button->getState(), 1);
    Rgb const selection = rgbOf(button->getPalette().selection());
    EXPECT_FALSE(near(rgbOf(widgetPixel(*button, XY<int>(button->width() / 3, button->height() / 2))), selection, 8));
    // A movable panel's button never latches: its next press shows a fresh
    // panel.
    if (mode == StyleButton::kMovable) {
      press(*button);
      EXPECT_NE(panelOf(*button), nullptr);
      EXPECT_EQ(button->getState(), 1);
    }
    GlobManager::requestDeletion(window);
    pump();
  }
}

TEST_F(DropDownButtonExTest, AMovablePanelMakesANonLatchingButton) {
  EXPECT_FALSE(openButton(StyleButton::kMovable)->isLatching());
  EXPECT_TRUE(openButton(StyleButton::kAttached)->isLatching());
}

TEST_F(DropDownButtonExTest, APressOutsideClosesThePanelAndTheButtonHearsOfIt) {
  StyleButton* button = openButton(StyleButton::kAttached);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  clickAt(XY<int>(20, 20));
  EXPECT_FALSE(is_good_glob_ptr(panel));
  EXPECT_EQ(button->getDropDownWindow(), nullptr);
  EXPECT_EQ(button->getState(), 0);
}

TEST_F(DropDownButtonExTest, DownOnTheButtonOpensThePanelAndASecondDownKeepsItOpen) {
  StyleButton* button = openButton(StyleButton::kAttached);
  button->claimKbdFocus();
  HeadlessInput::key(kKeyDown);
  pump();
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  button->claimKbdFocus();
  HeadlessInput::key(kKeyDown);
  pump();
  EXPECT_TRUE(is_good_glob_ptr(panel));
  EXPECT_EQ(panelOf(*button), panel);
}

TEST_F(DropDownButtonExTest, EscapeClosesThePanel) {
  StyleButton* button = openButton(StyleButton::kAttached);
  press(*button);
  ASSERT_NE(panelOf(*button), nullptr);
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(button->getDropDownWindow(), nullptr);
  EXPECT_EQ(button->getState(), 0);
}

TEST_F(DropDownButtonExTest, ADragOfLessThanARowLeavesThePanelAttached) {
  StyleButton* button = openButton(StyleButton::kDetachable);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  XY<int> const at = panel->screenPosition();
  XY<int> const from = panel->bareSpot();
  HeadlessInput::drag(from, from + XY<int>(0, -UifStd::getRowHeight()));
  pump();
  EXPECT_TRUE(panel->isAttached());
  EXPECT_TRUE(panel->hasModalContext());
  EXPECT_EQ(panel->screenPosition(), at);
  EXPECT_EQ(button->getDropDownWindow(), panel);
  EXPECT_EQ(button->getState(), 1);
}

TEST_F(DropDownButtonExTest, ALongerDragTearsThePanelOffToLiveOnItsOwn) {
  StyleButton* button = openButton(StyleButton::kDetachable);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  XY<int> const at = panel->screenPosition();
  XY<int> const from = panel->bareSpot();
  XY<int> const by(UifStd::getRowHeight() * 5, -UifStd::getRowHeight() * 3);
  HeadlessInput::drag(from, from + by);
  pump();
  EXPECT_FALSE(panel->isAttached());
  EXPECT_FALSE(panel->hasModalContext());
  EXPECT_TRUE(panel->isMovable());
  EXPECT_EQ(panel->screenPosition(), at + by);
  EXPECT_EQ(button->getDropDownWindow(), nullptr);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_FALSE(button->isLatching());

  clickAt(XY<int>(20, 20));
  EXPECT_TRUE(is_good_glob_ptr(panel));

  // The button makes a new panel; the torn-off one stays.
  press(*button);
  Panel* second = panelOf(*button);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(second, panel);
  EXPECT_TRUE(is_good_glob_ptr(panel));

  // The torn-off panel's going does not disturb the button's new one.
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_EQ(button->getDropDownWindow(), second);
}

TEST_F(DropDownButtonExTest, SettingAPanelAttachedStillSendsDetachAndFreesTheButton) {
  StyleButton* button = openButton(StyleButton::kAttached);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  ASSERT_TRUE(panel->hasModalContext());
  panel->setAttached(true);
  pump();
  EXPECT_TRUE(panel->isAttached());
  EXPECT_FALSE(panel->isMovable());
  EXPECT_FALSE(panel->hasModalContext());
  EXPECT_EQ(button->getDropDownWindow(), nullptr);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_FALSE(button->isLatching());
  EXPECT_TRUE(is_good_glob_ptr(panel));
  GlobManager::requestDeletion(panel);
  pump();
}

TEST_F(DropDownButtonExTest, AMessageFromOutsideThePanelIsNotTakenForAPanelMessage) {
  StyleButton* button = openButton(StyleButton::kAttached);
  auto* sibling = window->createWidget<PushButton>(PushButton::InitArgs(UIString(L"Other"), XY<int>(), "bold"),
                                                   Glob::UserBottomRight(0, 0));
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  window->log.clear();

  Glob::sendMsg(button, "bold", sibling);
  EXPECT_TRUE(button->panelMessages.empty());
  EXPECT_TRUE(window->log.empty());
  EXPECT_EQ(button->getDropDownWindow(), panel);

  // The same text from inside the panel is the panel's: it goes on to the
  // button's parent, and the panel stays.
  clickAt(HeadlessInput::pointOn(panel->boldButton()));
  EXPECT_EQ(button->panelMessages, std::vector<std::string>{"bold"});
  ASSERT_EQ(window->log, std::vector<std::string>{"bold"});
  EXPECT_EQ(window->senders.front(), button);
  EXPECT_EQ(button->getDropDownWindow(), panel);
}

TEST_F(DropDownButtonExTest, NearTheBottomEdgeThePanelOpensAboveTheButton) {
  StyleButton* button = openButton(StyleButton::kAttached, XY<int>(300, 0));
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(screenBoxOf(*panel).y0, screenBoxOf(*button).y1);
  // The frame is open at the button's top now.
  Rgb const frame = rgbOf(scale(button->getPalette().selection(), 1.4));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, XY<int>(button->width() / 3, 0))), frame));
}

TEST_F(DropDownButtonExTest, NearTheRightEdgeThePanelStaysOnTheScreen) {
  // A narrow window at the screen's right edge.
  StyleButton* button =
      openButton(StyleButton::kAttached, XY<int>(HeadlessScreen::kDefaultWidth - 80, 600), XY<int>(80, 90));
  ASSERT_GT(screenBoxOf(*button).x0, HeadlessScreen::kDefaultWidth - 80);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(screenBoxOf(*panel).x1, HeadlessScreen::kDefaultWidth);
  EXPECT_EQ(screenBoxOf(*panel).y1, screenBoxOf(*button).y0);
}

TEST_F(DropDownButtonExTest, DeletingTheButtonWhileOpenDeletesThePanel) {
  StyleButton* button = openButton(StyleButton::kAttached);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  GlobManager::requestDeletion(window);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
  EXPECT_TRUE(GlobManager::topLevelWindows().empty());
}

TEST_F(DropDownButtonExTest, WithoutDeleteOnDestructionThePanelOutlivesTheButton) {
  StyleButton* button = openButton(StyleButton::kAttached);
  button->setDeleteOnDestruction(false);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  GlobManager::requestDeletion(window);
  pump();
  ASSERT_TRUE(is_good_glob_ptr(panel));
  // Its farewell finds nobody.
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
}

TEST_F(DropDownButtonExTest, APinnedPanelStaysOnAPressOutside) {
  StyleButton* button = openButton(StyleButton::kAttached);
  TextStylePanel::InitArgs pinnable;
  pinnable.standardWidgets = StandardPanel::kPin;
  button->setDropDownArgs(pinnable);
  press(*button);
  Panel* panel = panelOf(*button);
  ASSERT_NE(panel, nullptr);
  Zo::Box<int> const pin = panel->getStandardWidgetBox(StandardPanel::kPin);
  clickAt(HeadlessInput::pointOn(*panel, XY<int>((pin.x0 + pin.x1) / 2, (pin.y0 + pin.y1) / 2)));
  ASSERT_TRUE(panel->isPinned());
  EXPECT_FALSE(panel->hasModalContext());
  clickAt(XY<int>(20, 20));
  EXPECT_TRUE(is_good_glob_ptr(panel));
  // Unpinned, it is a drop-down again.
  clickAt(HeadlessInput::pointOn(*panel, XY<int>((pin.x0 + pin.x1) / 2, (pin.y0 + pin.y1) / 2)));
  EXPECT_TRUE(panel->hasModalContext());
  clickAt(XY<int>(20, 20));
  EXPECT_FALSE(is_good_glob_ptr(panel));
}

TEST_F(DropDownButtonExTest, TheWheelOverTheButtonGoesToItsHook) {
  StyleButton* button = openButton(StyleButton::kAttached);
  HeadlessInput::wheel(HeadlessInput::pointOn(*button), 3);
  HeadlessInput::wheel(HeadlessInput::pointOn(*button), -1);
  EXPECT_EQ(button->wheelSteps, 2);
  button->setActive(false, kRedrawNow);
  HeadlessInput::wheel(HeadlessInput::pointOn(*button), 3);
  EXPECT_EQ(button->wheelSteps, 2);
}

// The picture: the button with its panel open under it, one shape.
void checkGolden(DropDownButtonExTest& test, std::string const& name) {
  int const row = UifStd::getRowHeight();
  StyleButton* button = test.openButton(StyleButton::kAttached, XY<int>(40, 400), XY<int>(row * 10, row * 2));
  HeadlessInput::clickOn(*button);
  DropDownButtonExTest::pump();
  HeadlessInput::moveTo(XY<int>(0, 0));
  ASSERT_NE(DropDownButtonExTest::panelOf(*button), nullptr);
  Zo::Box<int> const windowBox = screenBoxOf(*test.window);
  Zo::Box<int> const area(windowBox.x0, windowBox.y0 - TextStylePanel::preferredSize().y - row, windowBox.x1,
                          windowBox.y1);
  EXPECT_TRUE(matchesGolden(headlessScreen().grab(area), std::string(ZO_GOLDEN_DIR "/") + name + ".png"));
}

TEST_F(DropDownButtonExTest, GoldenOpen) { checkGolden(*this, "dropdown_button_ex_open"); }

TEST_F(DropDownButtonExTest, GoldenOpenAtDoubleScale) {
  UifStd::setScale(2.0);
  checkGolden(*this, "dropdown_button_ex_open_scale2");
}

} // namespace
