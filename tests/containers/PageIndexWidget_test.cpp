#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/PageIndexTestPanel.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <string>
#include <vector>

namespace {

struct PageIndexWidgetTest : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // A width of 0 lets the widget fit its numbers.
  PageIndexWidget* openIndex(unsigned short current, unsigned short count, unsigned char maxButtons, int width = 0) {
    int const row = UifStd::getRowHeight();
    window = openPanel(XY<int>(24 * row, 2 * row), XY<int>(200, 400));
    PageIndexWidget::InitArgs args(
        Broadcaster<PageIndexWidgetEvent>::makeCallback([this](PageIndexWidgetEvent const& event) {
          EXPECT_EQ(event.kind, PageIndexWidgetEvent::kPageChosen);
          chosen.push_back(event.page);
        }),
        current, count, maxButtons, XY<int>(width, 0));
    auto* index = window->createWidget<PageIndexWidget>(args, Glob::UserTopLeft(0, 0));
    pump();
    return index;
  }

  static void click(Glob const& button) {
    HeadlessInput::clickOn(button);
    pump();
  }

  // The numbers on show, as their buttons read.
  static std::vector<std::wstring> numbersOf(PageIndexWidget const& index) {
    std::vector<std::wstring> numbers;
    for (Button* button : index.getNumberButtons())
      numbers.push_back(button->getLabel().str());
    return numbers;
  }

  static Button* numberButton(PageIndexWidget const& index, std::wstring const& label) {
    for (Button* button : index.getNumberButtons())
      if (button->getLabel().str() == label)
        return button;
    return nullptr;
  }

  // Which numbers are latched, by their labels.
  static std::vector<std::wstring> latchedOf(PageIndexWidget const& index) {
    std::vector<std::wstring> latched;
    for (Button* button : index.getNumberButtons())
      if (button->getState() == 1)
        latched.push_back(button->getLabel().str());
    return latched;
  }

  StandardPanel* window = nullptr;
  std::vector<unsigned short> chosen;
};

TEST(PageIndexWidgetRun, TheRunCentresOnTheCurrentPageAndEndsAtTheLastPage) {
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(0, 100, 10), 0);
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(50, 100, 10), 45);
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(99, 100, 10), 90);
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(5, 100, 10), 0);
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(6, 100, 10), 1);
}

TEST(PageIndexWidgetRun, ARunAsLongAsTheCountIsNotPulledBack) {
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(5, 8, 10), 0);
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(9, 8, 10), 4);
}

TEST_F(PageIndexWidgetTest, SingleDigitPagesShareTheWidthOfTen) {
  int const ten = UifStd::measure(UIString(L"10")).x + UifStd::getRowHeight() / 2;
  EXPECT_EQ(PageIndexWidget::calcButtonWidth(0), ten);
  EXPECT_EQ(PageIndexWidget::calcButtonWidth(8), ten);
  EXPECT_EQ(PageIndexWidget::calcButtonWidth(9), ten);
  EXPECT_EQ(PageIndexWidget::calcButtonWidth(99), UifStd::measure(UIString(L"100")).x + UifStd::getRowHeight() / 2);
  EXPECT_GT(PageIndexWidget::calcButtonWidth(99), ten);
  int const row = UifStd::getRowHeight();
  EXPECT_EQ(PageIndexWidget::calcWidthInternal(0, 0), 2 * row);
  EXPECT_EQ(PageIndexWidget::calcWidthInternal(8, 2), 2 * row + ten + PageIndexWidget::calcButtonWidth(9));
  EXPECT_EQ(PageIndexWidget::calcWidth(50, 100, 10), PageIndexWidget::calcWidthInternal(45, 10));
  EXPECT_EQ(PageIndexWidget::calcWidth(1, 3, 10), PageIndexWidget::calcWidthInternal(0, 3));
}

