// Short lines of simple text are shaped without a layout; these check that
// such a line is exactly what a full pango layout makes of the same text, in
// sizes and in pixels, and that everything else is left to the layout.

#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/drawing/detail/CoverageMask.h>
#include <zowidgets/host/drawing/detail/GlyphMasks.h>
#include <zowidgets/host/drawing/detail/ShapedLine.h>

#include "host/drawing/DrawingTestSupport.h"
#include "host/drawing/PangoReference.h"

#include <gtest/gtest.h>
#include <hb.h>
#include <pango/pangocairo.h>

#include <iterator>
#include <string>
#include <vector>

using Glib::detail::GlyphMasks;
using Glib::detail::ShapedLine;
using Glib::detail::ShapingFont;

namespace {

struct Font {
  char const* family;
  double pixels;
  bool bold;
  bool italic;
};

PangoFontDescription* describe(Font const& font) {
  PangoFontDescription* description = pango_font_description_new();
  pango_font_description_set_family(description, font.family);
  pango_font_description_set_absolute_size(description, font.pixels * PANGO_SCALE);
  pango_font_description_set_weight(description, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(description, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  return description;
}

// The font a layout would use for `font`, with shaping's record of it.
ShapingFont loadFont(PangoSetUp const& pango, Font const& font) {
  PangoFontDescription* description = describe(font);
  PangoFont* loaded = pango_context_load_font(pango.context(), description);
  pango_font_description_free(description);
  ShapingFont shaping(loaded);
  g_object_unref(loaded);
  return shaping;
}

ShapedLine shapeIn(PangoSetUp const& pango, Font const& font, LightweightString<wchar_t> const& text) {
  ShapingFont shaping = loadFont(pango, font);
  return ShapedLine::shape(pango.context(), shaping, text);
}

PangoLayout* layoutIn(PangoSetUp const& pango, Font const& font, LightweightString<wchar_t> const& text) {
  PangoLayout* layout = pango_layout_new(pango.context());
  PangoFontDescription* description = describe(font);
  pango_layout_set_font_description(layout, description);
  pango_font_description_free(description);
  LightweightString<char> const utf8 = text.toUTF8();
  pango_layout_set_text(layout, utf8.c_str(), static_cast<int>(utf8.size()));
  return layout;
}

template <class Show> Zo::Image::Surface drawn(int width, int height, XY<double> topLeft, Show show) {
  Zo::Image::Surface surface(width, height);
  cairo_surface_t* target =
      cairo_image_surface_create_for_data(surface.data(), CAIRO_FORMAT_ARGB32, width, height, surface.stride());
  cairo_t* context = cairo_create(target);
  cairo_set_source_rgba(context, 0.1, 0.2, 0.6, 1.0);
  cairo_move_to(context, topLeft.x, topLeft.y);
  show(context);
  cairo_destroy(context);
  cairo_surface_destroy(target);
  return surface;
}

bool operator==(PangoRectangle const& a, PangoRectangle const& b) {
  return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

std::string describeRect(PangoRectangle const& r) {
  return std::to_string(r.x) + "," + std::to_string(r.y) + " " + std::to_string(r.width) + "x" +
         std::to_string(r.height);
}

Font const kFonts[] = {
    {"DejaVu Sans", 13, false, false},  {"DejaVu Sans", 26, false, false},  {"DejaVu Sans", 13, true, false},
    {"DejaVu Sans", 19.5, false, true}, {"DejaVu Serif", 14, false, false}, {"DejaVu Sans Mono", 12, false, false},
};

wchar_t const* const kSimpleTexts[] = {
    L"1000042",     L"-12.5 dB",   L"Gain",          L"AVATAR To Wavy",
    L"Count: 7",    L"  padded  ", L"fi ffl office", L"Ærøskøbing façade naïve",
    L"Łódź Ćwierć", L"50%",        L"(x) [y] {z}",
};

// The line drawn by cairo into an empty mask with its top-left corner at
// `topLeft`, as the text engine draws a run's mask.
CoverageMask cairoMask(ShapedLine const& line, XY<double> topLeft, int width, int height) {
  CoverageMask mask(width, height);
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(mask.data(), CAIRO_FORMAT_A8, width, height, mask.stride());
  cairo_t* context = cairo_create(surface);
  cairo_move_to(context, topLeft.x, topLeft.y);
  line.show(context);
  cairo_destroy(context);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
  return mask;
}

int differingBytes(CoverageMask const& a, CoverageMask const& b) {
  int differing = 0;
  for (int row = 0; row < a.height(); ++row)
    for (int x = 0; x < a.width(); ++x)
      differing += a.at(x, row) != b.at(x, row);
  return differing;
}

int coveredBytes(CoverageMask const& mask) {
  int covered = 0;
  for (int row = 0; row < mask.height(); ++row)
    for (int x = 0; x < mask.width(); ++x)
      covered += mask.at(x, row) != 0;
  return covered;
}

} // namespace

// New text is put together from glyphs kept from earlier text; the sum must
// be cairo's own drawing, byte for byte, wherever the line starts within a
// pixel, for kerned, overlapping and accented glyphs, in every style, and
// whether a glyph is drawn afresh or taken from the cache.
TEST(GlyphMasks, ALineOfKeptGlyphsIsTheMaskCairoDraws) {
  PangoSetUp const pango;
  std::vector<Font> fonts(std::begin(kFonts), std::end(kFonts));
  fonts.push_back({"DejaVu Serif", 17, false, true});
  fonts.push_back({"DejaVu Sans", 9, true, true});
  std::vector<wchar_t const*> texts(std::begin(kSimpleTexts), std::end(kSimpleTexts));
  for (wchar_t const* overlapping : {L"ffff fj", L"AVAVAWAY", L"Tj.Yj,", L"yjgq,;", L"W.A.V.E", L"1111 ||| --"})
    texts.push_back(overlapping);
  for (Font const& font : fonts)
    for (wchar_t const* text : texts) {
      SCOPED_TRACE(std::string(font.family) + " " + std::to_string(font.pixels) + " " +
                   LightweightString<wchar_t>(text).toUTF8().c_str());
      ShapedLine const line = shapeIn(pango, font, text);
      ASSERT_TRUE(line);
      GlyphMasks glyphs;
      for (XY<double> topLeft : {XY<double>(1, 1), XY<double>(3.25, 2.5), XY<double>(2.5, 1.75), XY<double>(1.7, 2.13),
                                 XY<double>(2.998, 1.0004), XY<double>(-4, -6)}) {
        SCOPED_TRACE(std::to_string(topLeft.x) + "," + std::to_string(topLeft.y));
        CoverageMask const theirs = cairoMask(line, topLeft, 460, 44);
        CoverageMask ours(460, 44);
        ASSERT_TRUE(line.compose(glyphs, topLeft, ours));
        EXPECT_EQ(differingBytes(ours, theirs), 0);
        EXPECT_GT(coveredBytes(ours), 20);
      }
    }
}

TEST(GlyphMasks, EachGlyphIsRasterisedOnce) {
  PangoSetUp const pango;
  ShapedLine const line = shapeIn(pango, Font{"DejaVu Sans", 13, false, false}, L"abcabc");
  ASSERT_TRUE(line);
  GlyphMasks glyphs;
  CoverageMask mask(80, 20);
  ASSERT_TRUE(line.compose(glyphs, XY<double>(1, 1), mask));
  EXPECT_EQ(glyphs.size(), 3u);
  ASSERT_TRUE(line.compose(glyphs, XY<double>(1.5, 1), mask));
  EXPECT_EQ(glyphs.size(), 3u);
  glyphs.clear();
  EXPECT_EQ(glyphs.size(), 0u);
}

// A glyph pango draws as a box with its code in it is not a glyph of the
// font: such a string is refused before anything is drawn.
TEST(GlyphMasks, AStringWithAnUnknownGlyphIsRefusedUntouched) {
  PangoSetUp const pango;
  PangoFontDescription* description = describe(Font{"DejaVu Sans", 13, false, false});
  PangoFont* font = pango_context_load_font(pango.context(), description);
  pango_font_description_free(description);
  hb_codepoint_t letter = 0;
  ASSERT_TRUE(hb_font_get_nominal_glyph(pango_font_get_hb_font(font), 'a', &letter));
  PangoGlyphString* glyphs = pango_glyph_string_new();
  pango_glyph_string_set_size(glyphs, 2);
  glyphs->glyphs[0] = PangoGlyphInfo{};
  glyphs->glyphs[0].glyph = letter;
  glyphs->glyphs[0].geometry.width = 8 * PANGO_SCALE;
  glyphs->glyphs[1] = PangoGlyphInfo{};
  glyphs->glyphs[1].glyph = PANGO_GLYPH_UNKNOWN_FLAG | 0x2603;
  GlyphMasks masks;
  CoverageMask mask(40, 20);
  EXPECT_FALSE(masks.compose(font, glyphs, XY<double>(2, 14), mask));
  EXPECT_EQ(coveredBytes(mask), 0);
  pango_glyph_string_free(glyphs);
  g_object_unref(font);
}

TEST(ShapedLine, SimpleTextHasTheSizesAFullLayoutGivesIt) {
  PangoSetUp const pango;
  for (Font const& font : kFonts)
    for (wchar_t const* text : kSimpleTexts) {
      SCOPED_TRACE(std::string(font.family) + " " + std::to_string(font.pixels) + " " +
                   LightweightString<wchar_t>(text).toUTF8().c_str());
      ShapedLine const line = shapeIn(pango, font, text);
      ASSERT_TRUE(line);
      PangoLayout* layout = layoutIn(pango, font, text);
      PangoRectangle logical;
      PangoRectangle ink;
      pango_layout_get_extents(layout, nullptr, &logical);
      pango_layout_get_pixel_extents(layout, &ink, nullptr);
      EXPECT_TRUE(line.logical() == logical) << describeRect(line.logical()) << " against " << describeRect(logical);
      EXPECT_TRUE(line.inkPixels() == ink) << describeRect(line.inkPixels()) << " against " << describeRect(ink);
      EXPECT_EQ(line.baseline(), pango_layout_get_baseline(layout));
      g_object_unref(layout);
    }
}

TEST(ShapedLine, SimpleTextHasThePixelsAFullLayoutGivesIt) {
  PangoSetUp const pango;
  for (Font const& font : kFonts)
    for (wchar_t const* text : kSimpleTexts)
      for (XY<double> topLeft : {XY<double>(2, 3), XY<double>(4.25, 2.5)}) {
        SCOPED_TRACE(std::string(font.family) + " " + std::to_string(font.pixels) + " " +
                     LightweightString<wchar_t>(text).toUTF8().c_str());
        ShapedLine const line = shapeIn(pango, font, text);
        ASSERT_TRUE(line);
        PangoLayout* layout = layoutIn(pango, font, text);
        Zo::Image::Surface const ours = drawn(420, 48, topLeft, [&](cairo_t* context) { line.show(context); });
        Zo::Image::Surface const theirs =
            drawn(420, 48, topLeft, [&](cairo_t* context) { pango_cairo_show_layout(context, layout); });
        g_object_unref(layout);
        EXPECT_EQ(largestDifference(ours, theirs), 0);
        EXPECT_GT(countNonTransparent(ours), 20);
      }
}

TEST(ShapedLine, TextThatNeedsALayoutIsLeftToIt) {
  PangoSetUp const pango;
  Font const font{"DejaVu Sans", 13, false, false};
  std::wstring const longText(200, L'x');
  for (wchar_t const* text :
       {L"", L"two\nlines", L"tab\there", L"\x05e9\x05dc\x05d5\x05dd", L"e\x0301", L"soft\x00adhyphen", L"\x65e5\x672c",
        L"\U0001F600 smile", L"\x2192 arrow", longText.c_str()}) {
    SCOPED_TRACE(LightweightString<wchar_t>(text).toUTF8().c_str());
    EXPECT_FALSE(shapeIn(pango, font, text));
  }
}

TEST(ShapedLine, AFontWithColourGlyphsIsLeftToTheLayout) {
  PangoSetUp const pango;
  Font const emoji{"Noto Color Emoji", 13, false, false};
  ShapingFont shaping = loadFont(pango, emoji);
  if (!shaping.hasColourGlyphs())
    GTEST_SKIP() << "no colour emoji font is installed";
  EXPECT_FALSE(ShapedLine::shape(pango.context(), shaping, L"123"));
}

TEST(ShapingFont, KnowsTheSimpleCharactersAFontHasAsPangoDoes) {
  PangoSetUp const pango;
  // A monospaced font that lacks some of the simple ranges (the dotless j,
  // U+0237, among them) and one that has them all.
  Font const lacking{"Liberation Mono", 13, false, false};
  Font const full{"DejaVu Sans", 13, false, false};
  int lacked = 0;
  for (Font const& font : {lacking, full}) {
    ShapingFont shaping = loadFont(pango, font);
    ASSERT_NE(shaping.font(), nullptr);
    for (int round = 0; round < 2; ++round) // the second round from what the first kept
      for (wchar_t c = 0x20; c <= 0x24f; ++c) {
        if (!ShapingFont::isSimple(c))
          continue;
        bool const expected = pango_font_has_char(shaping.font(), static_cast<gunichar>(c));
        EXPECT_EQ(shaping.has(c), expected) << font.family << " U+" << std::hex << int(c);
        lacked += expected ? 0 : 1;
      }
  }
  if (lacked == 0)
    GTEST_SKIP() << "Liberation Mono is not installed: every font here has every simple character";
  EXPECT_FALSE(shapeIn(pango, lacking, L"j\x0237"));
  EXPECT_TRUE(shapeIn(pango, full, L"j\x0237"));
}

TEST(ShapingFont, LeavesOutControlsMarksAndTheSoftHyphen) {
  for (wchar_t c : {L'\x1f', L'\x7f', L'\x9f', L'\xad', L'\x250', L'\x0301'})
    EXPECT_FALSE(ShapingFont::isSimple(c)) << std::hex << int(c);
  for (wchar_t c : {L' ', L'~', L'\xa0', L'\xe9', L'\x24f'})
    EXPECT_TRUE(ShapingFont::isSimple(c)) << std::hex << int(c);
}

TEST(ShapedLine, TheTextEngineMeasuresSimpleTextAsAFullLayoutDoes) {
  PangoSetUp const pango;
  Glib::TextLayout::clearCache();
  for (wchar_t const* text : kSimpleTexts) {
    Glib::TextMetrics const metrics = Glib::TextLayout::measure(text, Glib::FontDesc("DejaVu Sans", 13, 0), 2.0);
    PangoLayout* layout = layoutIn(pango, Font{"DejaVu Sans", 26, false, false}, text);
    PangoRectangle logical;
    pango_layout_get_extents(layout, nullptr, &logical);
    EXPECT_EQ(metrics.width, double(logical.width) / PANGO_SCALE);
    EXPECT_EQ(metrics.height, double(logical.height) / PANGO_SCALE);
    EXPECT_EQ(metrics.baseline, double(pango_layout_get_baseline(layout)) / PANGO_SCALE);
    EXPECT_EQ(metrics.lineCount, 1);
    g_object_unref(layout);
  }
}
