#pragma once

#include <zowidgets/host/widgets/values/Gauge.h>

// The gauge of a long task: a row high, its label (what is being done, and
// the time gone or left) at the left and the percentage done at the right.
class ZO_API SharkGauge : public Gauge {
public:
  using Gauge::Gauge;
  char const* idstring() const override { return "SharkGauge"; }

  // The height a shark gauge is made with: a row.
  static int calcHeight();
  // A duration as a user reads it: "hh:mm:ss" in whole seconds, the hours
  // growing past two digits when they must. Negative or not a number: zero.
  static LightweightString<wchar_t> formatDuration(double seconds);

  // The whole percentage done, rounded down: 100 only when full.
  int percentDone() const { return percentFor(getMeasure()); }
  static int percentFor(double fraction);

  // The percentage is drawn too, so a fraction that keeps the bar but changes
  // the percentage counts as a change.
  bool isShowingValue(double fraction) const override;

protected:
  void drawLabel(CanvasRenderer& renderer, Look const& look) override;
};
