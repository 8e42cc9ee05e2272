#include <zowidgets/images/ImageEditorView.h>

#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {

int viewSide(int panelSide) { return std::max(1, panelSide - ScrollBar::thickness() - UifStd::getWidgetGap()); }

// Straight colour of a premultiplied pixel; black where it is transparent.
NormalisedRGB straight(std::uint32_t pixel) {
  float const alpha = float(pixel >> 24) / 255.0f;
  auto const channel = [&](int shift) {
    return alpha > 0 ? std::min(1.0f, float((pixel >> shift) & 0xFF) / 255.0f / alpha) : 0.0f;
  };
  return NormalisedRGB(channel(16), channel(8), channel(0), alpha);
}

// The same colour at another alpha. The stored channels are premultiplied,
// so they are divided by the old alpha and multiplied by the new one; a
// pixel that was wholly transparent has no colour left and becomes black.
std::uint32_t withAlpha(std::uint32_t pixel, std::uint32_t alpha) {
  std::uint32_t const old = pixel >> 24;
  auto const channel = [&](int shift) -> std::uint32_t {
    if (old == 0)
      return 0;
    std::uint32_t const plain = std::min<std::uint32_t>(255, (((pixel >> shift) & 0xFF) * 255 + old / 2) / old);
    return (plain * alpha + 127) / 255;
  };
  return alpha << 24 | channel(16) << 16 | channel(8) << 8 | channel(0);
}

} // namespace

ImageEditorView::ImageEditorView(InitArgs const& args) : StandardPanel(args) {
  Zo::Box<int> const user = getUserArea();
  ImageViewEx::InitArgs viewArgs(GlobCreationInfo(XY<int>(viewSide(user.width()), viewSide(user.height()))));
  view_ = createWidget<ImageViewEx>(viewArgs, Glob::UserTopLeft(0, 0));
  view_->addListener(Broadcaster<ImageViewEx::Event>::makeCallback(this, &ImageEditorView::handleImageViewEvent));
  ScrollBar::InitArgs horizontal(GlobCreationInfo(XY<int>(view_->width(), ScrollBar::thickness())));
  hScroll_ = createWidget<ScrollBar>(horizontal, Glob::UserBottomLeft(0, 0));
  ScrollBar::InitArgs vertical(GlobCreationInfo(XY<int>(ScrollBar::thickness(), view_->height())));
  vScroll_ = createWidget<ScrollBar>(vertical, Glob::UserTopRight(0, 0));
}

void ImageEditorView::setImage(Zo::Image::Surface const& image, int mode) {
  view_->setImage(image);
  view_->setMode(mode);
  view_->setOffset({0, 0});
  updateScrollBars();
}

void ImageEditorView::setPixelSize(unsigned int size) {
  view_->setPixelSize(size);
  setOffset(view_->getOffset());
}

void ImageEditorView::setOffset(XY<int> offset) {
  XY<int> const largest = largestOffset();
  view_->setOffset(XY<int>(std::clamp(offset.x, 0, largest.x), std::clamp(offset.y, 0, largest.y)));
  updateScrollBars();
}

XY<int> ImageEditorView::largestOffset() const {
  XY<int> const shown = view_->visibleExtent();
  Zo::Image::Surface const& image = view_->getImage();
  return XY<int>(std::max(0, image.width() - shown.x), std::max(0, image.height() - shown.y));
}

// Each bar's thumb is the share of the picture in sight along its axis, and
// its position the offset over the largest offset.
void ImageEditorView::updateScrollBars() {
  Zo::Image::Surface const& image = view_->getImage();
  XY<int> const shown = view_->visibleExtent();
  XY<int> const largest = largestOffset();
  XY<int> const offset = view_->getOffset();
  hScroll_->setThumbSize(image.width() > 0 ? std::min(1.0, double(shown.x) / image.width()) : 1.0);
  vScroll_->setThumbSize(image.height() > 0 ? std::min(1.0, double(shown.y) / image.height()) : 1.0);
  hScroll_->setThumbPosition(largest.x > 0 ? double(offset.x) / largest.x : 0.0);
  vScroll_->setThumbPosition(largest.y > 0 ? double(offset.y) / largest.y : 0.0);
}

void ImageEditorView::handleZoom(int delta) {
  int const size = std::max(1, int(view_->getPixelSize()) + delta);
  if (unsigned(size) == view_->getPixelSize())
    return;
  Drawable::Suspender const holdRedraws;
  setPixelSize(unsigned(size));
  resize(width(), height());
  invalidate();
  broadcast(Event{Event::kViewChanged, view_->getOffset(), {}, {}});
}

void ImageEditorView::resize(double newWidth, double newHeight) {
  StandardPanel::resize(newWidth, newHeight);
  if (!view_)
    return;
  Zo::Box<int> const user = getUserArea();
  view_->resize(viewSide(user.width()), viewSide(user.height()));
  hScroll_->resize(view_->width(), ScrollBar::thickness());
  vScroll_->resize(ScrollBar::thickness(), view_->height());
  setOffset(view_->getOffset());
}

int ImageEditorView::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (sender && (sender == hScroll_ || sender == vScroll_)) {
    handleScrollBarMessages(message, static_cast<ScrollBar*>(sender));
    return 1;
  }
  return StandardPanel::handleMessageEvent(message, sender);
}

void ImageEditorView::handleScrollBarMessages(LightweightString<char> const& message, ScrollBar* bar) {
  bool const horizontal = bar == hScroll_;
  XY<int> const largest = largestOffset();
  XY<int> offset = view_->getOffset();
  int& along = horizontal ? offset.x : offset.y;
  int const most = horizontal ? largest.x : largest.y;
  if (message == ScrollBar::thumbMovedMsg)
    along = int(std::lround(bar->getThumbPosition() * most));
  else if (message == ScrollBar::leftButtonPressedMsg)
    along -= 1;
  else if (message == ScrollBar::rightButtonPressedMsg)
    along += 1;
  else
    return;
  setOffset(offset);
  broadcast(Event{Event::kViewChanged, view_->getOffset(), {}, {}});
}

int ImageEditorView::handleMouseEvent(::Event const& event) {
  if (event.type == ::Event::kMouseWheel && event.wheel != 0) {
    handleZoom(event.wheel);
    return 1;
  }
  return StandardPanel::handleMouseEvent(event);
}

int ImageEditorView::handleImageViewEvent(ImageViewEx::Event const& event) {
  if (event.kind != ImageViewEx::Event::kPixelClicked)
    return 0;
  Zo::Image::Surface image = view_->getImage();
  std::uint32_t const before = image.pixel(event.position.x, event.position.y);
  if (view_->getMode() == ImageViewEx::kAlpha) {
    std::uint32_t const alpha = before >> 24;
    std::uint32_t const changed =
        (event.modifiers & kKeyShift) ? (alpha > 1 ? alpha - kAlphaStep : 0) : (alpha < 254 ? alpha + kAlphaStep : 255);
    image.setPixel(event.position.x, event.position.y, withAlpha(before, changed));
  }
  Drawable::Suspender const holdRedraws;
  view_->invalidate();
  broadcast(Event{Event::kPixelChanged, event.position, straight(before),
                  straight(image.pixel(event.position.x, event.position.y))});
  return 0;
}
