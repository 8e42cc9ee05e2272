#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/drawing/SvgIcon.h>
#include <zowidgets/host/drawing/detail/PixmanRegion.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/toolkit/detail/BorderEdges.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

XY<int> Glob::screenPosition() const {
  Canvas* own = canvas();
  XY<int> at = canvasPosition();
  return own ? own->getPosition() + at : at;
}

void Glob::invalidate() { invalidate(Zo::Box<int>(0, 0, width(), height())); }

void Glob::invalidate(Zo::Box<int> const& localBox) {
  Canvas* own = canvas();
  if (!own || !isShowing())
    return;
  own->addDamage(localBox.translated(canvasPosition()));
}

void Glob::update() {
  if (Canvas* own = canvas())
    own->paintPending();
}

void Glob::clearPendingRedraws() {
  if (Canvas* own = canvas())
    own->clearDamage();
}

using Glib::detail::PixmanRegion;

namespace {

// A large repaint goes in bands that fit the cache, top down: each band's
// pixels are handed over by the kernel, filled with the background and drawn
// on while they are still in the cache, where a canvas far larger than the
// cache would go out to memory and back for every layer drawn on it.
// Two megabytes measured faster than one on a form of a thousand rows.
constexpr long long kBandBytes = 2 << 20;

// The band of the paint under way (canvas box); none outside a paint.
thread_local Zo::Box<int> const* currentBand = nullptr;
// The widgets across bands painted so far in that paint: each counts one
// paint in the first band that paints it, which need not be the band of its
// top row (an opaque sibling may hide it there).
thread_local std::unordered_set<Glob const*>* paintedInBands = nullptr;

std::vector<Zo::Box<int>> cacheSizedBands(Zo::Box<int> const& area) {
  long long const rowBytes = 4LL * std::max(area.width(), 1);
  int const rows = static_cast<int>(std::max(16LL, kBandBytes / rowBytes));
  std::vector<Zo::Box<int>> bands;
  for (int top = area.y1; top > area.y0; top -= rows)
    bands.emplace_back(area.x0, std::max(area.y0, top - rows), area.x1, top);
  return bands;
}

// A child's box on the canvas, its parent's bottom-left corner lying at
// `origin`.
Zo::Box<int> canvasBoxOf(Glob const& widget, XY<int> origin) {
  XY<int> const at = origin + widget.getPosition();
  return Zo::Box<int>(at.x, at.y, at.x + widget.width(), at.y + widget.height());
}

// The same if the child shows and paints opaquely; empty otherwise.
Zo::Box<int> opaqueBoxOf(Glob const& widget, XY<int> origin) {
  if (!widget.isVisible() || !widget.paintsOpaquely())
    return {};
  return canvasBoxOf(widget, origin);
}

// How the opaque children of a widget, its bottom-left corner lying at
// `origin`, meet an area (canvas box).
struct ChildCover {
  // The lowest of the topmost children that together hide the whole area (a
  // page of rows scrolled in hides the list behind it, though no one row
  // does); the widget's own drawing and the children under it need no
  // painting. None when they do not hide it.
  std::optional<std::size_t> first;
  // What they leave showing when they hide part of it; null when they hide
  // all of it or none reaches into it.
  Zo::Ptr<iRegion> uncovered;
};

// The lowest of the topmost of `children` that together hide `area`, taken
// from the top down; asked only once they are known to hide it together.
std::size_t topmostCovering(std::vector<Glob*> const& children, Zo::Box<int> const& area, XY<int> origin) {
  PixmanRegion uncovered(area);
  for (std::size_t index = children.size(); index-- > 0;) {
    Zo::Box<int> const box = opaqueBoxOf(*children[index], origin).intersect(area);
    if (box.empty())
      continue;
    uncovered.subtract(box);
    if (uncovered.empty())
      return index;
  }
  return 0;
}

ChildCover coverByChildren(Glob const& parent, Zo::Box<int> const& area, XY<int> origin) {
  ChildCover cover;
  // One child over the whole area is the common case (a row repainted
  // alone), and is told without a region.
  bool any = false;
  std::vector<Glob*> const& children = parent.getChildren();
  for (std::size_t index = children.size(); index-- > 0;) {
    Zo::Box<int> const box = opaqueBoxOf(*children[index], origin).intersect(area);
    if (box.empty())
      continue;
    if (box == area) {
      cover.first = index;
      return cover;
    }
    any = true;
  }
  if (!any)
    return cover;
  // The area is a band at most, so the rows that cut it are few. They are
  // taken in the children's order, in which pixman subtracts rows made down
  // a panel several times faster than from the top down (the 100-row
  // panel's full paint, counted: 0.19 M instructions against 0.75 M); the
  // walk from the top down is left to the rarer area they hide together.
  PixmanRegion uncovered(area);
  for (Glob const* widget : children) {
    Zo::Box<int> const box = opaqueBoxOf(*widget, origin).intersect(area);
    if (!box.empty())
      uncovered.subtract(box);
  }
  if (uncovered.empty())
    cover.first = topmostCovering(children, area, origin);
  else
    cover.uncovered = Zo::Ptr<iRegion>(new iRegion(uncovered.boxes()));
  return cover;
}

} // namespace

