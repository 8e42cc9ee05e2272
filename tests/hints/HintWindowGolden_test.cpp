#include "HintWindowTestSupport.h"

namespace {

using HintWindowGolden = HintWindowTest;

TEST_F(HintWindowGolden, AHintBelowItsButton) {
  HintWindow* window = showBelowButton(Hint(UIString(L"Drag the edge of a clip to trim it.\nHold Alt to ripple."), 3));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*window), ZO_GOLDEN_DIR "/hint_window.png"));
}

TEST_F(HintWindowGolden, AHintWithALinkRightOfItsButton) {
  HintWindow* window =
      HintWindow::make(Hint(UIString(L"Ripple edits move everything after the cut."), 4, L"Read more about ripples"),
                       Glob::RightOf(UifStd::getWidgetGap(), button, kAlignCentre));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*window), ZO_GOLDEN_DIR "/hint_window_link.png"));
}

} // namespace
