#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/XY.h>

class Glob;

// Which side of something a widget, a separator or a drop-down sits on.
enum eWidgetRelativity : int {
  kRelativeNone = 0,
  kRelativeLeft = 1,
  kRelativeRight = 2,
  kRelativeAbove = 3,
  kRelativeBelow = 4,
};

// How a widget placed beside a sibling lines up with it: for Above and Below
// along x (start = left edges), for LeftOf and RightOf along y (start = top
// edges).
enum eWidgetAlignment : int {
  kAlignStart = 0,
  kAlignCentre = 1,
  kAlignEnd = 2,
};

// Space kept clear around a widget, in pixels, honoured when other widgets
// are placed against it and when it is placed against others.
struct ZO_API WidgetSurround {
  int left = 0;
  int right = 0;
  int top = 0;
  int bottom = 0;

  static WidgetSurround none() { return {}; }
  static WidgetSurround all(int gap) { return {gap, gap, gap, gap}; }
  // Space on one side only.
  static WidgetSurround on(eWidgetRelativity side, int gap);

  friend bool operator==(WidgetSurround const&, WidgetSurround const&) = default;
};

// A frame inside a widget's edge. The type picks a style of edge (0 none,
// 1 flat line, 2 raised, 3 sunken, then the rounded and menu edges below, up
// to kLastBorderType); the margins say how far the user area lies inside the
// edge. A shadow darkens the bottom and right edges, inside the widget's box.
class ZO_API Border {
public:
  static constexpr int kLastBorderType = 15;
  enum eType : int {
    kNone = 0,
    kFlat = 1,
    kRaised = 2,
    kSunken = 3,
    kRounded = 4,         // a light rounded line
    kDarkenedRounded = 5, // a dark rounded band
    kMenu = 6,            // a thin line in the text colour, as menus have
    kDropMenu = 7,        // a thicker line in the selection colour
  };
  // The named styles a window can be given, each one edge type with its
  // thickness and the standard margin.
  enum eStyle : int {
    kNoBorder = 0,
    kMenuBorder,
    kDropMenuBorder,
    kCurvedPanelBorder,
    kSquarePanelBorder,
    kDarkenedRoundedRect,
    kLineBorder,
    kStyleCount,
  };

  Border() = default;
  // A uniform margin with no drawn edge.
  explicit Border(int margin) : left_(margin), right_(margin), top_(margin), bottom_(margin) {}
  // A style, an edge thickness and a margin around the user area.
  Border(int type, int thickness, int margin);

  int type() const noexcept { return type_; }
  int thickness() const noexcept { return thickness_; }
  int left() const noexcept { return left_; }
  int right() const noexcept { return right_; }
  int top() const noexcept { return top_; }
  int bottom() const noexcept { return bottom_; }
  void setMargins(int left, int right, int top, int bottom);
  // The total of the margins on the sides `sides` names: bit 1 left, 2 right,
  // 4 top, 8 bottom.
  int calcMarginSize(int sides) const noexcept;
  // The border of a named style (eStyle); out-of-range styles give none.
  static Border forStyle(int style);
  // The named style this border's edge type belongs to; -1 for a type that
  // no style uses (sunken, and the unnamed types).
  int style() const noexcept;
  void setShadow(bool shadow) noexcept { shadow_ = shadow; }
  bool hasShadow() const noexcept { return shadow_; }

  friend bool operator==(Border const&, Border const&) = default;

private:
  int type_ = 0;
  int thickness_ = 0;
  int left_ = 0;
  int right_ = 0;
  int top_ = 0;
  int bottom_ = 0;
  bool shadow_ = false;
};

// Where a child goes in its parent. Coordinates are bottom-up: x grows to the
// right, y grows upward, and a widget's position is its bottom-left corner in
// its parent. Corner kinds put the child's matching corner at the matching
// corner of an area, moved inward by (x, y); centring kinds centre the child
// on one or both axes, rounding the centred coordinate down to a multiple of
// `grid`; sibling kinds put it beside a sibling (the widget added last when
// the sibling is null) with a gap, honouring both widgets' surrounds.
struct ZO_API WidgetPosition {
  enum eKind : int {
    kAbsolute,
    kTopLeft,
    kTopRight,
    kBottomLeft,
    kBottomRight,
    kTopCentre,
    kBottomCentre,
    kCentre,
    kLeftCentre,
    kRightCentre,
    kAbove,
    kBelow,
    kLeftOf,
    kRightOf,
    kPanelDefault = 17, // top-level windows: the toolkit picks the place
  };
  // Which rectangle the corner and centring kinds measure from.
  enum eArea : int {
    kWholeArea, // inside the border
    kUserArea,  // inside the border, below the title bar, above the footer
    kMarginArea // the footer strip below the user area
  };

  eKind kind = kAbsolute;
  eArea area = kWholeArea;
  int x = 0;
  int y = 0;
  int gap = 0;
  int grid = 1;
  Glob* sibling = nullptr;
  eWidgetAlignment alignment = kAlignStart;

  bool isSiblingRelative() const noexcept { return kind >= kAbove && kind <= kRightOf; }
  bool isAreaRelative() const noexcept { return kind >= kTopLeft && kind <= kRightCentre; }

  // Where a box of `size` with `surround` goes in `area` for a corner or
  // centring kind (its bottom-left corner); (x, y) itself for other kinds.
  XY<int> placeInArea(Zo::Box<int> const& area, XY<int> size, WidgetSurround const& surround = {}) const;
};
