#include <zowidgets/host/widgets/values/ColourSwatch.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

ColourSwatch::ColourSwatch(InitArgs const& args) : Glob(args), colour_(args.colour) {
  if (getSize().y == 0)
    resize(getSize().x, UifStd::getRowHeight());
  if (getSize().x == 0)
    resize(UifStd::getRowHeight(), height());
}

void ColourSwatch::setColour(ColourData const& colour, eRedrawFlag redraw) {
  if (colour == colour_)
    return;
  colour_ = colour;
  if (redraw != kNoRedraw)
    invalidate();
}

void ColourSwatch::drawBackground(CanvasRenderer& renderer) {
  Glob::drawBackground(renderer);
  if (colour_.getAlpha() >= 1.0)
    return;
  // Light and dark squares, so that any transparency shows.
  int const cell = std::max(1, UifStd::getWidgetGap());
  Colour const light(0.62, 0.62, 0.62);
  Colour const dark(0.38, 0.38, 0.38);
  for (int y = 0; y < height(); y += cell)
    for (int x = 0; x < width(); x += cell)
      renderer.renderPrimitive(
          Glib::RectDescription(Zo::Box<int>(x, y, std::min(x + cell, width()), std::min(y + cell, height())),
                                ((x / cell + y / cell) % 2 == 0) ? light : dark));
}

void ColourSwatch::draw(CanvasRenderer& renderer) {
  Glib::RectDescription patch(Zo::Box<int>(0, 0, width(), height()), colour_.toColour());
  patch.outline = getPalette().window(6);
  patch.outlineWidth = std::max(1, UifStd::getIndentWidth() / 2);
  renderer.renderPrimitive(patch);
}
