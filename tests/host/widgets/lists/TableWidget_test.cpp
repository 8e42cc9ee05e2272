#include "support/WidgetTestSupport.h"

#include "ShotsTableAdaptor.h"

#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/HTMLStringEditor.h>
#include <zowidgets/host/widgets/lists/TableCellEditor.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/lists/WStringEditor.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <climits>
#include <memory>
#include <string>
#include <vector>

namespace {

using HeadlessInput::key;

// A model of a million rows that makes each cell's text when asked.
class MillionRows : public iTableAdaptor {
public:
  int getSize() override { return 1'000'000; }
  std::vector<TableColumnDescription> getColumnDefinitions() override {
    return {TableColumnDescription(UIString(L"#"), 90), TableColumnDescription(UIString(L"Clip")),
            TableColumnDescription(UIString(L"Reel"), 60), TableColumnDescription(UIString(L"Length"), 60)};
  }
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data;
    data.palette = palette;
    data.text = UIString(LightweightString<wchar_t>(std::to_wstring(pos.y * 4 + pos.x).c_str()));
    return data;
  }
  bool storeFieldText(CellContext&, LightweightString<wchar_t> const&) override { return true; }
};

struct TableWidgetTest : HeadlessScreenTest {
  ShotsTableAdaptor shots;
  TableWidget* table = nullptr;
  std::vector<TableWidgetEvent> events;
  // Models a test makes live as long as its windows: until after TearDown.
  std::vector<std::unique_ptr<iTableAdaptor>> models;

  template <class T, class... Args> T& makeModel(Args&&... args) {
    models.push_back(std::make_unique<T>(std::forward<Args>(args)...));
    return static_cast<T&>(*models.back());
  }

  TableWidget* openTable(iTableAdaptor* adaptor, int options = TableWidget::kShowTitles, int rowsShown = 5) {
    int const height = TableWidget::calcHeight(rowsShown, options);
    StandardPanel* panel = openPanel(XY<int>(480, height + 40));
    TableWidget::InitArgs args(XY<int>(420, height));
    args.adaptor = adaptor;
    args.options = options;
    args.setBorder(Border());
    table = panel->createWidget<TableWidget>(args, Glob::UserTopLeft(0, 0));
    table->addListener(TableWidget::makeCallback([this](TableWidgetEvent const& event) { events.push_back(event); }));
    return table;
  }
  // The screen point in the middle of a cell.
  XY<int> cellPoint(XY<int> cell) const {
    Zo::Box<int> const box = table->getCellBox(cell);
    return HeadlessInput::pointOn(*table, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }
  TextBox* editBox() const { return dynamic_cast<TextBox*>(table->getEditWidget()); }
  std::wstring cell(int column, int row) const { return shots.shots.at(row).cells[column]; }
};

TEST_F(TableWidgetTest, ColumnsWithoutAWidthShareWhatTheFixedOnesLeave) {
  openTable(&shots);
  EXPECT_EQ(table->numColumns(), 4);
  EXPECT_EQ(table->getColumnWidth(1), 80);
  EXPECT_EQ(table->getColumnWidth(2), 110);
  EXPECT_EQ(table->getColumnWidth(0), table->getVisibleBox().width() - 80 - 110 - 70);
  EXPECT_EQ(table->columnLeft(3), table->getColumnWidth(0) + 80 + 110);
  ASSERT_NE(table->getHeader(), nullptr);
  EXPECT_EQ(table->getHeader()->height(), UifStd::getRowHeight());
}

TEST_F(TableWidgetTest, CalcHeightShowsExactlyThatManyRowsWithTitlesAndFrame) {
  openTable(&shots, TableWidget::kShowTitles | TableWidget::kFramed, 4);
  EXPECT_EQ(table->numLines(), 4);
  EXPECT_EQ(table->getVisibleBox().height(), 4 * UifStd::getRowHeight());
  EXPECT_TRUE(table->getScrollBar()->isVisible()) << "six rows overflow four";
  EXPECT_EQ(TableWidget::calcHeight(4, 0), 4 * UifStd::getRowHeight());
  EXPECT_EQ(TableWidget::calcHeight(4, TableWidget::kFramed), 4 * UifStd::getRowHeight() + 2);
}

TEST_F(TableWidgetTest, AClickMakesACellCurrentAndTellsListeners) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(2, 3)));
  EXPECT_EQ(table->getCurPos(), XY<int>(2, 3));
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].type, TableWidgetEvent::kCurrentChanged);
  EXPECT_EQ(events[0].cell, XY<int>(2, 3));
  EXPECT_FALSE(table->isEditing()) << "a first click only chooses the cell";
}

