#include <zowidgets/host/widgets/lists/ScrollList.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/host/widgets/panels/ScrollBar.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSpaceKey = ' ';
constexpr int kWheelLines = 3;

// The rows' window: it cuts rows at its edges and shows the list's ground
// where no row is.
class ScrollListView : public Glob {
public:
  using Glob::Glob;
  char const* idstring() const override { return "ScrollListView"; }

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()),
                                                   ScrollListItemWidget::lookFor(getPalette()).background));
  }
};

} // namespace

ScrollList::ScrollList(InitArgs const& args)
    : StandardPanel(args), strings_(args.strings), selected_(args.strings.size(), false), mode_(args.selectionMode),
      lineHeight_(args.lineHeight != 0 ? args.lineHeight : static_cast<unsigned short>(UifStd::getRowHeight())) {
  view_ = addChild(new ScrollListView(GlobCreationInfo()), UserTopLeft(0, 0));
  scrollBar_ = createChild<ScrollBar>(ScrollBar::InitArgs(), UserTopRight(0, 0));
  setCanBeIt(true);
  fitViewToUserArea();
  // Rows wait until they are first needed: a subclass's makeWidget is not
  // reachable from here.
}

// Rows go before the panel's own children are torn down, so that no row
// outlives the list it points back to.
ScrollList::~ScrollList() { dropAllRows(); }

int ScrollList::contentHeight() const { return size() * lineHeight_; }

int ScrollList::maxOffset() const { return std::max(contentHeight() - view_->height(), 0); }

void ScrollList::fitViewToUserArea() {
  Zo::Box<int> const area = getUserArea();
  bool const needsBar = contentHeight() > area.height();
  int const bar = ScrollBar::thickness();
  scrollBar_->resize(bar, area.height());
  scrollBar_->setVisible(needsBar);
  view_->resize(std::max(needsBar ? area.width() - bar : area.width(), 0), area.height());
  scrollBar_->setThumbSize(contentHeight() > 0 ? std::min(1.0, static_cast<double>(view_->height()) / contentHeight())
                                               : 1.0);
}

void ScrollList::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (!view_)
    return;
  fitViewToUserArea();
  setScrollOffset(offset_);
}

void ScrollList::setStrings(std::vector<LightweightString<wchar_t>> const& strings) {
  dropAllRows();
  strings_ = strings;
  selected_.assign(strings_.size(), false);
  selectedCount_ = 0;
  current_ = anchor_ = -1;
  offset_ = 0;
  fitViewToUserArea();
  setScrollOffset(0);
}

void ScrollList::setLineHeight(unsigned short height) {
  if (height == 0 || height == lineHeight_)
    return;
  int const topLine = lineHeight_ > 0 ? offset_ / lineHeight_ : 0;
  dropAllRows();
  lineHeight_ = height;
  fitViewToUserArea();
  setScrollOffset(topLine * lineHeight_);
}

void ScrollList::setSelectionMode(int mode) {
  mode_ = mode;
  if (mode_ == kSingleSelection && selectedCount_ > 1)
    setSelectedIndex(getSelectedIndex());
}

int ScrollList::getSelectedIndex() const {
  if (isSelected(current_))
    return current_;
  for (int index = 0; index < size() && selectedCount_ > 0; ++index)
    if (selected_[index])
      return index;
  return -1;
}

std::vector<int> ScrollList::getSelectedIndices() const {
  std::vector<int> indices;
  indices.reserve(selectedCount_);
  for (int index = 0; index < size() && static_cast<int>(indices.size()) < selectedCount_; ++index)
    if (selected_[index])
      indices.push_back(index);
  return indices;
}

bool ScrollList::isSelected(int index) const { return index >= 0 && index < size() && selected_[index]; }

void ScrollList::setSelected(int index, bool selected) {
  if (index < 0 || index >= size() || selected_[index] == selected)
    return;
  if (selected && mode_ == kSingleSelection) {
    setSelectedIndex(index);
    return;
  }
  selected_[index] = selected;
  selectedCount_ += selected ? 1 : -1;
  refreshRowLooks(index, index);
}

void ScrollList::setSelectedIndex(int index) {
  clearSelection();
  if (index < 0 || index >= size())
    return;
  selected_[index] = true;
  selectedCount_ = 1;
  anchor_ = index;
  setCurrent(index);
  refreshRowLooks(index, index);
}

void ScrollList::clearSelection() {
  if (selectedCount_ == 0)
    return;
  std::fill(selected_.begin(), selected_.end(), false);
  selectedCount_ = 0;
  refreshRowLooks(0, size() - 1);
}

