#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/FontDefinition.h>
#include <zowidgets/host/drawing/Fonts.h>

// Which part of a font chooser's list a row belongs to.
enum eFontCategory : int {
  kOrdinaryFont = 0, // the installed families, in order
  kRecentFont = 1,   // the user's last choices, on top
};

// One row of a font chooser: a family, its part of the list, and the font
// the row is drawn in (the family itself, at the interface size; the
// interface font for a family that cannot spell its name in Latin letters,
// Glib::drawsLatinText). Its id is
// a small JSON text of family and category, so the same family's recent row
// and ordinary row are told apart.
class ZO_API FontItem {
public:
  // `name` in UTF-8.
  FontItem(LightweightString<char> const& name, eFontCategory category);

  LightweightString<char> const& name() const noexcept { return name_; }
  // The name as wide text, made once: a filter matches against it.
  LightweightString<wchar_t> const& wideName() const noexcept { return wideName_; }
  eFontCategory category() const noexcept { return category_; }
  Glib::FontDesc const& font() const noexcept { return font_; }
  UIString getName() const { return UIString(wideName_); }
  // Made with the item: the chooser keeps the installed families' items
  // from one opening to the next, and its rows ask for their ids at each.
  LightweightString<wchar_t> const& getID() const noexcept { return id_; }

  static LightweightString<wchar_t> makeID(LightweightString<char> const& name, eFontCategory category);
  static LightweightString<wchar_t> makeID(FontDefinition const& font, eFontCategory category);
  // An item from an id; a text that is not an id gives an empty name.
  static FontItem fromID(LightweightString<wchar_t> const& id);

private:
  LightweightString<char> name_;
  LightweightString<wchar_t> wideName_;
  eFontCategory category_;
  Glib::FontDesc font_;
  LightweightString<wchar_t> id_;
};
