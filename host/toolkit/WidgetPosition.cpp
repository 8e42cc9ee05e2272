#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/toolkit/WidgetPosition.h>

#include <array>

namespace {

// Rounds down (towards minus infinity) to a multiple of `grid`.
int floorToGrid(int value, int grid) {
  if (grid <= 1)
    return value;
  int q = value / grid;
  if (value % grid != 0 && value < 0)
    --q;
  return q * grid;
}

int halfOf(int value) { return value >= 0 ? value / 2 : -((-value + 1) / 2); }

} // namespace

XY<int> WidgetPosition::placeInArea(Zo::Box<int> const& a, XY<int> size, WidgetSurround const& s) const {
  int const left = a.x0 + x + s.left;
  int const right = a.x1 - x - s.right - size.x;
  int const top = a.y1 - y - s.top - size.y;
  int const bottom = a.y0 + y + s.bottom;
  int const midX = a.x0 + floorToGrid(halfOf(a.width() - size.x), grid) + x;
  int const midY = a.y0 + floorToGrid(halfOf(a.height() - size.y), grid) + y;
  switch (kind) {
  case kTopLeft:
    return XY<int>(left, top);
  case kTopRight:
    return XY<int>(right, top);
  case kBottomLeft:
    return XY<int>(left, bottom);
  case kBottomRight:
    return XY<int>(right, bottom);
  case kTopCentre:
    return XY<int>(midX, top);
  case kBottomCentre:
    return XY<int>(midX, bottom);
  case kCentre:
    return XY<int>(midX, midY);
  case kLeftCentre:
    return XY<int>(left, midY);
  case kRightCentre:
    return XY<int>(right, midY);
  default:
    return XY<int>(x, y);
  }
}

WidgetSurround WidgetSurround::on(eWidgetRelativity side, int gap) {
  WidgetSurround s;
  switch (side) {
  case kRelativeLeft:
    s.left = gap;
    break;
  case kRelativeRight:
    s.right = gap;
    break;
  case kRelativeAbove:
    s.top = gap;
    break;
  case kRelativeBelow:
    s.bottom = gap;
    break;
  case kRelativeNone:
    break;
  }
  return s;
}

Border::Border(int type, int thickness, int margin)
    : type_(type < 0 || type > kLastBorderType ? 0 : type), thickness_(thickness < 0 ? 0 : thickness) {
  int edge = thickness_ + (margin < 0 ? 0 : margin);
  left_ = right_ = top_ = bottom_ = edge;
}

void Border::setMargins(int left, int right, int top, int bottom) {
  left_ = left;
  right_ = right;
  top_ = top;
  bottom_ = bottom;
}

int Border::calcMarginSize(int sides) const noexcept {
  return ((sides & 1) ? left_ : 0) + ((sides & 2) ? right_ : 0) + ((sides & 4) ? top_ : 0) +
         ((sides & 8) ? bottom_ : 0);
}

namespace {

struct StyleEdge {
  int type;
  int thickness;
};

// Indexed by Border::eStyle.
constexpr std::array<StyleEdge, Border::kStyleCount> kStyleEdges{{
    {Border::kNone, 0},
    {Border::kMenu, 1},
    {Border::kDropMenu, 2},
    {Border::kRounded, 1},
    {Border::kRaised, 1},
    {Border::kDarkenedRounded, 2},
    {Border::kFlat, 1},
}};

} // namespace

Border Border::forStyle(int style) {
  if (style <= kNoBorder || style >= kStyleCount)
    return Border();
  StyleEdge const edge = kStyleEdges[static_cast<std::size_t>(style)];
  return Border(edge.type, edge.thickness, UifStd::getWidgetGap());
}

int Border::style() const noexcept {
  for (int style = 0; style < kStyleCount; ++style)
    if (kStyleEdges[static_cast<std::size_t>(style)].type == type_)
      return style;
  return -1;
}
