#pragma once

#include <zowidgets/host/base/UIString.h>

#include <vector>

// The emoji a picker offers: every fully-qualified emoji of Unicode's emoji
// test data, in Unicode's groups and order, with their names. The table is
// generated from that data when the library is built, so it holds flags,
// keycaps, sequences joined with U+200D and skin-tone variants as Unicode
// lists them. Safe from any thread.
namespace Emoji {

// Unicode's emoji groups that hold emoji. Its "Component" group (bare skin
// tones and hair styles) holds none and is not a category.
enum eCategory : int {
  kSmileysAndEmotion,
  kPeopleAndBody,
  kAnimalsAndNature,
  kFoodAndDrink,
  kTravelAndPlaces,
  kActivities,
  kObjects,
  kSymbols,
  kFlags,
};

struct Character {
  // The whole sequence: one code point, or several for a flag, a keycap or
  // a joined sequence.
  LightweightString<wchar_t> text;
  // Unicode's name, in UTF-8 ("grinning face", "flag: France"). Points into
  // the table, so it stays valid for the life of the process.
  char const* name = "";
  // The sequence's first code point.
  unsigned int codePoint = 0;

  ZO_API friend bool operator==(Character const& a, Character const& b) noexcept;
};

// The categories in Unicode's group order: smileys first, flags last.
ZO_API std::vector<eCategory> getCategories();
// A category's emoji in Unicode's order; none for a value that is not a
// category.
ZO_API std::vector<Character> getEmojis(eCategory category);
// The code point that stands for a category: that of its first emoji; 0 for
// a value that is not a category.
ZO_API unsigned int getRepresentative(eCategory category);
// One code point as text (one wchar_t, which holds 32 bits here). A value
// that is not a Unicode scalar value (a surrogate, or above U+10FFFF) gives
// U+FFFD, as LightweightString's conversions do; 0 gives empty text.
ZO_API LightweightString<wchar_t> asWString(unsigned int codePoint);
// The category's English name as Unicode gives it ("Smileys & Emotion"), as
// literal text; empty for a value that is not a category.
ZO_API UIString getDisplayString(eCategory category);

} // namespace Emoji
