#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/ScreenBackend.h>

namespace {

class ScreenImage : public iHostImage {
public:
  ScreenImage(Zo::Image::Surface pixels, Zo::Box<int> area) : pixels_(std::move(pixels)), area_(area) {}
  Zo::Image::Surface const& pixels() const override { return pixels_; }
  Zo::Box<int> area() const override { return area_; }

private:
  Zo::Image::Surface pixels_;
  Zo::Box<int> area_;
};

// Reads through the screen backend in use, so it follows a change of backend.
class BackendMediaServices : public iMediaServices {
public:
  Zo::Ptr<iHostImage> getHostImage(Zo::Box<int> const& area) override {
    return Zo::Ptr<iHostImage>(new ScreenImage(screenBackend().grab(area), area));
  }
};

} // namespace

std::uint32_t iHostImage::pixelAt(XY<int> screenPoint) const {
  Zo::Box<int> const box = area();
  if (!box.contains(screenPoint))
    return 0;
  // Screen y grows upward; the picture's rows run from the top.
  return pixels().pixel(screenPoint.x - box.x0, box.y1 - 1 - screenPoint.y);
}

iMediaServices& mediaServices() {
  static BackendMediaServices services;
  return services;
}
