#pragma once

#include <numbers>

// Degrees and radians, each from the other: deg(rad(a)) is a, to rounding.
constexpr double deg(double radians) noexcept { return radians * (180.0 / std::numbers::pi); }
constexpr double rad(double degrees) noexcept { return degrees * (std::numbers::pi / 180.0); }
