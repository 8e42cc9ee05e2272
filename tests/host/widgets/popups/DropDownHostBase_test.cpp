#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>

#include <vector>

namespace {

TEST(TipWindowBase, TheTipAddsToTheSideFacingTheAnchor) {
  Border const border(1, 1, 2);
  XY<int> const user(100, 50);
  int const tip = TipWindowBase::getTipDepth();
  EXPECT_EQ(TipWindowBase::calcSizeFor(user, kRelativeNone, border), XY<int>(106, 56));
  EXPECT_EQ(TipWindowBase::calcSizeFor(user, kRelativeBelow, border), XY<int>(106, 56 + tip));
  EXPECT_EQ(TipWindowBase::calcSizeFor(user, kRelativeAbove, border), XY<int>(106, 56 + tip));
  EXPECT_EQ(TipWindowBase::calcSizeFor(user, kRelativeLeft, border), XY<int>(106 + tip, 56));
  EXPECT_EQ(TipWindowBase::calcSizeFor(user, kRelativeRight, border), XY<int>(106 + tip, 56));
}

TEST(TipWindowBase, TheUserAreaLiesInsideTheBorderAndTheTip) {
  Border const border(1, 1, 2);
  for (eWidgetRelativity side : {kRelativeNone, kRelativeLeft, kRelativeRight, kRelativeAbove, kRelativeBelow}) {
    TipWindowBase::InitArgs args(TipWindowBase::calcSizeFor(XY<int>(100, 50), side, border));
    args.setBorder(border);
    args.relativity = side;
    TipWindowBase window(args);
    Zo::Box<int> const user = window.getUserArea();
    EXPECT_EQ(XY<int>(user.width(), user.height()), XY<int>(100, 50)) << "side " << side;
    Zo::Box<int> const tip = window.getTipBox();
    EXPECT_EQ(tip.empty(), side == kRelativeNone);
    EXPECT_TRUE(user.intersect(tip).empty());
  }
}

TEST(GlobHandle, ALiveWidgetUntilItDies) {
  GlobHandle empty;
  EXPECT_EQ(empty.get(), nullptr);
  auto* widget = new Glob(GlobCreationInfo(XY<int>(10, 10)));
  GlobHandle handle(widget);
  EXPECT_EQ(handle.get(), widget);
  EXPECT_EQ(handle.stamp(), widget->handlerStamp());
  delete widget;
  EXPECT_EQ(handle.get(), nullptr);
  EXPECT_FALSE(handle.isLive());
}

TEST(GlobHandle, ANewWidgetAtTheSameAddressIsNotTheOldOne) {
  GlobHandle handle;
  {
    Glob first(GlobCreationInfo(XY<int>(10, 10)));
    handle = GlobHandle(&first);
  }
  Glob second(GlobCreationInfo(XY<int>(10, 10)));
  // Whether or not the address came round again, the old handle stays dead.
  EXPECT_EQ(handle.get(), nullptr);
}

// A button that only places drop-downs: enough to ask where they would go.
class PlacingButton : public DropDownButtonBase {
public:
  using DropDownButtonBase::DropDownButtonBase;

protected:
  void displayDropDown() override {}
};

struct DropDownPlacement : HeadlessScreenTest {
  PlacingButton* openButton(XY<int> at) {
    StandardPanel* window = openPanel(XY<int>(100, 40), at);
    window->setBorder(Border());
    return window->createWidget<PlacingButton>(Button::InitArgs(UIString(L"Go"), XY<int>(100, 40)),
                                               Glob::BottomLeft(0, 0));
  }
};

TEST_F(DropDownPlacement, BelowTheButtonAlignedAsAsked) {
  PlacingButton* button = openButton(XY<int>(500, 500));
  XY<int> const size(60, 80);
  DropDownButtonBase::Placement placement = button->calcDropDownPosition(size);
  EXPECT_EQ(placement.relativity, kRelativeBelow);
  EXPECT_EQ(placement.position, XY<int>(500, 420));
  button->setDropDownAlignment(kAlignEnd, kRelativeBelow);
  EXPECT_EQ(button->calcDropDownPosition(size).position, XY<int>(540, 420));
  button->setDropDownAlignment(kAlignCentre, kRelativeBelow);
  EXPECT_EQ(button->calcDropDownPosition(size).position, XY<int>(520, 420));
}

TEST_F(DropDownPlacement, BesideTheButtonWhenAsked) {
  PlacingButton* button = openButton(XY<int>(500, 500));
  XY<int> const size(60, 80);
  button->setDropDownAlignment(kAlignStart, kRelativeRight);
  DropDownButtonBase::Placement placement = button->calcDropDownPosition(size);
  EXPECT_EQ(placement.relativity, kRelativeRight);
  // Top edges aligned.
  EXPECT_EQ(placement.position, XY<int>(600, 460));
  button->setDropDownAlignment(kAlignStart, kRelativeLeft);
  EXPECT_EQ(button->calcDropDownPosition(size).position, XY<int>(440, 460));
  button->setDropDownAlignment(kAlignStart, kRelativeAbove);
  EXPECT_EQ(button->calcDropDownPosition(size).position, XY<int>(500, 540));
}

TEST_F(DropDownPlacement, TheOppositeSideWhenThePreferredOneHasNoRoom) {
  XY<int> const screen(HeadlessScreen::kDefaultWidth, HeadlessScreen::kDefaultHeight);
  XY<int> const size(60, 80);
  DropDownButtonBase::Placement low = openButton(XY<int>(500, 30))->calcDropDownPosition(size);
  EXPECT_EQ(low.relativity, kRelativeAbove);
  EXPECT_EQ(low.position, XY<int>(500, 70));

  PlacingButton* high = openButton(XY<int>(500, screen.y - 60));
  high->setDropDownAlignment(kAlignStart, kRelativeAbove);
  EXPECT_EQ(high->calcDropDownPosition(size).relativity, kRelativeBelow);

  PlacingButton* right = openButton(XY<int>(screen.x - 130, 500));
  right->setDropDownAlignment(kAlignStart, kRelativeRight);
  DropDownButtonBase::Placement flipped = right->calcDropDownPosition(size);
  EXPECT_EQ(flipped.relativity, kRelativeLeft);
  EXPECT_EQ(flipped.position.x, screen.x - 130 - size.x);
}

TEST_F(DropDownPlacement, AlwaysWhollyOnTheScreen) {
  XY<int> const screen(HeadlessScreen::kDefaultWidth, HeadlessScreen::kDefaultHeight);
  XY<int> const size(300, screen.y - 20);
  DropDownButtonBase::Placement placement = openButton(XY<int>(screen.x - 100, 500))->calcDropDownPosition(size);
  EXPECT_EQ(placement.position.x, screen.x - size.x);
  EXPECT_GE(placement.position.y, 0);
  EXPECT_LE(placement.position.y + size.y, screen.y);
}

// Records what a host reports.
struct HostEvents {
  int execute(NotifyMsg const& message) {
    names.push_back(message.name().str());
    if (auto const* event = dynamic_cast<DropDownHostBase::Event const*>(message.data().get()))
      kinds.push_back(event->kind);
    return 0;
  }
  std::vector<std::string> names;
  std::vector<int> kinds;
};

struct DropDownHostBaseTest : HeadlessScreenTest {
  // A host of 200 by 100 below an owner window, with a plain child.
  DropDownHostBase* openHost(Glob* owner, bool detachable = false) {
    using Callback = iCallbackBase<int, NotifyMsg>;
    DropDownHostBase::InitArgs args(
        owner, Zo::Ptr<Callback>(new MethodCallback<HostEvents, NotifyMsg>(&events, &HostEvents::execute)));
    args.detachable = detachable;
    args.size = XY<int>(200, 100);
    args.screenPosition = XY<int>(400, 300);
    auto* host = new DropDownHostBase(args);
    Zo::Box<int> const user = host->getUserArea();
    host->addChild(new Glob(GlobCreationInfo(XY<int>(user.width(), user.height()))), Glob::UserBottomLeft(0, 0));
    GlobManager::realize(host);
    return host;
  }

