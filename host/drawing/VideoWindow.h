#pragma once

#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/ImageSurface.h>

namespace Glib {

// A picture a task hands over with its progress, shared so that a snapshot
// can carry it across threads.
class ZO_API VideoFrame : public iObject {
public:
  explicit VideoFrame(Zo::Image::Surface pixels) : pixels_(std::move(pixels)) {}
  Zo::Image::Surface const& pixels() const noexcept { return pixels_; }

private:
  Zo::Image::Surface pixels_;
};

// The part of a widget that shows the latest frame of something being made:
// it keeps the frame presented last, which the widget draws scaled to the
// window's size.
class ZO_API VideoWindow {
public:
  void setSize(XY<int> size) noexcept { size_ = size; }
  XY<int> getSize() const noexcept { return size_; }

  // Keeps `frame` as the one shown; an empty frame shows nothing.
  void present(Zo::Image::Surface const& frame) { frame_ = frame; }
  Zo::Image::Surface const& presented() const noexcept { return frame_; }
  bool hasFrame() const noexcept { return frame_.width() > 0 && frame_.height() > 0; }

private:
  XY<int> size_;
  Zo::Image::Surface frame_;
};

} // namespace Glib
