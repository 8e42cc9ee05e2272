#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

struct MultiLineTextBoxTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  MultiLineTextBox* box = nullptr;
  std::vector<TextBoxEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    panel = openPanel(XY<int>(16 * row, 8 * row), XY<int>(200, 200));
    int const height = MultiLineTextBox::calcHeightForLines(4, getDefaultFontSize(), UifStd::getWidgetGap());
    box = panel->createWidget<MultiLineTextBox>(MultiLineTextBox::InitArgs(GlobCreationInfo(XY<int>(12 * row, height))),
                                                Glob::UserTopLeft(0, 0));
    box->addListener(Broadcaster<TextBoxEvent>::makeCallback([this](TextBoxEvent const& e) { events.push_back(e); }));
  }

  // A point in the box on a display line, `x` pixels into the text.
  XY<int> pointOnLine(int line, int x) const {
    int const margin = box->getMargins();
    int const top = box->height() - margin - (line - box->firstVisibleLine()) * box->lineHeight();
    return XY<int>(margin + x, top - box->lineHeight() / 2);
  }
};

} // namespace

TEST_F(MultiLineTextBoxTest, CalcHeightForLinesGrowsByALinePerLine) {
  int const one = MultiLineTextBox::calcHeightForLines(1, getDefaultFontSize(), 0);
  int const three = MultiLineTextBox::calcHeightForLines(3, getDefaultFontSize(), 0);
  EXPECT_GT(one, 0);
  EXPECT_EQ(three, 3 * one);
  EXPECT_EQ(MultiLineTextBox::calcHeightForLines(3, getDefaultFontSize(), 5), three + 10);
  EXPECT_EQ(one, box->lineHeight());
}

TEST_F(MultiLineTextBoxTest, TypingWithReturnMakesLines) {
  HeadlessInput::clickOn(*box);
  EXPECT_TRUE(box->hasKbdFocus());
  HeadlessInput::typeText("first");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::typeText("second");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::typeText("third");
  EXPECT_EQ(box->getString().str(), L"first\nsecond\nthird");
  ASSERT_EQ(box->displayLines().size(), 3u);
  EXPECT_EQ(box->caretLine(), 2);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().kind, TextBoxEvent::kTextChanged);
  EXPECT_EQ(events.back().text.str(), L"first\nsecond\nthird");
}

TEST_F(MultiLineTextBoxTest, SettingTextRaisesNoEvent) {
  box->setString(L"from the program");
  EXPECT_EQ(box->getString().str(), L"from the program");
  EXPECT_TRUE(events.empty());
}

TEST_F(MultiLineTextBoxTest, InsertGoesInAtTheCaret) {
  box->setString(L"ac");
  HeadlessInput::clickOn(*box);
  HeadlessInput::key(kKeyEnd, kKeyCtrl);
  HeadlessInput::key(kKeyLeft);
  box->insertAtCaret(L"b");
  EXPECT_EQ(box->getString().str(), L"abc");
  EXPECT_EQ(box->editor().caret(), 2u);
  box->insertAtCaret(L"1\r\n2\r3");
  EXPECT_EQ(box->getString().str(), L"ab1\n2\n3c");
  EXPECT_EQ(box->editor().caret(), 7u);
}

TEST_F(MultiLineTextBoxTest, LongTextWrapsAtWordsWithinTheWidth) {
  std::wstring const text = L"the quick brown fox jumps over the lazy dog and keeps running past the river bank";
  box->setString(WString(text));
  std::vector<MultiLineTextBox::Line> const& lines = box->displayLines();
  ASSERT_GT(lines.size(), 1u);
  std::size_t covered = 0;
  for (MultiLineTextBox::Line const& line : lines) {
    EXPECT_EQ(line.start, covered);
    covered = line.end;
    // Each line breaks after a space, and its words fit the text width.
    std::wstring words = text.substr(line.start, line.end - line.start);
    words.erase(words.find_last_not_of(L' ') + 1);
    double const width = Glib::TextLayout::measure(WString(words), UifStd::getFont()).width;
    EXPECT_LE(width, box->width() - 2 * box->getMargins() - ScrollBar::thickness()) << toNarrow(WString(words));
    if (line.end < text.size()) {
      EXPECT_EQ(text[line.end - 1], L' ');
    }
  }
  EXPECT_EQ(covered, text.size());
}

