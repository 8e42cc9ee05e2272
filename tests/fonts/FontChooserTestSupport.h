#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/fonts/FontChooserPanel.h>
#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <ostream>
#include <string>

// What the font chooser's tests do with a panel through real input.
namespace FontChooserInput {

// Replaces the filter's text by typing, as a user would.
inline void typeFilter(FontChooserPanel& panel, std::string const& text) {
  HeadlessInput::clickOn(*panel.getFilter()->getTextBox());
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::typeText(text);
}

// Clicks the row of a family in the panel's list; false when it is not shown.
inline bool clickFamily(FontChooserPanel& panel, LightweightString<char> const& family,
                        eFontCategory category = kOrdinaryFont) {
  TreeView& tree = *panel.getTree();
  int const row = tree.rowOf(FontItem::makeID(family, category));
  if (row < 0)
    return false;
  tree.scrollToShow(row);
  Glob* rowGlob = tree.getRowGlob(row);
  if (!rowGlob)
    return false;
  HeadlessInput::clickOn(*rowGlob);
  return true;
}

} // namespace FontChooserInput

// A family every test machine has (scripts/packages/fonts.txt), and some
// beside it.
inline constexpr char const* kLiberationSans = "Liberation Sans";
inline constexpr char const* kLiberationMono = "Liberation Mono";
inline constexpr char const* kNotoMono = "Noto Mono";
inline constexpr char const* kRecentKey = "Test : recent fonts";

// Colours of eight bits a channel, which the text form keeps exactly.
inline FontDefinition fontNamed(char const* family, float size = 12.0f, unsigned char style = 0) {
  return FontDefinition(LightweightString<wchar_t>::fromUTF8(family), size, style, NormalisedRGB(1, 1, 204 / 255.0f),
                        NormalisedRGB(51 / 255.0f, 102 / 255.0f, 153 / 255.0f));
}

// Readable failures.
inline void PrintTo(FontDefinition const& font, std::ostream* out) {
  *out << '"' << font.name.toUTF8().c_str() << "\" " << font.size << " style " << int(font.style) << " fg "
       << font.fgColour.r << ' ' << font.fgColour.g << ' ' << font.fgColour.b << " bg " << font.bgColour.r << ' '
       << font.bgColour.g << ' ' << font.bgColour.b;
}
