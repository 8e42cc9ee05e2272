#include <zowidgets/images/ImageRegionSelectionView.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/ImageOperations.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ImageView.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

int roundToInt(double value) { return static_cast<int>(std::lround(value)); }

// How much of the window colour the frame takes, so that it reads on both
// the grey and the coloured parts without shouting.
constexpr double kFrameWindowShare = 0.35;

} // namespace

ImageRegionSelectionView::ImageRegionSelectionView(InitArgs const& args) : StandardPanel(args) {}

void ImageRegionSelectionView::setImage(Zo::Image::Surface const& image) {
  image_ = ImageView::hasTransparency(image) ? ImageView::makeOpaqueImage(image, getPalette().window()) : image;
  greyImage_ = Zo::Image::greyscale(image_);
  imageSize_ = XY<int>(image_.width(), image_.height());
  XY<int> const fitted = Zo::Image::fitSize({roundToInt(imageSize_.y * aspectRatio_), imageSize_.y}, imageSize_);
  int const left = (imageSize_.x - fitted.x) / 2;
  int const bottom = (imageSize_.y - fitted.y) / 2;
  region_ = image_.empty() ? Zo::Box<int>() : Zo::Box<int>(left, bottom, left + fitted.x, bottom + fitted.y);
  invalidate();
}

void ImageRegionSelectionView::setRegion(Zo::Box<int> const& region) {
  region_ = region;
  invalidate();
}

void ImageRegionSelectionView::setMinimumRegionWidth(unsigned int width) {
  minimumRegionWidth_ = std::min(width, static_cast<unsigned int>(std::max(imageSize_.x, 0)));
}

void ImageRegionSelectionView::setSelectionAspectRatio(double ratio) {
  if (ratio > 0.0)
    aspectRatio_ = ratio;
}

bool ImageRegionSelectionView::regionIsWholeImage() const noexcept {
  return region_ == Zo::Box<int>(0, 0, imageSize_.x, imageSize_.y);
}

Zo::Box<int> ImageRegionSelectionView::getWireframeArea() const {
  Zo::Box<int> const user = getUserArea();
  if (imageSize_.x <= 0 || imageSize_.y <= 0 || user.empty())
    return {};
  float const scaleX = float(user.width()) / float(imageSize_.x);
  float const scaleY = float(user.height()) / float(imageSize_.y);
  Zo::Box<int> const area(user.x0 + roundToInt(region_.x0 * scaleX), user.y0 + roundToInt(region_.y0 * scaleY),
                          user.x0 + roundToInt(region_.x1 * scaleX), user.y0 + roundToInt(region_.y1 * scaleY));
  return area.intersect(user);
}

XY<int> ImageRegionSelectionView::userAreaToImage(XY<int> point) const {
  Zo::Box<int> const user = getUserArea();
  if (user.empty())
    return {};
  // Both the widget and the region count rows upward, so no flip is needed.
  return XY<int>(int(double(point.x - user.x0) / user.width() * imageSize_.x + 0.5),
                 int(double(point.y - user.y0) / user.height() * imageSize_.y + 0.5));
}

unsigned short ImageRegionSelectionView::hitTest(XY<int> point, Zo::Box<int> const& box, unsigned short size) {
  if (box.empty())
    return kOutside;
  bool const nearLeft = std::abs(point.x - box.x0) < size;
  bool const nearRight = std::abs(point.x - box.x1) < size;
  bool const nearBottom = std::abs(point.y - box.y0) < size;
  bool const nearTop = std::abs(point.y - box.y1) < size;
  unsigned short const horizontal = nearLeft ? kLeft : nearRight ? kRight : 0;
  unsigned short const vertical = nearBottom ? kBottom : nearTop ? kTop : 0;
  if (horizontal && vertical)
    return horizontal | vertical;
  if (horizontal && point.y > box.y0 && point.y < box.y1)
    return horizontal;
  if (!horizontal && !vertical && box.contains(point))
    return kInside;
  return kOutside;
}

int ImageRegionSelectionView::contextCursor(XY<int> point) const {
  if (!isActive())
    return kCursorArrow;
  switch (hitTest(point, getWireframeArea(), static_cast<unsigned short>(UifStd::getWidgetGap()))) {
  case kBottomLeft:
  case kTopRight:
    return kCursorResizeSlash;
  case kTopLeft:
  case kBottomRight:
    return kCursorResizeBackslash;
  case kInside:
    return regionIsWholeImage() ? kCursorArrow : kCursorGrab;
  default:
    return kCursorArrow;
  }
}

