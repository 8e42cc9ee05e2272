#include <zowidgets/containers/detail/FillAround.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>

void fillAround(CanvasRenderer& renderer, Zo::Box<int> const& area, Zo::Box<int> const& hole, Colour const& colour) {
  Zo::Box<int> const inside = area.intersect(hole);
  if (inside.empty()) {
    if (!area.empty())
      renderer.renderPrimitive(Glib::RectDescription(area, colour));
    return;
  }
  Zo::Box<int> const strips[] = {Zo::Box<int>(area.x0, area.y0, area.x1, inside.y0),      // below
                                 Zo::Box<int>(area.x0, inside.y1, area.x1, area.y1),      // above
                                 Zo::Box<int>(area.x0, inside.y0, inside.x0, inside.y1),  // left
                                 Zo::Box<int>(inside.x1, inside.y0, area.x1, inside.y1)}; // right
  for (Zo::Box<int> const& strip : strips)
    if (!strip.empty())
      renderer.renderPrimitive(Glib::RectDescription(strip, colour));
}