void ScrollList::selectAll() {
  if (mode_ != kMultipleSelection || size() == 0)
    return;
  std::fill(selected_.begin(), selected_.end(), true);
  selectedCount_ = size();
  refreshRowLooks(0, size() - 1);
}

void ScrollList::selectRange(int from, int to) {
  if (from > to)
    std::swap(from, to);
  std::fill(selected_.begin(), selected_.end(), false);
  for (int index = from; index <= to; ++index)
    selected_[index] = true;
  selectedCount_ = to - from + 1;
  refreshRowLooks(0, size() - 1);
}

void ScrollList::setCurrent(int index) {
  int const old = current_;
  current_ = index;
  refreshRowLooks(old, old);
  refreshRowLooks(index, index);
}

void ScrollList::refreshRowLooks(int from, int to) {
  for (auto& [index, row] : rows_)
    if (index >= from && index <= to) {
      row->setSelected(isSelected(index));
      row->setCurrent(index == current_ && hasKbdFocus());
    }
}

void ScrollList::setScrollOffset(int offset) {
  offset_ = std::clamp(offset, 0, maxOffset());
  int const range = maxOffset();
  scrollBar_->setThumbPosition(range > 0 ? static_cast<double>(offset_) / range : 0.0);
  syncRows();
}

void ScrollList::scrollToShow(int index) {
  if (index < 0 || index >= size())
    return;
  int const top = index * lineHeight_;
  int const bottom = top + lineHeight_;
  if (top < offset_)
    setScrollOffset(top);
  else if (bottom > offset_ + view_->height())
    setScrollOffset(bottom - view_->height());
}

int ScrollList::getFirstVisibleIndex() const {
  if (size() == 0 || view_->height() <= 0)
    return -1;
  return std::min(offset_ / lineHeight_, size() - 1);
}

int ScrollList::getLastVisibleIndex() const {
  if (size() == 0 || view_->height() <= 0)
    return -1;
  return std::min((offset_ + view_->height() - 1) / lineHeight_, size() - 1);
}

int ScrollList::linesPerPage() const { return std::max(1, view_->height() / lineHeight_); }

Zo::Box<int> ScrollList::getVisibleBox() const { return view_->canvasBox(); }

void ScrollList::ensureRows() const {
  if (rowsPending_)
    const_cast<ScrollList*>(this)->syncRows();
}

int ScrollList::liveRowCount() const {
  ensureRows();
  return static_cast<int>(rows_.size());
}

ScrollListItemWidget* ScrollList::getRowWidget(int index) const {
  ensureRows();
  auto found = rows_.find(index);
  return found == rows_.end() ? nullptr : found->second;
}

int ScrollList::indexAt(XY<int> point) const {
  XY<int> const inView(point.x - view_->getX(), point.y - view_->getY());
  if (inView.x < 0 || inView.x >= view_->width() || inView.y < 0 || inView.y >= view_->height())
    return -1;
  int const fromTop = view_->height() - 1 - inView.y + offset_;
  int const index = fromTop / lineHeight_;
  return index < size() ? index : -1;
}

void ScrollList::dropAllRows() {
  for (auto& [index, row] : rows_)
    view_->removeWidget(row);
  rows_.clear();
}

void ScrollList::syncRows() {
  rowsPending_ = false;
  int const first = getFirstVisibleIndex();
  int const last = getLastVisibleIndex();
  for (auto row = rows_.begin(); row != rows_.end();)
    if (row->first < first || row->first > last) {
      view_->removeWidget(row->second);
      row = rows_.erase(row);
    } else {
      ++row;
    }
  int const width = view_->width();
  for (int index = first; index >= 0 && index <= last; ++index) {
    ScrollListItemWidget*& row = rows_[index];
    if (!row) {
      row = makeWidget(static_cast<unsigned short>(std::min(index, 0xFFFF)), strings_[index], getPalette(),
                       static_cast<unsigned short>(width), lineHeight_);
      row->setIndex(index);
      row->setCanBeIt(false);
      view_->addWidget(row);
      row->setSelected(isSelected(index), kNoRedraw);
      row->setCurrent(index == current_ && hasKbdFocus(), kNoRedraw);
    }
    row->resize(width, lineHeight_);
    row->setPosition(XY<int>(0, view_->height() - (index + 1) * lineHeight_ + offset_));
  }
  view_->invalidate();
}

ScrollListItemWidget* ScrollList::makeWidget(unsigned short index, LightweightString<wchar_t> const& text,
                                             Palette const& palette, unsigned short width, unsigned short height) {
  auto* row = new ScrollListItemWidget(ScrollListItemWidget::InitArgs(index, UIString(text), XY<int>(width, height)));
  row->setPalette(palette);
  return row;
}

