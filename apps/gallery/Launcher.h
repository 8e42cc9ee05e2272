#pragma once

#include "GalleryPage.h"

#include <zowidgets/host/base/IdStamp.h>

#include <vector>

class Glob;

// The gallery's main window: a button per page, each opening its page in a
// window of its own.
class Launcher {
public:
  Launcher(std::vector<GalleryPage> const& pages, GalleryModel& model);
  Glob* window() const { return window_; }
  bool stillOpen() const;
  // Closes every window left: once the launcher has gone, its pages go too,
  // as it is the only way back to them.
  static void closePages();

private:
  Glob* window_;
  IdStamp stamp_;
};

// On a real display: opens the launcher and runs until it closes or the
// session ends. Returns the program's exit status.
int runLauncher(std::vector<GalleryPage> const& pages, GalleryModel& model);
