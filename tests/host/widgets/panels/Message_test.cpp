#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/Message.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

// Logs the named messages that reach it.
class MessageLog : public StandardPanel {
public:
  explicit MessageLog(InitArgs const& args) : StandardPanel(args) {}
  int handleMessageEvent(LightweightString<char> const& message, Glob*) override {
    log.push_back(message.str());
    return 1;
  }
  std::vector<std::string> log;
};

// The lines the window's text takes when drawn in its text area.
int linesShown(Message const& message) {
  return Glib::TextLayout::countLines(message.getText(), UifStd::getFont(), message.getTextArea().width());
}

using MessageTest = HeadlessScreenTest;

// A window titled "Render log" whose Save button is there to hold the keys.
PushButton* openRenderLogWithTheKeys() {
  StandardPanel::InitArgs args(XY<int>(240, 120));
  args.title = UIString(L"Render log");
  args.screenPosition = XY<int>(40, 40);
  auto* window = new MessageLog(args);
  auto* button =
      window->createWidget<PushButton>(PushButton::InitArgs(L"Save", XY<int>(80, 24)), Glob::UserTopLeft(0, 0));
  GlobManager::realize(window);
  return button;
}

TEST_F(MessageTest, AnalyseWrapsAtTheWidthAndKeepsLineBreaks) {
  Message::Analysis const one = Message::analyse(UIString(L"Short"), 400);
  EXPECT_EQ(one.lineCount, 1);
  EXPECT_GT(one.size.x, 0);
  EXPECT_LT(one.size.x, 400);
  Message::Analysis const broken = Message::analyse(UIString(L"Short\nlines"), 400);
  EXPECT_EQ(broken.lineCount, 2);
  EXPECT_GT(broken.size.y, one.size.y);
  std::wstring words;
  for (int i = 0; i < 40; ++i)
    words += L"word ";
  Message::Analysis const wrapped = Message::analyse(UIString(LightweightString<wchar_t>(words)), 200);
  EXPECT_GT(wrapped.lineCount, 3);
  EXPECT_LE(wrapped.size.x, 200);
  EXPECT_EQ(Message::analyse(UIString(LightweightString<wchar_t>(words))).size.x <= MessageText::standardWidth(), true);
}

TEST_F(MessageTest, AnUntitledMessageIsNamedOnTheDesktopAfterTheWindowThatHadTheKeyboard) {
  PushButton* button = openRenderLogWithTheKeys();
  ASSERT_TRUE(set_kbd_focus(button));
  Warn* untitled = makeMessage(UIString(L"Could not save the log."));
  ASSERT_NE(untitled->canvas(), nullptr);
  EXPECT_EQ(untitled->canvas()->title().str(), L"Render log");
  Warn* titled = makeMessage(UIString(L"Saved."), UIString(L"Export"));
  EXPECT_EQ(titled->canvas()->title().str(), L"Export") << "a title of its own wins";
}

TEST_F(MessageTest, AnUntitledMessagesTitleBarShowsTheNameItCarriesOnTheDesktop) {
  PushButton* button = openRenderLogWithTheKeys();
  ASSERT_TRUE(set_kbd_focus(button));
  Warn* untitled = makeMessage(UIString(L"The folder does not exist."));
  ASSERT_TRUE(set_kbd_focus(button));
  Warn* titled = makeMessage(UIString(L"The folder does not exist."), UIString(L"Render log"));
  pump();
  Zo::Image::Surface const drawnUntitled = HeadlessScreen::windowShot(*untitled);
  Zo::Image::Surface const drawnTitled = HeadlessScreen::windowShot(*titled);
  ASSERT_EQ(drawnUntitled.width(), drawnTitled.width());
  ASSERT_EQ(drawnUntitled.height(), drawnTitled.height());
  // The title bars, at the top of the pictures (the buttons below differ:
  // the keyboard is on the second message's).
  int const barHeight = untitled->getTitleArea().height();
  ASSERT_GT(barHeight, 0);
  int differing = 0;
  int inked = 0;
  for (int y = 0; y < barHeight; ++y)
    for (int x = 0; x < drawnTitled.width(); ++x) {
      differing += drawnUntitled.pixel(x, y) != drawnTitled.pixel(x, y) ? 1 : 0;
      inked += drawnTitled.pixel(x, y) != drawnTitled.pixel(0, barHeight / 2) ? 1 : 0;
    }
  EXPECT_GT(inked, 20) << "the titled message shows its title";
  EXPECT_EQ(differing, 0) << "the untitled one's bar reads \"Render log\" too, not blank";
}

