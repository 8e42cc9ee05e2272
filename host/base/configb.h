#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstddef>
#include <list>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

// Key-value tree of saved state. A node holds value entries, kept in the order
// they were first set, and named child trees, kept in the order they were
// made; entries and children have separate keys. Values are stored as text in
// their DataConvert forms, so a value set as one type reads back as another
// where the forms agree (an int set is a double got). toText() and fromText()
// give a readable text form that round-trips exactly; docs/host-text-forms.md
// describes it.
class ZO_API configb {
public:
  using Child = std::pair<LightweightString<char>, configb>;

  configb() = default;
  configb(configb const&) = default;
  configb(configb&&) noexcept = default;
  // Deep copy; assigning a tree one of its own children is safe.
  configb& operator=(configb const& other);
  configb& operator=(configb&&) noexcept = default;

  // Setting a key that exists replaces its value in place.
  void set(LightweightString<char> const& key, bool value);
  void set(LightweightString<char> const& key, int value);
  void set(LightweightString<char> const& key, unsigned value);
  void set(LightweightString<char> const& key, double value);
  void set(LightweightString<char> const& key, LightweightString<wchar_t> const& value);
  void set(LightweightString<char> const& key, wchar_t const* value);
  void set(LightweightString<char> const& key, char const* utf8);

  // The default is for a missing key; a present entry reads as DataConvert
  // reads its text, malformed text included.
  bool getBool(LightweightString<char> const& key, bool def = false) const;
  int getInt(LightweightString<char> const& key, int def = 0) const;
  unsigned getUnsigned(LightweightString<char> const& key, unsigned def = 0) const;
  double getDouble(LightweightString<char> const& key, double def = 0.0) const;
  LightweightString<wchar_t> getString(LightweightString<char> const& key,
                                       LightweightString<wchar_t> const& def = {}) const;

  // Value entries only; children are reached through findChild.
  bool in(LightweightString<char> const& key) const;
  bool remove(LightweightString<char> const& key);
  std::size_t size() const noexcept { return entries_.size(); }
  std::size_t entryCount() const noexcept { return size(); }
  std::vector<LightweightString<char>> keys() const;

  // Gets or makes the child. References stay valid until that child is
  // removed or this tree is cleared or assigned.
  configb& child(LightweightString<char> const& key);
  configb const* findChild(LightweightString<char> const& key) const;
  configb* findChild(LightweightString<char> const& key);
  bool removeChild(LightweightString<char> const& key);
  std::list<Child> const& children() const noexcept { return children_; }

  void clear();

  LightweightString<char> toText() const;
  // Nullopt for malformed text, including nesting deeper than kMaxTextDepth.
  static std::optional<configb> fromText(std::string_view text);
  static constexpr int kMaxTextDepth = 256;

  // Equal when they hold the same entries and children in the same order.
  friend bool operator==(configb const&, configb const&) = default;

private:
  struct Entry {
    LightweightString<char> key;
    LightweightString<wchar_t> value;
    friend bool operator==(Entry const&, Entry const&) = default;
  };

  void setText(LightweightString<char> const& key, LightweightString<wchar_t> const& value);
  Entry const* findEntry(LightweightString<char> const& key) const;
  void appendText(std::string& out, int depth) const;

  std::vector<Entry> entries_;
  std::list<Child> children_;
};