int ImageRegionSelectionView::handleMouseEvent(Event const& event) {
  if (!isActive())
    return 0;
  bool const left = (event.buttons & kMouseLeft) != 0;
  switch (event.type) {
  case Event::kMouseDown: {
    if (!left)
      return dragMode_ != kOutside;
    unsigned short const hit =
        hitTest(event.position, getWireframeArea(), static_cast<unsigned short>(UifStd::getWidgetGap()));
    if (!isGrabbable(hit))
      return 0;
    dragMode_ = hit;
    lastMouse_ = userAreaToImage(event.position);
    return 1;
  }
  case Event::kMouseMove:
    if (dragMode_ == kOutside)
      return 0;
    dragTo(event.position);
    return 1;
  case Event::kMouseUp:
    if (!left || dragMode_ == kOutside)
      return dragMode_ != kOutside;
    dragMode_ = kOutside;
    broadcast(ImageRegionSelectionViewEvent{region_, ImageRegionSelectionViewEvent::kSelectionFinished});
    return 0;
  default:
    return dragMode_ != kOutside;
  }
}

void ImageRegionSelectionView::dragTo(XY<int> position) {
  Zo::Box<int> const user = getUserArea();
  XY<int> const clamped(std::clamp(position.x, user.x0, std::max(user.x0, user.x1 - 1)),
                        std::clamp(position.y, user.y0, std::max(user.y0, user.y1 - 1)));
  XY<int> const mouse = userAreaToImage(clamped);
  if (dragMode_ == kInside)
    moveRegion(mouse);
  else if (dragMode_ & kLeft)
    dragLeftCorner(mouse);
  else if (dragMode_ & kRight)
    dragRightCorner(mouse);
  lastMouse_ = mouse;
  invalidate();
}

void ImageRegionSelectionView::moveRegion(XY<int> mouse) {
  XY<int> const shift = mouse - lastMouse_;
  region_ = region_.translated(shift);
  if (allowedOffScreen_)
    return;
  if (region_.x0 < 0)
    region_ = region_.translated({-region_.x0, 0});
  if (region_.x1 > imageSize_.x)
    region_ = region_.translated({imageSize_.x - region_.x1, 0});
  if (region_.y0 < 0)
    region_ = region_.translated({0, -region_.y0});
  if (region_.y1 > imageSize_.y)
    region_ = region_.translated({0, imageSize_.y - region_.y1});
}

// A left corner: the left edge follows the mouse and the height follows the
// width at the aspect ratio. The minimum width limits shrinking. A bottom
// corner that would leave the picture stops at its edge, and a top corner
// grows no higher than the picture; either way the left edge is recomputed
// from the height that resulted.
void ImageRegionSelectionView::dragLeftCorner(XY<int> mouse) {
  Zo::Box<int>& r = region_;
  int const width = r.x1 - r.x0;
  int const height = r.y1 - r.y0;
  int dx = mouse.x - r.x0;
  if (dx > 0 && minimumRegionWidth_ > 0)
    dx = std::min(dx, width - int(minimumRegionWidth_));
  int const newWidth = width - dx;
  int const newHeight = roundToInt(newWidth / aspectRatio_);
  int const dy = height - newHeight;
  if (dragMode_ & kBottom) {
    int const newBottom = r.y0 + dy;
    if (dy < 0 && newBottom < 0) {
      r.y0 += std::max(-r.y0, dy);
      r.x0 = r.x1 - roundToInt((r.y1 - r.y0) * aspectRatio_);
    } else {
      r.y0 = newBottom;
      r.x0 += dx;
    }
  } else if (dy < 0) {
    r.y1 = std::min(r.y1 - dy, std::max(r.y1, imageSize_.y));
    r.x0 = r.x1 - roundToInt((r.y1 - r.y0) * aspectRatio_);
  } else {
    r.y1 -= dy;
    r.x0 += dx;
  }
}

// A right corner, as a left one mirrored, with one difference kept on
// purpose: the minimum width is tested on a growing drag, so a right corner
// can be pulled inwards past the minimum.
void ImageRegionSelectionView::dragRightCorner(XY<int> mouse) {
  Zo::Box<int>& r = region_;
  int const width = r.x1 - r.x0;
  int const height = r.y1 - r.y0;
  int dx = r.x1 - mouse.x;
  if (dx < 0 && minimumRegionWidth_ > 0)
    dx = std::max(dx, int(minimumRegionWidth_) - width);
  int const newWidth = width - dx;
  int const newHeight = roundToInt(newWidth / aspectRatio_);
  int const dy = height - newHeight;
  if (dragMode_ & kBottom) {
    int const newBottom = r.y0 + dy;
    if (dy < 0 && newBottom < 0) {
      r.y0 += std::max(-r.y0, dy);
      r.x1 = r.x0 + roundToInt((r.y1 - r.y0) * aspectRatio_);
    } else {
      r.y0 = newBottom;
      r.x1 -= dx;
    }
  } else if (dy < 0) {
    r.y1 = std::min(r.y1 - dy, std::max(r.y1, imageSize_.y));
    r.x1 = r.x0 + roundToInt((r.y1 - r.y0) * aspectRatio_);
  } else {
    r.y1 -= dy;
    r.x1 -= dx;
  }
}

