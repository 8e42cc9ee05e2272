#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>

namespace {

// Where a widget's pixels differ from its panel's background, read from one
// picture of the window.
struct Ink {
  int left = -1, right = -1, bottom = -1, top = -1; // in the widget's coordinates
  int count = 0;
};

Ink inkOf(Glob const& widget, Glob const& window) {
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(window);
  Rgb const background = rgbOf(window.getPalette().window());
  Zo::Box<int> const box = widget.canvasBox();
  Ink ink;
  for (int y = 0; y < widget.height(); ++y)
    for (int x = 0; x < widget.width(); ++x) {
      Rgb const here = rgbOf(shot.pixel(box.x0 + x, shot.height() - 1 - (box.y0 + y)));
      if (near(here, background, 24))
        continue;
      ink.left = ink.count == 0 ? x : std::min(ink.left, x);
      ink.right = std::max(ink.right, x);
      ink.bottom = ink.count == 0 ? y : std::min(ink.bottom, y);
      ink.top = std::max(ink.top, y);
      ++ink.count;
    }
  return ink;
}

struct TextLabelTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(320, 160));
  }
  TextLabel* makeLabel(TextLabel::InitArgs args) {
    return panel->createWidget<TextLabel>(args, Glob::UserTopLeft(0, 0));
  }
  static TextLabel::InitArgs labelArgs(XY<int> size, UIString const& text) {
    TextLabel::InitArgs args(size);
    args.text = text;
    return args;
  }
};

TEST_F(TextLabelTest, DrawsLeftAlignedTextInTheMiddleOfItsHeight) {
  TextLabel* label = makeLabel(labelArgs(XY<int>(300, UifStd::getRowHeight()), L"Exposure"));
  Ink const ink = inkOf(*label, *panel);
  ASSERT_GT(ink.count, 0);
  EXPECT_GE(ink.left, UifStd::getIndentWidth());
  EXPECT_LT(ink.left, UifStd::getIndentWidth() + 3);
  EXPECT_LT(ink.right, TextLabel::calcWidth(L"Exposure"));
  int const middle = label->height() / 2;
  EXPECT_LE(ink.bottom, middle);
  EXPECT_GE(ink.top, middle);
}

TEST_F(TextLabelTest, RightAlignmentPutsTheTextAtTheRightEdge) {
  TextLabel::InitArgs args = labelArgs(XY<int>(300, UifStd::getRowHeight()), L"Exposure");
  args.alignment = Glib::eTextAlignment::Right;
  TextLabel* label = makeLabel(args);
  Ink const ink = inkOf(*label, *panel);
  ASSERT_GT(ink.count, 0);
  EXPECT_GT(ink.left, label->width() / 2);
  EXPECT_GE(ink.right, label->width() - UifStd::getIndentWidth() - 3);
  EXPECT_LT(ink.right, label->width() - UifStd::getIndentWidth());
}

TEST_F(TextLabelTest, DrawsInItsOwnColour) {
  TextLabel::InitArgs args = labelArgs(XY<int>(300, UifStd::getRowHeight()), L"WWWW");
  args.colour = Colour(1.0, 0.0, 0.0);
  TextLabel* label = makeLabel(args);
  Zo::Image::Surface const shot = HeadlessScreen::windowShot(*panel);
  Zo::Box<int> const box = label->canvasBox();
  int reddest = 0;
  for (int y = 0; y < label->height(); ++y)
    for (int x = 0; x < label->width() / 2; ++x) {
      Rgb const here = rgbOf(shot.pixel(box.x0 + x, shot.height() - 1 - (box.y0 + y)));
      if (here.g < 80 && here.b < 80)
        reddest = std::max(reddest, here.r);
    }
  EXPECT_GT(reddest, 200);
}

TEST_F(TextLabelTest, SettingTheStringRedraws) {
  TextLabel* label = makeLabel(labelArgs(XY<int>(300, UifStd::getRowHeight()), L"I"));
  int const narrow = inkOf(*label, *panel).right;
  label->setString(L"A much longer label");
  EXPECT_GT(inkOf(*label, *panel).right, narrow + 50);
  label->setString(UIString());
  EXPECT_EQ(inkOf(*label, *panel).count, 0);
}

TEST_F(TextLabelTest, WordWrapRunsTheTextOverSeveralLines) {
  UIString const text(L"Render the timeline in the background while editing continues");
  TextLabel* single = makeLabel(labelArgs(XY<int>(120, 140), text));
  int const oneLine = inkOf(*single, *panel).top - inkOf(*single, *panel).bottom;
  single->setWordWrap(true);
  Ink const wrapped = inkOf(*single, *panel);
  EXPECT_GT(wrapped.top - wrapped.bottom, 3 * oneLine);
  EXPECT_GT(wrapped.top, single->height() - UifStd::getRowHeight()) << "wrapped text starts at the top";
}

struct TextLabelGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }
  StandardPanel* openLabelSheet() {
    int const row = UifStd::getRowHeight();
    int const width = row * 9;
    StandardPanel* panel = openPanel(
        StandardPanel::calcPanelSize(XY<int>(width, row * 6), 0, StandardPanel::getDefaultBorder()), XY<int>(40, 40));
    TextLabel::InitArgs plain(XY<int>(width, row));
    plain.text = L"Clip gain";
    Glob* last = panel->createWidget<TextLabel>(plain, Glob::UserTopLeft(0, 0));
    TextLabel::InitArgs centred = plain;
    centred.text = L"Centred heading";
    centred.alignment = Glib::eTextAlignment::Centre;
    centred.font = UifStd::getSubheadingFont();
    last = panel->createWidget<TextLabel>(centred, Glob::Below(0, last));
    TextLabel::InitArgs accent = plain;
    accent.text = L"Render queued";
    accent.alignment = Glib::eTextAlignment::Right;
    accent.colour = panel->getPalette().subheadingText();
    last = panel->createWidget<TextLabel>(accent, Glob::Below(0, last));
    TextLabel::InitArgs wrapped(XY<int>(width, row * 3));
    wrapped.text = L"Proxies are made in the background, so editing can go on while they render.";
    wrapped.wordWrap = true;
    panel->createWidget<TextLabel>(wrapped, Glob::Below(0, last));
    return panel;
  }
};

TEST_F(TextLabelGolden, LabelsAtScaleOne) {
  StandardPanel* panel = openLabelSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/label_sheet.png"));
}

TEST_F(TextLabelGolden, LabelsAtScaleTwo) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openLabelSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/label_sheet_scale2.png"));
}

} // namespace
