#include <zowidgets/host/toolkit/GlobTheme.h>

#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>

unsigned short GlobTheme::edgeGrabSize() {
  double const atUnitScale = UifStd::getTheme().get(kEdgeGrabSizeKey, kDefaultEdgeGrabSize);
  double const scaled = std::round(atUnitScale * UifStd::getScale());
  if (!(scaled >= 1.0))
    return 1;
  return static_cast<unsigned short>(std::min(scaled, 1000.0));
}

int GlobTheme::gaugeHeight() {
  Theme const& theme = UifStd::getTheme();
  if (!theme.has(kGaugeHeightKey))
    return 2 * UifStd::getRowGap();
  double const scaled = std::round(theme.get(kGaugeHeightKey, 0.0) * UifStd::getScale());
  if (!(scaled >= 1.0))
    return 1;
  return static_cast<int>(std::min(scaled, 1000.0));
}
