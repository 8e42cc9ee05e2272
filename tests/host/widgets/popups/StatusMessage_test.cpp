#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/popups/StatusMessage.h>

namespace {

// A status message that counts its acknowledgements.
class CountingMessage : public StatusMessage {
public:
  CountingMessage(InitArgs const& args, int& acknowledged) : StatusMessage(args), acknowledged_(acknowledged) {}
  void handleOkPressed() override {
    StatusMessage::handleOkPressed();
    ++acknowledged_;
  }

private:
  int& acknowledged_;
};

struct StatusMessageTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  Glob* anchor = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(300, 200), XY<int>(600, 400));
    anchor = panel->createChild<Glob>(GlobCreationInfo(XY<int>(80, 30)), Glob::Centre(0, 0));
  }
};

TEST_F(StatusMessageTest, CalcPositionPutsTheWindowBesideTheSiblingOnTheSideAsked) {
  XY<int> const size(120, 50);
  XY<int> const at = anchor->screenPosition();
  int const gap = 4;
  EXPECT_EQ(TipWindowBase::calcPosition(Glob::Above(gap, anchor), size), XY<int>(at.x, at.y + 30 + gap));
  EXPECT_EQ(TipWindowBase::calcPosition(Glob::Below(gap, anchor), size), XY<int>(at.x, at.y - gap - 50));
  EXPECT_EQ(TipWindowBase::calcPosition(Glob::Below(gap, anchor, kAlignEnd), size),
            XY<int>(at.x + 80 - 120, at.y - gap - 50));
  EXPECT_EQ(TipWindowBase::calcPosition(Glob::RightOf(gap, anchor), size), XY<int>(at.x + 80 + gap, at.y + 30 - 50));
  EXPECT_EQ(TipWindowBase::calcPosition(Glob::LeftOf(gap, anchor, kAlignCentre), size),
            XY<int>(at.x - gap - 120, at.y + (30 - 50) / 2));
  EXPECT_EQ(TipWindowBase::relativityFor(Glob::LeftOf(gap, anchor)), kRelativeLeft);
  EXPECT_EQ(TipWindowBase::relativityFor(Glob::Above(gap, anchor)), kRelativeAbove);
  EXPECT_EQ(TipWindowBase::relativityFor(Glob::Centre(0, 0)), kRelativeNone);
}

TEST_F(StatusMessageTest, CalcPositionSlidesAlongTheSideOnlyAndNeedsALiveSibling) {
  panel->setBorder(Border());
  auto* corner = panel->createChild<Glob>(GlobCreationInfo(XY<int>(20, 20)), Glob::BottomLeft(0, 0));
  // Its window moved against the left edge of the screen, near the bottom.
  XY<int> const size(300, 40);
  panel->canvas()->move(XY<int>(0, 10));
  XY<int> const below = TipWindowBase::calcPosition(Glob::Below(0, corner, kAlignEnd), size);
  EXPECT_EQ(below.x, 0) << "moved along the side to stay on the screen";
  EXPECT_EQ(below.y, 10 - 40) << "but not across it: the caller sees it runs off";
  EXPECT_TRUE(TipWindowBase::calcPosition(Glob::Centre(0, 0), size).isUnset());
  EXPECT_TRUE(TipWindowBase::calcPosition(Glob::Below(0, nullptr), size).isUnset());
}

TEST_F(StatusMessageTest, ItIsSizedToItsTextAndTip) {
  XY<int> const plain = StatusMessage::calcSize(UIString(L"Drag a clip here"), kRelativeNone, 0);
  XY<int> const withOk =
      StatusMessage::calcSize(UIString(L"Drag a clip here"), kRelativeNone, StatusMessage::kOkButton);
  XY<int> const tipped = StatusMessage::calcSize(UIString(L"Drag a clip here"), kRelativeLeft, 0);
  EXPECT_GT(withOk.y, plain.y + Button::calcHeight() - 1);
  EXPECT_EQ(tipped, XY<int>(plain.x + TipWindowBase::getTipDepth(), plain.y));
  XY<int> const longer =
      StatusMessage::calcSize(UIString(L"Drag a clip here to add it to the end of the timeline"), kRelativeNone, 0);
  EXPECT_GT(longer.x, plain.x);

  StatusMessage::InitArgs args(UIString(L"Drag a clip here"), kRelativeBelow);
  EXPECT_EQ(args.size,
            StatusMessage::calcSize(UIString(L"Drag a clip here"), kRelativeBelow, StatusMessage::kOkButton));
  args.screenPosition = XY<int>(100, 100);
  auto* message = new StatusMessage(args);
  GlobManager::realize(message);
  Zo::Box<int> const user = message->getUserArea();
  XY<int> const spacing = StatusMessage::standardSpacing();
  MessageText const laidOut = MessageText::analyse(UIString(L"Drag a clip here"));
  EXPECT_GE(user.width() - 2 * spacing.x, laidOut.size.x);
  EXPECT_GE(user.height() - 2 * spacing.y, laidOut.size.y);
  Button* ok = message->getOkButton();
  ASSERT_NE(ok, nullptr);
  EXPECT_TRUE(message->getMarginArea().contains(ok->getPosition()));
  EXPECT_LE(ok->getY() + ok->height(), user.y0);
  EXPECT_EQ(message->getPalette().window().get_vlib_colour(), StatusMessage::getBaseColour().get_vlib_colour());
}

