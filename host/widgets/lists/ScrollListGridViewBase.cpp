#include <zowidgets/host/widgets/lists/ScrollListGridViewBase.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/detail/FocusRing.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kSpaceKey = ' ';

// A group's heading: its title in the subheading colour over a rule.
class GridSeparator : public Glob {
public:
  GridSeparator(UIString title, XY<int> size) : Glob(GlobCreationInfo(size)), title_(std::move(title)) {}
  char const* idstring() const override { return "ScrollListGridSeparator"; }

protected:
  void drawBackground(CanvasRenderer&) override {}
  void draw(CanvasRenderer& renderer) override {
    Palette const& palette = getPalette();
    renderer.renderPrimitive(Glib::TextDescription(title_.getString(), Zo::Box<double>(0, 1, width(), height()),
                                                   UifStd::getSubheadingFont(), palette.subheadingText()));
    renderer.renderPrimitive(
        Glib::LineDescription(XY<double>(0, 0.5), XY<double>(width(), 0.5), 1.0, palette.window(3)));
  }

private:
  UIString title_;
};

// A row of items; as tall as its tallest item.
class GridRow : public Glob {
public:
  using Glob::Glob;
  char const* idstring() const override { return "ScrollListGridRow"; }

protected:
  void drawBackground(CanvasRenderer&) override {}
};

} // namespace

ScrollListGridViewBase::ItemWidgetBase::ItemWidgetBase(InitArgs const& args) : StandardPanel(args) {
  // Cells meet edge to edge unless given a border.
  if (!args.hasBorder)
    setBorder(Border());
}

void ScrollListGridViewBase::ItemWidgetBase::handleMouseContainment(bool inside) {
  mouseInside_ = inside;
  invalidate();
}

int ScrollListGridViewBase::ItemWidgetBase::react(Event const& event) {
  if (event.type == Event::kMouseEnter || event.type == Event::kMouseLeave)
    handleMouseContainment(event.type == Event::kMouseEnter);
  return StandardPanel::react(event);
}

int ScrollListGridViewBase::ItemWidgetBase::handleMouseEvent(Event const& event) {
  if (event.type == Event::kMouseDown && mouse_left_event(event) && grid_) {
    // The parent may rebuild the grid on the message, this item with it:
    // nothing of ours is touched after.
    grid_->handleItemPress(this);
    return 1;
  }
  return StandardPanel::handleMouseEvent(event);
}

void ScrollListGridViewBase::ItemWidgetBase::drawBackground(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  Colour ground = palette.window();
  if (selected_)
    ground = palette.selection();
  else if (mouseInside_)
    ground = palette.window(2);
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), ground));
}

void ScrollListGridViewBase::ItemWidgetBase::draw(CanvasRenderer& renderer) {
  StandardPanel::draw(renderer);
  if (!grid_ || grid_->keyboardItem() != index_ || !grid_->hasKbdFocus())
    return;
  Palette const& palette = getPalette();
  double const ring = FocusRing::width();
  Zo::Box<double> const edge(ring / 2, ring / 2, width() - ring / 2, height() - ring / 2);
  renderer.renderPrimitive(Glib::RoundedRectDescription(
      edge, ring, Colour::invalid(), FocusRing::colourOver(palette, selected_ ? palette.selection() : palette.window()),
      ring));
}

ScrollListGridViewBase::ScrollListGridViewBase(InitArgs const& args) : VerticalScrollingBase(args) { setCanBeIt(true); }

Glob* ScrollListGridViewBase::addSeparator(UIString const& title) {
  auto* separator = new GridSeparator(title, XY<int>(getView()->width(), UifStd::getRowHeight()));
  getView()->addChild(separator, TopLeft(0, 0));
  separators_.push_back(separator);
  manage(separator);
  recalcWidgetsHeight();
  return separator;
}

Glob* ScrollListGridViewBase::addRow() {
  auto* row = new GridRow(GlobCreationInfo(XY<int>(getView()->width(), 0)));
  getView()->addChild(row, TopLeft(0, 0));
  rows_.push_back(row);
  manage(row);
  return row;
}

void ScrollListGridViewBase::addItemWidget(ItemWidgetBase* item) {
  if (!item || rows_.empty())
    return;
  Glob* row = rows_.back();
  item->grid_ = this;
  item->index_ = static_cast<int>(items_.size());
  item->setCanBeIt(false);
  items_.push_back(item);
  itemRows_.push_back(static_cast<int>(rows_.size()) - 1);
  if (item->height() > row->height()) {
    row->resize(row->width(), item->height());
    recalcWidgetsHeight();
  }
}

ScrollListGridViewBase::ItemWidgetBase* ScrollListGridViewBase::getItem(int index) const {
  return index >= 0 && index < getItemCount() ? items_[index] : nullptr;
}

int ScrollListGridViewBase::itemsPerRow(int itemWidth) const {
  return itemWidth > 0 ? std::max(1, getView()->width() / itemWidth) : 1;
}

