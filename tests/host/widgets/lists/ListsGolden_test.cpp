#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollList.h>
#include <zowidgets/host/widgets/lists/ScrollListGridViewBase.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

#include "ShotsTableAdaptor.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

// A cell showing a colour chip over the grid's ground.
class ChipItem : public ScrollListGridViewBase::ItemWidgetBase {
public:
  ChipItem(XY<int> size, Colour chip) : ItemWidgetBase(InitArgs(size)), chip_(chip) {}

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    ItemWidgetBase::drawBackground(renderer);
    double const inset = width() / 5.0;
    renderer.renderPrimitive(Glib::RoundedRectDescription(
        Zo::Box<double>(inset, inset, width() - inset, height() - inset), inset / 2, chip_));
  }

private:
  Colour chip_;
};

class ChipGrid : public ScrollListGridViewBase {
public:
  using ScrollListGridViewBase::ScrollListGridViewBase;
  void addChips(std::vector<Colour> const& chips, UIString const& title) {
    addSeparator(title);
    int const cell = UifStd::getRowHeight() * 2;
    int const perRow = itemsPerRow(cell);
    Glob* row = nullptr;
    Glob* previous = nullptr;
    for (size_t i = 0; i < chips.size(); ++i) {
      if (i % perRow == 0) {
        row = addRow();
        previous = nullptr;
      }
      auto* item = new ChipItem(XY<int>(cell, cell), chips[i]);
      row->addChild(item, previous ? Glob::RightOf(0, previous) : Glob::TopLeft(0, 0));
      addItemWidget(item);
      previous = item;
    }
  }
};

// Reels of shots, each shot with takes.
class ReelsAdaptor : public iTreeViewAdaptor {
public:
  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
    std::vector<Item> items;
    std::wstring const parent = parentId.str();
    int const depth = parent.empty() ? 0 : 1 + static_cast<int>(std::count(parent.begin(), parent.end(), L'/'));
    if (depth == 3)
      return items;
    wchar_t const* const names[] = {L"Reel ", L"Shot ", L"Take "};
    for (int i = 1; i <= 3; ++i) {
      Item item;
      item.id = LightweightString<wchar_t>((parent + (parent.empty() ? L"" : L"/") + std::to_wstring(i)).c_str());
      item.text = UIString(LightweightString<wchar_t>((names[depth] + std::to_wstring(i)).c_str()));
      if (depth == 2 && i == 2)
        item.colour = Colour(0.9, 0.6, 0.2);
      items.push_back(item);
    }
    return items;
  }
};

struct ListsGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  StandardPanel* listPanel(double scale) {
    UifStd::setScale(scale);
    int const line = UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(line * 12, line * 10), XY<int>(40, 40),
                                     StandardPanel::kTitle | StandardPanel::kPoot, L"Bins");
    int const width = panel->getUserArea().width();
    ScrollList::InitArgs args(
        XY<int>(width, StandardPanel::calcPanelSize(XY<int>(width, line * 7), 0, StandardPanel::getDefaultBorder()).y));
    for (std::wstring name : {L"Interview A", L"Interview B", L"B-roll harbour", L"B-roll market", L"Drone pass 1",
                              L"Drone pass 2", L"Title cards", L"Music stems", L"Room tone", L"Archive 1998"})
      args.strings.emplace_back(name.c_str());
    args.selectionMode = ScrollList::kMultipleSelection;
    auto* list = panel->createWidget<ScrollList>(args, Glob::UserTopLeft(0, 0));
    HeadlessInput::clickOn(*list->getRowWidget(2));
    HeadlessInput::click(HeadlessInput::pointOn(*list->getRowWidget(4)), kMouseLeft, kKeyShift);
    HeadlessInput::key(kKeyDown, kKeyCtrl);
    HeadlessInput::key(kKeyDown, kKeyCtrl);
    return panel;
  }

  StandardPanel* gridPanel(double scale) {
    UifStd::setScale(scale);
    int const line = UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(line * 13, line * 11), XY<int>(40, 40),
                                     StandardPanel::kTitle | StandardPanel::kPoot, L"Swatches");
    Zo::Box<int> const area = panel->getUserArea();
    auto* grid = panel->createWidget<ChipGrid>(ChipGrid::InitArgs(XY<int>(area.width(), area.height())),
                                               Glob::UserTopLeft(0, 0));
    grid->addChips({Colour(0.9, 0.2, 0.2), Colour(0.95, 0.55, 0.1), Colour(0.95, 0.85, 0.2), Colour(0.3, 0.8, 0.3),
                    Colour(0.2, 0.6, 0.9), Colour(0.4, 0.3, 0.85), Colour(0.8, 0.3, 0.7)},
                   L"Warm and cool");
    grid->addChips({Colour(0.1, 0.1, 0.1), Colour(0.4, 0.4, 0.4), Colour(0.7, 0.7, 0.7), Colour(0.95, 0.95, 0.95)},
                   L"Greys");
    grid->setSelectedItem(4);
    return panel;
  }
};

