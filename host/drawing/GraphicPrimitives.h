#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <vector>

// What a renderer draws. Every description is in bottom-up coordinates (x to
// the right, y upward, in pixels, relative to the renderer's origin). Box
// edges follow Zo::Box: a box [x0, x1) x [y0, y1) with integer edges covers
// exactly those pixels. Colours are straight (not premultiplied); an invalid
// colour (Colour::invalid()) means "draw nothing of this part".
namespace Glib {

// A rectangle measured from the top-left corner of a picture, in whole
// pixels: how images address their own pixels (row 0 is the top row).
struct ZO_API TopDownRect {
  TopDownRect() noexcept = default;
  TopDownRect(int x, int y, int width, int height) noexcept : x(x), y(y), width(width), height(height) {}

  bool empty() const noexcept { return width <= 0 || height <= 0; }
  // The same pixels as a bottom-up box, inside something `containerHeight`
  // pixels tall.
  Zo::Box<int> toBottomUp(int containerHeight) const noexcept {
    return Zo::Box<int>(x, containerHeight - y - height, x + width, containerHeight - y);
  }
  static TopDownRect fromBottomUp(Zo::Box<int> const& box, int containerHeight) noexcept {
    return TopDownRect(box.x0, containerHeight - box.y1, box.width(), box.height());
  }
  friend bool operator==(TopDownRect const&, TopDownRect const&) = default;

  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

inline Zo::Box<double> toDoubleBox(Zo::Box<int> const& box) noexcept {
  return Zo::Box<double>(box.x0, box.y0, box.x1, box.y1);
}

// A filled box, with an optional outline drawn inside its edge.
struct ZO_API RectDescription {
  RectDescription() = default;
  RectDescription(Zo::Box<double> const& box, Colour const& fill) : box(box), fill(fill) {}
  RectDescription(Zo::Box<int> const& box, Colour const& fill) : box(toDoubleBox(box)), fill(fill) {}

  Zo::Box<double> box;
  Colour fill;
  Colour outline = Colour::invalid();
  double outlineWidth = 1.0;
};

// An ellipse, or an arc of one. Angles are in degrees, counter-clockwise from
// the positive x axis (0 right, 90 up); an arc runs from startAngle to
// endAngle. The stroke (lineColour, lineWidth above 0) is centred on the
// ellipse, so a ring is a thick arc: radius r with width w covers r - w/2 to
// r + w/2. The fill (fillColour) covers the inside, as a pie slice for a
// partial arc. Leave fillColour invalid for a ring.
struct ZO_API EllipseDescription {
  EllipseDescription() = default;
  EllipseDescription(XY<double> centre, XY<double> radii, double lineWidth, Colour const& lineColour,
                     Colour const& fillColour = Colour::invalid())
      : centre(centre), radii(radii), lineWidth(lineWidth), lineColour(lineColour), fillColour(fillColour) {}
  // The ellipse that touches the sides of a box.
  static EllipseDescription inBox(Zo::Box<double> const& box, double lineWidth, Colour const& lineColour,
                                  Colour const& fillColour = Colour::invalid());
  static EllipseDescription disc(XY<double> centre, double radius, Colour const& fill);
  static EllipseDescription ring(XY<double> centre, double radius, double width, Colour const& colour);

  XY<double> centre;
  XY<double> radii;
  double lineWidth = 1.0;
  double startAngle = 0.0;
  double endAngle = 360.0;
  Colour lineColour;
  Colour fillColour = Colour::invalid();
};

// A straight line with square-cut ends. Its coordinates are the middle of
// the stroke, except that a horizontal or vertical line of odd whole width
// with whole coordinates covers whole pixels: from (x0, y) to (x1, y) it
// fills the pixels [x0, x1) of pixel row y (and likewise for columns).
struct ZO_API LineDescription {
  LineDescription() = default;
  LineDescription(XY<double> from, XY<double> to, double width, Colour const& colour)
      : from(from), to(to), width(width), colour(colour) {}

  XY<double> from;
  XY<double> to;
  double width = 1.0;
  Colour colour;
};

enum class eTextAlignment : int { Left, Centre, Right };
enum class eTextVerticalAlignment : int { Bottom, Centre, Top };

// Text in one font and colour. With an empty box, `position` is the left end
// of the first line's baseline. With a box, the text is placed in it by the
// two alignments, wrapped at words to the box's width when wordWrap is set,
// and clipped to the box. Sizes are pixels: the font's size times `scale`.
struct ZO_API TextDescription {
  TextDescription() = default;
  TextDescription(LightweightString<wchar_t> const& text, XY<double> baselineStart, FontDesc const& font,
                  Colour const& colour)
      : text(text), font(font), colour(colour), position(baselineStart) {}
  TextDescription(LightweightString<wchar_t> const& text, Zo::Box<double> const& box, FontDesc const& font,
                  Colour const& colour, eTextAlignment alignment = eTextAlignment::Left)
      : text(text), font(font), colour(colour), box(box), alignment(alignment) {}

