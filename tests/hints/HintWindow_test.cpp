#include "HintWindowTestSupport.h"

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/shell/ShellBackend.h>
#include <zowidgets/host/toolkit/StateSaver.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <cstdlib>
#include <functional>
#include <vector>

namespace {

TEST_F(HintWindowTest, ItSitsBesideItsControlWithItsTipTowardsIt) {
  Hint const hint = trimHint();
  HintWindow* window = showBelowButton(hint);
  ASSERT_TRUE(onScreen(window));
  EXPECT_STREQ(window->idstring(), "HintWindow");
  EXPECT_EQ(HintWindow::showing(), window);
  EXPECT_EQ(window->getSibling(), button);
  EXPECT_EQ(window->getTopLevel(), panel);
  EXPECT_EQ(window->getRelativeDirection(), kRelativeBelow);
  EXPECT_EQ(window->getSize(), HintWindow::calcSize(hint, kRelativeBelow));
  WidgetPosition const below = Glob::Below(UifStd::getWidgetGap(), button);
  XY<int> const expected = TipWindowBase::calcPosition(below, window->getSize());
  EXPECT_EQ(window->screenPosition(), expected);
  WidgetPosition const computed = HintWindow::calcPosition(hint, below, StatusMessage::kOkButton);
  EXPECT_EQ(computed.kind, WidgetPosition::kBottomLeft);
  EXPECT_EQ(XY<int>(computed.x, computed.y), expected);
  // Its top edge lies a widget gap under the button.
  EXPECT_EQ(window->screenPosition().y + window->height(), button->screenPosition().y - UifStd::getWidgetGap());
  EXPECT_EQ(window->getPointerOffset(), -1);
}

TEST_F(HintWindowTest, MakingAHintLeavesTheCallersDrawingStateAsItWas) {
  panel->makeCanvasCurrent();
  Glob::setupRootPos(nullptr, XY<int>(30, 40));
  showBelowButton(trimHint());
  EXPECT_EQ(Glib::currentCanvas(), panel->canvas());
  // The position the caller set is still waiting for the caller's window.
  auto* next = new StandardPanel(StandardPanel::InitArgs(XY<int>(50, 50)));
  GlobManager::realize(next);
  EXPECT_EQ(next->screenPosition(), XY<int>(30, 40));
}

TEST_F(HintWindowTest, ItsTextStandsAGapFromTheSideAndAGapAndAnIndentBelowTheTop) {
  HintWindow* window = HintWindow::make(trimHint(), Glob::Centre(0, 0));
  pump();
  Zo::Box<int> const area = window->getUserArea();
  Rgb const ground = rgbOf(widgetPixel(*window, XY<int>(area.x0 + 1, area.y1 - 1)));
  auto inked = [&](int x, int y) {
    Rgb const pixel = rgbOf(widgetPixel(*window, XY<int>(x, y)));
    return std::abs(pixel.r - ground.r) + std::abs(pixel.g - ground.g) + std::abs(pixel.b - ground.b) > 90;
  };
  int textTop = -1;
  for (int y = area.y1 - 1; y >= area.y0 && textTop < 0; --y)
    for (int x = area.x0; x < area.x1 && textTop < 0; ++x)
      if (inked(x, y))
        textTop = y;
  ASSERT_GE(textTop, 0) << "no text drawn";
  int textLeft = -1;
  for (int x = area.x0; x < area.x1 && textLeft < 0; ++x)
    for (int y = textTop; y > textTop - UifStd::getRowHeight() / 2 && textLeft < 0; --y)
      if (inked(x, y))
        textLeft = x;
  int const gap = UifStd::getWidgetGap();
  EXPECT_GE(area.y1 - 1 - textTop, gap + UifStd::getIndentWidth());
  EXPECT_GE(textLeft - area.x0, gap);
}

TEST_F(HintWindowTest, OkAcknowledgesTheHintAndClosesTheWindow) {
  Hint const hint = trimHint();
  HintWindow* window = showBelowButton(hint);
  HeadlessInput::clickOn(*window->getOkButton());
  pump();
  EXPECT_TRUE(hint.hasBeenIssued());
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_EQ(HintWindow::showing(), nullptr);
}

TEST_F(HintWindowTest, ReturnAcknowledgesAndEscapeDoesNot) {
  Hint const first = trimHint(1);
  HintWindow* window = showBelowButton(first);
  HeadlessInput::clickOn(*window, XY<int>(window->width() / 2, window->height() - HintWindow::getTipDepth() - 2));
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_FALSE(first.hasBeenIssued());

  Hint const second = trimHint(2);
  window = showBelowButton(second);
  HeadlessInput::clickOn(*window, XY<int>(window->width() / 2, window->height() - HintWindow::getTipDepth() - 2));
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_TRUE(second.hasBeenIssued());
}

TEST_F(HintWindowTest, ReturnBeforeTheHintHasTheKeysIsNotAnAcknowledgementAndEscapeClosesIt) {
  Hint const hint = trimHint(3);
  HintWindow* window = showBelowButton(hint);
  set_kbd_focus(nullptr);
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_TRUE(is_good_glob_ptr(window)) << "a hint the user may not have read";
  EXPECT_FALSE(hint.hasBeenIssued());
  // Escape from the window the user works in, which does not want it.
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_FALSE(hint.hasBeenIssued());
}

TEST_F(HintWindowTest, F6TakesTheKeysIntoTheHintWhereReturnAcknowledgesItAndF6AgainBringsThemBack) {
  Hint const first = trimHint(4);
  HintWindow* window = showBelowButton(first);
  ASSERT_TRUE(set_kbd_focus(button));
  HeadlessInput::key(kKeyF1 + 5);
  pump();
  ASSERT_NE(get_kbd_focus(), nullptr);
  EXPECT_EQ(get_kbd_focus()->getRootParent(), window) << "the keys are in the hint";
  HeadlessInput::key(kKeyF1 + 5);
  pump();
  EXPECT_EQ(get_kbd_focus(), button) << "and back where they were";
  EXPECT_TRUE(is_good_glob_ptr(window));
  HeadlessInput::key(kKeyF1 + 5);
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_TRUE(first.hasBeenIssued()) << "acknowledged by keys alone";
}

TEST_F(HintWindowTest, AClickElsewhereDismissesItUnacknowledgedSoItComesBack) {
  Hint const hint = trimHint();
  HintWindow* window = showBelowButton(hint);
  HeadlessInput::clickOn(*panel, XY<int>(10, 10));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_FALSE(hint.hasBeenIssued());
  // The caller's sequence shows it again.
  ASSERT_FALSE(hint.hasBeenIssued());
  EXPECT_TRUE(onScreen(showBelowButton(hint)));
}

TEST_F(HintWindowTest, AClickInTheHintItselfKeepsIt) {
  HintWindow* window = showBelowButton(trimHint());
  HeadlessInput::clickOn(*window, XY<int>(window->width() / 2, window->height() - HintWindow::getTipDepth() - 2));
  pump();
  EXPECT_TRUE(onScreen(window));
  EXPECT_FALSE(trimHint().hasBeenIssued());
}

TEST_F(HintWindowTest, AnotherWindowClickedOrOpenedDismissesIt) {
  StandardPanel* other = openPanel(XY<int>(100, 100), XY<int>(100, 100));
  HintWindow* window = showBelowButton(trimHint());
  HeadlessInput::clickOn(*other);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));

  window = showBelowButton(trimHint());
  openPanel(XY<int>(100, 100), XY<int>(1200, 100));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_FALSE(trimHint().hasBeenIssued());
}

