#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>

#include <cstddef>
#include <string_view>
#include <vector>

class Palette;
class CanvasRenderer;

// A stretch of text in one style.
struct ZO_API HTMLRun {
  static constexpr unsigned kBold = 1;
  static constexpr unsigned kItalic = 2;
  static constexpr unsigned kUnderline = 4;

  LightweightString<wchar_t> text;
  unsigned style = 0;
  Colour colour;
  // The target of the link the run belongs to; empty outside links.
  LightweightString<wchar_t> link;

  friend bool operator==(HTMLRun const&, HTMLRun const&) = default;
};

// One line of the source: a paragraph or a line ended by <br>. It wraps into
// one or more display lines.
struct ZO_API HTMLParagraph {
  std::vector<HTMLRun> runs;

  friend bool operator==(HTMLParagraph const&, HTMLParagraph const&) = default;
};

// Where one piece of a laid-out paragraph list sits: its run, its text, its
// left edge and display line. x is in pixels from the left of the layout.
struct ZO_API HTMLPlacedText {
  std::size_t paragraph = 0;
  std::size_t run = 0;
  LightweightString<wchar_t> text;
  double x = 0.0;
  double width = 0.0;
  int line = 0;
  bool isSpace = false;
};

// Reads, measures and draws a small subset of HTML (see
// docs/host-widgets-rich-text.md): <p>, <br>, <b>/<strong>, <i>/<em>, <u>,
// <font color>, <span style="color:...">, <a href> and <pre>, with entities.
// Any other tag is shown literally as text; nothing in the input is ever run.
//
// Measurement lays words out greedily with TextLayout in the given font (the
// interface font when it is the default FontDesc), so the same paragraphs,
// width and font always give the same lines.
class ZO_API HTMLRenderer {
public:
  // Flags for convertToHTML.
  static constexpr unsigned kEscapeMarkup = 1;
  static constexpr unsigned kLineBreaksToTags = 2;

  // Plain text as HTML: with kEscapeMarkup, &, <, > and " become entities;
  // with kLineBreaksToTags, each line break (\n, \r\n or \r) becomes <br>.
  static LightweightString<wchar_t> convertToHTML(std::wstring_view text, unsigned flags);
  // True when the text holds at least one tag of the subset.
  static bool isHTML(std::wstring_view text);
  // The paragraphs of the text: at least one, perhaps empty. Text takes the
  // palette's text colour, links its subheading (accent) colour.
  static std::vector<HTMLParagraph> parse(std::wstring_view html, Palette const& palette);
  // The text a reader sees, paragraphs joined by '\n'.
  static LightweightString<wchar_t> visibleText(std::vector<HTMLParagraph> const& paragraphs);

  // Word-wrapped layout at `width` pixels (0 or less: no wrapping). A word
  // wider than the width gets a line of its own and sticks out.
  static std::vector<HTMLPlacedText> layout(std::vector<HTMLParagraph> const& paragraphs, double width,
                                            Glib::FontDesc const& font = {});
  static int calcNumDisplayLines(std::vector<HTMLParagraph> const& paragraphs, double width,
                                 Glib::FontDesc const& font = {});
  // The width of the widest paragraph left on one line.
  static double calcMaxWidth(std::vector<HTMLParagraph> const& paragraphs, Glib::FontDesc const& font = {});

  // Draws the paragraphs wrapped to `area`'s width from its top, one display
  // line every `lineHeight` pixels, and `firstLine` lines scrolled off the
  // top. Lines outside the area are not drawn.
  static void render(CanvasRenderer& renderer, std::vector<HTMLParagraph> const& paragraphs, Zo::Box<int> const& area,
                     int lineHeight, Glib::FontDesc const& font = {}, int firstLine = 0);
  // The link under a point given as (x from the area's left, y down from its
  // top) in a render with the same arguments; empty when there is none.
  static LightweightString<wchar_t> linkAt(std::vector<HTMLParagraph> const& paragraphs, double width, int lineHeight,
                                           double x, double yFromTop, Glib::FontDesc const& font = {},
                                           int firstLine = 0);

  // The font a run is drawn in.
  static Glib::FontDesc fontFor(HTMLRun const& run, Glib::FontDesc const& font);
};
