#include <zowidgets/host/widgets/popups/SelectionRectangle.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {

// The band's look: the selection colour, washed inside and solid round the
// edge, the edge a pixel wide at scale 1.
struct SelectionRectangleLook {
  Colour colour;
  int edge;

  static SelectionRectangleLook from(Palette const& palette) {
    return SelectionRectangleLook{palette.selection(), std::max(1, static_cast<int>(std::lround(UifStd::getScale())))};
  }
};

} // namespace

SelectionRectangle::SelectionRectangle(InitArgs const& args)
    : Glob(args), opacity_(std::clamp(args.opacity, 0.0, 1.0)) {}

Zo::Box<int> SelectionRectangle::boxBetween(XY<int> a, XY<int> b) {
  return Zo::Box<int>(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x) + 1, std::max(a.y, b.y) + 1);
}

Zo::Box<int> SelectionRectangle::getArea() const {
  return Zo::Box<int>(getX(), getY(), getX() + width(), getY() + height());
}

void SelectionRectangle::cover(Zo::Box<int> const& area) {
  Zo::Box<int> shown = area;
  if (Glob const* owner = parent())
    shown = area.intersect(Zo::Box<int>(0, 0, owner->width(), owner->height()));
  setPosition(XY<int>(shown.x0, shown.y0));
  resize(shown.width(), shown.height());
}

void SelectionRectangle::begin(XY<int> anchor) {
  if (Glob* owner = parent(); owner && owner->getChildren().back() != this)
    owner->addWidget(this); // in front of the siblings added since
  anchor_ = anchor;
  dragging_ = true;
  cover(boxBetween(anchor, anchor));
  setVisible(true);
}

void SelectionRectangle::extendTo(XY<int> point) {
  if (dragging_)
    cover(boxBetween(anchor_, point));
}

Zo::Box<int> SelectionRectangle::finish() {
  if (!dragging_)
    return {};
  Zo::Box<int> const area = getArea();
  cancel();
  return area;
}

void SelectionRectangle::cancel() {
  dragging_ = false;
  setVisible(false);
}

void SelectionRectangle::draw(CanvasRenderer& renderer) {
  SelectionRectangleLook const look = SelectionRectangleLook::from(getPalette());
  Zo::Box<int> const all(0, 0, width(), height());
  renderer.renderPrimitive(Glib::AlphaRectDescription(Glib::toDoubleBox(all), look.colour, opacity_));
  Glib::RectDescription edge(all, Colour::invalid());
  edge.outline = look.colour;
  edge.outlineWidth = look.edge;
  renderer.renderPrimitive(edge);
}
