#include "CommandPages.h"
#include "GalleryModel.h"
#include "GalleryPage.h"
#include "HeadlessGallery.h"
#include "HtmlIndex.h"
#include "Launcher.h"
#include "PageWindows.h"

#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/editor/AngleIndicatorWidget.h>
#include <zowidgets/editor/TrackButton.h>
#include <zowidgets/export/CompressionWidget.h>
#include <zowidgets/hints/HintWindow.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/CycleButton.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/panels/Splitter.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>
#include <zowidgets/host/widgets/values/Slider.h>
#include <zowidgets/images/ImageRegionSelectionView.h>
#include <zowidgets/textentry/DropDownSearchPanel.h>
#include <zowidgets/textentry/IPAddressEntryBox.h>
#include <zowidgets/textentry/LoginPanel.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

// The descendants of a widget that are of type T, depth first.
template <class T> void collect(Glob& widget, std::vector<T*>& found) {
  if (auto* match = dynamic_cast<T*>(&widget))
    found.push_back(match);
  for (Glob* child : widget.getChildren())
    collect(*child, found);
}

struct GalleryTest : ::testing::Test {
  // The pointer starts at the same place in every test: windows that open
  // at the pointer (the magnifier's) depend on it.
  void SetUp() override {
    useHeadlessScreen();
    HeadlessInput::moveTo(XY<int>(0, 0));
  }
  void TearDown() override {
    for (Glob* window : GlobManager::topLevelWindows())
      GlobManager::requestDeletion(window);
    settleWindows();
    UifStd::setScale(1.0);
  }

  static GalleryPage const* findPage(std::vector<GalleryPage> const& pages, std::string const& name) {
    auto found = std::find_if(pages.begin(), pages.end(), [&](GalleryPage const& page) { return page.name == name; });
    return found == pages.end() ? nullptr : &*found;
  }

  // The main window of the named page, opened (again at each call).
  Glob& openedPage(std::string const& name) {
    std::vector<GalleryPage> const pages = allPages();
    return *openPage(*findPage(pages, name), context).main;
  }
  // The widgets of type T under `root`.
  template <class T> static std::vector<T*> widgetsIn(Glob& root) {
    std::vector<T*> found;
    collect(root, found);
    return found;
  }
  // The widgets of type T in the main window of the named page, opened.
  template <class T> std::vector<T*> widgetsOfPage(std::string const& name) { return widgetsIn<T>(openedPage(name)); }

  GalleryModel model;
  PageContext context{model, XY<int>(40, 300)};
};

TEST(GalleryHtml, EscapesEveryMarkupCharacter) {
  EXPECT_EQ(escapeHtml("<a href=\"x\">Tom & Jerry's</a>"),
            "&lt;a href=&quot;x&quot;&gt;Tom &amp; Jerry&#39;s&lt;/a&gt;");
  EXPECT_EQ(escapeHtml("plain text"), "plain text");
}

TEST(GalleryCommands, CommandNamesBecomeFileSafe) {
  EXPECT_EQ(fileSafeName("view.zoom-in_2"), "view.zoom-in_2");
  EXPECT_EQ(fileSafeName("file/open as<x>"), "file_open_as_x_");
}

TEST_F(GalleryTest, EveryWidgetFamilyHasARegisteredPage) {
  std::vector<GalleryPage> const pages = allPages();
  for (char const* name :
       {"buttons", "menus",  "menus-open", "text-entry", "values",  "groups",     "scrolling", "standard-panel",
        "icons",   "hints",  "commands",   "dialogues",  "editor",  "backbuffer", "tutorials", "forms",
        "export",  "logger", "images",     "files",      "startup", "table",      "messages",  "gauges"})
    EXPECT_NE(findPage(pages, name), nullptr) << name;
}

TEST_F(GalleryTest, ThePagesComeInTheOrderOfTheirTitlesThenTheCommands) {
  std::vector<GalleryPage> const pages = allPages();
  auto const commands =
      std::find_if(pages.begin(), pages.end(), [](GalleryPage const& page) { return page.name == "commands"; });
  ASSERT_NE(commands, pages.end());
  auto folded = [](std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
  };
  for (auto page = pages.begin(); page + 1 < commands; ++page)
    EXPECT_LE(folded(page->title), folded((page + 1)->title)) << page->title << " before " << (page + 1)->title;
}

TEST_F(GalleryTest, EveryPageOpensAWindowAndScalesWithTheInterface) {
  for (GalleryPage const& page : allPages()) {
    PageWindows const small = openPage(page, context);
    ASSERT_NE(small.main, nullptr) << page.name;
    int const smallWidth = capturePage(small).width();
    closePage(small);
    UifStd::setScale(2.0);
    PageWindows const large = openPage(page, context);
    ASSERT_NE(large.main, nullptr) << page.name;
    EXPECT_GT(capturePage(large).width(), smallWidth * 3 / 2) << page.name;
    closePage(large);
    UifStd::setScale(1.0);
    EXPECT_TRUE(GlobManager::topLevelWindows().empty()) << page.name << " left a window open";
  }
}

TEST_F(GalleryTest, TheOpenMenuPageCapturesThePanelAndItsMenu) {
  std::vector<GalleryPage> const pages = allPages();
  PageWindows const windows = openPage(*findPage(pages, "menus-open"), context);
  ASSERT_EQ(windows.all.size(), 2u);
  Glob* menu = windows.all[0] == windows.main ? windows.all[1] : windows.all[0];
  EXPECT_STREQ(menu->idstring(), "MenuWindow");
  Zo::Image::Surface const picture = capturePage(windows);
  EXPECT_GT(picture.height(), windows.main->height());
  EXPECT_GE(picture.width(), windows.main->width());
}

