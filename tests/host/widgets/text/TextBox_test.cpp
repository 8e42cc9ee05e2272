#include "support/WidgetTestSupport.h"

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/drawing/TextLayout.h>

#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/values/binding/ValAdaptor.h>
#include <zowidgets/values/notify/ValServer.h>

#include "host/drawing/IconTestSupport.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

// Logs the named messages that reach it.
class MessageLog : public Glob {
public:
  explicit MessageLog(std::vector<std::string>& log) : Glob(GlobCreationInfo(XY<int>(10, 10))), log_(log) {}
  int react(Event const& event) override {
    if (!event.isMessage())
      return 0;
    log_.push_back(event.message.str());
    return 1;
  }

private:
  std::vector<std::string>& log_;
};

struct TextBoxTest : HeadlessScreenTest {
  // Servers outlive the widgets (closed in TearDown) bound to them.
  ValServer<WString> textServer;
  ValServer<double> numberServer;
  StandardPanel* panel = nullptr;
  TextBox* box = nullptr;
  std::vector<TextBoxEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(400, 200), XY<int>(200, 200));
    box = panel->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(300, UifStd::getRowHeight()))),
                                       Glob::UserTopLeft(0, 0));
    box->addListener(Broadcaster<TextBoxEvent>::makeCallback([this](TextBoxEvent const& e) { events.push_back(e); }));
  }

  // Where a character boundary of a left-aligned box's text lies, in the box.
  static XY<int> boundary(TextBoxBase const& textBox, std::wstring const& text, std::size_t index) {
    double const advance = Glib::TextDescription::calcBounds(WString(text.substr(0, index)), UifStd::getFont()).width();
    return XY<int>(textBox.getFieldBox().x0 + UifStd::getWidgetGap() + static_cast<int>(std::lround(advance)),
                   textBox.height() / 2);
  }

  bool drawsBetween(TextBoxBase const& textBox, int x0, int x1);

  void typeInto(Glob& target, std::string const& text) {
    HeadlessInput::clickOn(target);
    HeadlessInput::typeText(text);
  }

  // The brightest channel sum over columns x0 to x1 of a widget: text is the
  // brightest thing in a box on a dark theme.
  int brightestBetween(Glob const& widget, int x0, int x1) {
    int brightest = 0;
    for (int y = 0; y < widget.height(); ++y)
      for (int x = x0; x < x1; ++x) {
        Rgb const rgb = rgbOf(widgetPixel(widget, XY<int>(x, y)));
        brightest = std::max(brightest, rgb.r + rgb.g + rgb.b);
      }
    return brightest;
  }
};

TEST_F(TextBoxTest, ALegendLongerThanItsRoomEndsInAnEllipsisNotACut) {
  WString const legend(L"Frame rate of every clip");
  auto titled = [&](int titleWidth, int y) {
    TitleTextBox::InitArgs args(GlobCreationInfo(XY<int>(360, UifStd::getRowHeight())));
    args.titleWidth = titleWidth;
    auto* titleBox = panel->createWidget<TitleTextBox>(args, Glob::UserTopLeft(0, y));
    titleBox->setTitle(UIString(legend));
    return titleBox;
  };
  int const room = 60;
  TitleTextBox* squeezed = titled(room + UifStd::getWidgetGap(), 40);
  TitleTextBox* roomy = titled(300, 80);
  ASSERT_GT(UifStd::measure(UIString(legend)).x, 2 * room);
  pump();
  // Cut off, the legend's first pixels would match the whole legend's; cut
  // short with an ellipsis, its end differs.
  int differing = 0;
  for (int y = 0; y < squeezed->height(); ++y)
    for (int x = 0; x < room; ++x)
      differing += widgetPixel(*squeezed, XY<int>(x, y)) != widgetPixel(*roomy, XY<int>(x, y));
  EXPECT_GT(differing, 0);
  EXPECT_EQ(brightestBetween(*squeezed, room, squeezed->getFieldBox().x0), brightestBetween(*roomy, 295, 300))
      << "nothing drawn past its room";
}

