#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <map>
#include <string>
#include <vector>

namespace {

using HeadlessInput::key;

// A project's bins: two reels of clips, and a folder of stills inside a bin.
class BinsAdaptor : public iTreeViewAdaptor {
public:
  std::map<std::wstring, std::vector<std::wstring>> children{
      {L"", {L"Reel 1", L"Reel 2", L"Music"}},
      {L"Reel 1", {L"Shot 1A", L"Shot 1B", L"Stills"}},
      {L"Stills", {L"Still 1", L"Still 2"}},
      {L"Reel 2", {L"Shot 2A"}},
  };
  mutable std::map<std::wstring, int> asked;

  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
    ++asked[parentId.str()];
    std::vector<Item> items;
    auto found = children.find(parentId.str());
    if (found == children.end())
      return items;
    for (std::wstring const& name : found->second) {
      Item item;
      item.id = LightweightString<wchar_t>(name.c_str());
      item.text = UIString(item.id);
      items.push_back(item);
    }
    return items;
  }
  bool hasChildItems(LightweightString<wchar_t> const& id) const override { return children.count(id.str()) > 0; }
};

// A flat list of a million items, made without a map.
class MillionAdaptor : public iTreeViewAdaptor {
public:
  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
    std::vector<Item> items;
    if (!parentId.empty())
      return items;
    items.resize(1'000'000);
    for (int i = 0; i < 1'000'000; ++i)
      items[i].id = LightweightString<wchar_t>(std::to_wstring(i).c_str());
    return items;
  }
  bool hasChildItems(LightweightString<wchar_t> const&) const override { return false; }
};

// A million clips under the root, each with two takes, in the counted form:
// it counts what it is asked for.
class CountedClipsAdaptor : public iTreeViewAdaptor {
public:
  mutable int itemsAsked = 0;

  std::optional<std::size_t> getChildCount(LightweightString<wchar_t> const& parentId) const override {
    return parentId.empty() ? 1'000'000u : (parentId.str().find(L'/') == std::wstring::npos ? 2u : 0u);
  }
  Item getChildItem(LightweightString<wchar_t> const& parentId, std::size_t index) const override {
    ++itemsAsked;
    Item item;
    std::wstring const name =
        parentId.empty() ? std::to_wstring(index) : parentId.str() + L"/take " + std::to_wstring(index);
    item.id = LightweightString<wchar_t>(name.c_str());
    item.text = UIString(item.id);
    return item;
  }
};

struct TreeViewTest : HeadlessScreenTest {
  BinsAdaptor bins;
  TreeView* tree = nullptr;
  std::vector<TreeViewEvent> events;

  TreeView* openTree(iTreeViewAdaptor* adaptor, int rowsShown = 8) {
    StandardPanel* panel = openPanel(XY<int>(320, rowsShown * UifStd::getRowHeight() + 40));
    TreeView::InitArgs args(XY<int>(260, rowsShown * UifStd::getRowHeight()));
    args.adaptor = adaptor;
    args.setBorder(Border());
    tree = panel->createWidget<TreeView>(args, Glob::UserTopLeft(0, 0));
    tree->addListener(TreeView::makeCallback([this](TreeViewEvent const& event) { events.push_back(event); }));
    return tree;
  }
  std::vector<std::wstring> rows() const {
    std::vector<std::wstring> texts;
    for (int row = 0; row < tree->rowCount(); ++row)
      texts.push_back(tree->itemAt(row)->id.str());
    return texts;
  }
  XY<int> arrowOf(int row) const {
    Glob* widget = tree->getRowGlob(row);
    int const x = tree->depthAt(row) * TreeView::indentStep() + TreeView::indentStep() / 2 +
                  UifStd::getWidgetGap(); // inside the arrow's step
    return HeadlessInput::pointOn(*widget, XY<int>(x, widget->height() / 2));
  }
  XY<int> textOf(int row) const {
    Glob* widget = tree->getRowGlob(row);
    return HeadlessInput::pointOn(*widget, XY<int>(widget->width() - 10, widget->height() / 2));
  }
};

TEST_F(TreeViewTest, StartsWithTheTopItemsClosedAndAsksForChildrenOnlyOnOpening) {
  openTree(&bins);
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"Reel 1", L"Reel 2", L"Music"}));
  EXPECT_EQ(tree->depthAt(0), 0);
  EXPECT_EQ(bins.asked[L""], 1);
  EXPECT_EQ(bins.asked.count(L"Reel 1"), 0u) << "nothing asked of closed items";
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>());
}

