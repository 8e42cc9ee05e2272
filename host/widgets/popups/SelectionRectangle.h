#pragma once

#include <zowidgets/host/toolkit/Glob.h>

// A translucent rectangle in the selection colour over other widgets: the
// rubber band a drag draws to show the area it covers, or a mark put over a
// widget. It takes no input, so events reach what lies under it.
//
// As a rubber band it lives in the widget being dragged over, hidden until
// the press: begin() at the press, extendTo() at each move, finish() at the
// release, which hides it and answers the area covered. Positions are in the
// parent's coordinates, and the band stays inside the parent.
class ZO_API SelectionRectangle : public Glob {
public:
  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    double opacity = 0.5; // of the fill; the outline is solid
  };

  explicit SelectionRectangle(InitArgs const& args);
  char const* idstring() const override { return "SelectionRectangle"; }

  // Shows the band over the pixel at `anchor`, in front of its siblings.
  void begin(XY<int> anchor);
  // Stretches the band from the anchor to cover the pixel at `point`.
  void extendTo(XY<int> point);
  // Hides the band and answers the area it covered; empty when no drag was
  // under way.
  Zo::Box<int> finish();
  // Hides the band.
  void cancel();
  bool isDragging() const noexcept { return dragging_; }
  // The area covered, in the parent's coordinates.
  Zo::Box<int> getArea() const;
  double getOpacity() const noexcept { return opacity_; }

  // The box covering the pixels at both points and every pixel between.
  static Zo::Box<int> boxBetween(XY<int> a, XY<int> b);

  Glob* pick(XY<int>) override { return nullptr; }
  bool isOpaqueAt(XY<int>) const override { return false; }

protected:
  void drawBackground(CanvasRenderer&) override {}
  void draw(CanvasRenderer& renderer) override;

private:
  void cover(Zo::Box<int> const& area);

  double opacity_;
  XY<int> anchor_;
  bool dragging_ = false;
};