TEST_F(GalleryTest, TheHintsPageShowsItsHintRightOfTheExportButton) {
  std::vector<GalleryPage> const pages = allPages();
  PageWindows const windows = openPage(*findPage(pages, "hints"), context);
  HintWindow* hint = HintWindow::showing();
  ASSERT_NE(hint, nullptr);
  EXPECT_EQ(windows.all.size(), 2u);
  auto* button = dynamic_cast<PushButton*>(hint->getSibling());
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->getLabel(), L"Export");
  EXPECT_EQ(hint->getTopLevel(), windows.main);
  EXPECT_GT(hint->screenPosition().x, button->screenPosition().x + button->width() - 1);
  EXPECT_NE(hint->getLinkButton(), nullptr);
}

TEST_F(GalleryTest, TheTablePagesTimecodesLieBeyondTheViewAndEndBringsThemIn) {
  std::vector<TableWidget*> const tables = widgetsOfPage<TableWidget>("table");
  ASSERT_EQ(tables.size(), 1u);
  TableWidget& table = *tables[0];
  ASSERT_TRUE(table.sideways().isBarShown());
  EXPECT_GT(table.columnsWidth(), table.getVisibleBox().width());
  EXPECT_EQ(table.sideways().offset(), 0);
  int const last = table.numColumns() - 1;
  EXPECT_GT(table.columnLeft(last), table.getVisibleBox().width()) << "the notes start out of sight";
  HeadlessInput::key(kKeyEnd);
  settleWindows();
  EXPECT_EQ(table.getCurPos().x, last);
  EXPECT_EQ(table.columnLeft(last) + table.getColumnWidth(last), table.getVisibleBox().width());
}

TEST_F(GalleryTest, TheEditListsRecordColumnHoldsItsLongestTimecode) {
  std::vector<TableWidget*> const tables = widgetsOfPage<TableWidget>("table");
  ASSERT_EQ(tables.size(), 1u);
  TableWidget& table = *tables[0];
  int const record = 5;
  int const last = table.getAdaptor()->getSize() - 1;
  Palette const palette;
  LightweightString<wchar_t> const longest =
      table.getAdaptor()->getCellData(XY<int>(record, last), palette).text.getString();
  EXPECT_EQ(longest.size(), 11u) << "hours wrap at 24, as on a tape: two digits past eighty hours of events";
  EXPECT_GE(table.getColumnWidth(record), TableColumnDescription::calcSizeFor(longest));
}

TEST_F(GalleryTest, TheEditListsColumnsGrowWithTheInterface) {
  std::vector<int> small;
  for (TableWidget* table : widgetsOfPage<TableWidget>("table"))
    for (int column = 0; column < table->numColumns(); ++column)
      small.push_back(table->getColumnWidth(column));
  UifStd::setScale(2.0);
  std::vector<int> large;
  for (TableWidget* table : widgetsOfPage<TableWidget>("table"))
    for (int column = 0; column < table->numColumns(); ++column)
      large.push_back(table->getColumnWidth(column));
  ASSERT_EQ(large.size(), small.size());
  ASSERT_FALSE(small.empty());
  for (std::size_t column = 0; column < small.size(); ++column)
    EXPECT_GE(large[column], small[column] * 3 / 2) << "column " << column;
}

TEST_F(GalleryTest, TheImagesPagesRegionIsInThePicturesPixelsAtAnyScale) {
  auto regionText = [this] {
    for (TextLabel* label : widgetsOfPage<TextLabel>("images"))
      if (label->getString().getString().str().starts_with(L"Region "))
        return label->getString().getString().str();
    return std::wstring();
  };
  std::wstring const small = regionText();
  ASSERT_FALSE(small.empty());
  UifStd::setScale(2.0);
  EXPECT_EQ(regionText(), small);
}

TEST_F(GalleryTest, TheEditListKeepsOnlyTimecodesInItsTimecodeColumnsAndSaysWhy) {
  Glob& page = openedPage("table");
  std::vector<TableWidget*> const tables = widgetsIn<TableWidget>(page);
  ASSERT_EQ(tables.size(), 1u);
  TableWidget& table = *tables[0];
  std::vector<TextLabel*> const labels = widgetsIn<TextLabel>(page);
  ASSERT_EQ(labels.size(), 1u);
  iTableAdaptor& events = *table.getAdaptor();
  Palette const palette;
  XY<int> const sourceIn(3, 1);
  auto cell = [&] { return events.getCellData(sourceIn, palette).text.getString().str(); };
  std::wstring const before = cell();
  ASSERT_EQ(before.size(), 11u);
  table.setCurPos(sourceIn, TableWidget::kShowCell);
  HeadlessInput::typeText("later");
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  EXPECT_EQ(cell(), before) << "not a timecode: the cell keeps its own";
  EXPECT_EQ(labels[0]->getString().getString().str(),
            L"\u201clater\u201d is not a timecode: hh:mm:ss:ff, frames 00 to 24");
  HeadlessInput::typeText("10:00:05:25");
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  EXPECT_EQ(cell(), before) << "a 25th frame is past the last of a second";
  HeadlessInput::typeText("10:00:05:12");
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  EXPECT_EQ(cell(), L"10:00:05:12");
  EXPECT_EQ(labels[0]->getString().getString().str(), L"Stored row 2");
  // The edit list outlives the page: put the cell back for other tests.
  HeadlessInput::typeText(LightweightString<wchar_t>(before.c_str()).toUTF8().str());
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  EXPECT_EQ(cell(), before);
}

TEST_F(GalleryTest, TheEditorPagesAngleReadingIsOneNumberPerDirectionAndShowsWhole) {
  Glob& page = openedPage("editor");
  std::vector<AngleControl*> const dials = widgetsIn<AngleControl>(page);
  ASSERT_EQ(dials.size(), 1u);
  TextLabel* reading = nullptr;
  for (TextLabel* label : widgetsIn<TextLabel>(page))
    if (label->getString().getString().str().rfind(L"Angle ", 0) == 0)
      reading = label;
  ASSERT_NE(reading, nullptr);
  dials[0]->setAngle(AngleIndicatorWidget::kDragMove, -177.0);
  EXPECT_EQ(reading->getString().getString().str(), L"Angle 183\u00b0") << "the same direction as 183";
  dials[0]->setAngle(AngleIndicatorWidget::kDragMove, -8.0);
  EXPECT_EQ(reading->getString().getString().str(), L"Angle 352\u00b0");
  EXPECT_GE(reading->width(), TextLabel::calcWidth(UIString(L"Angle 359\u00b0"))) << "the widest reading shows whole";
}

