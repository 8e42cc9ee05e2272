// Image tools: a region marked on a wallpaper of the system's backgrounds,
// the thumbnail browser on the folder of those wallpapers, and a button that
// opens Alphatron, the alpha channel editor, beside the page on a small
// picture made from one of them. Labels say the last region chosen and the
// file selected.
#include "PageLayout.h"

#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/ImageOperations.h>
#include <zowidgets/host/drawing/ImageSaver.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/images/AlphaChannelEditorPanel.h>
#include <zowidgets/images/ImageRegionSelectionView.h>
#include <zowidgets/images/ImageThumbnailBrowser.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

namespace {

constexpr wchar_t const* kWallpaperFolder = L"/usr/share/backgrounds/gnome";
std::string const kWallpaper = "/usr/share/backgrounds/gnome/wood-l.webp";

void report(TextLabel* label, IdStamp const& stamp, LightweightString<wchar_t> const& text) {
  if (EventHandler::valid(label, stamp))
    label->setString(text);
}

LightweightString<wchar_t> describe(Zo::Box<int> const& region) {
  std::wstring const text = L"Region " + std::to_wstring(region.x0) + L"," + std::to_wstring(region.y0) + L" to " +
                            std::to_wstring(region.x1) + L"," + std::to_wstring(region.y1);
  return LightweightString<wchar_t>(text);
}

// A small picture whose alpha falls from opaque at the left to clear at the
// right, in a folder of its own, so that Alphatron's output lands there.
LightweightString<wchar_t> alphaSample() {
  std::filesystem::path const folder = std::filesystem::temp_directory_path() / "zogallery-alphatron";
  std::filesystem::create_directories(folder);
  std::string const path = (folder / "sample.png").string();
  // The square wallpaper, squeezed to 32 by 24.
  Zo::Image::Surface picture = Zo::Image::resize(ZoImage::Loader::loadImage(kWallpaper, {64, 64}), 32, 24);
  if (picture.empty()) {
    picture = Zo::Image::Surface(32, 24);
    picture.fill(Colour(0.3, 0.5, 0.8));
  }
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      std::uint32_t const p = picture.pixel(x, y);
      std::uint32_t const alpha = 255 - 255 * x / std::max(1, picture.width() - 1);
      auto const scale = [&](int shift) { return (((p >> shift) & 0xFF) * alpha + 127) / 255; };
      picture.setPixel(x, y, alpha << 24 | scale(16) << 16 | scale(8) << 8 | scale(0));
    }
  }
  ZoImage::Saver::saveImage(picture, path);
  return LightweightString<wchar_t>::fromUTF8(path);
}

// The view stretches its picture over its user area: shaped like the
// picture, as large as the room allows, the picture keeps its shape.
XY<int> viewShapedLike(Zo::Image::Surface const& picture, XY<int> room) {
  if (picture.empty())
    return room;
  XY<int> const frame = StandardPanel::calcPanelSize(XY<int>(0, 0), 0, GlobCreationInfo(room).border);
  double const scale = std::min(static_cast<double>(room.x - frame.x) / picture.width(),
                                static_cast<double>(room.y - frame.y) / picture.height());
  return XY<int>(frame.x + static_cast<int>(std::lround(picture.width() * scale)),
                 frame.y + static_cast<int>(std::lround(picture.height() * scale)));
}

