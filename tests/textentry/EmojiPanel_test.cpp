#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/EmojiPanel.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

struct EmojiPanelTest : HeadlessScreenTest {
  EmojiPanel* panel = nullptr;
  std::vector<Emoji::Character> picked;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    EmojiPanel::InitArgs args;
    args.screenPosition = XY<int>(100, 100);
    args.callback =
        Broadcaster<EmojiPanelEvent>::makeCallback([this](EmojiPanelEvent const& e) { picked.push_back(e.character); });
    panel = new EmojiPanel(args);
    GlobManager::realize(panel);
  }

  void searchFor(std::string const& text) {
    HeadlessInput::clickOn(*panel->getFilter()->getTextBox());
    HeadlessInput::key('a', kKeyCtrl);
    HeadlessInput::key(kKeyBackspace);
    HeadlessInput::typeText(text);
    HeadlessInput::key(kKeyReturn);
    pump();
  }

  void clickTab(int index) {
    TabbedDialogue* tabs = panel->getTabs();
    Zo::Box<int> const box = tabs->getTabBox(index);
    HeadlessInput::click(
        HeadlessInput::pointOn(*tabs->getTabRow(), XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2)));
  }

  std::vector<WString> gridTexts() const {
    std::vector<WString> texts;
    EmojiPanel::Grid* grid = panel->getGrid();
    for (int i = 0; i < grid->getItemCount(); ++i)
      texts.push_back(static_cast<EmojiPanel::EmojiView*>(grid->getItem(i))->getCharacter().text);
    return texts;
  }

  static std::vector<WString> textsOf(std::vector<Emoji::Character> const& characters) {
    std::vector<WString> texts;
    for (Emoji::Character const& c : characters)
      texts.push_back(c.text);
    return texts;
  }
};

TEST_F(EmojiPanelTest, AnEmptySearchShowsEveryCategoryAndEveryCharacter) {
  std::vector<Emoji::eCategory> const all = Emoji::getCategories();
  EXPECT_EQ(panel->getCategoriesShown(), all);
  ASSERT_EQ(panel->getTabs()->getNumTabs(), static_cast<int>(all.size()));
  std::size_t shown = 0;
  for (int tab = 0; tab < panel->getTabs()->getNumTabs(); ++tab) {
    clickTab(tab);
    EXPECT_EQ(gridTexts(), textsOf(Emoji::getEmojis(all[static_cast<std::size_t>(tab)]))) << tab;
    shown += static_cast<std::size_t>(panel->getGrid()->getItemCount());
  }
  std::size_t total = 0;
  for (Emoji::eCategory category : all)
    total += Emoji::getEmojis(category).size();
  EXPECT_EQ(shown, total);
}

TEST_F(EmojiPanelTest, EveryCategoryShowsItsRepresentativeOnItsTabAndItsNameAsTheTooltip) {
  std::vector<Emoji::eCategory> const all = Emoji::getCategories();
  for (std::size_t i = 0; i < all.size(); ++i) {
    TabbedDialogue::Page const& tab = panel->getTabs()->getTab(static_cast<int>(i));
    EXPECT_EQ(tab.title.getString(), Emoji::asWString(Emoji::getRepresentative(all[i]))) << i;
    EXPECT_EQ(tab.title.getString(), Emoji::getEmojis(all[i]).front().text) << "the category's first emoji";
    EXPECT_EQ(tab.tooltip.text.getString(), Emoji::getDisplayString(all[i]).getString());
  }
}

TEST_F(EmojiPanelTest, SearchingForCatFindsTheCatFaces) {
  searchFor("cat");
  std::vector<Emoji::eCategory> const shown = panel->getCategoriesShown();
  ASSERT_FALSE(shown.empty());
  EXPECT_EQ(shown.front(), Emoji::kSmileysAndEmotion);
  std::vector<std::string> names;
  for (Emoji::Character const& c : panel->getCategoryContents(Emoji::kSmileysAndEmotion))
    names.push_back(c.name);
  EXPECT_NE(std::find(names.begin(), names.end(), "grinning cat"), names.end());
  EXPECT_NE(std::find(names.begin(), names.end(), "crying cat"), names.end());
  for (std::string const& name : names)
    EXPECT_NE(name.find("cat"), std::string::npos) << name;
  EXPECT_EQ(gridTexts(), textsOf(panel->getCategoryContents(Emoji::kSmileysAndEmotion)));
  EXPECT_NE(std::find(shown.begin(), shown.end(), Emoji::kAnimalsAndNature), shown.end()) << "the cat itself";
  EXPECT_EQ(panel->getTabs()->getNumTabs(), static_cast<int>(shown.size()));
}

TEST_F(EmojiPanelTest, ASearchThatMatchesNothingLeavesNoTabsAndAnEmptyGridUntilItIsCleared) {
  searchFor("zzqx no such emoji");
  EXPECT_TRUE(panel->getCategoriesShown().empty());
  EXPECT_EQ(panel->getTabs()->getNumTabs(), 0);
  EXPECT_EQ(panel->getGrid()->getItemCount(), 0);
  searchFor("");
  EXPECT_EQ(panel->getCategoriesShown(), Emoji::getCategories());
  EXPECT_EQ(gridTexts(), textsOf(Emoji::getEmojis(Emoji::getCategories().front())));
}

TEST_F(EmojiPanelTest, TheClearButtonRestoresEveryCategoryAndTypingGoesOnInTheSearch) {
  searchFor("zzqx no such emoji");
  ASSERT_EQ(panel->getGrid()->getItemCount(), 0);
  HeadlessInput::clickOn(*panel->getFilter()->getButton());
  pump();
  EXPECT_EQ(panel->getCategoriesShown(), Emoji::getCategories());
  EXPECT_EQ(gridTexts(), textsOf(Emoji::getEmojis(Emoji::getCategories().front())));
  HeadlessInput::typeText("cat");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(panel->getFilter()->getString().str(), L"cat");
  EXPECT_LT(panel->getCategoriesShown().size(), Emoji::getCategories().size());
}