TEST_F(TextBoxTest, ClickingTakesTheFocusAndTypingGoesInAtTheCaret) {
  typeInto(*box, "hello");
  EXPECT_TRUE(box->hasKbdFocus());
  EXPECT_EQ(box->getString().str(), L"hello");
  HeadlessInput::key(kKeyLeft);
  HeadlessInput::key(kKeyLeft);
  HeadlessInput::typeText("X");
  EXPECT_EQ(box->getString().str(), L"helXlo");
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyDelete);
  EXPECT_EQ(box->getString().str(), L"helo");
}

TEST_F(TextBoxTest, TabIntoABoxSelectsItsTextSoTypingReplacesIt) {
  box->setString(L"[Enter a title]");
  auto* other = panel->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(300, UifStd::getRowHeight()))),
                                             Glob::Below(UifStd::getRowGap(), box));
  typeInto(*other, "x");
  HeadlessInput::key(kKeyTab, kKeyShift);
  ASSERT_TRUE(box->hasKbdFocus());
  EXPECT_TRUE(box->editor().hasSelection());
  HeadlessInput::typeText("Night 3");
  EXPECT_EQ(box->getString().str(), L"Night 3");
  HeadlessInput::key(kKeyTab);
  ASSERT_TRUE(other->hasKbdFocus());
  HeadlessInput::typeText("y");
  EXPECT_EQ(other->getString().str(), L"y") << "forward as well as back";
}

TEST_F(TextBoxTest, AClickIntoABoxPlacesTheCaretWithoutSelecting) {
  box->setString(L"[Enter a title]");
  HeadlessInput::click(HeadlessInput::pointOn(*box, boundary(*box, L"[Enter a title]", 6)));
  ASSERT_TRUE(box->hasKbdFocus());
  EXPECT_FALSE(box->editor().hasSelection());
  HeadlessInput::typeText("X");
  EXPECT_EQ(box->getString().str(), L"[EnterX a title]");
}

TEST_F(TextBoxTest, ShiftArrowsAndCtrlWordMovesSelect) {
  typeInto(*box, "hello brave world");
  HeadlessInput::key(kKeyHome);
  for (int i = 0; i < 5; ++i)
    HeadlessInput::key(kKeyRight, kKeyShift);
  EXPECT_EQ(box->editor().selectedText(), L"hello");
  HeadlessInput::key(kKeyRight, kKeyShift | kKeyCtrl);
  EXPECT_EQ(box->editor().selectedText(), L"hello ");
  HeadlessInput::key(kKeyRight, kKeyShift | kKeyCtrl);
  EXPECT_EQ(box->editor().selectedText(), L"hello brave ");
  HeadlessInput::key(kKeyEnd, kKeyShift);
  EXPECT_EQ(box->editor().selectedText(), L"hello brave world");
  HeadlessInput::key(kKeyLeft, kKeyCtrl);
  EXPECT_EQ(box->editor().caret(), 12u);
  EXPECT_FALSE(box->editor().hasSelection());
}

TEST_F(TextBoxTest, DraggingTheMouseSelectsBetweenPressAndRelease) {
  std::wstring const text = L"clip name here";
  typeInto(*box, "clip name here");
  HeadlessInput::drag(HeadlessInput::pointOn(*box, boundary(*box, text, 5)),
                      HeadlessInput::pointOn(*box, boundary(*box, text, 9)));
  EXPECT_EQ(box->editor().selectedText(), L"name");
  // Typing replaces the dragged selection.
  HeadlessInput::typeText("title");
  EXPECT_EQ(box->getString().str(), L"clip title here");
}

TEST_F(TextBoxTest, ShiftClickExtendsFromTheCaret) {
  std::wstring const text = L"abcdefgh";
  typeInto(*box, "abcdefgh");
  HeadlessInput::click(HeadlessInput::pointOn(*box, boundary(*box, text, 2)));
  HeadlessInput::click(HeadlessInput::pointOn(*box, boundary(*box, text, 6)), kMouseLeft, kKeyShift);
  EXPECT_EQ(box->editor().selectedText(), L"cdef");
}