TEST_F(GalleryTest, TheEditorPagesTracksCannotBeResizedOutOfSight) {
  Glob& page = openedPage("editor");
  std::vector<TrackButton*> const tracks = widgetsIn<TrackButton>(page);
  ASSERT_EQ(tracks.size(), 4u);
  TrackButton& v1 = *tracks[1];
  Glob const& head = *v1.parent();
  XY<int> const edge = HeadlessInput::pointOn(v1, XY<int>(v1.width() / 2, 1));
  HeadlessInput::drag(edge, edge - XY<int>(0, 400)); // down: screen y runs upwards
  settleWindows();
  EXPECT_GT(v1.height(), UifStd::getRowHeight()) << "the track grew";
  for (TrackButton const* track : tracks)
    EXPECT_GE(track->getY(), 0) << "every track stays inside the head, " << track->getDisplayString().str();
  EXPECT_LE(tracks.front()->getY() + tracks.front()->height(), head.height());
}

TEST_F(GalleryTest, TheEditListSortsNamesWithNumbersAsPeopleReadThem) {
  std::vector<TableWidget*> const tables = widgetsOfPage<TableWidget>("table");
  ASSERT_EQ(tables.size(), 1u);
  TableWidget& table = *tables[0];
  iTableAdaptor& events = *table.getAdaptor();
  int const reel = 2;
  ASSERT_TRUE(table.sortBy(reel, true));
  Palette const palette;
  std::vector<std::wstring> order;
  for (int row = 0; row < events.getSize(); ++row) {
    std::wstring const name = events.getCellData(XY<int>(reel, row), palette).text.getString().str();
    if (!name.empty() && (order.empty() || order.back() != name))
      order.push_back(name);
  }
  // The edit list outlives the page: back in event order for other tests.
  table.sortBy(0, true);
  ASSERT_EQ(order.size(), 12u);
  EXPECT_EQ(order[1], L"Reel 2");
  EXPECT_EQ(order[9], L"Reel 10");
  EXPECT_EQ(order[11], L"Reel 12");
}

TEST_F(GalleryTest, TheSearchPagesDropDownButtonLiesWithinThePanel) {
  std::vector<DropDownSearchPanelButton*> const buttons = widgetsOfPage<DropDownSearchPanelButton>("search");
  ASSERT_EQ(buttons.size(), 1u);
  auto const* panel = dynamic_cast<StandardPanel const*>(buttons[0]->parent());
  ASSERT_NE(panel, nullptr);
  EXPECT_LE(buttons[0]->getX() + buttons[0]->width(), panel->getUserArea().x1);
}

TEST_F(GalleryTest, TheInspectorPagesHighlightLiesOverTheInspectedButton) {
  std::vector<GalleryPage> const pages = allPages();
  PageWindows const windows = openPage(*findPage(pages, "globprobe"), context);
  std::vector<Button*> buttons;
  collect(*windows.main, buttons);
  Button* render = nullptr;
  for (Button* button : buttons)
    if (button->getLabel().str() == L"Render")
      render = button;
  ASSERT_NE(render, nullptr);
  Glob* band = windows.main->getChildren().back();
  ASSERT_TRUE(is_good_glob_ptr(band, "SelectionRectangle"));
  EXPECT_EQ(band->screenPosition(), render->screenPosition());
  EXPECT_EQ(band->getSize(), render->getSize());
  // Nothing of it is left where it was first put: the panel's bottom-left
  // corner shows the panel's own colour.
  XY<int> const corner = windows.main->screenPosition() + XY<int>(12, 8);
  Zo::Image::Surface const shown = headlessScreen().grab(Zo::Box<int>(corner.x, corner.y, corner.x + 1, corner.y + 1));
  Zo::Image::Surface const inside =
      headlessScreen().grab(Zo::Box<int>(corner.x, corner.y + 40, corner.x + 1, corner.y + 41));
  EXPECT_EQ(shown.pixel(0, 0), inside.pixel(0, 0));
}

TEST_F(GalleryTest, TheTutorialsPageNamesAScreenCornerInWords) {
  std::vector<TreeView*> const trees = widgetsOfPage<TreeView>("tutorials");
  ASSERT_EQ(trees.size(), 1u);
  int const row = trees[0]->rowOf(L"phases/2/message");
  ASSERT_GE(row, 0);
  EXPECT_EQ(trees[0]->itemAt(row)->text.getString().str(),
            L"Message \u201CDone: the gap closed by itself\u201D at the screen's bottom right");
}

TEST_F(GalleryTest, TheTutorialsPagesTreeTakesTheKeysFromTheStart) {
  std::vector<TreeView*> const trees = widgetsOfPage<TreeView>("tutorials");
  ASSERT_EQ(trees.size(), 1u);
  EXPECT_EQ(get_kbd_focus(), trees[0]);
}

TEST_F(GalleryTest, BoxesBoundToOneValueFollowEachOtherWhenClicked) {
  std::vector<Checkbox*> const boxes = widgetsOfPage<Checkbox>("buttons");
  ASSERT_GE(boxes.size(), 2u);
  ASSERT_TRUE(boxes[0]->isChecked());
  ASSERT_TRUE(boxes[1]->isChecked());
  HeadlessInput::clickOn(*boxes[0]);
  settleWindows();
  EXPECT_FALSE(model.loop.get());
  EXPECT_FALSE(boxes[1]->isChecked());
}

