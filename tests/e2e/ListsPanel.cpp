#include "ListsPanel.h"

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollList.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

#include <string>

namespace {
constexpr int kRowsShown = 8;
constexpr int kRowsReported = 5;
} // namespace

ListsPanel::ListsPanel(XY<int> screenPosition) {
  int const row = UifStd::getRowHeight();
  XY<int> const part(row * 8, row * kRowsShown);
  StandardPanel::InitArgs args(StandardPanel::calcPanelSize(XY<int>(part.x * 3 + 2 * UifStd::getWidgetGap(), part.y),
                                                            StandardPanel::kTitle, StandardPanel::getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = StandardPanel::kTitle;
  args.title = UIString(L"Lists");
  panel_ = new StandardPanel(args);
  ScrollList::InitArgs listArgs(part);
  listArgs.setBorder(Border());
  for (int i = 0; i < 200; ++i)
    listArgs.strings.emplace_back((L"Clip " + std::to_wstring(i)).c_str());
  listArgs.selectionMode = ScrollList::kMultipleSelection;
  list_ = panel_->createWidget<ScrollList>(listArgs, Glob::UserTopLeft(0, 0));
  TreeView::InitArgs treeArgs(part);
  treeArgs.setBorder(Border());
  treeArgs.adaptor = this;
  tree_ = panel_->createWidget<TreeView>(treeArgs, Glob::RightOf(UifStd::getWidgetGap(), list_));
  TableWidget::InitArgs tableArgs(part);
  tableArgs.setBorder(Border());
  tableArgs.adaptor = &shots_;
  tableArgs.options = TableWidget::kShowTitles;
  table_ = panel_->createWidget<TableWidget>(tableArgs, Glob::RightOf(UifStd::getWidgetGap(), tree_));
  GlobManager::realize(panel_);
}

ListsPanel::~ListsPanel() {
  if (is_good_glob_ptr(panel_))
    GlobManager::requestDeletion(panel_);
}

ShotTable::ShotTable() {
  for (int i = 0; i < 40; ++i)
    rows_.push_back({L"Shot " + std::to_wstring(i), L"Reel " + std::to_wstring(i % 3 + 1)});
}

std::vector<TableColumnDescription> ShotTable::getColumnDefinitions() {
  return {TableColumnDescription(UIString(L"Shot")), TableColumnDescription(UIString(L"Reel"))};
}

iTableAdaptor::CellData ShotTable::getCellData(XY<int> const& pos, Palette const& palette) {
  CellData data;
  data.palette = palette;
  data.text = UIString(LightweightString<wchar_t>(rows_.at(pos.y).at(pos.x).c_str()));
  return data;
}

bool ShotTable::storeFieldText(CellContext& context, LightweightString<wchar_t> const& text) {
  rows_.at(context.pos.y).at(context.pos.x) = text.str();
  ++stores_;
  return true;
}

// Three reels of three shots.
std::vector<iTreeViewAdaptor::Item> ListsPanel::getChildItems(LightweightString<wchar_t> const& parentId) const {
  std::vector<Item> items;
  std::wstring const parent = parentId.str();
  if (parent.find(L'/') != std::wstring::npos)
    return items;
  for (int i = 1; i <= 3; ++i) {
    Item item;
    item.id = LightweightString<wchar_t>((parent + (parent.empty() ? L"" : L"/") + std::to_wstring(i)).c_str());
    item.text = UIString(item.id);
    items.push_back(item);
  }
  return items;
}

std::string ListsPanel::stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const {
  auto rowBoxes = [&](VirtualRowsBase const& rows) {
    std::string out = "[";
    for (int index = 0; index < kRowsReported; ++index) {
      Glob const* row = rows.getRowGlob(index);
      if (!row)
        break;
      out += (index ? "," : "") +
             toScreen(Zo::Box<int>(0, 0, row->width(), row->height()).translated(row->screenPosition()));
    }
    return out + "]";
  };
  std::string selected;
  for (int index : list_->getSelectedIndices())
    selected += (selected.empty() ? "" : " ") + std::to_string(index);
  std::string opened;
  for (int index = 0; index < tree_->rowCount(); ++index)
    if (tree_->isExpanded(tree_->itemAt(index)->id))
      opened += (opened.empty() ? "" : " ") + toNarrow(tree_->itemAt(index)->id.str());
  return "{\"selected\":\"" + selected + "\",\"treeSelected\":\"" + toNarrow(tree_->getSelectedItem().str()) +
         "\",\"opened\":\"" + opened + "\",\"treeRows\":" + std::to_string(tree_->rowCount()) +
         ",\"listRows\":" + rowBoxes(*list_) + ",\"treeRowBoxes\":" + rowBoxes(*tree_) +
         ",\"tableRows\":" + rowBoxes(*table_) + ",\"tableCurrent\":\"" + std::to_string(table_->getCurPos().x) + " " +
         std::to_string(table_->getCurPos().y) + "\",\"tableEditing\":" + (table_->isEditing() ? "true" : "false") +
         ",\"tableStores\":" + std::to_string(shots_.stores()) + ",\"shot2\":\"" + toNarrow(shots_.cell(0, 2)) +
         "\",\"reel2\":\"" + toNarrow(shots_.cell(1, 2)) + "\"}";
}
