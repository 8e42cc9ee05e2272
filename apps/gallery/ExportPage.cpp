// Export controls on the system's encoders: a file type, its compression
// format with that encoder's own options below it, and a frame rate; the
// Encode button writes one second of a test pattern with those settings.
#include "PageLayout.h"

#include <zowidgets/export/CompressionWidget.h>
#include <zowidgets/export/FileFormatButton.h>
#include <zowidgets/export/FrameRateButton.h>
#include <zowidgets/host/shell/LibavMediaSource.h>
#include <zowidgets/host/shell/MediaWriters.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <filesystem>

namespace {

ShotVideoMetadata const kClip(640, 360, {25, 1, false});

// The page's controls, and what it does when the file type changes or
// Encode is pressed.
class ExportBench : public StandardPanel {
public:
  explicit ExportBench(StandardPanel::InitArgs const& args) : StandardPanel(args) {
    PageMetrics const m = PageMetrics::current();
    int const buttonWidth = m.row * 6;
    fileButton_ = createWidget<FileFormatButton>(FileFormatButton::InitArgs(Compression::kVideoExport,
                                                                            "Gallery : export file type",
                                                                            XY<int>(buttonWidth, m.row)),
                                                 UserTopLeft(0, 0));
    rateButton_ = createWidget<FrameRateButton>(FrameRateButton::InitArgs(allRates(), XY<int>(m.row * 9, m.row)),
                                                RightOf(m.gap, fileButton_));
    auto* encode = createWidget<PushButton>(PushButton::InitArgs(L"Encode", XY<int>(m.row * 4, m.row)),
                                            RightOf(m.gap, rateButton_));
    encode->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { writeClip(); }));
    TextLabel::InitArgs statusArgs(XY<int>(width(), m.row));
    statusArgs.text = L"Choose a file type, a format and its options, then Encode.";
    status_ = createWidget<TextLabel>(statusArgs, Below(m.gap, fileButton_));
    status_->setName("export-status");
    // An encoder may have dozens of options: they scroll under the controls.
    StandardPanel::InitArgs scrollerArgs(GlobCreationInfo(width(), height() - 2 * m.row - 2 * m.gap));
    scrollerArgs.setBorder(Border(0, 0, 0));
    options_ = createWidget<VerticalScrollingBase>(scrollerArgs, Below(m.gap, status_));
    CompressionWidget::InitArgs compressionArgs(Compression::kVideoExport,
                                                static_cast<unsigned short>(options_->getView()->width()));
    compression_ = options_->createManagedWidget<CompressionWidget>(compressionArgs);
    showFileType();
  }
  char const* idstring() const override { return "ExportBench"; }

  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    if (message != FileFormatButton::FileTypeChangedMsg)
      return StandardPanel::handleMessageEvent(message, sender);
    showFileType();
    return 1;
  }

private:
  static std::vector<Zo::FrameRate> allRates() {
    std::vector<Zo::FrameRate> rates;
    Zo::getFrameRates(Zo::FrameRateGroups::kAll, rates);
    return rates;
  }

  // The formats of the chosen type; the format shown stays if the type takes it.
  void showFileType() {
    LightweightString<char> const type = fileButton_->getFileType();
    VectorExt<ShotVideoMetadata> digital;
    VectorExt<Zo::Image::Format> formats;
    Compression::getValidFormats(type, kClip, digital, formats);
    CompressionFormat format = compression_->getVideoCompressionInfo().compression;
    if (!formats.contains(format.code))
      format = formats.empty() ? CompressionFormat() : CompressionFormat(formats.front());
    compression_->setFileType(type);
    compression_->setCompressionFormat(VideoCompressionInfo(kClip, format), formats);
  }

  void writeClip() {
    VideoCompressionInfo info = compression_->getVideoCompressionInfo();
    info.width = kClip.width;
    info.height = kClip.height;
    info.frameRate = rateButton_->getSelectedFrameRate();
    std::filesystem::path const path =
        std::filesystem::temp_directory_path() /
        ("zogallery-export." + std::string(fileButton_->getSelectedItemNameW().toUTF8().view()));
    LightweightString<wchar_t> const error =
        writeTestPattern(LightweightString<wchar_t>::fromUTF8(path.string()), compression_->getFileType(), info, 1.0);
    std::wstring const text = error.empty() ? L"Wrote " + LightweightString<wchar_t>::fromUTF8(path.string()).str()
                                            : L"Not written: " + error.str();
    status_->setString(UIString(LightweightString<wchar_t>(text)));
  }

  FileFormatButton* fileButton_ = nullptr;
  FrameRateButton* rateButton_ = nullptr;
  TextLabel* status_ = nullptr;
  VerticalScrollingBase* options_ = nullptr;
  CompressionWidget* compression_ = nullptr;
};

Glob* buildExportPage(PageContext const& context) {
  // The system's encoders when the host has them, else the built-in table.
  if (Zo::Ptr<iMediaSource> source = makeLibavMediaSource())
    Zo::MediaWriters::setSource(source);
  PageMetrics const m = PageMetrics::current();
  XY<int> const userArea(m.row * 24, m.row * 26);
  StandardPanel* panel = openPageWindow(context, userArea, L"Export controls");
  StandardPanel::InitArgs benchArgs(GlobCreationInfo(userArea.x - 2 * m.gap, userArea.y - 2 * m.gap));
  benchArgs.setBorder(Border(0, 0, 0));
  panel->createWidget<ExportBench>(benchArgs, Glob::UserTopLeft(m.gap, m.gap));
  return panel;
}

PageRegistrar const exportPage{"export", "Export controls",
                               "A file type, a compression format with its encoder's own options built into rows, a "
                               "frame rate, and an Encode button that writes one second of a test pattern with them",
                               buildExportPage};

} // namespace
