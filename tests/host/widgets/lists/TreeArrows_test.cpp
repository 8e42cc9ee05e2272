#include "support/WidgetTestSupport.h"

#include "host/drawing/IconTestSupport.h"

#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace {

// Two bins, the first holding two clips.
class BinsAdaptor : public iTreeViewAdaptor {
public:
  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
    std::vector<Item> items;
    std::vector<std::wstring> const names =
        parentId.empty() ? std::vector<std::wstring>{L"Bin A", L"Bin B"}
                         : (parentId.str() == L"Bin A" ? std::vector<std::wstring>{L"Clip 1", L"Clip 2"}
                                                       : std::vector<std::wstring>{});
    for (std::wstring const& name : names) {
      Item item;
      item.id = LightweightString<wchar_t>(name.c_str());
      item.text = UIString(item.id);
      items.push_back(item);
    }
    return items;
  }
  bool hasChildItems(LightweightString<wchar_t> const& id) const override { return id.str().starts_with(L"Bin"); }
};

struct TreeArrowsTest : HeadlessScreenTest {
  // The machine's own theme, whatever the environment says.
  ScopedEnv noOverride{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};
  BinsAdaptor bins;
  TreeView* tree = nullptr;

  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }
  void openTree(double scale) {
    UifStd::setScale(scale);
    int const line = UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(line * 8, line * 5));
    TreeView::InitArgs args(XY<int>(line * 7, line * 4));
    args.adaptor = &bins;
    args.setBorder(Border());
    tree = panel->createWidget<TreeView>(args, Glob::UserTopLeft(0, 0));
  }
  static int arrowSide() {
    return std::min(TreeView::indentStep(), static_cast<int>(std::lround(16 * UifStd::getScale())));
  }
  // Where the arrow of a top-level row is drawn: centred in the first indent
  // step, on whole pixels.
  XY<int> arrowCorner(int row) const {
    Glob const& widget = *tree->getRowGlob(row);
    double const indent = ScrollListItemWidget::lookFor(tree->getPalette()).textIndent / 2.0;
    double const cx = indent + tree->depthAt(row) * TreeView::indentStep() + TreeView::indentStep() / 2.0;
    double const cy = widget.height() / 2.0;
    return XY<int>(static_cast<int>(std::floor(cx - arrowSide() / 2.0)),
                   static_cast<int>(std::floor(cy - arrowSide() / 2.0)));
  }
  // How many of the icon's solid pixels the row shows in the colour.
  std::pair<int, int> iconShown(int row, std::string_view name, Colour const& colour) {
    return iconPixelsShown(*tree->getRowGlob(row), name, arrowSide(), arrowCorner(row), colour);
  }
  ScrollListItemWidget::Look look() const { return ScrollListItemWidget::lookFor(tree->getPalette()); }
};

TEST_F(TreeArrowsTest, AClosedItemShowsTheThemesArrowInTheTextColour) {
  openTree(1.0);
  ASSERT_TRUE(IconCache::get("tree-collapsed.png", arrowSide(), look().text).fromTheme)
      << "the machine's theme has the artwork";
  auto const [shown, solid] = iconShown(0, "tree-collapsed.png", look().text);
  EXPECT_GT(solid, 10);
  EXPECT_EQ(shown, solid);
  EXPECT_EQ(arrowSide(), 16);
}

TEST_F(TreeArrowsTest, AnOpenItemShowsTheExpandedTwin) {
  openTree(1.0);
  tree->expand(L"Bin A");
  auto const [shown, solid] = iconShown(0, "tree-expanded.png", look().text);
  EXPECT_GT(solid, 10);
  EXPECT_EQ(shown, solid);
  auto const [closedShown, closedSolid] = iconShown(0, "tree-collapsed.png", look().text);
  EXPECT_LT(closedShown, closedSolid) << "the closed arrow is gone";
  auto const [leafShown, leafSolid] = iconShown(1, "tree-collapsed.png", look().text);
  EXPECT_EQ(leafShown, 0) << "a clip has no children and no arrow";
  EXPECT_GT(leafSolid, 0);
}

TEST_F(TreeArrowsTest, TheSelectedRowsArrowTakesTheSelectedTextColour) {
  openTree(1.0);
  tree->setSelectedItem(L"Bin B");
  auto const [shown, solid] = iconShown(1, "tree-collapsed.png", look().selectedText);
  EXPECT_GT(solid, 10);
  EXPECT_EQ(shown, solid);
}

TEST_F(TreeArrowsTest, AtScaleTwoTheArrowIsDrawnAtTwiceTheSide) {
  openTree(2.0);
  EXPECT_EQ(arrowSide(), 32);
  auto const [shown, solid] = iconShown(0, "tree-collapsed.png", look().text);
  EXPECT_GT(solid, 40);
  EXPECT_EQ(shown, solid);
}

TEST_F(TreeArrowsTest, WithoutTheThemesArtworkTheArrowIsDrawn) {
  ScratchFolder scratch;
  ScopedEnv missing("ZOWIDGETS_ICON_THEME_DIR", (scratch.path() / "none").string());
  openTree(1.0);
  ASSERT_FALSE(IconCache::get("tree-collapsed.png", arrowSide(), look().text).fromTheme);
  auto const [standIn, standInSolid] = iconShown(0, "tree-collapsed.png", look().text);
  EXPECT_LT(standIn, standInSolid) << "not the drawn stand-in with its question mark";
  // The triangle's middle, a little left of the step's centre, is solid.
  XY<int> const corner = arrowCorner(0);
  XY<int> const middle(corner.x + arrowSide() / 2 - 1, corner.y + arrowSide() / 2);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*tree->getRowGlob(0), middle)), rgbOf(look().text), 8));
  XY<int> const beside(corner.x, corner.y + 1);
  EXPECT_FALSE(near(rgbOf(widgetPixel(*tree->getRowGlob(0), beside)), rgbOf(look().text), 8))
      << "the corner of the arrow's square keeps the row's ground";
}

} // namespace
