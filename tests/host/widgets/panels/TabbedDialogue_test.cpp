#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <vector>

namespace {

// A page filled with one colour, so that the screen shows which page is up.
GlobCreationInfo colouredPage(Colour const& colour) {
  GlobCreationInfo info;
  Palette palette = UifStd::getColourScheme();
  palette.setWindow(colour);
  info.setPalette(palette);
  return info;
}

Colour const kRed(0.8, 0.1, 0.1);
Colour const kGreen(0.1, 0.7, 0.2);
Colour const kBlue(0.1, 0.2, 0.8);

struct TabbedDialogueTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  TabbedDialogue* tabs = nullptr;
  std::vector<Glob*> pages;
  std::vector<TabbedDialogueEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(420, 260), XY<int>(200, 200));
    tabs = makeDialogue(*panel);
    pages.push_back(tabs->createPage<Glob>(TabbedDialogue::Page(L"Red"), colouredPage(kRed)));
    pages.push_back(tabs->createPage<Glob>(TabbedDialogue::Page(L"Green"), colouredPage(kGreen)));
    pages.push_back(tabs->createPage<Glob>(TabbedDialogue::Page(L"Blue"), colouredPage(kBlue)));
    events.clear();
  }

  TabbedDialogue* makeDialogue(StandardPanel& owner) {
    Zo::Box<int> const user = owner.getUserArea();
    TabbedDialogue::InitArgs args(XY<int>(user.width(), user.height()));
    args.callback =
        Broadcaster<TabbedDialogueEvent>::makeCallback([this](TabbedDialogueEvent const& e) { events.push_back(e); });
    return owner.createWidget<TabbedDialogue>(args, Glob::UserTopLeft(0, 0));
  }

  XY<int> tabCentre(TabbedDialogue& dialogue, int index) const {
    Zo::Box<int> const box = dialogue.getTabBox(index);
    return HeadlessInput::pointOn(*dialogue.getTabRow(), XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }

  // The colour of the middle of the page area, on the screen.
  Rgb pageAreaColour() {
    Zo::Box<int> const area = tabs->getUserArea();
    return rgbOf(widgetPixel(*tabs, XY<int>((area.x0 + area.x1) / 2, (area.y0 + area.y1) / 2)));
  }

  std::vector<int> kinds() const {
    std::vector<int> found;
    for (TabbedDialogueEvent const& event : events)
      found.push_back(event.kind);
    return found;
  }
};

TEST(TabbedDialogueSizes, APageAreaTakesTheDialogueLessTheRowAndTheFrame) {
  int const margin = TabbedDialogue::calcBorderSize(1);
  EXPECT_GT(margin, 0);
  EXPECT_EQ(TabbedDialogue::calcBorderSize(1 | 2 | 4 | 8), 4 * margin);
  EXPECT_EQ(TabbedDialogue::calcBorderSize(6), 2 * margin);
  EXPECT_GE(TabbedDialogue::minHeight(), UifStd::getRowHeight());
  int const height = TabbedDialogue::calcHeightForContents(120);
  TabbedDialogue dialogue(TabbedDialogue::InitArgs(XY<int>(300, height)));
  EXPECT_EQ(dialogue.getPageSize(), XY<int>(300 - TabbedDialogue::calcBorderSize(1 | 2), 120));
  EXPECT_EQ(dialogue.getTabRow()->height(), TabbedDialogue::minHeight());
}

TEST(TabbedDialogueSizes, ADialogueOnlyARowHighHasNoPageArea) {
  TabbedDialogue::InitArgs args(XY<int>(300, TabbedDialogue::minHeight()));
  args.tabs = {TabbedDialogue::Page(L"One"), TabbedDialogue::Page(L"Two")};
  TabbedDialogue row(args);
  EXPECT_TRUE(row.getUserArea().empty());
  EXPECT_EQ(row.getNumTabs(), 2);
  EXPECT_EQ(row.getCurrentTab(), 0);
  EXPECT_EQ(row.getCurrentPage(), nullptr);
}

TEST_F(TabbedDialogueTest, TheFirstPageShowsAndEveryPageFillsThePageArea) {
  EXPECT_EQ(tabs->getCurrentTab(), 0);
  EXPECT_EQ(tabs->getCurrentPage(), pages[0]);
  for (Glob* page : pages)
    EXPECT_EQ(page->getSize(), tabs->getPageSize());
  EXPECT_TRUE(pages[0]->isVisible());
  EXPECT_FALSE(pages[1]->isVisible());
  EXPECT_FALSE(pages[2]->isVisible());
  EXPECT_TRUE(near(pageAreaColour(), rgbOf(kRed)));
}

