#pragma once

#include <zowidgets/host/toolkit/TabOrderableHost.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <vector>

class TextLabel;

// What the page index tells its listeners: the page the user chose.
struct ZO_API PageIndexWidgetEvent {
  enum eKind : int { kPageChosen = 0 };
  int kind = kPageChosen;
  unsigned short page = 0; // zero-based
};

// A page bar: "<", a run of numbered page buttons, ">". At most maxButtons
// numbers show, a run that slides to keep the current page in its middle;
// the current page's number is latched and does not take clicks. Pages are
// zero-based; the buttons show them from 1. With no pages, a label set by
// setEmptyLabel shows instead of numbers.
class ZO_API PageIndexWidget : public StandardPanel, public TabOrderableHost, public Broadcaster<PageIndexWidgetEvent> {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    // A width of 0 is calcWidth(current, count, maxButtons); a height of 0
    // is a row.
    InitArgs(Broadcaster<PageIndexWidgetEvent>::Callback callback, unsigned short currentPage, unsigned short pageCount,
             unsigned char maxButtons, XY<int> size = {})
        : StandardPanel::InitArgs(size), callback(std::move(callback)), currentPage(currentPage), pageCount(pageCount),
          maxButtons(maxButtons) {}
    Broadcaster<PageIndexWidgetEvent>::Callback callback;
    unsigned short currentPage = 0;
    unsigned short pageCount = 0;
    unsigned char maxButtons = 10;
  };

  explicit PageIndexWidget(InitArgs const& args);
  char const* idstring() const override { return "PageIndexWidget"; }

  // The page of the first number in the run around `current`.
  static unsigned short calcFirstPageIndex(unsigned short current, unsigned short count, unsigned char maxButtons);
  // A number's width: its text (never narrower than "10") and half a row.
  static int calcButtonWidth(unsigned short page);
  // The arrows and the numbers of `shown` pages from `first`.
  static int calcWidthInternal(unsigned short first, unsigned short shown);
  static int calcWidth(unsigned short current, unsigned short count, unsigned char maxButtons);

  // The current page is kept below the count (count - 1 taken unsigned, so
  // nothing limits it when there are no pages); only what changed is made
  // again.
  void setPages(unsigned short current, unsigned short count);
  // Moves the latch within the run on show.
  void setCurrentPage(unsigned short page);
  void setEmptyLabel(UIString const& text);
  // Previous is active unless on page 0, next unless on page count - 1.
  void updatePrevAndNextButtons(eRedrawFlag redraw);

  int handleNumberClick(ButtonEvent const& event);
  int handlePrevClick(ButtonEvent const& event);
  int handleNextClick(ButtonEvent const& event);

  unsigned short getCurrentPage() const noexcept { return current_; }
  unsigned short getPageCount() const noexcept { return count_; }
  unsigned short getFirstPage() const noexcept { return first_; }
  std::vector<Button*> const& getNumberButtons() const noexcept { return numbers_; }
  Button* getPrevButton() const noexcept { return prev_; }
  Button* getNextButton() const noexcept { return next_; }
  TextLabel* getEmptyLabel() const noexcept { return emptyLabel_; }

  void getTabOrderables(std::vector<TabOrderable*>& into) override;
  void resize(double width, double height) override;

private:
  // True when the run of numbers was made anew, false when at most the
  // latch moved.
  bool setPagesInternal(unsigned short current, unsigned short count);
  // After a change of pages: arrows, the empty label, the numbers' width.
  void relayout();
  void makeNumberButtons();
  Button* numberButtonFor(unsigned short page) const;
  static void latch(Button* button, bool latched);

  std::vector<Button*> numbers_;
  Button* prev_ = nullptr;
  Button* next_ = nullptr;
  StandardPanel* numberHost_ = nullptr;
  TextLabel* emptyLabel_ = nullptr;
  unsigned short first_ = 0;
  unsigned short current_ = 0;
  unsigned short count_ = 0;
  unsigned char maxButtons_ = 10;
};
