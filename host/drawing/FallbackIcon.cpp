#include <zowidgets/host/drawing/FallbackIcon.h>

#include <zowidgets/host/drawing/detail/IconTint.h>

#include <cairo.h>

#include <numbers>

namespace {

// Drawn on the 16-unit grid of the theme's symbolic icons, so that at 16
// pixels (and whole multiples) the one-unit lines fall on whole pixels.
constexpr double kGrid = 16.0;
constexpr int kMaxSide = 1024;

void drawQuestionInFrame(cairo_t* context) {
  double const pi = std::numbers::pi;
  cairo_set_line_width(context, 1.0);
  cairo_rectangle(context, 1.5, 1.5, 13.0, 13.0);
  cairo_stroke(context);
  // The hook: from the left, over the top, round to the lower right, then
  // in to a stem two units wide on the middle column pair; a square dot
  // under it.
  cairo_set_line_width(context, 2.0);
  cairo_arc(context, 8.0, 6.0, 2.5, pi, 2.0 * pi + pi / 4.0);
  cairo_line_to(context, 8.0, 9.0);
  cairo_line_to(context, 8.0, 10.0);
  cairo_stroke(context);
  cairo_rectangle(context, 7.0, 11.0, 2.0, 2.0);
  cairo_fill(context);
}

} // namespace

Zo::Image::Surface drawFallbackIcon(int side, Colour const& tint) {
  if (side < 1 || side > kMaxSide)
    return {};
  Zo::Image::Surface icon(side, side);
  Colour const ink = iconTint(tint);
  if (!ink.use())
    return icon;
  cairo_surface_t* target =
      cairo_image_surface_create_for_data(icon.data(), CAIRO_FORMAT_ARGB32, side, side, icon.stride());
  cairo_t* context = cairo_create(target);
  cairo_scale(context, side / kGrid, side / kGrid);
  cairo_set_source_rgba(context, ink.red(), ink.green(), ink.blue(), ink.alpha());
  drawQuestionInFrame(context);
  cairo_destroy(context);
  cairo_surface_flush(target);
  cairo_surface_destroy(target);
  return icon;
}
