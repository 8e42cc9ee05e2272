#include <zowidgets/host/widgets/panels/HorizontalScroller.h>

#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <algorithm>
#include <utility>

namespace {

// As far as the vertical wheel moves a list: three rows a step.
constexpr int kRowsPerStep = 3;

} // namespace

HorizontalScroller::HorizontalScroller(Glob& owner, std::function<void()> scrolled) : scrolled_(std::move(scrolled)) {
  int const thickness = ScrollBar::thickness();
  // Wider than high from the start, so the bar knows its orientation.
  bar_ =
      owner.createChild<ScrollBar>(ScrollBar::InitArgs(XY<int>(3 * thickness, thickness)), Glob::UserBottomLeft(0, 0));
  bar_->setVisible(false);
}

int HorizontalScroller::barHeight() const { return barShown_ ? ScrollBar::thickness() : 0; }

int HorizontalScroller::stepWidth() { return UifStd::getRowHeight(); }

int HorizontalScroller::maxOffset() const noexcept { return std::max(content_ - view_, 0); }

bool HorizontalScroller::setWidths(int content, int view) {
  content = std::max(content, 0);
  view = std::max(view, 0);
  // Asked after every vertical scroll: nothing to do unless a width changed.
  if (content == content_ && view == view_)
    return false;
  content_ = content;
  view_ = view;
  bool const wanted = content_ > view_;
  bool const changed = wanted != barShown_;
  barShown_ = wanted;
  bar_->setVisible(wanted);
  int const clamped = std::clamp(offset_, 0, maxOffset());
  if (clamped != offset_) {
    offset_ = clamped;
    if (scrolled_)
      scrolled_();
  }
  showPosition();
  return changed;
}

void HorizontalScroller::placeBar(XY<int> bottomLeft) {
  if (!barShown_)
    return;
  bar_->resize(std::max(view_, 1), ScrollBar::thickness());
  bar_->setPosition(bottomLeft);
}

void HorizontalScroller::showPosition() {
  bar_->setThumbSize(content_ > 0 ? std::min(1.0, static_cast<double>(view_) / content_) : 1.0);
  int const range = maxOffset();
  bar_->setThumbPosition(range > 0 ? static_cast<double>(offset_) / range : 0.0);
}

void HorizontalScroller::setOffset(int offset) {
  offset = std::clamp(offset, 0, maxOffset());
  if (offset == offset_)
    return;
  Drawable::Suspender const oneRepaint;
  offset_ = offset;
  showPosition();
  if (scrolled_)
    scrolled_();
}

void HorizontalScroller::scrollToShow(int left, int right) {
  if (right - left >= view_ || left < offset_)
    setOffset(left);
  else if (right > offset_ + view_)
    setOffset(right - view_);
}

bool HorizontalScroller::handleMessage(LightweightString<char> const& message, Glob const* sender) {
  if (sender != bar_)
    return false;
  int requested = 0;
  if (!bar_->requestedOffset(message, offset_, stepWidth(), maxOffset(), requested))
    return false;
  setOffset(requested);
  return true;
}

int HorizontalScroller::sidewaysSteps(Event const& event) {
  if (event.type != Event::kMouseWheel || (event.modifiers & kKeyShift) == 0)
    return 0;
  // Turning the wheel towards the user goes down, or with Shift, right.
  return -event.wheel;
}

bool HorizontalScroller::handleWheel(Event const& event) {
  int const steps = sidewaysSteps(event);
  if (steps == 0 || !barShown_)
    return false;
  setOffset(offset_ + steps * kRowsPerStep * stepWidth());
  return true;
}
