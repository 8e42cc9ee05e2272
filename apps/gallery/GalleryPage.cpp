#include "GalleryPage.h"

#include "CommandPages.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>

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
  // Registration order across source files is not fixed: the pages go in
  // the order of the titles the launcher shows, as a reader looks them up.
  auto key = [](GalleryPage const& page) {
    std::string folded = page.title;
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::make_pair(folded, page.name);
  };
  std::sort(pages.begin(), pages.end(), [&](GalleryPage const& a, GalleryPage const& b) { return key(a) < key(b); });
  std::vector<GalleryPage> commands = commandPages();
  pages.insert(pages.end(), commands.begin(), commands.end());
  return pages;
}