TEST_F(TableWidgetTest, ArrowsPagesHomeAndEndMoveTheCurrentCell) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(0, 0)));
  key(kKeyDown);
  key(kKeyRight);
  EXPECT_EQ(table->getCurPos(), XY<int>(1, 1));
  key(kKeyEnd);
  EXPECT_EQ(table->getCurPos(), XY<int>(3, 1));
  key(kKeyHome);
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 1));
  key(kKeyEnd, kKeyCtrl);
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 5));
  key(kKeyPageUp);
  EXPECT_EQ(table->getCurPos().y, 5 - (table->numLines() - 1));
  key(kKeyHome, kKeyCtrl);
  key(kKeyUp);
  key(kKeyLeft);
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 0)) << "the moves stop at the edges";
}

TEST_F(TableWidgetTest, TypingOpensTheEditorAndReturnStoresThroughTheAdaptor) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(0, 2)));
  HeadlessInput::typeText("Wide");
  ASSERT_TRUE(table->isEditing());
  EXPECT_EQ(table->getEditPos(), XY<int>(0, 2));
  ASSERT_NE(editBox(), nullptr);
  EXPECT_EQ(editBox()->getString(), LightweightString<wchar_t>(L"Wide")) << "typing replaces the old text";
  EXPECT_EQ(cell(0, 2), L"Shot 3") << "nothing is stored before Return";
  key(kKeyReturn);
  EXPECT_FALSE(table->isEditing());
  EXPECT_EQ(cell(0, 2), L"Wide");
  EXPECT_EQ(shots.stored, (std::vector<std::wstring>{L"Wide"}));
  EXPECT_EQ(events.back().type, TableWidgetEvent::kCellStored);
  EXPECT_TRUE(table->hasKbdFocus()) << "the keys come back to the table";
  key(kKeyDown);
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 3));
}

TEST_F(TableWidgetTest, TabStoresAndEditsTheNextCellShiftTabThePrevious) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(2, 0)));
  key(kKeyReturn);
  ASSERT_TRUE(table->isEditing());
  HeadlessInput::typeText("01:00:09:00");
  key(kKeyTab);
  EXPECT_EQ(cell(2, 0), L"01:00:09:00");
  ASSERT_TRUE(table->isEditing());
  EXPECT_EQ(table->getEditPos(), XY<int>(3, 0));
  key(kKeyTab);
  EXPECT_EQ(table->getEditPos(), XY<int>(0, 1)) << "Tab at a row's end goes on to the next row";
  key(kKeyTab, kKeyShift);
  EXPECT_EQ(table->getEditPos(), XY<int>(3, 0));
  EXPECT_EQ(shots.stored.size(), 1u) << "cells left as they were are not written";
}

TEST_F(TableWidgetTest, EscapeDropsTheEditAndStoresNothing) {
  openTable(&shots);
  HeadlessInput::doubleClick(cellPoint(XY<int>(1, 4)));
  ASSERT_TRUE(table->isEditing());
  EXPECT_EQ(editBox()->getString(), LightweightString<wchar_t>(L"Reel 2"));
  HeadlessInput::typeText("Reel 9");
  key(kKeyEscape);
  EXPECT_FALSE(table->isEditing());
  EXPECT_EQ(cell(1, 4), L"Reel 2");
  EXPECT_TRUE(shots.stored.empty());
  EXPECT_FALSE(table->getEditWidget());
}

TEST_F(TableWidgetTest, AClickOnTheCurrentCellOpensItsEditor) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(3, 1)));
  EXPECT_FALSE(table->isEditing());
  HeadlessInput::click(cellPoint(XY<int>(3, 1)));
  EXPECT_TRUE(table->isEditing());
  EXPECT_TRUE(editBox()->hasKbdFocus());
}

