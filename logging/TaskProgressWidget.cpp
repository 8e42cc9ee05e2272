#include <zowidgets/logging/TaskProgressWidget.h>

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/toolkit/GlobTheme.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/ActionIndicator.h>
#include <zowidgets/host/widgets/values/Gauge.h>

#include <string>

TaskProgressWidget::TaskProgressWidget(InitArgs const& args) : Glob(args), task_(args.task) {
  // One waiting update per widget, not one for every widget there is.
  updateKey_ = LightweightString<char>(
      ("TaskProgressWidget::handleTaskEvents " + EventHandler::stampOf(this).asString()).c_str());
  int const width = getUserArea().width();
  if (args.appearance != kPlain) {
    ActionIndicator::InitArgs indicatorArgs{LightweightString<char>("action-indicator.png")};
    indicator_ = createChild<ActionIndicator>(indicatorArgs, Glob::UserTopCentre(0, 0, 2));
  }
  TextLabel::InitArgs labelArgs(XY<int>(width, UifStd::getRowHeight()));
  labelArgs.text = args.label;
  labelArgs.font = UifStd::getSubscriptFont();
  label_ = indicator_ ? createChild<TextLabel>(labelArgs, Glob::Below(0, indicator_))
                      : createChild<TextLabel>(labelArgs, Glob::UserTopLeft(0, 0));
  Gauge::InitArgs gaugeArgs(XY<int>(width, GlobTheme::gaugeHeight()));
  gaugeArgs.barColour = getPalette().subheadingText();
  gaugeArgs.backgroundColour = getPalette().text(1);
  gauge_ = createChild<Gauge>(gaugeArgs, Glob::UserBottomLeft(0, 0));
  if (task_) {
    gauge_->setMeasure(task_->getProgress());
    guards_.push_back(task_->addListener(
        Zo::Ptr<iBackgroundTask::Listener>(new MethodCallback<TaskProgressWidget, iBackgroundTask::Event, int>(
            this, &TaskProgressWidget::handleTaskEvents))));
  }
}

int TaskProgressWidget::calcHeight(eAppearance appearance) {
  // The plain form's label takes a row above the gauge: a gauge and a gap
  // alone left the label outside the widget, never seen.
  int const labelRoom =
      appearance == kPlain ? UifStd::getRowHeight() + UifStd::getWidgetGap() : 2 * UifStd::getRowHeight();
  return GlobTheme::gaugeHeight() + labelRoom;
}

void TaskProgressWidget::setString(UIString const& text) { label_->setString(text); }

void TaskProgressWidget::updateGauge() {
  if (!task_)
    return;
  double const progress = task_->getProgress();
  if (gauge_->isShowingValue(progress))
    return;
  gauge_->setMeasure(progress, kRedrawNow);
  ++gaugeUpdates_;
}

void TaskProgressWidget::resize(double width, double height) {
  Glob::resize(width, height);
  int const inner = getUserArea().width();
  label_->resize(inner, label_->height());
  gauge_->resize(inner, gauge_->height());
}

// Runs on the worker: it reads no widget state but the key and the stamp.
int TaskProgressWidget::handleTaskEvents(iBackgroundTask::Event const& event) {
  IdStamp const stamp = EventHandler::stampOf(this);
  if (event.kind == iBackgroundTask::kProgressChanged) {
    deferUnique(
        [this, stamp] {
          if (EventHandler::valid(this, stamp))
            updateGauge();
        },
        updateKey_);
  } else if (event.kind == iBackgroundTask::kStatusChanged) {
    defer([this, stamp, event] {
      if (EventHandler::valid(this, stamp))
        broadcast(event.status);
    });
  }
  return 1;
}
