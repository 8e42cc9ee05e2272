#include <zowidgets/host/widgets/popups/MessageText.h>

#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>

int MessageText::standardWidth() { return 18 * UifStd::getRowHeight(); }

MessageText MessageText::analyse(UIString const& text, int maxWidth, Glib::FontDesc const& font) {
  MessageText result;
  result.text = text.getString();
  result.font = font.family().empty() && font.size() == 0 ? UifStd::getFont() : font;
  Glib::TextRun run;
  run.text = result.text;
  run.font = result.font;
  run.wrapWidth = maxWidth > 0 ? maxWidth : standardWidth();
  Glib::TextMetrics const metrics = Glib::TextLayout::measure(run);
  result.size = XY<int>(static_cast<int>(std::ceil(metrics.width)), static_cast<int>(std::ceil(metrics.height)));
  result.lineCount = metrics.lineCount;
  return result;
}

Glib::TextDescription MessageText::describe(Zo::Box<int> const& area, Colour const& colour) const {
  Glib::TextDescription description(text, Glib::toDoubleBox(area), font, colour);
  description.wordWrap = true;
  description.verticalAlignment = Glib::eTextVerticalAlignment::Top;
  return description;
}