TEST_F(ListsGolden, ATreeTwoLevelsOpenWithASelection) {
  for (double scale : {1.0, 2.0}) {
    UifStd::setScale(scale);
    int const line = UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(line * 10, line * 10), XY<int>(40, 40),
                                     StandardPanel::kTitle | StandardPanel::kPoot, L"Project");
    ReelsAdaptor reels;
    TreeView::InitArgs args(XY<int>(panel->getUserArea().width(), panel->getUserArea().height()));
    args.adaptor = &reels;
    auto* tree = panel->createWidget<TreeView>(args, Glob::UserTopLeft(0, 0));
    tree->expand(L"1");
    tree->expand(L"1/2");
    tree->setSelectedItem(L"1/2/2");
    tree->claimKbdFocus();
    std::string const name = scale == 1.0 ? "/tree.png" : "/tree_scale2.png";
    EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR + name));
    delete panel;
  }
}

// Titles sorted by length, two rows tagged, a taller row, and a clip name
// being typed over.
TEST_F(ListsGolden, ATableSortedTaggedAndEditing) {
  for (double scale : {1.0, 2.0}) {
    UifStd::setScale(scale);
    int const line = UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(line * 19, line * 10), XY<int>(40, 40),
                                     StandardPanel::kTitle | StandardPanel::kPoot, L"Shot log");
    ShotsTableAdaptor shots(12);
    shots.heights[2] = line * 2;
    TableWidget::InitArgs args(XY<int>(panel->getUserArea().width(), panel->getUserArea().height()));
    args.adaptor = &shots;
    args.options = TableWidget::kShowTitles | TableWidget::kFramed;
    args.setBorder(Border());
    auto* table = panel->createWidget<TableWidget>(args, Glob::UserTopLeft(0, 0));
    table->setColumnWidth(1, line * 3);
    table->setColumnWidth(2, line * 5);
    table->setColumnWidth(3, line * 3);
    table->sortBy(3, true);
    shots.setTags(3, 4, true);
    table->redrawRows();
    table->claimKbdFocus();
    table->setCurPos(XY<int>(0, 1));
    table->beginEdit(XY<int>(0, 5));
    HeadlessInput::typeText("Pickup");
    std::string const name = scale == 1.0 ? "/table.png" : "/table_scale2.png";
    EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR + name));
    delete panel;
  }
}

TEST_F(ListsGolden, AListWithARangeSelectedAndTheCursorBelow) {
  StandardPanel* panel = listPanel(1.0);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/scroll_list.png"));
}

TEST_F(ListsGolden, TheSameListAtDoubleScale) {
  StandardPanel* panel = listPanel(2.0);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/scroll_list_scale2.png"));
}

TEST_F(ListsGolden, AGridWithTitledGroupsAndASelectedItem) {
  StandardPanel* panel = gridPanel(1.0);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/list_grid.png"));
}

TEST_F(ListsGolden, TheSameGridAtDoubleScale) {
  StandardPanel* panel = gridPanel(2.0);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/list_grid_scale2.png"));
}

} // namespace
