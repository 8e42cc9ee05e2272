#include <zowidgets/host/widgets/values/ImageView.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <algorithm>
#include <cmath>

ImageView::ImageView(InitArgs const& args) : Glob(args), image_(args.image), scaling_(args.scaling) {}

void ImageView::setImage(Zo::Image::Surface const& image, eRedrawFlag redraw) {
  image_ = image;
  if (redraw != kNoRedraw)
    invalidate();
}

void ImageView::setScaling(int scaling) {
  scaling_ = scaling;
  invalidate();
}

Zo::Box<int> ImageView::imageBox() const {
  if (image_.empty() || width() <= 0 || height() <= 0)
    return {};
  if (scaling_ != kFit)
    return Zo::Box<int>(0, 0, width(), height());
  double const scale = std::min(double(width()) / image_.width(), double(height()) / image_.height());
  int const w = std::max(1, static_cast<int>(std::lround(image_.width() * scale)));
  int const h = std::max(1, static_cast<int>(std::lround(image_.height() * scale)));
  int const x = (width() - w) / 2;
  int const y = (height() - h) / 2;
  return Zo::Box<int>(x, y, x + w, y + h);
}

bool ImageView::hasTransparency(Zo::Image::Surface const& image) {
  for (int row = 0; row < image.height(); ++row)
    for (int x = 0; x < image.width(); ++x)
      if ((image.pixel(x, row) >> 24) != 0xFF)
        return true;
  return false;
}

Zo::Image::Surface ImageView::makeOpaqueImage(Zo::Image::Surface const& image, Colour const& background) {
  if (image.empty())
    return {};
  Zo::Image::Surface opaque(image.width(), image.height());
  Colour solid = background.use() ? background : Colour(0.0, 0.0, 0.0);
  solid.setAlpha(1.0);
  opaque.fill(solid);
  opaque.blit(image, 0, 0);
  return opaque;
}

void ImageView::draw(CanvasRenderer& renderer) {
  Zo::Box<int> const box = imageBox();
  if (box.empty())
    return;
  renderer.renderPrimitive(Glib::ImageDescriptionEx(image_, Glib::TopDownRect(0, 0, image_.width(), image_.height()),
                                                    Glib::toDoubleBox(box), Glib::eImageFilter::Good));
}
