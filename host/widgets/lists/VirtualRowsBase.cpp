#include <zowidgets/host/widgets/lists/VirtualRowsBase.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <algorithm>

namespace {

constexpr int kWheelRows = 3;

// The rows' window: it cuts rows at its edges and shows the rows' ground
// where no row is.
class RowsView : public Glob {
public:
  explicit RowsView(GlobCreationInfo const& info) : Glob(info) { setPaintsOpaquely(true); }
  char const* idstring() const override { return "RowsView"; }

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()),
                                                   ScrollListItemWidget::lookFor(getPalette()).background));
  }
};

} // namespace

VirtualRowsBase::VirtualRowsBase(InitArgs const& args, int rowHeight)
    : StandardPanel(args), rowHeight_(std::max(rowHeight, 1)) {
  // The panel's own background fills it, so what lies behind never shows.
  setPaintsOpaquely(true);
  view_ = addChild(new RowsView(GlobCreationInfo()), UserTopLeft(0, 0));
  scrollBar_ = createChild<ScrollBar>(ScrollBar::InitArgs(), UserTopRight(0, 0));
  setCanBeIt(true);
  // Rows and the bar's fit wait until first needed: a subclass's rowCount
  // and makeRow are not reachable from here.
}

// Rows go before the panel's own children are torn down, so that no row
// outlives the panel it may point back to.
VirtualRowsBase::~VirtualRowsBase() { dropAllRows(); }

int VirtualRowsBase::contentHeight() const { return offsets_.total(); }

void VirtualRowsBase::measureRows() { measureRowHeights(offsets_); }

RowOffsets const& VirtualRowsBase::getRowOffsets() const {
  ensureRows();
  return offsets_;
}

int VirtualRowsBase::maxOffset() const { return std::max(contentHeight() - view_->height(), 0); }

void VirtualRowsBase::fitViewToUserArea() {
  fitPending_ = false;
  measureRows();
  Zo::Box<int> const area = getUserArea();
  // The first screen's heights decide whether the bar shows.
  offsets_.indexAt(area.height());
  int const content = contentHeight();
  bool const needsBar = scrollBarAllowed_ && content > area.height();
  int const bar = ScrollBar::thickness();
  scrollBar_->resize(bar, area.height());
  scrollBar_->setVisible(needsBar);
  view_->resize(std::max(needsBar ? area.width() - bar : area.width(), 0), area.height());
  showScrollPosition();
}

void VirtualRowsBase::showScrollPosition() {
  int const content = contentHeight();
  scrollBar_->setThumbSize(content > 0 ? std::min(1.0, static_cast<double>(view_->height()) / content) : 1.0);
  int const range = maxOffset();
  scrollBar_->setThumbPosition(range > 0 ? static_cast<double>(offset_) / range : 0.0);
}

void VirtualRowsBase::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (!view_ || rowsPending_)
    return;
  // Rows in sight stay and take the new width; others come and go.
  fitViewToUserArea();
  setScrollOffset(offset_);
}

void VirtualRowsBase::setScrollBarAllowed(bool allowed) {
  if (allowed == scrollBarAllowed_)
    return;
  scrollBarAllowed_ = allowed;
  rowsChanged();
}

void VirtualRowsBase::rowsChanged() {
  Drawable::Suspender const oneRepaint;
  dropAllRows();
  fitViewToUserArea();
  setScrollOffset(offset_);
}

void VirtualRowsBase::changeRowHeight(int height) {
  height = std::max(height, 1);
  if (height == rowHeight_)
    return;
  Drawable::Suspender const oneRepaint;
  int const topRow = offsets_.indexAt(offset_);
  dropAllRows();
  rowHeight_ = height;
  fitViewToUserArea();
  setScrollOffset(offsets_.top(topRow));
}

void VirtualRowsBase::refitView() {
  Drawable::Suspender const oneRepaint;
  fitViewToUserArea();
  setScrollOffset(offset_);
}

void VirtualRowsBase::setScrollOffset(int offset) {
  // Rows leave, arrive and move: one paint for all of it.
  Drawable::Suspender const oneRepaint;
  if (fitPending_)
    fitViewToUserArea();
  // The end is only known once every row has been asked.
  if (offset >= maxOffset())
    offsets_.measureAll();
  // Placing rows may ask heights not asked before, which corrects the
  // total: place them again if the end moved under the offset.
  for (int pass = 0; pass < 2; ++pass) {
    int const total = contentHeight();
    offset_ = std::clamp(offset, 0, maxOffset());
    syncRows();
    if (contentHeight() == total)
      break;
  }
  showScrollPosition();
}