TEST_F(HintWindowTest, ATooltipMayAppearOverItWithoutDismissingIt) {
  TestClock clock;
  button->setContextString(TooltipDetails(UIString(L"Trim the selected clip")));
  HintWindow* window = showBelowButton(trimHint());
  HeadlessInput::moveTo(HeadlessInput::pointOn(*button));
  clock.advance(Tooltips::kRestMs + 1);
  pump();
  TooltipWindow* tip = Tooltips::showing();
  ASSERT_NE(tip, nullptr);
  EXPECT_TRUE(tip->isType("ZoToolTip"));
  EXPECT_TRUE(onScreen(window));
  Tooltips::dismiss();
}

TEST_F(HintWindowTest, ItsControlsWindowMovedResizedOrHiddenClosesIt) {
  std::vector<std::function<void()>> const changes = {
      [&] { panel->canvas()->move(panel->canvas()->getPosition() + XY<int>(30, 0)); },
      [&] { panel->resize(panel->width() + 20, panel->height()); },
      [&] { panel->canvas()->unmap(); },
  };
  for (std::size_t i = 0; i < changes.size(); ++i) {
    HintWindow* window = showBelowButton(trimHint());
    ASSERT_TRUE(onScreen(window)) << "change " << i;
    changes[i]();
    pump();
    EXPECT_FALSE(is_good_glob_ptr(window)) << "change " << i;
  }
  EXPECT_FALSE(trimHint().hasBeenIssued());
}

