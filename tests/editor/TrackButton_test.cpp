#include "EditorTestSupport.h"

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/GlobTheme.h>

#include <algorithm>

namespace {

using namespace HeadlessInput;

class TrackButtonTest : public EditorWidgetTest {
protected:
  void SetUp() override {
    EditorWidgetTest::SetUp();
    openHeader();
  }
  TrackButton* addTrack(std::vector<UIString> names, XY<int> size, XY<int> topLeft = XY<int>(10, 10)) {
    return add<TrackButton>(TrackButton::InitArgs(std::move(names), size), Glob::UserTopLeft(topLeft.x, topLeft.y));
  }
  // The widget's pixels as the screen shows them, top row first.
  Zo::Image::Surface shotOf(Glob const& widget) {
    XY<int> const at = widget.screenPosition();
    return screen().grab(Zo::Box<int>(at.x, at.y, at.x + widget.width(), at.y + widget.height()));
  }
};

TEST_F(TrackButtonTest, StartsSelectedAndLatching) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  EXPECT_STREQ(button->idstring(), "TrackButton");
  EXPECT_TRUE(button->isSelected());
  EXPECT_TRUE(button->isLatching());
  EXPECT_EQ(button->getStyle(), Button::kStyleFlat);
  EXPECT_FALSE(button->isResizeAllowed());
  EXPECT_EQ(button->getGlowColour(), TrackButton::defaultGlowColour());
  EXPECT_EQ(TrackButton::defaultGlowColour(), Colour(0.1, 0.4, 0.5));
  EXPECT_EQ(button->getDisplayString().str(), L"V1");
  EXPECT_EQ(button->getTooltip().getString().str(), resourceStrW(13234).str());
}

TEST_F(TrackButtonTest, AClickLatchesAndUnlatches) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  clickOn(*button);
  EXPECT_FALSE(button->isSelected());
  clickOn(*button);
  EXPECT_TRUE(button->isSelected());
  EXPECT_TRUE(header->messages.empty());
}

TEST_F(TrackButtonTest, SpaceLatchesTheFocusedButton) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  ASSERT_TRUE(button->claimKbdFocus());
  key(' ');
  EXPECT_FALSE(button->isSelected());
  key(kKeyReturn);
  EXPECT_TRUE(button->isSelected());
}

TEST_F(TrackButtonTest, SelectionShowsInTheFace) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  EXPECT_EQ(button->getBackCol(), TrackButton::latchedBackColour());
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, XY<int>(3, 3))), rgbOf(TrackButton::latchedBackColour())));
  button->setSelected(false);
  pump();
  EXPECT_FALSE(near(rgbOf(widgetPixel(*button, XY<int>(3, 3))), rgbOf(TrackButton::latchedBackColour()), 4));
}

TEST_F(TrackButtonTest, ZeroNamesMakeOneLineOfTheFullHeight) {
  TrackButton* button = addTrack({}, XY<int>(80, 30));
  EXPECT_EQ(button->calcLineHeight(), 30);
  button->setTrackName({UIString(L"A1"), UIString(L"A2"), UIString(L"A3")});
  EXPECT_EQ(button->calcLineHeight(), 10);
}

TEST_F(TrackButtonTest, EightPixelsPerLineDrawNoText) {
  TrackButton* named = addTrack({UIString(L"Audio"), UIString(L"Voice")}, XY<int>(80, 16), XY<int>(10, 10));
  TrackButton* blank = addTrack({UIString(L""), UIString(L"")}, XY<int>(80, 16), XY<int>(10, 40));
  pump();
  ASSERT_EQ(named->calcLineHeight(), 8);
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(shotOf(*named), shotOf(*blank)), 0);
}

TEST_F(TrackButtonTest, NinePixelsPerLineDrawText) {
  TrackButton* named = addTrack({UIString(L"Audio"), UIString(L"Voice")}, XY<int>(80, 18), XY<int>(10, 10));
  TrackButton* blank = addTrack({UIString(L""), UIString(L"")}, XY<int>(80, 18), XY<int>(10, 40));
  pump();
  ASSERT_EQ(named->calcLineHeight(), 9);
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(shotOf(*named), shotOf(*blank)), 40);
}

TEST_F(TrackButtonTest, TheFontIsNoTallerThanALine) {
  TrackButton* button = addTrack({UIString(L"A1")}, XY<int>(80, 40));
  EXPECT_EQ(button->getFont().size(), static_cast<unsigned>(getDefaultFontSize() * 7 / 8));
  button->setTrackName({UIString(L"A1"), UIString(L"A2"), UIString(L"A3"), UIString(L"A4")});
  EXPECT_EQ(button->getFont().size(), 10u);
}

