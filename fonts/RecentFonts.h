#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstddef>
#include <vector>

// The families a user chose last, newest first, at most kMaxFonts, kept in
// the preference `key` joined by "|". An empty key keeps nothing: the list
// stays empty and add() does nothing. Names of families no longer installed
// stay in the list until newer choices push them out.
class ZO_API RecentFonts : public std::vector<LightweightString<wchar_t>> {
public:
  static constexpr std::size_t kMaxFonts = 5;
  static constexpr wchar_t kSeparator = L'|';

  // Reads the preference; empty parts are dropped, and parts past
  // kMaxFonts are ignored.
  explicit RecentFonts(LightweightString<char> const& key = {});

  bool contains(LightweightString<wchar_t> const& name) const;
  // Puts `name` first, dropping an older entry of the same name and any
  // past kMaxFonts, and writes the preference. An empty name, or one holding
  // the separator (it would not read back), changes nothing.
  void add(LightweightString<wchar_t> const& name);
  void persist() const;

private:
  LightweightString<char> key_;
};
