#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>

namespace {

struct MultiLineGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // A focused notes box with wrapped text, a selection and a scroll bar,
  // above a read-only rich text box with a link.
  static StandardPanel* openNotesPanel();
};

StandardPanel* MultiLineGolden::openNotesPanel() {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getRowGap();
  int const width = 14 * row;
  int const notesHeight = MultiLineTextBox::calcHeightForLines(4, getDefaultFontSize(), UifStd::getWidgetGap());
  int const richHeight = MultiLineTextBox::calcHeightForLines(3, getDefaultFontSize(), UifStd::getWidgetGap());
  StandardPanel* panel = openPanel(XY<int>(width + 4 * gap, notesHeight + richHeight + 5 * gap), XY<int>(40, 40));

  auto* notes = panel->createWidget<MultiLineTextBox>(
      MultiLineTextBox::InitArgs(GlobCreationInfo(XY<int>(width, notesHeight))), Glob::UserTopLeft(0, 0));
  auto* rich =
      panel->createWidget<LinkAwareMultiLineTextBox>(GlobCreationInfo(XY<int>(width, richHeight)), Glob::Below(gap));
  rich->setHTML(HTMLRenderer::parse(L"<b>Export finished</b> in <i>2 min 14 s</i>. "
                                    L"<font color=\"#e06c6c\">3 warnings</font>; read "
                                    L"<a href=\"https://example.com/log\">the log</a> for the details.",
                                    UifStd::getColourScheme()));

  HeadlessInput::clickOn(*notes);
  HeadlessInput::typeText("Scene 12, take 3: the boom dips into the frame at the end of the shot.");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::typeText("Use take 4 for the close-up.");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::typeText("Check the sound sync.");
  HeadlessInput::key(kKeyReturn);
  HeadlessInput::typeText("Reshoot if time allows.");
  HeadlessInput::key(kKeyUp);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::key(kKeyLeft, kKeyCtrl);
  HeadlessInput::key(kKeyLeft, kKeyCtrl | kKeyShift);
  return panel;
}

} // namespace

TEST_F(MultiLineGolden, NotesAndRichText) {
  StandardPanel* panel = openNotesPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/multiline_notes_scale1.png"));
}

TEST_F(MultiLineGolden, NotesAndRichTextAtDoubleScale) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openNotesPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/multiline_notes_scale2.png"));
}

TEST_F(MultiLineGolden, NotesAndRichTextAtOneAndAHalf) {
  UifStd::setScale(1.5);
  StandardPanel* panel = openNotesPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/multiline_notes_scale1_5.png"));
}
