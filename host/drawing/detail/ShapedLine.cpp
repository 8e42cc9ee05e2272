#include <zowidgets/host/drawing/detail/ShapedLine.h>

#include <zowidgets/host/drawing/detail/GlyphMasks.h>

#include <hb-ot.h>
#include <pango/pangocairo.h>

#include <cmath>
#include <utility>

namespace Glib::detail {

namespace {

// Longer texts are labels and paragraphs, laid out once and kept.
constexpr std::size_t kLongestLine = 128;

// The script a layout's itemiser gives the run: Latin when a Latin letter is
// in it, otherwise common (digits, spaces and punctuation alone).
PangoScript scriptOf(LightweightString<wchar_t> const& text) {
  for (wchar_t c : text.view())
    if (g_unichar_get_script(static_cast<gunichar>(c)) == G_UNICODE_SCRIPT_LATIN)
      return PANGO_SCRIPT_LATIN;
  return PANGO_SCRIPT_COMMON;
}

// The language the itemiser gives an item of `script`: the context's, unless
// that language is not written in the script.
PangoLanguage* languageFor(PangoContext* context, PangoScript script) {
  PangoLanguage* language = pango_context_get_language(context);
  if (script != PANGO_SCRIPT_COMMON && !pango_language_includes_script(language, script))
    if (PangoLanguage* sample = pango_script_get_sample_language(script))
      return sample;
  return language;
}

} // namespace

bool hasColourGlyphs(PangoFont* font) {
  hb_font_t* shaper = font ? pango_font_get_hb_font(font) : nullptr;
  if (!shaper)
    return false;
  hb_face_t* face = hb_font_get_face(shaper);
  return hb_ot_color_has_png(face) || hb_ot_color_has_layers(face) || hb_ot_color_has_svg(face);
}

ShapingFont::ShapingFont(PangoFont* font)
    : font_(font ? PANGO_FONT(g_object_ref(font)) : nullptr), colourGlyphs_(Glib::detail::hasColourGlyphs(font)) {}

bool ShapingFont::has(wchar_t c) {
  std::size_t const index = static_cast<std::size_t>(c - kFirst);
  if (!asked_[index]) {
    asked_[index] = true;
    present_[index] = font_ && pango_font_has_char(font_.get(), static_cast<gunichar>(c));
  }
  return present_[index];
}

ShapedLine::ShapedLine(ShapedLine&& other) noexcept
    : font_(std::exchange(other.font_, nullptr)), glyphs_(std::exchange(other.glyphs_, nullptr)), ink_(other.ink_),
      logical_(other.logical_) {}

ShapedLine& ShapedLine::operator=(ShapedLine&& other) noexcept {
  std::swap(font_, other.font_);
  std::swap(glyphs_, other.glyphs_);
  std::swap(ink_, other.ink_);
  std::swap(logical_, other.logical_);
  return *this;
}

ShapedLine::~ShapedLine() {
  if (glyphs_)
    pango_glyph_string_free(glyphs_);
  if (font_)
    g_object_unref(font_);
}

ShapedLine ShapedLine::shape(PangoContext* context, ShapingFont& shapingFont, LightweightString<wchar_t> const& text) {
  ShapedLine line;
  PangoFont* const font = shapingFont.font();
  if (!font || text.empty() || text.size() > kLongestLine || shapingFont.hasColourGlyphs())
    return line;
  for (wchar_t c : text.view())
    if (!ShapingFont::isSimple(c) || !shapingFont.has(c))
      return line;
  PangoScript const script = scriptOf(text);
  PangoAnalysis analysis{};
  analysis.font = font;
  analysis.level = 0;
  analysis.gravity = PANGO_GRAVITY_SOUTH;
  analysis.script = static_cast<guint8>(script);
  analysis.language = languageFor(context, script);
  LightweightString<char> const utf8 = text.toUTF8();
  int const length = static_cast<int>(utf8.size());
  line.glyphs_ = pango_glyph_string_new();
  pango_shape_with_flags(utf8.c_str(), length, utf8.c_str(), length, &analysis, line.glyphs_, PANGO_SHAPE_NONE);
  line.font_ = PANGO_FONT(g_object_ref(font));
  pango_glyph_string_extents(line.glyphs_, font, &line.ink_, &line.logical_);
  return line;
}

PangoRectangle ShapedLine::logical() const {
  PangoRectangle logical = logical_;
  logical.y += baseline();
  return logical;
}

PangoRectangle ShapedLine::inkPixels() const {
  PangoRectangle ink = ink_;
  ink.y += baseline();
  pango_extents_to_pixels(&ink, nullptr);
  return ink;
}

int ShapedLine::baseline() const { return -logical_.y; }

void ShapedLine::show(cairo_t* context) const {
  cairo_rel_move_to(context, 0.0, double(baseline()) / PANGO_SCALE);
  pango_cairo_show_glyph_string(context, font_, glyphs_);
}

bool ShapedLine::compose(GlyphMasks& glyphs, XY<double> topLeft, CoverageMask& into) const {
  // Cairo keeps its current point in 1/256 of a pixel, and show() moves it
  // down to the baseline in those steps.
  auto const fixed = [](double value) { return std::nearbyint(value * 256.0) / 256.0; };
  XY<double> const origin(fixed(topLeft.x), fixed(topLeft.y) + fixed(double(baseline()) / PANGO_SCALE));
  return glyphs.compose(font_, glyphs_, origin, into);
}

} // namespace Glib::detail