  // The text's logical extent (advance width; ascent above and descent below
  // the baseline) relative to the baseline's left end.
  static Zo::Box<double> calcBounds(LightweightString<wchar_t> const& text, FontDesc const& font, double scale = 1.0);
  // Where this description's text lands, in the same coordinates as it.
  Zo::Box<double> calcBounds() const;
  // The left end of the first baseline, once the box and alignments are
  // applied.
  XY<double> baselineStart() const;

  LightweightString<wchar_t> text;
  FontDesc font;
  Colour colour;
  XY<double> position;
  Zo::Box<double> box;
  eTextAlignment alignment = eTextAlignment::Left;
  eTextVerticalAlignment verticalAlignment = eTextVerticalAlignment::Centre;
  bool wordWrap = false;
  // Text wider than the box, on one line, is cut at its end with an
  // ellipsis to fit it.
  bool ellipsis = false;
  double scale = 1.0;
};

// A box washed with a colour at an opacity: the colour's own alpha times
// `alpha`, composited over what is there.
struct ZO_API AlphaRectDescription {
  AlphaRectDescription() = default;
  AlphaRectDescription(Zo::Box<double> const& box, Colour const& colour, double alpha = 1.0)
      : box(box), colour(colour), alpha(alpha) {}

  Zo::Box<double> box;
  Colour colour;
  double alpha = 1.0;
};

// A cubic Bézier curve from p0 to p3 pulled towards p1 and p2.
struct ZO_API BezierCurveDescription {
  BezierCurveDescription() = default;
  BezierCurveDescription(XY<double> p0, XY<double> p1, XY<double> p2, XY<double> p3, double width, Colour const& colour)
      : p0(p0), p1(p1), p2(p2), p3(p3), width(width), colour(colour) {}

  XY<double> p0;
  XY<double> p1;
  XY<double> p2;
  XY<double> p3;
  double width = 1.0;
  Colour colour;
};

// A whole picture stretched over a box, composited over what is there at the
// given opacity. At its own size on whole coordinates it is copied pixel for
// pixel; scaled, it is sampled with the nearest pixel.
struct ZO_API ImageDescription {
  ImageDescription() = default;
  ImageDescription(Zo::Image::Surface const& image, Zo::Box<double> const& destination, double alpha = 1.0)
      : image(image), destination(destination), alpha(alpha) {}
  // At its own size with its bottom-left corner at `position`.
  ImageDescription(Zo::Image::Surface const& image, XY<double> position);

  Zo::Image::Surface image;
  Zo::Box<double> destination;
  double alpha = 1.0;
};

enum class eImageFilter : int { Nearest, Bilinear, Good };

// Part of a picture (`source`, in the picture's own top-down pixels) drawn
// over a box with a chosen filter: Nearest keeps pixels square when
// magnifying; Bilinear smooths; Good also averages when shrinking.
struct ZO_API ImageDescriptionEx {
  ImageDescriptionEx() = default;
  ImageDescriptionEx(Zo::Image::Surface const& image, TopDownRect const& source, Zo::Box<double> const& destination,
                     eImageFilter filter = eImageFilter::Good)
      : image(image), source(source), destination(destination), filter(filter) {}

  Zo::Image::Surface image;
  TopDownRect source;
  Zo::Box<double> destination;
  eImageFilter filter = eImageFilter::Good;
  double alpha = 1.0;
};

// A box with rounded corners, filled and outlined (either may be invalid).
// The outline lies inside the box.
struct ZO_API RoundedRectDescription {
  RoundedRectDescription() = default;
  RoundedRectDescription(Zo::Box<double> const& box, double radius, Colour const& fill,
                         Colour const& outline = Colour::invalid(), double outlineWidth = 1.0)
      : box(box), radius(radius), fill(fill), outline(outline), outlineWidth(outlineWidth) {}

