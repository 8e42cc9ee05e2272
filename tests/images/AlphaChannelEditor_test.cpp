#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/ImageSaver.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/files/FileChooserWindow.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/images/AlphaChannelEditorPanel.h>

#include <filesystem>
#include <vector>

namespace {

using namespace HeadlessInput;

LightweightString<wchar_t> wide(std::string const& text) { return LightweightString<wchar_t>::fromUTF8(text); }

// A folder of its own for each test, so that "AT-Output.png" starts absent.
std::string freshFolder(std::string const& name) {
  std::filesystem::path const folder = std::filesystem::temp_directory_path() / ("zo-alphatron-" + name);
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  return folder.string();
}

// 16 by 12, grey, with alpha 254 at (1, 1), 1 at (2, 1) and 128 elsewhere.
std::string samplePicture(std::string const& folder) {
  Zo::Image::Surface picture(16, 12);
  for (int y = 0; y < 12; ++y)
    for (int x = 0; x < 16; ++x)
      picture.setPixel(x, y, 0x80404040u);
  picture.setPixel(1, 1, 0xFE7F7F7Fu);
  picture.setPixel(2, 1, 0x01000000u);
  std::string const path = folder + "/sample.png";
  ZoImage::Saver::saveImage(picture, path);
  return path;
}

class AlphaEditorTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    folder = freshFolder(::testing::UnitTest::GetInstance()->current_test_info()->name());
    editor = AlphaChannelEditorPanel::create();
    ASSERT_TRUE(editor->openFile(wide(samplePicture(folder))));
    for (ImageEditorView* view : {editor->getRGBView(), editor->getAlphaView()}) {
      view->addListener(Broadcaster<ImageEditorView::Event>::makeCallback(
          [this, view](ImageEditorView::Event const& event) { heard.emplace_back(view, event.kind); }));
    }
    editor->getAlphaView()->setPixelSize(8);
    editor->getRGBView()->setPixelSize(8);
    pump();
  }
  // The screen point over the middle of image pixel (x, y) in a view.
  static XY<int> overPixel(ImageEditorView* view, int x, int y) {
    ImageViewEx* grid = view->getView();
    int const size = int(grid->getPixelSize());
    return pointOn(*grid, XY<int>((x - grid->getOffset().x) * size + size / 2,
                                  grid->height() - 1 - ((y - grid->getOffset().y) * size + size / 2)));
  }
  std::uint32_t alphaAt(int x, int y) const { return editor->getAlphaView()->getImage().pixel(x, y) >> 24; }

  std::string folder;
  AlphaChannelEditorPanel* editor = nullptr;
  std::vector<std::pair<ImageEditorView*, int>> heard;
};

TEST_F(AlphaEditorTest, ItIsAlphatronWithBothViewsOnOnePicture) {
  EXPECT_EQ(editor->getTitle().getString(), LightweightString<wchar_t>(L"Alphatron"));
  EXPECT_EQ(editor->getAlphaView()->getView()->getMode(), ImageViewEx::kAlpha);
  EXPECT_EQ(editor->getRGBView()->getView()->getMode(), ImageViewEx::kColours);
  EXPECT_TRUE(editor->getAlphaView()->getImage().sharesPixelsWith(editor->getRGBView()->getImage()));
  EXPECT_TRUE(CommandMap::findCommand(AlphaChannelEditorPanel::kCommand));
}

TEST_F(AlphaEditorTest, AClickAt254Gives255AndAShiftClickAt1Gives0) {
  click(overPixel(editor->getAlphaView(), 1, 1));
  pump();
  EXPECT_EQ(alphaAt(1, 1), 255u);
  click(overPixel(editor->getAlphaView(), 1, 1));
  pump();
  EXPECT_EQ(alphaAt(1, 1), 255u); // no wrap past opaque

  click(overPixel(editor->getAlphaView(), 2, 1), kMouseLeft, kKeyShift);
  pump();
  EXPECT_EQ(alphaAt(2, 1), 0u);
  click(overPixel(editor->getAlphaView(), 2, 1), kMouseLeft, kKeyShift);
  pump();
  EXPECT_EQ(alphaAt(2, 1), 0u); // no wrap past clear

  click(overPixel(editor->getAlphaView(), 5, 5));
  click(overPixel(editor->getAlphaView(), 6, 5), kMouseLeft, kKeyShift);
  pump();
  EXPECT_EQ(alphaAt(5, 5), 130u);
  EXPECT_EQ(alphaAt(6, 5), 126u);
}

