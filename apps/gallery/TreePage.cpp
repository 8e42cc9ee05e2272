// A project's reels, shots and takes in a tree of 100,000 rows when opened.
#include "PageLayout.h"

#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

// Ids are paths of numbers: "3" is reel 3, "3/12" its shot 12, "3/12/2"
// that shot's take 2. Reels hold many shots, so the open tree runs long.
class ProjectAdaptor : public iTreeViewAdaptor {
public:
  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
    std::wstring const parent = parentId.str();
    int const depth = parent.empty() ? 0 : 1 + static_cast<int>(std::count(parent.begin(), parent.end(), L'/'));
    static int const counts[] = {20, 1000, 4};
    static wchar_t const* const names[] = {L"Reel ", L"Shot ", L"Take "};
    std::vector<Item> items;
    if (depth > 2)
      return items;
    items.reserve(counts[depth]);
    for (int i = 1; i <= counts[depth]; ++i) {
      Item item;
      item.id = LightweightString<wchar_t>((parent + (parent.empty() ? L"" : L"/") + std::to_wstring(i)).c_str());
      item.text = UIString(LightweightString<wchar_t>((names[depth] + std::to_wstring(i)).c_str()));
      item.tooltip = TooltipDetails(UIString(L"Id " + item.id.str()));
      if (depth == 2 && i == 4)
        item.colour = Colour(0.95, 0.65, 0.25); // the circled take
      items.push_back(std::move(item));
    }
    return items;
  }
  bool hasChildItems(LightweightString<wchar_t> const& id) const override {
    std::wstring const path = id.str();
    return std::count(path.begin(), path.end(), L'/') < 2;
  }
};

Glob* buildTreePage(PageContext const& context) {
  static ProjectAdaptor project; // outlives every page window
  PageMetrics const m = PageMetrics::current();
  XY<int> const treeSize(m.row * 12, m.row * 14);
  StandardPanel* panel = openPageWindow(context, XY<int>(treeSize.x, treeSize.y + m.row + m.gap), L"Project");
  TreeView::InitArgs args(treeSize);
  args.adaptor = &project;
  auto* tree = panel->createWidget<TreeView>(args, Glob::UserTopLeft(0, 0));
  TextLabel::InitArgs status(XY<int>(treeSize.x, m.row));
  status.text = L"Arrows open and close; Right and Left too";
  auto* label = panel->createWidget<TextLabel>(status, Glob::Below(m.gap, tree));
  tree->addListener(TreeView::makeCallback([label](TreeViewEvent const& event) {
    static wchar_t const* const verbs[] = {L"Selected ", L"Opened ", L"Closed ", L"Activated "};
    label->setString(UIString(verbs[event.type - TreeViewEvent::kSelection] + event.id.str()));
  }));
  tree->expand(L"1");
  tree->expand(L"1/2");
  tree->setSelectedItem(L"1/2/4");
  tree->claimKbdFocus();
  return panel;
}

PageRegistrar const treePage{"tree", "Tree view",
                             "Twenty reels of a thousand shots of four takes: children are asked for when an item "
                             "opens, and rows exist only for the lines in sight",
                             buildTreePage};

} // namespace
