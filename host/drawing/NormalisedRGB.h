#pragma once

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/LightweightString.h>

// A colour as the drawing code takes it: red, green, blue and alpha as floats
// in 0..1. Nothing is clamped; values are stored as given.
class ZO_API NormalisedRGB {
public:
  NormalisedRGB() noexcept = default;
  NormalisedRGB(float red, float green, float blue, float alpha = 1.0f) noexcept
      : r(red), g(green), b(blue), a(alpha) {}
  NormalisedRGB(NormalisedRGB const&) noexcept = default;
  NormalisedRGB& operator=(NormalisedRGB const&) noexcept = default;
  virtual ~NormalisedRGB() = default;

  // "r g b a", each the shortest text that reads back as the same float.
  LightweightString<wchar_t> toText() const;
  // Reads what toText writes (any spaces between the four numbers); text that
  // is not exactly four numbers gives NormalisedRGB(): opaque black.
  static NormalisedRGB fromText(LightweightString<wchar_t> const& text);

  friend bool operator==(NormalisedRGB const& x, NormalisedRGB const& y) noexcept {
    return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
  }

  float r = 0.0f;
  float g = 0.0f;
  float b = 0.0f;
  float a = 1.0f;
};

// The text form above, for the settings model's one choke point.
namespace DataConvert {
template <> ZO_API LightweightString<wchar_t> convert<NormalisedRGB, LightweightString<wchar_t>>(NormalisedRGB const&);
template <> ZO_API NormalisedRGB convert<LightweightString<wchar_t>, NormalisedRGB>(LightweightString<wchar_t> const&);
} // namespace DataConvert
