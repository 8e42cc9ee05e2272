#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/toolkit/WidgetPosition.h>

// Where on an area something is anchored: its centre, the middle of a side or
// a corner. Saved documents (tutorials) name these by text.
enum eCoordinateOrigin : int {
  kOriginCentre = 0,
  kOriginLeft = 1,
  kOriginRight = 2,
  kOriginTop = 3,
  kOriginBottom = 4,
  kOriginBottomLeft = 5,
  kOriginTopLeft = 6,
  kOriginBottomRight = 7,
  kOriginTopRight = 8,
  kOriginPanelDefault = 17, // the toolkit chooses
};

// The text forms of the two position enums, as files hold them:
//   eCoordinateOrigin: "centre", "left", "right", "top", "bottom",
//     "bottomleft", "topleft", "bottomright", "topright", "default";
//   eWidgetRelativity: "none", "left", "right", "above", "below".
// asString gives an empty string for a value with no name. Reading compares
// exactly, case included; a text that names nothing (the empty one too)
// gives kOriginCentre and kRelativeNone.
ZO_API LightweightString<char> asString(eCoordinateOrigin origin);
ZO_API LightweightString<char> asString(eWidgetRelativity relativity);
ZO_API eCoordinateOrigin CoordinateOriginFromString(LightweightString<char> const& text);
ZO_API eWidgetRelativity WidgetRelativityFromString(LightweightString<char> const& text);