void ScrollList::reportSelectionChanged() {
  broadcast(ScrollListEvent{ScrollListEvent::kSelectionChanged, this, current_});
  sendMsg(kSelectionChangedMsg);
}

void ScrollList::activate(int index) {
  broadcast(ScrollListEvent{ScrollListEvent::kItemActivated, this, index});
  sendMsg(kItemActivatedMsg);
}

void ScrollList::handleRowPress(int index, int modifiers, int clicks) {
  if (index < 0 || index >= size())
    return;
  claimKbdFocus();
  bool const multiple = mode_ == kMultipleSelection;
  if (multiple && (modifiers & kKeyShift) && anchor_ >= 0) {
    selectRange(anchor_, index);
  } else if (multiple && (modifiers & kKeyCtrl)) {
    setSelected(index, !isSelected(index));
    anchor_ = index;
  } else {
    setSelectedIndex(index);
  }
  setCurrent(index);
  scrollToShow(index);
  reportSelectionChanged();
  if (clicks >= 2)
    activate(index);
}

void ScrollList::moveCursor(int index, int modifiers) {
  if (size() == 0)
    return;
  index = std::clamp(index, 0, size() - 1);
  bool const multiple = mode_ == kMultipleSelection;
  if (multiple && (modifiers & kKeyCtrl)) {
    setCurrent(index);
    scrollToShow(index);
    return;
  }
  if (multiple && (modifiers & kKeyShift)) {
    if (anchor_ < 0)
      anchor_ = current_ >= 0 ? current_ : index;
    selectRange(anchor_, index);
  } else {
    setSelectedIndex(index);
  }
  setCurrent(index);
  scrollToShow(index);
  reportSelectionChanged();
}

int ScrollList::handleKeyboardEvent(int key) {
  int const bare = key & ~kKeyModifierMask;
  int const modifiers = key & kKeyModifierMask;
  int const from = current_ >= 0 ? current_ : -1;
  switch (bare) {
  case kKeyUp:
    moveCursor(from < 0 ? 0 : from - 1, modifiers);
    return 1;
  case kKeyDown:
    moveCursor(from + 1, modifiers);
    return 1;
  case kKeyPageUp:
    moveCursor(from < 0 ? 0 : from - (linesPerPage() - 1), modifiers);
    return 1;
  case kKeyPageDown:
    moveCursor(from + std::max(1, linesPerPage() - 1), modifiers);
    return 1;
  case kKeyHome:
    moveCursor(0, modifiers);
    return 1;
  case kKeyEnd:
    moveCursor(size() - 1, modifiers);
    return 1;
  case kKeyReturn:
    if (current_ < 0)
      return 0;
    activate(current_);
    return 1;
  case kSpaceKey:
    if (current_ < 0)
      return 0;
    if (mode_ == kMultipleSelection && (modifiers & kKeyCtrl)) {
      setSelected(current_, !isSelected(current_));
      anchor_ = current_;
    } else {
      setSelectedIndex(current_);
    }
    reportSelectionChanged();
    return 1;
  case 'a':
  case 'A':
    if (mode_ != kMultipleSelection || !(modifiers & kKeyCtrl))
      return 0;
    selectAll();
    reportSelectionChanged();
    return 1;
  default:
    return StandardPanel::handleKeyboardEvent(key);
  }
}

int ScrollList::handleMouseEvent(Event const& event) {
  if (event.type == Event::kMouseWheel && event.wheel != 0) {
    setScrollOffset(offset_ - event.wheel * kWheelLines * lineHeight_);
    return 1;
  }
  if (event.type == Event::kMouseDown && mouse_left_event(event)) {
    // A press below the last line still takes the focus.
    claimKbdFocus();
    int const index = indexAt(event.position);
    if (index >= 0)
      handleRowPress(index, event.modifiers, event.clicks);
    return 1;
  }
  return StandardPanel::handleMouseEvent(event);
}

int ScrollList::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (sender != scrollBar_)
    return StandardPanel::handleMessageEvent(message, sender);
  if (message == ScrollBar::thumbMovedMsg)
    setScrollOffset(static_cast<int>(std::lround(scrollBar_->getThumbPosition() * maxOffset())));
  else if (message == ScrollBar::leftButtonPressedMsg)
    setScrollOffset(offset_ - lineHeight_);
  else if (message == ScrollBar::rightButtonPressedMsg)
    setScrollOffset(offset_ + lineHeight_);
  else
    return 0;
  return 1;
}

void ScrollList::draw(CanvasRenderer& renderer) {
  ensureRows();
  StandardPanel::draw(renderer);
}

void ScrollList::handleKbdFocus(bool gained) {
  StandardPanel::handleKbdFocus(gained);
  refreshRowLooks(current_, current_);
}
