#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/SimpleTabbedPanel.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <vector>

namespace {

// Counts the page changes it is asked for.
class CountingTabbedPanel : public SimpleTabbedPanel {
public:
  using SimpleTabbedPanel::SimpleTabbedPanel;
  void handlePageChange(eRedrawFlag redraw) override {
    changes.push_back(redraw);
    SimpleTabbedPanel::handlePageChange(redraw);
  }
  std::vector<eRedrawFlag> changes;
};

TextLabel::InitArgs labelled(wchar_t const* text) {
  TextLabel::InitArgs args;
  args.text = text;
  return args;
}

struct SimpleTabbedPanelTest : HeadlessScreenTest {
  CountingTabbedPanel* panel = nullptr;

  CountingTabbedPanel* open(Border const& border = Border()) {
    CountingTabbedPanel::InitArgs args(XY<int>(360, 200));
    args.setBorder(border);
    args.screenPosition = XY<int>(100, 100);
    args.pages = {SimpleTabbedPanel::Page::of<TextLabel>(labelled(L"Clip"), L"Clip"),
                  SimpleTabbedPanel::Page::of<TextLabel>(labelled(L"Audio"), L"Audio"),
                  SimpleTabbedPanel::Page::of<TextLabel>(labelled(L"Notes"), L"Notes")};
    panel = new CountingTabbedPanel(args);
    GlobManager::realize(panel);
    return panel;
  }
  XY<int> tabCentre(int index) const {
    Zo::Box<int> const box = panel->getTabs()->getTabBox(index);
    return HeadlessInput::pointOn(*panel->getTabs()->getTabRow(),
                                  XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }
  std::vector<bool> shown() const {
    std::vector<bool> visible;
    for (int index = 0; index < panel->getNumPages(); ++index)
      visible.push_back(panel->getPage(index)->isVisible());
    return visible;
  }
};

TEST_F(SimpleTabbedPanelTest, ATabForEachPageAndTheFirstShows) {
  open();
  EXPECT_STREQ(panel->idstring(), "SimpleTabbedPanel");
  TabbedDialogue* tabs = panel->getTabs();
  ASSERT_EQ(tabs->getNumTabs(), 3);
  EXPECT_EQ(tabs->getTab(1).title.getString(), LightweightString<wchar_t>(L"Audio"));
  EXPECT_EQ(tabs->height(), TabbedDialogue::minHeight()) << "a bare tab row";
  EXPECT_EQ(shown(), (std::vector<bool>{true, false, false}));
  EXPECT_EQ(panel->getPage(0)->parent(), panel) << "the pages are the panel's own";
  EXPECT_EQ(static_cast<TextLabel*>(panel->getPage(2))->getString().getString(), LightweightString<wchar_t>(L"Notes"));
}

TEST_F(SimpleTabbedPanelTest, MakeTabsGivesTitlesWithoutColours) {
  std::vector<SimpleTabbedPanel::Page> pages{SimpleTabbedPanel::Page{GlobCreationInfo(), L"One", {}},
                                             SimpleTabbedPanel::Page{GlobCreationInfo(), L"Two", {}}};
  std::vector<TabbedDialogue::Page> const tabs = SimpleTabbedPanel::makeTabs(pages);
  ASSERT_EQ(tabs.size(), 2u);
  EXPECT_EQ(tabs[1].title.getString(), LightweightString<wchar_t>(L"Two"));
  EXPECT_FALSE(tabs[0].colour.use());
}

TEST_F(SimpleTabbedPanelTest, PagesFillTheAreaUnderTheTabRow) {
  open();
  XY<int> const size = panel->calcPageSize();
  EXPECT_EQ(size, XY<int>(360, 200 - TabbedDialogue::minHeight()));
  EXPECT_EQ(panel->getPage(1)->getSize(), size);
  EXPECT_EQ(panel->getPage(0)->getY(), 0);
}

TEST_F(SimpleTabbedPanelTest, ThePageSizeLeavesTheTopAndRightMargins) {
  open(Border(0, 0, 6));
  Zo::Box<int> const user = panel->getUserArea();
  EXPECT_EQ(panel->calcPageSize(), XY<int>(user.width(), user.height() - TabbedDialogue::minHeight() - 12));
}

TEST_F(SimpleTabbedPanelTest, AClickOnATabShowsItsPageAlone) {
  open();
  HeadlessInput::click(tabCentre(2));
  EXPECT_EQ(panel->getTabs()->getCurrentTab(), 2);
  EXPECT_EQ(shown(), (std::vector<bool>{false, false, true}));
  ASSERT_FALSE(panel->changes.empty());
  EXPECT_EQ(panel->changes.back(), kRedrawNow);
}

TEST_F(SimpleTabbedPanelTest, TabEventsOtherThanTheChangeAreIgnored) {
  open();
  panel->changes.clear();
  TabbedDialogueEvent event;
  for (int kind : {int(TabbedDialogueEvent::kChanging), int(TabbedDialogueEvent::kTabsChanged), 0, 7}) {
    event.kind = kind;
    EXPECT_EQ(panel->handleTabEvents(event), 0);
  }
  EXPECT_TRUE(panel->changes.empty());
  event.kind = TabbedDialogueEvent::kChanged;
  EXPECT_EQ(panel->handleTabEvents(event), 0);
  EXPECT_EQ(panel->changes, (std::vector<eRedrawFlag>{kRedrawNow}));
}

TEST_F(SimpleTabbedPanelTest, ShowPagesHidesAndShowsTheRowAndThePages) {
  open();
  HeadlessInput::click(tabCentre(1));
  panel->showPages(false);
  EXPECT_FALSE(panel->getTabs()->isVisible());
  EXPECT_EQ(shown(), (std::vector<bool>{false, false, false}));
  panel->showPages(true);
  EXPECT_TRUE(panel->getTabs()->isVisible());
  EXPECT_EQ(shown(), (std::vector<bool>{false, true, false}));
}

TEST_F(SimpleTabbedPanelTest, ResizingSizesTheRowAndEveryPage) {
  open();
  panel->resize(500, 300);
  EXPECT_EQ(panel->getTabs()->getSize(), XY<int>(500, TabbedDialogue::minHeight()));
  for (int index = 0; index < 3; ++index)
    EXPECT_EQ(panel->getPage(index)->getSize(), XY<int>(500, 300 - TabbedDialogue::minHeight()));
}

TEST_F(SimpleTabbedPanelTest, PagesMadeByClassNameAndOnesThatCannotBeMade) {
  SimpleTabbedPanel::InitArgs args(XY<int>(300, 160));
  args.setBorder(Border());
  GlobCreationInfo known;
  known.className = "TextLabel";
  GlobCreationInfo unknown;
  unknown.className = "NoSuchWidget";
  args.pages = {SimpleTabbedPanel::Page{known, L"Known", {}}, SimpleTabbedPanel::Page{unknown, L"Unknown", {}}};
  auto* made = new SimpleTabbedPanel(args);
  GlobManager::realize(made);
  ASSERT_NE(made->getPage(0), nullptr);
  EXPECT_STREQ(made->getPage(0)->idstring(), "TextLabel");
  EXPECT_EQ(made->getPage(1), nullptr) << "the tab stays, empty";
  EXPECT_EQ(made->getTabs()->getNumTabs(), 2);
  made->getTabs()->setCurrentTab(1);
  EXPECT_FALSE(made->getPage(0)->isVisible());
}

} // namespace