TEST_F(TrackButtonTest, ALongNameIsFittedToTheWidth) {
  TrackButton* button = addTrack({UIString(L"A rather long name for one track")}, XY<int>(60, 30));
  std::wstring const label = button->getDisplayString().str();
  EXPECT_LT(label.size(), std::wstring(L"A rather long name for one track").size());
  EXPECT_EQ(label.back(), L'\u2026');
}

TEST_F(TrackButtonTest, GivenItsOwnListTheNameStays) {
  TrackButton* button = addTrack({UIString(L"V1"), UIString(L"V2")}, XY<int>(80, 30));
  button->setTrackName(button->getTrackNames());
  EXPECT_EQ(button->getTrackNames().size(), 2u);
  button->setTrackName(UIString(L"Solo"));
  ASSERT_EQ(button->getTrackNames().size(), 1u);
  EXPECT_EQ(button->getDisplayString().str(), L"Solo");
}

TEST_F(TrackButtonTest, AnInactiveButtonAlwaysGivesTheArrow) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  button->setResizeAllowed(true);
  button->setActive(false, kNoRedraw);
  for (int y : {0, 1, 15, 28, 29})
    EXPECT_EQ(button->contextCursor(XY<int>(40, y)), kCursorArrow) << y;
}

TEST_F(TrackButtonTest, TheCursorShowsTheResizeEdges) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  int const edge = GlobTheme::edgeGrabSize();
  EXPECT_EQ(button->contextCursor(XY<int>(40, 0)), kCursorHand);
  button->setResizeAllowed(true);
  EXPECT_EQ(button->contextCursor(XY<int>(40, 0)), kCursorResizeVertical);
  EXPECT_EQ(button->contextCursor(XY<int>(40, edge - 1)), kCursorResizeVertical);
  EXPECT_EQ(button->contextCursor(XY<int>(40, edge)), kCursorHand);
  EXPECT_EQ(button->contextCursor(XY<int>(40, 15)), kCursorHand);
  EXPECT_EQ(button->contextCursor(XY<int>(40, 30 - edge)), kCursorHand);
  EXPECT_EQ(button->contextCursor(XY<int>(40, 30 - edge + 1)), kCursorResizeVertical);
}

TEST_F(TrackButtonTest, ThePointerTakesTheCursorOverTheLowerEdge) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  button->setResizeAllowed(true);
  moveTo(pointOn(*button, XY<int>(40, 15)));
  EXPECT_EQ(glib_getCursor(), kCursorHand);
  moveTo(pointOn(*button, XY<int>(40, 1)));
  EXPECT_EQ(glib_getCursor(), kCursorResizeVertical);
}

class CursorTakingHeader : public TrackHeaderStandIn, public TrackButton::CursorOwner {
public:
  using TrackHeaderStandIn::TrackHeaderStandIn;
  bool takesOverCursor() const override { return takes; }
  bool takes = false;
};

TEST_F(TrackButtonTest, AParentThatTakesOverTheCursorGetsTheResizeCursor) {
  auto* owner = static_cast<CursorTakingHeader*>(
      header->addChild(new CursorTakingHeader(XY<int>(120, 60)), Glob::UserTopLeft(0, 0)));
  TrackButton::InitArgs args({UIString(L"V1")}, XY<int>(80, 30));
  args.setParent(owner);
  auto* button = static_cast<TrackButton*>(owner->addChild(new TrackButton(args), Glob::UserTopLeft(0, 0)));
  EXPECT_EQ(button->contextCursor(XY<int>(40, 15)), kCursorHand);
  owner->takes = true;
  EXPECT_EQ(button->contextCursor(XY<int>(40, 15)), kCursorResizeVertical);
}

TEST_F(TrackButtonTest, TheGlowFollowsTheConfiguration) {
  prefs().setPreference("track_button_glow", 0);
  EXPECT_FALSE(addTrack({UIString(L"V1")}, XY<int>(80, 30))->isGlowEnabled());
  prefs().setPreference("track_button_glow", 1);
  EXPECT_TRUE(addTrack({UIString(L"V2")}, XY<int>(80, 30), XY<int>(10, 50))->isGlowEnabled());
}

TEST_F(TrackButtonTest, SettingAGlowColourSwitchesTheGlowOn) {
  prefs().setPreference("track_button_glow", 0);
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  ASSERT_FALSE(button->isGlowEnabled());
  button->setGlowColour(Colour(0.9, 0.5, 0.1));
  EXPECT_TRUE(button->isGlowEnabled());
  EXPECT_EQ(button->getGlowColour(), Colour(0.9, 0.5, 0.1));
}