TEST_F(AlphaEditorTest, AClickInTheColourViewChangesNoAlpha) {
  click(overPixel(editor->getRGBView(), 5, 5));
  pump();
  EXPECT_EQ(alphaAt(5, 5), 128u);
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.back().first, editor->getRGBView());
  EXPECT_EQ(heard.back().second, ImageEditorView::Event::kPixelChanged);
}

TEST_F(AlphaEditorTest, ZoomingOutAtOneChangesNothingAndTellsNoOne) {
  editor->getAlphaView()->setPixelSize(1);
  pump();
  heard.clear();
  wheel(pointOn(*editor->getAlphaView()->getView()), -1);
  pump();
  EXPECT_EQ(editor->getAlphaView()->getPixelSize(), 1u);
  EXPECT_TRUE(heard.empty());
}

TEST_F(AlphaEditorTest, TheWheelZoomsAndTheOtherViewFollows) {
  wheel(pointOn(*editor->getAlphaView()->getView()), 2);
  pump();
  EXPECT_EQ(editor->getAlphaView()->getPixelSize(), 10u);
  EXPECT_EQ(editor->getRGBView()->getPixelSize(), 10u);
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.back().second, ImageEditorView::Event::kViewChanged);
  // The bars show the share of the picture in sight.
  ImageEditorView* view = editor->getAlphaView();
  XY<int> const shown = view->getView()->visibleExtent();
  EXPECT_NEAR(view->getHorizontalScrollBar()->getThumbSize(), std::min(1.0, shown.x / 16.0), 1e-9);
  EXPECT_NEAR(view->getVerticalScrollBar()->getThumbSize(), std::min(1.0, shown.y / 12.0), 1e-9);
}

TEST_F(AlphaEditorTest, ScrollingOneViewScrollsTheOther) {
  ImageEditorView* view = editor->getAlphaView();
  view->setPixelSize(40); // a few pixels in sight, so there is room to scroll
  pump();
  ASSERT_LT(view->getHorizontalScrollBar()->getThumbSize(), 1.0);
  ScrollBar* bar = view->getHorizontalScrollBar();
  // The button at the bar's right end steps one image pixel.
  click(pointOn(*bar, XY<int>(bar->width() - bar->height() / 2, bar->height() / 2)));
  pump();
  EXPECT_EQ(view->getOffset().x, 1);
  EXPECT_EQ(editor->getRGBView()->getOffset().x, 1);
}

TEST_F(AlphaEditorTest, SavingTwiceOverwritesTheOutputAndLeavesTheOriginal) {
  std::string const original = folder + "/sample.png";
  std::string const output = folder + "/AT-Output.png";
  // Another window had the keyboard; a click in the editor takes it.
  StandardPanel* other = openPanel(XY<int>(80, 40), XY<int>(10, 10));
  other->setCanBeIt(true);
  ASSERT_TRUE(other->claimKbdFocus());
  click(overPixel(editor->getAlphaView(), 1, 1));
  pump();
  EXPECT_EQ(get_kbd_focus(), editor); // so that the key below reaches it
  key('S', kKeyCtrl);
  pump();
  ASSERT_TRUE(std::filesystem::exists(output));
  EXPECT_EQ(ZoImage::Loader::loadImage(output).pixel(1, 1) >> 24, 255u);

  click(overPixel(editor->getAlphaView(), 5, 5));
  pump();
  ASSERT_TRUE(editor->saveFile());
  Zo::Image::Surface const saved = ZoImage::Loader::loadImage(output);
  EXPECT_EQ(saved.pixel(5, 5) >> 24, 130u);
  EXPECT_EQ(saved.pixel(1, 1) >> 24, 255u);
  EXPECT_EQ(ZoImage::Loader::loadImage(original).pixel(5, 5) >> 24, 128u);
}

TEST_F(AlphaEditorTest, OpenAsksTheChooserAndAnUnreadableFileChangesNothing) {
  std::string const other = folder + "/other.png";
  Zo::Image::Surface picture(4, 3);
  picture.fill(Colour(1.0, 0.0, 0.0));
  ZoImage::Saver::saveImage(picture, other);
  editor->setFileChooser([&] { return wide(other); });
  key('O', kKeyCtrl);
  pump();
  EXPECT_EQ(editor->getAlphaView()->getImage().width(), 4);
  EXPECT_EQ(editor->getFileName(), wide(other));
  EXPECT_FALSE(editor->openFile(wide(folder + "/missing.png")));
  EXPECT_EQ(editor->getRGBView()->getImage().width(), 4);
}

