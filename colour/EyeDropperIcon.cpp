#include <zowidgets/colour/EyeDropperIcon.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>

#include <algorithm>

Zo::Image::Surface makeEyeDropperIcon(int side, Colour const& colour) {
  Zo::Image::Surface icon(std::max(side, 1), std::max(side, 1));
  CanvasRenderer renderer(icon);
  double const s = icon.width();
  // The glass tube from the tip (bottom left) to the collar, then the collar
  // and the bulb (top right).
  Glib::LineDescription tube(XY<double>(s * 0.14, s * 0.14), XY<double>(s * 0.58, s * 0.58), s * 0.13, colour);
  Glib::LineDescription collar(XY<double>(s * 0.48, s * 0.72), XY<double>(s * 0.72, s * 0.48), s * 0.1, colour);
  Glib::EllipseDescription const bulb =
      Glib::EllipseDescription::disc(XY<double>(s * 0.74, s * 0.74), s * 0.17, colour);
  Glib::LineDescription drop(XY<double>(s * 0.06, s * 0.06), XY<double>(s * 0.12, s * 0.12), s * 0.08, colour);
  renderer.renderPrimitive(tube);
  renderer.renderPrimitive(collar);
  renderer.renderPrimitive(bulb);
  renderer.renderPrimitive(drop);
  renderer.flush();
  return icon;
}