TEST_F(TreeViewTest, AClickOnTheArrowOpensAndClosesAnItem) {
  openTree(&bins);
  HeadlessInput::click(arrowOf(0));
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"Reel 1", L"Shot 1A", L"Shot 1B", L"Stills", L"Reel 2", L"Music"}));
  EXPECT_EQ(tree->depthAt(3), 1);
  EXPECT_TRUE(tree->isExpanded(L"Reel 1"));
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].type, TreeViewEvent::kExpanded);
  EXPECT_EQ(events[0].id, LightweightString<wchar_t>(L"Reel 1"));
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>()) << "the arrow does not select";
  HeadlessInput::click(arrowOf(0));
  EXPECT_EQ(rows().size(), 3u);
  EXPECT_EQ(events.back().type, TreeViewEvent::kCollapsed);
  HeadlessInput::click(arrowOf(2)); // Music has no children
  EXPECT_EQ(rows().size(), 3u);
}

TEST_F(TreeViewTest, AClickOnTheTextSelectsAndADoubleClickOpensAndActivates) {
  openTree(&bins);
  HeadlessInput::click(textOf(1));
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Reel 2"));
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].type, TreeViewEvent::kSelection);
  EXPECT_TRUE(tree->hasKbdFocus());
  events.clear();
  HeadlessInput::doubleClick(textOf(1));
  EXPECT_TRUE(tree->isExpanded(L"Reel 2"));
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().type, TreeViewEvent::kActivated);
  EXPECT_EQ(events.back().id, LightweightString<wchar_t>(L"Reel 2"));
}

TEST_F(TreeViewTest, KeysOpenCloseAndWalkTheTree) {
  openTree(&bins);
  tree->claimKbdFocus();
  key(kKeyDown);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Reel 1"));
  key(kKeyRight);
  EXPECT_TRUE(tree->isExpanded(L"Reel 1"));
  key(kKeyRight);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Shot 1A")) << "into the first child";
  key(kKeyDown);
  key(kKeyDown);
  key(kKeyRight);
  key(kKeyRight);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Still 1"));
  EXPECT_EQ(tree->depthAt(tree->getSelectedIndex()), 2);
  key(kKeyLeft);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Stills")) << "to the parent";
  key(kKeyLeft);
  EXPECT_FALSE(tree->isExpanded(L"Stills"));
  key(kKeyEnd);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Music"));
  key(kKeyHome);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Reel 1"));
  key(kKeyLeft);
  EXPECT_FALSE(tree->isExpanded(L"Reel 1"));
  EXPECT_EQ(rows().size(), 3u);
  events.clear();
  key(kKeyReturn);
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].type, TreeViewEvent::kActivated);
}

TEST_F(TreeViewTest, ClosingABranchMovesTheSelectionOutOfIt) {
  openTree(&bins);
  tree->expand(L"Reel 1");
  tree->setSelectedItem(L"Shot 1B");
  tree->collapse(L"Reel 1");
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Reel 1"));
  tree->expand(L"Reel 1");
  tree->setSelectedItem(L"Music");
  tree->collapse(L"Reel 1");
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Music")) << "a selection below moves with its row";
  EXPECT_TRUE(events.empty()) << "changes made by code are not reported";
}

TEST_F(TreeViewTest, SelectingADeepItemOpensTheWayToIt) {
  openTree(&bins);
  tree->expand(L"Reel 1");
  tree->expand(L"Stills");
  tree->collapse(L"Reel 1");
  EXPECT_TRUE(tree->setSelectedItem(L"Still 2"));
  EXPECT_TRUE(tree->isExpanded(L"Reel 1"));
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Still 2"));
  EXPECT_FALSE(tree->setSelectedItem(L"Nowhere"));
}

TEST_F(TreeViewTest, RefreshKeepsOpenItemsAndTheSelectionByIdOrStartsAfresh) {
  openTree(&bins);
  tree->expand(L"Reel 1");
  tree->setSelectedItem(L"Shot 1B");
  bins.children[L"Reel 1"] = {L"Shot 1B", L"Shot 1C"};
  tree->refresh(1);
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"Reel 1", L"Shot 1B", L"Shot 1C", L"Reel 2", L"Music"}));
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Shot 1B"));
  bins.children[L""] = {L"Reel 2"};
  tree->refresh(1);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>()) << "the selected item has gone";
  tree->expand(L"Reel 2");
  tree->refresh(0);
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"Reel 2"}));
}