  HostEvents events;
};

TEST_F(DropDownHostBaseTest, APressOutsideDismissesItAndTheOwnerHearsTwice) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(400, 400));
  DropDownHostBase* host = openHost(owner);
  HeadlessInput::click(XY<int>(50, 50));
  EXPECT_FALSE(host->canvas()->isMapped());
  EXPECT_EQ(events.kinds, std::vector<int>{DropDownHostBase::Event::kDismissed});
  EXPECT_EQ(events.names.front(), DropDownHostBase::kEventMsg);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(host));
  EXPECT_EQ(events.kinds, (std::vector<int>{DropDownHostBase::Event::kDismissed, DropDownHostBase::Event::kClosed}));
}

// A panel that counts the messages it is sent.
struct MessageCountingPanel : StandardPanel {
  using StandardPanel::StandardPanel;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    heard.push_back(message.str());
    senders.push_back(sender);
    return 1;
  }
  std::vector<std::string> heard;
  std::vector<Glob*> senders;
};

TEST_F(DropDownHostBaseTest, EscapeTellsThePanelInsideBeforeClosingAndAPressOutsideDoesNot) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(400, 400));
  for (bool byEscape : {true, false}) {
    DropDownHostBase* host = openHost(owner);
    auto* panel = new MessageCountingPanel(StandardPanel::InitArgs(XY<int>(50, 50)));
    host->addChild(panel, Glob::UserBottomLeft(0, 0));
    events.kinds.clear();
    if (byEscape)
      HeadlessInput::key(kKeyEscape);
    else
      HeadlessInput::click(XY<int>(50, 50));
    EXPECT_EQ(events.kinds, std::vector<int>{DropDownHostBase::Event::kDismissed});
    if (byEscape) {
      EXPECT_EQ(panel->heard, std::vector<std::string>{DropDownHostBase::kEscapedMsg});
      EXPECT_EQ(panel->senders, std::vector<Glob*>{host});
    } else {
      EXPECT_TRUE(panel->heard.empty());
    }
    pump();
  }
}