TEST_F(GalleryTest, PatchesTheBandPicksShowThatTheyArePicked) {
  std::vector<GalleryPage> const pages = allPages();
  PageWindows const windows = openPage(*findPage(pages, "tabs"), context);
  std::vector<TabbedDialogue*> tabs;
  collect(*windows.main, tabs);
  ASSERT_EQ(tabs.size(), 1u);
  tabs[0]->setCurrentTab(2); // "Select"
  settleWindows();
  std::vector<ColourSwatch*> patches;
  collect(*windows.main, patches);
  ASSERT_EQ(patches.size(), 6u);
  Colour const selection = patches[0]->getPalette().selection();
  auto edgeIsSelection = [&selection](Glob const& patch) {
    XY<int> const at = patch.screenPosition();
    Zo::Image::Surface const shown = headlessScreen().grab(Zo::Box<int>(at.x, at.y, at.x + 1, at.y + patch.height()));
    std::uint32_t const pixel = shown.pixel(0, patch.height() / 2);
    auto channel = [](double value) { return static_cast<std::uint32_t>(std::lround(value * 255)); };
    return ((pixel >> 16) & 0xff) == channel(selection.red()) && ((pixel >> 8) & 0xff) == channel(selection.green()) &&
           (pixel & 0xff) == channel(selection.blue());
  };
  EXPECT_FALSE(edgeIsSelection(*patches[0]));
  // A band from above the first patch's middle to the second's.
  XY<int> const from = HeadlessInput::pointOn(*patches[0], XY<int>(patches[0]->width() / 2, -2));
  XY<int> const to = HeadlessInput::pointOn(*patches[1], XY<int>(patches[1]->width() / 2, patches[1]->height() / 2));
  HeadlessInput::drag(from, to);
  settleWindows();
  EXPECT_TRUE(edgeIsSelection(*patches[0]));
  EXPECT_TRUE(edgeIsSelection(*patches[1]));
  EXPECT_FALSE(edgeIsSelection(*patches[2]));
}

TEST_F(GalleryTest, TheFirstTabIntoTheTabsPageReachesTheTabRowNotTheButtonBelow) {
  std::vector<TabbedDialogue*> const tabs = widgetsOfPage<TabbedDialogue>("tabs");
  ASSERT_EQ(tabs.size(), 1u);
  settleWindows();
  set_kbd_focus(nullptr);
  HeadlessInput::key(kKeyTab);
  settleWindows();
  Glob* const focus = get_kbd_focus();
  ASSERT_NE(focus, nullptr);
  EXPECT_TRUE(focus == tabs[0] || isParentedTo(focus, tabs[0])) << focus->idstring();
}

TEST_F(GalleryTest, APageClosedTakesTheWindowsItOpenedWithIt) {
  std::vector<GalleryPage> const pages = allPages();
  for (char const* name : {"globprobe", "startup"}) {
    std::vector<Glob*> const before = GlobManager::topLevelWindows();
    PageCompanions companions;
    Glob* main = companions.open(*findPage(pages, name), context);
    settleWindows();
    std::vector<Glob*> const opened = windowsOpenedSince(before);
    ASSERT_GT(opened.size(), 1u) << name << " opens more than its main window";
    GlobManager::requestDeletion(main);
    settleWindows();
    EXPECT_TRUE(windowsOpenedSince(before).empty()) << name;
  }
}

TEST_F(GalleryTest, AWindowOpenedLaterFromAPageClosesWithItAndIsNotOpenedTwice) {
  std::vector<GalleryPage> const pages = allPages();
  std::vector<Glob*> const before = GlobManager::topLevelWindows();
  PageCompanions companions;
  Glob* main = companions.open(*findPage(pages, "multiline"), context);
  settleWindows();
  std::vector<Button*> const edit = widgetsIn<Button>(*main);
  auto found = std::find_if(edit.begin(), edit.end(), [](Button* button) {
    return button->getLabel() == LightweightString<wchar_t>(L"Edit note");
  });
  ASSERT_NE(found, edit.end());
  HeadlessInput::clickOn(**found);
  settleWindows();
  ASSERT_EQ(windowsOpenedSince(before).size(), 2u) << "the page and its editor";
  HeadlessInput::clickOn(**found);
  settleWindows();
  EXPECT_EQ(windowsOpenedSince(before).size(), 2u) << "a second click raises the editor open already";
  EXPECT_EQ(GlobManager::topLevelWindows().back(), windowsOpenedSince(before).back());
  GlobManager::requestDeletion(main);
  settleWindows();
  EXPECT_TRUE(windowsOpenedSince(before).empty()) << "the editor closed with its page";
}

TEST_F(GalleryTest, AnnouncementsOpenedBesideAPageNearTheEdgeStayOnTheScreen) {
  std::vector<GalleryPage> const pages = allPages();
  XY<int> const screen = screenBackend().screenSize();
  PageContext nearEdge{model, XY<int>(screen.x - 8 * UifStd::getRowHeight(), 300)};
  PageWindows const windows = openPage(*findPage(pages, "startup"), nearEdge);
  ASSERT_GT(windows.all.size(), 1u);
  for (Glob* window : windows.all) {
    if (window == windows.main)
      continue;
    XY<int> const at = window->screenPosition();
    EXPECT_GE(at.x, 0);
    EXPECT_LE(at.x + window->width(), screen.x) << window->idstring();
  }
}

TEST_F(GalleryTest, TheStatusLineFollowsTheLoopSwitchAsWellAsItsBox) {
  Glob& page = openedPage("buttons");
  std::vector<Checkbox*> const boxes = widgetsIn<Checkbox>(page);
  std::vector<TextLabel*> const labels = widgetsIn<TextLabel>(page);
  ASSERT_GE(boxes.size(), 2u);
  auto statusReads = [&labels](wchar_t const* text) {
    return std::any_of(labels.begin(), labels.end(),
                       [text](TextLabel const* label) { return label->getString().getString().str() == text; });
  };
  HeadlessInput::clickOn(*boxes[1]); // the switch
  settleWindows();
  EXPECT_FALSE(model.loop.get());
  EXPECT_TRUE(statusReads(L"Loop off"));
  HeadlessInput::clickOn(*boxes[1]);
  settleWindows();
  EXPECT_TRUE(statusReads(L"Loop on"));
}

