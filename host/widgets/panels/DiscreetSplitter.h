#pragma once

#include <zowidgets/host/widgets/panels/Splitter.h>

// A splitter that shows as a hairline between its children but can be taken
// hold of a little either side of it: its box reaches over each neighbour's
// edge, and it is placed over them (LeftOf, Below) after they are added. It
// draws nothing beyond the line, so the neighbours show there.
//
// The line is drawn in its palette's window colour when it was given a
// palette of its own (makeWindowPalette(palette, palette.window(-3)), say),
// and otherwise three shades darker than the window it divides; in the
// selection colour while it has the focus, washed with it while the pointer
// is over it or it is dragged.
class ZO_API DiscreetSplitter : public Splitter {
public:
  struct Look {
    Colour line;
    Colour wash; // over the whole box, or invalid for none
    double washAlpha;
    static Look make(Palette const& palette, bool ownPalette, bool hot, bool focused, bool active);
  };

  struct InitArgs : Splitter::InitArgs {
    using Splitter::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : Splitter::InitArgs(info) {}
    // A discreet splitter across `length` (calcSize).
    InitArgs(Orientation orientation, int length);
  };

  explicit DiscreetSplitter(InitArgs const& args) : Splitter(args) {}
  char const* idstring() const override { return "DiscreetSplitter"; }

  // The thickness of the line, which is what the children are kept apart by.
  static int getVisibleThickness();
  // How far the box reaches over each neighbour.
  static int calcOverhang();
  // The size of a discreet splitter dividing `length` pixels of children.
  static XY<int> calcSize(Orientation orientation, int length);
  // Placements that put the line against a child's edge: at the left of
  // `sibling` (side by side), or below it (stacked).
  static WidgetPosition LeftOf(Glob* sibling);
  static WidgetPosition Below(Glob* sibling);

protected:
  int visibleInset() const override { return calcOverhang(); }
  int visibleThickness() const override { return getVisibleThickness(); }
  // Nothing under the line: the neighbours show there.
  void drawBackground(CanvasRenderer&) override {}
  void draw(CanvasRenderer& renderer) override;
};
