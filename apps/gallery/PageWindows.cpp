#include "PageWindows.h"

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/values/notify/Callback.h>

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

PageCompanions::PageCompanions()
    : guard_(GlobManager::notifier().addListener(
          Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
              new MethodCallback<PageCompanions, GlobManagerEvent>(this, &PageCompanions::handleGlobEvents)),
          NotifyMsgTypeDictionary::instance().anyType())) {}

Glob* PageCompanions::open(GalleryPage const& page, PageContext const& context) {
  std::vector<Glob*> const before = GlobManager::topLevelWindows();
  Glob* main = page.build(context);
  if (!main)
    return nullptr;
  Page opened{main, EventHandler::stampOf(main), {}};
  for (Glob* window : windowsOpenedSince(before))
    if (window != main)
      opened.companions.emplace_back(window, EventHandler::stampOf(window));
  pages_.push_back(std::move(opened));
  return main;
}

PageCompanions::Page* PageCompanions::pageShowing(Glob const* window) {
  for (Page& page : pages_) {
    if (page.main == window && EventHandler::valid(page.main, page.stamp))
      return &page;
    for (auto const& [companion, stamp] : page.companions)
      if (companion == window && EventHandler::valid(companion, stamp))
        return &page;
  }
  return nullptr;
}

// A window opened later from a page's window (a message, an editor) is one
// of the page's companions too: it opens in front of the window it came from.
void PageCompanions::adoptNewWindow(Glob* window) {
  std::vector<Canvas*> const& stack = Canvas::stack();
  for (auto behind = stack.rbegin(); behind != stack.rend(); ++behind) {
    if ((*behind)->root() == window || !(*behind)->isMapped())
      continue;
    if (Page* page = pageShowing((*behind)->root()))
      page->companions.emplace_back(window, EventHandler::stampOf(window));
    return;
  }
}

int PageCompanions::handleGlobEvents(GlobManagerEvent const& event) {
  if (event.kind == GlobManagerEvent::kRealized && event.glob && !event.glob->parent()) {
    adoptNewWindow(event.glob);
    return 0;
  }
  if (event.kind != GlobManagerEvent::kDeleted)
    return 0;
  auto const closed =
      std::find_if(pages_.begin(), pages_.end(), [&event](Page const& page) { return page.stamp == event.id; });
  if (closed == pages_.end())
    return 0;
  for (auto const& [window, stamp] : closed->companions)
    if (EventHandler::valid(window, stamp))
      GlobManager::requestDeletion(window);
  pages_.erase(closed);
  return 0;
}
