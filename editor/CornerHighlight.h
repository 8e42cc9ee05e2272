#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/Glob.h>

// A small triangular flag in the top-left corner of its box,
// drawn in the palette's text colour; setColour makes the flag's colour that
// text colour.
class ZO_API CornerHighlight : public Glob {
public:
  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    InitArgs(XY<int> size, Colour const& colour) : GlobCreationInfo(size), colour(colour) {}
    Colour colour = Colour::invalid(); // invalid: the palette's text colour
  };

  explicit CornerHighlight(InitArgs const& args);
  char const* idstring() const override { return "CornerHighlight"; }
  void setColour(Colour const& colour);
  Colour getColour() const { return getPalette().text(0); }
  // A square of half a row height.
  static XY<int> calcSize();

protected:
  void drawBackground(CanvasRenderer& renderer) override;
};