TEST_F(MultiLineTextBoxTest, RandomTextWrapsIntoLinesThatCoverItAndFit) {
  std::mt19937 random(1234);
  constexpr std::wstring_view kPieces[] = {L"a", L"take", L"microphone", L"supercalifragilistic", L" ", L"  ", L"\n"};
  std::uniform_int_distribution<std::size_t> piece(0, std::size(kPieces) - 1);
  std::uniform_int_distribution<int> length(0, 40);
  double const textWidth = box->width() - 2 * box->getMargins() - ScrollBar::thickness() - UifStd::getWidgetGap();
  for (int i = 0; i < 200; ++i) {
    std::wstring text;
    for (int n = length(random); n > 0; --n)
      text += kPieces[piece(random)];
    box->setString(WString(text));
    std::vector<MultiLineTextBox::Line> const& lines = box->displayLines();
    ASSERT_FALSE(lines.empty());
    std::size_t expectedStart = 0;
    for (MultiLineTextBox::Line const& line : lines) {
      ASSERT_EQ(line.start, expectedStart) << "case " << i;
      std::wstring const shown = text.substr(line.start, line.end - line.start);
      ASSERT_EQ(shown.find(L'\n'), std::wstring::npos) << "case " << i;
      bool const wrapped = line.end < text.size() && text[line.end] != L'\n';
      std::wstring words = shown;
      words.erase(words.find_last_not_of(L' ') + 1);
      // A line wider than the box holds a single word.
      if (Glib::TextLayout::measure(WString(words), UifStd::getFont()).width > textWidth) {
        ASSERT_EQ(words.substr(words.find_first_not_of(L' ')).find(L' '), std::wstring::npos) << "case " << i;
      }
      if (wrapped) {
        ASSERT_EQ(text[line.end - 1], L' ') << "case " << i;
      }
      expectedStart = wrapped ? line.end : line.end + 1;
    }
    ASSERT_EQ(expectedStart, text.size() + 1) << "case " << i;
  }
}

TEST_F(MultiLineTextBoxTest, ResizingRewrapsAndKeepsTheScrollBarAtTheRight) {
  box->setString(L"the quick brown fox jumps over the lazy dog and keeps running past the river bank");
  std::size_t const wide = box->displayLines().size();
  box->resize(box->width() / 2, box->height());
  EXPECT_GT(box->displayLines().size(), wide);
  ScrollBar const& bar = *box->getScrollBar();
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.getX() + bar.width(), box->width() - box->getMargins());
  EXPECT_EQ(bar.getY(), box->getMargins());
  EXPECT_EQ(box->caretLine(), static_cast<int>(box->displayLines().size()) - 1);
  EXPECT_EQ(box->firstVisibleLine() + box->visibleLineCount(), static_cast<int>(box->displayLines().size()));
}

TEST_F(MultiLineTextBoxTest, UpAndDownMoveBetweenLines) {
  box->setString(L"abcdef\nab\nabcdef");
  HeadlessInput::clickOn(*box, pointOnLine(0, 1));
  EXPECT_EQ(box->editor().caret(), 0u);
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(box->editor().caret(), 6u);
  HeadlessInput::key(kKeyDown);
  // The short line stops the caret at its end.
  EXPECT_EQ(box->editor().caret(), 9u);
  HeadlessInput::key(kKeyDown);
  // The caret keeps aiming at its first column.
  EXPECT_EQ(box->editor().caret(), 16u);
  HeadlessInput::key(kKeyUp, kKeyShift);
  HeadlessInput::key(kKeyUp, kKeyShift);
  EXPECT_EQ(box->editor().selectedText(), L"\nab\nabcdef");
}

TEST_F(MultiLineTextBoxTest, EndStaysOnAWrappedLine) {
  box->setString(L"the quick brown fox jumps over the lazy dog and keeps running past the river bank");
  ASSERT_GT(box->displayLines().size(), 1u);
  HeadlessInput::clickOn(*box, pointOnLine(0, 1));
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(box->caretLine(), 0);
  EXPECT_EQ(box->editor().caret(), box->displayLines()[0].end - 1);
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(box->editor().caret(), 0u);
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(box->caretLine(), 1);
  HeadlessInput::key(kKeyEnd, kKeyCtrl);
  EXPECT_EQ(box->editor().caret(), box->editor().size());
}

TEST_F(MultiLineTextBoxTest, DoubleClickSelectsAWord) {
  box->setString(L"alpha\nbeta gamma");
  HeadlessInput::doubleClick(HeadlessInput::pointOn(*box, pointOnLine(1, 2)));
  EXPECT_EQ(box->editor().selectedText(), L"beta");
}

