#include "diagnostics/ProbeTestSupport.h"

#include <zowidgets/diagnostics/GlobDetailsView.h>
#include <zowidgets/diagnostics/GlobTreePanel.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

#include <algorithm>

namespace {

struct DiagnosticsGolden : InspectorTest {
  // The screen over both windows, with a row's margin round them.
  Zo::Image::Surface shotOf(Glob const& a, Glob const& b) {
    Zo::Box<int> const one = a.canvas()->screenBox(), two = b.canvas()->screenBox();
    int const margin = UifStd::getRowHeight();
    return screen().grab(Zo::Box<int>(std::min(one.x0, two.x0) - margin, std::min(one.y0, two.y0) - margin,
                                      std::max(one.x1, two.x1) + margin, std::max(one.y1, two.y1) + margin));
  }
};

TEST_F(DiagnosticsGolden, TheInspectorShowingASwatchAndItsWindow) {
  GlobInspector* inspector = openInspectorAt(swatchCentreOnScreen(*swatch));
  chordAt(titlePoint(*inspector));
  ASSERT_EQ(inspector->getTarget(), swatch);
  pump();
  EXPECT_TRUE(matchesGolden(shotOf(*panel, *inspector), ZO_GOLDEN_DIR "/probe_on_swatch.png"));
}

TEST_F(DiagnosticsGolden, TheGlobTreeWithTheSwatchSelected) {
  HeadlessInput::moveTo(XY<int>(20, 20));
  GlobTreePanel* tree = GlobTreePanel::create();
  tree->getTree()->expand(GlobTreePanel::idOf(*panel));
  Glob* row = tree->getTree()->getRowGlob(1);
  HeadlessInput::clickOn(*row, XY<int>(row->width() - 10, row->height() / 2));
  pump();
  ASSERT_EQ(tree->getDetails()->getTarget(), swatch);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*tree), ZO_GOLDEN_DIR "/glob_tree.png"));
}

} // namespace
