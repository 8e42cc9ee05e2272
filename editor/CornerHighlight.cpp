#include <zowidgets/editor/CornerHighlight.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

CornerHighlight::CornerHighlight(InitArgs const& args) : Glob(args) {
  if (args.colour.use())
    setColour(args.colour);
}

void CornerHighlight::setColour(Colour const& colour) {
  Palette palette = getPalette();
  palette.setText(colour);
  setPalette(palette);
  invalidate();
}

XY<int> CornerHighlight::calcSize() {
  int const side = UifStd::getRowHeight() / 2;
  return XY<int>(side, side);
}

void CornerHighlight::drawBackground(CanvasRenderer& renderer) {
  Colour const colour = getPalette().text(0);
  int const w = width(), h = height();
  for (int i = 0; i < w; ++i)
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, h - (i + 1), w - i, h - i), colour));
}