TEST_F(GalleryTest, TheStatusLineNamesTheCycleButtonsNewLabelAndFollowsSnap) {
  Glob& page = openedPage("buttons");
  std::vector<CycleButton*> const cycles = widgetsIn<CycleButton>(page);
  std::vector<Checkbox*> const boxes = widgetsIn<Checkbox>(page);
  std::vector<TextLabel*> const labels = widgetsIn<TextLabel>(page);
  ASSERT_EQ(cycles.size(), 1u);
  ASSERT_EQ(boxes.size(), 3u);
  auto statusReads = [&labels](wchar_t const* text) {
    return std::any_of(labels.begin(), labels.end(),
                       [text](TextLabel const* label) { return label->getString().getString().str() == text; });
  };
  HeadlessInput::clickOn(*cycles[0]); // from "Fit"
  settleWindows();
  EXPECT_TRUE(statusReads(L"Cycled on to Fill"));
  bool const snapped = boxes[2]->isChecked();
  HeadlessInput::clickOn(*boxes[2]);
  settleWindows();
  EXPECT_TRUE(statusReads(snapped ? L"Snap off" : L"Snap on"));
}

TEST_F(GalleryTest, TheSplittersStatusSaysFromWhichSideItsPositionCounts) {
  Glob& page = openedPage("splitters");
  std::vector<Splitter*> const bars = widgetsIn<Splitter>(page);
  std::vector<TextLabel*> const labels = widgetsIn<TextLabel>(page);
  auto statusEndsWith = [&labels](std::wstring const& end) {
    return std::any_of(labels.begin(), labels.end(), [&end](TextLabel const* label) {
      std::wstring const text = label->getString().getString().str();
      return text.size() > end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
    });
  };
  auto barOf = [&bars](Orientation orientation) {
    auto found = std::find_if(bars.begin(), bars.end(),
                              [orientation](Splitter const* bar) { return bar->getOrientation() == orientation; });
    return found == bars.end() ? nullptr : *found;
  };
  Splitter* stacked = barOf(kStacked);
  Splitter* sideBySide = barOf(kSideBySide);
  ASSERT_NE(stacked, nullptr);
  ASSERT_NE(sideBySide, nullptr);
  stacked->claimKbdFocus();
  HeadlessInput::key(kKeyDown);
  settleWindows();
  EXPECT_TRUE(statusEndsWith(L" from the bottom"));
  sideBySide->claimKbdFocus();
  HeadlessInput::key(kKeyRight);
  settleWindows();
  EXPECT_TRUE(statusEndsWith(L" from the left"));
}

TEST_F(GalleryTest, TheExportPagesOptionsScrollInsideItsWindow) {
  Glob& page = openedPage("export");
  std::vector<VerticalScrollingBase*> const scrollers = widgetsIn<VerticalScrollingBase>(page);
  std::vector<CompressionWidget*> const compression = widgetsIn<CompressionWidget>(page);
  ASSERT_EQ(scrollers.size(), 1u);
  ASSERT_EQ(compression.size(), 1u);
  VerticalScrollingBase& options = *scrollers.front();
  EXPECT_EQ(options.getWidgetsHeight(), compression.front()->height());
  auto screenBoxOf = [](Glob const& widget) {
    XY<int> const at = widget.screenPosition();
    return Zo::Box<int>(at.x, at.y, at.x + widget.width(), at.y + widget.height());
  };
  Zo::Box<int> const window = screenBoxOf(page);
  Zo::Box<int> const shown = screenBoxOf(options);
  EXPECT_GE(shown.y0, window.y0);
  EXPECT_LE(shown.y1, window.y1);
  // Whatever the encoder, its last option can be scrolled into the window.
  options.setScrollOffset(options.getWidgetsHeight());
  EXPECT_GE(screenBoxOf(*compression.front()).y0, screenBoxOf(*options.getView()).y0);
}

TEST_F(GalleryTest, TheCredentialsPageEnablesConnectAndRefusesALoginWithAnError) {
  std::vector<GalleryPage> const pages = allPages();
  PageWindows const windows = openPage(*findPage(pages, "credentials"), context);
  std::vector<PushButton*> buttons;
  collect(*windows.main, buttons);
  auto button = [&](wchar_t const* label) -> PushButton* {
    for (PushButton* found : buttons)
      if (found->getLabel().str() == label)
        return found;
    return nullptr;
  };
  PushButton* connect = button(L"Connect");
  PushButton* openLogin = button(L"Log in to share\u2026");
  ASSERT_NE(connect, nullptr);
  ASSERT_NE(openLogin, nullptr);
  EXPECT_FALSE(connect->isActive());
  settleWindows();
  // Drawn as it is: the inactive button's label is dimmer than the other's.
  auto brightest = [](Glob const& widget) {
    XY<int> const at = widget.screenPosition();
    Zo::Image::Surface const shown =
        headlessScreen().grab(Zo::Box<int>(at.x, at.y, at.x + widget.width(), at.y + widget.height()));
    std::uint32_t most = 0;
    for (int y = 0; y < shown.height(); ++y)
      for (int x = 0; x < shown.width(); ++x) {
        std::uint32_t const pixel = shown.pixel(x, y);
        most = std::max(most, ((pixel >> 16) & 0xff) + ((pixel >> 8) & 0xff) + (pixel & 0xff));
      }
    return most;
  };
  EXPECT_LT(brightest(*connect), brightest(*openLogin));
  // The focus starts in the first empty box, the password.
  HeadlessInput::typeText("pw");
  settleWindows();
  EXPECT_TRUE(connect->isActive());
  std::vector<TextLabel*> labels;
  collect(*windows.main, labels);
  auto statusStarts = [&labels](std::wstring const& start) {
    return std::any_of(labels.begin(), labels.end(), [&start](TextLabel const* label) {
      return label->getString().getString().str().starts_with(start);
    });
  };
  EXPECT_FALSE(statusStarts(L"Connecting"));
  HeadlessInput::key(kKeyReturn); // in the password box: connects as the button does
  settleWindows();
  EXPECT_TRUE(statusStarts(L"Connecting: editor at media.example.org"));

  HeadlessInput::clickOn(*openLogin);
  settleWindows();
  std::vector<Glob*> const opened = windowsOpenedSince(windows.all);
  ASSERT_EQ(opened.size(), 1u);
  auto* login = dynamic_cast<LoginPanel*>(opened[0]);
  ASSERT_NE(login, nullptr);
  HeadlessInput::typeText("ada");
  HeadlessInput::clickOn(*login->getPasswordBox());
  HeadlessInput::typeText("secret");
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  std::wstring const error = login->getErrorLabel()->getString().getString().str();
  EXPECT_NE(error.find(L"ada"), std::wstring::npos) << "refused with an error line";
  EXPECT_EQ(error.find(L"secret"), std::wstring::npos);
  GlobManager::requestDeletion(login);
  settleWindows();
  closePage(windows);
}

