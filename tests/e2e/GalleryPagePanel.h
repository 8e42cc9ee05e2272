#pragma once

#include "GalleryModel.h"
#include "PageWindows.h"

#include <zowidgets/host/base/Box.h>

#include <string>
#include <string_view>

// A page of the gallery, opened by name on the real display, for the
// end-to-end cases that use a page as a person would.
class GalleryPagePanel {
public:
  // Opens the page at a screen position (bottom-left corner, bottom-up); no
  // window opens when no page has that name.
  GalleryPagePanel(std::string const& name, XY<int> screenPosition);
  ~GalleryPagePanel();
  GalleryPagePanel(GalleryPagePanel const&) = delete;
  GalleryPagePanel& operator=(GalleryPagePanel const&) = delete;

  // The `index`th widget (from 0, depth first, through the page's windows
  // and then those opened since) of the page whose class is
  // `className`: where it is and, for text boxes, labels, buttons, messages
  // and gauges, its text; a gauge's measure; what a table shows across. As
  // JSON; an error when there is none.
  std::string widgetJson(std::string const& className, int index, std::string (*toScreen)(Zo::Box<int> const&),
                         std::string (*quote)(std::string_view)) const;

private:
  GalleryModel model_;
  std::vector<Glob*> before_; // the windows open before the page
  PageWindows windows_;
};
