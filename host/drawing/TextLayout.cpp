#include <zowidgets/host/drawing/TextLayout.h>

#include <zowidgets/host/base/detail/LruCache.h>
#include <zowidgets/host/drawing/detail/CairoMask.h>
#include <zowidgets/host/drawing/detail/CoverageMask.h>
#include <zowidgets/host/drawing/detail/GlyphMasks.h>
#include <zowidgets/host/drawing/detail/PixelCompositor.h>
#include <zowidgets/host/drawing/detail/ShapedLine.h>

#include <pango/pangocairo.h>

#include <cmath>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace Glib {

namespace {

struct RunHash {
  std::size_t operator()(TextRun const& run) const noexcept {
    std::size_t seed = std::hash<LightweightString<wchar_t>>()(run.text);
    auto combine = [&seed](std::size_t value) { seed ^= value + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2); };
    combine(std::hash<LightweightString<char>>()(run.font.family()));
    combine(run.font.size());
    combine(run.font.style());
    combine(std::hash<double>()(run.scale));
    combine(std::hash<double>()(run.wrapWidth));
    combine(std::hash<double>()(run.ellipsisWidth));
    combine(static_cast<std::size_t>(run.alignment));
    return seed;
  }
};

// The coverage of a whole run, drawn once and laid in any colour at each
// later paint: cheaper than compositing glyphs out of cairo's glyph cache one
// by one. Glyphs land on whole pixels, so a mask fits every position with
// the same fraction of a pixel.
struct RunMask {
  std::shared_ptr<CoverageMask const> coverage; // none for a run too large to keep, or in colour
  XY<double> fraction{-1.0, -1.0};              // of the layout's top-left corner
  XY<int> offset;                               // of the mask's top-left from that corner's whole pixel
};

struct Layout {
  Layout() = default;
  Layout(Layout&& other) noexcept
      : layout(std::exchange(other.layout, nullptr)), line(std::move(other.line)), metrics(other.metrics),
        colourGlyphs(other.colourGlyphs), mask(std::move(other.mask)) {}
  Layout& operator=(Layout&&) = delete;
  ~Layout() {
    if (layout)
      g_object_unref(layout);
  }

  // A full layout, or for a short line of simple text its glyphs alone.
  PangoLayout* layout = nullptr;
  detail::ShapedLine line;
  TextMetrics metrics;
  // Some glyph brings its own colours (an emoji): the run is drawn straight
  // through cairo, since a coverage mask would keep only its shape.
  bool colourGlyphs = false;
  RunMask mask;
};

// Runs whose ink covers more pixels than this are drawn straight from the
// glyphs rather than kept as masks (a wrapped page of text).
constexpr int kLargestMaskPixels = 256 * 256;

// The whole pixel at or above-left of a point, and the point's fraction past it.
std::pair<XY<int>, XY<double>> splitPixel(XY<double> point) {
  XY<int> const whole(static_cast<int>(std::floor(point.x)), static_cast<int>(std::floor(point.y)));
  return {whole, XY<double>(point.x - whole.x, point.y - whole.y)};
}

// Draws the run with its top-left corner at the current point.
void show(cairo_t* context, Layout const& layout) {
  if (layout.line)
    layout.line.show(context);
  else
    pango_cairo_show_layout(context, layout.layout);
}

// The run's ink in whole pixels from its top-left corner.
PangoRectangle inkPixels(Layout const& layout) {
  if (layout.line)
    return layout.line.inkPixels();
  PangoRectangle ink;
  pango_layout_get_pixel_extents(layout.layout, &ink, nullptr);
  return ink;
}

// Makes a mask of the run drawn with its top-left corner `fraction` past a
// whole pixel; none when the run is too large to keep.
RunMask makeMask(Layout const& layout, XY<double> fraction, detail::GlyphMasks& glyphs) {
  RunMask mask;
  PangoRectangle const ink = inkPixels(layout);
  // A pixel of margin on each side for antialiasing past the rounded extents.
  XY<int> const offset(static_cast<int>(std::floor(fraction.x)) + ink.x - 1,
                       static_cast<int>(std::floor(fraction.y)) + ink.y - 1);
  int const width = ink.width + 3;
  int const height = ink.height + 3;
  if (ink.width <= 0 || ink.height <= 0 || width * height > kLargestMaskPixels)
    return mask;
  auto coverage = std::make_shared<CoverageMask>(width, height);
  XY<double> const topLeft(fraction.x - offset.x, fraction.y - offset.y);
  if (!layout.line || !layout.line.compose(glyphs, topLeft, *coverage))
    drawIntoMask(*coverage, [&](cairo_t* context) {
      cairo_move_to(context, topLeft.x, topLeft.y);
      show(context, layout);
    });
  mask.coverage = std::move(coverage);
  mask.offset = offset;
  return mask;
}