TEST_F(GalleryTest, ACommandPageRunsTheCommandAndCapturesTheWindowItOpens) {
  auto openDialog = [](Cmd::Context const&) {
    StandardPanel::InitArgs args(XY<int>(200, 120));
    args.screenPosition = XY<int>(700, 300);
    args.standardWidgets = StandardPanel::kTitle;
    args.title = L"Opened by the command";
    GlobManager::realize(new StandardPanel(args));
  };
  ASSERT_TRUE(CommandMap::registerCommand("gallery.test/open", openDialog, L"Open", L"Opens a dialogue",
                                          kCmdScopeApplication, MapItem{'o' | kKeyCtrl | kKeyShift}));
  std::vector<GalleryPage> const pages = allPages();
  GalleryPage const* page = findPage(pages, "command-gallery.test_open");
  ASSERT_NE(page, nullptr);
  EXPECT_EQ(page->description, "Opens a dialogue");

  PageWindows const windows = openPage(*page, context);
  ASSERT_EQ(windows.all.size(), 2u);
  Zo::Image::Surface const picture = capturePage(windows);
  // The picture spans the card and the dialogue, which lie far apart.
  EXPECT_GE(picture.width(), 700 + 200 - context.screenPosition.x);
  closePage(windows);
  EXPECT_TRUE(GlobManager::topLevelWindows().empty());

  PageWindows const list = openPage(*findPage(pages, "commands"), context);
  auto* scrolling = dynamic_cast<VerticalScrollingBase*>(list.main);
  ASSERT_NE(scrolling, nullptr);
  std::vector<TextLabel*> rows;
  collect(*scrolling->getView(), rows);
  ASSERT_EQ(rows.size(), CommandMap::commandNames().size());
  auto listed = std::find_if(rows.begin(), rows.end(), [](TextLabel* row) {
    return toNarrow(row->getString().getString()).starts_with("gallery.test/open");
  });
  ASSERT_NE(listed, rows.end());
  EXPECT_EQ(toNarrow((*listed)->getString().getString()), "gallery.test/open \u2014 Open (Ctrl+Shift+O)")
      << "the key by its name";
  double const lineHeight = Glib::TextLayout::fontMetrics(UifStd::getFont()).lineHeight;
  int wrapped = 0;
  for (TextLabel const* row : rows) {
    int const lines =
        Glib::TextLayout::countLines(row->getString().getString(), row->getFont(), row->textBox().width());
    wrapped += lines > 1;
    // A row for the first line, a line's height for each further one: no
    // gap inside an entry wider than the gap between entries.
    EXPECT_GE(row->textBox().height(), lines * lineHeight)
        << "every line of a long row shows: " << toNarrow(row->getString().getString());
    EXPECT_LE(row->height(), UifStd::getRowHeight() + (lines - 1) * std::ceil(lineHeight))
        << "and no more than its lines: " << toNarrow(row->getString().getString());
  }
  EXPECT_GT(wrapped, 0) << "some entries are long enough to wrap";
  EXPECT_TRUE(CommandMap::unregisterCommand("gallery.test/open"));
}

TEST_F(GalleryTest, FailingPagesAreReportedClosedAndLeftOutOfTheIndexPictures) {
  std::vector<GalleryPage> const registered = allPages();
  std::vector<GalleryPage> pages{*findPage(registered, "buttons")};
  pages.push_back({"throws", "Throws <after> opening", "", [](PageContext const& context) -> Glob* {
                     findPage(allPages(), "values")->build(context);
                     throw std::runtime_error("builder broke");
                   }});
  pages.push_back({"empty", "Opens nothing", "", [](PageContext const&) -> Glob* { return nullptr; }});
  std::filesystem::path const dir = std::filesystem::temp_directory_path() / "zogallery_failing_pages";
  std::filesystem::remove_all(dir);
  std::ostringstream progress;

  EXPECT_EQ(renderGallery(pages, model, dir, progress), 2);
  std::string const report = progress.str();
  EXPECT_NE(report.find("[1/3] Buttons ... ok"), std::string::npos) << report;
  EXPECT_NE(report.find("[2/3] Throws <after> opening ... FAILED: builder broke"), std::string::npos) << report;
  EXPECT_NE(report.find("[3/3] Opens nothing ... FAILED: the page opened no window"), std::string::npos) << report;
  EXPECT_NE(report.find("3 pages, 1 written, 2 failed, in "), std::string::npos) << report;
  EXPECT_TRUE(GlobManager::topLevelWindows().empty());
  EXPECT_GT(std::filesystem::file_size(dir / "buttons.png"), 0u);
  EXPECT_FALSE(std::filesystem::exists(dir / "throws.png"));
  std::ifstream index(dir / "index.html");
  std::string const html{std::istreambuf_iterator<char>(index), std::istreambuf_iterator<char>()};
  EXPECT_NE(html.find("<img src=\"buttons.png\""), std::string::npos);
  EXPECT_EQ(html.find("throws.png"), std::string::npos);
  EXPECT_NE(html.find("Throws &lt;after&gt; opening"), std::string::npos);
  std::filesystem::remove_all(dir);
}

