#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/Ptr.h>

#include <vector>

// Whatever shows a task's progress, and what a task tells it. A task may
// split its work into sub-tasks (nested as deep as it likes): progress
// reported inside a sub-task is a fraction of that sub-task, and the client
// hears it as a fraction of the whole. Used from one thread at a time.
class ZO_API ProgressReportClient {
public:
  struct ProgressSnapshot {
    float progress = 0.0f; // 0 to 1
    LightweightString<wchar_t> text;
    Zo::Ptr<iObject> item;      // a log row, when the task has one to add
    Zo::Ptr<iObject> thumbnail; // the latest picture, for tasks that make them
  };

  virtual ~ProgressReportClient();

  // `progress` (0 to 1, clamped) of the current sub-task, or of the whole.
  virtual void updateProgress(double progress, LightweightString<wchar_t> const& text);
  // The same with a whole snapshot; one without a thumbnail gets the one
  // last set.
  virtual void updateProgress(ProgressSnapshot const& snapshot);
  // Splits the current sub-task (or the whole) into `count` equal parts and
  // begins the first; no parts splits nothing.
  virtual void startSubTasks(unsigned long count);
  // The same with parts weighted as given (frames, bytes); parts of no
  // weight take no share, and weights that are all zero split equally.
  virtual void startSubTasks(std::vector<unsigned long> const& weights);
  // The split made last is over: progress is at its end. Each change of
  // split or part is reported, with the last text reported.
  virtual void endSubTasks();
  // The current part is done and the next begins; after the last part,
  // progress is at the end of the split.
  virtual void nextSubTask();
  // No sub-tasks, no thumbnail, progress 0.
  virtual void reset();
  virtual Zo::Ptr<iObject> getThumbnail() const;
  virtual void setThumbnail(Zo::Ptr<iObject> const& thumbnail);

  // What the client does with the progress of the whole.
  virtual void handleProgressUpdate(ProgressSnapshot const& snapshot) = 0;

private:
  struct Split {
    double start = 0.0;
    double span = 1.0;
    std::vector<double> bounds; // cumulative shares, 0 first and 1 last
    std::size_t part = 0;
  };

  // The share of the whole that the current part covers.
  double partStart() const;
  double partSpan() const;
  void reportWhole(double progress);

  std::vector<Split> splits_;
  Zo::Ptr<iObject> thumbnail_;
  LightweightString<wchar_t> text_;
};
