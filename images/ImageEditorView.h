#pragma once

#include <zowidgets/host/drawing/NormalisedRGB.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/images/ImageViewEx.h>

// What an editor view tells its listeners. kPixelChanged: a pixel was
// clicked (and, in alpha mode, its alpha changed), with its colour before
// and after. kViewChanged: the zoom or the scroll offset changed.
struct ZO_API ImageEditorViewEvent {
  enum eKind : int { kPixelChanged = 0, kViewChanged = 1 };
  int kind = kViewChanged;
  XY<int> position;
  NormalisedRGB before;
  NormalisedRGB after;
};

// A scrolling, zooming view of a picture for editing pixel by pixel: an
// ImageViewEx with a scroll bar below and one at the right. The wheel over
// the picture zooms. In alpha mode a click raises the pixel's alpha by 2 and
// a Shift-click lowers it by 2, neither passing the ends.
class ZO_API ImageEditorView : public StandardPanel, public Broadcaster<ImageEditorViewEvent> {
public:
  using Event = ImageEditorViewEvent;
  static constexpr int kAlphaStep = 2;

  explicit ImageEditorView(InitArgs const& args);
  char const* idstring() const override { return "ImageEditorView"; }

  // The view edits `image` in place: its pixels are shared with the caller.
  void setImage(Zo::Image::Surface const& image, int mode);
  Zo::Image::Surface const& getImage() const noexcept { return view_->getImage(); }
  void setPixelSize(unsigned int size);
  unsigned int getPixelSize() const noexcept { return view_->getPixelSize(); }
  void setOffset(XY<int> offset);
  XY<int> getOffset() const noexcept { return view_->getOffset(); }
  // Adds `delta` to the zoom, never below 1; a change is reported.
  void handleZoom(int delta);

  ImageViewEx* getView() const noexcept { return view_; }
  ScrollBar* getHorizontalScrollBar() const noexcept { return hScroll_; }
  ScrollBar* getVerticalScrollBar() const noexcept { return vScroll_; }

  void resize(double width, double height) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  int handleMouseEvent(::Event const& event) override;

private:
  int handleImageViewEvent(ImageViewEx::Event const& event);
  void handleScrollBarMessages(LightweightString<char> const& message, ScrollBar* bar);
  void updateScrollBars();
  XY<int> largestOffset() const;

  ImageViewEx* view_ = nullptr;
  ScrollBar* hScroll_ = nullptr;
  ScrollBar* vScroll_ = nullptr;
};
