#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/toolkit/detail/BorderEdges.h>

#include <algorithm>

namespace {

int cornerRadius() { return UifStd::getWidgetGap(); }

// Wide enough to read as a shadow, never wider than the margins it sits in
// when they leave room for one.
int shadowWidth(Border const& border) {
  int const wanted = std::max(2, UifStd::getWidgetGap() / 2);
  int const room = std::min(border.right(), border.bottom());
  return room > 0 ? std::min(wanted, room) : wanted;
}

bool isRounded(int type) { return type == Border::kRounded || type == Border::kDarkenedRounded; }

} // namespace

int BorderEdges::reach(Border const& border) {
  int reach = border.type() == Border::kNone ? 0 : border.thickness();
  if (isRounded(border.type()))
    reach = std::max(reach, cornerRadius());
  return border.hasShadow() ? std::max(reach, shadowWidth(border)) : reach;
}

void BorderEdges::drawShapedEdge(CanvasRenderer& renderer, Border const& border, XY<int> size, Palette const& palette) {
  double const t = border.thickness();
  // The outline is a band of that thickness inside the box.
  Zo::Box<double> const box(0, 0, size.x, size.y);
  switch (border.type()) {
  case Border::kRounded:
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(box, cornerRadius(), Colour::invalid(), palette.window(4), t));
    break;
  case Border::kDarkenedRounded:
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(box, cornerRadius(), Colour::invalid(), palette.window(-6), t));
    break;
  case Border::kMenu:
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(box, 0.0, Colour::invalid(), palette.text().mix(palette.window(), 0.5), t));
    break;
  case Border::kDropMenu:
    renderer.renderPrimitive(Glib::RoundedRectDescription(box, 0.0, Colour::invalid(), palette.selection(), t));
    break;
  default:
    break;
  }
}

void BorderEdges::drawShadow(CanvasRenderer& renderer, Border const& border, XY<int> size) {
  int const w = shadowWidth(border);
  Colour const black(0.0, 0.0, 0.0);
  // Darkest at the edge, lighter inward, one band per pixel, starting a
  // shadow's width from the top-left so that it falls down and to the right.
  for (int step = 0; step < w; ++step) {
    double const alpha = 0.45 * (w - step) / w;
    double const right = size.x - step;
    renderer.renderPrimitive(
        Glib::AlphaRectDescription(Zo::Box<double>(right - 1, step, right, size.y - w), black, alpha));
    renderer.renderPrimitive(Glib::AlphaRectDescription(Zo::Box<double>(w, step, right - 1, step + 1), black, alpha));
  }
}