TEST_F(TableWidgetTest, AClickOnAnotherCellStoresTheEditFirst) {
  openTable(&shots);
  HeadlessInput::doubleClick(cellPoint(XY<int>(0, 0)));
  HeadlessInput::typeText("Slate");
  HeadlessInput::click(cellPoint(XY<int>(0, 3)));
  EXPECT_EQ(cell(0, 0), L"Slate");
  EXPECT_FALSE(table->isEditing());
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 3));
}

TEST_F(TableWidgetTest, AModelThatRefusesAnEditKeepsItsText) {
  shots.refuseStores = true;
  openTable(&shots);
  ASSERT_TRUE(table->beginEdit(XY<int>(0, 1)));
  HeadlessInput::typeText("Nope");
  EXPECT_FALSE(table->commitEdit());
  EXPECT_EQ(cell(0, 1), L"Shot 2");
  for (auto const& event : events)
    EXPECT_NE(event.type, TableWidgetEvent::kCellStored);
}

TEST_F(TableWidgetTest, ATableWithItsEntryBoxHiddenIsNeverEdited) {
  openTable(&shots);
  table->hideTextEntryBox(true);
  HeadlessInput::doubleClick(cellPoint(XY<int>(0, 0)));
  HeadlessInput::typeText("x");
  key(kKeyReturn);
  EXPECT_FALSE(table->isEditing());
  EXPECT_EQ(cell(0, 0), L"Shot 1");
}

// Cells of the Reel column are read-only.
class ReadOnlyReels : public ShotsTableAdaptor {
public:
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data = ShotsTableAdaptor::getCellData(pos, palette);
    data.readOnly = pos.x == 1;
    return data;
  }
};

TEST_F(TableWidgetTest, AReadOnlyCellDoesNotOpenButItsNeighboursDo) {
  ReadOnlyReels& model = makeModel<ReadOnlyReels>();
  openTable(&model);
  EXPECT_FALSE(table->beginEdit(XY<int>(1, 0)));
  EXPECT_EQ(table->getCurPos(), XY<int>(1, 0)) << "it still becomes current";
  EXPECT_TRUE(table->beginEdit(XY<int>(2, 0)));
}

TEST_F(TableWidgetTest, CtrlClickTogglesATagAndShiftClickTagsARange) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(0, 1)));
  HeadlessInput::click(cellPoint(XY<int>(0, 4)), kMouseLeft, kKeyShift);
  EXPECT_EQ(shots.tags, (std::set<std::int64_t>{1, 2, 3, 4}));
  HeadlessInput::click(cellPoint(XY<int>(0, 2)), kMouseLeft, kKeyCtrl);
  EXPECT_EQ(shots.tags, (std::set<std::int64_t>{1, 3, 4}));
  EXPECT_EQ(events.back().type, TableWidgetEvent::kCurrentChanged);
  key('a', kKeyCtrl);
  EXPECT_EQ(shots.getNumTagged(), 6);
}

TEST_F(TableWidgetTest, EscapeClearsEveryTagAtOnceAndWithNoneIsLeftToTheWindow) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(0, 1)));
  HeadlessInput::click(cellPoint(XY<int>(0, 4)), kMouseLeft, kKeyShift);
  ASSERT_EQ(shots.tags.size(), 4u);
  EXPECT_EQ(table->handleKeyboardEvent(kKeyEscape), 1);
  EXPECT_TRUE(shots.tags.empty());
  EXPECT_EQ(events.back().type, TableWidgetEvent::kTagsChanged);
  EXPECT_EQ(table->handleKeyboardEvent(kKeyEscape), 0) << "nothing tagged: the window may close on it";
  HeadlessInput::click(cellPoint(XY<int>(0, 2)), kMouseLeft, kKeyShift);
  EXPECT_EQ(shots.tags, (std::set<std::int64_t>{2, 3, 4})) << "a new range runs from the current row";
}

TEST_F(TableWidgetTest, ShiftArrowsTagRowsFromWhereTheyStarted) {
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(0, 2)));
  key(kKeyDown, kKeyShift);
  key(kKeyDown, kKeyShift);
  EXPECT_EQ(shots.tags, (std::set<std::int64_t>{2, 3, 4}));
}

