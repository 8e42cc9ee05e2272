#include <zowidgets/host/headless/detail/WindowEffects.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

std::uint32_t blend(std::uint32_t under, Colour const& colour, double share) {
  auto channel = [&](int shift, double over) {
    double const below = ((under >> shift) & 0xFFu) / 255.0;
    double const mixed = below * (1.0 - share) + std::clamp(over, 0.0, 1.0) * share;
    return static_cast<std::uint32_t>(std::lround(mixed * 255.0)) << shift;
  };
  return (under & 0xFF000000u) | channel(16, colour.red()) | channel(8, colour.green()) | channel(0, colour.blue());
}

// How far outside the window a screen point lies on each axis, in whole
// pixels (1 for the first pixel outside), and on which edges.
struct Outside {
  int dx = 0;
  int dy = 0;
  unsigned edges = 0;
};

Outside outsideOf(Zo::Box<int> const& window, int x, int y) {
  Outside o;
  if (x < window.x0) {
    o.dx = window.x0 - x;
    o.edges |= Glob::kEdgeLeft;
  } else if (x >= window.x1) {
    o.dx = x - window.x1 + 1;
    o.edges |= Glob::kEdgeRight;
  }
  if (y < window.y0) {
    o.dy = window.y0 - y;
    o.edges |= Glob::kEdgeBottom;
  } else if (y >= window.y1) {
    o.dy = y - window.y1 + 1;
    o.edges |= Glob::kEdgeTop;
  }
  return o;
}

} // namespace

void WindowEffects::drawSurround(Zo::Image::Surface& out, Zo::Box<int> const& area, Zo::Box<int> const& window,
                                 Glob::Surround const& surround) {
  if (surround.empty() || out.empty())
    return;
  int const w = surround.width;
  Zo::Box<int> const reach(window.x0 - w, window.y0 - w, window.x1 + w, window.y1 + w);
  Zo::Box<int> const visible = reach.intersect(area);
  for (int y = visible.y0; y < visible.y1; ++y)
    for (int x = visible.x0; x < visible.x1; ++x) {
      Outside const o = outsideOf(window, x, y);
      // Inside the window, or beside an edge without a surround.
      if (o.edges == 0 || (o.edges & ~surround.edges) != 0)
        continue;
      double const distance = std::hypot(double(o.dx), double(o.dy));
      if (distance > w)
        continue;
      // Strongest against the edge, fading to nothing at the far side.
      double const fade = 1.0 - (distance - 1.0) / w;
      int const row = area.y1 - 1 - y;
      int const column = x - area.x0;
      out.setPixel(column, row, blend(out.pixel(column, row), surround.colour, surround.strength * fade * fade));
    }
}

bool WindowEffects::isCutAway(XY<int> pixel, XY<int> size, int radius) {
  if (radius <= 0)
    return false;
  // The pixel's centre against the nearest corner's circle.
  double const cx = pixel.x + 0.5;
  double const cy = pixel.y + 0.5;
  double const nearX = cx < radius ? radius - cx : (cx > size.x - radius ? cx - (size.x - radius) : 0.0);
  double const nearY = cy < radius ? radius - cy : (cy > size.y - radius ? cy - (size.y - radius) : 0.0);
  return nearX > 0.0 && nearY > 0.0 && nearX * nearX + nearY * nearY > double(radius) * radius;
}

void WindowEffects::blitWithCurvedCorners(Zo::Image::Surface& out, Zo::Box<int> const& area, Zo::Box<int> const& window,
                                          Zo::Image::Surface const& pixels, int radius) {
  int const r = std::min({radius, window.width() / 2, window.height() / 2});
  XY<int> const size(window.width(), window.height());
  // What lies behind the cut-away parts of the corners, put back after the
  // window is laid over it.
  struct Kept {
    int column;
    int row;
    std::uint32_t pixel;
  };
  std::vector<Kept> behind;
  XY<int> const corners[] = {{0, 0}, {size.x - r, 0}, {0, size.y - r}, {size.x - r, size.y - r}};
  for (XY<int> const& corner : corners)
    for (int y = corner.y; y < corner.y + r; ++y)
      for (int x = corner.x; x < corner.x + r; ++x)
        if (isCutAway(XY<int>(x, y), size, r)) {
          int const column = window.x0 + x - area.x0;
          int const row = area.y1 - 1 - (window.y0 + y);
          behind.push_back({column, row, out.pixel(column, row)});
        }
  out.blit(pixels, window.x0 - area.x0, area.y1 - window.y1);
  for (Kept const& kept : behind)
    out.setPixel(kept.column, kept.row, kept.pixel);
}