TEST_F(MessageTest, ATitleLongerThanItsBarEndsInAnEllipsisBeforeTheCloseBox) {
  Warn* message =
      makeMessage(UIString(L"Saved."), UIString(L"Dialogues and output checks of a page with a very long name indeed"));
  pump();
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(*message);
  Zo::Box<int> const bar = message->getTitleArea();
  Zo::Box<int> const close = message->getStandardWidgetBox(StandardPanel::kPoot);
  ASSERT_FALSE(close.empty());
  // The gap left of the close box, down the bar, holds nothing but the
  // bar's colour (the picture's rows run down, the panel's up).
  int const gapLeft = close.x0 - UifStd::getWidgetGap();
  std::uint32_t const barColour = shot.pixel(gapLeft, shot.height() - (bar.y0 + bar.y1) / 2);
  int inked = 0;
  for (int y = bar.y0; y < bar.y1; ++y)
    for (int x = gapLeft; x < close.x0; ++x)
      inked += shot.pixel(x, shot.height() - 1 - y) != barColour ? 1 : 0;
  EXPECT_EQ(inked, 0) << "the title stops short of the close box";
}

TEST_F(MessageTest, AMessageIsSizedToItsTextAndShowsAllOfIt) {
  Warn* small = makeMessage(UIString(L"Saved."), UIString(L"Export"));
  std::wstring longer;
  for (int i = 0; i < 12; ++i)
    longer += L"The folder could not be written to. ";
  Warn* large = makeMessage(UIString(LightweightString<wchar_t>(longer)), UIString(L"Export"));
  EXPECT_LT(small->width(), large->width());
  EXPECT_LT(small->height(), large->height());
  EXPECT_LE(large->getTextArea().width(), MessageText::standardWidth() + 1);
  for (Warn* message : {small, large}) {
    Message::Analysis const laidOut = Message::analyse(UIString(message->getText()));
    Zo::Box<int> const area = message->getTextArea();
    EXPECT_GE(area.width(), laidOut.size.x);
    EXPECT_GE(area.height(), laidOut.size.y);
    EXPECT_EQ(linesShown(*message), laidOut.lineCount) << "drawn as it was measured";
    // The text lies above the OK button, which fits in the window.
    Button* ok = message->getButton(0);
    ASSERT_NE(ok, nullptr);
    EXPECT_GE(area.y0, ok->getY() + ok->height());
    EXPECT_LE(ok->getX() + ok->width(), message->getUserArea().x1);
  }
  EXPECT_EQ(large->getTitle().getString(), L"Export");
}

TEST_F(MessageTest, AMessageOpenedOverAModalWindowTakesTheKeysAndEscapeClosesItNotTheWindowBehind) {
  int answered = 0;
  Warn* question = make_warn(UIString(L"Sign in?"), {UIString(L"Sign in")},
                             {Broadcaster<ButtonEvent>::makeCallback([&](ButtonEvent const&) { ++answered; })});
  ASSERT_TRUE(GlobManager::isModal(question));
  Warn* message = makeMessage(UIString(L"Nothing on this computer could open the page."));
  EXPECT_FALSE(GlobManager::refusesInput(message)) << "its OK can be pressed";
  EXPECT_TRUE(message->getButton(0)->hasKbdFocus());
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(message)) << "Escape closed the message";
  ASSERT_TRUE(is_good_glob_ptr(question, "warn")) << "and left the window behind it";
  EXPECT_EQ(GlobManager::currentModal(), question);
  EXPECT_EQ(answered, 0);
}