// Whether any run of the layout is set in a font with colour glyphs (font
// fallback picks the emoji font for the emoji of any text).
bool hasColourGlyphs(PangoLayout* layout) {
  PangoLayoutIter* iter = pango_layout_get_iter(layout);
  bool found = false;
  do {
    PangoLayoutRun const* run = pango_layout_iter_get_run_readonly(iter);
    found = run && detail::hasColourGlyphs(run->item->analysis.font);
  } while (!found && pango_layout_iter_next_run(iter));
  pango_layout_iter_free(iter);
  return found;
}

PangoFontDescription* describe(FontDesc const& font, double scale) {
  PangoFontDescription* description = pango_font_description_new();
  pango_font_description_set_family(description, font.family().c_str());
  pango_font_description_set_absolute_size(description, font.size() * scale * PANGO_SCALE);
  pango_font_description_set_weight(description, font.bold() ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(description, font.italic() ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  return description;
}

PangoAlignment toPango(eTextAlignment alignment) {
  switch (alignment) {
  case eTextAlignment::Centre:
    return PANGO_ALIGN_CENTER;
  case eTextAlignment::Right:
    return PANGO_ALIGN_RIGHT;
  case eTextAlignment::Left:
    break;
  }
  return PANGO_ALIGN_LEFT;
}

// The pango state and the cache. It is never destroyed: text may still be
// measured from static destructors, after pango's own state would be gone.
class Engine {
public:
  Engine() : fontMap_(pango_cairo_font_map_new()), context_(pango_font_map_create_context(fontMap_)) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context_, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context_, FALSE);
  }

  static Engine& instance() {
    static Engine& engine = *new Engine;
    return engine;
  }

  std::mutex& mutex() { return mutex_; }

  // Call with the mutex held. The layout stays valid until the next call.
  Layout& layout(TextRun const& given) {
    TextRun run = given;
    run.font = TextLayout::resolve(run.font);
    if (Layout* found = layouts_.find(run))
      return *found;
    ++layoutsMade_;
    return layouts_.insert(run, make(run));
  }

  // The run's mask for a top-left corner `fraction` past a whole pixel.
  // Call with the mutex held.
  RunMask maskFor(TextRun const& run, XY<double> fraction) {
    Layout& entry = layout(run);
    if (entry.mask.fraction != fraction) {
      entry.mask = entry.colourGlyphs ? RunMask() : makeMask(entry, fraction, glyphMasks_);
      entry.mask.fraction = fraction;
    }
    return entry.mask;
  }

  // Asked for at every paint of most widgets, and the same few fonts each
  // time: kept once asked.
  FontMetrics fontMetrics(FontDesc const& font, double scale) {
    for (auto const& [key, metrics] : metrics_)
      if (key.second == scale && key.first == font)
        return metrics;
    FontMetrics const result = measureFont(font, scale);
    metrics_.emplace_back(std::make_pair(font, scale), result);
    return result;
  }

  FontMetrics measureFont(FontDesc const& font, double scale) {
    PangoFontDescription* description = describe(TextLayout::resolve(font), scale);
    PangoFontMetrics* metrics = pango_context_get_metrics(context_, description, nullptr);
    FontMetrics result;
    result.ascent = double(pango_font_metrics_get_ascent(metrics)) / PANGO_SCALE;
    result.descent = double(pango_font_metrics_get_descent(metrics)) / PANGO_SCALE;
    result.lineHeight = double(pango_font_metrics_get_height(metrics)) / PANGO_SCALE;
    pango_font_metrics_unref(metrics);
    pango_font_description_free(description);
    return result;
  }

  std::size_t size() const { return layouts_.size(); }
  std::size_t layoutsMade() const { return layoutsMade_; }

  void clear() {
    layouts_.clear();
    metrics_.clear();
    glyphMasks_.clear(); // keyed by the fonts released below
    fonts_.clear();
  }

private:
  // The font a layout sets characters in when the font has them; kept, as
  // the few fonts of a program are asked for at every new value.
  detail::ShapingFont& primaryFont(FontDesc const& font, double scale) {
    for (auto& [key, loaded] : fonts_)
      if (key.second == scale && key.first == font)
        return loaded;
    PangoFontDescription* description = describe(font, scale);
    PangoFont* loaded = pango_context_load_font(context_, description);
    pango_font_description_free(description);
    fonts_.emplace_back(std::make_pair(font, scale), detail::ShapingFont(loaded));
    if (loaded)
      g_object_unref(loaded); // the shaping font holds its own reference
    return fonts_.back().second;
  }

  Layout make(TextRun const& run) {
    Layout result;
    bool const cut = run.wrapWidth <= 0.0 && run.ellipsisWidth > 0.0;
    if (run.wrapWidth <= 0.0 && !cut) {
      result.line = detail::ShapedLine::shape(context_, primaryFont(run.font, run.scale), run.text);
      if (result.line) {
        PangoRectangle const logical = result.line.logical();
        result.metrics.left = double(logical.x) / PANGO_SCALE;
        result.metrics.width = double(logical.width) / PANGO_SCALE;
        result.metrics.height = double(logical.height) / PANGO_SCALE;
        result.metrics.baseline = double(result.line.baseline()) / PANGO_SCALE;
        result.metrics.lineCount = 1;
        return result;
      }
    }
    result.layout = pango_layout_new(context_);
    PangoFontDescription* description = describe(run.font, run.scale);
    pango_layout_set_font_description(result.layout, description);
    pango_font_description_free(description);
    if (run.wrapWidth > 0.0) {
      pango_layout_set_width(result.layout, static_cast<int>(run.wrapWidth * PANGO_SCALE));
      pango_layout_set_wrap(result.layout, PANGO_WRAP_WORD_CHAR);
      pango_layout_set_alignment(result.layout, toPango(run.alignment));
    } else if (cut) {
      pango_layout_set_width(result.layout, static_cast<int>(run.ellipsisWidth * PANGO_SCALE));
      pango_layout_set_ellipsize(result.layout, PANGO_ELLIPSIZE_END);
    }
    LightweightString<char> const utf8 = run.text.toUTF8();
    pango_layout_set_text(result.layout, utf8.c_str(), static_cast<int>(utf8.size()));

    PangoRectangle logical;
    pango_layout_get_extents(result.layout, nullptr, &logical);
    result.metrics.left = double(logical.x) / PANGO_SCALE;
    result.metrics.width = double(logical.width) / PANGO_SCALE;
    result.metrics.height = double(logical.height) / PANGO_SCALE;
    result.metrics.baseline = double(pango_layout_get_baseline(result.layout)) / PANGO_SCALE;
    result.metrics.lineCount = pango_layout_get_line_count(result.layout);
    result.colourGlyphs = hasColourGlyphs(result.layout);
    return result;
  }

  std::mutex mutex_;
  PangoFontMap* fontMap_;
  PangoContext* context_;
  LruCache<TextRun, Layout, RunHash> layouts_{TextLayout::kCacheCapacity};
  std::size_t layoutsMade_ = 0;
  std::vector<std::pair<std::pair<FontDesc, double>, FontMetrics>> metrics_;
  std::vector<std::pair<std::pair<FontDesc, double>, detail::ShapingFont>> fonts_;
  detail::GlyphMasks glyphMasks_;
};

} // namespace