TEST_F(EmojiPanelTest, AGridLeftEmptyByTheSearchSaysSo) {
  EmojiPanel::Grid* grid = panel->getGrid();
  EXPECT_FALSE(grid->getEmptyText().empty());
  auto pixels = [this, grid] {
    std::vector<std::uint32_t> all;
    for (int y = 0; y < grid->height(); ++y)
      for (int x = 0; x < grid->width(); ++x)
        all.push_back(widgetPixel(*grid, XY<int>(x, y)));
    return all;
  };
  searchFor("zzqx no such emoji");
  ASSERT_EQ(grid->getItemCount(), 0);
  std::vector<std::uint32_t> const saying = pixels();
  grid->setEmptyText(UIString());
  pump();
  std::vector<std::uint32_t> const bare = pixels();
  ASSERT_EQ(saying.size(), bare.size());
  int differing = 0;
  for (std::size_t i = 0; i < saying.size(); ++i)
    differing += saying[i] != bare[i] ? 1 : 0;
  EXPECT_GT(differing, 50) << "the words are drawn over the empty grid";
}

TEST_F(EmojiPanelTest, AClickReportsTheCharacterShownInTheCell) {
  searchFor("heart");
  clickTab(1);
  EmojiPanel::Grid* grid = panel->getGrid();
  ASSERT_GT(grid->getItemCount(), 2);
  auto* cell = static_cast<EmojiPanel::EmojiView*>(grid->getItem(2));
  HeadlessInput::clickOn(*cell);
  ASSERT_EQ(picked.size(), 1u);
  EXPECT_EQ(picked.front().text, cell->getCharacter().text);
  EXPECT_STREQ(picked.front().name, cell->getCharacter().name);
}

TEST_F(EmojiPanelTest, TheSelectionIsClearedAfterEachClickSoTheSameCellWorksAgain) {
  EmojiPanel::Grid* grid = panel->getGrid();
  ASSERT_GT(grid->getItemCount(), 0);
  HeadlessInput::clickOn(*grid->getItem(0));
  EXPECT_EQ(grid->getSelectedItem(), -1);
  HeadlessInput::clickOn(*grid->getItem(0));
  ASSERT_EQ(picked.size(), 2u);
  EXPECT_EQ(picked[0].text, picked[1].text);
}

TEST_F(EmojiPanelTest, TabLeadsFromTheSearchToTheCategoriesAndOnToTheGrid) {
  HeadlessInput::clickOn(*panel->getFilter()->getTextBox());
  HeadlessInput::key(kKeyTab);
  ASSERT_TRUE(get_kbd_focus() && isParentedTo(get_kbd_focus(), panel->getTabs()));
  HeadlessInput::key(kKeyRight);
  pump();
  EXPECT_EQ(panel->getTabs()->getCurrentTab(), 1);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), panel->getGrid());
  HeadlessInput::key(kKeyRight); // the first cell of the second category
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(picked.size(), 1u);
  EXPECT_EQ(picked.front().text, gridTexts().front());
  HeadlessInput::key(kKeyTab, kKeyShift);
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), panel->getFilter()->getTextBox());
}

TEST_F(EmojiPanelTest, WithASearchTypedTabGoesFromTheClearButtonOnToTheCategories) {
  searchFor("dog");
  ASSERT_TRUE(panel->getFilter()->getButton()->canBeIt());
  panel->getFilter()->getTextBox()->claimKbdFocus();
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), panel->getFilter()->getButton());
  HeadlessInput::key(kKeyTab);
  ASSERT_TRUE(get_kbd_focus() && isParentedTo(get_kbd_focus(), panel->getTabs())) << "not trapped in the search";
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), panel->getGrid());
}

TEST_F(EmojiPanelTest, TheKeyboardPicksTooFromTheFocusedGrid) {
  EmojiPanel::Grid* grid = panel->getGrid();
  grid->claimKbdFocus();
  HeadlessInput::key(kKeyRight); // the first cell
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(picked.size(), 1u);
  EXPECT_EQ(picked.front().text, Emoji::getEmojis(Emoji::getCategories().front())[1].text);
}

TEST_F(EmojiPanelTest, CellsFillRowsOfTheGridsWidth) {
  EmojiPanel::Grid* grid = panel->getGrid();
  int const perRow = grid->itemsPerRow(EmojiPanel::EmojiView::cellSide());
  ASSERT_GT(perRow, 1);
  int const rows = (grid->getItemCount() + perRow - 1) / perRow;
  EXPECT_EQ(grid->getRowCount(), rows);
  EXPECT_EQ(grid->getItem(perRow)->getX(), grid->getItem(0)->getX()) << "the next row starts at the left again";
}

TEST_F(EmojiPanelTest, TheGridAndTabsFollowAResize) {
  XY<int> const before = panel->getGrid()->getSize();
  panel->resize(panel->width() + 100, panel->height() + 60);
  EXPECT_EQ(panel->getGrid()->getSize(), panel->calcGridSize());
  EXPECT_EQ(panel->getGrid()->width(), before.x + 100);
  EXPECT_EQ(panel->getTabs()->width(), panel->getUserArea().width());
}

TEST_F(EmojiPanelTest, EveryMessageFromTheChildrenStopsAtThePanel) {
  EXPECT_EQ(Glob::sendMsg(panel, "Anything", panel->getGrid()), 1);
}

} // namespace