  Zo::Box<double> box;
  double radius = 0.0;
  Colour fill;
  Colour outline = Colour::invalid();
  double outlineWidth = 1.0;
};

// Triangles (p0 p1 p2), (p1 p2 p3), ... Colours: one for all, or one per
// point, blended across each triangle.
struct ZO_API TriangleStripDescription {
  std::vector<XY<double>> points;
  std::vector<Colour> colours;
};

// Triangles (p0 p1 p2), (p0 p2 p3), ... around the first point; colours as
// for the strip.
struct ZO_API TriangleFanDescription {
  std::vector<XY<double>> points;
  std::vector<Colour> colours;
};

// Connected lines p0-p1-p2-...; one colour for all, or one per segment.
struct ZO_API LineStripDescription {
  std::vector<XY<double>> points;
  std::vector<Colour> colours;
  double width = 1.0;
};

// A box filled with a gradient blended between its four corner colours.
struct ZO_API ShaderRectDescription {
  ShaderRectDescription() = default;
  ShaderRectDescription(Zo::Box<double> const& box, Colour const& bottomLeft, Colour const& bottomRight,
                        Colour const& topLeft, Colour const& topRight)
      : box(box), bottomLeft(bottomLeft), bottomRight(bottomRight), topLeft(topLeft), topRight(topRight) {}
  static ShaderRectDescription vertical(Zo::Box<double> const& box, Colour const& bottom, Colour const& top) {
    return ShaderRectDescription(box, bottom, bottom, top, top);
  }
  static ShaderRectDescription horizontal(Zo::Box<double> const& box, Colour const& left, Colour const& right) {
    return ShaderRectDescription(box, left, right, left, right);
  }

  Zo::Box<double> box;
  Colour bottomLeft;
  Colour bottomRight;
  Colour topLeft;
  Colour topRight;
};

} // namespace Glib

// An area made of boxes (bottom-up, whole pixels); a point is in the region
// when it is in any of them.
class ZO_API iRegion : public iObject {
public:
  iRegion() = default;
  explicit iRegion(std::vector<Zo::Box<int>> boxes);

  void add(Zo::Box<int> const& box);
  std::vector<Zo::Box<int>> const& boxes() const noexcept { return boxes_; }
  bool empty() const noexcept { return boxes_.empty(); }
  bool contains(XY<int> const& point) const noexcept;
  bool intersects(Zo::Box<int> const& box) const noexcept;
  // The parts of this region inside `box`.
  std::vector<Zo::Box<int>> intersect(Zo::Box<int> const& box) const;
  // The smallest box that covers the whole region.
  Zo::Box<int> bounds() const noexcept;

private:
  std::vector<Zo::Box<int>> boxes_;
};

// Something that draws the primitives above. The four composite primitives
// have default implementations made of the others, so a renderer that
// forwards only the basic ones still draws them; a renderer may draw them
// better itself. By default a rounded rectangle becomes three rectangles and
// four quarter discs, its outline four lines and four quarter rings; each
// triangle strip or fan is drawn into a picture of its own (blending its
// corner colours) that arrives as one ImageDescription; a line strip becomes
// one line per segment.
class ZO_API iGraphicPrimitivesRenderer : public iObject {
public:
  // Bit of getCaps(): ImageDescriptionEx honours its filter.
  static constexpr unsigned int kCapsFilteredImageScaling = 1024;

  // Drawing is limited to the region as well as any clip of the renderer's
  // own; null lifts the limit.
  virtual void setClipRegion(Zo::Ptr<iRegion> region) = 0;
  virtual void setAntialiasingEnabled(bool enabled) = 0;
  virtual unsigned int getCaps() const = 0;

  virtual void renderMulti(Glib::RectDescription const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::EllipseDescription const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::LineDescription const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::TextDescription const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::AlphaRectDescription const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::BezierCurveDescription const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::ImageDescription const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::ImageDescriptionEx const* items, unsigned int count) = 0;
  virtual void renderMulti(Glib::RoundedRectDescription const* items, unsigned int count);
  virtual void renderMulti(Glib::TriangleStripDescription const* items, unsigned int count);
  virtual void renderMulti(Glib::TriangleFanDescription const* items, unsigned int count);
  virtual void renderMulti(Glib::LineStripDescription const* items, unsigned int count);
  virtual void renderMulti(Glib::ShaderRectDescription const* items, unsigned int count) = 0;
};

namespace Glib {

// A filled rounded box with an outline one pixel wide inside its edge.
ZO_API void drawRoundedRect(iGraphicPrimitivesRenderer& renderer, Zo::Box<double> const& box, Colour const& outline,
                            Colour const& fill, double radius);
// Only the outline of a rounded box, `lineWidth` wide, inside its edge.
ZO_API void drawRoundedRectOutline(iGraphicPrimitivesRenderer& renderer, Zo::Box<double> const& box,
                                   Colour const& colour, double radius, double lineWidth = 1.0);

} // namespace Glib
