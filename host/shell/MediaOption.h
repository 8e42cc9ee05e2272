#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <vector>

// One option of a compression format as the media services describe it: a
// plain record, which the export controls turn into a parameter.
struct ZO_API MediaOption {
  enum eKind : int {
    kInteger = 0, // a whole number in [min, max] (no range when they are equal)
    kNumber = 1,  // a real number in [min, max]
    kBoolean = 2,
    kChoice = 3, // one of `choices`, by value
    kText = 4,
  };
  struct Choice {
    LightweightString<wchar_t> label;
    LightweightString<wchar_t> tooltip;
    int value = 0;
  };

  LightweightString<char> id;
  LightweightString<wchar_t> legend;
  LightweightString<wchar_t> tooltip;
  int kind = kInteger;
  double min = 0;
  double max = 0;
  double defaultNumber = 0;               // integers, numbers, booleans (0 or 1), choices
  LightweightString<wchar_t> defaultText; // text
  std::vector<Choice> choices;
};

using MediaOptions = std::vector<MediaOption>;
