#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/Broadcaster.h>

// What the selection view tells its listeners: the region, in image pixels,
// and why. Only kSelectionFinished is sent, once per drag, on release.
struct ZO_API ImageRegionSelectionViewEvent {
  enum eKind : int { kSelectionFinished = 2 };
  Zo::Box<int> region;
  int kind = kSelectionFinished;
};

// A picture with a rectangle marked on it at a fixed aspect ratio. The
// rectangle keeps the picture's colours and the rest shows in grey; four
// round handles at its corners resize it and a drag inside moves it. Edges
// alone cannot be grabbed. Listeners hear the final region when the button is
// released, never during the drag.
//
// The region is in image pixels, bottom-up like every box of the toolkit:
// (x0, y0) is its bottom-left corner, (x1, y1) its top right. The picture is
// stretched over the whole user area.
class ZO_API ImageRegionSelectionView : public StandardPanel, public Broadcaster<ImageRegionSelectionViewEvent> {
public:
  // Where a point lies against the region: a set of edge bits.
  enum eHit : unsigned short {
    kOutside = 0,
    kBottom = 1,
    kTop = 2,
    kLeft = 4,
    kRight = 8,
    kBottomLeft = kBottom | kLeft,
    kTopLeft = kTop | kLeft,
    kBottomRight = kBottom | kRight,
    kTopRight = kTop | kRight,
    kInside = 15,
  };
  // The hit codes that start a drag, as a mask of bit (1 << code): the four
  // corners and the inside.
  static constexpr unsigned kGrabbableHits = 0x8660;
  static bool isGrabbable(unsigned hit) noexcept { return hit < 16 && ((kGrabbableHits >> hit) & 1) != 0; }

  explicit ImageRegionSelectionView(InitArgs const& args);
  char const* idstring() const override { return "ImageRegionSelectionView"; }

  // Shows `image`, flattened on the window colour if it has transparency, and
  // selects the largest region of the aspect ratio that fits, centred.
  void setImage(Zo::Image::Surface const& image);
  Zo::Image::Surface const& getImage() const noexcept { return image_; }
  Zo::Image::Surface const& getGreyImage() const noexcept { return greyImage_; }
  XY<int> getImageSize() const noexcept { return imageSize_; }

  // Stored as given; nothing is reported.
  void setRegion(Zo::Box<int> const& region);
  Zo::Box<int> const& getRegion() const noexcept { return region_; }
  // The lesser of `width` and the picture's width; 0 means no limit.
  void setMinimumRegionWidth(unsigned int width);
  unsigned int getMinimumRegionWidth() const noexcept { return minimumRegionWidth_; }
  // Width over height of every region the user makes.
  void setSelectionAspectRatio(double ratio);
  double getSelectionAspectRatio() const noexcept { return aspectRatio_; }
  void setRegionAllowedOffScreen(bool allowed) { allowedOffScreen_ = allowed; }
  bool regionIsAllowedOffScreen() const noexcept { return allowedOffScreen_; }

  // The region in this widget's coordinates, cut to the user area; empty
  // without a picture or when the region lies wholly outside.
  Zo::Box<int> getWireframeArea() const;
  // A point of this widget in image pixels.
  XY<int> userAreaToImage(XY<int> point) const;
  // Where `point` lies against `box`; `size` is how near an edge counts as on it.
  static unsigned short hitTest(XY<int> point, Zo::Box<int> const& box, unsigned short size);
  // The drag under way (an eHit), 0 when none.
  unsigned short getDragMode() const noexcept { return dragMode_; }

  int contextCursor(XY<int> point) const override;
  int handleMouseEvent(Event const& event) override;
  void drawBackground(CanvasRenderer& renderer) override;

private:
  bool regionIsWholeImage() const noexcept;
  void dragTo(XY<int> mouse);
  void moveRegion(XY<int> mouse);
  void dragLeftCorner(XY<int> mouse);
  void dragRightCorner(XY<int> mouse);
  void drawFrameAndHandles(CanvasRenderer& renderer, Zo::Box<int> const& area);
  void hideOffImageParts(CanvasRenderer& renderer, Zo::Box<int> const& area);

  Zo::Image::Surface image_;
  Zo::Image::Surface greyImage_;
  XY<int> imageSize_;
  Zo::Box<int> region_;
  unsigned int minimumRegionWidth_ = 0;
  XY<int> lastMouse_;
  unsigned short dragMode_ = kOutside;
  double aspectRatio_ = 16.0 / 9.0;
  bool allowedOffScreen_ = false;
};