TEST_F(MultiLineTextBoxTest, TheClipboardCarriesLines) {
  box->setString(L"one\ntwo");
  HeadlessInput::clickOn(*box);
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::key('c', kKeyCtrl);
  EXPECT_EQ(OS().clipboardText().str(), L"one\ntwo");
  HeadlessInput::key(kKeyEnd, kKeyCtrl);
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::key('v', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"one\ntwo\none\ntwo");
  EXPECT_EQ(box->displayLines().size(), 4u);
}

TEST_F(MultiLineTextBoxTest, APasteOfManyLinesIsOneUndoStepAndEarlierEditsStayUndoable) {
  HeadlessInput::clickOn(*box);
  HeadlessInput::typeText("note");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::typeText("two");
  OS().setClipboardText(L"pasted\r\nover\rthree lines");
  HeadlessInput::key('v', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"note\ntwopasted\nover\nthree lines");

  HeadlessInput::key('z', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"note\ntwo") << "the whole paste taken back at once";
  EXPECT_EQ(box->editor().caret(), 8u);
  HeadlessInput::key('z', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"") << "the typing before it, line break included, is still there to undo";
  HeadlessInput::key('y', kKeyCtrl);
  HeadlessInput::key('y', kKeyCtrl);
  EXPECT_EQ(box->getString().str(), L"note\ntwopasted\nover\nthree lines");
  EXPECT_EQ(box->displayLines().size(), 4u);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().text.str(), L"note\ntwopasted\nover\nthree lines");
}

TEST_F(MultiLineTextBoxTest, DraggingSelectsAcrossLines) {
  box->setString(L"alpha\nbeta\ngamma");
  // From the start of the first line to past the end of the second.
  int const pastTheEnd = box->width() / 2;
  HeadlessInput::drag(HeadlessInput::pointOn(*box, pointOnLine(0, 0)),
                      HeadlessInput::pointOn(*box, pointOnLine(1, pastTheEnd)));
  EXPECT_EQ(box->editor().selectedText(), L"alpha\nbeta");
  HeadlessInput::typeText("x");
  EXPECT_EQ(box->getString().str(), L"x\ngamma");
}

TEST_F(MultiLineTextBoxTest, TheWheelAndTheCaretScroll) {
  std::wstring text;
  for (int i = 0; i < 12; ++i)
    text += L"line " + std::to_wstring(i) + L"\n";
  box->setString(WString(text));
  // The caret is at the end, so the last lines show.
  EXPECT_EQ(box->firstVisibleLine(), 13 - box->visibleLineCount());
  EXPECT_TRUE(box->getScrollBar()->isVisible());
  HeadlessInput::wheel(HeadlessInput::pointOn(*box), 3);
  EXPECT_EQ(box->firstVisibleLine(), 13 - box->visibleLineCount() - 3);
  HeadlessInput::wheel(HeadlessInput::pointOn(*box), 100);
  EXPECT_EQ(box->firstVisibleLine(), 0);
  EXPECT_EQ(box->getScrollBar()->getThumbPosition(), 0.0);
  HeadlessInput::wheel(HeadlessInput::pointOn(*box), -2);
  EXPECT_EQ(box->firstVisibleLine(), 2);
}

TEST_F(MultiLineTextBoxTest, TheScrollBarScrolls) {
  std::wstring text;
  for (int i = 0; i < 12; ++i)
    text += L"line " + std::to_wstring(i) + L"\n";
  box->setString(WString(text));
  int const bottom = 13 - box->visibleLineCount();
  ASSERT_EQ(box->firstVisibleLine(), bottom);
  ScrollBar const& bar = *box->getScrollBar();
  EXPECT_EQ(bar.getThumbPosition(), 1.0);
  // The button at the top steps back a line.
  HeadlessInput::clickOn(bar, XY<int>(bar.width() / 2, bar.height() - 2));
  EXPECT_EQ(box->firstVisibleLine(), bottom - 1);
  // Dragging the thumb to the top shows the first line.
  int const thumbMiddle = bar.height() - (bar.thumbStart() + bar.thumbLength() / 2);
  HeadlessInput::drag(HeadlessInput::pointOn(bar, XY<int>(bar.width() / 2, thumbMiddle)),
                      HeadlessInput::pointOn(bar, XY<int>(bar.width() / 2, bar.height() + box->height())));
  EXPECT_EQ(box->firstVisibleLine(), 0);
  EXPECT_EQ(bar.getThumbPosition(), 0.0);
}

