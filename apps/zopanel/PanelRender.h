#pragma once

#include <zowidgets/builder/BuiltPanel.h>

#include <string>
#include <vector>

// Builds a panel description on the headless screen, as zopanel does.
struct PanelOptions {
  int width = 0; // of the rows, in pixels at scale 1; 0: eighteen rows' height
  LightweightString<wchar_t> title;
};

struct BuiltDescription {
  BuiltPanel* panel = nullptr; // null when the text is not a description
  std::string error;           // why, naming the place
  // Rows built as written that cannot show one value (RangeChecks.h).
  std::vector<std::string> warnings;
};

// Parses and builds. The scale is the screen's, set beforehand.
BuiltDescription buildDescription(LightweightString<wchar_t> const& text, PanelOptions const& options);
