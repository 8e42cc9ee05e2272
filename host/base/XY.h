#pragma once

#include <zowidgets/host/base/Export.h>

#include <type_traits>

// A position or a size: x and y of int or double.
template <class T> class ZO_API XY {
  static_assert(std::is_same_v<T, int> || std::is_same_v<T, double>, "XY holds int or double");

public:
  // The coordinate of the position that asks the toolkit to keep what it has,
  // or to decide for itself.
  static constexpr T kUnsetCoordinate = T(-1234);

  constexpr XY() noexcept = default;
  constexpr XY(T x, T y) noexcept : x(x), y(y) {}
  constexpr XY(XY const&) noexcept = default;
  constexpr XY& operator=(XY const&) noexcept = default;
  constexpr virtual ~XY() = default;

  // (-1234, -1234): "no change" / "toolkit decides".
  static constexpr XY unset() noexcept { return XY(kUnsetCoordinate, kUnsetCoordinate); }
  // True only when both coordinates are the sentinel.
  constexpr bool isUnset() const noexcept { return x == kUnsetCoordinate && y == kUnsetCoordinate; }

  constexpr XY& operator+=(XY const& other) noexcept {
    x += other.x;
    y += other.y;
    return *this;
  }
  constexpr XY& operator-=(XY const& other) noexcept {
    x -= other.x;
    y -= other.y;
    return *this;
  }
  friend constexpr XY operator+(XY a, XY const& b) noexcept { return a += b; }
  friend constexpr XY operator-(XY a, XY const& b) noexcept { return a -= b; }
  friend constexpr bool operator==(XY const& a, XY const& b) noexcept { return a.x == b.x && a.y == b.y; }

  T x = T();
  T y = T();
};
