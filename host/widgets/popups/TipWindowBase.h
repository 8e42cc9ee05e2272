#pragma once

#include <zowidgets/host/toolkit/Glob.h>

// A floating window that belongs beside something on the screen, a button
// usually. The edge facing that thing carries the tip: an accent band that
// ties the two together. The relative direction says where the window lies
// from its anchor (kRelativeBelow: the window is below, the tip along its
// top edge); kRelativeNone means a free window without a tip.
class ZO_API TipWindowBase : public Glob {
public:
  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    explicit InitArgs(XY<int> size) : GlobCreationInfo(size) {}
    eWidgetRelativity relativity = kRelativeBelow;
    // Where along the tip the thing the window belongs to lies, in pixels
    // from the tip's left end (a tip along the top or bottom edge) or its
    // bottom end (a tip along a side); the tip then carries a pointer there.
    // -1: no pointer, for a window lying wholly beside its anchor.
    int pointerOffset = -1;
  };

  explicit TipWindowBase(InitArgs const& args);
  char const* idstring() const override { return "TipWindowBase"; }
  eWindowKind windowKind() const override { return eWindowKind::kTip; }

  // The outer size of a window whose user area is `userArea`, with the tip
  // on the side `relativity` faces and this border round it.
  static XY<int> calcSizeFor(XY<int> const& userArea, eWidgetRelativity relativity, Border const& border);
  // Where on the screen a window of `size` goes (its bottom-left corner) to
  // lie beside the sibling of a sibling position (Above, Below, LeftOf,
  // RightOf): on that side of it, `gap` pixels away, lined up by the
  // position's alignment. Along that side the window is moved to stay on the
  // screen; across it, it is not, so that a caller sees when it would run off
  // the screen and can choose another side. The unset position when the
  // position names no live sibling.
  static XY<int> calcPosition(WidgetPosition const& besideSibling, XY<int> size);
  // The tip direction of a window so placed: Above gives kRelativeAbove, and
  // so on; kRelativeNone for other positions.
  static eWidgetRelativity relativityFor(WidgetPosition const& position);
  // The thickness of the tip band.
  static int getTipDepth();
  // The frame used when the creation record has none.
  static Border getDefaultBorder();

  int getPointerOffset() const noexcept { return pointerOffset_; }
  // Moves the tip; the user area shifts, the outer size stays.
  void setRelativeDirection(eWidgetRelativity relativity);
  eWidgetRelativity getRelativeDirection() const noexcept { return direction_; }
  Zo::Box<int> getUserArea() const override;
  // The tip band's box in this window; empty without a tip.
  Zo::Box<int> getTipBox() const;

protected:
  void drawBorder(CanvasRenderer& renderer) override;

private:
  void drawPointer(CanvasRenderer& renderer, Zo::Box<int> const& tip) const;

  eWidgetRelativity direction_;
  int pointerOffset_;
};
