#pragma once

#include <zowidgets/host/drawing/Colour.h>

#include <cstdint>

// Icons are drawn in the tint's packed 0xAARRGGBB, each channel a whole
// step of 1/255, so cairo lays exactly those bytes in solid pixels and a
// cached icon (keyed by the packed value) matches one drawn afresh.
inline Colour iconTintFromPacked(std::uint32_t argb) noexcept {
  if (argb == 0)
    return Colour::invalid();
  Colour tint(((argb >> 16) & 0xFF) / 255.0, ((argb >> 8) & 0xFF) / 255.0, (argb & 0xFF) / 255.0);
  tint.setAlpha((argb >> 24) / 255.0);
  return tint;
}

inline Colour iconTint(Colour const& colour) noexcept { return iconTintFromPacked(colour.get_vlib_colour()); }
