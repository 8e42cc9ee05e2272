#include <zowidgets/host/widgets/lists/ScrollList.h>

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>

#include <algorithm>

namespace {
constexpr int kSpaceKey = ' ';
} // namespace

ScrollList::ScrollList(InitArgs const& args)
    : VirtualRowsBase(args, args.lineHeight != 0 ? args.lineHeight : UifStd::getRowHeight()), strings_(args.strings),
      selected_(args.strings.size(), false), mode_(args.selectionMode) {}

void ScrollList::setStrings(std::vector<LightweightString<wchar_t>> const& strings) {
  strings_ = strings;
  selected_.assign(strings_.size(), false);
  selectedCount_ = 0;
  current_ = anchor_ = -1;
  setScrollOffset(0);
  rowsChanged();
}

void ScrollList::setLineHeight(unsigned short height) {
  if (height != 0)
    changeRowHeight(height);
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
  refreshRows(index, index);
}

void ScrollList::setSelectedIndex(int index) {
  clearSelection();
  if (index < 0 || index >= size())
    return;
  selected_[index] = true;
  selectedCount_ = 1;
  anchor_ = index;
  setCurrent(index);
  refreshRows(index, index);
}

void ScrollList::clearSelection() {
  if (selectedCount_ == 0)
    return;
  std::fill(selected_.begin(), selected_.end(), false);
  selectedCount_ = 0;
  refreshRows(0, size() - 1);
}

void ScrollList::selectAll() {
  if (mode_ != kMultipleSelection || size() == 0)
    return;
  std::fill(selected_.begin(), selected_.end(), true);
  selectedCount_ = size();
  refreshRows(0, size() - 1);
}

void ScrollList::selectRange(int from, int to) {
  if (from > to)
    std::swap(from, to);
  std::fill(selected_.begin(), selected_.end(), false);
  for (int index = from; index <= to; ++index)
    selected_[index] = true;
  selectedCount_ = to - from + 1;
  refreshRows(0, size() - 1);
}

namespace {

// The item the keys act on wears the ring; with none current yet, the first
// item, where Down and Home go, so that a list entered by Tab shows that it
// has the keyboard.
int ringedIndex(int current, int size) { return current >= 0 ? current : (size > 0 ? 0 : -1); }

} // namespace

void ScrollList::setCurrent(int index) {
  int const old = ringedIndex(current_, size());
  current_ = index;
  refreshRows(old, old);
  refreshRows(index, index);
}

ScrollListItemWidget* ScrollList::getRowWidget(int index) const {
  return static_cast<ScrollListItemWidget*>(getRowGlob(index));
}

Glob* ScrollList::makeRow(int index, int width, int height) {
  ScrollListItemWidget* row =
      makeWidget(static_cast<unsigned short>(std::min(index, 0xFFFF)), strings_[index], getPalette(),
                 static_cast<unsigned short>(width), static_cast<unsigned short>(height));
  row->setIndex(index);
  row->setCanBeIt(false);
  return row;
}

void ScrollList::updateRow(int index, Glob* row) {
  auto* item = static_cast<ScrollListItemWidget*>(row);
  item->setSelected(isSelected(index));
  item->setCurrent(index == ringedIndex(current_, size()) && hasKbdFocus());
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
    return VirtualRowsBase::handleKeyboardEvent(key);
  }
}

int ScrollList::handleMouseEvent(Event const& event) {
  if (event.type == Event::kMouseDown && mouse_left_event(event)) {
    // A press below the last line still takes the focus.
    claimKbdFocus();
    int const index = rowIndexAt(event.position);
    if (index >= 0)
      handleRowPress(index, event.modifiers, event.clicks);
    return 1;
  }
  return VirtualRowsBase::handleMouseEvent(event);
}

void ScrollList::handleKbdFocus(bool gained) {
  VirtualRowsBase::handleKbdFocus(gained);
  refreshRows(ringedIndex(current_, size()), ringedIndex(current_, size()));
}
