#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/hints/HintWindow.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

// A window with a button that hints are shown beside. Every test starts
// with no hint on show and no hint acknowledged.
struct HintWindowTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  PushButton* button = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(400, 200), XY<int>(600, 500));
    button = panel->createWidget<PushButton>(PushButton::InitArgs(L"Trim", XY<int>(80, 0)), Glob::Centre(0, 0));
  }
  void TearDown() override {
    Tooltips::dismiss();
    HintWindow::shutdown();
    HeadlessScreenTest::TearDown();
  }

  static Hint trimHint(unsigned id = 12) { return Hint(UIString(L"Drag the edge of a clip to trim it."), id); }
  HintWindow* showBelowButton(Hint const& hint) {
    return HintWindow::make(hint, Glob::Below(UifStd::getWidgetGap(), button));
  }
  // Live and on the screen.
  static bool onScreen(Glob const* window) {
    return is_good_glob_ptr(window) && window->canvas() && window->canvas()->isMapped();
  }
};
