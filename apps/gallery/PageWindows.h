#pragma once

#include "GalleryPage.h"

#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/toolkit/GlobManager.h>

#include <utility>
#include <vector>

// The windows a page opened: its main window first, then any others it (or a
// command it ran) opened, such as an open menu.
struct PageWindows {
  Glob* main = nullptr;
  std::vector<Glob*> all;
};

// The top-level windows that are open now but were not in `before`.
std::vector<Glob*> windowsOpenedSince(std::vector<Glob*> const& before);
// Builds a page and collects the top-level windows that appeared while it
// was built, with the message loop drained.
PageWindows openPage(GalleryPage const& page, PageContext const& context);
// Runs queued work until none is left, then paints what is damaged.
void settleWindows();
// The page's picture: the main window alone, or the part of the screen that
// covers all of its windows.
Zo::Image::Surface capturePage(PageWindows const& windows);
// Deletes the page's windows that are still open.
void closePage(PageWindows const& windows);

// The windows a page opens beside its main one (an inspector, the
// announcements, an open menu), as it opens or later from its windows, close
// with it: a page closed leaves nothing of its own behind.
class PageCompanions {
public:
  PageCompanions();
  // Builds the page, noting the windows that came with it; the main window.
  Glob* open(GalleryPage const& page, PageContext const& context);

private:
  struct Page {
    Glob* main;
    IdStamp stamp;
    std::vector<std::pair<Glob*, IdStamp>> companions;
  };
  int handleGlobEvents(GlobManagerEvent const& event);
  // The page whose main window or companion `window` is; null for none.
  Page* pageShowing(Glob const* window);
  void adoptNewWindow(Glob* window);

  Zo::Ptr<Zo::Guard> guard_;
  std::vector<Page> pages_;
};
