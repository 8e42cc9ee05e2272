#pragma once

#include <zowidgets/host/toolkit/BackgroundTask.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <vector>

class ActionIndicator;
class Gauge;
class TextLabel;

// Follows one background task and shows how far it has got. The task's
// reports arrive on its worker; the widget takes them to the user-interface
// thread, where however many progress reports arrived between two updates
// cost one, and every change of status is passed on to the widget's own
// listeners, in order.
class ZO_API TaskProgressWidget : public Glob, public Broadcaster<iBackgroundTask::eStatus> {
public:
  enum eAppearance : int {
    kPlain = 0, // a label over a gauge
    kTall = 1,  // a busy sign over the label, two rows higher
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    Zo::Ptr<iBackgroundTask> task;
    UIString label;
    eAppearance appearance = kPlain;
  };

  explicit TaskProgressWidget(InitArgs const& args);
  char const* idstring() const override { return "TaskProgressWidget"; }

  // Room for the label (the busy sign too in the tall form) and the gauge.
  static int calcHeight(eAppearance appearance);

  // The label is the owner's: the text of the task's progress reports does
  // not replace it.
  void setString(UIString const& text);
  // Shows the task's progress now, unless the gauge already shows it.
  void updateGauge();
  void resize(double width, double height) override;
  // Called on the worker that raises the event.
  int handleTaskEvents(iBackgroundTask::Event const& event);

  Gauge* gauge() const noexcept { return gauge_; }
  TextLabel* label() const noexcept { return label_; }
  ActionIndicator* indicator() const noexcept { return indicator_; }
  // How many times the gauge was redrawn for the task's progress.
  int gaugeUpdates() const noexcept { return gaugeUpdates_; }

private:
  Zo::Ptr<iBackgroundTask> task_;
  Gauge* gauge_ = nullptr;
  TextLabel* label_ = nullptr;
  ActionIndicator* indicator_ = nullptr;
  std::vector<Zo::Ptr<Zo::Guard>> guards_;
  LightweightString<char> updateKey_;
  int gaugeUpdates_ = 0;
};
