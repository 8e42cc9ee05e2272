#include "host/drawing/DrawingTestSupport.h"
#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

struct TextSearchWidgetTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  MessageLog* parent = nullptr;
  std::vector<std::wstring> searches;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(420, 120));
    parent = static_cast<MessageLog*>(panel->addChild(new MessageLog(XY<int>(400, 100)), Glob::UserTopLeft(0, 0)));
  }

  template <class T = TextSearchWidget>
  T* make(TextSearchWidget::eButtonStyle style = TextSearchWidget::kLabelButton, bool alwaysEnabled = false) {
    return parent->createChild<T>(
        TextSearchWidget::InitArgs(XY<int>(300, UifStd::getRowHeight()), style, alwaysEnabled), Glob::BottomLeft(0, 0));
  }

  void listenTo(TextSearchWidget& widget) {
    widget.addListener(Broadcaster<TextSearchWidgetEvent>::makeCallback(
        [this](TextSearchWidgetEvent const& event) { searches.push_back(event.text.str()); }));
  }

  // A point of the face clear of the label and the edge.
  Rgb buttonFace(Button const& button) { return rgbOf(widgetPixel(button, XY<int>(button.width() / 2, 3))); }
};

TEST_F(TextSearchWidgetTest, WithNoListenerReturnSendsStartSearchToTheParent) {
  TextSearchWidget* search = make();
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("clip");
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(parent->messages, std::vector<std::string>{"StartSearch"});
  EXPECT_EQ(parent->senders.front(), search);
}

TEST_F(TextSearchWidgetTest, WithAListenerReturnGoesToTheListenerAndNotToTheParent) {
  TextSearchWidget* search = make();
  listenTo(*search);
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("clip");
  HeadlessInput::key(kKeyReturn);
  EXPECT_TRUE(parent->messages.empty());
  EXPECT_EQ(searches, std::vector<std::wstring>{L"clip"});
}

TEST_F(TextSearchWidgetTest, TypingNeverSearches) {
  TextSearchWidget* search = make();
  listenTo(*search);
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("a long query");
  EXPECT_TRUE(searches.empty());
  EXPECT_TRUE(parent->messages.empty());
}

TEST_F(TextSearchWidgetTest, ClickingTheSearchButtonSearchesForTheText) {
  TextSearchWidget* search = make();
  listenTo(*search);
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("reel 4");
  HeadlessInput::clickOn(*search->getButton());
  EXPECT_EQ(searches, std::vector<std::wstring>{L"reel 4"});
  EXPECT_TRUE(search->getButton()->hasKbdFocus()) << "an active button takes the focus";
}

TEST_F(TextSearchWidgetTest, TheButtonWakesAtTheFirstCharacterAndSleepsAtTheLastDelete) {
  TextSearchWidget* search = make();
  Button* button = search->getButton();
  EXPECT_FALSE(button->isActive());
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("a");
  EXPECT_TRUE(button->isActive());
  EXPECT_EQ(buttonFace(*button), rgbOf(search->getPalette().doIt()));
  HeadlessInput::key(kKeyBackspace);
  EXPECT_FALSE(button->isActive());
  EXPECT_NE(buttonFace(*button), rgbOf(search->getPalette().doIt()));
}

TEST_F(TextSearchWidgetTest, TheButtonIsRecolouredOnlyWhenItsStateChanges) {
  TextSearchWidget* search = make();
  Button* button = search->getButton();
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("a");
  // A face colour set by someone else stays until the state changes again.
  Colour const marker(0.9, 0.1, 0.1);
  button->setFaceColour(marker, kRedrawNow);
  HeadlessInput::typeText("bcd");
  HeadlessInput::key(kKeyBackspace);
  EXPECT_TRUE(near(buttonFace(*button), rgbOf(marker), 2)) << "more letters and deletes leave the button alone";
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyBackspace);
  EXPECT_FALSE(button->isActive());
  EXPECT_FALSE(near(buttonFace(*button), rgbOf(marker), 2)) << "the last delete recolours it";
}

