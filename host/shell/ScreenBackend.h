#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <memory>

class Canvas;

// What shows the canvases to a person: the headless virtual screen, or real
// windows on a display. The toolkit tells it what changed; it feeds input
// back through InputRouter, the one path for every backend.
class ZO_API iScreenBackend {
public:
  virtual ~iScreenBackend() = default;

  virtual XY<int> screenSize() const = 0;
  virtual double screenScale() const = 0;
  virtual void canvasMapped(Canvas&) {}
  virtual void canvasUnmapped(Canvas&) {}
  virtual void canvasMoved(Canvas&) {}
  virtual void canvasResized(Canvas&) {}
  virtual void canvasRaised(Canvas&) {}
  // Put back in front of a window raised or shown, without taking the
  // keyboard from it (a dialogue in front of its panel).
  virtual void canvasKeptInFront(Canvas&) {}
  // The canvas's title (Canvas::title) changed.
  virtual void canvasRetitled(Canvas&) {}
  // The root's window kind changed (a drop-down torn off to float as a
  // panel): the window is shown as one of its new kind.
  virtual void canvasKindChanged(Canvas&) {}
  // `damage` (canvas coordinates) has new pixels.
  virtual void canvasPainted(Canvas&, Zo::Box<int> const& damage) = 0;
  virtual void cursorChanged(int cursorId) = 0;
  // The screen's pixels in a box (screen coordinates, bottom-up).
  virtual Zo::Image::Surface grab(Zo::Box<int> const& area) = 0;
};

// The backend in use. Until one is installed, the default one: the headless
// screen of the default size, which registers itself as the library loads.
ZO_API iScreenBackend& screenBackend();
ZO_API void installScreenBackend(std::unique_ptr<iScreenBackend> backend);

// Makes the backend used when none was installed.
using ScreenBackendMaker = std::unique_ptr<iScreenBackend> (*)();
ZO_API void setDefaultScreenBackendMaker(ScreenBackendMaker maker);
