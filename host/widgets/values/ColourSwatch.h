#pragma once

#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/values/binding/ValWidget.h>

// A patch of one colour. Transparency shows against a checkerboard, and an
// outline keeps dark colours visible on a dark panel. Its value is the
// ColourData it shows, so an adaptor can drive it.
class ZO_API ColourSwatch : public Glob, public ValWidget<ColourData> {
public:
  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    InitArgs(XY<int> size, ColourData const& colour) : GlobCreationInfo(size), colour(colour) {}
    ColourData colour;
  };

  explicit ColourSwatch(InitArgs const& args);
  char const* idstring() const override { return "ColourSwatch"; }

  void setColour(ColourData const& colour, eRedrawFlag redraw = kRedrawNow);
  ColourData const& getColour() const noexcept { return colour_; }

  void setNewWidgetValue(ColourData& value, eRedrawFlag redraw) override { setColour(value, redraw); }
  ColourData getWidgetValue() override { return colour_; }

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;

private:
  ColourData colour_;
};
