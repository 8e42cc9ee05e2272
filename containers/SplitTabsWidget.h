#pragma once

#include <zowidgets/host/widgets/panels/Splitter.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>

#include <vector>

// Two groups of tabbed pages, left and right, with a splitter between them.
// When the panel is too narrow for both (below its minimum width for split
// display, or below what either group's pages need) the groups merge into
// one row of tabs, the left pages first; widened again, they split, at the
// fraction they had. The pages keep their state through both.
class ZO_API SplitTabsWidget : public OccludedChildWidget {
public:
  struct Page {
    Glob* widget = nullptr;
    UIString title;
  };

  // Without a border of its own, unless one is set: the tabs cover it.
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() { setBorder(Border()); }
    InitArgs(XY<int> size, unsigned short minSplitWidth, bool style = false)
        : StandardPanel::InitArgs(size), minSplitWidth(minSplitWidth), style(style) {
      setBorder(Border());
    }
    unsigned short minSplitWidth = 0; // below this width the groups merge
    bool style = false;               // kept for the toolkit; no effect here
  };

  explicit SplitTabsWidget(InitArgs const& args);
  char const* idstring() const override { return "SplitTabsWidget"; }

  template <class T> T* addLeftPage(UIString const& title, typename T::InitArgs const& args) {
    T* page = left_->createPage<T>(title, args);
    leftPages_.push_back(Page{page, title});
    addMinSizeConstraint(page);
    return page;
  }
  // While merged the page goes into the one row, behind the others, but it
  // still belongs to the right group.
  template <class T> T* addRightPage(UIString const& title, typename T::InitArgs const& args) {
    T* page = (right_ ? right_ : left_)->template createPage<T>(title, args);
    rightPages_.push_back(Page{page, title});
    addMinSizeConstraint(page);
    return page;
  }
  // Raises the panel's minimum size to what the page needs inside the tabs.
  void addMinSizeConstraint(Glob const* page);

  int calcLeftTabsWidth() const;
  static int calcMinWidth(std::vector<Page> const& pages);
  bool shouldBeCoalesced() const;
  void calcSplitterRange();
  // Merges or splits the groups as shouldBeCoalesced() says; makes the left
  // tabs on the first call.
  void createWidgets();

  bool isCoalesced() const noexcept { return right_ == nullptr; }
  TabbedDialogue* getLeftTabs() const noexcept { return left_; }
  TabbedDialogue* getRightTabs() const noexcept { return right_; }
  Splitter* getSplitter() const noexcept { return splitter_; }
  std::vector<Page> const& getLeftPages() const noexcept { return leftPages_; }
  std::vector<Page> const& getRightPages() const noexcept { return rightPages_; }
  float getSplit() const noexcept { return split_; }
  unsigned short getMinSplitWidth() const noexcept { return minSplitWidth_; }
  bool getStyle() const noexcept { return style_; }
  // The lowest and highest x the splitter's middle may take.
  Splitter::Range getSplitterRange() const noexcept { return Splitter::Range{rangeLow_, rangeHigh_}; }

  void resize(double width, double height) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

protected:
  // Told before the groups merge and before they split.
  virtual void handleTabsMerge() {}
  virtual void handleTabsSplit() {}

private:
  int userWidth() const { return getUserArea().width(); }
  void mergeGroups();
  void splitGroups();
  Palette rightPalette() const;

  TabbedDialogue* left_ = nullptr;
  TabbedDialogue* right_ = nullptr;
  Splitter* splitter_ = nullptr;
  std::vector<Page> leftPages_;
  std::vector<Page> rightPages_;
  unsigned short minSplitWidth_;
  float split_ = 0.5f;
  bool style_;
  int rangeLow_ = 0;
  int rangeHigh_ = 0;
};
