#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/DropDownButton2.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>

#include <array>
#include <string>
#include <vector>

namespace {

// A small clip-colour chooser: a caption, a row of swatches and an Apply
// button that sends "apply" to the panel's parent.
class ClipColourPanel : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    InitArgs(XY<int> size, UIString caption) : StandardPanel::InitArgs(size), caption(std::move(caption)) {
      setBorder(Border(UifStd::getWidgetGap()));
    }
    UIString caption;
  };

  explicit ClipColourPanel(InitArgs const& args) : StandardPanel(args), caption_(args.caption) {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getWidgetGap();
    TextLabel::InitArgs label(GlobCreationInfo(XY<int>(getUserArea().width(), row)));
    label.text = args.caption;
    createWidget<TextLabel>(label, UserTopLeft(0, 0));
    static constexpr std::array<std::array<double, 3>, 6> kClipColours = {{{0.86, 0.30, 0.30},
                                                                           {0.91, 0.58, 0.24},
                                                                           {0.88, 0.80, 0.32},
                                                                           {0.36, 0.72, 0.42},
                                                                           {0.27, 0.62, 0.80},
                                                                           {0.58, 0.44, 0.82}}};
    Glob* previous = nullptr;
    for (auto const& rgb : kClipColours) {
      ColourSwatch::InitArgs swatch(XY<int>(row, row), ColourData(rgb[0], rgb[1], rgb[2]));
      previous = previous ? createWidget<ColourSwatch>(swatch, RightOf(gap, previous))
                          : createWidget<ColourSwatch>(swatch, Below(UifStd::getRowGap()));
      swatches_.push_back(previous);
    }
    apply_ =
        createWidget<PushButton>(PushButton::InitArgs(UIString(L"Apply"), XY<int>(), "apply"), UserBottomRight(0, 0));
  }
  char const* idstring() const override { return "ClipColourPanel"; }

  // The size a panel of these contents needs.
  static XY<int> preferredSize() {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getWidgetGap();
    return StandardPanel::calcPanelSize(XY<int>(6 * row + 5 * gap, 3 * row + 2 * UifStd::getRowGap()), 0, Border(gap));
  }

  UIString const& caption() const noexcept { return caption_; }
  PushButton& applyButton() const noexcept { return *apply_; }
  std::vector<Glob*> const& swatches() const noexcept { return swatches_; }

private:
  UIString caption_;
  PushButton* apply_ = nullptr;
  std::vector<Glob*> swatches_;
};

using ColourButton = DropDownButton2<ClipColourPanel>;

struct DropDownButton2Test : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // A window with the drop-down button in its top-left corner.
  ColourButton* openButton(XY<int> at = XY<int>(200, 600), XY<int> windowSize = XY<int>(240, 80)) {
    window = openPanel(windowSize, at);
    ColourButton::InitArgs args(
        UIString(L"Clip colour"), XY<int>(0, 0),
        ClipColourPanel::InitArgs(ClipColourPanel::preferredSize(), UIString(L"Choose a colour")));
    return window->createWidget<ColourButton>(args, Glob::UserTopLeft(0, 0));
  }

  using HeadlessScreenTest::pump;
  using HeadlessScreenTest::screen;

  // A click on a widget, with what it set off done.
  static void press(Glob const& widget) {
    HeadlessInput::clickOn(widget);
    pump();
  }

  static void clickAt(XY<int> screen) {
    HeadlessInput::click(screen);
    pump();
  }

  StandardPanel* window = nullptr;
};

TEST_F(DropDownButton2Test, AClickOpensThePanelBelowTheButtonLeftAligned) {
  ColourButton* button = openButton();
  std::size_t const windowsBefore = GlobManager::topLevelWindows().size();
  press(*button);

  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  EXPECT_EQ(button->getState(), 1);
  EXPECT_EQ(GlobManager::topLevelWindows().size(), windowsBefore + 1);
  EXPECT_EQ(host->getRelativeDirection(), kRelativeBelow);
  Zo::Box<int> const buttonBox = screenBoxOf(*button);
  Zo::Box<int> const hostBox = screenBoxOf(*host);
  EXPECT_EQ(hostBox.y1, buttonBox.y0);
  EXPECT_EQ(hostBox.x0, buttonBox.x0);
  ClipColourPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->parent(), host);
  EXPECT_EQ(panel->getSize(), ClipColourPanel::preferredSize());
  EXPECT_EQ(host->getSize(), TipWindowBase::calcSizeFor(panel->getSize(), kRelativeBelow, host->getBorder()));
  // The tip along the top edge is drawn in the accent colour.
  EXPECT_TRUE(near(rgbOf(widgetPixel(*host, XY<int>(host->width() / 2, host->height() - 1))),
                   rgbOf(host->getPalette().selection())));
}

