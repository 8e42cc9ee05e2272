#pragma once

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <memory>
#include <string_view>

// What an SVG icon and an SVG picture are drawn with: librsvg's document and
// cairo's surface and context, each let go when its owner goes.
namespace SvgDrawing {

struct HandleRelease {
  void operator()(RsvgHandle* handle) const noexcept { g_object_unref(handle); }
};
struct SurfaceRelease {
  void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
};
struct ContextRelease {
  void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
};
using Handle = std::unique_ptr<RsvgHandle, HandleRelease>;
using CairoSurface = std::unique_ptr<cairo_surface_t, SurfaceRelease>;
using Context = std::unique_ptr<cairo_t, ContextRelease>;

// The document the bytes hold; null when librsvg cannot read them.
inline Handle readDocument(std::string_view svg) {
  GError* error = nullptr;
  RsvgHandle* handle =
      rsvg_handle_new_from_data(reinterpret_cast<guint8 const*>(svg.data()), static_cast<gsize>(svg.size()), &error);
  g_clear_error(&error);
  return Handle(handle);
}

} // namespace SvgDrawing
