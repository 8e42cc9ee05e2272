#include "GalleryPage.h"

#include "CommandPages.h"

#include <algorithm>

std::vector<GalleryPage>& registeredPages() {
  static std::vector<GalleryPage> pages;
  return pages;
}

PageRegistrar::PageRegistrar(std::string name, std::string title, std::string description,
                             std::function<Glob*(PageContext const&)> build) {
  registeredPages().push_back({std::move(name), std::move(title), std::move(description), std::move(build)});
}

std::vector<GalleryPage> allPages() {
  std::vector<GalleryPage> pages = registeredPages();
  // Registration order across source files is not fixed; the name is.
  std::sort(pages.begin(), pages.end(), [](GalleryPage const& a, GalleryPage const& b) { return a.name < b.name; });
  std::vector<GalleryPage> commands = commandPages();
  pages.insert(pages.end(), commands.begin(), commands.end());
  return pages;
}
