#include <zowidgets/startup/StartupWallpaper.h>

#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>

#include <algorithm>
#include <utility>

StartupWallpaper::StartupWallpaper(LightweightString<wchar_t> imagePath) : m_imagePath(std::move(imagePath)) {}

int StartupWallpaper::topBandHeight() {
  return UifStd::getRowHeight() + TabbedDialogue::minHeight() + 4 * UifStd::getWidgetGap();
}

int StartupWallpaper::secondBandHeight() { return UifStd::getIndentWidth(); }

int StartupWallpaper::thirdBandHeight() { return UifStd::getRowHeight(); }

Zo::Ptr<iOffscreenBuffer> StartupWallpaper::load(XY<int> const& size) const {
  Zo::Ptr<iOffscreenBuffer> buffer = glib_makeOffscreenBuffer(size);
  Zo::Image::Surface const picture = IconCache::instance().load(m_imagePath);
  if (picture.empty() || !buffer)
    return buffer;
  CanvasRenderer& renderer = buffer->renderer();
  Palette const palette = UifStd::getColourScheme();

  // Bands from the top down; the renderer counts y upwards.
  int const width = size.x;
  int top = size.y;
  auto band = [&](int height, Colour const& colour) {
    int const bottom = std::max(0, top - height);
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, bottom, width, top), colour));
    top = bottom;
  };
  band(topBandHeight(), scale(palette.window(0), 0.8));
  band(secondBandHeight(), palette.window(-2));
  band(thirdBandHeight(), palette.window(3));
  band(top, palette.window(0));

  // The picture two rows in from the left, its top just under the tab row's
  // place; one larger than the room left is shrunk to fit, proportions kept.
  int const left = 2 * UifStd::getRowHeight();
  int const fromTop = TabbedDialogue::minHeight() + 2 * UifStd::getWidgetGap();
  double const room = std::min(double(size.x - left) / picture.width(), double(size.y - fromTop) / picture.height());
  double const shrink = std::clamp(room, 0.0, 1.0);
  double const drawnWidth = picture.width() * shrink;
  double const drawnHeight = picture.height() * shrink;
  double const pictureTop = size.y - fromTop;
  renderer.renderPrimitive(
      Glib::ImageDescription(picture, Zo::Box<double>(left, pictureTop - drawnHeight, left + drawnWidth, pictureTop)));
  renderer.flush();
  return buffer;
}