TEST_F(TableWidgetTest, AClickOnATitleSortsAndTheCurrentRowFollowsItsData) {
  openTable(&shots);
  table->setCurPos(XY<int>(0, 0)); // "Shot 1", length 1
  XY<int> const lengthTitle =
      HeadlessInput::pointOn(*table->getHeader(), XY<int>(table->columnLeft(3) + table->getColumnWidth(3) / 2,
                                                          table->getHeader()->height() / 2));
  HeadlessInput::click(lengthTitle);
  EXPECT_EQ(table->getSortColumn(), 3);
  EXPECT_TRUE(table->isSortAscending());
  EXPECT_EQ(events.back().type, TableWidgetEvent::kSorted);
  EXPECT_EQ(cell(3, 0), L"1");
  EXPECT_EQ(shots.getRowID(table->getCurPos().y), 0);
  HeadlessInput::click(lengthTitle);
  EXPECT_FALSE(table->isSortAscending());
  EXPECT_EQ(cell(3, 0), L"9") << "the model sorts text as text";
  EXPECT_EQ(shots.getRowID(table->getCurPos().y), 0);
}

TEST_F(TableWidgetTest, AModelThatCannotSortLeavesTheOrderAlone) {
  shots.canSort = false;
  openTable(&shots);
  EXPECT_FALSE(table->sortBy(0, false));
  EXPECT_EQ(table->getSortColumn(), -1);
  EXPECT_EQ(cell(0, 0), L"Shot 1");
}

TEST_F(TableWidgetTest, DraggingAColumnEdgeWidensItAndStopsAtItsLeastWidth) {
  openTable(&shots);
  Glob& header = *table->getHeader();
  int const y = header.height() / 2;
  int const edge = table->columnLeft(2) + table->getColumnWidth(2);
  HeadlessInput::drag(HeadlessInput::pointOn(header, XY<int>(edge, y)),
                      HeadlessInput::pointOn(header, XY<int>(edge + 30, y)));
  EXPECT_EQ(table->getColumnWidth(2), 140);
  EXPECT_EQ(events.back().type, TableWidgetEvent::kColumnResized);
  int const least = table->getColumn(2).calcMinWidth();
  int const now = table->columnLeft(2) + table->getColumnWidth(2);
  HeadlessInput::drag(HeadlessInput::pointOn(header, XY<int>(now, y)),
                      HeadlessInput::pointOn(header, XY<int>(now - 300, y)));
  EXPECT_EQ(table->getColumnWidth(2), least);
  EXPECT_GT(least, 0);
}

TEST_F(TableWidgetTest, ATitleDroppedOnAnotherAsksTheModelToSwapThem) {
  openTable(&shots);
  Glob& header = *table->getHeader();
  int const y = header.height() / 2;
  HeadlessInput::drag(HeadlessInput::pointOn(header, XY<int>(table->columnLeft(1) + 20, y)),
                      HeadlessInput::pointOn(header, XY<int>(table->columnLeft(3) + 20, y)));
  EXPECT_EQ(shots.swaps, (std::vector<std::pair<int, int>>{{1, 3}}));
  EXPECT_EQ(table->getSortColumn(), -1) << "a drag is not a click";
}

TEST_F(TableWidgetTest, RowsOfTheirOwnHeightAreLaidOutAndHitByTheirHeights) {
  int const row = UifStd::getRowHeight();
  shots.heights = {{1, row * 3}, {4, row * 2}};
  openTable(&shots, 0, 8);
  EXPECT_EQ(table->getCellBox(XY<int>(0, 1)).height(), row * 3);
  EXPECT_EQ(table->getCellBox(XY<int>(0, 2)).height(), row);
  EXPECT_EQ(table->getCellBox(XY<int>(0, 0)).y0, table->getCellBox(XY<int>(0, 1)).y1);
  Zo::Box<int> const tall = table->getCellBox(XY<int>(0, 1));
  HeadlessInput::click(HeadlessInput::pointOn(*table, XY<int>(tall.x0 + 5, tall.y0 + 3)));
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 1)) << "the bottom of the tall row is still that row";
  EXPECT_EQ(table->getRowGlob(1)->height(), row * 3);
  EXPECT_TRUE(table->getScrollBar()->isVisible()) << "the rows are 9 lines high in a view of 8";
}

