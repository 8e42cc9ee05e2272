#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/toolkit/Glob.h>

#include <cstdint>
#include <functional>

// A top-level window showing a known picture at a known place on the screen,
// for tools that read the screen (eye droppers, magnifiers) to read.
class PatchWindow : public Glob {
public:
  // The colour of the window's pixel at (x, row from the top), as 0xAARRGGBB.
  using ColourAt = std::function<std::uint32_t(int x, int rowFromTop)>;

  PatchWindow(Zo::Box<int> const& screenBox, ColourAt const& colourAt);
  // One flat colour.
  PatchWindow(Zo::Box<int> const& screenBox, Colour const& colour);

  // The colour shown at a screen point inside the window.
  std::uint32_t colourAt(XY<int> screen) const;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  Zo::Image::Surface image_;
  ColourAt colourAt_;
};
