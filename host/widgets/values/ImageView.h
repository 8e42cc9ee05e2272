#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/toolkit/Glob.h>

// A picture shown at the widget's size: stretched to fill it, or fitted
// inside it with its proportions kept, centred on the window colour.
// Scaling smooths the picture, shrinking averages it.
class ZO_API ImageView : public Glob {
public:
  enum eScaling : int {
    kStretch = 0, // the picture covers the whole widget
    kFit = 1,     // as large as fits, proportions kept
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    Zo::Image::Surface image;
    int scaling = kStretch;
  };

  explicit ImageView(InitArgs const& args);
  char const* idstring() const override { return "ImageView"; }

  // An empty surface shows nothing but the window colour.
  void setImage(Zo::Image::Surface const& image, eRedrawFlag redraw = kRedrawNow);
  Zo::Image::Surface const& getImage() const noexcept { return image_; }
  void setScaling(int scaling);
  int getScaling() const noexcept { return scaling_; }
  // Where the picture lands, in this widget's coordinates; empty without one.
  Zo::Box<int> imageBox() const;

  // True when some pixel of `image` is not wholly opaque.
  static bool hasTransparency(Zo::Image::Surface const& image);
  // A copy of `image` laid over `background`: every pixel opaque, as the
  // picture looks on that colour (black for an invalid one).
  static Zo::Image::Surface makeOpaqueImage(Zo::Image::Surface const& image, Colour const& background);

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  Zo::Image::Surface image_;
  int scaling_;
};