void ScrollListGridViewBase::setSelectedItem(int index) {
  if (index < -1 || index >= getItemCount())
    return;
  // Each change is painted as it is invalidated: the state changes first.
  int const keyedBefore = keyboardItem();
  if (ItemWidgetBase* old = getItem(selected_)) {
    old->selected_ = false;
    old->invalidate();
  }
  selected_ = index;
  if (index >= 0)
    selectedLast_ = index;
  if (ItemWidgetBase* item = getItem(index)) {
    item->selected_ = true;
    item->invalidate();
    revealWidget(rows_[itemRows_[index]]);
  }
  // The focus ring may move with the selection, to the first item or from it.
  if (keyedBefore != keyboardItem())
    for (int keyed : {keyedBefore, keyboardItem()})
      if (ItemWidgetBase* item = getItem(keyed))
        item->invalidate();
}

void ScrollListGridViewBase::handleItemPress(ItemWidgetBase* item) {
  claimKbdFocus();
  setSelectedItem(item->getItemIndex());
  sendMsg(kItemClickMsg);
}

int ScrollListGridViewBase::rowOf(int item) const { return item >= 0 && item < getItemCount() ? itemRows_[item] : -1; }

int ScrollListGridViewBase::nearestInRow(int row, int item) const {
  int const centre = items_[item]->getX() + items_[item]->width() / 2;
  int best = -1;
  int bestDistance = 0;
  for (int index = 0; index < getItemCount(); ++index) {
    if (itemRows_[index] != row)
      continue;
    int const distance = std::abs(items_[index]->getX() + items_[index]->width() / 2 - centre);
    if (best < 0 || distance < bestDistance) {
      best = index;
      bestDistance = distance;
    }
  }
  return best;
}

void ScrollListGridViewBase::moveSelection(int index) {
  if (getItemCount() == 0)
    return;
  setSelectedItem(std::clamp(index, 0, getItemCount() - 1));
}

int ScrollListGridViewBase::handleKeyboardEvent(int key) {
  int const bare = key & ~kKeyModifierMask;
  // Moves start from the item the ring is on, not from nothing.
  int const at = selected_ >= 0 ? selected_ : (selectedLast_ >= 0 ? keyboardItem() : -1);
  switch (bare) {
  case kKeyLeft:
    moveSelection(at < 0 ? 0 : at - 1);
    return 1;
  case kKeyRight:
    moveSelection(at + 1);
    return 1;
  case kKeyUp:
  case kKeyDown: {
    if (at < 0) {
      moveSelection(0);
      return 1;
    }
    int const step = bare == kKeyUp ? -1 : 1;
    // Rows without items (none today) are stepped over.
    for (int row = rowOf(at) + step; row >= 0 && row < getRowCount(); row += step)
      if (int const target = nearestInRow(row, at); target >= 0) {
        moveSelection(target);
        break;
      }
    return 1;
  }
  case kKeyHome:
    moveSelection(0);
    return 1;
  case kKeyEnd:
    moveSelection(getItemCount() - 1);
    return 1;
  case kKeyReturn:
  case kSpaceKey:
    if (keyboardItem() < 0)
      return 0;
    if (selected_ < 0)
      setSelectedItem(keyboardItem());
    sendMsg(kItemClickMsg);
    return 1;
  default:
    return VerticalScrollingBase::handleKeyboardEvent(key);
  }
}

int ScrollListGridViewBase::keyboardItem() const noexcept {
  if (selected_ >= 0)
    return selected_;
  if (selectedLast_ >= 0 && selectedLast_ < getItemCount())
    return selectedLast_;
  return items_.empty() ? -1 : 0;
}

void ScrollListGridViewBase::handleKbdFocus(bool gained) {
  VerticalScrollingBase::handleKbdFocus(gained);
  if (ItemWidgetBase* item = getItem(keyboardItem()))
    item->invalidate();
}

void ScrollListGridViewBase::forgetGridContents() {
  rows_.clear();
  items_.clear();
  separators_.clear();
  itemRows_.clear();
  selected_ = -1;
  selectedLast_ = -1;
}

void ScrollListGridViewBase::setEmptyText(UIString const& text) {
  emptyText_ = text;
  if (items_.empty())
    invalidate();
}

void ScrollListGridViewBase::draw(CanvasRenderer& renderer) {
  VerticalScrollingBase::draw(renderer);
  if (!items_.empty() || emptyText_.empty())
    return;
  Palette const& palette = getPalette();
  Zo::Box<int> const area = getUserArea();
  int const gap = UifStd::getWidgetGap();
  Glib::TextDescription text(emptyText_.getString(), Zo::Box<double>(area.x0 + gap, area.y0, area.x1 - gap, area.y1),
                             UifStd::getFont(), Palette::inactive(palette.text(), palette.window()),
                             Glib::eTextAlignment::Centre);
  text.verticalAlignment = Glib::eTextVerticalAlignment::Centre;
  text.wordWrap = true;
  renderer.renderPrimitive(text);
}
