#pragma once

// The reference the text tests hold the text engine to: pango itself, set up
// as the engine says it is.

#include <pango/pangocairo.h>

// A pango context set up as the text engine's is: grey antialiasing, no
// hinting, fractional glyph positions.
class PangoSetUp {
public:
  PangoSetUp() : fontMap_(pango_cairo_font_map_new()), context_(pango_font_map_create_context(fontMap_)) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context_, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context_, FALSE);
  }
  ~PangoSetUp() {
    g_object_unref(context_);
    g_object_unref(fontMap_);
  }
  PangoSetUp(PangoSetUp const&) = delete;
  PangoSetUp& operator=(PangoSetUp const&) = delete;

  PangoContext* context() const { return context_; }

private:
  PangoFontMap* fontMap_;
  PangoContext* context_;
};