TEST_F(TabbedDialogueTest, AClickOnATabShowsItsPageAndTellsTheListeners) {
  HeadlessInput::click(tabCentre(*tabs, 2));
  EXPECT_EQ(tabs->getCurrentTab(), 2);
  EXPECT_FALSE(pages[0]->isVisible());
  EXPECT_TRUE(pages[2]->isVisible());
  EXPECT_TRUE(near(pageAreaColour(), rgbOf(kBlue)));
  ASSERT_EQ(kinds(), (std::vector<int>{TabbedDialogueEvent::kChanging, TabbedDialogueEvent::kChanged}));
  EXPECT_EQ(events[1].tab, 2);
  EXPECT_EQ(events[1].dialogue, tabs);
  // A click on the current tab changes nothing.
  HeadlessInput::click(tabCentre(*tabs, 2));
  EXPECT_EQ(events.size(), 2u);
}

TEST_F(TabbedDialogueTest, ArrowsMoveThroughTheTabsWhileTheRowHasTheFocus) {
  HeadlessInput::click(tabCentre(*tabs, 0));
  ASSERT_TRUE(tabs->getTabRow()->hasKbdFocus());
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(tabs->getCurrentTab(), 1);
  EXPECT_TRUE(near(pageAreaColour(), rgbOf(kGreen)));
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(tabs->getCurrentTab(), 2) << "the arrows stop at the last tab";
  HeadlessInput::key(kKeyLeft);
  EXPECT_EQ(tabs->getCurrentTab(), 1);
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(tabs->getCurrentTab(), 0);
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(tabs->getCurrentTab(), 2);
}

TEST_F(TabbedDialogueTest, CtrlTabGoesRoundFromInsideAPageAndTheFocusFollowsToTheRow) {
  Zo::Box<int> const area = tabs->getUserArea();
  auto* box = tabs->createPage<TextBox>(TabbedDialogue::Page(L"Notes"),
                                        TextBox::InitArgs(GlobCreationInfo(XY<int>(area.width(), 30))));
  tabs->setCurrentTab(3);
  HeadlessInput::clickOn(*box);
  ASSERT_TRUE(box->hasKbdFocus());
  HeadlessInput::key(kKeyTab, kKeyCtrl);
  EXPECT_EQ(tabs->getCurrentTab(), 0) << "from the last tab round to the first";
  EXPECT_EQ(box->getString(), L"");
  EXPECT_TRUE(tabs->getTabRow()->hasKbdFocus()) << "the focus does not stay on a hidden page";
  HeadlessInput::key(kKeyTab, kKeyCtrl | kKeyShift);
  EXPECT_EQ(tabs->getCurrentTab(), 3);
  HeadlessInput::key(kKeyTab, kKeyCtrl | kKeyShift);
  EXPECT_EQ(tabs->getCurrentTab(), 2);
  HeadlessInput::key(kKeyTab, kKeyCtrl);
  EXPECT_EQ(tabs->getCurrentTab(), 3);
}

TEST_F(TabbedDialogueTest, APageTakenOutAndPutBackInAnotherDialogueKeepsItsState) {
  Zo::Box<int> const area = tabs->getUserArea();
  TextBox::InitArgs boxArgs(GlobCreationInfo(XY<int>(area.width() / 2, UifStd::getRowHeight())));
  Slider::InitArgs sliderArgs(XY<int>(area.width() / 2, UifStd::getRowHeight()));
  auto* settings = tabs->createPage<Glob>(TabbedDialogue::Page(L"Settings"), GlobCreationInfo());
  auto* box = settings->createChild<TextBox>(boxArgs, Glob::TopLeft(0, 0));
  auto* slider = settings->createChild<Slider>(sliderArgs, Glob::Below(UifStd::getRowGap()));
  HeadlessInput::click(tabCentre(*tabs, 3));
  HeadlessInput::clickOn(*box);
  HeadlessInput::typeText("take two");
  HeadlessInput::click(HeadlessInput::pointOn(*slider, XY<int>(slider->width() * 3 / 4, slider->height() / 2)));
  double const value = slider->getWidgetValue();
  ASSERT_GT(value, 0.5);
  ASSERT_EQ(box->getString(), L"take two");
  events.clear();

  Glob* taken = tabs->removePage(3);
  ASSERT_EQ(taken, settings);
  EXPECT_EQ(taken->parent(), nullptr);
  EXPECT_FALSE(taken->isVisible());
  EXPECT_TRUE(is_good_glob_ptr(box));
  EXPECT_EQ(tabs->getNumTabs(), 3);
  EXPECT_EQ(tabs->getCurrentTab(), 2) << "the tab before the removed last one is current";
  EXPECT_TRUE(near(pageAreaColour(), rgbOf(kBlue)));
  EXPECT_EQ(kinds(), (std::vector<int>{TabbedDialogueEvent::kTabsChanged, TabbedDialogueEvent::kChanging,
                                       TabbedDialogueEvent::kChanged}));

  StandardPanel* other = openPanel(XY<int>(360, 220), XY<int>(700, 300));
  TabbedDialogue* second = makeDialogue(*other);
  second->addTab(TabbedDialogue::Page(L"Empty"));
  EXPECT_EQ(second->addPageForTab(TabbedDialogue::Page(L"Settings"), taken), 1);
  EXPECT_EQ(taken->parent(), second);
  EXPECT_EQ(taken->getSize(), second->getPageSize());
  EXPECT_FALSE(taken->isVisible()) << "it waits behind the current tab";
  HeadlessInput::click(tabCentre(*second, 1));
  EXPECT_TRUE(taken->isShowing());
  EXPECT_EQ(box->getString(), L"take two");
  EXPECT_EQ(slider->getWidgetValue(), value);
  HeadlessInput::clickOn(*box, XY<int>(box->width() - 2, box->height() / 2));
  HeadlessInput::typeText("!");
  EXPECT_EQ(box->getString(), L"take two!");
}

