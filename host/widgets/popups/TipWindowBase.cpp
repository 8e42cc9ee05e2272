#include <zowidgets/host/widgets/popups/TipWindowBase.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/detail/SideAlignment.h>

#include <algorithm>

namespace {

// The room the tip takes on each side, for a window lying `relativity` of
// its anchor: the tip faces the anchor.
WidgetSurround tipRoom(eWidgetRelativity relativity) {
  int const depth = TipWindowBase::getTipDepth();
  switch (relativity) {
  case kRelativeBelow:
    return WidgetSurround{0, 0, depth, 0};
  case kRelativeAbove:
    return WidgetSurround{0, 0, 0, depth};
  case kRelativeRight:
    return WidgetSurround{depth, 0, 0, 0};
  case kRelativeLeft:
    return WidgetSurround{0, depth, 0, 0};
  default:
    return {};
  }
}

} // namespace

TipWindowBase::TipWindowBase(InitArgs const& args)
    : Glob(args), direction_(args.relativity), pointerOffset_(args.pointerOffset) {
  if (!args.hasBorder)
    setBorder(getDefaultBorder());
}

int TipWindowBase::getTipDepth() { return std::max(1, UifStd::getIndentWidth()); }

Border TipWindowBase::getDefaultBorder() { return Border(1, std::max(1, UifStd::getIndentWidth() / 2), 0); }

XY<int> TipWindowBase::calcSizeFor(XY<int> const& userArea, eWidgetRelativity relativity, Border const& border) {
  WidgetSurround const tip = tipRoom(relativity);
  return XY<int>(userArea.x + border.left() + border.right() + tip.left + tip.right,
                 userArea.y + border.top() + border.bottom() + tip.top + tip.bottom);
}

eWidgetRelativity TipWindowBase::relativityFor(WidgetPosition const& position) {
  switch (position.kind) {
  case WidgetPosition::kAbove:
    return kRelativeAbove;
  case WidgetPosition::kBelow:
    return kRelativeBelow;
  case WidgetPosition::kLeftOf:
    return kRelativeLeft;
  case WidgetPosition::kRightOf:
    return kRelativeRight;
  default:
    return kRelativeNone;
  }
}

XY<int> TipWindowBase::calcPosition(WidgetPosition const& besideSibling, XY<int> size) {
  eWidgetRelativity const side = relativityFor(besideSibling);
  if (side == kRelativeNone || !is_good_glob_ptr(besideSibling.sibling))
    return XY<int>::unset();
  Glob const& sibling = *besideSibling.sibling;
  XY<int> const corner = sibling.screenPosition();
  Zo::Box<int> const anchor(corner.x, corner.y, corner.x + sibling.width(), corner.y + sibling.height());
  int const gap = besideSibling.gap;
  eWidgetAlignment const alignment = besideSibling.alignment;
  XY<int> const screen = screenBackend().screenSize();
  auto keepOnScreen = [](int at, int length, int screenLength) {
    return std::clamp(at, 0, std::max(0, screenLength - length));
  };
  switch (side) {
  case kRelativeAbove:
  case kRelativeBelow: {
    int const x = keepOnScreen(alongSide(anchor.x0, anchor.x1, size.x, alignment, false), size.x, screen.x);
    return XY<int>(x, side == kRelativeAbove ? anchor.y1 + gap : anchor.y0 - gap - size.y);
  }
  default: {
    int const y = keepOnScreen(alongSide(anchor.y0, anchor.y1, size.y, alignment, true), size.y, screen.y);
    return XY<int>(side == kRelativeRight ? anchor.x1 + gap : anchor.x0 - gap - size.x, y);
  }
  }
}

void TipWindowBase::setRelativeDirection(eWidgetRelativity relativity) {
  if (relativity == direction_)
    return;
  direction_ = relativity;
  layoutChildren();
  invalidate();
}

Zo::Box<int> TipWindowBase::getUserArea() const {
  Border const& b = getBorder();
  WidgetSurround const tip = tipRoom(direction_);
  return Zo::Box<int>(b.left() + tip.left, b.bottom() + tip.bottom, width() - b.right() - tip.right,
                      height() - b.top() - tip.top);
}

Zo::Box<int> TipWindowBase::getTipBox() const {
  int const depth = getTipDepth();
  switch (direction_) {
  case kRelativeBelow:
    return Zo::Box<int>(0, height() - depth, width(), height());
  case kRelativeAbove:
    return Zo::Box<int>(0, 0, width(), depth);
  case kRelativeRight:
    return Zo::Box<int>(0, 0, depth, height());
  case kRelativeLeft:
    return Zo::Box<int>(width() - depth, 0, width(), height());
  default:
    return {};
  }
}

void TipWindowBase::drawBorder(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  if (int const thickness = getBorder().thickness(); getBorder().type() != 0 && thickness > 0) {
    Glib::RectDescription frame(Zo::Box<int>(0, 0, width(), height()), Colour::invalid());
    frame.outline = palette.window(5);
    frame.outlineWidth = thickness;
    renderer.renderPrimitive(frame);
  }
  if (Zo::Box<int> const tip = getTipBox(); !tip.empty()) {
    renderer.renderPrimitive(Glib::RectDescription(tip, palette.selection()));
    drawPointer(renderer, tip);
  }
}

// A triangle in the text colour, twice as deep as the tip band: its point on
// the band's outer edge at the pointer offset, its base inside the window, so
// that the band shows which part of it faces the anchor.
void TipWindowBase::drawPointer(CanvasRenderer& renderer, Zo::Box<int> const& tip) const {
  if (pointerOffset_ < 0)
    return;
  bool const alongX = direction_ == kRelativeAbove || direction_ == kRelativeBelow;
  double const length = alongX ? tip.width() : tip.height();
  double const depth = 2.0 * (alongX ? tip.height() : tip.width());
  double const at = std::clamp<double>(pointerOffset_, depth, std::max(depth, length - depth));
  // Measured across from the window edge the band lies on; the outer edge
  // faces the anchor: the top edge for a window below it, and so on.
  bool const edgeIsHigh = direction_ == kRelativeBelow || direction_ == kRelativeLeft;
  XY<double> const edge(edgeIsHigh && !alongX ? tip.x1 : tip.x0, edgeIsHigh && alongX ? tip.y1 : tip.y0);
  double const inward = edgeIsHigh ? -depth : depth;
  auto point = [&](double along, double across) {
    return alongX ? XY<double>(edge.x + along, edge.y + across) : XY<double>(edge.x + across, edge.y + along);
  };
  Glib::TriangleStripDescription pointer;
  pointer.points = {point(at - depth, inward), point(at + depth, inward), point(at, 0.0)};
  pointer.colours = {getPalette().text()};
  renderer.renderPrimitive(pointer);
}
