#pragma once

#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <memory>

class PixelCompositor;
typedef struct _cairo cairo_t;

// Draws primitives with cairo into a Zo::Image::Surface; opaque whole-pixel
// boxes, rounded boxes and text go straight to pixman (PixelCompositor).
//
// Coordinates: primitives are bottom-up (y upward) relative to the origin,
// which is set to the absolute bottom-up position of the widget being drawn.
// The clip box and the modified area are absolute bottom-up boxes in the
// surface's pixels. A point (x, y) of a primitive lands on the surface at
// column origin.x + x and, counted from the top row, at
//   surfaceHeight - (origin.y + y)
// so the pixel covering [x, x+1) x [y, y+1) is surface.pixel(origin.x + x,
// surfaceHeight - 1 - (origin.y + y)).
//
// The renderer holds a handle to the surface, sharing its pixels, so the
// surface lives at least as long as the renderer.
class ZO_API CanvasRenderer : public iGraphicPrimitivesRenderer {
public:
  explicit CanvasRenderer(Zo::Image::Surface const& surface);
  ~CanvasRenderer() override;
  CanvasRenderer(CanvasRenderer const&) = delete;
  CanvasRenderer& operator=(CanvasRenderer const&) = delete;

  // A handle sharing the pixels drawn into.
  Zo::Image::Surface surface() const noexcept { return surface_; }
  int surfaceHeight() const noexcept;

  void setOrigin(XY<int> origin) noexcept {
    if (origin != origin_) {
      origin_ = origin;
      stateApplied_ = false;
    }
  }
  XY<int> origin() const noexcept { return origin_; }

  // Drawing stays inside this box (absolute, bottom-up); the whole surface at
  // first. A box reaching outside the surface is cut to it.
  void setClipBox(Zo::Box<int> const& box);
  Zo::Box<int> clipBox() const noexcept { return clipBox_; }
  void resetClipBox();

  // While not accepting, every primitive is ignored: a window that is hidden
  // or being rebuilt draws nothing.
  void setAcceptingDrawing(bool accepting) noexcept { accepting_ = accepting; }
  bool isAcceptingDrawing() const noexcept { return accepting_; }

  template <class Description> void renderPrimitive(Description const& description) {
    if (accepting_)
      renderMulti(&description, 1);
  }

  // The union of the boxes drawn, as reported by the callers (absolute,
  // bottom-up, cut to the surface): what must reach the screen.
  void addModifiedArea(Zo::Box<int> const& box);
  Zo::Box<int> modifiedArea() const noexcept { return modified_; }
  Zo::Box<int> takeModifiedArea() noexcept;

  // Makes everything drawn so far visible in the surface's pixels. Drawing
  // is immediate, so this only matters to code that reads the pixels while
  // the renderer may still hold work; it is cheap.
  void flush();

  void setClipRegion(Zo::Ptr<iRegion> region) override;
  void setAntialiasingEnabled(bool enabled) override;
  unsigned int getCaps() const override;

  void renderMulti(Glib::RectDescription const* items, unsigned int count) override;
  void renderMulti(Glib::EllipseDescription const* items, unsigned int count) override;
  void renderMulti(Glib::LineDescription const* items, unsigned int count) override;
  void renderMulti(Glib::TextDescription const* items, unsigned int count) override;
  void renderMulti(Glib::AlphaRectDescription const* items, unsigned int count) override;
  void renderMulti(Glib::BezierCurveDescription const* items, unsigned int count) override;
  void renderMulti(Glib::ImageDescription const* items, unsigned int count) override;
  void renderMulti(Glib::ImageDescriptionEx const* items, unsigned int count) override;
  void renderMulti(Glib::RoundedRectDescription const* items, unsigned int count) override;
  void renderMulti(Glib::TriangleStripDescription const* items, unsigned int count) override;
  void renderMulti(Glib::TriangleFanDescription const* items, unsigned int count) override;
  void renderMulti(Glib::LineStripDescription const* items, unsigned int count) override;
  void renderMulti(Glib::ShaderRectDescription const* items, unsigned int count) override;

private:
  struct Cairo;
  // A box, its corners rounded by `radius` (0: square), filled and then
  // outlined `outlineWidth` wide just inside its edge (filled whole when too
  // small to be hollow); an unusable colour skips its part.
  void fillAndOutline(Zo::Box<double> const& box, double radius, Colour const& fill, Colour const& outline,
                      double outlineWidth);
  // One shape of that: the box, or with `band` > 0 the band that wide inside
  // its edge. Opaque whole-pixel boxes are set straight into the pixels and
  // rounded ones laid through kept masks; the rest go through cairo.
  void fillShape(Zo::Box<double> const& box, double radius, double band, Colour const& colour);
  // A rounded shape laid through its kept mask, its top-left corner landing
  // at `topLeft` in the surface's pixels; false when none can be kept.
  bool layThroughMask(Zo::Box<double> const& box, XY<double> topLeft, double radius, double band, Colour const& colour);
  // The surface pixels of a whole-pixel box whose top-left corner lands at
  // `topLeft`, cut to a pixel beyond the surface's edges if asked.
  Glib::TopDownRect pixelRect(XY<double> topLeft, Zo::Box<double> const& box, bool cutToSurface) const;
  // `rect` (surface pixels, top-down), or the band `band` pixels wide inside it.
  void fillWholePixels(Glib::TopDownRect const& rect, int band, Colour const& colour);
  // Readies a batch of primitives; false when nothing can be drawn.
  bool begin();
  // cairo, set up for a primitive: clip, bottom-up transform, antialiasing.
  cairo_t* cairo();
  // The clip (box and region) in the surface's top-down pixels.
  std::vector<Glib::TopDownRect> clipRects() const;

  Zo::Image::Surface surface_;
  std::unique_ptr<PixelCompositor> pixels_;
  std::unique_ptr<Cairo> cairo_;
  XY<int> origin_;
  Zo::Box<int> clipBox_;
  Zo::Ptr<iRegion> clipRegion_;
  Zo::Box<int> modified_;
  bool accepting_ = true;
  bool antialias_ = true;
  // Whether cairo already holds the clip, transform and antialiasing above,
  // so that a run of primitives sets them up once.
  bool stateApplied_ = false;
  // The clip in the surface's own pixels, and whether it is up to date.
  std::vector<Glib::TopDownRect> clip_;
  bool clipKnown_ = false;
};
