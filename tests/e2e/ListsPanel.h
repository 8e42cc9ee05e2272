#pragma once

#include <zowidgets/host/widgets/lists/iTableAdaptor.h>
#include <zowidgets/host/widgets/lists/iTreeViewAdaptor.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <string>

class ScrollList;
class TableWidget;
class TreeView;

// A table of shots that stores what is typed into its cells.
class ShotTable : public iTableAdaptor {
public:
  ShotTable();
  int getSize() override { return static_cast<int>(rows_.size()); }
  std::vector<TableColumnDescription> getColumnDefinitions() override;
  CellData getCellData(XY<int> const& pos, Palette const& palette) override;
  bool storeFieldText(CellContext& context, LightweightString<wchar_t> const& text) override;
  std::wstring const& cell(int column, int row) const { return rows_.at(row)[column]; }
  int stores() const noexcept { return stores_; }

private:
  std::vector<std::vector<std::wstring>> rows_;
  int stores_ = 0;
};

// A list of clips with multiple selection, a tree of reels and a table of
// shots, in a window of their own, for the end-to-end cases that select,
// open and edit rows as a person would.
class ListsPanel : public iTreeViewAdaptor {
public:
  // Opens the panel at a screen position (bottom-left corner, bottom-up).
  explicit ListsPanel(XY<int> screenPosition);
  ~ListsPanel() override;
  ListsPanel(ListsPanel const&) = delete;
  ListsPanel& operator=(ListsPanel const&) = delete;

  // The list's selection and the tree's, what is open, the table's current
  // cell and cells, and where the first rows of each are on the screen, as
  // one line of JSON.
  std::string stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const;

  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override;

private:
  StandardPanel* panel_ = nullptr;
  ScrollList* list_ = nullptr;
  TreeView* tree_ = nullptr;
  ShotTable shots_;
  TableWidget* table_ = nullptr;
};