TEST_F(TextBoxTest, DoubleClickSelectsTheWord) {
  std::wstring const text = L"first second third";
  typeInto(*box, "first second third");
  HeadlessInput::doubleClick(HeadlessInput::pointOn(*box, boundary(*box, text, 8)));
  EXPECT_EQ(box->editor().selectedText(), L"second");
}

TEST_F(TextBoxTest, CtrlZTakesBackAPasteAndTheTypingBeforeItAndTellsTheListeners) {
  OS().setClipboardText(L" interview");
  typeInto(*box, "Reel 2");
  HeadlessInput::key('v', kKeyCtrl);
  ASSERT_EQ(box->getString().str(), L"Reel 2 interview");
  events.clear();
  HeadlessInput::key('z', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"Reel 2");
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().kind, TextBoxEvent::kTextChanged);
  HeadlessInput::key('z', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"");
  HeadlessInput::key('y', kKeyCtrl);
  HeadlessInput::key('y', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"Reel 2 interview");
}

TEST_F(TextBoxTest, CutCopyAndPasteUseTheClipboard) {
  OS().setClipboardText(L"");
  typeInto(*box, "hello world");
  HeadlessInput::key(kKeyHome);
  HeadlessInput::key(kKeyRight, kKeyShift | kKeyCtrl);
  HeadlessInput::key('c', kKeyCtrl);
  EXPECT_EQ(OS().clipboardText().str(), L"hello ");
  EXPECT_EQ(box->getString().str(), L"hello world");
  HeadlessInput::key('x', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"world");
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::key('v', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"worldhello ");
  OS().setClipboardText(L"line one\nline two");
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::key('v', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"line one");
}

TEST_F(TextBoxTest, ARestrictedBoxRefusesLetters) {
  box->setCharacters(L"0123456789");
  typeInto(*box, "a1b2c3");
  EXPECT_EQ(box->getString().str(), L"123");
  OS().setClipboardText(L"x4y");
  HeadlessInput::key('v', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"1234");
}

TEST_F(TextBoxTest, RefusedCharactersAreKeptOut) {
  box->setCharacters(L"/:", TextBoxBase::kNotAllowed);
  typeInto(*box, "a/b:c");
  EXPECT_EQ(box->getString().str(), L"abc");
}

TEST_F(TextBoxTest, TheSizeLimitStopsTyping) {
  box->setSizeLimit(3);
  typeInto(*box, "12345");
  EXPECT_EQ(box->getString().str(), L"123");
}

TEST_F(TextBoxTest, TheProgramCanPlaceTheCaretAndSelectEverything) {
  box->setString(L"abcdef");
  box->setCursorPosition(2);
  EXPECT_EQ(box->editor().caret(), 2u);
  EXPECT_FALSE(box->editor().hasSelection());
  box->setCursorPosition(99);
  EXPECT_EQ(box->editor().caret(), 6u);
  box->highlightAllText();
  EXPECT_EQ(box->editor().selectedText(), L"abcdef");
  box->claimKbdFocus();
  HeadlessInput::typeText("z");
  EXPECT_EQ(box->getString().str(), L"z");
}

TEST_F(TextBoxTest, AReadOnlyBoxSelectsAndCopiesButDoesNotChange) {
  box->setString(L"fixed");
  box->setEditable(false);
  typeInto(*box, "zz");
  HeadlessInput::key(kKeyBackspace);
  EXPECT_EQ(box->getString().str(), L"fixed");
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::key('c', kKeyCtrl);
  EXPECT_EQ(OS().clipboardText().str(), L"fixed");
  EXPECT_TRUE(events.empty());
}

TEST_F(TextBoxTest, ReturnCommitsToTheServer) {
  box->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, WString>(&textServer)));
  typeInto(*box, "shot 1");
  EXPECT_EQ(textServer.get().str(), L"");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(textServer.get().str(), L"shot 1");
}

TEST_F(TextBoxTest, LosingTheFocusCommitsToTheServer) {
  TextBox* other = panel->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(100, 20))),
                                                Glob::Below(UifStd::getRowGap()));
  box->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, WString>(&textServer)));
  typeInto(*box, "take");
  EXPECT_EQ(textServer.get().str(), L"");
  HeadlessInput::clickOn(*other);
  EXPECT_TRUE(other->hasKbdFocus());
  EXPECT_EQ(textServer.get().str(), L"take");
}

