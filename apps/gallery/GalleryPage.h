#pragma once

#include <zowidgets/host/base/XY.h>

#include <functional>
#include <string>
#include <vector>

class Glob;
struct GalleryModel;

// What a page builder is given: the data its value widgets bind to, and
// where on the screen its window goes (unset lets the toolkit choose).
struct PageContext {
  GalleryModel& model;
  XY<int> screenPosition = XY<int>::unset();
};

// One page of the gallery: a name that is also its file name, a line saying
// what it shows, and a builder that opens its window (and any others it
// needs, such as an open menu) and returns the page's main window.
struct GalleryPage {
  std::string name;
  std::string title;
  std::string description;
  std::function<Glob*(PageContext const&)> build;
};

// The pages of the widget families, in the order they were added. Each
// family's source file adds its pages with one PageRegistrar line.
std::vector<GalleryPage>& registeredPages();

struct PageRegistrar {
  PageRegistrar(std::string name, std::string title, std::string description,
                std::function<Glob*(PageContext const&)> build);
};

// Every page: the registered ones sorted by name, then the command list and
// a page per registered command.
std::vector<GalleryPage> allPages();
