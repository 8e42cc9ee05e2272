#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/toolkit/Glob.h>

// A window over the whole screen showing what the screen showed when it was
// made, while the eye dropper captures the mouse: presses anywhere land on
// one of our windows, so the dropper hears them even where no window of ours
// was, and the screen holds still while the user picks from it.
class ZO_API EyeDropperScreenCover : public Glob {
public:
  // Takes the picture of the screen and shows itself over everything.
  explicit EyeDropperScreenCover(int cursorId);
  char const* idstring() const override { return "EyeDropperScreenCover"; }
  eWindowKind windowKind() const override { return eWindowKind::kPopupMenu; }

  Zo::Image::Surface const& picture() const noexcept { return picture_; }
  int contextCursor(XY<int>) const override { return cursorId_; }

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  Zo::Image::Surface picture_;
  int cursorId_;
};