TEST_F(TextBoxTest, TheServerValueIsShownWithoutAnEvent) {
  textServer = WString(L"from data");
  box->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, WString>(&textServer)));
  EXPECT_EQ(box->getString().str(), L"from data");
  textServer = WString(L"changed");
  EXPECT_EQ(box->getString().str(), L"changed");
  EXPECT_TRUE(events.empty());
}

TEST_F(TextBoxTest, ListenersHearChangesAndReturn) {
  typeInto(*box, "ab");
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(events.size(), 4u);
  EXPECT_EQ(events[0].kind, TextBoxEvent::kTextChanged);
  EXPECT_EQ(events[0].text.str(), L"a");
  EXPECT_EQ(events[1].text.str(), L"ab");
  EXPECT_EQ(events[2].kind, TextBoxEvent::kTextChanged);
  EXPECT_EQ(events[2].text.str(), L"a");
  EXPECT_EQ(events[3].kind, TextBoxEvent::kReturnPressed);
  EXPECT_EQ(events[3].text.str(), L"a");
  EXPECT_EQ(events[3].source, box);
}

TEST_F(TextBoxTest, RequestedCallbacksSendMessagesForTheirKinds) {
  std::vector<std::string> log;
  auto* target = panel->addChild(new MessageLog(log), Glob::UserBottomRight(0, 0));
  box->requestCallback("Typed", target, TextBoxEvent::kTextChanged);
  box->requestCallback("Confirmed", target, TextBoxEvent::kReturnPressed);
  typeInto(*box, "q");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(log, (std::vector<std::string>{"Typed", "Confirmed"}));
}

TEST_F(TextBoxTest, SetStringRaisesNoEvent) {
  std::vector<std::string> log;
  auto* target = panel->addChild(new MessageLog(log), Glob::UserBottomRight(0, 0));
  box->requestCallback("Any", target, TextBoxEvent::kTextChanged | TextBoxEvent::kReturnPressed);
  box->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, WString>(&textServer)));
  box->setString(L"quiet");
  EXPECT_EQ(box->getString().str(), L"quiet");
  EXPECT_TRUE(events.empty());
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(textServer.get().str(), L"");
}

TEST_F(TextBoxTest, ANumericBoxClampsWhatItCommits) {
  auto* number = panel->createWidget<NumericTextBox>(
      NumericTextBox::InitArgs(GlobCreationInfo(XY<int>(100, UifStd::getRowHeight()))), Glob::Below(10));
  number->setValueRange(0.0, 10.0);
  number->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, double>(&numberServer)));
  HeadlessInput::clickOn(*number);
  EXPECT_EQ(number->getString().str(), L"0");
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("2x5");
  EXPECT_EQ(number->getString().str(), L"25");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(numberServer.get(), 10.0);
  EXPECT_EQ(number->getString().str(), L"10");
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("-3");
  HeadlessInput::clickOn(*box);
  EXPECT_EQ(numberServer.get(), 0.0);
}

TEST_F(TextBoxTest, UpAndDownStepTheNumberWithinItsRange) {
  auto* number = panel->createWidget<NumericTextBox>(
      NumericTextBox::InitArgs(GlobCreationInfo(XY<int>(100, UifStd::getRowHeight()))), Glob::Below(10));
  number->setValueRange(0.0, 3.0);
  number->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, double>(&numberServer)));
  HeadlessInput::clickOn(*number);
  HeadlessInput::key(kKeyUp);
  EXPECT_EQ(number->getString().str(), L"1");
  EXPECT_EQ(numberServer.get(), 1.0);
  HeadlessInput::key(kKeyUp);
  HeadlessInput::key(kKeyUp);
  HeadlessInput::key(kKeyUp);
  EXPECT_EQ(numberServer.get(), 3.0);
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(number->getString().str(), L"2");
  EXPECT_EQ(numberServer.get(), 2.0);
}

