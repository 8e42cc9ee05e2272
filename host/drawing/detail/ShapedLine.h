#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/XY.h>

#include <cairo.h>
#include <pango/pango.h>

#include <bitset>
#include <memory>

class CoverageMask;

namespace Glib::detail {

class GlyphMasks;

// A font as shaping asks about it at every new line: which characters of the
// simple ranges it has (pango looks each one up through the font's coverage,
// which costs more than shaping a short number) and whether it has colour
// glyphs, each asked of pango once. Holds a reference to the font.
class ZO_API ShapingFont {
public:
  explicit ShapingFont(PangoFont* font);

  PangoFont* font() const noexcept { return font_.get(); }
  bool hasColourGlyphs() const noexcept { return colourGlyphs_; }
  // Whether the font has `c`, one of the characters isSimple() accepts.
  bool has(wchar_t c);

  // Printable Basic Latin, Latin-1 and Latin Extended-A and B: characters
  // that a layout puts in one left-to-right item with the font that has
  // them. The soft hyphen is left out, since a layout hides it.
  static bool isSimple(wchar_t c) noexcept {
    return (c >= kFirst && c <= 0x7e) || (c >= 0xa0 && c <= kLast && c != 0xad);
  }

private:
  static constexpr wchar_t kFirst = 0x20;
  static constexpr wchar_t kLast = 0x24f;
  static constexpr std::size_t kCount = kLast - kFirst + 1;

  struct Unreference {
    void operator()(PangoFont* font) const noexcept { g_object_unref(font); }
  };
  std::unique_ptr<PangoFont, Unreference> font_;
  bool colourGlyphs_ = false;
  std::bitset<kCount> asked_;
  std::bitset<kCount> present_;
};

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
  static ShapedLine shape(PangoContext* context, ShapingFont& font, LightweightString<wchar_t> const& text);

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