TEST_F(PageIndexWidgetTest, TheNumbersShowARunAroundTheCurrentPageWithItLatched) {
  PageIndexWidget* index = openIndex(50, 100, 10);
  EXPECT_EQ(index->getFirstPage(), 45);
  EXPECT_EQ(numbersOf(*index),
            (std::vector<std::wstring>{L"46", L"47", L"48", L"49", L"50", L"51", L"52", L"53", L"54", L"55"}));
  EXPECT_EQ(latchedOf(*index), (std::vector<std::wstring>{L"51"}));
  // Side by side, each as wide as calcButtonWidth says, between the arrows.
  int x = index->getNumberButtons().front()->screenPosition().x;
  EXPECT_GE(x, index->getPrevButton()->screenPosition().x + index->getPrevButton()->width());
  for (std::size_t i = 0; i < index->getNumberButtons().size(); ++i) {
    Button const* button = index->getNumberButtons()[i];
    EXPECT_EQ(button->screenPosition().x, x);
    EXPECT_EQ(button->width(), PageIndexWidget::calcButtonWidth(static_cast<unsigned short>(45 + i)));
    x += button->width();
  }
  EXPECT_LE(x, index->getNextButton()->screenPosition().x);
}

TEST_F(PageIndexWidgetTest, SetPagesLimitsTheCurrentPageToTheCount) {
  PageIndexWidget* index = openIndex(0, 100, 10);
  index->setPages(50, 10);
  EXPECT_EQ(index->getCurrentPage(), 9);
  EXPECT_EQ(index->getPageCount(), 10);
  EXPECT_EQ(latchedOf(*index), (std::vector<std::wstring>{L"10"}));
  EXPECT_FALSE(index->getNextButton()->isActive());
  EXPECT_TRUE(index->getPrevButton()->isActive());
}

TEST_F(PageIndexWidgetTest, ZeroPagesShowNoNumbersAndTheArrowsFollowTheUnsignedRule) {
  PageIndexWidget* index = openIndex(0, 0, 10);
  index->setEmptyLabel(UIString(L"No results"));
  EXPECT_TRUE(index->getNumberButtons().empty());
  EXPECT_FALSE(index->getPrevButton()->isActive()) << "page 0";
  EXPECT_TRUE(index->getNextButton()->isActive()) << "count - 1 wraps to 65535, which page 0 is not";
  EXPECT_TRUE(index->getEmptyLabel()->isVisible());
  EXPECT_EQ(index->getEmptyLabel()->getString().getString(), LightweightString<wchar_t>(L"No results"));
  // The arrow is live but there is no page to go to: nothing happens.
  click(*index->getNextButton());
  EXPECT_EQ(index->getCurrentPage(), 0);
  EXPECT_TRUE(chosen.empty());

  index->setPages(0, 3);
  EXPECT_FALSE(index->getEmptyLabel()->isVisible());
  EXPECT_EQ(numbersOf(*index), (std::vector<std::wstring>{L"1", L"2", L"3"}));
  index->setPages(2, 0);
  EXPECT_TRUE(index->getNumberButtons().empty());
  EXPECT_TRUE(index->getEmptyLabel()->isVisible());
  EXPECT_EQ(index->getCurrentPage(), 2) << "with no pages nothing limits the current page";
}

TEST_F(PageIndexWidgetTest, AClickOnTheCurrentPagesNumberDoesNothing) {
  PageIndexWidget* index = openIndex(3, 20, 7);
  Button* current = numberButton(*index, L"4");
  ASSERT_NE(current, nullptr);
  EXPECT_TRUE(current->ignoresClicks());
  click(*current);
  EXPECT_TRUE(chosen.empty());
  EXPECT_EQ(current->getState(), 1) << "a click would have unlatched it";
  EXPECT_EQ(index->getCurrentPage(), 3);
  EXPECT_EQ(index->getNumberButtons()[0], numberButton(*index, L"1")) << "the buttons were not made again";
}