TEST_F(DropDownButton2Test, AClickOutsideDismissesThePanelAndDoesNothingElse) {
  ColourButton* button = openButton();
  int applied = 0;
  auto* other = window->createWidget<PushButton>(PushButton::InitArgs(UIString(L"Other"), XY<int>()),
                                                 Glob::UserBottomRight(0, 0));
  other->setCallback(Broadcaster<ButtonEvent>::makeCallback([&](ButtonEvent const&) { ++applied; }));
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  Glob* hostGlob = host;

  clickAt(HeadlessInput::pointOn(*other));
  EXPECT_FALSE(is_good_glob_ptr(hostGlob));
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(applied, 0);
  // With the panel gone the same press reaches the widget.
  clickAt(HeadlessInput::pointOn(*other));
  EXPECT_EQ(applied, 1);
}

TEST_F(DropDownButton2Test, PressesInsideThePanelReachItsWidgetsAndKeepItOpen) {
  ColourButton* button = openButton();
  int applied = 0;
  press(*button);
  ClipColourPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  panel->applyButton().setCallback(Broadcaster<ButtonEvent>::makeCallback([&](ButtonEvent const&) { ++applied; }));
  clickAt(HeadlessInput::pointOn(panel->applyButton()));
  EXPECT_EQ(applied, 1);
  EXPECT_EQ(button->getDropDownPanel(), panel);
}

TEST_F(DropDownButton2Test, AClickOnTheOpenButtonClosesItAndAThirdReopens) {
  ColourButton* button = openButton();
  press(*button);
  Glob* first = button->getDropDownHost();
  ASSERT_NE(first, nullptr);
  press(*button);
  EXPECT_FALSE(is_good_glob_ptr(first));
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  press(*button);
  EXPECT_NE(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getState(), 1);
}

// Down on a button that has the keyboard; the drop-down it opened.
Glob* openByKeyboard(ColourButton& button) {
  button.claimKbdFocus();
  HeadlessInput::key(kKeyDown);
  DropDownButton2Test::pump();
  return button.getDropDownHost();
}

TEST_F(DropDownButton2Test, DownOnTheButtonOpensThePanelAndASecondDownKeepsItOpen) {
  ColourButton* button = openButton();
  Glob* host = openByKeyboard(*button);
  ASSERT_NE(host, nullptr);
  EXPECT_EQ(button->getState(), 1);
  button->claimKbdFocus();
  HeadlessInput::key(kKeyDown);
  pump();
  EXPECT_TRUE(is_good_glob_ptr(host));
  EXPECT_EQ(button->getDropDownHost(), host);
  EXPECT_EQ(button->getState(), 1);
}

TEST_F(DropDownButton2Test, EscapeDismissesThePanel) {
  ColourButton* button = openButton();
  press(*button);
  ASSERT_NE(button->getDropDownHost(), nullptr);
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getState(), 0);
}

TEST_F(DropDownButton2Test, TheOpenPanelTakesTheKeysAndEscapeGivesThemBackToTheButton) {
  ColourButton* button = openButton();
  Glob* host = openByKeyboard(*button);
  ASSERT_NE(host, nullptr);
  EXPECT_FALSE(button->hasKbdFocus()) << "keys go to the panel shown";
  HeadlessInput::key(kKeyTab);
  ASSERT_NE(get_kbd_focus(), nullptr);
  EXPECT_EQ(get_kbd_focus()->getRootParent(), host) << "Tab enters the panel";
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  EXPECT_TRUE(button->hasKbdFocus()) << "back to the button that opened it";
}

