#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>

#include <zowidgets/host/toolkit/FocusReveal.h>
#include <zowidgets/host/toolkit/TabOrderManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <algorithm>
#include <vector>

namespace {
// The view draws nothing of its own: the panel shows through between rows.
// A row that changes its height (options rebuilt for another format, say)
// has the rows restacked under it.
class ScrollingView : public Glob {
public:
  using Glob::Glob;
  char const* idstring() const override { return "ScrollingView"; }
  void handleChildResize(Glob* child) override {
    Glob::handleChildResize(child);
    if (auto* owner = dynamic_cast<VerticalScrollingBase*>(parent()))
      owner->recalcWidgetsHeight();
  }

protected:
  void drawBackground(CanvasRenderer&) override {}
};

// Tab into a row out of sight scrolls it into view, in every scrolling
// panel around the widget given the keyboard.
void revealFocusedRow(Glob& focus) {
  for (Glob* row = &focus; row->parent(); row = row->parent())
    if (auto* scroller = dynamic_cast<VerticalScrollingBase*>(row->parent()->parent()))
      scroller->revealWidget(row); // nothing unless it is one of its rows
}

[[maybe_unused]] bool const revealerAdded = (addFocusRevealer(&revealFocusedRow), true);

// A step of the wheel or the bar's buttons: the rows' pitch, a row and the
// gap after it, so rows a row high come and go whole.
int rowPitch() { return UifStd::getRowHeight() + UifStd::getRowGap(); }

} // namespace

VerticalScrollingBase::VerticalScrollingBase(InitArgs const& args) : StandardPanel(args) {
  view_ = addChild(new ScrollingView(GlobCreationInfo()), UserTopLeft(0, 0));
  scrollBar_ = createChild<ScrollBar>(ScrollBar::InitArgs(), UserTopRight(0, 0));
  fitViewToUserArea();
}

void VerticalScrollingBase::fitViewToUserArea() {
  Zo::Box<int> const area = getUserArea();
  int const bar = ScrollBar::thickness();
  scrollBar_->resize(bar, area.height());
  view_->resize(std::max(area.width() - bar - UifStd::getWidgetGap(), 0), area.height());
}

void VerticalScrollingBase::manage(Glob* widget) { managed_.push_back(widget); }

int VerticalScrollingBase::maxOffset() const { return std::max(widgetsHeight_ - view_->height(), 0); }

void VerticalScrollingBase::forgetDeadWidgets() {
  std::erase_if(managed_, [this](Glob* widget) { return !view_->isChildGlob(widget); });
}

void VerticalScrollingBase::recalcWidgetsHeight() {
  forgetDeadWidgets();
  int height = 0;
  int shown = 0;
  for (Glob* widget : managed_)
    if (widget->isVisible()) {
      height += widget->height();
      ++shown;
    }
  widgetsHeight_ = height + std::max(shown - 1, 0) * UifStd::getRowGap();
  scrollBar_->setThumbSize(widgetsHeight_ > 0 ? static_cast<double>(view_->height()) / widgetsHeight_ : 1.0);
  setScrollOffset(offset_);
  placeManagedWidgets();
}

void VerticalScrollingBase::placeManagedWidgets() {
  forgetDeadWidgets();
  int top = view_->height() + offset_;
  for (Glob* widget : managed_) {
    if (!widget->isVisible())
      continue;
    widget->setPosition(XY<int>(0, top - widget->height()));
    top -= widget->height() + UifStd::getRowGap();
  }
  view_->invalidate();
}

void VerticalScrollingBase::setScrollOffset(int offset) {
  offset_ = std::clamp(offset, 0, maxOffset());
  int const range = maxOffset();
  scrollBar_->setThumbPosition(range > 0 ? static_cast<double>(offset_) / range : 0.0);
  placeManagedWidgets();
}

void VerticalScrollingBase::resetView() { setScrollOffset(0); }

void VerticalScrollingBase::revealWidget(Glob* widget) {
  if (std::find(managed_.begin(), managed_.end(), widget) == managed_.end() || !widget->isVisible())
    return;
  // The widget's span, measured down from the top of the rows.
  int const top = view_->height() + offset_ - (widget->getY() + widget->height());
  int const bottom = top + widget->height();
  if (top < offset_)
    setScrollOffset(top);
  else if (bottom > offset_ + view_->height())
    setScrollOffset(bottom - view_->height());
}

void VerticalScrollingBase::unmanageAllWidgets(bool destroy) {
  std::vector<Glob*> const widgets = std::move(managed_);
  managed_.clear();
  if (destroy)
    for (Glob* widget : widgets)
      view_->removeWidget(widget);
  widgetsHeight_ = 0;
  recalcWidgetsHeight();
}

void VerticalScrollingBase::resize(double width, double height) {
  int const viewWidth = view_->width();
  StandardPanel::resize(width, height);
  fitViewToUserArea();
  // Rows made as wide as the view stay so, as a window is widened.
  forgetDeadWidgets();
  if (view_->width() != viewWidth)
    for (Glob* widget : managed_)
      if (widget->width() == viewWidth)
        widget->resize(view_->width(), widget->height());
  recalcWidgetsHeight();
}

int VerticalScrollingBase::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (sender != scrollBar_)
    return StandardPanel::handleMessageEvent(message, sender);
  int const step = rowPitch();
  int requested = 0;
  if (!scrollBar_->requestedOffset(message, offset_, step, maxOffset(), requested))
    return 0;
  setScrollOffset(requested);
  return 1;
}

std::vector<Glob*>::const_iterator VerticalScrollingBase::rowOf(Glob const* widget) const {
  while (widget && widget->parent() != view_)
    widget = widget->parent();
  return std::find(managed_.begin(), managed_.end(), widget);
}

int VerticalScrollingBase::handleKeyboardEvent(int key) {
  bool const up = key == kKeyUp || key == kKeyHome;
  if (!up && key != kKeyDown && key != kKeyEnd)
    return StandardPanel::handleKeyboardEvent(key);
  forgetDeadWidgets();
  auto const row = rowOf(get_kbd_focus());
  if (row == managed_.end())
    return StandardPanel::handleKeyboardEvent(key);
  std::ptrdiff_t const count = static_cast<std::ptrdiff_t>(managed_.size());
  // Home and End look from the far end inwards; Up and Down from the row
  // beside the focused one outwards.
  bool const toEnd = key == kKeyHome || key == kKeyEnd;
  std::ptrdiff_t const at = row - managed_.begin();
  std::ptrdiff_t const first = toEnd ? (up ? 0 : count - 1) : (up ? at - 1 : at + 1);
  // Entered as Tab enters a window: by the row's own order, and scrolled
  // into view by the focus revealer.
  for (std::ptrdiff_t next = first; next >= 0 && next < count && (!toEnd || next != at); next += toEnd == up ? 1 : -1)
    if (TabOrderManager::enterWindow(*managed_[static_cast<std::size_t>(next)], true))
      return 1;
  return 1; // at the first or last row: the keys stay here
}

int VerticalScrollingBase::handleMouseEvent(Event const& event) {
  if (event.type != Event::kMouseWheel || event.wheel == 0)
    return StandardPanel::handleMouseEvent(event);
  setScrollOffset(offset_ - event.wheel * rowPitch());
  return 1;
}
