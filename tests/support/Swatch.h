#pragma once

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Glob.h>

// A widget that fills itself with one colour, for tests that read pixels.
class Swatch : public Glob {
public:
  Swatch(XY<int> size, Colour colour) : Glob(GlobCreationInfo(size)), colour_(colour) {}
  void setColour(Colour colour) {
    colour_ = colour;
    invalidate();
  }
  // Without asking for a repaint, as a widget does whose layout is then
  // redone in one go.
  void setColourQuietly(Colour colour) { colour_ = colour; }

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), colour_));
  }

private:
  Colour colour_;
};
