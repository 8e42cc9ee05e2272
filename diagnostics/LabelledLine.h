#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/LightweightString.h>

#include <vector>

class CanvasRenderer;
class Palette;

// A line of label and value pairs as the inspector's windows show a widget's
// details: each label in the plain font and dimmer colour, its value after it
// in the bold font, the pairs a little apart.
struct LabelledValue {
  LightweightString<wchar_t> label;
  LightweightString<wchar_t> value;
};
using LabelledLine = std::vector<LabelledValue>;

namespace LabelledText {
int lineWidth(LabelledLine const& line);
// Draws the line from the left of `row`, centred in its height.
void drawLine(CanvasRenderer& renderer, LabelledLine const& line, Zo::Box<int> const& row, Palette const& palette);
} // namespace LabelledText
