#pragma once

#include <zowidgets/host/drawing/detail/CoverageMask.h>

#include <cairo.h>

// Runs `draw` with a cairo context over the mask's bytes (an A8 surface,
// rows running down), and hands the bytes back finished.
template <class Draw> void drawIntoMask(CoverageMask& mask, Draw draw) {
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(mask.data(), CAIRO_FORMAT_A8, mask.width(), mask.height(), mask.stride());
  cairo_t* context = cairo_create(surface);
  draw(context);
  cairo_destroy(context);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
}
