#include <zowidgets/images/ImageViewEx.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <algorithm>

ImageViewEx::ImageViewEx(InitArgs const& args) : ImageView(args) {}

void ImageViewEx::setPixelSize(unsigned int size) {
  pixelSize_ = std::max(1u, size);
  invalidate();
}

void ImageViewEx::setMode(int mode) {
  mode_ = mode;
  invalidate();
}

void ImageViewEx::setOffset(XY<int> offset) {
  offset_ = XY<int>(std::max(0, offset.x), std::max(0, offset.y));
  invalidate();
}

XY<int> ImageViewEx::visibleExtent() const { return XY<int>(width() / int(pixelSize_), height() / int(pixelSize_)); }

XY<int> ImageViewEx::imagePointAt(XY<int> local) const {
  Zo::Image::Surface const& image = getImage();
  int const fromTop = height() - 1 - local.y;
  if (local.x < 0 || fromTop < 0 || local.x >= width() || fromTop >= height())
    return {-1, -1};
  XY<int> const point(offset_.x + local.x / int(pixelSize_), offset_.y + fromTop / int(pixelSize_));
  if (point.x >= image.width() || point.y >= image.height())
    return {-1, -1};
  return point;
}

int ImageViewEx::react(::Event const& event) {
  if (event.type == ::Event::kMouseUp && (event.buttons & kMouseLeft) && isActive()) {
    XY<int> const pixel = imagePointAt(event.position);
    if (pixel.x >= 0) {
      broadcast(Event{Event::kPixelClicked, pixel, event.modifiers});
      return 1;
    }
  }
  // Presses are taken so that the release comes back here.
  if (event.type == ::Event::kMouseDown && (event.buttons & kMouseLeft))
    return 1;
  return ImageView::react(event);
}

Zo::Image::Surface ImageViewEx::alphaAsGrey(Glib::TopDownRect const& part) const {
  Zo::Image::Surface grey(part.width, part.height);
  for (int y = 0; y < part.height; ++y) {
    for (int x = 0; x < part.width; ++x) {
      std::uint32_t const alpha = getImage().pixel(part.x + x, part.y + y) >> 24;
      grey.setPixel(x, y, 0xFF000000u | alpha << 16 | alpha << 8 | alpha);
    }
  }
  return grey;
}

// Only the part in sight is drawn, so a large picture at high zoom costs no
// more than the widget's area. Whatever lies beyond the picture keeps the
// background's window colour.
void ImageViewEx::draw(CanvasRenderer& renderer) {
  Zo::Image::Surface const& image = getImage();
  if (image.empty() || offset_.x >= image.width() || offset_.y >= image.height())
    return;
  int const size = int(pixelSize_);
  int const across = std::min(image.width() - offset_.x, (width() + size - 1) / size);
  int const down = std::min(image.height() - offset_.y, (height() + size - 1) / size);
  Glib::TopDownRect const part(offset_.x, offset_.y, across, down);
  Zo::Box<double> const destination(0, height() - down * size, across * size, height());
  if (mode_ == kAlpha) {
    renderer.renderPrimitive(Glib::ImageDescriptionEx(alphaAsGrey(part), Glib::TopDownRect(0, 0, across, down),
                                                      destination, Glib::eImageFilter::Nearest));
  } else {
    renderer.renderPrimitive(Glib::ImageDescriptionEx(image, part, destination, Glib::eImageFilter::Nearest));
  }
  renderer.addModifiedArea(Zo::Box<int>(0, 0, width(), height()));
}
