#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/DiscreetSplitter.h>
#include <zowidgets/host/widgets/panels/Splitter.h>

namespace {

struct SplitterGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // Two child boxes in an area of `size`, divided by a splitter (or a
  // discreet one), a third of the way along.
  Splitter* addPair(StandardPanel& panel, WidgetPosition const& where, XY<int> size, Orientation orientation,
                    bool discreet, Glob** area) {
    *area = panel.createWidget<Glob>(GlobCreationInfo(size), where);
    Palette const child = makeChildPalette(panel.getPalette(), kChildPanel);
    bool const sideBySide = orientation == kSideBySide;
    int const length = sideBySide ? size.x : size.y;
    int const across = sideBySide ? size.y : size.x;
    int const thickness = discreet ? DiscreetSplitter::getVisibleThickness() : Splitter::calcThickness();
    int const firstLength = length / 3;
    auto box = [&](int along) {
      GlobCreationInfo args(sideBySide ? XY<int>(along, across) : XY<int>(across, along));
      args.setPalette(child);
      return new Glob(args);
    };
    Glob* first = (*area)->addChild(box(firstLength), Glob::TopLeft(0, 0));
    int const rest = length - firstLength - thickness;
    if (discreet) {
      (*area)->addChild(box(rest), sideBySide ? Glob::TopRight(0, 0) : Glob::BottomLeft(0, 0));
      Glob* second = (*area)->getChildren().back();
      DiscreetSplitter::InitArgs args(orientation, across);
      return (*area)->createChild<DiscreetSplitter>(args, sideBySide ? DiscreetSplitter::LeftOf(second)
                                                                     : DiscreetSplitter::Below(first));
    }
    Splitter* splitter = (*area)->createChild<Splitter>(Splitter::InitArgs(orientation, across),
                                                        sideBySide ? Glob::RightOf(0, first) : Glob::Below(0, first));
    (*area)->addChild(box(rest), sideBySide ? Glob::RightOf(0, splitter) : Glob::Below(0, splitter));
    return splitter;
  }

  // Side by side: idle, focused, inactive, discreet with the pointer over
  // it; stacked: plain and discreet.
  StandardPanel* openSplitterSheet() {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getRowGap();
    XY<int> const wide(row * 8, row * 2);
    XY<int> const tall(row * 3, 4 * wide.y + 3 * gap);
    XY<int> const userArea(wide.x + tall.x * 2 + 4 * gap, tall.y + 2 * gap);
    StandardPanel* panel =
        openPanel(StandardPanel::calcPanelSize(userArea, 0, StandardPanel::getDefaultBorder()), XY<int>(40, 40));
    Glob* area = nullptr;
    addPair(*panel, Glob::UserTopLeft(gap, gap), wide, kSideBySide, false, &area);
    Splitter* focused = addPair(*panel, Glob::Below(gap, area), wide, kSideBySide, false, &area);
    focused->claimKbdFocus();
    addPair(*panel, Glob::Below(gap, area), wide, kSideBySide, false, &area)->setActive(false, kRedrawNow);
    Splitter* hovered = addPair(*panel, Glob::Below(gap, area), wide, kSideBySide, true, &area);
    Glob* top = nullptr;
    addPair(*panel, Glob::UserTopLeft(wide.x + 2 * gap, gap), tall, kStacked, false, &top);
    addPair(*panel, Glob::RightOf(gap, top), tall, kStacked, true, &top);
    HeadlessInput::moveTo(HeadlessInput::pointOn(*hovered));
    return panel;
  }
};

TEST_F(SplitterGolden, SplittersAtScaleOne) {
  StandardPanel* panel = openSplitterSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/splitter_sheet.png"));
}

TEST_F(SplitterGolden, SplittersAtScaleTwo) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openSplitterSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/splitter_sheet_scale2.png"));
}

} // namespace