// A number box bound to the test's number server, with a range.
NumericTextBox* makeNumberBox(StandardPanel& panel, ValServer<double>& server, double min, double max) {
  auto* number = panel.createWidget<NumericTextBox>(
      NumericTextBox::InitArgs(GlobCreationInfo(XY<int>(100, UifStd::getRowHeight()))), Glob::Below(10));
  number->setValueRange(min, max);
  number->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(new ValAdaptor<WString, double>(&server)));
  return number;
}

TEST_F(TextBoxTest, ANumericBoxShowsAFractionFromTheDataRoundedToItsRange) {
  NumericTextBox* number = makeNumberBox(*panel, numberServer, 0.0, 1.0);
  numberServer = 0.5416666666666666; // where a dragged slider puts it
  EXPECT_EQ(number->getString().str(), L"0.542");
  EXPECT_EQ(numberServer.get(), 0.5416666666666666);
  EXPECT_EQ(number->getValue(), 0.5416666666666666);
  numberServer = 0.25;
  EXPECT_EQ(number->getString().str(), L"0.25");
  numberServer = 0.9999;
  EXPECT_EQ(number->getString().str(), L"1");

  NumericTextBox* wide = makeNumberBox(*panel, numberServer, 0.0, 200.0);
  EXPECT_EQ(wide->shownDecimals(), 1);
  numberServer = 108.33333333333333;
  EXPECT_EQ(wide->getString().str(), L"108.3");
  // Each box rounds by its own range; the data is shown, not clamped.
  EXPECT_EQ(number->getString().str(), L"108.333");
}

TEST_F(TextBoxTest, ANumericBoxWithoutARangeShowsSixDecimalsAndLeavesWholeAndHugeNumbersAlone) {
  // A range as wide as a float's counts as none.
  NumericTextBox* unbounded = makeNumberBox(*panel, numberServer, -3.4e38, 3.4e38);
  EXPECT_EQ(unbounded->shownDecimals(), 6);
  numberServer = 0.5;
  EXPECT_EQ(unbounded->getString().str(), L"0.5");
  NumericTextBox* number = makeNumberBox(*panel, numberServer, 0.0, 0.0);
  numberServer = 1.0 / 3.0;
  EXPECT_EQ(number->getString().str(), L"0.333333");
  numberServer = -0.0000001;
  EXPECT_EQ(number->getString().str(), L"0");
  numberServer = 42.0;
  EXPECT_EQ(number->getString().str(), L"42");
  numberServer = 1e300;
  EXPECT_EQ(number->getString().str(), (DataConvert::convert<double, WString>(1e300).str()));
}

TEST_F(TextBoxTest, ReturnOnARoundedNumberLeavesTheDataExactAndAnEditSendsWhatWasTyped) {
  NumericTextBox* number = makeNumberBox(*panel, numberServer, 0.0, 10.0);
  numberServer = 2.5416666666666665;
  EXPECT_EQ(number->getString().str(), L"2.54");
  HeadlessInput::clickOn(*number);
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(numberServer.get(), 2.5416666666666665);
  EXPECT_EQ(number->getString().str(), L"2.54");
  HeadlessInput::key(kKeyUp); // from the exact value, not the text
  EXPECT_EQ(numberServer.get(), 3.5416666666666665);
  EXPECT_EQ(number->getString().str(), L"3.54");
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("7.123456");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(numberServer.get(), 7.123456);
  EXPECT_EQ(number->getString().str(), L"7.12");
}

TEST_F(TextBoxTest, AnUnboundNumericBoxShowsWhatItCommitsRounded) {
  auto* number = panel->createWidget<NumericTextBox>(
      NumericTextBox::InitArgs(GlobCreationInfo(XY<int>(100, UifStd::getRowHeight()))), Glob::Below(10));
  number->setValueRange(0.0, 1.0);
  HeadlessInput::clickOn(*number);
  HeadlessInput::typeText("0.123456");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(number->getString().str(), L"0.123");
  EXPECT_EQ(number->getValue(), 0.123456);
  // Text set by the program is shown as it is and read as it is.
  number->setString(L"0.5");
  EXPECT_EQ(number->getValue(), 0.5);
}

