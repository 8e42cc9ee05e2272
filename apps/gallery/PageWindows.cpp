#include "PageWindows.h"

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/GlobManager.h>

#include <algorithm>

void settleWindows() {
  while (MessageLoop::runPending() != 0) {
  }
  GlobManager::redisplay();
}

std::vector<Glob*> windowsOpenedSince(std::vector<Glob*> const& before) {
  std::vector<Glob*> opened;
  for (Glob* window : GlobManager::topLevelWindows())
    if (std::find(before.begin(), before.end(), window) == before.end())
      opened.push_back(window);
  return opened;
}

PageWindows openPage(GalleryPage const& page, PageContext const& context) {
  std::vector<Glob*> const before = GlobManager::topLevelWindows();
  PageWindows windows;
  windows.main = page.build(context);
  settleWindows();
  windows.all = windowsOpenedSince(before);
  return windows;
}

Zo::Image::Surface capturePage(PageWindows const& windows) {
  if (windows.all.size() <= 1)
    return HeadlessScreen::windowShot(*windows.main);
  Zo::Box<int> area;
  for (Glob* window : windows.all)
    area = area.unite(
        Zo::Box<int>(window->screenPosition(), window->screenPosition() + XY<int>(window->width(), window->height())));
  return screenBackend().grab(area);
}

void closePage(PageWindows const& windows) {
  std::vector<Glob*> const open = GlobManager::topLevelWindows();
  for (Glob* window : windows.all)
    if (std::find(open.begin(), open.end(), window) != open.end())
      GlobManager::requestDeletion(window);
  settleWindows();
}
