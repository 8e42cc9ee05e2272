#pragma once

#include <zowidgets/host/widgets/lists/iTreeViewAdaptor.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <string>

class ScrollList;
class TreeView;

// A list of clips with multiple selection and a tree of reels, in a window
// of their own, for the end-to-end cases that select and open rows as a
// person would.
class ListsPanel : public iTreeViewAdaptor {
public:
  // Opens the panel at a screen position (bottom-left corner, bottom-up).
  explicit ListsPanel(XY<int> screenPosition);
  ~ListsPanel() override;
  ListsPanel(ListsPanel const&) = delete;
  ListsPanel& operator=(ListsPanel const&) = delete;

  // The list's selection and the tree's, what is open, and where the first
  // rows of each are on the screen, as one line of JSON.
  std::string stateJson(std::string (*toScreen)(Zo::Box<int> const&)) const;

  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override;

private:
  StandardPanel* panel_ = nullptr;
  ScrollList* list_ = nullptr;
  TreeView* tree_ = nullptr;
};