TEST_F(TextBoxTest, AnObfuscatedBoxDrawsNoneOfItsText) {
  box->setObfuscatedDisplay(true);
  box->setString(L"hunter");
  Zo::Image::Surface const first = HeadlessScreen::windowShot(*panel).clone();
  box->setString(L"Wqm7#j");
  Zo::Image::Surface const second = HeadlessScreen::windowShot(*panel).clone();
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(first, second), 0);
  // The same secrets shown plainly do differ, so the pictures above are of
  // the text.
  box->setObfuscatedDisplay(false);
  Zo::Image::Surface const plain = HeadlessScreen::windowShot(*panel).clone();
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(second, plain), 0);
}

TEST_F(TextBoxTest, AnObfuscatedBoxKeepsItsTextOffTheClipboard) {
  OS().setClipboardText(L"before");
  box->setObfuscatedDisplay(true);
  typeInto(*box, "secret");
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::key('c', kKeyCtrl);
  HeadlessInput::key('x', kKeyCtrl);
  EXPECT_EQ(OS().clipboardText().str(), L"before");
  EXPECT_EQ(box->getString().str(), L"secret");
}

TEST_F(TextBoxTest, TheShowPasswordControlRevealsTheText) {
  box->setObfuscatedDisplay(true);
  box->setShowPasswordControl(true);
  box->setString(L"hunter");
  Zo::Image::Surface const hidden = HeadlessScreen::windowShot(*panel).clone();
  int const eye = box->getFieldBox().x1 - box->height() / 2;
  HeadlessInput::clickOn(*box, XY<int>(eye, box->height() / 2));
  EXPECT_TRUE(box->isPasswordRevealed());
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(hidden, HeadlessScreen::windowShot(*panel)), 0);
  HeadlessInput::clickOn(*box, XY<int>(eye, box->height() / 2));
  EXPECT_FALSE(box->isPasswordRevealed());
  EXPECT_EQ(box->getString().str(), L"hunter");
}

TEST_F(TextBoxTest, TheKeyboardReachesTheEyeByTabAndSpaceOrReturnRevealTheText) {
  box->setObfuscatedDisplay(true);
  box->setShowPasswordControl(true);
  box->setEditable(true);
  auto* after = panel->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(100, UifStd::getRowHeight()))),
                                             Glob::Below(UifStd::getRowGap(), box));
  after->setEditable(true);
  HeadlessInput::clickOn(*box);
  HeadlessInput::typeText("hunter");
  Zo::Image::Surface const onText = HeadlessScreen::windowShot(*panel).clone();
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), box) << "the eye is the box's own stop";
  EXPECT_TRUE(box->isEyeFocused());
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(onText, HeadlessScreen::windowShot(*panel)), 0)
      << "the eye shows that it holds the keys";
  HeadlessInput::typeText(" "); // the key, then its character
  EXPECT_TRUE(box->isPasswordRevealed());
  EXPECT_EQ(box->getString().str(), L"hunter") << "the Space is not typed";
  HeadlessInput::key(kKeyReturn);
  EXPECT_FALSE(box->isPasswordRevealed());
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), after);
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(get_kbd_focus(), box);
  EXPECT_TRUE(box->isEyeFocused()) << "Shift-Tab comes back to the eye first";
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_FALSE(box->isEyeFocused());
  HeadlessInput::key(kKeyTab);
  ASSERT_TRUE(box->isEyeFocused());
  HeadlessInput::key(kKeyEnd);
  EXPECT_FALSE(box->isEyeFocused()) << "any other key is the text's again";
  HeadlessInput::typeText("2");
  EXPECT_EQ(box->getString().str(), L"hunter2");

  box->setShowPasswordControl(false);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), after) << "no eye, no stop";
}