TEST_F(StatusMessageTest, WhileAnotherProgramIsInFrontItStepsAsideAndComesBackWithUs) {
  StandardPanel* owner = openPanel(XY<int>(300, 200), XY<int>(40, 40));
  StatusMessage::InitArgs args(UIString(L"Drag a clip here"), kRelativeBelow);
  args.screenPosition = XY<int>(100, 100);
  auto* message = new StatusMessage(args);
  GlobManager::realize(message);
  ASSERT_TRUE(message->canvas()->isMapped());
  InputRouter::applicationDeactivated();
  EXPECT_TRUE(is_good_glob_ptr(message)) << "kept, not closed";
  EXPECT_FALSE(message->canvas()->isMapped()) << "not over the other program";
  EXPECT_TRUE(owner->canvas()->isMapped()) << "ordinary windows stay where they are";
  InputRouter::windowActivated(owner);
  EXPECT_TRUE(message->canvas()->isMapped()) << "back as soon as one of our windows is";
}

TEST_F(StatusMessageTest, ItCanBeSizedForOtherSpacingAndTellsItsOkButtonsSize) {
  UIString const text(L"Drag a clip here");
  XY<int> const standard = StatusMessage::calcSize(text, kRelativeNone, StatusMessage::kOkButton);
  XY<int> const spacing = StatusMessage::standardSpacing();
  EXPECT_EQ(StatusMessage::calcSize(text, kRelativeNone, StatusMessage::kOkButton, spacing), standard);
  XY<int> const roomier = spacing + XY<int>(5, 7);
  // Beside the text twice; above it, below it and above the footer.
  EXPECT_EQ(StatusMessage::calcSize(text, kRelativeNone, StatusMessage::kOkButton, roomier),
            standard + XY<int>(10, 21));

  StatusMessage::InitArgs args(text, kRelativeNone);
  args.spacing = roomier;
  args.size = StatusMessage::calcSize(text, kRelativeNone, StatusMessage::kOkButton, roomier);
  args.screenPosition = XY<int>(100, 100);
  auto* message = new StatusMessage(args);
  GlobManager::realize(message);
  Button* ok = message->getOkButton();
  EXPECT_EQ(ok->getSize(), StatusMessage::okButtonSize());
  EXPECT_EQ(ok->getY(), message->getMarginArea().y0);
  EXPECT_EQ(message->getMarginArea().y0 - TipWindowBase::getDefaultBorder().bottom(), roomier.y);
}

TEST_F(StatusMessageTest, OkAcknowledgesOnceAndCloses) {
  int acknowledged = 0;
  StatusMessage::InitArgs args(UIString(L"New: the trim tool"), kRelativeAbove);
  args.screenPosition = TipWindowBase::calcPosition(Glob::Above(0, anchor), args.size);
  auto* message = new CountingMessage(args, acknowledged);
  GlobManager::realize(message);
  HeadlessInput::clickOn(*message->getOkButton());
  pump();
  EXPECT_EQ(acknowledged, 1);
  EXPECT_FALSE(is_good_glob_ptr(message));
}

TEST_F(StatusMessageTest, EscapeClosesWithoutAcknowledging) {
  int acknowledged = 0;
  StatusMessage::InitArgs args(UIString(L"Tip"), kRelativeNone);
  args.screenPosition = XY<int>(100, 100);
  auto* message = new CountingMessage(args, acknowledged);
  GlobManager::realize(message);
  HeadlessInput::clickOn(*message, XY<int>(message->width() / 2, message->height() - 3));
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(acknowledged, 0);
  EXPECT_FALSE(is_good_glob_ptr(message));
}

TEST_F(StatusMessageTest, WithoutTheFlagThereIsNoButtonAndReturnDoesNothing) {
  int acknowledged = 0;
  StatusMessage::InitArgs args(UIString(L"Rendering in the background"), kRelativeNone, 0);
  args.screenPosition = XY<int>(100, 100);
  auto* message = new CountingMessage(args, acknowledged);
  GlobManager::realize(message);
  EXPECT_EQ(message->getOkButton(), nullptr);
  EXPECT_TRUE(message->getMarginArea().empty());
  HeadlessInput::clickOn(*message);
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(acknowledged, 0);
  EXPECT_TRUE(is_good_glob_ptr(message));
}

} // namespace