TEST_F(PageIndexWidgetTest, ClickingANumberChoosesItAndReCentresTheRun) {
  PageIndexWidget* index = openIndex(0, 20, 7);
  EXPECT_EQ(numbersOf(*index), (std::vector<std::wstring>{L"1", L"2", L"3", L"4", L"5", L"6", L"7"}));
  click(*numberButton(*index, L"3"));
  EXPECT_EQ(chosen, (std::vector<unsigned short>{2}));
  EXPECT_EQ(numbersOf(*index).front(), L"1") << "page 3 is still in the first half";
  EXPECT_EQ(latchedOf(*index), (std::vector<std::wstring>{L"3"}));
  EXPECT_FALSE(numberButton(*index, L"1")->ignoresClicks());
  EXPECT_TRUE(numberButton(*index, L"3")->ignoresClicks());

  click(*numberButton(*index, L"7"));
  EXPECT_EQ(chosen.back(), 6);
  EXPECT_EQ(numbersOf(*index), (std::vector<std::wstring>{L"4", L"5", L"6", L"7", L"8", L"9", L"10"}));
  EXPECT_EQ(latchedOf(*index), (std::vector<std::wstring>{L"7"}));
  EXPECT_TRUE(index->getPrevButton()->isActive());
}

TEST_F(PageIndexWidgetTest, TheArrowsStepOnePageAndTheRunFollows) {
  PageIndexWidget* index = openIndex(0, 20, 7);
  EXPECT_FALSE(index->getPrevButton()->isActive());
  for (int i = 0; i < 5; ++i)
    click(*index->getNextButton());
  EXPECT_EQ(chosen, (std::vector<unsigned short>{1, 2, 3, 4, 5}));
  EXPECT_EQ(index->getCurrentPage(), 5);
  EXPECT_EQ(numbersOf(*index).front(), L"3");
  EXPECT_EQ(latchedOf(*index), (std::vector<std::wstring>{L"6"}));

  click(*index->getPrevButton());
  EXPECT_EQ(chosen.back(), 4);
  EXPECT_EQ(numbersOf(*index).front(), L"2");
  EXPECT_EQ(latchedOf(*index), (std::vector<std::wstring>{L"5"}));
}

TEST_F(PageIndexWidgetTest, AtTheEndTheRunStaysAndOnlyTheLatchMoves) {
  PageIndexWidget* index = openIndex(19, 20, 7);
  EXPECT_EQ(numbersOf(*index).front(), L"14");
  EXPECT_FALSE(index->getNextButton()->isActive());
  std::vector<Button*> const before = index->getNumberButtons();
  click(*index->getPrevButton());
  click(*index->getPrevButton());
  EXPECT_EQ(index->getCurrentPage(), 17);
  EXPECT_EQ(index->getNumberButtons(), before) << "the same buttons";
  EXPECT_EQ(latchedOf(*index), (std::vector<std::wstring>{L"18"}));
  EXPECT_TRUE(index->getNextButton()->isActive());
  click(*index->getNextButton());
  click(*index->getNextButton());
  EXPECT_EQ(index->getCurrentPage(), 19);
  EXPECT_FALSE(index->getNextButton()->isActive());
  EXPECT_EQ(chosen, (std::vector<unsigned short>{18, 17, 18, 19}));
}