TEST_F(TableWidgetTest, DownFromTheLastRowAsksTheModelForANewRow) {
  shots.canAddRows = true;
  openTable(&shots);
  HeadlessInput::click(cellPoint(XY<int>(0, 4)));
  key(kKeyDown);
  EXPECT_EQ(table->rowCount(), 6);
  key(kKeyDown);
  EXPECT_EQ(table->rowCount(), 7);
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 6));
  shots.canAddRows = false;
  key(kKeyDown);
  EXPECT_EQ(table->rowCount(), 7);
}

TEST_F(TableWidgetTest, SetCurPosCanPutTheRowAtTheBottomAndCanStayQuiet) {
  ShotsTableAdaptor& many = makeModel<ShotsTableAdaptor>(40);
  openTable(&many, 0, 5);
  table->setCurPos(XY<int>(0, 30), TableWidget::kRowAtBottom | TableWidget::kQuiet);
  EXPECT_EQ(table->getLastVisibleIndex(), 30);
  EXPECT_EQ(table->getFirstVisibleIndex(), 26);
  EXPECT_TRUE(events.empty());
  table->setCurPos(XY<int>(0, 2), TableWidget::kShowCell);
  EXPECT_EQ(table->getFirstVisibleIndex(), 2);
  ASSERT_EQ(events.size(), 1u);
}

TEST_F(TableWidgetTest, SetCurPosPastTheEndAsksTheModelForItsNewSize) {
  openTable(&shots);
  shots.shots.push_back(ShotsTableAdaptor::Shot{99, {L"Late", L"", L"", L""}});
  table->setCurPos(XY<int>(0, 6), TableWidget::kShowCell);
  EXPECT_EQ(table->rowCount(), 7);
  EXPECT_EQ(table->getCurPos(), XY<int>(0, 6));
}

TEST_F(TableWidgetTest, ARefreshKeepsTheCurrentRowByItsId) {
  openTable(&shots);
  table->setCurPos(XY<int>(1, 3));
  shots.shots.erase(shots.shots.begin()); // everything moves up one
  table->refresh();
  EXPECT_EQ(table->getCurPos(), XY<int>(1, 2));
  EXPECT_EQ(shots.getRowID(2), 3);
}

TEST_F(TableWidgetTest, ReadsAreHeldInsideTheModelsLock) {
  openTable(&shots);
  HeadlessScreenTest::pump();
  Canvas::paintAllPending();
  EXPECT_GT(shots.locks, 0);
  EXPECT_EQ(shots.locks, shots.unlocks);
}

// Counts how often the table asks for row heights.
class HeightCounting : public MillionRows {
public:
  long asked = 0;
  std::uint16_t getRowHeight(unsigned int) override {
    ++asked;
    return 0;
  }
};