TEST_F(HintWindowTest, ItsControlOrAnAncestorDeletedClosesIt) {
  HintWindow* window = showBelowButton(trimHint());
  panel->removeWidget(button);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));

  Glob* group = panel->createChild<Glob>(GlobCreationInfo(XY<int>(200, 100)), Glob::Centre(0, 0));
  button = group->createChild<PushButton>(PushButton::InitArgs(L"Ripple", XY<int>(80, 0)), Glob::Centre(0, 0));
  window = showBelowButton(trimHint());
  EXPECT_EQ(window->getTopLevel(), panel);
  panel->removeWidget(group);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
}

TEST_F(HintWindowTest, OtherWindowsAndWidgetsChangingLeaveItAlone) {
  StandardPanel* other = openPanel(XY<int>(100, 100), XY<int>(100, 100));
  Glob* unrelated =
      panel->createWidget<PushButton>(PushButton::InitArgs(L"Other", XY<int>(60, 0)), Glob::UserBottomLeft(0, 0));
  HintWindow* window = showBelowButton(trimHint());
  other->canvas()->move(XY<int>(150, 150));
  other->resize(120, 120);
  panel->removeWidget(unrelated);
  other->canvas()->unmap();
  pump();
  EXPECT_TRUE(onScreen(window));
}

TEST_F(HintWindowTest, MakingASecondRemovesTheFirstBeforeTheSecondIsPlaced) {
  HintWindow* first = showBelowButton(trimHint(1));
  bool firstOnScreenWhenSecondAppeared = true;
  auto listener = Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
      new FunctionCallback<GlobManagerEvent, int>([&](GlobManagerEvent const& event) {
        if (event.kind == GlobManagerEvent::kRealized && event.glob != first && event.glob->isType("HintWindow"))
          firstOnScreenWhenSecondAppeared = onScreen(first) && !GlobManager::isDeletionPending(first);
        return 0;
      }));
  auto guard = GlobManager::notifier().addListener(listener, NotifyMsgTypeDictionary::instance().anyType());
  HintWindow* second = showBelowButton(trimHint(2));
  EXPECT_FALSE(firstOnScreenWhenSecondAppeared);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(first));
  EXPECT_TRUE(onScreen(second));
  EXPECT_EQ(HintWindow::showing(), second);
}

TEST_F(HintWindowTest, RemoveWithoutAWindowDoesNothingAndMayBeCalledTwice) {
  std::vector<Glob*> const before = GlobManager::topLevelWindows();
  HintWindow::remove();
  HintWindow::remove();
  pump();
  EXPECT_EQ(GlobManager::topLevelWindows(), before);

  HintWindow* window = showBelowButton(trimHint());
  HintWindow::remove();
  HintWindow::remove();
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_EQ(HintWindow::showing(), nullptr);
  EXPECT_EQ(GlobManager::topLevelWindows(), before);
  EXPECT_FALSE(trimHint().hasBeenIssued());
}

