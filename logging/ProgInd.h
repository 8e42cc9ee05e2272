#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/toolkit/BackgroundTask.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/logging/LogTimes.h>

class Gauge;

// A small window with a title and a gauge, shown while the user waits on
// work that holds the user-interface thread. Each report keeps the
// interface alive by running what waits on that thread. The gauge redraws
// at most about 90 times a second; the final report always shows.
class ZO_API ProgInd : public StandardPanel, public ProgressReportClient {
public:
  // Reports closer together than this are not drawn.
  static constexpr int kRedrawGapMs = 11;
  static constexpr int kDefaultWidth = 400;

  ProgInd(LightweightString<wchar_t> const& title, int x, int y, Palette const& palette, double min, double max,
          bool pollBackgroundTasks);
  explicit ProgInd(LightweightString<wchar_t> const& title);
  char const* idstring() const override { return "ProgInd"; }

  // Opens one centred over `over`, or where a new window goes.
  static ProgInd* make(LightweightString<wchar_t> const& title, Glob const* over = nullptr);
  // The panel's frame and one row.
  static int calcHeight();

  void update_progress(LightweightString<wchar_t> const& text, double value, Colour const& barColour);
  void update_progress(LightweightString<wchar_t> const& text, double value);
  void handleProgressUpdate(ProgressSnapshot const& snapshot) override;
  // Adds the time left to the text, counting from now.
  void showTimeRemaining(bool show);
  void setBarColour(Colour const& colour);

  // The panel can be neither used nor moved while it is up.
  int react(Event const& event) override;

  Gauge* gauge() const noexcept { return gauge_; }

private:
  void init(LightweightString<wchar_t> const& title, double min, double max);

  Gauge* gauge_ = nullptr;
  bool pollBackgroundTasks_ = true;
  double min_ = 0.0;
  double max_ = 1.0;
  double range_ = 1.0;
  bool showTime_ = false;
  int startTime_ = 0;
  LogTimes::EstimateSmoother estimate_;
  bool drawnOnce_ = false;
  int lastUpdate_ = 0;
};