TEST_F(DropDownHostBaseTest, PressesInsideAndOnTheOwnerLeaveItOpen) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(400, 400));
  DropDownHostBase* host = openHost(owner);
  HeadlessInput::clickOn(*host);
  HeadlessInput::clickOn(*owner);
  pump();
  EXPECT_TRUE(is_good_glob_ptr(host));
  EXPECT_TRUE(events.kinds.empty());
}

TEST_F(DropDownHostBaseTest, AModalHostClosesOnAPressOnItsOwnerToo) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(400, 400));
  DropDownHostBase* host = openHost(owner);
  host->setModalContextGlob(owner);
  EXPECT_EQ(GlobManager::currentModal(), host);
  HeadlessInput::clickOn(*owner);
  EXPECT_EQ(events.kinds, std::vector<int>{DropDownHostBase::Event::kDismissed});
  EXPECT_EQ(GlobManager::currentModal(), nullptr);
}

TEST_F(DropDownHostBaseTest, DetachingGivesATitleBarInPlaceOfTheTipAndKeepsTheUserArea) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(400, 400));
  DropDownHostBase* host = openHost(owner, true);
  Zo::Box<int> const user = host->getUserArea();
  host->detach();
  EXPECT_TRUE(host->isDetached());
  EXPECT_TRUE(host->isMovable());
  EXPECT_EQ(events.kinds, std::vector<int>{DropDownHostBase::Event::kDetached});
  Zo::Box<int> const after = host->getUserArea();
  EXPECT_EQ(XY<int>(after.width(), after.height()), XY<int>(user.width(), user.height()));
  EXPECT_TRUE(host->getTipBox().empty());
  EXPECT_EQ(host->getTitleBarBox().height(), UifStd::getRowHeight());
  // Detached, it no longer closes on presses elsewhere.
  HeadlessInput::click(XY<int>(50, 50));
  pump();
  EXPECT_TRUE(is_good_glob_ptr(host));
}

TEST_F(DropDownHostBaseTest, TornOffItIsAWindowLikeThePanelsThatAPressOnItsOwnerGoesBehind) {
  // Apart from the host, which grows a title bar when torn off.
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(100, 100));
  DropDownHostBase* host = openHost(owner, true);
  EXPECT_EQ(host->windowKind(), Glob::eWindowKind::kPopupMenu);
  // Attached, it stays in front of its owner when the owner is pressed.
  HeadlessInput::clickOn(*owner);
  EXPECT_EQ(Canvas::stack().back(), host->canvas());

  host->detach();
  EXPECT_EQ(host->windowKind(), Glob::eWindowKind::kPanel);
  EXPECT_FALSE(host->isPopupWindow());
  EXPECT_TRUE(host->canvas()->isMapped());
  HeadlessInput::clickOn(*owner);
  EXPECT_EQ(Canvas::stack().back(), owner->canvas());
  HeadlessInput::clickOn(*host);
  EXPECT_EQ(Canvas::stack().back(), host->canvas());
}

