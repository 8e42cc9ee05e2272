#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>

#include <functional>
#include <vector>

// One row of tabs above a stack of pages, of which the current tab's shows.
// The pages belong to the panel, not to the tab row: the row is a bare
// TabbedDialogue and the panel shows and hides the pages as it changes.
class ZO_API SimpleTabbedPanel : public StandardPanel {
public:
  // The page's widget is made from `info`: by `make` when it is set (see
  // of<T>), otherwise by class name (GlobManager::createGlob). A page that
  // cannot be made leaves its tab empty.
  struct Page {
    GlobCreationInfo info;
    UIString title;
    std::function<Glob*(GlobCreationInfo const&)> make;

    // A page of a type known here, made from its own arguments.
    template <class T> static Page of(typename T::InitArgs const& args, UIString title) {
      return Page{args, std::move(title), [args](GlobCreationInfo const& sized) -> Glob* {
                    typename T::InitArgs made = args;
                    static_cast<GlobCreationInfo&>(made) = sized;
                    return new T(made);
                  }};
    }
  };

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    std::vector<Page> pages;
  };

  explicit SimpleTabbedPanel(InitArgs const& args);
  char const* idstring() const override { return "SimpleTabbedPanel"; }

  // A tab for each page: its title, the default tooltip and no colour.
  static std::vector<TabbedDialogue::Page> makeTabs(std::vector<Page> const& pages);
  // The user area less the tab row and the panel's top and right margins.
  XY<int> calcPageSize() const;
  // Shows the tab row and the current page, or hides the row and every page.
  void showPages(bool show);
  // The change of tab (kChanged) shows the new page; other events are
  // ignored.
  int handleTabEvents(TabbedDialogueEvent const& event);
  // Shows the current tab's page alone; with kRedrawNow repaints it.
  virtual void handlePageChange(eRedrawFlag redraw);

  TabbedDialogue* getTabs() const noexcept { return tabs_; }
  // Null for a page that could not be made.
  Glob* getPage(int index) const;
  int getNumPages() const noexcept { return static_cast<int>(pages_.size()); }

  void resize(double width, double height) override;

private:
  TabbedDialogue* tabs_ = nullptr;
  std::vector<Glob*> pages_;
};
