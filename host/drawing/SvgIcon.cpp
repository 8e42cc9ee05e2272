#include <zowidgets/host/drawing/SvgIcon.h>

#include <zowidgets/host/drawing/detail/IconTint.h>
#include <zowidgets/host/drawing/detail/SvgDrawing.h>

#include <fstream>
#include <memory>
#include <numbers>

namespace SvgIcon {

namespace {

using namespace SvgDrawing;

// The document's coverage: drawn in its own colours, of which only the
// alpha is kept.
CairoSurface drawCoverage(RsvgHandle* document, int side, double turnDegrees) {
  CairoSurface ink(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, side, side));
  if (cairo_surface_status(ink.get()) != CAIRO_STATUS_SUCCESS)
    return nullptr;
  Context context(cairo_create(ink.get()));
  double const centre = side / 2.0;
  cairo_translate(context.get(), centre, centre);
  cairo_rotate(context.get(), turnDegrees * std::numbers::pi / 180.0);
  cairo_translate(context.get(), -centre, -centre);
  RsvgRectangle const viewport{0.0, 0.0, double(side), double(side)};
  GError* error = nullptr;
  bool const drawn = rsvg_handle_render_document(document, context.get(), &viewport, &error);
  g_clear_error(&error);
  if (!drawn || cairo_status(context.get()) != CAIRO_STATUS_SUCCESS)
    return nullptr;
  cairo_surface_flush(ink.get());
  return ink;
}

} // namespace

Zo::Image::Surface render(std::string_view svg, int side, Colour const& tint, double turnDegrees) {
  if (side < 1 || side > kMaxIconSide || svg.empty())
    return {};
  Handle const document = readDocument(svg);
  if (!document)
    return {};
  CairoSurface const coverage = drawCoverage(document.get(), side, turnDegrees);
  if (!coverage)
    return {};
  Zo::Image::Surface icon(side, side);
  CairoSurface target(cairo_image_surface_create_for_data(icon.data(), CAIRO_FORMAT_ARGB32, side, side, icon.stride()));
  Context context(cairo_create(target.get()));
  Colour const ink = iconTint(tint);
  cairo_set_source_rgba(context.get(), ink.red(), ink.green(), ink.blue(), ink.use() ? ink.alpha() : 0.0);
  cairo_mask_surface(context.get(), coverage.get(), 0.0, 0.0);
  cairo_surface_flush(target.get());
  return icon;
}

Zo::Image::Surface renderFile(std::string const& path, int side, Colour const& tint, double turnDegrees) {
  std::ifstream file(path, std::ios::binary);
  if (!file)
    return {};
  std::string bytes;
  char buffer[16384];
  while (file.read(buffer, sizeof buffer) || file.gcount() > 0) {
    bytes.append(buffer, static_cast<std::size_t>(file.gcount()));
    if (bytes.size() > kMaxFileBytes)
      return {};
  }
  return render(bytes, side, tint, turnDegrees);
}

} // namespace SvgIcon