TEST_F(DropDownHostBaseTest, TornOffItIsNamedAfterItsOwnersWindowInItsTitleBarAndOnTheDesktop) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(100, 100));
  owner->setTitle(UIString(L"Grade"), UifStd::getTitleFont(), kNoRedraw);
  DropDownHostBase* host = openHost(owner, true);
  EXPECT_TRUE(host->windowTitle().empty()) << "a drop-down has no title";

  host->detach();
  pump();
  EXPECT_EQ(host->windowTitle(), LightweightString<wchar_t>(L"Grade"));
  EXPECT_EQ(host->canvas()->title(), LightweightString<wchar_t>(L"Grade"));
  // The name is written between the grip and the close box.
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(*host);
  Zo::Box<int> const bar = host->getTitleBarBox();
  Zo::Box<int> const close = host->getCloseBox();
  std::uint32_t const barColour = shot.pixel(close.x0 - 2, host->height() - 1 - (bar.y0 + 1));
  int written = 0;
  for (int y = bar.y0 + 1; y < bar.y1 - 1; ++y)
    for (int x = bar.x0 + bar.height() * 2; x < close.x0 - 2; ++x)
      written += shot.pixel(x, host->height() - 1 - y) != barColour;
  EXPECT_GT(written, 20);

  // The owner gone, the torn-off window keeps its name.
  GlobManager::requestDeletion(owner);
  pump();
  EXPECT_EQ(host->windowTitle(), LightweightString<wchar_t>(L"Grade"));
}

TEST_F(DropDownHostBaseTest, ATitleGivenIsWhatTheTornOffWindowSays) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(100, 100));
  owner->setTitle(UIString(L"Grade"), UifStd::getTitleFont(), kNoRedraw);
  using Callback = iCallbackBase<int, NotifyMsg>;
  DropDownHostBase::InitArgs args(
      owner, Zo::Ptr<Callback>(new MethodCallback<HostEvents, NotifyMsg>(&events, &HostEvents::execute)));
  args.detachable = true;
  args.title = UIString(L"Lift colour");
  args.size = XY<int>(200, 100);
  args.screenPosition = XY<int>(400, 300);
  auto* host = new DropDownHostBase(args);
  GlobManager::realize(host);
  host->detach();
  EXPECT_EQ(host->windowTitle(), LightweightString<wchar_t>(L"Lift colour"));
}

TEST_F(DropDownHostBaseTest, AnotherProgramActivatedDismissesItUnlessTornOff) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(100, 100));
  DropDownHostBase* host = openHost(owner, true);
  InputRouter::applicationDeactivated();
  EXPECT_EQ(events.kinds, std::vector<int>{DropDownHostBase::Event::kDismissed});
  pump();
  EXPECT_FALSE(is_good_glob_ptr(host));

  events.kinds.clear();
  DropDownHostBase* torn = openHost(owner, true);
  torn->detach();
  events.kinds.clear();
  InputRouter::applicationDeactivated();
  pump();
  EXPECT_TRUE(is_good_glob_ptr(torn)) << "a torn-off window is a window like the others";
  EXPECT_TRUE(events.kinds.empty());
}

TEST_F(DropDownHostBaseTest, ItMovesWithItsOwnersWindowUntilTornOff) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(100, 100));
  DropDownHostBase* host = openHost(owner, true);
  XY<int> const start = host->screenPosition();
  // Moved by another program or a window manager, as the screen reports it.
  owner->canvas()->movedOnScreen(owner->screenPosition() + XY<int>(30, -20));
  EXPECT_EQ(host->screenPosition(), start + XY<int>(30, -20));
  owner->canvas()->move(owner->screenPosition() + XY<int>(-10, 5));
  EXPECT_EQ(host->screenPosition(), start + XY<int>(20, -15));

  host->detach();
  XY<int> const torn = host->screenPosition();
  owner->canvas()->movedOnScreen(owner->screenPosition() + XY<int>(50, 50));
  EXPECT_EQ(host->screenPosition(), torn);
}

TEST_F(DropDownHostBaseTest, OnlyResizableEdgesAreWithinReach) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(400, 400));
  DropDownHostBase* host = openHost(owner);
  EXPECT_EQ(host->edgesAt(XY<int>(0, 0)), 0);
  host->setResizableEdges(1 | 8);
  EXPECT_EQ(host->edgesAt(XY<int>(0, 0)), 1 | 8);
  EXPECT_EQ(host->edgesAt(XY<int>(0, 50)), 1);
  EXPECT_EQ(host->edgesAt(XY<int>(199, 50)), 0);
  EXPECT_EQ(host->edgesAt(XY<int>(100, 50)), 0);
}

TEST_F(DropDownHostBaseTest, AHostWithADeadOwnerStillClosesOnAnOutsidePress) {
  StandardPanel* owner = openPanel(XY<int>(200, 40), XY<int>(400, 400));
  DropDownHostBase* host = openHost(owner);
  GlobManager::requestDeletion(owner);
  pump();
  HeadlessInput::click(XY<int>(50, 50));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(host));
}

} // namespace