TEST_F(DropDownButton2Test, AZeroWidthPanelMakesTheButtonInert) {
  window = openPanel(XY<int>(240, 80), XY<int>(200, 600));
  ColourButton::InitArgs args(UIString(L"Clip colour"), XY<int>(0, 0),
                              ClipColourPanel::InitArgs(XY<int>(0, 80), UIString(L"Label")));
  ColourButton* button = window->createWidget<ColourButton>(args, Glob::UserTopLeft(0, 0));
  std::size_t const windowsBefore = GlobManager::topLevelWindows().size();
  press(*button);
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(GlobManager::topLevelWindows().size(), windowsBefore);
}

TEST_F(DropDownButton2Test, ChangingArgsWhileShowingRebuildsInPlaceWithOnePaint) {
  ColourButton* button = openButton();
  press(*button);
  DropDownHostBase* oldHost = button->getDropDownHost();
  ASSERT_NE(oldHost, nullptr);
  Glob* oldGlob = oldHost;
  Zo::Box<int> const oldBox = screenBoxOf(*oldHost);
  int const paintsBefore = screen().paintsShown();

  button->setDropDownArgs(ClipColourPanel::InitArgs(ClipColourPanel::preferredSize(), UIString(L"Track colour")));

  // Painting waited for the whole change: the new panel's window and the
  // button's were each painted once, so no picture showed the gap between.
  EXPECT_EQ(screen().paintsShown() - paintsBefore, 2);
  ASSERT_NE(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getDropDownHost()->canvas()->paintCount(), 1);
  ClipColourPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->caption().getString(), LightweightString<wchar_t>(L"Track colour"));
  EXPECT_NE(button->getDropDownHost(), oldHost);
  EXPECT_EQ(screenBoxOf(*button->getDropDownHost()), oldBox);
  EXPECT_FALSE(oldHost->canvas()->isMapped());
  EXPECT_EQ(button->getState(), 1);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(oldGlob));
  EXPECT_EQ(button->getDropDownPanel(), panel);
}

TEST_F(DropDownButton2Test, NearTheRightEdgeThePanelStaysOnTheScreen) {
  XY<int> const screenSize(HeadlessScreen::kDefaultWidth, HeadlessScreen::kDefaultHeight);
  ColourButton* button = openButton(XY<int>(screenSize.x - 100, 600), XY<int>(100, 80));
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  Zo::Box<int> const hostBox = screenBoxOf(*host);
  EXPECT_EQ(hostBox.x1, screenSize.x);
  EXPECT_EQ(hostBox.y1, screenBoxOf(*button).y0);
}

TEST_F(DropDownButton2Test, NearTheBottomEdgeThePanelOpensAboveWithItsTipBelow) {
  ColourButton* button = openButton(XY<int>(0, 0), XY<int>(240, 80));
  Zo::Box<int> const buttonBox = screenBoxOf(*button);
  ASSERT_LT(buttonBox.y0, ClipColourPanel::preferredSize().y);
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  EXPECT_EQ(host->getRelativeDirection(), kRelativeAbove);
  Zo::Box<int> const hostBox = screenBoxOf(*host);
  EXPECT_EQ(hostBox.y0, buttonBox.y1);
  EXPECT_EQ(hostBox.x0, buttonBox.x0);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*host, XY<int>(host->width() / 2, 0))), rgbOf(host->getPalette().selection())));
}

TEST_F(DropDownButton2Test, WithNoRoomOnEitherSideThePanelIsClampedOntoTheScreen) {
  // Too low for the panel below the button, too high for it above, and too
  // close to the right edge.
  XY<int> const screenSize(400, 150);
  useHeadlessScreen(screenSize);
  ColourButton* button = openButton(XY<int>(300, 30), XY<int>(100, 80));
  Zo::Box<int> const buttonBox = screenBoxOf(*button);
  XY<int> const panelSize = ClipColourPanel::preferredSize();
  ASSERT_LT(buttonBox.y0, panelSize.y);
  ASSERT_GT(buttonBox.y1 + panelSize.y, screenSize.y);
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  Zo::Box<int> const hostBox = screenBoxOf(*host);
  EXPECT_GE(hostBox.x0, 0);
  EXPECT_GE(hostBox.y0, 0);
  EXPECT_EQ(hostBox.x1, screenSize.x);
  EXPECT_LE(hostBox.y1, screenSize.y);
}