TextMetrics TextLayout::measure(TextRun const& run) {
  Engine& engine = Engine::instance();
  std::lock_guard lock(engine.mutex());
  return engine.layout(run).metrics;
}

TextMetrics TextLayout::measure(LightweightString<wchar_t> const& text, FontDesc const& font, double scale) {
  TextRun run;
  run.text = text;
  run.font = font;
  run.scale = scale;
  return measure(run);
}

int TextLayout::countLines(LightweightString<wchar_t> const& text, FontDesc const& font, double width, double scale) {
  TextRun run;
  run.text = text;
  run.font = font;
  run.scale = scale;
  run.wrapWidth = width;
  return measure(run).lineCount;
}

FontMetrics TextLayout::fontMetrics(FontDesc const& font, double scale) {
  Engine& engine = Engine::instance();
  std::lock_guard lock(engine.mutex());
  return engine.fontMetrics(font, scale);
}

void TextLayout::draw(Zo::Image::Surface target, TextRun const& run, Colour const& colour, XY<double> topLeft,
                      std::vector<TopDownRect> const& clip) {
  PixelCompositor into(target);
  draw(into, run, colour, topLeft,
       clip.empty() ? std::vector<TopDownRect>{TopDownRect(0, 0, target.width(), target.height())} : clip);
}

