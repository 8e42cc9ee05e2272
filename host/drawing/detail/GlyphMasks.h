#pragma once

#include <zowidgets/host/base/Export.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/drawing/detail/CoverageMask.h>

#include <pango/pango.h>

#include <cstdint>
#include <unordered_map>

namespace Glib::detail {

// Each glyph of a font rasterised once, by cairo itself, and kept: a line of
// new text (a value never shown before) is then put together by adding the
// kept glyphs, where drawing it through cairo costs a context, a surface and
// a pass through cairo's own glyph cache for every run. Cairo puts every
// glyph on a whole pixel; it adds the glyphs of a line whose ink boxes
// overlap and lays those of any other line over each other, and so does
// this, so the result is the very mask cairo would draw.
class ZO_API GlyphMasks {
public:
  GlyphMasks() = default;
  GlyphMasks(GlyphMasks const&) = delete;
  GlyphMasks& operator=(GlyphMasks const&) = delete;

  // Adds the glyphs shaped in `font` to `into`, the first glyph's baseline
  // origin at `origin` in the mask's pixels. False, with nothing drawn, when
  // some glyph is one pango draws as a box of its code.
  bool compose(PangoFont* font, PangoGlyphString const* glyphs, XY<double> origin, CoverageMask& into);

  // Forgets every glyph; call before any font they came from is released.
  void clear() { glyphs_.clear(); }
  std::size_t size() const noexcept { return glyphs_.size(); }

private:
  struct Glyph {
    CoverageMask mask{0, 0};
    XY<int> offset; // of the mask's top-left from the glyph's origin pixel
    // The ink box from the origin in cairo's fixed point (1/256 pixel),
    // as cairo decides overlap by it.
    int left = 0, top = 0, right = 0, bottom = 0;
  };
  struct Key {
    PangoFont* font;
    PangoGlyph glyph;
    bool operator==(Key const&) const = default;
  };
  struct KeyHash {
    std::size_t operator()(Key const& key) const noexcept {
      return std::hash<void*>()(key.font) ^ (std::size_t(key.glyph) * 0x9e3779b97f4a7c15ull);
    }
  };

  Glyph const& glyph(PangoFont* font, PangoGlyph id);
  static Glyph rasterise(PangoFont* font, PangoGlyph id);

  std::unordered_map<Key, Glyph, KeyHash> glyphs_;
};

} // namespace Glib::detail
