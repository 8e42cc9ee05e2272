#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/XY.h>

#include <cairo.h>
#include <pango/pango.h>

class CoverageMask;

namespace Glib::detail {

class GlyphMasks;

// One line of text shaped in one font, without a layout. Values shown by
// sliders and number boxes change at every paint of a drag; for them, making
// a PangoLayout (itemising, breaking, building lines) costs several times the
// shaping itself. Only text that a layout would set in this very font, in
// one item, is shaped here, so the glyphs are the layout's glyphs.
class ZO_API ShapedLine {
public:
  ShapedLine() = default;
  ShapedLine(ShapedLine&& other) noexcept;
  ShapedLine& operator=(ShapedLine&& other) noexcept;
  ShapedLine(ShapedLine const&) = delete;
  ShapedLine& operator=(ShapedLine const&) = delete;
  ~ShapedLine();

  // The text shaped in `font`, or an empty line when it needs a layout: an
  // empty or long text, a character outside the Latin ranges, a control
  // character or a mark, a character the font lacks, or a font with colour
  // glyphs.
  static ShapedLine shape(PangoContext* context, PangoFont* font, LightweightString<wchar_t> const& text);

  explicit operator bool() const { return glyphs_ != nullptr; }

  // The logical box in pango units, from the line's top-left corner.
  PangoRectangle logical() const;
  // The ink box in whole pixels (rounded outwards), from the top-left corner.
  PangoRectangle inkPixels() const;
  // From the top of the line to its baseline, in pango units.
  int baseline() const;

  // Draws the glyphs with the line's top-left corner at the current point.
  void show(cairo_t* context) const;
  // Adds to `into` what show() would draw into an empty mask with the
  // current point at `topLeft`, from kept glyphs. False, with nothing drawn,
  // when some glyph cannot be kept.
  bool compose(GlyphMasks& glyphs, XY<double> topLeft, CoverageMask& into) const;

private:
  PangoFont* font_ = nullptr;
  PangoGlyphString* glyphs_ = nullptr;
  // The glyphs' boxes from their baseline origin, measured once.
  PangoRectangle ink_{};
  PangoRectangle logical_{};
};

// Colour bitmaps, colour layers or SVG glyphs, as emoji fonts have them.
ZO_API bool hasColourGlyphs(PangoFont* font);

} // namespace Glib::detail
