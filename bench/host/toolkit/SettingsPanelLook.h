#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <string>

// The settings panel both painters draw, so that our widgets and the Qt peer
// paint the same shapes, strings and colours. A panel with the standard
// border holds kRows rows stacked from the top, a row gap apart. Each row
// shows a label, a slider track, a rounded knob, and a value box with an
// outline holding the number. Boxes are bottom-up: a row's parts in the row's
// own pixels, rows in the panel's.
namespace SettingsPanelLook {

inline constexpr int kRows = 100;
inline constexpr int kRowWidth = 400;
inline constexpr double kKnobRadius = 3.0;
inline constexpr int kTrackStart = 160;
inline constexpr int kTrackLength = 140;

inline int rowHeight() { return UifStd::getRowHeight(); }
inline int value(int row) { return (row * 37) % 101; }
inline std::wstring label(int row) { return L"Setting " + std::to_wstring(row + 1); }
inline std::wstring valueText(int row) { return std::to_wstring(value(row)); }

inline Zo::Box<int> labelBox() { return {0, 0, kTrackStart - 10, rowHeight()}; }
inline Zo::Box<int> trackBox() {
  return {kTrackStart, rowHeight() / 2 - 2, kTrackStart + kTrackLength, rowHeight() / 2 + 2};
}
inline int knobCentre(int row) { return kTrackStart + kTrackLength * value(row) / 100; }
inline Zo::Box<int> knobBox(int row) { return {knobCentre(row) - 4, 3, knobCentre(row) + 4, rowHeight() - 3}; }
inline Zo::Box<int> valueBox() { return {kTrackStart + kTrackLength + 10, 2, kRowWidth - 10, rowHeight() - 2}; }

inline Border border() { return StandardPanel::getDefaultBorder(); }
inline XY<int> panelSize() {
  XY<int> const rows(kRowWidth, kRows * rowHeight() + (kRows - 1) * UifStd::getRowGap());
  return StandardPanel::calcPanelSize(rows, 0, border());
}
inline Zo::Box<int> rowBox(int row) {
  int const top = panelSize().y - border().top() - row * (rowHeight() + UifStd::getRowGap());
  return {border().left(), top - rowHeight(), border().left() + kRowWidth, top};
}

struct RowColours {
  explicit RowColours(Palette const& palette)
      : label(palette.text()), track(palette.childWindow()), knob(palette.subheadingText()),
        valueFill(palette.childWindow()), valueOutline(palette.window(4)), valueText(palette.text()) {}

  Colour label;
  Colour track;
  Colour knob;
  Colour valueFill;
  Colour valueOutline;
  Colour valueText;
};

} // namespace SettingsPanelLook