TEST_F(GalleryTest, CommandsWhoseSafeNamesClashGetPagesOfTheirOwn) {
  auto nothing = [](Cmd::Context const&) {};
  ASSERT_TRUE(CommandMap::registerCommand("gallery.test/clash", nothing));
  ASSERT_TRUE(CommandMap::registerCommand("gallery.test_clash", nothing));
  std::vector<GalleryPage> const pages = allPages();
  EXPECT_NE(findPage(pages, "command-gallery.test_clash"), nullptr);
  EXPECT_NE(findPage(pages, "command-gallery.test_clash-2"), nullptr);
  EXPECT_TRUE(CommandMap::unregisterCommand("gallery.test/clash"));
  EXPECT_TRUE(CommandMap::unregisterCommand("gallery.test_clash"));
}

TEST_F(GalleryTest, TheValuesPageShowsTheSpeedAsANumberBesideItsSlider) {
  Glob& page = openedPage("values");
  std::vector<Slider*> const sliders = widgetsIn<Slider>(page);
  std::vector<NumericTextBox*> const boxes = widgetsIn<NumericTextBox>(page);
  ASSERT_EQ(sliders.size(), 3u);
  ASSERT_EQ(boxes.size(), 2u);
  Slider& speed = *sliders[1];
  NumericTextBox& speedBox = *boxes[1];
  EXPECT_EQ(speedBox.editor().text(), L"100");

  HeadlessInput::clickOn(speedBox);
  HeadlessInput::key(kKeyEnd);
  for (int erase = 0; erase < 3; ++erase)
    HeadlessInput::key(kKeyBackspace);
  HeadlessInput::typeText("150");
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  EXPECT_DOUBLE_EQ(speed.getPosition(), 150.0);
  EXPECT_DOUBLE_EQ(model.speed.get(), 150.0);

  model.speed = 75.0;
  settleWindows();
  EXPECT_EQ(speedBox.editor().text(), L"75");
}

TEST_F(GalleryTest, APageOpensBesideTheLauncherWhereItHasBeenMoved) {
  std::vector<GalleryPage> const pages = allPages();
  Launcher launcher(pages, model);
  auto* launcherWindow = dynamic_cast<StandardPanel*>(launcher.window());
  ASSERT_NE(launcherWindow, nullptr);
  launcherWindow->canvas()->move(launcherWindow->screenPosition() + XY<int>(400, -50));
  std::vector<PushButton*> const buttons = widgetsIn<PushButton>(*launcherWindow);
  ASSERT_FALSE(buttons.empty());
  std::vector<Glob*> const before = GlobManager::topLevelWindows();
  HeadlessInput::clickOn(*buttons[0]);
  settleWindows();
  Glob* page = nullptr;
  for (Glob* window : GlobManager::topLevelWindows())
    if (std::find(before.begin(), before.end(), window) == before.end())
      page = page ? page : window;
  ASSERT_NE(page, nullptr);
  EXPECT_GE(page->screenPosition().x, launcherWindow->screenPosition().x + launcherWindow->width())
      << "right of the launcher as it stands now";
}

TEST_F(GalleryTest, TheLaunchersKeysReachAnyPageTypedLettersHomeAndEnd) {
  std::vector<GalleryPage> const pages = allPages();
  Launcher launcher(pages, model);
  auto* launcherWindow = dynamic_cast<StandardPanel*>(launcher.window());
  ASSERT_NE(launcherWindow, nullptr);
  std::vector<PushButton*> const buttons = widgetsIn<PushButton>(*launcherWindow);
  ASSERT_GT(buttons.size(), 20u);
  HeadlessInput::clickOn(*launcherWindow, XY<int>(2, 2));
  TabOrderManager::enterWindow(*launcherWindow, true);
  ASSERT_TRUE(buttons.front()->hasKbdFocus());
  HeadlessInput::typeText("wi");
  settleWindows();
  Glob* const focus = get_kbd_focus();
  ASSERT_NE(focus, nullptr);
  auto* found = dynamic_cast<PushButton*>(focus);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->getLabel().str(), L"Wizard");
  HeadlessInput::key(kKeyHome);
  EXPECT_TRUE(buttons.front()->hasKbdFocus());
  HeadlessInput::key(kKeyEnd);
  EXPECT_TRUE(buttons.back()->hasKbdFocus());
}

TEST_F(GalleryTest, ClosingTheLauncherClosesThePagesItOpened) {
  std::vector<GalleryPage> const pages = allPages();
  Launcher launcher(pages, model);
  auto* launcherWindow = dynamic_cast<StandardPanel*>(launcher.window());
  ASSERT_NE(launcherWindow, nullptr);
  std::vector<PushButton*> buttons;
  // Two pages of plain windows (the open menu's page closes at the next press).
  for (PushButton* button : widgetsIn<PushButton>(*launcherWindow))
    if (button->getLabel().str() == L"Buttons" || button->getLabel().str() == L"Back-buffer renderer")
      buttons.push_back(button);
  ASSERT_EQ(buttons.size(), 2u);
  for (PushButton* button : buttons) {
    std::size_t const before = GlobManager::topLevelWindows().size();
    HeadlessInput::clickOn(*button);
    settleWindows();
    ASSERT_GT(GlobManager::topLevelWindows().size(), before);
  }
  EXPECT_TRUE(launcher.stillOpen());

  Zo::Box<int> const close = launcherWindow->getStandardWidgetBox(StandardPanel::kPoot);
  ASSERT_FALSE(close.empty());
  HeadlessInput::clickOn(*launcherWindow, XY<int>((close.x0 + close.x1) / 2, (close.y0 + close.y1) / 2));
  settleWindows();
  EXPECT_FALSE(launcher.stillOpen());
  EXPECT_FALSE(GlobManager::topLevelWindows().empty()) << "the pages outlive the launcher until closed";
  Launcher::closePages();
  EXPECT_TRUE(GlobManager::topLevelWindows().empty());
}

} // namespace

