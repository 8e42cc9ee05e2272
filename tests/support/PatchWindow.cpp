#include "support/PatchWindow.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/GlobManager.h>

namespace {

GlobCreationInfo placedAt(Zo::Box<int> const& box) {
  GlobCreationInfo made(box.getDimensions());
  made.screenPosition = XY<int>(box.x0, box.y0);
  return made;
}

} // namespace

PatchWindow::PatchWindow(Zo::Box<int> const& screenBox, ColourAt const& colourAt)
    : Glob(placedAt(screenBox)), image_(screenBox.width(), screenBox.height()), colourAt_(colourAt) {
  for (int row = 0; row < image_.height(); ++row)
    for (int x = 0; x < image_.width(); ++x)
      image_.setPixel(x, row, colourAt(x, row));
  GlobManager::realize(this);
}

PatchWindow::PatchWindow(Zo::Box<int> const& screenBox, Colour const& colour)
    : PatchWindow(screenBox, [argb = colour.get_vlib_colour()](int, int) { return argb; }) {}

std::uint32_t PatchWindow::colourAt(XY<int> screen) const {
  XY<int> const local = screen - screenPosition();
  return colourAt_(local.x, height() - 1 - local.y);
}

void PatchWindow::draw(CanvasRenderer& renderer) {
  renderer.renderPrimitive(Glib::ImageDescription(image_, XY<double>(0.0, 0.0)));
}
