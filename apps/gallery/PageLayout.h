#pragma once

#include "GalleryPage.h"

#include <zowidgets/host/widgets/panels/StandardPanel.h>

// Opens a page's window: a panel with a title bar and a close button whose
// user area is `userArea`, realized at the context's screen position.
StandardPanel* openPageWindow(PageContext const& context, XY<int> userArea, UIString const& title,
                              unsigned standardWidgets = StandardPanel::kTitle | StandardPanel::kPoot);

// Spacing for page layouts, all from the toolkit's metrics.
struct PageMetrics {
  int row;
  int gap;
  int rowGap;
  static PageMetrics current();
};