TEST_F(TreeViewTest, AMillionItemsMakeWidgetsOnlyForTheRowsInSight) {
  MillionAdaptor million;
  openTree(&million);
  EXPECT_EQ(tree->rowCount(), 1'000'000);
  int const bound = tree->linesPerPage() + 1;
  EXPECT_LE(tree->liveRowCount(), bound);
  tree->claimKbdFocus();
  key(kKeyEnd);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"999999"));
  EXPECT_LE(tree->liveRowCount(), bound);
  EXPECT_NE(tree->getRowGlob(999'999), nullptr);
  key(kKeyPageUp);
  EXPECT_LE(tree->liveRowCount(), bound);
  EXPECT_EQ(tree->getView()->getChildren().size(), static_cast<size_t>(tree->liveRowCount()));
}

TEST_F(TreeViewTest, ACountedAdaptorIsAskedOnlyForTheItemsInSight) {
  CountedClipsAdaptor clips;
  openTree(&clips);
  EXPECT_EQ(tree->rowCount(), 1'000'000);
  EXPECT_LE(clips.itemsAsked, tree->linesPerPage() + 1);
  EXPECT_EQ(tree->itemAt(0)->id, LightweightString<wchar_t>(L"0"));
  tree->claimKbdFocus();
  key(kKeyEnd);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"999999"));
  EXPECT_LE(clips.itemsAsked, 3 * (tree->linesPerPage() + 1)) << "the rows between were never asked for";
  EXPECT_LE(tree->liveRowCount(), tree->linesPerPage() + 1);
}

TEST_F(TreeViewTest, ACountedItemOpensByKeysAndItsChildrenComeByIndex) {
  CountedClipsAdaptor clips;
  openTree(&clips);
  tree->claimKbdFocus();
  key(kKeyDown);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"0"));
  key(kKeyRight);
  EXPECT_TRUE(tree->isExpanded(L"0"));
  EXPECT_EQ(tree->rowCount(), 1'000'002);
  EXPECT_EQ(tree->itemAt(1)->id, LightweightString<wchar_t>(L"0/take 0"));
  EXPECT_EQ(tree->depthAt(2), 1);
  EXPECT_EQ(tree->itemAt(3)->id, LightweightString<wchar_t>(L"1"));
  key(kKeyRight);
  key(kKeyDown);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"0/take 1"));
  key(kKeyLeft);
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"0")) << "Left on a leaf goes to its parent";
  key(kKeyLeft);
  EXPECT_FALSE(tree->isExpanded(L"0"));
  EXPECT_EQ(tree->rowCount(), 1'000'000);
}

TEST_F(TreeViewTest, SelectingACountedItemNotYetSeenAsksTheAdaptorForIt) {
  CountedClipsAdaptor clips;
  openTree(&clips);
  EXPECT_TRUE(tree->setSelectedItem(L"4321"));
  EXPECT_EQ(tree->getSelectedIndex(), 4321);
  EXPECT_NE(tree->getRowGlob(4321), nullptr) << "scrolled into sight";
  EXPECT_FALSE(tree->setSelectedItem(L"no such clip"));
}

TEST_F(TreeViewTest, AnAdaptorThatKnowsWhereAnItemLiesSparesTheTreeAskingForEveryRow) {
  // Clips are named by their index, so their place is known.
  class PlacedClips : public CountedClipsAdaptor {
  public:
    std::optional<std::size_t> getChildIndex(LightweightString<wchar_t> const& parentId,
                                             LightweightString<wchar_t> const& id) const override {
      if (!parentId.empty())
        return std::nullopt;
      std::wstring const text = id.str();
      if (text.empty() || text.find_first_not_of(L"0123456789") != std::wstring::npos)
        return 1'000'000u;
      return std::stoul(text);
    }
  } clips;
  openTree(&clips);
  clips.itemsAsked = 0;
  EXPECT_TRUE(tree->setSelectedItem(L"654321"));
  EXPECT_EQ(tree->getSelectedIndex(), 654321);
  int const askedToSelect = clips.itemsAsked;
  EXPECT_LT(askedToSelect, 100) << "the row itself and the rows brought into sight";
  EXPECT_FALSE(tree->setSelectedItem(L"no such clip"));
  EXPECT_EQ(clips.itemsAsked, askedToSelect) << "a missing item costs no rows";

  ASSERT_TRUE(tree->expand(L"654321"));
  EXPECT_TRUE(tree->setSelectedItem(L"654321/take 1")) << "children of opened rows are still found";
  EXPECT_EQ(tree->getSelectedIndex(), 654323);
}

TEST(iTreeViewAdaptor, TheListFormIsMadeFromTheCountedFormAndAnAdaptorWithNeitherIsEmpty) {
  class Takes : public iTreeViewAdaptor {
  public:
    std::optional<std::size_t> getChildCount(LightweightString<wchar_t> const& id) const override {
      return id.empty() ? 3u : 0u;
    }
    Item getChildItem(LightweightString<wchar_t> const&, std::size_t index) const override {
      Item item;
      item.id = LightweightString<wchar_t>(std::to_wstring(index * 10).c_str());
      return item;
    }
  } takes;
  std::vector<iTreeViewAdaptor::Item> const items = takes.getChildItems(L"");
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[2].id, LightweightString<wchar_t>(L"20"));
  EXPECT_TRUE(takes.hasChildItems(L""));
  EXPECT_FALSE(takes.hasChildItems(L"20"));

  class Nothing : public iTreeViewAdaptor {
  } nothing;
  EXPECT_TRUE(nothing.getChildItems(L"").empty());
  EXPECT_FALSE(nothing.hasChildItems(L""));
}

