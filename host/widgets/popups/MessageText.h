#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>

// The text of a message window laid out: wrapped at words to at most a
// width, with line breaks kept, and the whole pixels it then covers. Message
// windows size themselves round it.
struct ZO_API MessageText {
  // Lays `text` out no wider than `maxWidth` pixels (0: the standard width)
  // in `font` (empty: UifStd::getFont()).
  static MessageText analyse(UIString const& text, int maxWidth = 0, Glib::FontDesc const& font = {});
  // The width messages wrap at unless told otherwise: 18 row heights.
  static int standardWidth();

  // The text drawn from the top-left corner of `area`, wrapped to its width.
  Glib::TextDescription describe(Zo::Box<int> const& area, Colour const& colour) const;

  LightweightString<wchar_t> text;
  Glib::FontDesc font;
  XY<int> size; // the wrapped text's width (its widest line) and height
  int lineCount = 1;
};
