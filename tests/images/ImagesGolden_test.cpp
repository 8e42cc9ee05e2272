#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/ImageCache.h>
#include <zowidgets/host/drawing/ImageSaver.h>
#include <zowidgets/images/AlphaChannelEditorPanel.h>
#include <zowidgets/images/ImageItem.h>
#include <zowidgets/images/ImageRegionSelectionView.h>
#include <zowidgets/images/ImageThumbnailBrowser.h>

#include <filesystem>
#include <string>

namespace {

std::string golden(char const* name) { return std::string(ZO_GOLDEN_DIR "/") + name + ".png"; }

// Bands of colour across, darkening downwards: every part of the picture
// differs, so a misplaced region or a wrong grey shows.
Zo::Image::Surface bands(int width, int height, std::uint32_t alpha = 255) {
  static std::uint32_t const colours[] = {0xE04040, 0xE0A040, 0x60C060, 0x4080E0, 0xA060D0};
  Zo::Image::Surface picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint32_t const rgb = colours[x * 5 / width];
      std::uint32_t const shade = 255 - 128 * y / height;
      auto const channel = [&](int shift) { return ((rgb >> shift) & 0xFF) * shade / 255 * alpha / 255; };
      picture.setPixel(x, y, alpha << 24 | channel(16) << 16 | channel(8) << 8 | channel(0));
    }
  }
  return picture;
}

class ImagesGolden : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    ZoImage::Cache::instance().clear();
  }
  void TearDown() override {
    MessageLoop::runUntil([] { return ZoImage::Cache::instance().idle(); }, std::chrono::seconds(20));
    HeadlessScreenTest::TearDown();
    ZoImage::Cache::instance().clear();
  }
};

TEST_F(ImagesGolden, RegionSelection) {
  StandardPanel* panel = openPanel(XY<int>(260, 155));
  ImageRegionSelectionView::InitArgs args(GlobCreationInfo(XY<int>(250, 145)));
  auto* view = panel->createWidget<ImageRegionSelectionView>(args, Glob::UserTopLeft(0, 0));
  view->setImage(bands(240, 135));
  view->setRegion(Zo::Box<int>(60, 30, 156, 84));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("region_selection")));
}

TEST_F(ImagesGolden, ThumbnailBrowser) {
  std::filesystem::path const folder = std::filesystem::temp_directory_path() / "zo-images-golden-thumbs";
  std::filesystem::create_directories(folder);
  ZoImage::Saver::saveImage(bands(160, 90), (folder / "a-wide.png").string());
  ZoImage::Saver::saveImage(bands(60, 90), (folder / "b-tall.png").string());
  ZoImage::Saver::saveImage(bands(90, 90, 128), (folder / "c-half-clear.png").string());
  StandardPanel* panel = openPanel(XY<int>(240, 160));
  ImageThumbnailBrowser::InitArgs args(GlobCreationInfo(XY<int>(230, 150)));
  args.lineHeight = 44;
  auto* browser = panel->createWidget<ImageThumbnailBrowser>(args, Glob::UserTopLeft(0, 0));
  browser->setPath(LightweightString<wchar_t>::fromUTF8(folder.string()));
  browser->setSelectedIndex(1);
  ASSERT_TRUE(MessageLoop::runUntil(
      [&] {
        for (int i = 0; i < browser->size(); ++i) {
          auto const* row = dynamic_cast<ImageThumbnailBrowser::ImageItem*>(browser->getRowWidget(i));
          if (!row || row->thumbnail().empty())
            return false;
        }
        return true;
      },
      std::chrono::seconds(20)));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("thumbnail_browser")));
}

TEST_F(ImagesGolden, Alphatron) {
  std::filesystem::path const folder = std::filesystem::temp_directory_path() / "zo-images-golden-alpha";
  std::filesystem::create_directories(folder);
  Zo::Image::Surface picture = bands(20, 14);
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (x >= 12)
        picture.setPixel(x, y, 0);
  std::string const path = (folder / "picture.png").string();
  ZoImage::Saver::saveImage(picture, path);
  AlphaChannelEditorPanel* editor = AlphaChannelEditorPanel::create();
  ASSERT_TRUE(editor->openFile(LightweightString<wchar_t>::fromUTF8(path)));
  editor->getRGBView()->setPixelSize(12);
  editor->getAlphaView()->setPixelSize(12);
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*editor), golden("alphatron")));
}

} // namespace
