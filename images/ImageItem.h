#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/images/ImageThumbnailBrowser.h>

// One row of an ImageThumbnailBrowser: a thumbnail at the left, in a thin
// frame, and the file's name. Drawing a row without its thumbnail asks the
// shared cache for the picture and shows the empty frame until it comes; a
// row out of sight asks nothing. An inactive row shows its thumbnail dimmed
// into the palette's window shades.
class ZO_API ImageThumbnailBrowser::ImageItem : public ScrollListItemWidget {
public:
  // The picture is decoded to fit a square of this side whatever the row's
  // height, so rows of any height up to it share one decoded copy.
  static constexpr int kDecodedSide = 256;

  struct InitArgs : ScrollListItemWidget::InitArgs {
    using ScrollListItemWidget::InitArgs::InitArgs;
    LightweightString<wchar_t> path; // empty for a row without a file
  };

  explicit ImageItem(InitArgs const& args);
  char const* idstring() const override { return "ImageItem"; }

  LightweightString<wchar_t> const& getPath() const noexcept { return path_; }

  // `source` scaled to the row's thumbnail height, proportions kept; an
  // empty source gives an empty surface.
  virtual Zo::Image::Surface createThumbnail(Zo::Image::Surface const& source) const;
  // Asks the cache for the picture, unless the file is gone.
  virtual void loadAsync();
  virtual int maxThumbWidth() const { return width() / 2; }
  virtual Colour getThumbBorderColour() const;
  virtual int gap() const { return 2; }
  // The thumbnail to draw: taken from the cache when it already holds the
  // picture, dimmed when the row is inactive; empty while loading.
  virtual Zo::Image::Surface getThumb();
  // Where the thumbnail goes in the row.
  virtual Zo::Box<int> calcThumbArea() const;

  // Without thumbnails the row forgets its own, freeing the memory.
  void showThumbnails(bool show);
  bool showsThumbnails() const noexcept { return showThumbnails_; }
  void setDrawBorder(bool draw) { drawBorder_ = draw; }
  // The row's box cut by the part of the list in sight, in this row's
  // coordinates; empty when the row is out of sight.
  Zo::Box<int> getClipRect() const;
  // The thumbnail in the palette's window shades, made once.
  Zo::Image::Surface const& makeInactiveThumb();
  Zo::Image::Surface const& thumbnail() const noexcept { return thumb_; }

  int react(Event const& event) override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;

private:
  void handleImageLoaded(Event const& event);
  int thumbHeight() const;

  LightweightString<wchar_t> path_;
  Zo::Image::Surface thumb_;
  Zo::Image::Surface inactiveThumb_;
  Zo::Box<int> thumbArea_;
  bool showThumbnails_ = true;
  bool drawBorder_ = true;
};