TEST_F(DropDownButton2Test, DeletingTheButtonWhileOpenTakesThePanelAway) {
  ColourButton* button = openButton();
  press(*button);
  Glob* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  GlobManager::requestDeletion(window);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_FALSE(is_good_glob_ptr(host));
  EXPECT_TRUE(GlobManager::topLevelWindows().empty());
}

TEST_F(DropDownButton2Test, ADragOfLessThanARowLeavesADetachablePanelAttached) {
  ColourButton* button = openButton();
  button->setDetachMode(1);
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  XY<int> const hostAt = host->screenPosition();
  // The caption label leaves presses alone, so they reach the host.
  XY<int> const from = host->screenPosition() + XY<int>(host->width() / 2, host->height() - host->height() / 6);
  HeadlessInput::drag(from, from + XY<int>(UifStd::getRowHeight() - 1, 0));
  pump();
  EXPECT_EQ(button->getDropDownHost(), host);
  EXPECT_FALSE(host->isDetached());
  EXPECT_EQ(host->screenPosition(), hostAt);
  EXPECT_EQ(button->getState(), 1);
}

TEST_F(DropDownButton2Test, ALongerDragTearsThePanelOffAndMovesIt) {
  ColourButton* button = openButton();
  button->setDetachMode(1);
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  XY<int> const panelAt = button->getDropDownPanel()->screenPosition();
  XY<int> const from = host->screenPosition() + XY<int>(host->width() / 2, host->height() - host->height() / 6);
  XY<int> const by(UifStd::getRowHeight() * 4, -UifStd::getRowHeight() * 2);
  HeadlessInput::drag(from, from + by);
  pump();
  EXPECT_TRUE(host->isDetached());
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(host->getRelativeDirection(), kRelativeNone);
  EXPECT_FALSE(host->getTitleBarBox().empty());
  // The panel followed the pointer all the way.
  EXPECT_EQ(static_cast<Glob*>(host->getChildren().front())->screenPosition(), panelAt + by);

  // Floating, it ignores presses elsewhere.
  clickAt(XY<int>(20, 20));
  EXPECT_TRUE(is_good_glob_ptr(host));

  // Opening again replaces the torn-off panel with a fresh attached one.
  press(*button);
  EXPECT_FALSE(is_good_glob_ptr(host));
  ASSERT_NE(button->getDropDownHost(), nullptr);
  EXPECT_FALSE(button->getDropDownHost()->isDetached());
}

TEST_F(DropDownButton2Test, ATornOffPanelClosesFromItsTitleBar) {
  ColourButton* button = openButton();
  button->setDetachMode(1);
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  host->detach();
  pump();
  Zo::Box<int> const close = host->getCloseBox();
  ASSERT_FALSE(close.empty());
  clickAt(HeadlessInput::pointOn(*host, XY<int>((close.x0 + close.x1) / 2, (close.y0 + close.y1) / 2)));
  EXPECT_FALSE(is_good_glob_ptr(host));
  EXPECT_EQ(button->getState(), 0);
}

TEST_F(DropDownButton2Test, AModalPanelRefusesOtherWindowsAndClosesOnAnyOutsidePress) {
  ColourButton* button = openButton();
  button->setModal(true);
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  EXPECT_TRUE(GlobManager::isModal(host));
  // Even the press on the button closes it rather than reaching the button.
  press(*button);
  EXPECT_FALSE(is_good_glob_ptr(host));
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(GlobManager::currentModal(), nullptr);
}

// Counts the host events that reach it, in a count that outlives it.
class CountingColourButton : public ColourButton {
public:
  using ColourButton::ColourButton;
  static inline int eventsHeard = 0;

protected:
  void handleDropDownEvent(DropDownHostBase::Event const& event) override {
    ++eventsHeard;
    ColourButton::handleDropDownEvent(event);
  }
};

TEST_F(DropDownButton2Test, AnEventArrivingAfterTheButtonDiedIsDropped) {
  CountingColourButton::eventsHeard = 0;
  window = openPanel(XY<int>(240, 80), XY<int>(200, 600));
  CountingColourButton::InitArgs args(UIString(L"Clip colour"), XY<int>(0, 0),
                                      ClipColourPanel::InitArgs(ClipColourPanel::preferredSize(), UIString()));
  auto* button = window->createWidget<CountingColourButton>(args, Glob::UserTopLeft(0, 0));
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  host->detach();
  EXPECT_EQ(CountingColourButton::eventsHeard, 1);
  // The torn-off host outlives the button: its closing report finds nobody.
  window->removeWidget(button);
  GlobManager::requestDeletion(host);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(host));
  EXPECT_EQ(CountingColourButton::eventsHeard, 1);
}

