#include <zowidgets/containers/SplitTabsWidget.h>

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <utility>

namespace {

// The frame's margins a page needs round it, counted on each side.
constexpr int kPageFrameSides = 2 | 4;
// The right group stands out a little from the left.
constexpr double kRightGroupBrightness = 1.3;

} // namespace

SplitTabsWidget::SplitTabsWidget(InitArgs const& args)
    : OccludedChildWidget(args), minSplitWidth_(args.minSplitWidth), style_(args.style) {
  createWidgets();
}

void SplitTabsWidget::addMinSizeConstraint(Glob const* page) {
  XY<int> const needed = page->getMinSize();
  if (needed.x == 0)
    return;
  XY<int> const present = getMinSize();
  setMinSize(
      XY<int>(std::max(needed.x, present.x), std::max(TabbedDialogue::calcHeightForContents(needed.y), present.y)));
}

int SplitTabsWidget::calcLeftTabsWidth() const {
  int const t = Splitter::calcThickness();
  return static_cast<int>(static_cast<float>(userWidth() - t) * split_) - t / 2;
}

int SplitTabsWidget::calcMinWidth(std::vector<Page> const& pages) {
  int widest = 0;
  for (Page const& page : pages)
    if (page.widget)
      widest = std::max(widest, page.widget->getMinSize().x);
  return widest + 2 * TabbedDialogue::calcBorderSize(kPageFrameSides);
}

void SplitTabsWidget::calcSplitterRange() {
  int const half = Splitter::calcThickness() / 2;
  int const row = UifStd::getRowHeight();
  rangeLow_ = std::max(calcMinWidth(leftPages_), row) + half;
  rangeHigh_ = userWidth() - (std::max(calcMinWidth(rightPages_), row) + half);
}

bool SplitTabsWidget::shouldBeCoalesced() const {
  if (rightPages_.empty() || width() < minSplitWidth_)
    return true;
  int const leftWidth = calcLeftTabsWidth();
  if (leftWidth < calcMinWidth(leftPages_))
    return true;
  return userWidth() - (leftWidth + Splitter::calcThickness()) < calcMinWidth(rightPages_);
}

void SplitTabsWidget::resize(double newWidth, double newHeight) {
  OccludedChildWidget::resize(newWidth, newHeight);
  calcSplitterRange();
  if (shouldBeCoalesced() != isCoalesced())
    createWidgets();
  Zo::Box<int> const user = getUserArea();
  if (isCoalesced()) {
    left_->setDimensions(XY<int>(user.width(), user.height()));
  } else {
    int const leftWidth = calcLeftTabsWidth();
    left_->setDimensions(XY<int>(leftWidth, user.height()));
    splitter_->setDimensions(XY<int>(splitter_->width(), height()));
    right_->setDimensions(XY<int>(user.width() - (leftWidth + Splitter::calcThickness()), user.height()));
  }
  layoutChildren();
  invalidate();
}

void SplitTabsWidget::createWidgets() {
  if (!left_) {
    Zo::Box<int> const user = getUserArea();
    left_ = createWidget<TabbedDialogue>(TabbedDialogue::InitArgs(XY<int>(user.width(), user.height())),
                                         UserBottomLeft(0, 0));
  }
  bool const coalesce = shouldBeCoalesced();
  if (coalesce && right_)
    mergeGroups();
  else if (!coalesce && !right_)
    splitGroups();
}

void SplitTabsWidget::mergeGroups() {
  handleTabsMerge();
  Drawable::Suspender holdRedraws;
  for (int index = right_->getNumTabs() - 1; index >= 0; --index)
    right_->removePage(index);
  Zo::Box<int> const user = getUserArea();
  left_->setDimensions(XY<int>(user.width(), user.height()));
  for (Page const& page : rightPages_)
    if (page.widget)
      left_->addPageForTab(TabbedDialogue::Page(page.title), page.widget);
  // A drag can merge the groups from inside the splitter's own message, so
  // the splitter goes once the queue is back, not now.
  GlobManager::requestDeletion(releaseChild(std::exchange(splitter_, nullptr)));
  removeWidget(std::exchange(right_, nullptr));
}

void SplitTabsWidget::splitGroups() {
  handleTabsSplit();
  Drawable::Suspender holdRedraws;
  // A right page chosen in the one row stays the one shown on its side.
  Glob const* const chosen = left_->getCurrentPage();
  for (Page const& page : rightPages_)
    if (int const index = left_->findPage(page.widget); index >= 0)
      left_->removePage(index);
  Zo::Box<int> const user = getUserArea();
  int const leftWidth = calcLeftTabsWidth();
  left_->setDimensions(XY<int>(leftWidth, user.height()));
  Splitter::InitArgs splitterArgs(kSideBySide, height());
  splitterArgs.setPalette(rightPalette());
  splitter_ = createWidget<Splitter>(splitterArgs, RightOf(0, left_));
  TabbedDialogue::InitArgs rightArgs(XY<int>(user.width() - (leftWidth + splitter_->width()), user.height()));
  rightArgs.setPalette(rightPalette());
  right_ = createWidget<TabbedDialogue>(rightArgs, UserBottomRight(0, 0));
  splitter_->setNeighbours(left_, right_);
  for (Page const& page : rightPages_)
    if (page.widget)
      right_->addPageForTab(TabbedDialogue::Page(page.title), page.widget);
  if (chosen && right_->findPage(chosen) >= 0)
    right_->setCurrentPage(chosen);
}

Palette SplitTabsWidget::rightPalette() const {
  Palette const& palette = getPalette();
  return makeWindowPalette(palette, scale(palette.window(), kRightGroupBrightness));
}

int SplitTabsWidget::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message != Splitter::kMoveMsg || !splitter_ || sender != splitter_)
    return OccludedChildWidget::handleMessageEvent(message, sender);
  if (rangeLow_ == rangeHigh_)
    calcSplitterRange();
  int const half = Splitter::calcThickness() / 2;
  // A drag follows the pointer; a key gives the bar's new place, whose
  // middle stands where the pointer would.
  int x = splitter_->getAskedPosition() + half;
  if (splitter_->isDragging())
    x = glib_getMousePos().x - screenPosition().x;
  x = std::max(rangeLow_, std::min(x, rangeHigh_));
  int const available = userWidth() - Splitter::calcThickness();
  if (available <= 0)
    return 1;
  split_ = static_cast<float>(x) / static_cast<float>(available);
  resize(width(), height());
  return 1;
}