TEST_F(TreeViewTest, ARowIsDrawnInItsOwnFont) {
  class Fonts : public iTreeViewAdaptor {
  public:
    std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
      if (!parentId.empty())
        return {};
      Item plain;
      plain.id = L"plain";
      plain.text = L"Wide glyphs MMMM";
      Item large = plain;
      large.id = L"large";
      large.font = Glib::FontDesc(UifStd::getFont().family(), UifStd::getFont().size() * 3 / 2, 0);
      return {plain, large};
    }
  } fonts;
  openTree(&fonts);
  // The larger font reaches further right along the row's middle line.
  auto rightmostInk = [&](int row) {
    Glob* widget = tree->getRowGlob(row);
    Rgb const ground = rgbOf(widgetPixel(*widget, XY<int>(widget->width() - 2, widget->height() / 2)));
    int last = -1;
    for (int x = 0; x < widget->width(); ++x)
      for (int y = 2; y < widget->height() - 2; ++y)
        if (!near(rgbOf(widgetPixel(*widget, XY<int>(x, y))), ground, 30))
          last = x;
    return last;
  };
  EXPECT_GT(rightmostInk(1), rightmostInk(0) + 10);
}

TEST_F(TreeViewTest, AFlatTreeHasNoArrowsAndAClickThereSelects) {
  openTree(&bins);
  tree->setAppearance(TreeView::kFlat);
  XY<int> const where = arrowOf(0);
  HeadlessInput::click(where);
  EXPECT_FALSE(tree->isExpanded(L"Reel 1"));
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Reel 1"));
}

// A tree made flat has its rows made flat at once; asking again for the
// look or the bar it already has keeps the rows it made.
TEST_F(TreeViewTest, AFlatLookGivenAtTheStartNeedsNoSecondMakingOfRows) {
  StandardPanel* panel = openPanel(XY<int>(320, 8 * UifStd::getRowHeight() + 40));
  TreeView::InitArgs args(XY<int>(260, 8 * UifStd::getRowHeight()));
  args.adaptor = &bins;
  args.appearance = TreeView::kFlat;
  tree = panel->createWidget<TreeView>(args, Glob::UserTopLeft(0, 0));
  EXPECT_EQ(tree->getAppearance(), TreeView::kFlat);
  // A stamp tells a row that lives on from a new row at the same address.
  Glob* const first = tree->getRowGlob(0);
  IdStamp const stamp = EventHandler::stampOf(first);
  tree->setAppearance(TreeView::kFlat);
  tree->setScrollbarDisplay(TreeView::kScrollbarAsNeeded);
  EXPECT_TRUE(EventHandler::valid(first, stamp));
  HeadlessInput::click(arrowOf(0));
  EXPECT_FALSE(tree->isExpanded(L"Reel 1")) << "no arrow to open it by";
  EXPECT_EQ(tree->getSelectedItem(), LightweightString<wchar_t>(L"Reel 1"));
  Glob* const selected = tree->getRowGlob(0);
  IdStamp const selectedStamp = EventHandler::stampOf(selected);
  tree->setAppearance(TreeView::kShowExpanders);
  EXPECT_FALSE(EventHandler::valid(selected, selectedStamp)) << "a new look makes the rows again";
}

TEST_F(TreeViewTest, TheScrollBarCanBeKeptAwayForGood) {
  MillionAdaptor million;
  openTree(&million);
  EXPECT_TRUE(tree->getScrollBar()->isVisible());
  tree->setScrollbarDisplay(TreeView::kScrollbarNever);
  EXPECT_FALSE(tree->getScrollBar()->isVisible());
  EXPECT_EQ(tree->getRowGlob(0)->width(), tree->getUserArea().width()) << "rows take the bar's room";
  tree->claimKbdFocus();
  key(kKeyEnd);
  EXPECT_GT(tree->getScrollOffset(), 0) << "keys still scroll";
}

TEST_F(TreeViewTest, TheSelectedRowIsDrawnInTheSelectionColour) {
  openTree(&bins);
  tree->setSelectedItem(L"Reel 2");
  Glob* row = tree->getRowGlob(1);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*row, XY<int>(row->width() - 3, row->height() / 2))),
                   rgbOf(tree->getPalette().selection()), 2));
}

} // namespace
