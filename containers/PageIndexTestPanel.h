#pragma once

#include <zowidgets/containers/PageIndexWidget.h>
#include <zowidgets/host/widgets/text/TextBoxEvent.h>

class NumericTextBox;
class TextLabel;

// "PageIndexWidget Test": a page index under a box for the number of pages,
// and a line saying which page was chosen. Opened by the command
// "PageIndexWidgetTest".
class ZO_API PageIndexTestPanel : public StandardPanel {
public:
  static constexpr char const* kCommand = "PageIndexWidgetTest";
  static constexpr unsigned short kInitialPages = 20;
  static constexpr unsigned char kMaxButtons = 7;

  explicit PageIndexTestPanel(InitArgs const& args);
  char const* idstring() const override { return "PageIndexTestPanel"; }

  // Opens one on the screen (bottom-left corner at `screenPosition`; unset:
  // where the toolkit puts new windows).
  static PageIndexTestPanel* open(XY<int> screenPosition = XY<int>::unset());

  PageIndexWidget* getPageIndex() const noexcept { return pageIndex_; }
  NumericTextBox* getPageCountBox() const noexcept { return pageCount_; }
  TextLabel* getChosenLabel() const noexcept { return chosen_; }

private:
  int handlePageCountEdit(TextBoxEvent const& event);
  int handlePageChosen(PageIndexWidgetEvent const& event);
  void showChosen();

  NumericTextBox* pageCount_ = nullptr;
  PageIndexWidget* pageIndex_ = nullptr;
  TextLabel* chosen_ = nullptr;
};
