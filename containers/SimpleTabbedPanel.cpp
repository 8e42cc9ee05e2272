#include <zowidgets/containers/SimpleTabbedPanel.h>

#include <zowidgets/host/toolkit/GlobManager.h>

namespace {

// What the toolkit's "widgets" setting says of a tabbed page.
constexpr char const* kWidgetsKey = "widgets";
constexpr int kTabbedPageWidgets = 92;

// The panel's margins on the right and at the top (Border sides 2 and 4).
constexpr int kPageMarginSides = 2 | 4;

} // namespace

SimpleTabbedPanel::SimpleTabbedPanel(InitArgs const& args) : StandardPanel(args) {
  TabbedDialogue::InitArgs tabArgs(XY<int>(getUserArea().width(), TabbedDialogue::minHeight()));
  tabArgs.tabs = makeTabs(args.pages);
  tabArgs.callback = Broadcaster<TabbedDialogueEvent>::makeCallback(this, &SimpleTabbedPanel::handleTabEvents);
  tabs_ = createWidget<TabbedDialogue>(tabArgs, UserTopLeft(0, 0));
  for (Page const& page : args.pages) {
    GlobCreationInfo info(page.info);
    info.size = calcPageSize();
    info.setParent(this);
    info.config.set(kWidgetsKey, kTabbedPageWidgets);
    Glob* widget = page.make ? page.make(info) : GlobManager::createGlob(info);
    if (widget)
      addChild(widget, UserBottomCentre(0, 0, 2));
    pages_.push_back(widget);
  }
  handlePageChange(kNoRedraw);
}

std::vector<TabbedDialogue::Page> SimpleTabbedPanel::makeTabs(std::vector<Page> const& pages) {
  std::vector<TabbedDialogue::Page> tabs;
  tabs.reserve(pages.size());
  for (Page const& page : pages)
    tabs.emplace_back(page.title, TooltipDetails(), Colour::invalid());
  return tabs;
}

XY<int> SimpleTabbedPanel::calcPageSize() const {
  Zo::Box<int> const user = getUserArea();
  return XY<int>(user.width(), std::max(0, user.height() - TabbedDialogue::minHeight() -
                                               getBorder().calcMarginSize(kPageMarginSides)));
}

Glob* SimpleTabbedPanel::getPage(int index) const {
  return index >= 0 && index < getNumPages() ? pages_[static_cast<std::size_t>(index)] : nullptr;
}

void SimpleTabbedPanel::showPages(bool show) {
  tabs_->setVisible(show);
  if (show) {
    handlePageChange(kNoRedraw);
    return;
  }
  for (Glob* page : pages_)
    if (page)
      page->setVisible(false);
}

int SimpleTabbedPanel::handleTabEvents(TabbedDialogueEvent const& event) {
  if (event.kind == TabbedDialogueEvent::kChanged)
    handlePageChange(kRedrawNow);
  return 0;
}

void SimpleTabbedPanel::handlePageChange(eRedrawFlag redraw) {
  int const current = tabs_->getCurrentTab();
  for (int index = 0; index < tabs_->getNumTabs(); ++index)
    if (Glob* page = getPage(index))
      page->setVisible(index == current);
  if (redraw == kRedrawNow)
    if (Glob* page = getPage(current))
      page->invalidate();
}

void SimpleTabbedPanel::resize(double width, double height) {
  StandardPanel::resize(width, height);
  XY<int> const pageSize = calcPageSize();
  tabs_->setDimensions(XY<int>(pageSize.x, tabs_->height()));
  for (Glob* page : pages_)
    if (page)
      page->setDimensions(pageSize);
}
