#include "support/WidgetTestSupport.h"

#include <zowidgets/editor/AngleIndicatorWidget.h>
#include <zowidgets/editor/CornerHighlight.h>
#include <zowidgets/editor/GestureButton.h>
#include <zowidgets/editor/RibbonWidget.h>
#include <zowidgets/editor/SimpleTimeMarker.h>
#include <zowidgets/editor/TrackButton.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>
#include <string>

namespace {

// Each widget on its own small panel, at scales 1 and 2.
class EditorGolden : public HeadlessScreenTest, public ::testing::WithParamInterface<int> {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    UifStd::setScale(GetParam());
  }
  static int px(int atScaleOne) { return atScaleOne * GetParam(); }
  static std::string golden(char const* name) {
    return std::string(ZO_GOLDEN_DIR "/") + name + "_scale" + std::to_string(GetParam()) + ".png";
  }
  // A panel whose user area, inside its border, is `userArea`.
  static StandardPanel* openPanelFor(XY<int> userArea) {
    return openPanel(StandardPanel::calcPanelSize(userArea, 0, StandardPanel::getDefaultBorder()));
  }
  template <class T> static T* add(StandardPanel* panel, typename T::InitArgs args, WidgetPosition const& at) {
    return panel->createWidget<T>(args, at);
  }
};

TEST_P(EditorGolden, TrackButtons) {
  int const gap = UifStd::getWidgetGap();
  StandardPanel* panel = openPanelFor(XY<int>(px(100) * 3 + gap * 4, px(60) + gap * 2));
  auto* glowing = add<TrackButton>(panel, TrackButton::InitArgs(UIString(L"Video 1"), XY<int>(px(100), px(30))),
                                   Glob::UserTopLeft(gap, gap));
  glowing->setGlowColour(TrackButton::defaultGlowColour());
  auto* plain = add<TrackButton>(panel, TrackButton::InitArgs(UIString(L"Video 2"), XY<int>(px(100), px(30))),
                                 Glob::RightOf(gap));
  plain->setSelected(false);
  auto* stereo = add<TrackButton>(
      panel, TrackButton::InitArgs({UIString(L"Audio L"), UIString(L"Audio R")}, XY<int>(px(100), px(60))),
      Glob::RightOf(gap));
  stereo->setGlowColour(Colour(0.5, 0.3, 0.1));
  add<TrackButton>(panel, TrackButton::InitArgs({UIString(L"A1"), UIString(L"A2")}, XY<int>(px(100), px(26))),
                   Glob::Below(gap, glowing))
      ->setSelected(false);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("track_buttons")));
}

TEST_P(EditorGolden, AngleDial) {
  int const gap = UifStd::getWidgetGap();
  StandardPanel* panel = openPanelFor(XY<int>(px(64) * 2 + gap * 3, px(64) + gap * 2));
  AngleControl::InitArgs args(GlobCreationInfo(px(64), px(64)));
  args.angle = 45;
  add<AngleControl>(panel, args, Glob::UserTopLeft(gap, gap));
  args.angle = -100;
  add<AngleControl>(panel, args, Glob::RightOf(gap));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("angle_dial")));
}

TEST_P(EditorGolden, TimeMarkerAndCornerFlags) {
  int const gap = UifStd::getWidgetGap();
  StandardPanel* panel = openPanelFor(XY<int>(px(60), px(40)));
  add<SimpleTimeMarker>(panel, GlobCreationInfo(SimpleTimeMarker::calcWidth(), px(40) - 2 * gap),
                        Glob::UserTopLeft(gap, gap));
  auto* blue = add<SimpleTimeMarker>(panel, GlobCreationInfo(SimpleTimeMarker::calcWidth(), px(40) - 2 * gap),
                                     Glob::RightOf(gap));
  blue->setPalette(makeWindowPalette(blue->getPalette(), Colour(0.2, 0.6, 1.0)));
  add<CornerHighlight>(panel, CornerHighlight::InitArgs(CornerHighlight::calcSize(), Colour(1.0, 0.8, 0.0)),
                       Glob::RightOf(gap));
  add<CornerHighlight>(panel, CornerHighlight::InitArgs(CornerHighlight::calcSize(), Colour(0.3, 0.9, 0.4)),
                       Glob::RightOf(gap));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("marker_and_corners")));
}

// The appearance is the theme's, read at each paint: one panel for each.
TEST_P(EditorGolden, Ribbons) {
  int const gap = UifStd::getWidgetGap();
  XY<int> const size = RibbonWidget::calcRibbonSize(static_cast<unsigned short>(UifStd::getRowHeight()));
  for (int appearance : {RibbonWidget::kSquare, RibbonWidget::kRibbon, RibbonWidget::kDot}) {
    UifStd::getTheme().set(RibbonWidget::kThemeKey, appearance);
    StandardPanel* panel = openPanelFor(XY<int>(3 * (size.x + gap) + gap, UifStd::getRowHeight() + 2 * gap));
    XY<int> const ribbonSize(size.x, UifStd::getRowHeight());
    add<RibbonWidget>(panel, RibbonWidget::InitArgs(ribbonSize, Colour(0.3, 0.7, 0.3)), Glob::UserTopLeft(gap, gap));
    add<RibbonWidget>(panel, RibbonWidget::InitArgs(ribbonSize, Colour(0.9, 0.3, 0.2), true), Glob::RightOf(gap));
    add<RibbonWidget>(panel, RibbonWidget::InitArgs(ribbonSize, Colour(0.2, 0.5, 1.0)), Glob::RightOf(gap));
    std::string const name = "ribbons_appearance" + std::to_string(appearance);
    EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden(name.c_str()))) << name;
  }
}

TEST_P(EditorGolden, GestureButton) {
  int const gap = UifStd::getWidgetGap();
  StandardPanel* panel = openPanelFor(XY<int>(px(90) + 2 * gap, UifStd::getRowHeight() + 2 * gap));
  add<GestureButton>(panel, GestureButton::InitArgs(L"Trim", XY<int>(px(90), 0), "none"), Glob::UserTopLeft(gap, gap));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("gesture_button")));
}

INSTANTIATE_TEST_SUITE_P(Scales, EditorGolden, ::testing::Values(1, 2),
                         [](auto const& info) { return "scale" + std::to_string(info.param); });

} // namespace
