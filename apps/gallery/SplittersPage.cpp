// Splitters: bars that share a length between two boxes, by mouse or keys.
#include "PageLayout.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/DiscreetSplitter.h>
#include <zowidgets/host/widgets/panels/Splitter.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <string>

namespace {

// A box that names itself and how small it may go.
TextLabel* makeBox(XY<int> size, XY<int> minimum, Palette const& palette, UIString const& text) {
  TextLabel::InitArgs args(size);
  args.text = text;
  args.alignment = Glib::eTextAlignment::Centre;
  args.wordWrap = true;
  args.setPalette(makeChildPalette(palette, kChildPanel));
  auto* box = new TextLabel(args);
  box->setMinSize(minimum);
  return box;
}

Glob* buildSplittersPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 16;
  int const pairHeight = m.row * 4;
  int const stackedWidth = m.row * 7;
  int const stackedHeight = m.row * 9;
  XY<int> const userArea(width + stackedWidth + 3 * m.gap, stackedHeight + m.row + 3 * m.rowGap);
  StandardPanel* panel = openPageWindow(context, userArea, L"Splitters");
  Palette const& palette = panel->getPalette();
  int const minimum = m.row * 4;

  TextLabel::InitArgs statusArgs(XY<int>(userArea.x - 2 * m.gap, m.row));
  statusArgs.text = L"Drag a bar, or Tab to one and use the arrow keys";
  auto* status = panel->createWidget<TextLabel>(statusArgs, Glob::UserBottomLeft(m.gap, m.rowGap));
  auto report = Splitter::makeCallback([status](SplitterEvent const& event) {
    static wchar_t const* const kKinds[] = {L"Moved to ", L"Began at ", L"Ended at "};
    // Positions count from the parent's left, or from its bottom for a bar
    // between stacked boxes: the status says which.
    bool const stacked = event.splitter && event.splitter->getOrientation() == kStacked;
    status->setString(LightweightString<wchar_t>(kKinds[event.kind] + std::to_wstring(event.position) +
                                                 (stacked ? L" from the bottom" : L" from the left")));
  });

  // Side by side, a standard bar that resizes the boxes itself.
  auto* area =
      panel->createWidget<Glob>(GlobCreationInfo(XY<int>(width, pairHeight)), Glob::UserTopLeft(m.gap, m.rowGap));
  int const thickness = Splitter::calcThickness();
  Glob* left =
      area->addChild(makeBox(XY<int>(width / 3, pairHeight), XY<int>(minimum, 0), palette, L"At least four rows wide"),
                     Glob::TopLeft(0, 0));
  Splitter::InitArgs sideBySide(kSideBySide, pairHeight);
  sideBySide.resizesNeighbours = true;
  sideBySide.callback = report;
  auto* bar = area->createChild<Splitter>(sideBySide, Glob::RightOf(0, left));
  area->addChild(makeBox(XY<int>(width - width / 3 - thickness, pairHeight), XY<int>(minimum, 0), palette,
                         L"At least four rows wide too"),
                 Glob::RightOf(0, bar));

  // Side by side again, with a hairline.
  auto* discreetArea =
      panel->createWidget<Glob>(GlobCreationInfo(XY<int>(width, pairHeight)), Glob::Below(m.rowGap, area));
  int const line = DiscreetSplitter::getVisibleThickness();
  discreetArea->addChild(makeBox(XY<int>(width / 2, pairHeight), XY<int>(minimum, 0), palette, L"Take hold"),
                         Glob::TopLeft(0, 0));
  Glob* right = discreetArea->addChild(
      makeBox(XY<int>(width - width / 2 - line, pairHeight), XY<int>(), palette, L"beside the line"),
      Glob::TopRight(0, 0));
  DiscreetSplitter::InitArgs hairline(kSideBySide, pairHeight);
  hairline.resizesNeighbours = true;
  hairline.callback = report;
  discreetArea->createChild<DiscreetSplitter>(hairline, DiscreetSplitter::LeftOf(right));

  // Stacked.
  auto* stackedArea = panel->createWidget<Glob>(GlobCreationInfo(XY<int>(stackedWidth, stackedHeight)),
                                                Glob::UserTopRight(m.gap, m.rowGap));
  Glob* top = stackedArea->addChild(
      makeBox(XY<int>(stackedWidth, stackedHeight / 2), XY<int>(0, minimum / 2), palette, L"Top"), Glob::TopLeft(0, 0));
  Splitter::InitArgs stacked(kStacked, stackedWidth);
  stacked.resizesNeighbours = true;
  stacked.callback = report;
  auto* level = stackedArea->createChild<Splitter>(stacked, Glob::Below(0, top));
  stackedArea->addChild(makeBox(XY<int>(stackedWidth, stackedHeight - stackedHeight / 2 - thickness),
                                XY<int>(0, minimum / 2), palette, L"Bottom"),
                        Glob::Below(0, level));
  return panel;
}

PageRegistrar const splittersPage{"splitters", "Splitters",
                                  "A standard bar and a hairline between boxes side by side, and a bar between stacked "
                                  "boxes, each stopping at the boxes' smallest sizes; a line names the last thing a "
                                  "bar reported",
                                  buildSplittersPage};

} // namespace
