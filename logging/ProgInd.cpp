#include <zowidgets/logging/ProgInd.h>

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Gauge.h>

namespace {

constexpr ResId kDefaultTitle = 10647;
constexpr ResId kRemainingText = 11415;

StandardPanel::InitArgs panelArgs(int x, int y, Palette const* palette) {
  StandardPanel::InitArgs args(XY<int>(ProgInd::kDefaultWidth, ProgInd::calcHeight()));
  Border border = StandardPanel::getDefaultBorder();
  border.setShadow(true);
  args.setBorder(border);
  args.standardWidgets = StandardPanel::kTitle;
  if (x >= 0 && y >= 0)
    args.screenPosition = XY<int>(x, y);
  if (palette)
    args.setPalette(*palette);
  return args;
}

} // namespace

ProgInd::ProgInd(LightweightString<wchar_t> const& title, int x, int y, Palette const& palette, double min, double max,
                 bool pollBackgroundTasks)
    : StandardPanel(panelArgs(x, y, &palette)), pollBackgroundTasks_(pollBackgroundTasks) {
  init(title, min, max);
}

ProgInd::ProgInd(LightweightString<wchar_t> const& title) : StandardPanel(panelArgs(-1, -1, nullptr)) {
  init(title, 0.0, 1.0);
}

ProgInd* ProgInd::make(LightweightString<wchar_t> const& title, Glob const* over) {
  Drawable::Suspender hold;
  XY<int> const size(kDefaultWidth, calcHeight());
  XY<int> position = glib_getPosForPanel(nullptr, size);
  if (is_good_glob_ptr(over)) {
    XY<int> const corner = over->screenPosition();
    position = XY<int>(corner.x + (over->width() - size.x) / 2, corner.y + (over->height() - size.y) / 2);
  }
  Glob::setupRootPos(nullptr, GlobManager::getSafePosForGlob(nullptr, size, position));
  auto* indicator = new ProgInd(title);
  GlobManager::realize(indicator);
  return indicator;
}

int ProgInd::calcHeight() {
  XY<int> const inner(200, 200);
  return StandardPanel::calcPanelSize(inner, StandardPanel::kTitle, StandardPanel::getDefaultBorder()).y - inner.y +
         UifStd::getRowHeight();
}

void ProgInd::init(LightweightString<wchar_t> const& title, double min, double max) {
  min_ = min;
  max_ = max;
  range_ = max - min;
  setTitle(UIString(title.empty() ? resourceStrW(kDefaultTitle) : title), UifStd::getTitleFont(), kNoRedraw);
  Gauge::InitArgs args(XY<int>(getUserArea().width(), UifStd::getRowHeight()));
  args.barColour = getPalette().selection();
  args.backgroundColour = getPalette().childWindow(1);
  args.textColour = getPalette().text(0);
  gauge_ = createWidget<Gauge>(args, Glob::UserBottomLeft(0, 0));
  showTimeRemaining(false);
}

void ProgInd::update_progress(LightweightString<wchar_t> const& text, double value) {
  update_progress(text, value, gauge_->getBarColour());
}

void ProgInd::update_progress(LightweightString<wchar_t> const& text, double value, Colour const& barColour) {
  int const now = ftisqq(msecsNow());
  if (drawnOnce_ && now - lastUpdate_ < kRedrawGapMs && !LogTimes::tolerantEq(value, max_)) {
    if (pollBackgroundTasks_)
      glob_poll_background_tasks();
    return;
  }
  drawnOnce_ = true;
  lastUpdate_ = now;
  LightweightString<wchar_t> label = text;
  if (showTime_) {
    double const fraction = (value - min_) / (max_ - min_);
    if (!LogTimes::tolerantEq(fraction, 0.0)) {
      double const elapsed = now - startTime_;
      int const shown = estimate_.next(LogTimes::remainingSeconds(elapsed, fraction));
      label += L"  (";
      label += LogTimes::timeText(kRemainingText, shown);
      label += L")";
    }
  }
  DataConvert::constrain(value, min_, max_);
  setBarColour(barColour);
  gauge_->setLabel(UIString(label));
  gauge_->setMeasure((value - min_) / range_);
  gauge_->display();
  if (pollBackgroundTasks_)
    glob_poll_background_tasks();
}

void ProgInd::handleProgressUpdate(ProgressSnapshot const& snapshot) {
  update_progress(snapshot.text, snapshot.progress * range_ + min_);
}

void ProgInd::showTimeRemaining(bool show) {
  showTime_ = show;
  if (show) {
    startTime_ = ftisqq(msecsNow());
    estimate_.reset();
  }
}

void ProgInd::setBarColour(Colour const& colour) { gauge_->setCols(colour, getPalette().childWindow(1)); }

int ProgInd::react(Event const&) { return 1; }