TEST_F(GalleryTest, TheIPAddressPagesResultLineShowsTheLongestAddressWhole) {
  Glob& page = openedPage("ipaddress");
  std::vector<IPAddressEntryBox*> const entries = widgetsIn<IPAddressEntryBox>(page);
  ASSERT_EQ(entries.size(), 2u);
  OS().setClipboardText(L"255.255.255.255:65535");
  HeadlessInput::clickOn(*entries[1]);
  HeadlessInput::key('v', kKeyCtrl);
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  ASSERT_EQ(entries[1]->getURI().str(), L"255.255.255.255:65535");

  TextLabel* result = nullptr;
  for (TextLabel* label : widgetsIn<TextLabel>(page))
    if (label->getString().getString().str() == L"Return gives: 255.255.255.255:65535")
      result = label;
  ASSERT_NE(result, nullptr);
  EXPECT_LE(TextLabel::calcWidth(result->getString()), result->width());
  EXPECT_LE(result->canvasBox().x1, page.width());
}

TEST_F(GalleryTest, TheWizardPagesTickBoxIsReachedByTabAndEscapeClosesTheWizard) {
  Glob& page = openedPage("wizard");
  settleWindows();
  std::vector<Checkbox*> const boxes = widgetsIn<Checkbox>(page);
  ASSERT_FALSE(boxes.empty());
  bool reached = false;
  for (int i = 0; i < 4 && !reached; ++i) {
    HeadlessInput::key(kKeyTab);
    reached = get_kbd_focus() == boxes.front();
  }
  EXPECT_TRUE(reached) << "forward Tab, not only Shift-Tab";
  IdStamp const stamp = EventHandler::stampOf(&page);
  HeadlessInput::key(kKeyEscape);
  settleWindows();
  EXPECT_FALSE(EventHandler::valid(&page, stamp)) << "Escape leaves the wizard as its close box does";
}

TEST_F(GalleryTest, TheImagesPagesRegionStopsAtItsMinimumWidthWhenItsLeftCornerIsDraggedPastTheRight) {
  std::vector<ImageRegionSelectionView*> const views = widgetsOfPage<ImageRegionSelectionView>("images");
  ASSERT_EQ(views.size(), 1u);
  ImageRegionSelectionView& view = *views.front();
  settleWindows();
  ASSERT_GT(view.getMinimumRegionWidth(), 0u);
  Zo::Box<int> const before = view.getRegion();
  Zo::Box<int> const wire = view.getWireframeArea();
  XY<int> const topLeft = view.screenPosition() + XY<int>(wire.x0, wire.y1 - 1);
  HeadlessInput::drag(topLeft, topLeft + XY<int>(wire.width() + 100, -20));
  settleWindows();
  Zo::Box<int> const region = view.getRegion();
  EXPECT_GT(region.x0, before.x0) << "the corner was taken and dragged";
  EXPECT_LT(region.x0, region.x1) << "not inside out";
  EXPECT_GE(region.x1 - region.x0, static_cast<int>(view.getMinimumRegionWidth()));
  EXPECT_LT(region.y0, region.y1);
}

TEST_F(GalleryTest, TheImagesPagesViewIsShapedLikeItsPictureSoTheRegionKeepsItsShapeOnTheScreen) {
  std::vector<ImageRegionSelectionView*> const views = widgetsOfPage<ImageRegionSelectionView>("images");
  ASSERT_EQ(views.size(), 1u);
  ImageRegionSelectionView& view = *views.front();
  XY<int> const picture = view.getImageSize();
  ASSERT_GT(picture.x, 0);
  ASSERT_GT(picture.y, 0);
  Zo::Box<int> const user = view.getUserArea();
  double const pictureShape = static_cast<double>(picture.x) / picture.y;
  double const userShape = static_cast<double>(user.width()) / user.height();
  EXPECT_NEAR(userShape, pictureShape, 0.02 * pictureShape);
  Zo::Box<int> const region = view.getRegion();
  Zo::Box<int> const wire = view.getWireframeArea();
  EXPECT_NEAR(static_cast<double>(wire.width()) / wire.height(), static_cast<double>(region.width()) / region.height(),
              0.05)
      << "a 16:9 region is drawn 16:9";
}

TEST_F(GalleryTest, TheColourPagesWheelFollowsAPureHueTypedInTheHexBox) {
  Glob& page = openedPage("colour");
  settleWindows();
  std::vector<HSColourWheel*> const wheels = widgetsIn<HSColourWheel>(page);
  ASSERT_EQ(wheels.size(), 1u);
  TitleTextBox* hex = nullptr;
  for (TitleTextBox* box : widgetsIn<TitleTextBox>(page))
    if (box->getTitle().getString().str() == L"#")
      hex = box;
  ASSERT_NE(hex, nullptr);
  HeadlessInput::clickOn(*hex);
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("FF8000");
  HeadlessInput::key(kKeyReturn);
  settleWindows();
  XY<double> const cursor = wheels.front()->getCursor();
  double hue = 0.0;
  double saturation = 0.0;
  ASSERT_EQ(wheels.front()->convertXYtoHS(cursor.x, cursor.y, hue, saturation), 0);
  EXPECT_NEAR(hue, 30.0, 1.0) << "orange";
  EXPECT_GT(saturation, 0.95) << "at the rim";
}
