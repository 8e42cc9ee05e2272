#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <vector>

class ScrollBar;

// A panel whose rows scroll: managed widgets are stacked from the top of a
// view that fills the user area beside a vertical scroll bar, one row gap
// apart, and the view scrolls by the bar, the wheel, or revealWidget. Hidden
// managed widgets take no room.
class ZO_API VerticalScrollingBase : public StandardPanel {
public:
  using InitArgs = StandardPanel::InitArgs;

  explicit VerticalScrollingBase(InitArgs const& args);
  char const* idstring() const override { return "VerticalScrollingBase"; }

  // Makes a widget in the view, below the managed ones, and manages it. Call
  // recalcWidgetsHeight once the rows are made.
  template <class T> T* createManagedWidget(typename T::InitArgs const& args) {
    T* widget = getView()->template createChild<T>(args, Glob::TopLeft(0, 0));
    manage(widget);
    return widget;
  }
  // Stacks the managed widgets afresh and fits the scroll bar to them.
  void recalcWidgetsHeight();
  // Scrolls back to the top.
  void resetView();
  // Scrolls as little as needed to show the whole of a managed widget.
  void revealWidget(Glob* widget);
  // Forgets every managed widget, deleting them when `destroy` is set
  // (otherwise they stay in the view where they are).
  void unmanageAllWidgets(bool destroy);

  std::vector<Glob*> const& getManagedWidgets() const noexcept { return managed_; }
  Glob* getView() const noexcept { return view_; }
  ScrollBar* getScrollBar() const noexcept { return scrollBar_; }
  // The stacked rows' height, and how far the view is scrolled from the top.
  int getWidgetsHeight() const noexcept { return widgetsHeight_; }
  int getScrollOffset() const noexcept { return offset_; }
  void setScrollOffset(int offset);

  void resize(double width, double height) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  int handleMouseEvent(Event const& event) override;
  // Up and Down that the focused widget left alone take the keyboard to the
  // row above or below that has a widget to take it, scrolled into view.
  int handleKeyboardEvent(int key) override;

protected:
  // Takes a widget already in the view into the stack.
  void manage(Glob* widget);

private:
  // Drops managed widgets that were deleted behind our back.
  void forgetDeadWidgets();
  void fitViewToUserArea();
  // Puts each managed widget at its place for the present offset.
  void placeManagedWidgets();
  int maxOffset() const;
  // The managed row holding `widget`, or the end of the rows.
  std::vector<Glob*>::const_iterator rowOf(Glob const* widget) const;

  Glob* view_ = nullptr;
  ScrollBar* scrollBar_ = nullptr;
  std::vector<Glob*> managed_;
  int widgetsHeight_ = 0;
  int offset_ = 0;
};
