#include <zowidgets/containers/PageIndexWidget.h>

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <string>

namespace {

StandardPanel::InitArgs withDefaults(PageIndexWidget::InitArgs const& args) {
  StandardPanel::InitArgs made(args);
  if (made.size.y == 0)
    made.size.y = UifStd::getRowHeight();
  if (made.size.x == 0)
    made.size.x = PageIndexWidget::calcWidth(args.currentPage, args.pageCount, args.maxButtons);
  if (!made.hasBorder)
    made.setBorder(Border());
  return made;
}

unsigned short shownFor(unsigned short count, unsigned char maxButtons) {
  return std::min<unsigned short>(count, maxButtons);
}

// The first number of the run the widget shows: never one that would put a
// number past the last page.
unsigned short firstShown(unsigned short current, unsigned short count, unsigned char maxButtons) {
  return std::min<unsigned short>(PageIndexWidget::calcFirstPageIndex(current, count, maxButtons),
                                  count - shownFor(count, maxButtons));
}

} // namespace

PageIndexWidget::PageIndexWidget(InitArgs const& args)
    : StandardPanel(withDefaults(args)), Broadcaster<PageIndexWidgetEvent>(args.callback),
      maxButtons_(std::max<unsigned char>(args.maxButtons, 1)) {
  int const row = UifStd::getRowHeight();
  // Made first, so that the arrows lie over the label and the number host.
  TextLabel::InitArgs label(XY<int>(width(), row));
  label.alignment = Glib::eTextAlignment::Centre;
  emptyLabel_ = createWidget<TextLabel>(label, LeftCentre(0, 0));
  StandardPanel::InitArgs host(XY<int>(calcWidthInternal(0, 0), height()));
  host.setBorder(Border());
  numberHost_ = createWidget<WidgetHost>(host, Centre(0, 0));
  prev_ = createWidget<Button>(Button::InitArgs(UIString(L"<"), XY<int>(row, row)), BottomLeft(0, 0));
  next_ = createWidget<Button>(Button::InitArgs(UIString(L">"), XY<int>(row, row)), BottomRight(0, 0));
  prev_->setName("prev");
  next_->setName("next");
  prev_->setCallback(Broadcaster<ButtonEvent>::makeCallback(this, &PageIndexWidget::handlePrevClick));
  next_->setCallback(Broadcaster<ButtonEvent>::makeCallback(this, &PageIndexWidget::handleNextClick));
  setPagesInternal(std::min<unsigned short>(args.currentPage, args.pageCount - 1), args.pageCount);
  relayout();
}

unsigned short PageIndexWidget::calcFirstPageIndex(unsigned short current, unsigned short count,
                                                   unsigned char maxButtons) {
  unsigned const half = maxButtons / 2u;
  unsigned const start = half >= current ? 0u : current - half;
  // A run as long as the whole count is not pulled back from the end.
  if (maxButtons >= count || start + maxButtons <= count)
    return static_cast<unsigned short>(start);
  return static_cast<unsigned short>(count - maxButtons);
}

int PageIndexWidget::calcButtonWidth(unsigned short page) {
  // Single-digit pages take the width of "10", so the first pages' buttons
  // do not differ in size.
  std::wstring const text = std::to_wstring(std::max(page + 1, 10));
  return UifStd::measure(UIString(LightweightString<wchar_t>(text))).x + UifStd::getRowHeight() / 2;
}

int PageIndexWidget::calcWidthInternal(unsigned short first, unsigned short shown) {
  int width = 2 * UifStd::getRowHeight();
  for (unsigned page = first; page < unsigned(first) + shown; ++page)
    width += calcButtonWidth(static_cast<unsigned short>(page));
  return width;
}

int PageIndexWidget::calcWidth(unsigned short current, unsigned short count, unsigned char maxButtons) {
  return calcWidthInternal(firstShown(current, count, maxButtons), shownFor(count, maxButtons));
}

void PageIndexWidget::setPages(unsigned short current, unsigned short count) {
  // With no pages count - 1 is the largest page number, which limits nothing.
  current = std::min<unsigned short>(current, count - 1);
  if (current == current_ && count == count_)
    return;
  if (setPagesInternal(current, count))
    relayout();
  else
    updatePrevAndNextButtons(kRedrawNow);
}

void PageIndexWidget::relayout() {
  Drawable::Suspender holdRedraws;
  updatePrevAndNextButtons(kNoRedraw);
  emptyLabel_->setVisible(count_ == 0);
  numberHost_->setVisible(count_ != 0);
  // The arrows' places and the numbers as they were made, not measured again.
  int numbersWidth = 2 * UifStd::getRowHeight();
  for (Button const* number : numbers_)
    numbersWidth += number->width();
  numberHost_->resize(numbersWidth, height());
  layoutChildren();
  invalidate();
}