Glob* buildImagesPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  // Loaded at a size of its own, not the view's: the region is in the
  // picture's pixels, the same at any interface scale.
  Zo::Image::Surface const wallpaper = ZoImage::Loader::loadImage(kWallpaper, XY<int>(640, 384));
  XY<int> const room(m.row * 10, m.row * 6);
  XY<int> const regionSize = viewShapedLike(wallpaper, room);
  XY<int> const browserSize(m.row * 8, room.y);
  StandardPanel* panel = openPageWindow(
      context, XY<int>(room.x + browserSize.x + 3 * m.gap, room.y + 2 * m.row + 4 * m.gap), L"Image tools");

  ImageRegionSelectionView::InitArgs regionArgs{GlobCreationInfo(regionSize)};
  // In the middle of the room kept for it.
  auto* region = panel->createWidget<ImageRegionSelectionView>(
      regionArgs, Glob::UserTopLeft(m.gap + (room.x - regionSize.x) / 2, m.gap + (room.y - regionSize.y) / 2));
  region->setImage(wallpaper);
  // Half the picture's width at 16:9, in its middle.
  XY<int> const picture = region->getImageSize();
  XY<int> const marked(picture.x / 2, picture.x * 9 / 32);
  XY<int> const corner((picture.x - marked.x) / 2, (picture.y - marked.y) / 2);
  region->setRegion(Zo::Box<int>(corner, corner + marked));
  // A left corner dragged past the right one stops here, rather than turning
  // the region inside out.
  region->setMinimumRegionWidth(static_cast<unsigned>(picture.x / 8));

  ImageThumbnailBrowser::InitArgs browserArgs{GlobCreationInfo(browserSize)};
  browserArgs.lineHeight = static_cast<unsigned short>(m.row * 2);
  auto* browser = panel->createWidget<ImageThumbnailBrowser>(browserArgs, Glob::UserTopLeft(room.x + 2 * m.gap, m.gap));
  browser->setPath(kWallpaperFolder);

  TextLabel::InitArgs regionLabelArgs(XY<int>(room.x, m.row));
  regionLabelArgs.text = describe(region->getRegion());
  auto* regionLabel = panel->createWidget<TextLabel>(regionLabelArgs, Glob::UserTopLeft(m.gap, room.y + 2 * m.gap));
  TextLabel::InitArgs fileLabelArgs(XY<int>(room.x + browserSize.x + m.gap, m.row));
  fileLabelArgs.text = L"No picture selected";
  auto* fileLabel = panel->createWidget<TextLabel>(fileLabelArgs, Glob::Below(m.gap, regionLabel));

  IdStamp const regionStamp = EventHandler::stampOf(regionLabel);
  region->addListener(Broadcaster<ImageRegionSelectionViewEvent>::makeCallback(
      [=](ImageRegionSelectionViewEvent const& event) { report(regionLabel, regionStamp, describe(event.region)); }));
  IdStamp const fileStamp = EventHandler::stampOf(fileLabel);
  browser->addListener(Broadcaster<ScrollListEvent>::makeCallback([=](ScrollListEvent const&) {
    LightweightString<wchar_t> const file = browser->getSelectedFile();
    report(fileLabel, fileStamp, file.empty() ? L"No picture selected" : L"Selected " + stripPath(file).str());
  }));

  auto* openEditor = panel->createWidget<PushButton>(
      PushButton::InitArgs(L"Alpha Channel Editor", XY<int>(m.row * 8, 0)), Glob::RightOf(m.gap, regionLabel));
  openEditor->setCallback(Broadcaster<ButtonEvent>::makeCallback([panel](ButtonEvent const&) {
    AlphaChannelEditorPanel* editor = AlphaChannelEditorPanel::create();
    // The sample to start with; Open… asks for another in the file chooser.
    editor->openFile(alphaSample());
    // Five screen pixels an image pixel, so that each can be clicked.
    editor->getRGBView()->setPixelSize(5);
    editor->getAlphaView()->setPixelSize(5);
    GlobManager::placeBeside(editor, panel);
  }));
  return panel;
}

PageRegistrar const imagesPage{
    "images", "Image tools",
    "An ImageRegionSelectionView on a wallpaper with its region in colour and the rest in grey, an "
    "ImageThumbnailBrowser on the folder of the system's wallpapers with thumbnails loaded as rows come into "
    "sight, and a button that opens Alphatron, the alpha channel editor, on a small picture whose alpha fades "
    "to the right",
    buildImagesPage};

} // namespace
