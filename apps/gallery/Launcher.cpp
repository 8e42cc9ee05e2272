#include "Launcher.h"

#include "PageLayout.h"
#include "PageWindows.h"

#include <zowidgets/host/display/DisplayScreen.h>
#include <zowidgets/host/events/TypeAhead.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

namespace {

// Where the next page opens: to the right of the launcher where it is now
// (its user may have moved it), each a row further right and down than the
// last, starting again after a few. The launcher owns the buttons that ask,
// so it outlives the placer.
class PagePlacer {
public:
  explicit PagePlacer(Glob const& launcher) : launcher_(launcher) {}
  XY<int> next() {
    int const step = UifStd::getRowHeight() * (opened_++ % kCascade);
    int const right = launcher_.screenPosition().x + launcher_.width() + UifStd::getWidgetGap();
    return XY<int>(right + step, screenBackend().screenSize().y / 3 - step);
  }

private:
  static constexpr int kCascade = 8;
  Glob const& launcher_;
  int opened_ = 0;
};

// The launcher's list of pages: letters typed take the keyboard to the first
// page whose title starts with them (a pause starts the search again), as
// in a file list.
class PageList : public VerticalScrollingBase {
public:
  using VerticalScrollingBase::VerticalScrollingBase;
  char const* idstring() const override { return "PageList"; }

  int handleKeyboardEvent(int key) override {
    int const bare = key & ~kKeyModifierMask;
    bool const plain = (key & (kKeyCtrl | kKeyAlt | kKeyCmd)) == 0;
    if (!plain || bare <= ' ' || bare >= kKeySpecial)
      return VerticalScrollingBase::handleKeyboardEvent(key);
    typed_.add(std::wstring(1, static_cast<wchar_t>(bare)));
    for (Glob* row : getManagedWidgets())
      if (auto* button = dynamic_cast<PushButton*>(row); button && typed_.matches(button->getLabel().view())) {
        TabOrderManager::enterWindow(*button, true);
        break;
      }
    return 1;
  }

private:
  TypeAhead typed_;
};

} // namespace

Launcher::Launcher(std::vector<GalleryPage> const& pages, GalleryModel& model) {
  PageMetrics const m = PageMetrics::current();
  int const rowsShown = std::clamp(static_cast<int>(pages.size()), 1, 16);
  XY<int> const userArea(m.row * 12, rowsShown * m.row + (rowsShown - 1) * m.rowGap);
  unsigned const widgets = StandardPanel::kTitle | StandardPanel::kPoot;
  VerticalScrollingBase::InitArgs args(
      StandardPanel::calcPanelSize(userArea, widgets, StandardPanel::getDefaultBorder()));
  args.standardWidgets = widgets;
  args.title = L"zowidgets gallery";
  // Near the top left, leaving the rest of the screen to the pages.
  args.screenPosition = XY<int>(m.row, screenBackend().screenSize().y - args.size.y - 2 * m.row);
  auto* launcher = new PageList(args);
  GlobManager::realize(launcher);
  auto placer = std::make_shared<PagePlacer>(*launcher);
  auto companions = std::make_shared<PageCompanions>();
  for (GalleryPage const& page : pages) {
    auto* button = launcher->createManagedWidget<PushButton>(
        PushButton::InitArgs(toWide(page.title), XY<int>(launcher->getView()->width(), 0)));
    // Deferred: the page opens after the click has been handled.
    button->setCallback(Broadcaster<ButtonEvent>::makeCallback(
        [page, placer, companions, &model](ButtonEvent const&) {
          companions->open(page, PageContext{model, placer->next()});
        },
        1));
  }
  launcher->recalcWidgetsHeight();
  launcher->resetView();
  window_ = launcher;
  stamp_ = EventHandler::stampOf(launcher);
}

bool Launcher::stillOpen() const { return EventHandler::valid(window_, stamp_); }

void Launcher::closePages() {
  for (Glob* window : GlobManager::topLevelWindows())
    GlobManager::requestDeletion(window);
  // Let them go, saving what they keep.
  settleWindows();
}

int runLauncher(std::vector<GalleryPage> const& pages, GalleryModel& model) {
  DisplayScreen* display = displayScreen();
  if (!display)
    return 1;
  Launcher launcher(pages, model);
  auto const closed = [&launcher] { return !launcher.stillOpen(); };
  while (!display->runUntil(closed, std::chrono::hours(1)))
    if (!display->pumpEvents())
      break;
  Launcher::closePages();
  return 0;
}
