#include <zowidgets/host/drawing/detail/GlyphMasks.h>

#include <zowidgets/host/drawing/detail/CairoMask.h>

#include <pango/pangocairo.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <vector>

namespace Glib::detail {

namespace {

// The pixel cairo puts a glyph on: its origin rounded, halves upwards.
int wholePixel(double position) { return static_cast<int>(std::floor(position + 0.5)); }

// A position in cairo's fixed point, 1/256 pixel, rounded as cairo rounds.
long fixedPoint(double position) { return std::lrint(position * 256.0); }

// Saturating addition, as cairo gathers the glyphs of a line that overlaps.
std::uint8_t added(std::uint8_t glyph, std::uint8_t below) {
  return static_cast<std::uint8_t>(std::min(255, glyph + below));
}

// A glyph laid over what is below it, with pixman's rounding of a product.
std::uint8_t laidOver(std::uint8_t glyph, std::uint8_t below) {
  unsigned const product = unsigned(below) * (255u - glyph) + 0x80u;
  return static_cast<std::uint8_t>(glyph + (((product >> 8) + product) >> 8));
}

// Puts `glyph` with its top-left at `at`; whatever falls outside `into` is
// cut off.
template <class Combine> void put(CoverageMask const& glyph, XY<int> at, CoverageMask& into, Combine combine) {
  int const left = std::max(0, -at.x);
  int const top = std::max(0, -at.y);
  int const right = std::min(glyph.width(), into.width() - at.x);
  int const bottom = std::min(glyph.height(), into.height() - at.y);
  for (int row = top; row < bottom; ++row) {
    std::uint8_t const* from = glyph.data() + static_cast<std::size_t>(row) * glyph.stride();
    std::uint8_t* to = into.data() + static_cast<std::size_t>(row + at.y) * into.stride() + at.x;
    for (int x = left; x < right; ++x)
      to[x] = combine(from[x], to[x]);
  }
}

} // namespace

GlyphMasks::Glyph GlyphMasks::rasterise(PangoFont* font, PangoGlyph id) {
  Glyph result;
  PangoRectangle ink;
  pango_font_get_glyph_extents(font, id, &ink, nullptr);
  pango_extents_to_pixels(&ink, nullptr);
  cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
  cairo_glyph_t const atOrigin{id, 0.0, 0.0};
  cairo_text_extents_t box;
  cairo_scaled_font_glyph_extents(scaled, &atOrigin, 1, &box);
  result.left = static_cast<int>(fixedPoint(box.x_bearing));
  result.top = static_cast<int>(fixedPoint(box.y_bearing));
  result.right = static_cast<int>(fixedPoint(box.x_bearing + box.width));
  result.bottom = static_cast<int>(fixedPoint(box.y_bearing + box.height));
  if (ink.width <= 0 || ink.height <= 0)
    return result;
  // A pixel of margin on each side for antialiasing past the rounded extents.
  result.offset = XY<int>(ink.x - 1, ink.y - 1);
  result.mask = CoverageMask(ink.width + 3, ink.height + 3);
  cairo_glyph_t const glyph{id, double(-result.offset.x), double(-result.offset.y)};
  drawIntoMask(result.mask, [&](cairo_t* context) {
    cairo_set_scaled_font(context, scaled);
    cairo_show_glyphs(context, &glyph, 1);
  });
  return result;
}

GlyphMasks::Glyph const& GlyphMasks::glyph(PangoFont* font, PangoGlyph id) {
  Key const key{font, id};
  auto found = glyphs_.find(key);
  if (found == glyphs_.end())
    found = glyphs_.emplace(key, rasterise(font, id)).first;
  return found->second;
}

bool GlyphMasks::compose(PangoFont* font, PangoGlyphString const* glyphs, XY<double> origin, CoverageMask& into) {
  for (int i = 0; i < glyphs->num_glyphs; ++i)
    if (glyphs->glyphs[i].glyph & PANGO_GLYPH_UNKNOWN_FLAG)
      return false;
  struct Placed {
    Glyph const* glyph;
    XY<int> at;
  };
  std::vector<Placed> placed;
  placed.reserve(static_cast<std::size_t>(glyphs->num_glyphs));
  // Cairo's test: a glyph's ink box, at the whole pixel it is drawn on,
  // reaching into the box of those before it.
  long boxLeft = LONG_MAX, boxTop = LONG_MAX, boxRight = LONG_MIN, boxBottom = LONG_MIN;
  bool overlap = false;
  int position = 0;
  for (int i = 0; i < glyphs->num_glyphs; ++i) {
    PangoGlyphInfo const& info = glyphs->glyphs[i];
    if (info.glyph != PANGO_GLYPH_EMPTY) {
      // The arithmetic pango's renderer does, so that rounding agrees.
      double const x = origin.x + double(position + info.geometry.x_offset) / PANGO_SCALE;
      double const y = info.geometry.y_offset == 0 ? origin.y : origin.y + double(info.geometry.y_offset) / PANGO_SCALE;
      Glyph const& kept = glyph(font, info.glyph);
      long const left = wholePixel(x) * 256L + kept.left, right = wholePixel(x) * 256L + kept.right;
      long const top = wholePixel(y) * 256L + kept.top, bottom = wholePixel(y) * 256L + kept.bottom;
      if (!overlap && left != right && top != bottom)
        overlap = right > boxLeft && left < boxRight && bottom > boxTop && top < boxBottom;
      boxLeft = std::min(boxLeft, left);
      boxTop = std::min(boxTop, top);
      boxRight = std::max(boxRight, right);
      boxBottom = std::max(boxBottom, bottom);
      if (kept.mask.width() > 0)
        placed.push_back({&kept, XY<int>(wholePixel(x) + kept.offset.x, wholePixel(y) + kept.offset.y)});
    }
    position += info.geometry.width;
  }
  for (Placed const& each : placed)
    if (overlap)
      put(each.glyph->mask, each.at, into, added);
    else
      put(each.glyph->mask, each.at, into, laidOver);
  return true;
}

} // namespace Glib::detail
