#include <zowidgets/host/widgets/lists/TableColumnDescription.h>

#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>

int TableColumnDescription::textMargin() { return UifStd::getWidgetGap(); }

int TableColumnDescription::calcSizeFor(LightweightString<wchar_t> const& text, Glib::FontDesc const& font) {
  Glib::FontDesc const& used = font.family().empty() && font.size() == 0 ? UifStd::getFont() : font;
  double const advance = Glib::TextDescription::calcBounds(text, used).width();
  return static_cast<int>(std::ceil(advance)) + 2 * textMargin();
}

int TableColumnDescription::calcMinWidth() const {
  if (minWidth_ > 0)
    return minWidth_;
  return title_.getString().empty() ? 2 * textMargin() : calcSizeFor(title_.getString());
}