TEST_F(TableWidgetTest, RowHeightsAreAskedOnlyAsFarAsTheViewHasReached) {
  HeightCounting& model = makeModel<HeightCounting>();
  openTable(&model, TableWidget::kShowTitles, 12);
  HeadlessScreenTest::pump();
  Canvas::paintAllPending();
  EXPECT_GE(model.asked, 12);
  EXPECT_LE(model.asked, 200) << "a screenful and a little more";
  EXPECT_TRUE(table->getScrollBar()->isVisible());
  HeadlessInput::click(cellPoint(XY<int>(1, 0)));
  key(kKeyEnd, kKeyCtrl);
  EXPECT_EQ(model.asked, 1'000'000) << "the end is found by asking every row, once";
  EXPECT_EQ(table->getLastVisibleIndex(), 999'999);
}

// Rows past the first screen are twice as tall: the total grows as they are
// asked, and the end of the rows is still reached.
class TallerFurtherDown : public ShotsTableAdaptor {
public:
  TallerFurtherDown() : ShotsTableAdaptor(200) {}
  std::uint16_t getRowHeight(unsigned int row) override {
    return row >= 20 ? static_cast<std::uint16_t>(UifStd::getRowHeight() * 2) : 0;
  }
};

TEST_F(TableWidgetTest, RowsTallerThanGuessedStillScrollToTheirEnd) {
  TallerFurtherDown& model = makeModel<TallerFurtherDown>();
  openTable(&model, 0, 5);
  table->setScrollOffset(INT_MAX);
  EXPECT_EQ(table->getLastVisibleIndex(), 199);
  int const line = UifStd::getRowHeight();
  EXPECT_EQ(table->getRowOffsets().total(), 20 * line + 180 * 2 * line);
  EXPECT_EQ(table->getScrollOffset(), table->getRowOffsets().total() - table->getVisibleBox().height());
}

TEST_F(TableWidgetTest, AMillionRowsMakeWidgetsOnlyForTheRowsInSightAndTheEditedCell) {
  MillionRows& model = makeModel<MillionRows>();
  openTable(&model, TableWidget::kShowTitles, 12);
  EXPECT_EQ(table->rowCount(), 1'000'000);
  EXPECT_LE(table->liveRowCount(), table->numLines() + 1);
  key(kKeyEnd, kKeyCtrl);
  HeadlessInput::click(cellPoint(XY<int>(1, 0)));
  key(kKeyEnd, kKeyCtrl);
  EXPECT_EQ(table->getCurPos(), XY<int>(1, 999'999));
  EXPECT_EQ(table->getLastVisibleIndex(), 999'999);
  EXPECT_LE(table->liveRowCount(), table->numLines() + 1);
  key(kKeyReturn);
  ASSERT_TRUE(table->isEditing());
  int widgets = 0;
  for (Glob* child : table->getChildren())
    widgets += dynamic_cast<TextBox*>(child) ? 1 : 0;
  EXPECT_EQ(widgets, 1) << "one editor for the one cell being edited";
  EXPECT_LE(table->liveRowCount(), table->numLines() + 1);
}

TEST_F(TableWidgetTest, TheEditorFollowsAScrollAndHidesWhenItsCellLeavesSight) {
  ShotsTableAdaptor& many = makeModel<ShotsTableAdaptor>(40);
  openTable(&many, TableWidget::kShowTitles, 5);
  ASSERT_TRUE(table->beginEdit(XY<int>(0, 1)));
  Glob* box = table->getEditWidget();
  EXPECT_TRUE(box->isVisible());
  int const before = box->getY();
  table->setScrollOffset(UifStd::getRowHeight());
  EXPECT_TRUE(box->isVisible());
  EXPECT_EQ(box->getY(), before + UifStd::getRowHeight()) << "it moves up with its row";
  table->setScrollOffset(UifStd::getRowHeight() * 10);
  EXPECT_FALSE(box->isVisible());
  EXPECT_TRUE(table->isEditing()) << "the edit stays open while scrolled away";
  table->setScrollOffset(0);
  EXPECT_TRUE(box->isVisible());
}

// A model whose second column is HTML with a link.
class LinkedNotes : public ShotsTableAdaptor {
public:
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data = ShotsTableAdaptor::getCellData(pos, palette);
    if (pos.x == 0) {
      data.fieldType = DBFieldTypes::kHTMLString;
      data.text = UIString(L"<a href=\"notes/shot.html\">Notes for this shot, a long link</a>");
    }
    return data;
  }
};

// A panel that keeps the messages its children send it.
class MessageKeeper : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  std::vector<std::string> messages;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    messages.push_back(message.str());
    return StandardPanel::handleMessageEvent(message, sender);
  }
};

TEST_F(TableWidgetTest, AClickOnALinkInAnHTMLCellTellsTheTablesParent) {
  LinkedNotes& notes = makeModel<LinkedNotes>();
  StandardPanel* top = openPanel(XY<int>(500, 200));
  StandardPanel::InitArgs keeperArgs(XY<int>(480, 180));
  keeperArgs.setBorder(Border());
  auto* keeper = top->createWidget<MessageKeeper>(keeperArgs, Glob::UserTopLeft(0, 0));
  TableWidget::InitArgs args(XY<int>(460, TableWidget::calcHeight(4)));
  args.adaptor = &notes;
  args.setBorder(Border());
  table = keeper->createWidget<TableWidget>(args, Glob::UserTopLeft(0, 0));
  Zo::Box<int> const box = table->getCellBox(XY<int>(0, 1));
  int const margin = TableColumnDescription::textMargin();
  HeadlessInput::click(HeadlessInput::pointOn(*table, XY<int>(box.x0 + margin + 8, (box.y0 + box.y1) / 2)));
  ASSERT_EQ(keeper->messages.size(), 1u);
  EXPECT_EQ(keeper->messages[0], std::string(HTMLStringEditor::kLinkClickedMsg) + "=notes/shot.html");
  EXPECT_FALSE(table->isEditing()) << "an HTML cell is never edited";
  EXPECT_EQ(table->contextCursor(XY<int>(box.x0 + margin + 8, (box.y0 + box.y1) / 2)), kCursorHand);
  EXPECT_EQ(table->contextCursor(XY<int>(box.x1 - 3, (box.y0 + box.y1) / 2)), kCursorArrow);
}

// A model that shows a widget in its last column.
class WidgetInCells : public ShotsTableAdaptor {
public:
  int made = 0;
  Glob* createCustomWidget(XY<int> const& cell, XY<int> size) override {
    if (cell.x != 3)
      return nullptr;
    ++made;
    return new Glob(GlobCreationInfo(size));
  }
};

TEST_F(TableWidgetTest, CustomCellWidgetsAreMadeForRowsInSightAndPlacedInTheirCells) {
  WidgetInCells& model = makeModel<WidgetInCells>();
  model.shots = ShotsTableAdaptor(40).shots;
  openTable(&model, 0, 5);
  EXPECT_EQ(model.made, table->liveRowCount());
  Glob* row = table->getRowGlob(0);
  ASSERT_EQ(row->getChildren().size(), 1u);
  EXPECT_EQ(row->getChildren()[0]->getX(), table->columnLeft(3));
  EXPECT_EQ(row->getChildren()[0]->width(), table->getColumnWidth(3));
  table->setColumnWidth(3, 90);
  EXPECT_EQ(row->getChildren()[0]->width(), 90) << "a resized column takes its widgets along";
}

// An editor of its own for a field type, counting what the table asks.
class CountingEditor : public WStringEditor {
public:
  int drawn = 0;
  void drawField(CellContext& context, CellData const& data) override {
    ++drawn;
    WStringEditor::drawField(context, data);
  }
};

class TypedCells : public ShotsTableAdaptor {
public:
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data = ShotsTableAdaptor::getCellData(pos, palette);
    data.fieldType = pos.x == 2 ? 117 : DBFieldTypes::kWString;
    return data;
  }
};

