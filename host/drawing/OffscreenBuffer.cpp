#include <zowidgets/host/drawing/OffscreenBuffer.h>

#include <algorithm>

namespace {

class OffscreenBuffer : public iOffscreenBuffer {
public:
  explicit OffscreenBuffer(XY<int> size) : surface_(size.x, size.y), renderer_(surface_) {}

  XY<int> size() const override { return XY<int>(surface_.width(), surface_.height()); }
  Zo::Image::Surface surface() const override { return surface_; }
  CanvasRenderer& renderer() override { return renderer_; }

  void grab(Zo::Image::Surface const& source, Glib::TopDownRect const& area) override {
    surface_.fill(Colour::invalid());
    for (int row = 0; row < std::min(area.height, surface_.height()); ++row) {
      for (int x = 0; x < std::min(area.width, surface_.width()); ++x)
        surface_.setPixel(x, row, source.pixel(area.x + x, area.y + row));
    }
  }

private:
  Zo::Image::Surface surface_;
  CanvasRenderer renderer_;
};

} // namespace

Zo::Ptr<iOffscreenBuffer> glib_makeOffscreenBuffer(XY<int> size) {
  return Zo::Ptr<iOffscreenBuffer>(new OffscreenBuffer(size));
}
