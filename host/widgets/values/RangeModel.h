#pragma once

#include <zowidgets/host/base/Export.h>

// A value kept inside a range: what sliders, scroll bars, gauges and dials
// share. The range's ends are ordered whatever order they come in; a value
// is snapped to min + n * step (when step is above 0) and clamped to the
// range, and anything that is not a number becomes the minimum. The page is
// what a page key or a press beside a scroll bar's thumb moves, and for a
// scroll bar the share of the content that shows.
class ZO_API RangeModel {
public:
  RangeModel() = default;
  RangeModel(double min, double max, double value = 0.0, double step = 0.0, double page = 0.0);

  // Keeps the value inside the new range, and the page no longer than it.
  void setRange(double min, double max);
  double min() const noexcept { return min_; }
  double max() const noexcept { return max_; }
  double span() const noexcept { return max_ - min_; }

  // 0 (or less): any value; otherwise values snap to min + n * step. The
  // value is snapped again.
  void setStep(double step);
  double step() const noexcept { return step_; }
  // What one key press or wheel notch moves: the step, or a hundredth of the
  // range when values are continuous.
  double stepSize() const noexcept;

  // Clamped to 0..span; 0 means ten steps.
  void setPage(double page);
  double page() const noexcept { return page_; }
  double pageSize() const noexcept;

  // The value `value` would become: snapped, clamped, a number.
  double constrain(double value) const noexcept;
  // Stores the constrained value; true when it changed.
  bool setValue(double value) noexcept;
  double value() const noexcept { return value_; }

  // Where the value lies in the range, 0 at min .. 1 at max; 0 for an empty
  // range.
  double fraction() const noexcept { return fractionOf(value_); }
  double fractionOf(double value) const noexcept;
  // The value at a fraction of the range (clamped to 0..1), not snapped.
  double valueAt(double fraction) const noexcept;

private:
  double min_ = 0.0;
  double max_ = 1.0;
  double step_ = 0.0;
  double page_ = 0.0;
  double value_ = 0.0;
};
