#pragma once

#include <zowidgets/host/widgets/lists/ScrollListGridViewBase.h>

#include <vector>

// A grid of cells of type T, one for each data item D: T is an item widget
// whose InitArgs is made from one D. Cells go in rows of as many as the
// view's width holds, each group under an optional title.
template <class T, class D> class ScrollListGridView : public ScrollListGridViewBase {
public:
  using ScrollListGridViewBase::ScrollListGridViewBase;

  void addData(std::vector<D> const& data, UIString const& title) {
    if (!title.empty())
      addSeparator(title);
    Glob* row = nullptr;
    Glob* previous = nullptr;
    int inRow = 0;
    for (D const& item : data) {
      typename T::InitArgs args(item);
      if (!row || inRow == itemsPerRow(args.size.x)) {
        row = addRow();
        previous = nullptr;
        inRow = 0;
      }
      auto* cell = new T(args);
      row->addChild(cell, previous ? Glob::RightOf(0, previous) : Glob::TopLeft(0, 0));
      addItemWidget(cell);
      previous = cell;
      ++inRow;
    }
  }

  // Every row, cell and title goes.
  void clear() {
    unmanageAllWidgets(true);
    forgetGridContents();
  }
};
