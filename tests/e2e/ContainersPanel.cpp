#include "ContainersPanel.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/Splitter.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

TextLabel* label(XY<int> size, wchar_t const* text) {
  TextLabel::InitArgs args(size);
  args.text = text;
  return new TextLabel(args);
}

Zo::Box<int> screenBoxOf(Glob const& widget) {
  return Zo::Box<int>(0, 0, widget.width(), widget.height()).translated(widget.screenPosition());
}

} // namespace

ContainersPanel::ContainersPanel(XY<int> screenPosition) {
  int const row = UifStd::getRowHeight();
  int const width = row * 16;
  int const boxesHeight = row * 3;
  int const tabsHeight = TabbedDialogue::calcHeightForContents(row * 2);
  StandardPanel::InitArgs args(StandardPanel::calcPanelSize(XY<int>(width, tabsHeight + row + boxesHeight),
                                                            StandardPanel::kTitle, StandardPanel::getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = StandardPanel::kTitle;
  args.title = UIString(L"Containers");
  panel_ = new StandardPanel(args);

  tabs_ = panel_->createWidget<TabbedDialogue>(TabbedDialogue::InitArgs(XY<int>(width, tabsHeight)),
                                               Glob::UserTopLeft(0, 0));
  XY<int> const page = tabs_->getPageSize();
  tabs_->addPageForTab(TabbedDialogue::Page(L"Video"), label(page, L"Video settings"));
  tabs_->addPageForTab(TabbedDialogue::Page(L"Audio"), label(page, L"Audio settings"));

  auto* area = panel_->createWidget<Glob>(GlobCreationInfo(XY<int>(width, boxesHeight)), Glob::UserBottomLeft(0, 0));
  int const thickness = Splitter::calcThickness();
  left_ = area->addChild(label(XY<int>(width / 2, boxesHeight), L"Left"), Glob::TopLeft(0, 0));
  left_->setMinSize(XY<int>(row * 4, 0));
  Splitter::InitArgs barArgs(kSideBySide, boxesHeight);
  barArgs.resizesNeighbours = true;
  bar_ = area->createChild<Splitter>(barArgs, Glob::RightOf(0, left_));
  right_ = area->addChild(label(XY<int>(width - width / 2 - thickness, boxesHeight), L"Right"), Glob::RightOf(0, bar_));
  GlobManager::realize(panel_);
}

ContainersPanel::~ContainersPanel() {
  if (is_good_glob_ptr(panel_))
    GlobManager::requestDeletion(panel_);
}

std::string ContainersPanel::stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const {
  XY<int> const rowAt = tabs_->getTabRow()->screenPosition();
  std::string tabBoxes = "[";
  for (int tab = 0; tab < tabs_->getNumTabs(); ++tab)
    tabBoxes += (tab ? "," : "") + toScreen(tabs_->getTabBox(tab).translated(rowAt));
  return "{\"tab\":" + std::to_string(tabs_->getCurrentTab()) + ",\"tabs\":" + tabBoxes + "]" +
         ",\"bar\":" + toScreen(screenBoxOf(*bar_)) + ",\"left\":" + std::to_string(left_->width()) +
         ",\"right\":" + std::to_string(right_->width()) + ",\"leftMin\":" + std::to_string(left_->getMinSize().x) +
         "}";
}