void TextLayout::draw(PixelCompositor& into, TextRun const& run, Colour const& colour, XY<double> topLeft,
                      std::vector<TopDownRect> const& clip) {
  if (into.target().empty() || !colour.use() || run.text.empty())
    return;
  // Text placed this far off cannot reach any surface, and its whole pixel
  // would not fit an int.
  constexpr double kFarOff = 1 << 23;
  if (!(std::abs(topLeft.x) < kFarOff && std::abs(topLeft.y) < kFarOff))
    return;
  auto const [pixel, fraction] = splitPixel(topLeft);
  Engine& engine = Engine::instance();
  std::unique_lock lock(engine.mutex());
  RunMask const mask = engine.maskFor(run, fraction);
  if (mask.coverage) {
    lock.unlock();
    into.composite(*mask.coverage, pixel + mask.offset, colour, clip);
    return;
  }
  Zo::Image::Surface target = into.target();
  cairo_surface_t* surface = cairo_image_surface_create_for_data(target.data(), CAIRO_FORMAT_ARGB32, target.width(),
                                                                 target.height(), target.stride());
  cairo_t* context = cairo_create(surface);
  for (TopDownRect const& rect : clip)
    cairo_rectangle(context, rect.x, rect.y, rect.width, rect.height);
  cairo_clip(context);
  cairo_set_source_rgba(context, colour.red(), colour.green(), colour.blue(), colour.alpha());
  cairo_move_to(context, topLeft.x, topLeft.y);
  show(context, engine.layout(run));
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

TextLayout::Placement TextLayout::place(TextDescription const& description) {
  Placement placement;
  placement.run.text = description.text;
  placement.run.font = description.font;
  placement.run.scale = description.scale;
  Zo::Box<double> const& box = description.box;
  bool const inBox = !box.empty();
  if (inBox && description.wordWrap) {
    placement.run.wrapWidth = box.width();
    placement.run.alignment = description.alignment;
  }
  placement.metrics = measure(placement.run);
  if (inBox && description.ellipsis && !description.wordWrap && placement.metrics.width > box.width()) {
    placement.run.ellipsisWidth = std::max(1.0, box.width());
    placement.metrics = measure(placement.run);
  }
  TextMetrics const& metrics = placement.metrics;
  if (!inBox) {
    placement.topLeft = XY<double>(description.position.x, description.position.y + metrics.baseline);
    return placement;
  }
  double left = box.x0;
  if (!description.wordWrap) {
    double const spare = box.width() - metrics.width;
    if (description.alignment == eTextAlignment::Centre)
      left += spare / 2.0;
    else if (description.alignment == eTextAlignment::Right)
      left += spare;
  }
  double top = box.y1;
  if (description.verticalAlignment == eTextVerticalAlignment::Centre)
    top = box.y0 + (box.height() + metrics.height) / 2.0;
  else if (description.verticalAlignment == eTextVerticalAlignment::Bottom)
    top = box.y0 + metrics.height;
  // A baseline on a whole pixel keeps the text as crisp as it can be.
  double const baseline = std::round(top - metrics.baseline);
  placement.topLeft = XY<double>(std::round(left), baseline + metrics.baseline);
  return placement;
}

FontDesc TextLayout::resolve(FontDesc const& font) {
  FontDesc resolved = font;
  if (resolved.family().empty())
    resolved.setFamily(getDefaultFontName(0));
  if (resolved.size() == 0)
    resolved.setSize(static_cast<unsigned>(getDefaultFontSize()));
  return resolved;
}

std::size_t TextLayout::cachedRuns() {
  Engine& engine = Engine::instance();
  std::lock_guard lock(engine.mutex());
  return engine.size();
}

std::size_t TextLayout::layoutsMade() {
  Engine& engine = Engine::instance();
  std::lock_guard lock(engine.mutex());
  return engine.layoutsMade();
}

void TextLayout::clearCache() {
  Engine& engine = Engine::instance();
  std::lock_guard lock(engine.mutex());
  engine.clear();
}

} // namespace Glib
