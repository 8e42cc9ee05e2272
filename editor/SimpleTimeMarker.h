#pragma once

#include <zowidgets/host/toolkit/Glob.h>

// A vertical marker line over a timeline strip: a one-pixel
// core in the palette's window colour, red unless the caller sets another
// palette, with a darker one-pixel edge on either side at its width of 3.
class ZO_API SimpleTimeMarker : public Glob {
public:
  explicit SimpleTimeMarker(GlobCreationInfo const& args);
  char const* idstring() const override { return "SimpleTimeMarker"; }
  // The marker's width, 3 pixels at every scale.
  static int calcWidth() { return 3; }

protected:
  void drawBackground(CanvasRenderer& renderer) override;
};
