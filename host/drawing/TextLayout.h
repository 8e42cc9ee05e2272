#pragma once

#include <zowidgets/host/drawing/GraphicPrimitives.h>

#include <cstddef>
#include <vector>

class PixelCompositor;

namespace Glib {

// One piece of text to lay out, and the key of the layout cache.
struct ZO_API TextRun {
  LightweightString<wchar_t> text;
  // An empty family or a size of 0 stands for the default (UifStd).
  FontDesc font;
  // Pixels per font-size unit: a size-13 font at scale 2 is 26 pixels.
  double scale = 1.0;
  // Lines break at words to fit this width in pixels; 0 keeps each paragraph
  // on one line.
  double wrapWidth = 0.0;
  // A one-line text wider than this is cut at its end with an ellipsis to
  // fit; 0 never cuts. Ignored when the text wraps.
  double ellipsisWidth = 0.0;
  // How wrapped lines sit within wrapWidth.
  eTextAlignment alignment = eTextAlignment::Left;

  friend bool operator==(TextRun const&, TextRun const&) = default;
};

// Sizes of laid-out text, in pixels.
struct TextMetrics {
  double left = 0.0;     // from the layout's left edge to the text's (wrapped, aligned text)
  double width = 0.0;    // the widest line's advance width
  double height = 0.0;   // all lines, with the font's line spacing
  double baseline = 0.0; // from the top of the text to the first baseline
  int lineCount = 0;     // at least 1, even for empty text
};

struct FontMetrics {
  double ascent = 0.0;
  double descent = 0.0;
  double lineHeight = 0.0;
};

// Text layout, measurement and drawing through pango and cairo, with fonts
// from fontconfig. Glyphs are antialiased in grey with hinting off and
// fractional positions, so sizes scale smoothly and the same fonts give the
// same pixels on every machine. Font sizes are pixels (a FontDesc size of 13
// is a 13-pixel em at scale 1). Characters the font lacks come from another
// installed font that has them, as fontconfig chooses; emoji thus come from
// the colour emoji font and keep their own colours, whatever text colour is
// asked for (the rest of the run takes that colour).
//
// Laid-out text is kept in a least-recently-used cache of kCacheCapacity
// runs, so measuring and then drawing the same text lays it out once. Safe to
// call from any thread; calls are serialised.
class ZO_API TextLayout {
public:
  static constexpr std::size_t kCacheCapacity = 512;

  static TextMetrics measure(TextRun const& run);
  static TextMetrics measure(LightweightString<wchar_t> const& text, FontDesc const& font, double scale = 1.0);
  // How many lines the text takes when wrapped to `width` pixels.
  static int countLines(LightweightString<wchar_t> const& text, FontDesc const& font, double width, double scale = 1.0);
  static FontMetrics fontMetrics(FontDesc const& font, double scale = 1.0);

  // Draws the run in `colour` into the pixels `target` shares, with the
  // top-left corner of its layout at `topLeft` in the surface's own pixels
  // (x to the right, y down from the top row), limited to the union of `clip`
  // (the whole surface when `clip` is empty).
  static void draw(Zo::Image::Surface target, TextRun const& run, Colour const& colour, XY<double> topLeft,
                   std::vector<TopDownRect> const& clip = {});
  // The same through a compositor on the target, limited to the union of
  // `clip` (rectangles that do not overlap).
  static void draw(PixelCompositor& into, TextRun const& run, Colour const& colour, XY<double> topLeft,
                   std::vector<TopDownRect> const& clip);

  // Where a TextDescription's text goes: its run, its metrics, and the
  // top-left corner of its layout in the description's bottom-up
  // coordinates. Text placed in a box lands on whole pixels.
  struct Placement {
    TextRun run;
    TextMetrics metrics;
    XY<double> topLeft;
  };
  static Placement place(TextDescription const& description);

  // The font with its defaults filled in from UifStd.
  static FontDesc resolve(FontDesc const& font);

  static std::size_t cachedRuns();
  // Layouts made since the process started (cache misses).
  static std::size_t layoutsMade();
  static void clearCache();
};

} // namespace Glib