TEST_F(HintWindowTest, AWindowThatWentOtherwiseIsDroppedByItsStamp) {
  HintWindow* window = showBelowButton(trimHint());
  GlobManager::requestDeletion(window);
  pump();
  EXPECT_EQ(HintWindow::showing(), nullptr);
  // A new window, perhaps at the same address, is none of the hint's.
  StatusMessage::InitArgs args(UIString(L"Rendering"), kRelativeNone);
  args.screenPosition = XY<int>(50, 50);
  auto* message = new StatusMessage(args);
  GlobManager::realize(message);
  EXPECT_EQ(HintWindow::showing(), nullptr);
  HintWindow::remove();
  pump();
  EXPECT_TRUE(onScreen(message));
}

TEST_F(HintWindowTest, WithATrashWidgetAndNoSiblingTheGivenCoordinatesAreNotUsed) {
  Hint const hint = trimHint();
  WidgetPosition const given = Glob::BottomLeft(50, 60);
  WidgetPosition const without = HintWindow::calcPosition(hint, given, 0);
  EXPECT_EQ(without.kind, WidgetPosition::kBottomLeft);
  EXPECT_EQ(XY<int>(without.x, without.y), XY<int>(50, 60));

  Glob* trash =
      panel->createWidget<PushButton>(PushButton::InitArgs(L"Bin", XY<int>(40, 0)), Glob::UserBottomRight(10, 10));
  trash->setName("trash");
  XY<int> const aboveTrash = trash->screenPosition() + XY<int>(40, 25 + trash->height());
  WidgetPosition const with = HintWindow::calcPosition(hint, given, 0);
  EXPECT_EQ(with.kind, WidgetPosition::kBottomLeft);
  EXPECT_EQ(XY<int>(with.x, with.y), aboveTrash);
  HintWindow* window = HintWindow::make(hint, given);
  EXPECT_EQ(window->screenPosition(), aboveTrash);
  EXPECT_EQ(window->getRelativeDirection(), kRelativeNone);
  // Unset coordinates too.
  window = HintWindow::make(hint, Glob::BottomLeft(-1234, -1234));
  EXPECT_EQ(window->screenPosition(), aboveTrash);
}

TEST_F(HintWindowTest, WithoutSiblingOrTrashUnsetCoordinatesCentreTheWindow) {
  Hint const hint = trimHint();
  WidgetPosition const computed = HintWindow::calcPosition(hint, Glob::BottomLeft(-1234, -1234), 0);
  EXPECT_EQ(computed.kind, WidgetPosition::kCentre);
  HintWindow* window = HintWindow::make(hint, Glob::BottomLeft(-1234, -1234));
  XY<int> const screenSize = screen().screenSize();
  XY<int> const centre = window->screenPosition() + XY<int>(window->width() / 2, window->height() / 2);
  EXPECT_NEAR(centre.x, screenSize.x / 2, 1);
  EXPECT_NEAR(centre.y, screenSize.y / 2, 1);
  // Explicit coordinates are kept.
  window = HintWindow::make(hint, Glob::BottomLeft(70, 80));
  EXPECT_EQ(window->screenPosition(), XY<int>(70, 80));
}

