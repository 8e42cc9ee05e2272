#pragma once

#include <zowidgets/host/base/Export.h>

// Sizes of the look that widgets share beyond UifStd's metrics, kept as
// theme parameters (UifStd::getTheme) so that an application can change them.
namespace GlobTheme {

// The theme key of the edge grab size, in pixels at scale 1.
inline constexpr char const* kEdgeGrabSizeKey = "edgegrabsize";
inline constexpr int kDefaultEdgeGrabSize = 4;

// How close to a widget's edge a press takes hold of the edge rather than of
// the widget (to resize a track by its lower edge, say): the theme's
// "edgegrabsize" (4 unless set) times the interface scale, rounded, and at
// least 1.
ZO_API unsigned short edgeGrabSize();

// The theme key of the height of progress gauges, in pixels at scale 1.
inline constexpr char const* kGaugeHeightKey = "gaugeheight";

// The height of a thin progress gauge (a task's, a titled progress bar's):
// the theme's "gaugeheight" times the interface scale, rounded, at least 1;
// two row gaps unless set.
ZO_API int gaugeHeight();

} // namespace GlobTheme
