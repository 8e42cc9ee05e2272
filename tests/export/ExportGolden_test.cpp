#include "ExportTestSupport.h"

#include <zowidgets/export/CompressionFormatButton.h>
#include <zowidgets/export/CompressionWidget.h>
#include <zowidgets/export/FileFormatButton.h>
#include <zowidgets/export/FrameRateButton.h>
#include <zowidgets/export/ShotVideoMetadataButton.h>
#include <zowidgets/host/shell/LibavMediaSource.h>
#include <zowidgets/host/shell/MediaWriters.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

using Zo::Image::Format;

class ExportGolden : public HeadlessScreenTest {
protected:
  // A panel with a compression widget for `code` of `fileType`, fitted to it.
  StandardPanel* compressionPanel(char const* fileType, Format code, wchar_t const* title) {
    int const width = 18 * UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(width + 20, 60), XY<int>(40, 40), StandardPanel::kTitle, title);
    CompressionWidget::InitArgs args(Compression::kVideoExport, static_cast<unsigned short>(width));
    args.fileType = fileType;
    auto* widget = panel->createWidget<CompressionWidget>(args, Glob::UserTopLeft(0, 0));
    VectorExt<ShotVideoMetadata> digital;
    VectorExt<Format> formats;
    ShotVideoMetadata const shot(1920, 1080, {25, 1, false});
    Compression::getValidFormats(fileType, shot, digital, formats);
    widget->setCompressionFormat(VideoCompressionInfo(shot, CompressionFormat(code)), formats);
    XY<int> const size = StandardPanel::calcPanelSize(XY<int>(width, widget->height()), StandardPanel::kTitle,
                                                      StandardPanel::getDefaultBorder());
    panel->resize(size.x, size.y);
    pump();
    return panel;
  }
};

TEST_F(ExportGolden, Buttons) {
  int const row = UifStd::getRowHeight();
  StandardPanel* panel = openPanel(XY<int>(22 * row, 6 * row), XY<int>(40, 40), StandardPanel::kTitle, L"Export");
  auto* file = panel->createWidget<TitledFileFormatButton>(
      TitledFileFormatButtonInitArgs(Compression::kVideoExport, "", UIString(L"File type"), 20 * row),
      Glob::UserTopLeft(0, 0));
  auto* format = panel->createWidget<CompressionFormatButton>(
      CompressionFormatButton::InitArgs(Compression::kVideoExport, 20 * row, row), Glob::Below(4, file));
  format->setOutputFormat("quicktime", ShotVideoMetadata(1920, 1080, {25, 1, false}));
  format->setSelected(CompressionFormat(Format("M701")), ShotVideoMetadata(1920, 1080, {25, 1, false}));
  std::vector<Zo::FrameRate> rates;
  Zo::getFrameRates(Zo::FrameRateGroups::kNTSC, rates);
  auto* rate = panel->createWidget<FrameRateButton>(FrameRateButton::InitArgs(rates, XY<int>(20 * row, row)),
                                                    Glob::Below(4, format));
  rate->setFrameRate({30000, 1001, true});
  ShotVideoMetadata const hd(1920, 1080, {25, 1, false});
  panel->createWidget<ShotVideoMetadataButton>(
      ShotVideoMetadataButton::InitArgs({ShotVideoMetadata(720, 576, {25, 1, false}), hd}, hd, XY<int>(12 * row, row)),
      Glob::Below(4, rate));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/buttons.png"));
}

TEST_F(ExportGolden, CompressionPanelOfTheLongGopFormat) {
  StandardPanel* panel = compressionPanel("quicktime", Format("M701"), L"HD long-GOP");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/compression_long_gop.png"));
}

TEST_F(ExportGolden, CompressionPanelOfTheAvcFormat) {
  StandardPanel* panel = compressionPanel("quicktime", Format("AVC1"), L"H.264");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/compression_avc.png"));
}

} // namespace