TEST_F(DropDownButton2Test, APanelThatChangesSizeTakesItsWindowAlong) {
  ColourButton* button = openButton();
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  ClipColourPanel* panel = button->getDropDownPanel();
  XY<int> const frame = host->getSize() - panel->getSize();
  Zo::Box<int> const before = screenBoxOf(*host);
  panel->resize(panel->width() + 30, panel->height() + 20);
  EXPECT_EQ(host->getSize(), panel->getSize() + frame);
  // It grows away from the button.
  Zo::Box<int> const after = screenBoxOf(*host);
  EXPECT_EQ(after.y1, before.y1);
  EXPECT_EQ(after.x0, before.x0);
  Zo::Box<int> const user = host->getUserArea();
  EXPECT_EQ(panel->getPosition(), XY<int>(user.x0, user.y0));
}

TEST_F(DropDownButton2Test, ResizableEdgesResizeThePanelWithTheOtherEdgesKept) {
  ColourButton* button = openButton();
  button->setResizableEdges(2 | 8);
  press(*button);
  DropDownHostBase* host = button->getDropDownHost();
  ASSERT_NE(host, nullptr);
  Zo::Box<int> const before = screenBoxOf(*host);
  XY<int> const panelBefore = button->getDropDownPanel()->getSize();
  int const grow = UifStd::getRowHeight() * 2;

  XY<int> const rightEdge(before.x1 - 1, (before.y0 + before.y1) / 2);
  HeadlessInput::drag(rightEdge, rightEdge + XY<int>(grow, 0));
  XY<int> const bottomEdge((before.x0 + before.x1) / 2, before.y0);
  HeadlessInput::drag(bottomEdge, bottomEdge - XY<int>(0, grow));
  pump();

  Zo::Box<int> const after = screenBoxOf(*host);
  EXPECT_EQ(after.x0, before.x0);
  EXPECT_EQ(after.y1, before.y1);
  EXPECT_EQ(after.x1, before.x1 + grow);
  EXPECT_EQ(after.y0, before.y0 - grow);
  EXPECT_EQ(button->getDropDownPanel()->getSize(), panelBefore + XY<int>(grow, grow));
  // The left edge was not made resizable: a drag there does nothing.
  XY<int> const leftEdge(after.x0, (after.y0 + after.y1) / 2);
  HeadlessInput::drag(leftEdge, leftEdge - XY<int>(grow, 0));
  pump();
  EXPECT_EQ(screenBoxOf(*host), after);
}

// The picture: a dark editor window with the button, closed and open.
void checkGolden(DropDownButton2Test& test, std::string const& name) {
  HeadlessScreen& screen = test.screen();
  ColourButton* button =
      test.openButton(XY<int>(40, 400), XY<int>(UifStd::getRowHeight() * 10, UifStd::getRowHeight() * 2));
  Zo::Box<int> windowBox = screenBoxOf(*test.window);
  XY<int> const panel = ClipColourPanel::preferredSize();
  Zo::Box<int> const area(windowBox.x0, windowBox.y0 - panel.y - UifStd::getRowHeight(), windowBox.x1, windowBox.y1);
  EXPECT_TRUE(matchesGolden(screen.grab(area), std::string(ZO_GOLDEN_DIR "/") + name + "_closed.png"));
  HeadlessInput::clickOn(*button);
  DropDownButton2Test::pump();
  HeadlessInput::moveTo(XY<int>(0, 0));
  ASSERT_NE(button->getDropDownHost(), nullptr);
  EXPECT_TRUE(matchesGolden(screen.grab(area), std::string(ZO_GOLDEN_DIR "/") + name + "_open.png"));
}

TEST_F(DropDownButton2Test, GoldenClosedAndOpen) { checkGolden(*this, "dropdown_button2"); }

TEST_F(DropDownButton2Test, GoldenClosedAndOpenAtDoubleScale) {
  UifStd::setScale(2.0);
  checkGolden(*this, "dropdown_button2_scale2");
}

} // namespace