void Glob::paint(CanvasRenderer& renderer, Zo::Box<int> const& clip) {
  // A widget may paint another into a picture of its own while it draws.
  Zo::Box<int> const* const outer = std::exchange(currentBand, nullptr);
  auto* const outerPainted = std::exchange(paintedInBands, nullptr);
  if (4LL * clip.width() * clip.height() <= kBandBytes) {
    paintAt(renderer, clip, canvasPosition());
  } else {
    std::unordered_set<Glob const*> painted;
    paintedInBands = &painted;
    for (Zo::Box<int> const& band : cacheSizedBands(clip)) {
      currentBand = &band;
      paintAt(renderer, clip, canvasPosition());
    }
  }
  currentBand = outer;
  paintedInBands = outerPainted;
}

void Glob::paintAt(CanvasRenderer& renderer, Zo::Box<int> const& clip, XY<int> origin) {
  if (!visible_)
    return;
  // `area` is what this widget shows of the whole repaint; `shown` what of
  // it lies in the band being painted.
  Zo::Box<int> const area = Zo::Box<int>(origin.x, origin.y, origin.x + width(), origin.y + height()).intersect(clip);
  Zo::Box<int> const shown = currentBand ? area.intersect(*currentBand) : area;
  if (shown.empty())
    return;
  // Once a repaint; only a widget across bands needs looking up for it.
  bool const inOneBand = !currentBand || (area.y0 >= currentBand->y0 && area.y1 <= currentBand->y1);
  if (inOneBand || paintedInBands->insert(this).second)
    ++paintCount_;
  renderer.setOrigin(origin);
  renderer.setClipBox(shown);
  ChildCover const cover = coverByChildren(*this, shown, origin);
  auto first = cover.first ? children_.begin() + static_cast<std::ptrdiff_t>(*cover.first) : children_.end();
  if (first == children_.end()) {
    // What opaque children hide would be painted over at once: the widget's
    // own background and drawing are left out there. A clip is set only when
    // there is one, as setting it makes the renderer set its state up again.
    if (cover.uncovered)
      renderer.setClipRegion(cover.uncovered);
    drawBackground(renderer);
    draw(renderer);
    if (cover.uncovered)
      renderer.setClipRegion(nullptr);
    first = children_.begin();
  }
  for (auto child = first; child != children_.end(); ++child) {
    // Most children of a long panel lie outside a repaint or a band: they
    // are passed over here, without a call.
    Glob& widget = **child;
    if (widget.visible_ && !canvasBoxOf(widget, origin).intersect(shown).empty())
      widget.paintAt(renderer, area, origin + widget.position_);
  }
  renderer.setOrigin(origin);
  renderer.setClipBox(shown);
  drawBorder(renderer);
  renderer.addModifiedArea(shown);
}

void Glob::drawBackground(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), palette.window()));
}

void Glob::draw(CanvasRenderer&) {}

namespace {

void drawBevelledEdge(CanvasRenderer& renderer, Border const& border, XY<int> size, Palette const& palette) {
  // Raised edges are light at the top left and dark at the bottom right;
  // sunken ones the other way round; flat ones one colour.
  Colour light = palette.window(3);
  Colour dark = palette.window(-3);
  if (border.type() == Border::kSunken)
    std::swap(light, dark);
  if (border.type() == Border::kFlat)
    light = dark = palette.window(-2);
  int const w = size.x, h = size.y, t = border.thickness();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, h - t, w, h), light));
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, t, h - t), light));
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(t, 0, w, t), dark));
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(w - t, t, w, h - t), dark));
}

} // namespace

void Glob::drawBorder(CanvasRenderer& renderer) {
  int const reach = BorderEdges::reach(border_);
  if (reach <= 0)
    return;
  // A repaint of the inside (one row of a long panel) leaves the edges alone.
  Zo::Box<int> inner = canvasBox();
  inner = Zo::Box<int>(inner.x0 + reach, inner.y0 + reach, inner.x1 - reach, inner.y1 - reach);
  if (inner.intersect(renderer.clipBox()) == renderer.clipBox())
    return;
  Palette const& palette = getPalette();
  XY<int> const size(width(), height());
  if (border_.type() > Border::kSunken)
    BorderEdges::drawShapedEdge(renderer, border_, size, palette);
  else if (border_.type() != Border::kNone && border_.thickness() > 0)
    drawBevelledEdge(renderer, border_, size, palette);
  if (border_.hasShadow())
    BorderEdges::drawShadow(renderer, border_, size);
}

Glob* Glob::pick(XY<int> point) {
  if (!visible_ || !Zo::Box<int>(0, 0, width(), height()).contains(point))
    return nullptr;
  // Later children are drawn over earlier ones, so they are asked first.
  for (auto it = children_.rbegin(); it != children_.rend(); ++it)
    if (Glob* hit = (*it)->pick(point - (*it)->position_))
      return hit;
  return this;
}

Zo::Image::Surface Glob::loadIcon(std::string_view name, double size) const {
  // Out-of-range and non-finite sizes end at the nearest side the cache draws.
  double const pixels = std::isfinite(size) ? size * UifStd::getScale() : 1.0;
  int const side = static_cast<int>(std::lround(std::clamp(pixels, 1.0, double(SvgIcon::kMaxIconSide))));
  return IconCache::get(name, side, getPalette().text()).surface;
}
