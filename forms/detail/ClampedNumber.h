#pragma once

#include <cstdio>
#include <string>

// What the number elements share: keeping a number read from text within
// their limits, and writing the value with their printf format.
namespace FormNumbers {

// `number` into `value`, held to low..high: 1 when a limit took its place,
// 0 when it was taken as it is.
template <class T, class N> int clampInto(N number, T low, T high, T& value) {
  if (number < low) {
    value = low;
    return 1;
  }
  if (number > high) {
    value = high;
    return 1;
  }
  value = static_cast<T>(number);
  return 0;
}

// `value` as `format` writes it.
template <class T> std::string written(std::string const& format, T value) {
  char text[256];
  std::snprintf(text, sizeof text, format.c_str(), value);
  return text;
}

} // namespace FormNumbers
