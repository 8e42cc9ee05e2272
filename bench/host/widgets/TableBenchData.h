#pragma once

// The data both tables show: four columns made from the row number when a
// cell is asked for, so neither side holds a copy of a million rows.

#include <string>

namespace tablebench {

inline std::wstring cellText(int row, int column) {
  switch (column) {
  case 0:
    return L"Clip " + std::to_wstring(row);
  case 1:
    return L"Reel " + std::to_wstring(row % 12 + 1);
  case 2: {
    int const frames = row * 37;
    wchar_t text[16];
    std::swprintf(text, 16, L"%02d:%02d:%02d:%02d", frames / 90000 % 24, frames / 1500 % 60, frames / 25 % 60,
                  frames % 25);
    return text;
  }
  default:
    return std::to_wstring(row % 250 + 1);
  }
}

inline wchar_t const* columnTitle(int column) {
  static wchar_t const* const titles[] = {L"Clip", L"Reel", L"Source in", L"Frames"};
  return titles[column];
}

} // namespace tablebench