void VirtualRowsBase::scrollToShow(int index) {
  if (index < 0 || index >= rowCount())
    return;
  ensureRows();
  int const top = offsets_.top(index);
  int const bottom = top + offsets_.heightOf(index);
  if (top < offset_)
    setScrollOffset(top);
  else if (bottom > offset_ + view_->height())
    setScrollOffset(bottom - view_->height());
}

int VirtualRowsBase::getFirstVisibleIndex() const {
  ensureRows();
  if (rowCount() == 0 || view_->height() <= 0)
    return -1;
  return offsets_.indexAt(offset_);
}

int VirtualRowsBase::getLastVisibleIndex() const {
  ensureRows();
  if (rowCount() == 0 || view_->height() <= 0)
    return -1;
  return offsets_.indexAt(offset_ + view_->height() - 1);
}

int VirtualRowsBase::linesPerPage() const {
  ensureRows();
  return std::max(1, view_->height() / rowHeight_);
}

Zo::Box<int> VirtualRowsBase::getVisibleBox() const {
  ensureRows();
  return view_->canvasBox();
}

void VirtualRowsBase::ensureRows() const {
  if (rowsPending_)
    const_cast<VirtualRowsBase*>(this)->setScrollOffset(offset_);
}

int VirtualRowsBase::liveRowCount() const {
  ensureRows();
  return static_cast<int>(rows_.size());
}

Glob* VirtualRowsBase::getRowGlob(int index) const {
  ensureRows();
  auto found = rows_.find(index);
  return found == rows_.end() ? nullptr : found->second;
}

int VirtualRowsBase::rowIndexAt(XY<int> point) const {
  ensureRows();
  XY<int> const inView(point.x - view_->getX(), point.y - view_->getY());
  if (inView.x < 0 || inView.x >= view_->width() || inView.y < 0 || inView.y >= view_->height())
    return -1;
  int const y = view_->height() - 1 - inView.y + offset_;
  return y < contentHeight() ? offsets_.indexAt(y) : -1;
}

void VirtualRowsBase::dropAllRows() {
  for (auto& [index, row] : rows_)
    view_->removeWidget(row);
  rows_.clear();
  rowsPending_ = true;
  fitPending_ = true;
}

void VirtualRowsBase::syncRows() {
  rowsPending_ = false;
  int const count = offsets_.count();
  int const first = count == 0 || view_->height() <= 0 ? -1 : offsets_.indexAt(offset_);
  int const last = first < 0 ? -2 : offsets_.indexAt(offset_ + view_->height() - 1);
  for (auto row = rows_.begin(); row != rows_.end();)
    if (row->first < first || row->first > last) {
      view_->removeWidget(row->second);
      row = rows_.erase(row);
    } else {
      ++row;
    }
  int const width = view_->width();
  for (int index = std::max(first, 0); index <= last; ++index) {
    int const height = offsets_.heightOf(index);
    Glob*& row = rows_[index];
    if (!row) {
      row = makeRow(index, width, height);
      view_->addWidget(row);
      updateRow(index, row);
    }
    row->resize(width, height);
    row->setPosition(XY<int>(0, view_->height() - offsets_.top(index) - height + offset_));
  }
  view_->invalidate();
  rowsPlaced();
}

void VirtualRowsBase::refreshRows(int from, int to) {
  for (auto& [index, row] : rows_)
    if (index >= from && index <= to)
      updateRow(index, row);
}

void VirtualRowsBase::draw(CanvasRenderer& renderer) {
  ensureRows();
  StandardPanel::draw(renderer);
}

int VirtualRowsBase::handleMouseEvent(Event const& event) {
  if (event.type == Event::kMouseWheel && event.wheel != 0) {
    setScrollOffset(offset_ - event.wheel * kWheelRows * rowHeight_);
    return 1;
  }
  return StandardPanel::handleMouseEvent(event);
}

int VirtualRowsBase::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (sender != scrollBar_)
    return StandardPanel::handleMessageEvent(message, sender);
  int requested = 0;
  if (!scrollBar_->requestedOffset(message, offset_, rowHeight_, maxOffset(), requested))
    return 0;
  setScrollOffset(requested);
  return 1;
}
