#include <zowidgets/host/widgets/panels/DiscreetSplitter.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

namespace {
constexpr int kLineShade = -3;
constexpr double kWashAlpha = 0.35;
} // namespace

DiscreetSplitter::Look DiscreetSplitter::Look::make(Palette const& palette, bool ownPalette, bool hot, bool focused,
                                                    bool active) {
  Colour const plain = ownPalette ? palette.window() : palette.window(kLineShade);
  Colour const line = active && (focused || hot) ? palette.selection() : plain;
  return Look{line, active && hot ? palette.selection() : Colour::invalid(), kWashAlpha};
}

DiscreetSplitter::InitArgs::InitArgs(Orientation orientation, int length) {
  size = calcSize(orientation, length);
  this->orientation = orientation;
}

int DiscreetSplitter::getVisibleThickness() { return std::max(1, static_cast<int>(std::lround(UifStd::getScale()))); }

int DiscreetSplitter::calcOverhang() { return UifStd::getRowGap(); }

XY<int> DiscreetSplitter::calcSize(Orientation orientation, int length) {
  int const thickness = getVisibleThickness() + 2 * calcOverhang();
  return orientation == kSideBySide ? XY<int>(thickness, length) : XY<int>(length, thickness);
}

// A gap of minus the overhang lays the box's overhang over the sibling, so
// that the line itself meets the sibling's edge.
WidgetPosition DiscreetSplitter::LeftOf(Glob* sibling) { return Glob::LeftOf(-calcOverhang(), sibling); }

WidgetPosition DiscreetSplitter::Below(Glob* sibling) { return Glob::Below(-calcOverhang(), sibling); }

void DiscreetSplitter::draw(CanvasRenderer& renderer) {
  bool const ownPalette = !parent() || !(getPalette() == parent()->getPalette());
  Look const look = Look::make(getPalette(), ownPalette, isHot(), hasKbdFocus(), isActive());
  if (look.wash.use())
    renderer.renderPrimitive(Glib::AlphaRectDescription(Glib::toDoubleBox(Zo::Box<int>(0, 0, width(), height())),
                                                        look.wash, look.washAlpha));
  int const from = visibleInset();
  int const to = from + visibleThickness();
  Zo::Box<int> const line =
      getOrientation() == kSideBySide ? Zo::Box<int>(from, 0, to, height()) : Zo::Box<int>(0, from, width(), to);
  renderer.renderPrimitive(Glib::RectDescription(line, look.line));
}
