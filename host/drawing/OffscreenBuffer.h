#pragma once

#include <zowidgets/host/drawing/CanvasRenderer.h>

// A picture drawn away from the screen: a surface and a renderer on it. The
// surface starts transparent.
class ZO_API iOffscreenBuffer : public iObject {
public:
  virtual XY<int> size() const = 0;
  // A handle sharing the buffer's pixels.
  virtual Zo::Image::Surface surface() const = 0;
  // Its origin is (0, 0) and its clip the whole buffer, unless changed.
  virtual CanvasRenderer& renderer() = 0;
  // Copies the pixels of `area` of `source` (the source's own top-down
  // pixels) into the buffer at its top-left corner, replacing what was
  // there; parts of the buffer the area does not cover become transparent.
  virtual void grab(Zo::Image::Surface const& source, Glib::TopDownRect const& area) = 0;
};

// A new buffer of the given size; a size of 0 or less on either axis gives an
// empty buffer whose renderer draws nothing.
ZO_API Zo::Ptr<iOffscreenBuffer> glib_makeOffscreenBuffer(XY<int> size);