TEST_F(AlphaEditorTest, WithoutAChooserOpenShowsTheFileBrowserOfferingPicturesAndLoadsTheOneChosen) {
  std::string const other = folder + "/chosen.png";
  Zo::Image::Surface picture(5, 7);
  picture.fill(Colour(0.0, 0.0, 1.0));
  ZoImage::Saver::saveImage(picture, other);
  key('O', kKeyCtrl);
  pump();
  FileChooserWindow* chooser = nullptr;
  for (Glob* window : GlobManager::topLevelWindows())
    if (auto* found = dynamic_cast<FileChooserWindow*>(window))
      chooser = found;
  ASSERT_NE(chooser, nullptr);
  EXPECT_EQ(chooser->getTitle().getString(), LightweightString<wchar_t>(L"Choose an image"));
  ASSERT_TRUE(chooser->getBrowser().openPath(wide(other)));
  pump();
  EXPECT_EQ(chooser->getBrowser().getCurrentPath(), wide(other));
  clickOn(chooser->getChooseButton());
  pump();
  EXPECT_EQ(editor->getFileName(), wide(other));
  EXPECT_EQ(editor->getAlphaView()->getImage().width(), 5);
}

// The Save button: the second of the two buttons along the top.
Button* saveButtonOf(AlphaChannelEditorPanel& editor) {
  std::vector<Button*> buttons;
  for (Glob* child : editor.getChildren())
    if (auto* button = dynamic_cast<Button*>(child))
      buttons.push_back(button);
  return buttons.size() >= 2 ? buttons[1] : nullptr;
}

LightweightString<wchar_t> reportOf(AlphaChannelEditorPanel& editor) {
  return editor.getSaveReport()->getString().getString();
}

TEST_F(AlphaEditorTest, SaveSaysWhereThePictureWentBesideTheButton) {
  Button* save = saveButtonOf(*editor);
  ASSERT_NE(save, nullptr);
  EXPECT_TRUE(reportOf(*editor).empty());
  clickOn(*save);
  pump();
  EXPECT_EQ(reportOf(*editor), LightweightString<wchar_t>(L"Saved as AT-Output.png."));
  EXPECT_EQ(editor->getSaveReport()->getTooltip().getString(), wide(folder + "/AT-Output.png"));
  EXPECT_TRUE(std::filesystem::exists(folder + "/AT-Output.png"));
  TextLabel* report = editor->getSaveReport();
  EXPECT_EQ(report->getY(), save->getY()) << "on the buttons' row";
  EXPECT_GT(report->getX(), save->getX() + save->width() - 1);
  EXPECT_LE(report->getX() + report->width(), editor->getUserArea().x1);
  // The words are on the screen, and the line follows the panel's width.
  std::uint32_t const paper = widgetPixel(*report, XY<int>(report->width() - 1, report->height() / 2));
  int written = 0;
  for (int y = 0; y < report->height(); ++y)
    for (int x = 0; x < report->width(); ++x)
      written += widgetPixel(*report, XY<int>(x, y)) != paper;
  EXPECT_GT(written, 20);
  editor->resize(editor->width() + 100, editor->height());
  EXPECT_LE(report->getX() + report->width(), editor->getUserArea().x1);
  EXPECT_GE(report->getX() + report->width(), editor->getUserArea().x1 - UifStd::getWidgetGap());
}

TEST_F(AlphaEditorTest, ASaveThatFailsSaysWhy) {
  // A folder where the file should go: nothing can be written over it.
  std::filesystem::create_directories(folder + "/AT-Output.png/inside");
  key('S', kKeyCtrl);
  pump();
  std::string const text = reportOf(*editor).toUTF8().str();
  EXPECT_TRUE(text.starts_with("Could not save AT-Output.png: ")) << text;
  EXPECT_GT(text.size(), std::string("Could not save AT-Output.png: .").size()) << "with the reason";
  EXPECT_EQ(editor->getSaveReport()->getTooltip().getString(), wide(folder + "/AT-Output.png"));
  EXPECT_TRUE(std::filesystem::is_directory(folder + "/AT-Output.png/inside")) << "and nothing was lost";
}

TEST_F(HeadlessScreenTest, AlphatronSaveWithoutAPictureAsksForOneFirst) {
  AlphaChannelEditorPanel* empty = AlphaChannelEditorPanel::create();
  clickOn(*saveButtonOf(*empty));
  pump();
  EXPECT_EQ(reportOf(*empty), LightweightString<wchar_t>(L"There is no picture to save: open one first."));
}

} // namespace