TEST_F(TabbedDialogueTest, RemovingTheCurrentTabMakesTheNextCurrentAndTheLastLeavesNone) {
  tabs->setCurrentTab(1);
  Glob* green = tabs->removePage(1);
  EXPECT_EQ(tabs->getCurrentTab(), 1);
  EXPECT_EQ(tabs->getCurrentPage(), pages[2]);
  EXPECT_TRUE(pages[2]->isVisible());
  delete green;
  tabs->removePage(0);
  tabs->removePage(0);
  EXPECT_EQ(tabs->getCurrentTab(), -1);
  EXPECT_EQ(tabs->getCurrentPage(), nullptr);
  EXPECT_EQ(events.back().kind, TabbedDialogueEvent::kChanged);
  EXPECT_EQ(events.back().tab, -1);
  delete pages[0];
  delete pages[2];
}

TEST_F(TabbedDialogueTest, ATabRowAloneChangesItsTabsAndSetTabsDestroysPagesHeld) {
  tabs->setTabs({TabbedDialogue::Page(L"A"), TabbedDialogue::Page(L"B")});
  for (Glob* page : pages)
    EXPECT_FALSE(is_good_glob_ptr(page));
  EXPECT_EQ(tabs->getNumTabs(), 2);
  EXPECT_EQ(tabs->getCurrentTab(), 0);
  HeadlessInput::click(tabCentre(*tabs, 1));
  EXPECT_EQ(tabs->getCurrentTab(), 1);
  EXPECT_EQ(tabs->getCurrentPage(), nullptr);
}

TEST_F(TabbedDialogueTest, ResizingKeepsThePagesInThePageArea) {
  tabs->resize(300, 200);
  for (Glob* page : pages)
    EXPECT_EQ(page->getSize(), tabs->getPageSize());
  EXPECT_EQ(tabs->getTabRow()->width(), 300);
  Zo::Box<int> const area = tabs->getUserArea();
  EXPECT_EQ(pages[0]->getPosition(), XY<int>(area.x0, area.y1 - pages[0]->height()));
}

TEST_F(TabbedDialogueTest, ATabShowsItsTooltipWhileThePointerIsOverIt) {
  tabs->addTab(TabbedDialogue::Page(L"Help", TooltipDetails(UIString(L"What each page does"))));
  HeadlessInput::moveTo(tabCentre(*tabs, 3));
  EXPECT_EQ(tabs->getTabRow()->getTooltip().getString(), L"What each page does");
  HeadlessInput::moveTo(tabCentre(*tabs, 0));
  EXPECT_TRUE(tabs->getTabRow()->getTooltip().empty());
}

TEST_F(TabbedDialogueTest, TabsTooWideForTheRowShareItEvenly) {
  for (int extra = 0; extra < 8; ++extra)
    tabs->addTab(TabbedDialogue::Page(L"A rather long title"));
  Zo::Box<int> const last = tabs->getTabBox(tabs->getNumTabs() - 1);
  EXPECT_LE(last.x1, tabs->width());
  EXPECT_EQ(tabs->getTabBox(0).width(), last.width());
}

TEST_F(TabbedDialogueTest, TitlesOfTabsSqueezedNarrowStayWithinTheirTabs) {
  // Two dialogues alike but for their titles, too narrow for any title.
  auto squeezed = [this](wchar_t const* title, XY<int> where) {
    StandardPanel* owner = openPanel(XY<int>(36, 120), where);
    TabbedDialogue* dialogue = makeDialogue(*owner);
    for (int tab = 0; tab < 6; ++tab)
      dialogue->addTab(TabbedDialogue::Page(title));
    return dialogue;
  };
  TabbedDialogue* titled = squeezed(L"Effects and transitions", XY<int>(20, 500));
  TabbedDialogue* blank = squeezed(L"", XY<int>(300, 500));
  pump();
  Glob const& row = *titled->getTabRow();
  ASSERT_LT(titled->getTabBox(0).width(), 4) << "narrower than a title's padding";
  int differing = 0;
  for (int y = 0; y < row.height(); ++y)
    for (int x = 0; x < row.width(); ++x)
      if (widgetPixel(row, XY<int>(x, y)) != widgetPixel(*blank->getTabRow(), XY<int>(x, y)))
        ++differing;
  EXPECT_EQ(differing, 0) << "too narrow for a title, a tab shows none, and none spills over its neighbours";
}

} // namespace
