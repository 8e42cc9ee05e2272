#pragma once

#include <zowidgets/host/base/Ptr.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// Shared, reference-counted string of char or 32-bit wchar_t. Copies share
// the text; a change to a shared string copies it first, so a copy never sees
// another's edits. A null handle reads as an empty string everywhere.
template <class T> class ZO_API LightweightString {
public:
  using value_type = T;
  using size_type = std::size_t;
  using view_type = std::basic_string_view<T>;
  static constexpr size_type npos = view_type::npos;

  LightweightString() noexcept = default;
  LightweightString(T const* text);
  LightweightString(T const* text, size_type length);
  LightweightString(view_type text);
  LightweightString(std::basic_string<T> const& text);
  LightweightString(size_type count, T fill);

  bool isNull() const noexcept { return !impl_; }
  bool empty() const noexcept { return size() == 0; }
  size_type size() const noexcept { return impl_ ? impl_->text.size() : 0; }
  size_type length() const noexcept { return size(); }
  size_type capacity() const noexcept { return impl_ ? impl_->text.capacity() : 0; }
  T const* c_str() const noexcept;
  T const* data() const noexcept { return c_str(); }
  view_type view() const noexcept { return impl_ ? view_type(impl_->text) : view_type(); }
  std::basic_string<T> str() const { return std::basic_string<T>(view()); }
  T operator[](size_type index) const noexcept { return view()[index]; }
  // How many handles share this text (0 for a null string).
  int shareCount() const noexcept { return impl_.useCount(); }

  // Negative, zero or positive as in std::basic_string::compare; null and
  // empty compare equal.
  int compare(LightweightString const& other) const noexcept { return compare(other.view()); }
  int compare(view_type other) const noexcept;

  // Makes the string unshared with room for at least `capacity` characters,
  // keeping its text.
  LightweightString& resizeFor(size_type capacity);
  LightweightString& resize(size_type length, T fill = T());
  LightweightString& append(view_type text);
  LightweightString& append(T c) { return append(view_type(&c, 1)); }
  LightweightString& operator+=(view_type text) { return append(text); }
  LightweightString& operator+=(LightweightString const& text) { return append(text.view()); }
  LightweightString& operator+=(T const* text) { return append(view_type(text)); }
  LightweightString& operator+=(T c) { return append(c); }
  void clear();

  // Replaces every occurrence of `placeholder` with `replacement`; an empty
  // placeholder changes nothing.
  LightweightString& substitute(view_type placeholder, view_type replacement);

  size_type find(view_type needle, size_type from = 0) const noexcept { return view().find(needle, from); }
  size_type find(T c, size_type from = 0) const noexcept { return view().find(c, from); }
  LightweightString substr(size_type from, size_type count = npos) const;
  bool startsWith(view_type prefix) const noexcept { return view().starts_with(prefix); }
  bool endsWith(view_type suffix) const noexcept { return view().ends_with(suffix); }

  // UTF-8 text of this string. Code points that are not Unicode scalar values
  // become U+FFFD.
  LightweightString<char> toUTF8() const;
  // Decodes UTF-8; each malformed sequence becomes one U+FFFD.
  static LightweightString fromUTF8(std::string_view utf8);

  friend bool operator==(LightweightString const& a, LightweightString const& b) noexcept {
    return a.view() == b.view();
  }
  friend bool operator==(LightweightString const& a, T const* b) noexcept {
    return a.view() == (b ? view_type(b) : view_type());
  }
  friend std::strong_ordering operator<=>(LightweightString const& a, LightweightString const& b) noexcept {
    return a.view() <=> b.view();
  }
  friend LightweightString operator+(LightweightString a, view_type b) { return a.append(b); }
  friend LightweightString operator+(LightweightString a, LightweightString const& b) { return a.append(b.view()); }
  friend LightweightString operator+(LightweightString a, T const* b) { return a.append(view_type(b)); }

private:
  struct Impl : iObject {
    std::basic_string<T> text;
  };
  std::basic_string<T>& writable();

  Zo::Ptr<Impl> impl_;
};

template <> ZO_API LightweightString<char> LightweightString<char>::toUTF8() const;
template <> ZO_API LightweightString<char> LightweightString<wchar_t>::toUTF8() const;
template <> ZO_API LightweightString<char> LightweightString<char>::fromUTF8(std::string_view);
template <> ZO_API LightweightString<wchar_t> LightweightString<wchar_t>::fromUTF8(std::string_view);

extern template class LightweightString<char>;
extern template class LightweightString<wchar_t>;

using WString = LightweightString<wchar_t>;
using CString = LightweightString<char>;

// Widening of plain ASCII/UTF-8 text, for the many places that name things in
// code.
ZO_API LightweightString<wchar_t> toWide(std::string_view utf8);
ZO_API std::string toNarrow(LightweightString<wchar_t> const& text);

template <class T> struct std::hash<LightweightString<T>> {
  std::size_t operator()(LightweightString<T> const& s) const noexcept {
    return std::hash<std::basic_string_view<T>>()(s.view());
  }
};
