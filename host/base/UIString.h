#pragma once

#include <zowidgets/host/base/ResourceStrings.h>

// Text to show a user: a resource id, literal text, or both, the literal then
// standing in when the string table has no text for the id.
class ZO_API UIString {
public:
  static constexpr ResId kNoResource = 999999;

  UIString() = default;
  UIString(LightweightString<wchar_t> const& text) : text_(text) {}
  UIString(wchar_t const* text) : text_(text ? LightweightString<wchar_t>(text) : LightweightString<wchar_t>()) {}
  explicit UIString(ResId id) : id_(id) {}
  UIString(ResId id, LightweightString<wchar_t> const& fallback) : id_(id), text_(fallback) {}

  // The text to show: the resource text when there is an id and some table
  // holds text for it, otherwise the literal text, or failing that the
  // placeholder that resourceStrW gives for a missing id.
  LightweightString<wchar_t> getString() const;

  ResId resId() const noexcept { return id_; }
  LightweightString<wchar_t> const& text() const noexcept { return text_; }
  // True when there is neither a resource id nor literal text.
  bool empty() const noexcept { return id_ == kNoResource && text_.empty(); }

  friend bool operator==(UIString const&, UIString const&) = default;

private:
  ResId id_ = kNoResource;
  LightweightString<wchar_t> text_;
};
