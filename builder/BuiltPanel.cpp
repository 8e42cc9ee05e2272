#include <zowidgets/builder/BuiltPanel.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

void BuiltPanel::growToShowEveryRow() {
  int lowest = getUserArea().y0;
  for (Glob* row : getChildren())
    if (row->isVisible())
      lowest = std::min(lowest, row->getY() + UifStd::getRowGap());
  int const shortBy = getUserArea().y0 - lowest;
  if (shortBy > 0)
    resize(width(), height() + shortBy);
}