TEST_F(TextBoxTest, ThePasswordEyeIsTheThemesEyeStruckThroughOrOpen) {
  ScopedEnv noOverride("ZOWIDGETS_ICON_THEME_DIR", std::nullopt);
  ScopedEnv defaultDataDirs("XDG_DATA_DIRS", std::nullopt);
  box->setObfuscatedDisplay(true);
  box->setShowPasswordControl(true);
  Zo::Box<int> const field = box->getFieldBox();
  int const side = std::min(field.height(), 16);
  XY<int> const corner(field.x1 - field.height() + (field.height() - side) / 2, field.y0 + (field.height() - side) / 2);
  auto shown = [&](char const* name, Colour const& colour) {
    return iconPixelsShown(*box, name, side, corner, colour);
  };
  Palette const& palette = box->getPalette();
  auto [matching, solid] = shown("eye-closed.png", palette.text(-6));
  EXPECT_GT(solid, 20);
  EXPECT_EQ(matching, solid);
  HeadlessInput::clickOn(*box, XY<int>(field.x1 - field.height() / 2, box->height() / 2));
  ASSERT_TRUE(box->isPasswordRevealed());
  std::tie(matching, solid) = shown("eye-open.png", palette.text());
  EXPECT_GT(solid, 20);
  EXPECT_EQ(matching, solid);
}

// Whether any pixel of the box's middle row, between two columns, differs
// from the field's own colour: where text is drawn.
bool TextBoxTest::drawsBetween(TextBoxBase const& textBox, int x0, int x1) {
  std::uint32_t const field =
      widgetPixel(textBox, XY<int>(textBox.getFieldBox().x0 + UifStd::getWidgetGap() / 2, textBox.height() / 2));
  for (int x = x0; x < x1; ++x)
    if (widgetPixel(textBox, XY<int>(x, textBox.height() / 2)) != field)
      return true;
  return false;
}

TEST_F(TextBoxTest, AlignmentPlacesTextThatFits) {
  box->setString(L"WWW");
  int const half = box->width() / 2;
  EXPECT_TRUE(drawsBetween(*box, UifStd::getWidgetGap(), half));
  EXPECT_FALSE(drawsBetween(*box, half, box->width() - UifStd::getWidgetGap()));
  box->setAlignment(Glib::eTextAlignment::Right);
  EXPECT_FALSE(drawsBetween(*box, UifStd::getWidgetGap(), half));
  EXPECT_TRUE(drawsBetween(*box, half, box->width() - UifStd::getWidgetGap()));
}

TEST_F(TextBoxTest, GhostTextShowsOnlyWhileTheBoxIsEmpty) {
  int const end = box->width() - UifStd::getWidgetGap();
  EXPECT_FALSE(drawsBetween(*box, UifStd::getWidgetGap(), end));
  box->setGhostLabel(L"Search clips");
  EXPECT_TRUE(drawsBetween(*box, UifStd::getWidgetGap(), end));
  Zo::Image::Surface const ghost = HeadlessScreen::windowShot(*panel).clone();
  box->setString(L"x");
  box->setString(L"");
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(ghost, HeadlessScreen::windowShot(*panel)), 0);
  box->setString(L"Search clips");
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(ghost, HeadlessScreen::windowShot(*panel)), 0);
}

TEST_F(TextBoxTest, ATitleTextBoxEditsOnlyInItsField) {
  TitleTextBox::InitArgs args(GlobCreationInfo(XY<int>(300, UifStd::getRowHeight())));
  args.title = L"Name";
  args.titleWidth = 80;
  auto* titled = panel->createWidget<TitleTextBox>(args, Glob::Below(10));
  EXPECT_EQ(titled->getFieldBox(), Zo::Box<int>(80, 0, 300, UifStd::getRowHeight()));
  std::wstring const text = L"alpha beta";
  typeInto(*titled, "alpha beta");
  HeadlessInput::doubleClick(HeadlessInput::pointOn(*titled, boundary(*titled, text, 2)));
  EXPECT_EQ(titled->editor().selectedText(), L"alpha");
}

