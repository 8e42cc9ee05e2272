#pragma once

#include "GalleryPage.h"

#include <filesystem>
#include <iosfwd>
#include <vector>

// Renders every page to <dir>/<name>.png, one page at a time, and writes
// <dir>/index.html showing them. Progress and a summary go to `progress`.
// Returns the number of failures: pages, and the index if it could not be
// written.
int renderGallery(std::vector<GalleryPage> const& pages, GalleryModel& model, std::filesystem::path const& dir,
                  std::ostream& progress);