TEST_F(MessageTest, AWarnButtonRunsItsCallbackOnceAndTheWindowGoes) {
  int yes = 0, no = 0;
  Warn* warn = make_warn(UIString(L"Replace the file?"), {UIString(L"Replace"), UIString(L"Keep")},
                         {Broadcaster<ButtonEvent>::makeCallback([&](ButtonEvent const&) { ++yes; }),
                          Broadcaster<ButtonEvent>::makeCallback([&](ButtonEvent const&) { ++no; })});
  ASSERT_TRUE(is_good_glob_ptr(warn, "warn"));
  EXPECT_TRUE(GlobManager::isModal(warn));
  Button* replace = warn->getButton(0);
  HeadlessInput::clickOn(*replace);
  EXPECT_TRUE(GlobManager::isDeletionPending(warn));
  // Presses before the window has gone are not further answers.
  replace->press();
  warn->getButton(1)->press();
  EXPECT_EQ(yes, 1);
  EXPECT_EQ(no, 0);
  EXPECT_EQ(warn->getAnswer(), 0);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(warn));
  EXPECT_EQ(yes, 1);
  EXPECT_TRUE(GlobManager::topLevelWindows().empty());
}

TEST_F(MessageTest, TheKeyboardAnswersAWarnAndEscapeClosesItWithoutAnAnswer) {
  std::vector<int> answers;
  auto answer = [&](int index) {
    return Broadcaster<ButtonEvent>::makeCallback([&answers, index](ButtonEvent const&) { answers.push_back(index); });
  };
  Warn* first = make_warn(UIString(L"Keep going?"), {UIString(L"Yes"), UIString(L"No")}, {answer(0), answer(1)});
  EXPECT_TRUE(first->getButton(0)->hasKbdFocus());
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(first->getButton(1)->hasKbdFocus());
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(answers, std::vector<int>{1});
  EXPECT_FALSE(is_good_glob_ptr(first));

  Warn* second = make_warn(UIString(L"Keep going?"), {UIString(L"Yes"), UIString(L"No")}, {answer(0), answer(1)});
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(second));
  EXPECT_EQ(answers, std::vector<int>{1});
}

TEST_F(MessageTest, AnsweredOrClosedAWarnGivesTheKeyboardBackToTheButtonThatAsked) {
  StandardPanel* panel = openPanel(XY<int>(300, 120));
  auto* ask = panel->createWidget<PushButton>(PushButton::InitArgs(L"Ask", XY<int>(80, 24)), Glob::UserTopLeft(0, 0));
  HeadlessInput::clickOn(*ask);
  ASSERT_TRUE(ask->hasKbdFocus());
  Warn* warn = make_warn(UIString(L"Keep going?"), {UIString(L"Yes"), UIString(L"No")});
  EXPECT_TRUE(warn->getButton(0)->hasKbdFocus()) << "the question takes the keys at once";
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_TRUE(ask->hasKbdFocus());
  make_warn(UIString(L"Keep going?"), {UIString(L"Yes"), UIString(L"No")});
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_TRUE(ask->hasKbdFocus());
}

TEST_F(MessageTest, TheCloseBoxClosesAWarnWithoutAnAnswer) {
  int pressed = 0;
  Warn* warn = make_warn(UIString(L"Quit?"), {UIString(L"Quit")},
                         {Broadcaster<ButtonEvent>::makeCallback([&](ButtonEvent const&) { ++pressed; })});
  Zo::Box<int> const close = warn->getStandardWidgetBox(StandardPanel::kPoot);
  ASSERT_FALSE(close.empty());
  HeadlessInput::clickOn(*warn, XY<int>((close.x0 + close.x1) / 2, (close.y0 + close.y1) / 2));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(warn));
  EXPECT_EQ(pressed, 0);
}

