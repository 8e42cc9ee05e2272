#include <zowidgets/host/base/ByteSizes.h>

#include <algorithm>
#include <array>
#include <cstdio>

LightweightString<wchar_t> bytesAsString(std::uint64_t bytes, int decimals) {
  static constexpr std::array<wchar_t const*, 6> kUnits{L"bytes", L"KB", L"MB", L"GB", L"TB", L"PB"};
  if (bytes < 1024) {
    wchar_t text[32];
    std::swprintf(text, 32, L"%llu %ls", static_cast<unsigned long long>(bytes), bytes == 1 ? L"byte" : kUnits[0]);
    return text;
  }
  double value = static_cast<double>(bytes);
  std::size_t unit = 0;
  while (value >= 1024.0 && unit + 1 < kUnits.size()) {
    value /= 1024.0;
    ++unit;
  }
  wchar_t text[48];
  std::swprintf(text, 48, L"%.*f %ls", std::clamp(decimals, 0, 3), value, kUnits[unit]);
  return text;
}