TEST_F(HintWindowTest, ALinkSitsAtTheRightOfTheFooterAndOpensItsTarget) {
  OS().clearRecordedShellRequests();
  Hint const hint(UIString(L"Ripple edits move everything after the cut."), 40, L"https://example.org/ripple");
  HintWindow* window = showBelowButton(hint);
  LinkButton* link = window->getLinkButton();
  ASSERT_NE(link, nullptr);
  EXPECT_EQ(link->getLink(), L"https://example.org/ripple");
  Zo::Box<int> const margin = window->getMarginArea();
  EXPECT_EQ(link->getX() + link->width(), margin.x1);
  EXPECT_EQ(link->getY(), margin.y0);
  Button* ok = window->getOkButton();
  EXPECT_LE(ok->getX() + ok->width(), link->getX()) << "OK and the link do not overlap";
  EXPECT_EQ(link->getPalette().window().get_vlib_colour(), StatusMessage::getBaseColour().get_vlib_colour());
  HeadlessInput::clickOn(*link);
  pump();
  std::vector<Zo::ShellRequest> const expected = {{Zo::ShellRequest::Kind::open, {L"https://example.org/ripple"}}};
  EXPECT_EQ(OS().recordedShellRequests(), expected);
  EXPECT_TRUE(onScreen(window)) << "following the link is no acknowledgement";
  EXPECT_FALSE(hint.hasBeenIssued());
  OS().clearRecordedShellRequests();

  EXPECT_EQ(showBelowButton(trimHint())->getLinkButton(), nullptr);
}

TEST_F(HintWindowTest, ALongLinkWidensTheWindow) {
  Hint const plain(UIString(L"Short."), 41);
  Hint const linked(UIString(L"Short."), 41, L"https://example.org/a/rather/long/address/about/trimming");
  XY<int> const plainSize = HintWindow::calcSize(plain, kRelativeBelow);
  XY<int> const linkedSize = HintWindow::calcSize(linked, kRelativeBelow);
  EXPECT_GT(linkedSize.x, plainSize.x);
  EXPECT_EQ(linkedSize.y, plainSize.y);
  HintWindow* window = showBelowButton(linked);
  EXPECT_GE(window->getLinkButton()->getX(), window->getOkButton()->getX() + window->getOkButton()->width());
}

TEST_F(HintWindowTest, AboveAModalDialogueItStillTakesItsOk) {
  GlobManager::addModalGlob(panel);
  StandardPanel* blocked = openPanel(XY<int>(100, 100), XY<int>(100, 100));
  Hint const hint = trimHint();
  HintWindow* window = showBelowButton(hint);
  EXPECT_FALSE(GlobManager::refusesInput(window));
  EXPECT_FALSE(GlobManager::refusesInput(button));
  EXPECT_TRUE(GlobManager::refusesInput(blocked));
  EXPECT_EQ(GlobManager::currentModal(), panel) << "the hint does not take the dialogue's place";
  HeadlessInput::clickOn(*window->getOkButton());
  pump();
  EXPECT_TRUE(hint.hasBeenIssued());
  EXPECT_FALSE(is_good_glob_ptr(window));
  GlobManager::removeModalGlob(panel);
}

TEST_F(HintWindowTest, OffTheBottomOfTheScreenItIsLiftedAndItsTipPointsAtTheControl) {
  panel->canvas()->move(XY<int>(300, 0));
  Glob* low =
      panel->createWidget<PushButton>(PushButton::InitArgs(L"Low", XY<int>(60, 0)), Glob::UserBottomLeft(40, 0));
  Hint const hint = trimHint();
  HintWindow* window = HintWindow::make(hint, Glob::Below(UifStd::getWidgetGap(), low));
  EXPECT_EQ(window->screenPosition().y, 0);
  int const offset = low->screenPosition().x + low->width() / 2 - window->screenPosition().x;
  EXPECT_EQ(window->getPointerOffset(), offset);
  // The pointer, drawn in the text colour from the top edge down, twice as
  // deep as the tip band.
  Zo::Box<int> const tip = window->getTipBox();
  int const depth = 2 * tip.height();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*window, XY<int>(offset, tip.y1 - depth))), rgbOf(window->getPalette().text())));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*window, XY<int>(offset + depth + 2, tip.y1 - 1))),
                   rgbOf(window->getPalette().selection())));
}

} // namespace