TEST_F(TextSearchWidgetTest, AnInactiveButtonIgnoresClicksSoAnEmptyBoxSearchesOnlyByReturn) {
  TextSearchWidget* search = make();
  listenTo(*search);
  HeadlessInput::clickOn(*search->getButton());
  EXPECT_TRUE(searches.empty());
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(searches, std::vector<std::wstring>{L""}) << "the listener decides what an empty search means";
  EXPECT_TRUE(search->getTextBox()->hasKbdFocus()) << "an inactive button does not take the focus";
}

TEST_F(TextSearchWidgetTest, AnAlwaysEnabledButtonSendsAnEmptySearch) {
  TextSearchWidget* search = make(TextSearchWidget::kIconButton, true);
  listenTo(*search);
  EXPECT_TRUE(search->getButton()->isActive());
  HeadlessInput::clickOn(*search->getButton());
  EXPECT_EQ(searches, std::vector<std::wstring>{L""});
}

TEST_F(TextSearchWidgetTest, SetStringSearchesForNothingButTheButtonFollowsIt) {
  TextSearchWidget* search = make();
  listenTo(*search);
  search->setString(L"found");
  EXPECT_EQ(search->getString().str(), L"found");
  EXPECT_TRUE(search->getButton()->isActive());
  search->setString(WString());
  EXPECT_FALSE(search->getButton()->isActive());
  EXPECT_TRUE(searches.empty());
}

TEST_F(TextSearchWidgetTest, TheLabelledButtonReadsSearchAndTheBoxTakesTheRest) {
  TextSearchWidget* search = make();
  EXPECT_EQ(search->getButton()->getLabel().str(), L"Search");
  EXPECT_EQ(search->getTextBox()->width() + search->getButton()->width(), search->width());
  search->resize(360, search->height());
  EXPECT_EQ(search->getTextBox()->width() + search->getButton()->width(), 360);
  search->getButton()->setLabel(UIString(L"Find everywhere"));
  EXPECT_EQ(search->getTextBox()->width() + search->getButton()->width(), 360) << "a longer label narrows the box";
}

TEST_F(TextSearchWidgetTest, FocusGivenToTheWidgetLandsInItsBox) {
  TextSearchWidget* search = make();
  search->claimKbdFocus();
  EXPECT_TRUE(search->getTextBox()->hasKbdFocus());
  HeadlessInput::typeText("x");
  EXPECT_EQ(search->getString().str(), L"x");
}

TEST_F(TextSearchWidgetTest, TabGoesFromTheBoxToAnActiveButton) {
  TextSearchWidget* search = make();
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("q");
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(search->getButton()->hasKbdFocus());
}

TEST_F(TextSearchWidgetTest, TheGhostLabelShowsInTheEmptyBox) {
  TextSearchWidget* search = make();
  search->setGhostLabel(UIString(L"Find clips"));
  EXPECT_EQ(search->getTextBox()->getGhostLabel().getString().str(), L"Find clips");
}

TEST_F(TextSearchWidgetTest, AnInactiveWidgetTakesNoTyping) {
  TextSearchWidget* search = make();
  search->setString(L"kept");
  search->setActive(false, kRedrawNow);
  EXPECT_FALSE(search->getTextBox()->isActive());
  EXPECT_FALSE(search->getButton()->isActive());
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("zz");
  EXPECT_EQ(search->getString().str(), L"kept");
  search->setActive(true, kRedrawNow);
  EXPECT_TRUE(search->getButton()->isActive()) << "the button wakes with the text it has";
}

// --- The filter box ---------------------------------------------------------

TEST_F(TextSearchWidgetTest, AFilterShowsTheMagnifierWhileEmptyOrBeingTyped) {
  auto* filter = make<TextFilterWidget>();
  EXPECT_EQ(filter->getIconName().str(), "magnify.png");
  HeadlessInput::clickOn(*filter->getTextBox());
  HeadlessInput::typeText("dog");
  EXPECT_EQ(filter->getIconName().str(), "magnify.png") << "the box still has the focus";
  EXPECT_EQ(filter->getTooltip().getString().str(), L"Search");
}