TEST_F(TableWidgetTest, EditorsRegisteredForAFieldTypeDrawAndEditItsCells) {
  TypedCells& model = makeModel<TypedCells>();
  openTable(&model);
  auto editor = std::make_unique<CountingEditor>();
  CountingEditor* counting = editor.get();
  table->registerEditor(117, std::move(editor));
  EXPECT_EQ(&table->editorFor(117), counting);
  HeadlessScreenTest::pump();
  Canvas::paintAllPending();
  EXPECT_EQ(counting->drawn, table->liveRowCount()) << "one In cell per row in sight";
  EXPECT_EQ(table->liveRowCount(), 5);
  ASSERT_TRUE(table->beginEdit(XY<int>(2, 0)));
  EXPECT_TRUE(counting->hasFocus());
}

TEST_F(TableWidgetTest, TheLinesBetweenTitlesStandOverTheLinesBetweenCells) {
  openTable(&shots);
  pump();
  Glob* header = table->getHeader();
  ASSERT_NE(header, nullptr);
  // Screen rows a pixel inside the header's top and the first row's top,
  // clear of any text.
  int const headerY = header->screenPosition().y + header->height() - 3;
  Zo::Box<int> const firstCell = table->getCellBox(XY<int>(1, 0));
  int const rowY = table->screenPosition().y + firstCell.y1 - 3;
  for (int column = 1; column < table->numColumns(); ++column) {
    int const boundary = table->screenPosition().x + table->getCellBox(XY<int>(column, 0)).x0;
    // The line is the one pixel near the boundary unlike the ground beside it.
    auto lineAt = [&](int y) {
      std::uint32_t const ground = screenPixel(XY<int>(boundary + 4, y));
      for (int x = boundary - 3; x <= boundary + 3; ++x)
        if (screenPixel(XY<int>(x, y)) != ground)
          return x;
      return INT_MIN;
    };
    int const inHeader = lineAt(headerY);
    ASSERT_NE(inHeader, INT_MIN) << "column " << column;
    EXPECT_EQ(inHeader, lineAt(rowY)) << "column " << column;
    EXPECT_EQ(inHeader, boundary) << "column " << column;
  }
}

} // namespace