TEST_F(TrackButtonTest, TheGlowIsFullInTheCentreAndFadesToTheEdges) {
  TrackButton* button = addTrack({UIString(L"A")}, XY<int>(120, 40));
  Colour const glow(0.9, 0.5, 0.1);
  Colour const back = button->getBackCol();
  pump();
  XY<int> const probe(30, 20); // left of the centred name
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, probe)), rgbOf(back)));
  button->setGlowColour(glow);
  pump();
  // Column 30 of 120, row 19 from the top of 40.
  double const share = (1.0 - 30.0 / 60.0) * (1.0 - 1.0 / 20.0);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, probe)), rgbOf(Colour::mix(glow, back, share)), 2));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, XY<int>(0, 0))), rgbOf(back)));
  button->setSelected(false);
  pump();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, probe)), rgbOf(button->getBackCol())));
}

// Departure: the bar joining the lines is drawn over the glow, not under it.
TEST_F(TrackButtonTest, TheBarJoiningTheLinesShowsOverTheGlow) {
  TrackButton* button = addTrack({UIString(L"A1"), UIString(L"A2")}, XY<int>(100, 60));
  button->setGlowColour(Colour(0.9, 0.5, 0.1));
  pump();
  Colour const bar = Colour::mix(button->getGlowColour(), button->getPalette().text(0), 0.8);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, XY<int>(50, 30))), rgbOf(bar), 2));
  button->setSelected(false);
  pump();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, XY<int>(50, 30))), rgbOf(button->getPalette().text(1)), 2));
}

TEST_F(TrackButtonTest, HoverBrightensTheText) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  Colour const plain = button->textColour();
  EXPECT_EQ(plain, Colour(0.8, 0.9, 1.0));
  moveTo(pointOn(*button));
  EXPECT_TRUE(button->isMouseInside());
  EXPECT_EQ(button->textColour(), scale(plain, 1.6));
  moveTo(pointOn(*header, XY<int>(200, 10)));
  EXPECT_FALSE(button->isMouseInside());
  EXPECT_EQ(button->textColour(), plain);
}

TEST_F(TrackButtonTest, BothButtonsTogetherAskForSoloSelection) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  moveTo(pointOn(*button));
  press(kMouseLeft);
  press(kMouseRight);
  release(kMouseRight);
  release(kMouseLeft);
  ASSERT_FALSE(header->messages.empty());
  EXPECT_EQ(header->messages.front(), "SoloSelectChanMsg");
  EXPECT_EQ(header->senders.front(), button);
}

TEST_F(TrackButtonTest, DraggingTheLowerEdgeDownMakesTheTrackTaller) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  button->setResizeAllowed(true);
  XY<int> const edge = pointOn(*button, XY<int>(40, 1));
  drag(edge, XY<int>(edge.x, edge.y - 20));
  EXPECT_EQ(button->height(), 50);
  EXPECT_TRUE(button->isSelected()) << "an edge drag is not a click";
  ASSERT_FALSE(header->messages.empty());
  EXPECT_EQ(header->messages.back(), "TrackBtnResize 20 30");
  EXPECT_FALSE(button->isDraggingEdge());
}

TEST_F(TrackButtonTest, DraggingTheLowerEdgeUpMakesTheTrackShorter) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 40));
  button->setResizeAllowed(true);
  XY<int> const edge = pointOn(*button, XY<int>(40, 2));
  drag(edge, XY<int>(edge.x, edge.y + 15), 5);
  EXPECT_EQ(button->height(), 25);
  EXPECT_EQ(header->messages.size(), 5u) << "one request for each step";
}

TEST_F(TrackButtonTest, DraggingTheUpperEdgeUpMakesTheTrackTaller) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  button->setResizeAllowed(true);
  XY<int> const edge = pointOn(*button, XY<int>(40, 28));
  drag(edge, XY<int>(edge.x, edge.y + 10));
  EXPECT_EQ(button->height(), 40);
}

TEST_F(TrackButtonTest, WithoutResizingAnEdgePressIsAClick) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  XY<int> const edge = pointOn(*button, XY<int>(40, 1));
  drag(edge, XY<int>(edge.x, edge.y - 20));
  EXPECT_EQ(button->height(), 30);
  EXPECT_TRUE(header->messages.empty());
  clickOn(*button, XY<int>(40, 1));
  EXPECT_FALSE(button->isSelected());
}

TEST_F(TrackButtonTest, ShiftAndTheArrowKeysResizeTheFocusedTrack) {
  TrackButton* button = addTrack({UIString(L"V1")}, XY<int>(80, 30));
  ASSERT_TRUE(button->claimKbdFocus());
  key(kKeyDown, kKeyShift);
  EXPECT_EQ(button->height(), 30) << "resizing is not allowed yet";
  button->setResizeAllowed(true);
  int const step = UifStd::getRowHeight() / 2;
  key(kKeyDown, kKeyShift);
  EXPECT_EQ(button->height(), 30 + step);
  key(kKeyUp, kKeyShift);
  EXPECT_EQ(button->height(), 30);
  EXPECT_TRUE(button->isSelected());
}

} // namespace