TEST_F(TextBoxTest, AnInactiveBoxIsDrawnDimmedAndTakesNoTyping) {
  TitleTextBox::InitArgs args(GlobCreationInfo(XY<int>(300, UifStd::getRowHeight())));
  args.title = L"Name";
  args.titleWidth = 80;
  auto* titled = panel->createWidget<TitleTextBox>(args, Glob::Below(10));
  titled->setString(L"Take 12");
  pump();
  int const legendActive = brightestBetween(*titled, 0, 70);
  int const textActive = brightestBetween(*titled, 85, 200);
  titled->setActive(false, kRedrawNow);
  pump();
  int const legendInactive = brightestBetween(*titled, 0, 70);
  int const textInactive = brightestBetween(*titled, 85, 200);
  // Dimmed, as an inactive check box's label is, yet still readable.
  EXPECT_LT(legendInactive, legendActive * 3 / 4);
  EXPECT_LT(textInactive, textActive * 3 / 4);
  EXPECT_GT(textInactive, brightestBetween(*titled, 260, 290) + 60);
  typeInto(*titled, "x");
  EXPECT_EQ(titled->getString(), WString(L"Take 12"));
  EXPECT_FALSE(titled->hasKbdFocus());
  titled->setActive(true, kRedrawNow);
  pump();
  EXPECT_EQ(brightestBetween(*titled, 0, 70), legendActive);
  EXPECT_EQ(brightestBetween(*titled, 85, 200), textActive);
}

TEST_F(TextBoxTest, AValueShownWithoutTheFocusIsMeasuredWholeNotCharacterByCharacter) {
  // A number box beside a dragged slider shows a new value at every move:
  // only the whole text is laid out, not each of its beginnings.
  pump();
  std::size_t const before = Glib::TextLayout::layoutsMade();
  WString value(L"8613427905");
  box->setNewWidgetValue(value, kRedrawNow);
  pump();
  EXPECT_LE(Glib::TextLayout::layoutsMade() - before, 1u);
  // Clicked, the caret still lands between the right characters.
  std::wstring const text = value.str();
  HeadlessInput::clickOn(*box, boundary(*box, text, 4));
  EXPECT_EQ(box->editor().caret(), 4u);
}

TEST_F(TextBoxTest, TheCaretStaysInViewInALongText) {
  std::string const longText(80, 'm');
  typeInto(*box, longText);
  Zo::Image::Surface const atEnd = HeadlessScreen::windowShot(*panel).clone();
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(box->editor().caret(), 0u);
  // Back at the start the text scrolls, so the picture changes.
  EXPECT_GT(Zo::Image::Surface::maxChannelDifference(atEnd, HeadlessScreen::windowShot(*panel)), 0);
  // Scrolled to the end, the left edge shows characters far from the start.
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::click(HeadlessInput::pointOn(*box, XY<int>(UifStd::getWidgetGap(), box->height() / 2)));
  EXPECT_GT(box->editor().caret(), 40u);
}

// A right-aligned number box as wide as widthToShow asks shows the number
// from its first character; a character narrower, its start is scrolled off.
TEST_F(TextBoxTest, ABoxAsWideAsWidthToShowShowsTheTextWhole) {
  WString const text(L"-2147483647");
  int const whole = TextBoxBase::widthToShow(text);
  int const digit = TextBoxBase::widthToShow(WString(L"8")) - TextBoxBase::widthToShow(WString(L""));
  auto caretAfterClickingTheStart = [&](int width, int row) {
    TextBox::InitArgs args(GlobCreationInfo(XY<int>(width, UifStd::getRowHeight())));
    auto* number = panel->createWidget<NumericTextBox>(args, Glob::UserTopLeft(0, row * 2 * UifStd::getRowHeight()));
    number->setAlignment(Glib::eTextAlignment::Right);
    number->setString(text);
    HeadlessInput::click(HeadlessInput::pointOn(*number, XY<int>(UifStd::getWidgetGap() + 1, number->height() / 2)));
    return number->editor().caret();
  };
  EXPECT_EQ(caretAfterClickingTheStart(whole, 1), 0u);
  EXPECT_GT(caretAfterClickingTheStart(whole - digit, 2), 0u);
}

} // namespace

TEST(TextBoxSurround, TheLightInsetSurroundIsTheEdgeWidthAtEveryScale) {
  UifStd::setScale(1.0);
  EXPECT_EQ(TextBoxBase::getLightInsetSurround(), WidgetSurround::all(1));
  UifStd::setScale(2.0);
  EXPECT_EQ(TextBoxBase::getLightInsetSurround(), WidgetSurround::all(2));
  UifStd::setScale(1.0);
}