void ImageRegionSelectionView::drawBackground(CanvasRenderer& renderer) {
  Glob::drawBackground(renderer);
  Zo::Box<int> const user = getUserArea();
  if (image_.empty() || user.empty())
    return;
  Glib::TopDownRect const whole(0, 0, imageSize_.x, imageSize_.y);
  if (regionIsWholeImage()) {
    renderer.renderPrimitive(Glib::ImageDescriptionEx(image_, whole, Glib::toDoubleBox(user)));
    renderer.addModifiedArea(user);
  } else {
    renderer.renderPrimitive(Glib::ImageDescriptionEx(greyImage_, whole, Glib::toDoubleBox(user)));
    Zo::Box<int> const area = getWireframeArea();
    if (!area.empty()) {
      Zo::Box<int> const inside = region_.intersect(Zo::Box<int>(0, 0, imageSize_.x, imageSize_.y));
      // The inside is drawn from the same scaling as the grey, so the colour
      // lands exactly over the grey it replaces.
      float const scaleX = float(user.width()) / float(imageSize_.x);
      float const scaleY = float(user.height()) / float(imageSize_.y);
      Zo::Box<double> const destination(user.x0 + inside.x0 * scaleX, user.y0 + inside.y0 * scaleY,
                                        user.x0 + inside.x1 * scaleX, user.y0 + inside.y1 * scaleY);
      renderer.renderPrimitive(
          Glib::ImageDescriptionEx(image_, Glib::TopDownRect::fromBottomUp(inside, imageSize_.y), destination));
    }
    renderer.addModifiedArea(user);
  }
  Zo::Box<int> const area = getWireframeArea();
  if (area.empty())
    return;
  drawFrameAndHandles(renderer, area);
  if (allowedOffScreen_)
    hideOffImageParts(renderer, area);
}

void ImageRegionSelectionView::drawFrameAndHandles(CanvasRenderer& renderer, Zo::Box<int> const& area) {
  Palette const& palette = getPalette();
  Colour const frame = Colour::mix(palette.subheadingText(), palette.window(), kFrameWindowShare);
  int const line = std::max(1, UifStd::getIndentWidth());
  for (Zo::Box<int> const& side : {Zo::Box<int>(area.x0, area.y0, area.x1, area.y0 + line),
                                   Zo::Box<int>(area.x0, area.y1 - line, area.x1, area.y1),
                                   Zo::Box<int>(area.x0, area.y0, area.x0 + line, area.y1),
                                   Zo::Box<int>(area.x1 - line, area.y0, area.x1, area.y1)})
    renderer.renderPrimitive(Glib::RectDescription(side, frame));
  double const outer = line * 2.5;
  double const inner = line * 1.5;
  for (XY<int> const& corner :
       {XY<int>(area.x0, area.y0), XY<int>(area.x0, area.y1), XY<int>(area.x1, area.y0), XY<int>(area.x1, area.y1)}) {
    XY<double> const centre(corner.x, corner.y);
    renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, outer, palette.subheadingText()));
    renderer.renderPrimitive(Glib::EllipseDescription::disc(centre, inner, palette.window()));
  }
  int const reach = int(std::ceil(outer));
  renderer.addModifiedArea(Zo::Box<int>(area.x0 - reach, area.y0 - reach, area.x1 + reach, area.y1 + reach));
}

// A region allowed past the picture's sides would show its frame over the
// margin; the parts beyond the picture are covered, and the picture's own
// edge is drawn where the region crosses it.
void ImageRegionSelectionView::hideOffImageParts(CanvasRenderer& renderer, Zo::Box<int> const& area) {
  Palette const& palette = getPalette();
  Zo::Box<int> const user = getUserArea();
  Zo::Box<int> const bounds(0, 0, width(), height());
  int const line = std::max(1, UifStd::getIndentWidth());
  struct Side {
    bool beyond;
    Zo::Box<int> cover;
    Zo::Box<int> edge;
  };
  for (Side const& side : {Side{region_.x0 < 0, Zo::Box<int>(0, 0, user.x0, height()),
                                Zo::Box<int>(user.x0, area.y0, user.x0 + line, area.y1)},
                           Side{region_.x1 > imageSize_.x, Zo::Box<int>(user.x1, 0, width(), height()),
                                Zo::Box<int>(user.x1 - line, area.y0, user.x1, area.y1)},
                           Side{region_.y0 < 0, Zo::Box<int>(0, 0, width(), user.y0),
                                Zo::Box<int>(area.x0, user.y0, area.x1, user.y0 + line)},
                           Side{region_.y1 > imageSize_.y, Zo::Box<int>(0, user.y1, width(), height()),
                                Zo::Box<int>(area.x0, user.y1 - line, area.x1, user.y1)}}) {
    if (!side.beyond)
      continue;
    renderer.renderPrimitive(Glib::RectDescription(side.cover.intersect(bounds), palette.window()));
    renderer.renderPrimitive(Glib::RectDescription(side.edge, palette.subheadingText()));
  }
}