TEST_F(PageIndexWidgetTest, NoNumberIsShownPastTheLastPage) {
  // The run of the count itself would start at page 3 and show pages 9 and
  // 10 of 8; the widget pulls it back to the first page.
  EXPECT_EQ(PageIndexWidget::calcFirstPageIndex(7, 8, 10), 2);
  PageIndexWidget* index = openIndex(7, 8, 10);
  EXPECT_EQ(index->getFirstPage(), 0);
  EXPECT_EQ(numbersOf(*index), (std::vector<std::wstring>{L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8"}));
  EXPECT_EQ(PageIndexWidget::calcWidth(7, 8, 10), PageIndexWidget::calcWidthInternal(0, 8));
}

TEST_F(PageIndexWidgetTest, TabPassesThroughTheArrowsAndNumbersInOrder) {
  PageIndexWidget* index = openIndex(0, 3, 10);
  std::vector<TabOrderable*> parts;
  index->getTabOrderables(parts);
  std::vector<TabOrderable*> const expected{index->getPrevButton(), index->getNumberButtons()[0],
                                            index->getNumberButtons()[1], index->getNumberButtons()[2],
                                            index->getNextButton()};
  EXPECT_EQ(parts, expected);
}

TEST_F(PageIndexWidgetTest, WithoutAnOwnersOrderTabStillGoesArrowNumbersArrowAfterTheRunMoves) {
  PageIndexWidget* index = openIndex(11, 40, 9);
  HeadlessInput::clickOn(*index->getPrevButton()); // the run moves: new number buttons
  pump();
  ASSERT_EQ(index->getCurrentPage(), 10);
  ASSERT_TRUE(index->getPrevButton()->hasKbdFocus());
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), index->getNumberButtons()[0]);
  for (std::size_t i = 1; i < index->getNumberButtons().size(); ++i)
    HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), index->getNumberButtons().back());
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), index->getNextButton());
}

TEST_F(PageIndexWidgetTest, TheEmptyLabelSpansTheWidgetAfterAResize) {
  PageIndexWidget* index = openIndex(0, 0, 10);
  index->resize(index->width() + 40, index->height());
  EXPECT_EQ(index->getEmptyLabel()->width(), index->width());
}

TEST_F(PageIndexWidgetTest, TheTestCommandOpensThePanelAndItsBoxSetsTheCount) {
  ASSERT_TRUE(CommandMap::callCommand(PageIndexTestPanel::kCommand));
  pump();
  auto* panel = dynamic_cast<PageIndexTestPanel*>(GlobManager::topLevelWindows().back());
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->getTitle().getString(), LightweightString<wchar_t>(L"PageIndexWidget Test"));
  PageIndexWidget* index = panel->getPageIndex();
  EXPECT_EQ(index->getPageCount(), PageIndexTestPanel::kInitialPages);
  click(*index->getNextButton());
  EXPECT_EQ(panel->getChosenLabel()->getString().getString(), LightweightString<wchar_t>(L"Page 2 of 20"));

  HeadlessInput::doubleClick(HeadlessInput::pointOn(*panel->getPageCountBox()));
  HeadlessInput::typeText("5");
  pump();
  EXPECT_EQ(index->getPageCount(), 5);
  EXPECT_EQ(numbersOf(*index), (std::vector<std::wstring>{L"1", L"2", L"3", L"4", L"5"}));
  HeadlessInput::key(kKeyBackspace);
  pump();
  EXPECT_EQ(index->getPageCount(), 0);
  EXPECT_TRUE(index->getEmptyLabel()->isVisible());
}

void expectGolden(HeadlessScreen& screen, PageIndexWidget const& index, std::string const& name) {
  EXPECT_TRUE(matchesGolden(screen.grab(screenBoxOf(index)), std::string(ZO_GOLDEN_DIR "/") + name + ".png"));
}

TEST_F(PageIndexWidgetTest, GoldenRunAroundTheCurrentPage) {
  PageIndexWidget* index = openIndex(11, 40, 9);
  HeadlessInput::moveTo(XY<int>(0, 0));
  pump();
  expectGolden(screen(), *index, "page_index_middle");
}

TEST_F(PageIndexWidgetTest, GoldenNoPages) {
  PageIndexWidget* index = openIndex(0, 0, 9, 10 * UifStd::getRowHeight());
  index->setEmptyLabel(UIString(L"No pages"));
  pump();
  expectGolden(screen(), *index, "page_index_empty");
}

TEST_F(PageIndexWidgetTest, GoldenAtDoubleScale) {
  UifStd::setScale(2.0);
  PageIndexWidget* index = openIndex(0, 5, 9);
  HeadlessInput::moveTo(XY<int>(0, 0));
  pump();
  expectGolden(screen(), *index, "page_index_first_scale2");
}

} // namespace
