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