TEST_F(MessageTest, AMessageCallbackSendsItsMessageToTheListenerWhileItLives) {
  StandardPanel::InitArgs args(XY<int>(200, 100));
  args.screenPosition = XY<int>(50, 50);
  auto* listener = new MessageLog(args);
  GlobManager::realize(listener);
  Warn* warn = make_warn(UIString(L"Replace?"), {UIString(L"Replace"), UIString(L"Cancel")},
                         {Button::makeMessageCallback("outfile_replace_file", listener)});
  HeadlessInput::clickOn(*warn->getButton(0));
  pump();
  EXPECT_EQ(listener->log, std::vector<std::string>{"outfile_replace_file"});

  // Once the listener has gone, a press sends nothing anywhere.
  Warn* again = make_warn(UIString(L"Replace?"), {UIString(L"Replace")},
                          {Button::makeMessageCallback("outfile_replace_file", listener)});
  GlobManager::requestDeletion(listener);
  pump();
  HeadlessInput::clickOn(*again->getButton(0));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(again));
}

TEST_F(MessageTest, AMessageNeedsNoModalAndClosesOnReturn) {
  Warn* message = makeMessage(UIString(L"Done."));
  EXPECT_FALSE(GlobManager::isModal(message));
  EXPECT_EQ(message->getNumButtons(), 1);
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(message));
}

TEST_F(MessageTest, APlainMessageHasNoButtonsAndClosesOnEscape) {
  Message::InitArgs args(UIString(L"Nothing to undo."), UIString(L"Edit"));
  args.screenPosition = XY<int>(300, 300);
  auto* message = new Message(args);
  GlobManager::realize(message);
  EXPECT_EQ(message->getSize(), Message::calcSize(Message::analyse(UIString(L"Nothing to undo."))));
  EXPECT_EQ(linesShown(*message), 1);
  HeadlessInput::clickOn(*message, XY<int>(message->width() / 2, message->getTextArea().y0));
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(message));
}

TEST_F(MessageTest, ButtonsShareOneWidthEnoughForTheLongestLabel) {
  std::vector<UIString> const labels{UIString(L"OK"), UIString(L"Replace every file in the folder")};
  int const width = Warn::calcButtonWidth(labels);
  EXPECT_GE(width, Button::calcWidth(labels[1]));
  EXPECT_GE(width, 3 * UifStd::getRowHeight());
  EXPECT_EQ(Warn::calcButtonRowWidth(labels), 2 * width + UifStd::getWidgetGap());
  Warn* warn = make_warn(UIString(L"?"), labels);
  EXPECT_EQ(warn->getButton(0)->width(), width);
  EXPECT_LT(warn->getButton(0)->getX() + width, warn->getButton(1)->getX() + 1);
  EXPECT_GE(warn->getUserArea().width(), Warn::calcButtonRowWidth(labels));
}

} // namespace

namespace {

// Where a window stands among the windows, from the back (0).
int stackingOf(Glob const* window) {
  std::vector<Glob*> const windows = GlobManager::topLevelWindows();
  return static_cast<int>(std::find(windows.begin(), windows.end(), window) - windows.begin());
}

TEST_F(MessageTest, AMessageStaysInFrontOfAPanelClickedOrShownAfterIt) {
  StandardPanel* panel = openPanel(XY<int>(400, 300), XY<int>(100, 100));
  Warn* saved = makeMessage(UIString(L"The log was saved"), UIString(L"Saved"), XY<int>(150, 150));
  pump();
  ASSERT_GT(stackingOf(saved), stackingOf(panel));
  HeadlessInput::clickOn(*panel, XY<int>(5, 5)); // a corner the message leaves showing
  pump();
  EXPECT_GT(stackingOf(saved), stackingOf(panel)) << "a click on the panel does not hide the message";
  StandardPanel* later = openPanel(XY<int>(200, 100), XY<int>(600, 100));
  pump();
  EXPECT_GT(stackingOf(saved), stackingOf(later)) << "nor does a panel shown after it";
  HeadlessInput::clickOn(*saved->getButton(0));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(saved));
}

} // namespace
