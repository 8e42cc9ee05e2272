#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/drawing/ImageSurface.h>

// A copy of part of the screen, as the eye dropper and magnifier read it.
class ZO_API iHostImage : public iObject {
public:
  virtual Zo::Image::Surface const& pixels() const = 0;
  // The screen box the pixels came from (bottom-up screen coordinates).
  virtual Zo::Box<int> area() const = 0;
  // The pixel at a screen point inside the area (0xAARRGGBB, premultiplied),
  // or 0 outside it.
  std::uint32_t pixelAt(XY<int> screenPoint) const;
};

// The host's media services; reached through OS().media().
class ZO_API iMediaServices {
public:
  virtual ~iMediaServices() = default;
  // The screen's pixels in `area`, from whatever backend shows the windows:
  // the headless screen's composite, or the real desktop.
  virtual Zo::Ptr<iHostImage> getHostImage(Zo::Box<int> const& area) = 0;
};

ZO_API iMediaServices& mediaServices();
