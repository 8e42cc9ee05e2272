#pragma once

#include "GalleryPage.h"

#include <vector>

// On a real display: opens a window with a button per page, each opening its
// page in a window of its own, and runs until the last window closes or the
// session ends. Returns the program's exit status.
int runLauncher(std::vector<GalleryPage> const& pages, GalleryModel& model);
