#pragma once

#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/widgets/values/ImageView.h>
#include <zowidgets/values/notify/Broadcaster.h>

// What a pixel grid tells its listeners: kind 0, the user clicked a pixel,
// at `position` in image pixels (x from the left, y from the top row), with
// the modifier keys held.
struct ZO_API ImageViewExEvent {
  enum eKind : int { kPixelClicked = 0 };
  int kind = kPixelClicked;
  XY<int> position;
  int modifiers = 0;
};

// A picture shown as a grid of enlarged pixels: each image pixel covers
// pixelSize by pixelSize screen pixels, from a scroll offset at the widget's
// top-left corner, with no smoothing. In alpha mode the grid shows each
// pixel's alpha as grey (black transparent, white opaque). Releasing the left
// button over the picture reports the pixel under the pointer.
class ZO_API ImageViewEx : public ImageView, public Broadcaster<ImageViewExEvent> {
public:
  using Event = ImageViewExEvent;
  enum eMode : int { kColours = 0, kAlpha = 2 };

  explicit ImageViewEx(InitArgs const& args);
  char const* idstring() const override { return "ImageViewEx"; }

  // 1 is no zoom; 0 counts as 1.
  void setPixelSize(unsigned int size);
  unsigned int getPixelSize() const noexcept { return pixelSize_; }
  void setMode(int mode);
  int getMode() const noexcept { return mode_; }
  // The image pixel shown at the top-left corner.
  void setOffset(XY<int> offset);
  XY<int> getOffset() const noexcept { return offset_; }
  // How many image pixels the widget shows across and down at this zoom.
  XY<int> visibleExtent() const;
  // The image pixel under a point of this widget; (-1, -1) off the picture.
  XY<int> imagePointAt(XY<int> local) const;

  int react(::Event const& event) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  Zo::Image::Surface alphaAsGrey(Glib::TopDownRect const& part) const;

  unsigned int pixelSize_ = 1;
  int mode_ = kColours;
  XY<int> offset_;
};
