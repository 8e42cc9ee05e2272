#include <zowidgets/editor/SimpleTimeMarker.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>

SimpleTimeMarker::SimpleTimeMarker(GlobCreationInfo const& args) : Glob(args) {
  setPalette(makeWindowPalette(getPalette(), Colour(1.0, 0.0, 0.0)));
}

void SimpleTimeMarker::drawBackground(CanvasRenderer& renderer) {
  Colour const core = getPalette().window(0);
  renderer.renderPrimitive(
      Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), Colour::mix(core, Colour(), 0.3)));
  if (width() > 2)
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(1, 0, width() - 1, height()), core));
}
