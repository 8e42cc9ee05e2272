#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <vector>

class TabbedDialogue;

// What a tabbed dialogue tells its listeners.
struct ZO_API TabbedDialogueEvent {
  enum eKind : int {
    kChanging = 1,    // the current tab is about to become `tab`
    kChanged = 2,     // `tab` is the current tab now (-1: no tab is left)
    kTabsChanged = 3, // the tab at `tab` was added or removed
  };
  int kind = kChanged;
  int tab = -1;
  TabbedDialogue* dialogue = nullptr;
};

// A row of tabs above a stack of pages, of which the current tab's shows.
// A click on a tab makes it current; so do Left and Right (Home, End) while
// the tab row has the keyboard focus, and Ctrl+Tab and Ctrl+Shift+Tab from
// anywhere inside the dialogue, which go round. Every change of the current
// tab, by the user or the program, is told to the listeners: kChanging, then
// kChanged once the new page shows.
//
// A tab may have a page of its own, a widget the dialogue owns and keeps in
// its user area, the page area inside the frame below the row, sized to it.
// A dialogue only minHeight() high is a bare tab row whose owner shows pages
// of its own as the current tab changes. Pages can be taken out with their
// tabs (removePage) and put back, here or in another dialogue
// (addPageForTab), without being destroyed, so they keep their state.
class ZO_API TabbedDialogue : public Glob, public Broadcaster<TabbedDialogueEvent> {
public:
  // The description of one tab.
  struct ZO_API Page {
    Page() = default;
    Page(UIString title, TooltipDetails tooltip = {}, Colour colour = Colour::invalid())
        : title(std::move(title)), tooltip(std::move(tooltip)), colour(colour) {}
    UIString title;
    TooltipDetails tooltip;
    Colour colour = Colour::invalid(); // the tab's face; invalid: the palette's
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    std::vector<Page> tabs; // tabs without pages of their own
    Broadcaster<TabbedDialogueEvent>::Callback callback;
  };

  explicit TabbedDialogue(InitArgs const& args);
  char const* idstring() const override { return "TabbedDialogue"; }

  // The height of the tab row: a dialogue this high shows tabs alone.
  static int minHeight();
  // The total of the frame's margins round the pages on the sides named:
  // bit 1 left, 2 right, 4 top, 8 bottom (the tab row not counted).
  static int calcBorderSize(int sides);
  // The height of a dialogue whose pages are `contentHeight` high.
  static int calcHeightForContents(int contentHeight);

  int getNumTabs() const noexcept { return static_cast<int>(tabs_.size()); }
  Page const& getTab(int index) const { return tabs_.at(static_cast<std::size_t>(index)); }
  // Replaces every tab with tabs without pages; pages held are destroyed.
  // The first tab becomes current.
  void setTabs(std::vector<Page> const& tabs);
  // A tab without a page, behind the others; its index.
  int addTab(Page const& tab);

  // Makes a T from `args`, sized to the page area, as the page of a new tab
  // behind the others.
  template <class T> T* createPage(Page const& tab, typename T::InitArgs const& args) {
    typename T::InitArgs pageArgs = args;
    pageArgs.size = getPageSize();
    pageArgs.setParent(this);
    T* page = new T(pageArgs);
    addPageForTab(tab, page);
    return page;
  }
  template <class T> T* createPage(UIString const& title, typename T::InitArgs const& args) {
    return createPage<T>(Page(title), args);
  }
  // Takes `page` (parentless, or taken from another parent) as the page of a
  // new tab behind the others; it shows if that tab is current. Its index.
  int addPageForTab(Page const& tab, Glob* page);
  // Removes the tab at `index` and gives up its page without destroying it:
  // the page comes back hidden and parentless (null for a tab without one).
  // When the current tab goes, the next one (or the last) becomes current.
  Glob* removePage(int index);
  Glob* getPage(int index) const;
  // The index of the tab whose page this is; -1 when none.
  int findPage(Glob const* page) const;

  // -1 while there is no tab.
  int getCurrentTab() const noexcept { return current_; }
  Glob* getCurrentPage() const { return getPage(current_); }
  // Out-of-range indices are ignored.
  void setCurrentTab(int index);
  void setCurrentPage(Glob const* page) { setCurrentTab(findPage(page)); }

  // The widget holding the tabs, across the top: it takes the focus.
  Glob* getTabRow() const noexcept { return tabRow_; }
  // A tab's box in the tab row; empty for an index out of range.
  Zo::Box<int> getTabBox(int index) const;
  // The tab at a point of the tab row; -1 for none.
  int tabAt(XY<int> point) const;
  // The page area: inside the frame, below the tab row.
  Zo::Box<int> getUserArea() const override;
  XY<int> getPageSize() const;

  void resize(double width, double height) override;
  int react(Event const& event) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  class TabRow;

  void changeCurrent(int index);
  void showCurrentOnly();
  void tell(int kind, int tab);
  void fitPage(Glob& page) const;
  std::vector<int> tabWidths() const;

  std::vector<Page> tabs_;
  std::vector<Glob*> pages_; // one per tab; null for a tab without a page
  int current_ = -1;
  Glob* tabRow_ = nullptr; // a TabRow
};