TEST_F(MultiLineTextBoxTest, ScrollBarHidesWhenEverythingFits) {
  box->setString(L"one\ntwo");
  EXPECT_FALSE(box->getScrollBar()->isVisible());
  EXPECT_EQ(box->firstVisibleLine(), 0);
}

TEST_F(MultiLineTextBoxTest, ReadOnlyBoxRefusesTyping) {
  box->setEditable(false);
  box->setString(L"fixed");
  HeadlessInput::clickOn(*box);
  HeadlessInput::typeText("x");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(box->getString().str(), L"fixed");
  EXPECT_TRUE(events.empty());
}

namespace {

struct LinkAwareTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  LinkAwareMultiLineTextBox* box = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    panel = openPanel(XY<int>(16 * row, 8 * row), XY<int>(200, 200));
    box = panel->createWidget<LinkAwareMultiLineTextBox>(GlobCreationInfo(XY<int>(12 * row, 4 * row)),
                                                         Glob::UserTopLeft(0, 0));
  }
};

} // namespace

TEST_F(LinkAwareTest, ClickingALinkOpensIt) {
  box->setHTML(HTMLRenderer::parse(L"<a href=\"https://example.com/docs\">documentation</a> and more",
                                   UifStd::getColourScheme()));
  int const margin = box->getMargins();
  XY<int> const onLink(margin + 4, box->height() - margin - box->lineHeight() / 2);
  EXPECT_EQ(box->linkAt(onLink).str(), L"https://example.com/docs");
  std::size_t const before = OS().recordedShellRequests().size();
  HeadlessInput::clickOn(*box, onLink);
  std::vector<Zo::ShellRequest> const requests = OS().recordedShellRequests();
  ASSERT_EQ(requests.size(), before + 1);
  EXPECT_EQ(requests.back().kind, Zo::ShellRequest::Kind::open);
  ASSERT_EQ(requests.back().targets.size(), 1u);
  EXPECT_EQ(requests.back().targets[0].str(), L"https://example.com/docs");
}

TEST_F(LinkAwareTest, ClickingPlainTextOpensNothing) {
  box->setHTML(HTMLRenderer::parse(L"no links here <a href=\"x\">x</a>", UifStd::getColourScheme()));
  int const margin = box->getMargins();
  std::size_t const before = OS().recordedShellRequests().size();
  HeadlessInput::clickOn(*box, XY<int>(margin + 4, box->height() - margin - box->lineHeight() / 2));
  EXPECT_EQ(OS().recordedShellRequests().size(), before);
}

TEST_F(LinkAwareTest, TheWheelScrollsLongText) {
  std::wstring html;
  for (int i = 0; i < 20; ++i)
    html += L"<p>paragraph " + std::to_wstring(i) + L"</p>";
  box->setHTML(HTMLRenderer::parse(html, UifStd::getColourScheme()));
  EXPECT_EQ(box->firstVisibleLine(), 0);
  EXPECT_TRUE(box->getScrollBar()->isVisible());
  HeadlessInput::wheel(HeadlessInput::pointOn(*box), -3);
  EXPECT_EQ(box->firstVisibleLine(), 3);
}

namespace {

// Pixels of the box's line `line` (its band across the text area) that are
// not its background: ink drawn there.
struct GhostTextTest : MultiLineTextBoxTest {
  int inkOnLine(MultiLineTextBox const& box, int line) {
    int const margin = box.getMargins();
    int const top = box.height() - margin - line * box.lineHeight();
    std::uint32_t const background = widgetPixel(box, XY<int>(box.width() - margin - 2, margin + 1));
    int ink = 0;
    for (int y = top - box.lineHeight() + 1; y < top; ++y)
      for (int x = margin; x < box.width() - margin - 2; ++x)
        ink += widgetPixel(box, XY<int>(x, y)) != background ? 1 : 0;
    return ink;
  }
};

TEST_F(GhostTextTest, AGhostTextWiderThanTheBoxWrapsOntoTheNextLine) {
  box->setGhostLabel(UIString(L"Ghost"));
  box->invalidate();
  pump();
  EXPECT_GT(inkOnLine(*box, 0), 0);
  EXPECT_EQ(inkOnLine(*box, 1), 0);
  box->setGhostLabel(UIString(L"Enter a description enclosed in HTML tags, or a URL that starts with http, "
                              L"and the rest of a long explanation"));
  box->invalidate();
  pump();
  EXPECT_GT(inkOnLine(*box, 0), 0);
  EXPECT_GT(inkOnLine(*box, 1), 0);
}

} // namespace