bool PageIndexWidget::setPagesInternal(unsigned short current, unsigned short count) {
  unsigned short const shown = shownFor(count, maxButtons_);
  unsigned short const first = firstShown(current, count, maxButtons_);
  count_ = count;
  if (first == first_ && shown == numbers_.size()) {
    setCurrentPage(current);
    return false;
  }
  first_ = first;
  current_ = current;
  makeNumberButtons();
  return true;
}

void PageIndexWidget::makeNumberButtons() {
  // A number's own click may have brought us here: the old buttons leave
  // the tree now and are deleted once that click is done.
  for (Button* old : numbers_) {
    numberHost_->releaseChild(old);
    GlobManager::requestDeletion(old);
  }
  numbers_.clear();
  int const row = UifStd::getRowHeight();
  int x = row; // the numbers lie between the arrows' places
  for (unsigned short shown = shownFor(count_, maxButtons_), i = 0; i < shown; ++i) {
    unsigned short const page = static_cast<unsigned short>(first_ + i);
    Button::InitArgs args(UIString(LightweightString<wchar_t>(std::to_wstring(page + 1))),
                          XY<int>(calcButtonWidth(page), row));
    args.latching = true;
    args.style = Button::kStyleFlat;
    Button* number = numberHost_->createWidget<Button>(args, BottomLeft(x, 0));
    number->setCallback(Broadcaster<ButtonEvent>::makeCallback(this, &PageIndexWidget::handleNumberClick));
    latch(number, page == current_);
    numbers_.push_back(number);
    x += number->width();
  }
}

void PageIndexWidget::latch(Button* button, bool latched) {
  if (!button)
    return;
  button->setState(latched ? 1 : 0, kRedrawNow);
  // The current page is not to be chosen again.
  button->setIgnoresClicks(latched);
}

Button* PageIndexWidget::numberButtonFor(unsigned short page) const {
  if (page < first_ || page - first_ >= int(numbers_.size()))
    return nullptr;
  return numbers_[page - first_];
}

void PageIndexWidget::setCurrentPage(unsigned short page) {
  if (page == current_)
    return;
  latch(numberButtonFor(current_), false);
  current_ = page;
  latch(numberButtonFor(current_), true);
  updatePrevAndNextButtons(kRedrawNow);
}

void PageIndexWidget::setEmptyLabel(UIString const& text) { emptyLabel_->setString(text); }

void PageIndexWidget::updatePrevAndNextButtons(eRedrawFlag redraw) {
  prev_->setActive(current_ != 0, redraw);
  next_->setActive(current_ != static_cast<unsigned short>(count_ - 1), redraw);
}

int PageIndexWidget::handleNumberClick(ButtonEvent const& event) {
  auto const found = std::find(numbers_.begin(), numbers_.end(), event.button);
  if (found == numbers_.end())
    return 0;
  setPages(static_cast<unsigned short>(first_ + (found - numbers_.begin())), count_);
  broadcast(PageIndexWidgetEvent{PageIndexWidgetEvent::kPageChosen, current_});
  return 0;
}

int PageIndexWidget::handlePrevClick(ButtonEvent const&) {
  if (current_ == 0)
    return 0;
  int const half = int(numbers_.size()) / 2;
  // In the last half of a run that ends at the last page, the run stays.
  if (int(count_) - half >= int(current_))
    setPages(current_ - 1, count_);
  else
    setCurrentPage(current_ - 1);
  broadcast(PageIndexWidgetEvent{PageIndexWidgetEvent::kPageChosen, current_});
  return 0;
}

int PageIndexWidget::handleNextClick(ButtonEvent const&) {
  // With no pages the arrow stays active, but there is nowhere to go.
  if (unsigned(current_) + 1 >= count_)
    return 0;
  int const half = int(numbers_.size()) / 2;
  // In the first half of the run, the run stays.
  if (int(current_) >= half)
    setPages(current_ + 1, count_);
  else
    setCurrentPage(current_ + 1);
  broadcast(PageIndexWidgetEvent{PageIndexWidgetEvent::kPageChosen, current_});
  return 0;
}

void PageIndexWidget::getTabOrderables(std::vector<TabOrderable*>& into) {
  into.push_back(prev_);
  into.insert(into.end(), numbers_.begin(), numbers_.end());
  into.push_back(next_);
}

void PageIndexWidget::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (emptyLabel_)
    emptyLabel_->resize(this->width(), emptyLabel_->height());
}
