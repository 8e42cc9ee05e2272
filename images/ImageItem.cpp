#include <zowidgets/images/ImageItem.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/ImageCache.h>
#include <zowidgets/host/drawing/ImageOperations.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/VirtualRowsBase.h>

#include <algorithm>
#include <cmath>

namespace {

XY<int> const kDecodeSize(ImageThumbnailBrowser::ImageItem::kDecodedSide,
                          ImageThumbnailBrowser::ImageItem::kDecodedSide);

std::uint32_t channel(double value) {
  return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
}

// The slot left of the text is as wide as one and a half rows, at most
// maxThumbWidth; the thumbnail is centred in it, scaled down to fit when it is
// wider, with gap() plus the indent kept at each side.
Zo::Box<int> thumbSlotArea(int slotWidth, int rowHeight, int margin, XY<int> thumbSize) {
  int const room = std::max(1, slotWidth - 2 * margin);
  int const tall = std::max(1, rowHeight - 2 * margin);
  XY<int> const size = thumbSize.x > 0 ? Zo::Image::fitSize(thumbSize, {room, tall}) : XY<int>(tall, tall);
  int const x = (slotWidth - size.x) / 2;
  int const y = (rowHeight - size.y) / 2;
  return Zo::Box<int>(x, y, x + size.x, y + size.y);
}

} // namespace

ImageThumbnailBrowser::ImageItem::ImageItem(InitArgs const& args) : ScrollListItemWidget(args), path_(args.path) {}

int ImageThumbnailBrowser::ImageItem::thumbHeight() const { return height() - 2 * (gap() + UifStd::getIndentWidth()); }

Zo::Image::Surface ImageThumbnailBrowser::ImageItem::createThumbnail(Zo::Image::Surface const& source) const {
  int const targetHeight = thumbHeight();
  if (source.empty() || targetHeight < 1)
    return {};
  int const targetWidth =
      std::max(1, static_cast<int>(std::lround(double(targetHeight) / source.height() * source.width())));
  return Zo::Image::resize(source, targetWidth, targetHeight);
}

void ImageThumbnailBrowser::ImageItem::loadAsync() {
  if (!OS().fileExists(path_))
    return;
  ZoImage::Cache::instance().loadAsync(path_, this, kDecodeSize);
}

Colour ImageThumbnailBrowser::ImageItem::getThumbBorderColour() const {
  Colour const back = lookFor(getPalette()).background;
  return Colour(back.red() * 0.5, back.green() * 0.5, back.blue() * 0.5);
}

Zo::Image::Surface ImageThumbnailBrowser::ImageItem::getThumb() {
  ZoImage::Cache& cache = ZoImage::Cache::instance();
  if (thumb_.empty() && !path_.empty() && cache.isCached(path_, kDecodeSize))
    thumb_ = createThumbnail(cache.retrieve(path_, kDecodeSize));
  return isActive() ? thumb_ : makeInactiveThumb();
}

Zo::Box<int> ImageThumbnailBrowser::ImageItem::calcThumbArea() const {
  int const slot = std::min(maxThumbWidth(), height() * 3 / 2);
  int const margin = gap() + UifStd::getIndentWidth();
  return thumbSlotArea(slot, height(), margin, XY<int>(thumb_.width(), thumb_.height()));
}

void ImageThumbnailBrowser::ImageItem::showThumbnails(bool show) {
  showThumbnails_ = show;
  thumb_ = {};
  inactiveThumb_ = {};
  invalidate();
}

Zo::Box<int> ImageThumbnailBrowser::ImageItem::getClipRect() const {
  Zo::Box<int> const own = canvasBox();
  for (Glob const* up = parent(); up; up = up->parent()) {
    if (auto const* rows = dynamic_cast<VirtualRowsBase const*>(up)) {
      XY<int> const origin = canvasPosition();
      return own.intersect(rows->getView()->canvasBox()).translated(XY<int>(-origin.x, -origin.y));
    }
  }
  return Zo::Box<int>(0, 0, width(), height());
}

Zo::Image::Surface const& ImageThumbnailBrowser::ImageItem::makeInactiveThumb() {
  if (!inactiveThumb_.empty() || thumb_.empty())
    return inactiveThumb_;
  Palette const& palette = getPalette();
  Colour const dark = palette.window(-2);
  Colour const light = palette.window(3);
  Zo::Image::Surface const grey = Zo::Image::greyscale(thumb_);
  inactiveThumb_ = Zo::Image::Surface(thumb_.width(), thumb_.height());
  for (int y = 0; y < grey.height(); ++y) {
    for (int x = 0; x < grey.width(); ++x) {
      std::uint32_t const p = grey.pixel(x, y);
      std::uint32_t const alpha = p >> 24;
      if (alpha == 0)
        continue;
      double const share = double(p & 0xFF) / alpha; // the luma, straight
      double const opacity = alpha / 255.0;
      auto const mixed = [&](double from, double to) { return channel((from + (to - from) * share) * opacity); };
      inactiveThumb_.setPixel(x, y,
                              alpha << 24 | mixed(dark.red(), light.red()) << 16 |
                                  mixed(dark.green(), light.green()) << 8 | mixed(dark.blue(), light.blue()));
    }
  }
  return inactiveThumb_;
}

int ImageThumbnailBrowser::ImageItem::react(Event const& event) {
  if (event.isMessage() && event.message == ZoImage::Cache::kImageLoadedMsg) {
    handleImageLoaded(event);
    return 1;
  }
  return ScrollListItemWidget::react(event);
}

void ImageThumbnailBrowser::ImageItem::handleImageLoaded(Event const& event) {
  auto const info = event.data.dynamicCast<ZoImage::ImageLoadInfo>();
  if (!info || info->path() != path_)
    return;
  thumb_ = createThumbnail(info->surface());
  inactiveThumb_ = {};
  invalidate();
}

void ImageThumbnailBrowser::ImageItem::drawBackground(CanvasRenderer& renderer) {
  ScrollListItemWidget::drawBackground(renderer);
  if (!showThumbnails_ || getClipRect().empty())
    return;
  Zo::Image::Surface const thumb = getThumb();
  thumbArea_ = calcThumbArea();
  if (path_.empty())
    return;
  if (!thumb.empty())
    renderer.renderPrimitive(Glib::ImageDescription(thumb, Glib::toDoubleBox(thumbArea_)));
  else
    loadAsync();
  if (drawBorder_) {
    Zo::Box<double> const frame(thumbArea_.x0 - 0.5, thumbArea_.y0 - 0.5, thumbArea_.x1 + 0.5, thumbArea_.y1 + 0.5);
    renderer.renderPrimitive(Glib::RoundedRectDescription(frame, 1.0, Colour::invalid(), getThumbBorderColour()));
  }
  renderer.addModifiedArea(Zo::Box<int>(0, 0, width(), height()));
}

void ImageThumbnailBrowser::ImageItem::draw(CanvasRenderer& renderer) {
  Look const look = lookFor(getPalette());
  Colour text = isSelected() ? look.selectedText : look.text;
  if (!isActive())
    text = Palette::inactive(text, look.background);
  int const left =
      showThumbnails_ ? std::min(maxThumbWidth(), height() * 3 / 2) + look.textIndent / 2 : look.textIndent;
  Zo::Box<double> const area(left, 0, width() - look.textIndent, height());
  renderer.renderPrimitive(Glib::TextDescription(getLabel(), area, UifStd::getFont(), text));
}