TEST_F(TextSearchWidgetTest, AfterReturnTheFocusMovesToTheButtonWhichBecomesAClearButton) {
  auto* filter = make<TextFilterWidget>();
  listenTo(*filter);
  HeadlessInput::clickOn(*filter->getTextBox());
  HeadlessInput::typeText("dog");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(searches, std::vector<std::wstring>{L"dog"});
  EXPECT_TRUE(filter->getButton()->hasKbdFocus());
  EXPECT_EQ(filter->getIconName().str(), "poot.png");
  EXPECT_EQ(filter->getTooltip().getString().str(), L"Clear the filter");
}

TEST_F(TextSearchWidgetTest, TypingAfterReturnGoesOnInTheBox) {
  TextSearchWidget* search = make();
  listenTo(*search);
  HeadlessInput::clickOn(*search->getTextBox());
  HeadlessInput::typeText("clip");
  HeadlessInput::key(kKeyReturn);
  ASSERT_TRUE(search->getButton()->hasKbdFocus());
  HeadlessInput::typeText("s");
  EXPECT_TRUE(search->getTextBox()->hasKbdFocus());
  EXPECT_EQ(search->getString().str(), L"clips");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(searches, (std::vector<std::wstring>{L"clip", L"clips", L"cli"}));
}

TEST_F(TextSearchWidgetTest, CtrlAAfterReturnSelectsTheTextToTypeOver) {
  auto* filter = make<TextFilterWidget>();
  listenTo(*filter);
  HeadlessInput::clickOn(*filter->getTextBox());
  HeadlessInput::typeText("heart");
  HeadlessInput::key(kKeyReturn);
  ASSERT_TRUE(filter->getButton()->hasKbdFocus());
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("cat");
  EXPECT_EQ(filter->getString().str(), L"cat");
  EXPECT_TRUE(filter->getTextBox()->hasKbdFocus());
}

TEST_F(TextSearchWidgetTest, PressingTheClearButtonEmptiesTheBoxReportsTheEmptyFilterAndLeavesTheCaretThere) {
  auto* filter = make<TextFilterWidget>();
  listenTo(*filter);
  HeadlessInput::clickOn(*filter->getTextBox());
  HeadlessInput::moveTo(XY<int>(0, 0));
  pump();
  Zo::Image::Surface const empty = screen().grab(screenBoxOf(*filter->getButton()));
  HeadlessInput::clickOn(*filter->getTextBox());
  HeadlessInput::typeText("dog");
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(filter->getIconName().str(), "poot.png");
  HeadlessInput::clickOn(*filter->getButton());
  HeadlessInput::moveTo(XY<int>(0, 0));
  pump();
  EXPECT_TRUE(samePixels(screen().grab(screenBoxOf(*filter->getButton())), empty))
      << "the button is drawn as it was before anything was typed";
  EXPECT_EQ(filter->getString().str(), L"");
  EXPECT_EQ(searches, (std::vector<std::wstring>{L"dog", L""})) << "the filter's end is reported";
  EXPECT_EQ(filter->getIconName().str(), "magnify.png");
  EXPECT_TRUE(filter->getTextBox()->hasKbdFocus());
  HeadlessInput::typeText("cat");
  EXPECT_EQ(filter->getString().str(), L"cat") << "typing goes on in the box";
}

TEST_F(TextSearchWidgetTest, AFilterFilledByTheProgramShowsTheClearIcon) {
  auto* filter = make<TextFilterWidget>();
  filter->setString(L"cat");
  EXPECT_EQ(filter->getIconName().str(), "poot.png");
  filter->setString(WString());
  EXPECT_EQ(filter->getIconName().str(), "magnify.png");
}

TEST_F(TextSearchWidgetTest, TheFilterButtonPictureChangesWithItsIcon) {
  auto* filter = make<TextFilterWidget>();
  Button* button = filter->getButton();
  Zo::Image::Surface const magnifier = screen().grab(screenBoxOf(*button));
  filter->setString(L"cat");
  filter->invalidate(); // setString leaves the repaint to its caller
  filter->update();
  Zo::Image::Surface const clear = screen().grab(screenBoxOf(*button));
  int differing = 0;
  for (int y = 0; y < clear.height(); ++y)
    for (int x = 0; x < clear.width(); ++x)
      differing += clear.pixel(x, y) != magnifier.pixel(x, y) ? 1 : 0;
  EXPECT_GT(differing, 10);
}

} // namespace
