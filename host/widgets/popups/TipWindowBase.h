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
  };

  explicit TipWindowBase(InitArgs const& args);
  char const* idstring() const override { return "TipWindowBase"; }

  // The outer size of a window whose user area is `userArea`, with the tip
  // on the side `relativity` faces and this border round it.
  static XY<int> calcSizeFor(XY<int> const& userArea, eWidgetRelativity relativity, Border const& border);
  // The thickness of the tip band.
  static int getTipDepth();
  // The frame used when the creation record has none.
  static Border getDefaultBorder();

  // Moves the tip; the user area shifts, the outer size stays.
  void setRelativeDirection(eWidgetRelativity relativity);
  eWidgetRelativity getRelativeDirection() const noexcept { return direction_; }
  Zo::Box<int> getUserArea() const override;
  // The tip band's box in this window; empty without a tip.
  Zo::Box<int> getTipBox() const;

protected:
  void drawBorder(CanvasRenderer& renderer) override;

private:
  eWidgetRelativity direction_;
};
