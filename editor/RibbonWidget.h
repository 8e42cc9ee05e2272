#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/values/params/ChoiceParam.h>

class CanvasRenderer;

// The coloured ribbon that marks an asset. How it looks is a
// theme choice, "assetindicators": 0 squares, 1 ribbons (the default), 2
// dots. It takes no input of its own: presses and drags over it go on to
// the widget below it, the thumbnail it marks.
class ZO_API RibbonWidget : public Glob {
public:
  static constexpr char const* kThemeKey = "assetindicators";
  enum eAppearance : int { kSquare = 0, kRibbon = 1, kDot = 2 };

  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    InitArgs(XY<int> size, Colour const& colour, bool selected = false)
        : GlobCreationInfo(size), colour(colour), selected(selected) {}
    Colour colour = Colour(0.8, 0.2, 0.2);
    bool selected = false;
  };

  explicit RibbonWidget(InitArgs const& args);
  char const* idstring() const override { return "RibbonWidget"; }

  void setColour(Colour const& colour);
  Colour const& getColour() const noexcept { return colour_; }
  void setSelected(bool selected);
  bool isSelected() const noexcept { return selected_; }
  int react(Event const&) override { return 0; }

  // Gives the theme its "assetindicators" value, 1, unless it has one, and
  // returns the parameter's description: a choice of kind "int" labelled by resource
  // 13597, with the entries 0 (13598), 1 (13599) and 2 (13731).
  static GenericParam::ChoiceParam const& registerUIThemeParams();
  // The theme's choice, 1 when the key is absent.
  static int getDefaultAppearance();

  static XY<int> calcRibbonSize(unsigned short height);
  static XY<int> calcRibbonSize(XY<int> const& area);
  static Zo::Box<int> calcRibbonArea(Zo::Box<int> const& box, unsigned short inset);
  static void draw(CanvasRenderer& renderer, Zo::Box<int> const& box, Colour const& colour, bool selected);

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  Colour colour_;
  bool selected_ = false;
};
