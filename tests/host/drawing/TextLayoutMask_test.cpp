// Text is composited from a kept mask of each run; these compare it with the
// same run drawn glyph by glyph by pango, set up as the layout engine is
// documented to be (grey antialiasing, no hinting, fractional positions).

#include <zowidgets/host/drawing/TextLayout.h>

#include "host/drawing/DrawingTestSupport.h"
#include "host/drawing/PangoReference.h"

#include <gtest/gtest.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

using Glib::TextLayout;

namespace {

Glib::TextRun dejaVuRun(LightweightString<wchar_t> const& text, unsigned size, double wrapWidth = 0.0) {
  Glib::TextRun run;
  run.text = text;
  run.font = Glib::FontDesc("DejaVu Sans", size, 0);
  run.wrapWidth = wrapWidth;
  return run;
}

// The run drawn straight from its glyphs into `target`.
void drawWithPango(Zo::Image::Surface& target, Glib::TextRun const& run, Colour const& colour, XY<double> topLeft) {
  cairo_surface_t* surface = cairo_image_surface_create_for_data(target.data(), CAIRO_FORMAT_ARGB32, target.width(),
                                                                 target.height(), target.stride());
  cairo_t* context = cairo_create(surface);
  PangoSetUp const pango;
  PangoLayout* layout = pango_layout_new(pango.context());
  PangoFontDescription* font = pango_font_description_from_string("DejaVu Sans");
  pango_font_description_set_absolute_size(font, run.font.size() * PANGO_SCALE);
  pango_layout_set_font_description(layout, font);
  if (run.wrapWidth > 0.0) {
    pango_layout_set_width(layout, static_cast<int>(run.wrapWidth * PANGO_SCALE));
    pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
  }
  LightweightString<char> const utf8 = run.text.toUTF8();
  pango_layout_set_text(layout, utf8.c_str(), static_cast<int>(utf8.size()));
  cairo_set_source_rgba(context, colour.red(), colour.green(), colour.blue(), colour.alpha());
  cairo_move_to(context, topLeft.x, topLeft.y);
  pango_cairo_show_layout(context, layout);
  pango_font_description_free(font);
  g_object_unref(layout);
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

} // namespace

TEST(TextLayoutMask, AKeptRunGivesThePixelsOfItsGlyphs) {
  Glib::TextRun const run = dejaVuRun(L"Setting 42: Wavy glyphs", 13);
  Colour const colour(0.1, 0.2, 0.7);
  for (XY<double> topLeft : {XY<double>(3, 4), XY<double>(3.25, 4.5), XY<double>(7.5, 2.75), XY<double>(3, 4)}) {
    std::ostringstream where;
    where << "at " << topLeft.x << ", " << topLeft.y;
    SCOPED_TRACE(where.str());
    Zo::Image::Surface kept(220, 30);
    Zo::Image::Surface glyphs(220, 30);
    TextLayout::draw(kept, run, colour, topLeft);
    drawWithPango(glyphs, run, colour, topLeft);
    // Where kerned glyphs overlap ("Wa"), a mask sums their coverage a
    // little differently from glyphs laid one over another.
    EXPECT_LE(countDifferentBy(kept, glyphs, 1), 4);
    EXPECT_LE(largestDifference(kept, glyphs), 16);
    EXPECT_GT(countNonTransparent(kept), 100);
  }
}

TEST(TextLayoutMask, AKeptRunTakesEachColourItIsDrawnIn) {
  Glib::TextRun const run = dejaVuRun(L"Colours", 20);
  for (Colour const& colour : {Colour(1.0, 0.0, 0.0), Colour(0.0, 0.0, 1.0), Colour(0.3, 0.6, 0.1, 0.5)}) {
    Zo::Image::Surface kept(120, 30);
    Zo::Image::Surface glyphs(120, 30);
    TextLayout::draw(kept, run, colour, XY<double>(2, 2));
    drawWithPango(glyphs, run, colour, XY<double>(2, 2));
    EXPECT_LE(largestDifference(kept, glyphs), 1);
  }
}

TEST(TextLayoutMask, ARunTooLargeToKeepIsDrawnFromItsGlyphs) {
  std::wstring text;
  for (int word = 0; word < 400; ++word)
    text += L"wrapped ";
  Glib::TextRun const run = dejaVuRun(LightweightString<wchar_t>(text.c_str()), 13, 380.0);
  Zo::Image::Surface kept(400, 700);
  Zo::Image::Surface glyphs(400, 700);
  TextLayout::draw(kept, run, Colour(0.0, 0.0, 0.0), XY<double>(5.5, 3));
  drawWithPango(glyphs, run, Colour(0.0, 0.0, 0.0), XY<double>(5.5, 3));
  EXPECT_EQ(largestDifference(kept, glyphs), 0);
  EXPECT_GT(countNonTransparent(kept), 10000);
}

TEST(TextLayoutMask, BlankTextDrawsNothing) {
  Zo::Image::Surface surface(60, 20);
  TextLayout::draw(surface, dejaVuRun(L"   ", 13), Colour(0.0, 0.0, 0.0), XY<double>(1.5, 1));
  TextLayout::draw(surface, dejaVuRun(L"   ", 13), Colour(0.0, 0.0, 0.0), XY<double>(1.5, 1));
  EXPECT_EQ(countNonTransparent(surface), 0);
}
