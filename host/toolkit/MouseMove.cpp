#include <zowidgets/host/toolkit/MouseMove.h>

#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

bool isMouseMoveSignificant(XY<int> const& pressedAt, XY<int> const& releasedAt) {
  int const threshold = std::max(3, static_cast<int>(std::lround(3 * UifStd::getScale())));
  return std::abs(releasedAt.x - pressedAt.x) > threshold || std::abs(releasedAt.y - pressedAt.y) > threshold;
}
