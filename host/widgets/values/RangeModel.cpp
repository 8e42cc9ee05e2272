#include <zowidgets/host/widgets/values/RangeModel.h>

#include <algorithm>
#include <cmath>

namespace {
constexpr double kContinuousStepFraction = 0.01;
constexpr int kStepsPerPage = 10;

double finiteOr(double value, double fallback) { return std::isfinite(value) ? value : fallback; }
} // namespace

RangeModel::RangeModel(double min, double max, double value, double step, double page) {
  setRange(min, max);
  setStep(step);
  setPage(page);
  setValue(value);
}

void RangeModel::setRange(double min, double max) {
  min = finiteOr(min, 0.0);
  max = finiteOr(max, min);
  min_ = std::min(min, max);
  max_ = std::max(min, max);
  page_ = std::min(page_, span());
  value_ = constrain(value_);
}

void RangeModel::setStep(double step) {
  step_ = std::max(finiteOr(step, 0.0), 0.0);
  value_ = constrain(value_);
}

double RangeModel::stepSize() const noexcept { return step_ > 0.0 ? step_ : span() * kContinuousStepFraction; }

void RangeModel::setPage(double page) { page_ = std::clamp(finiteOr(page, 0.0), 0.0, span()); }

double RangeModel::pageSize() const noexcept { return page_ > 0.0 ? page_ : kStepsPerPage * stepSize(); }

double RangeModel::constrain(double value) const noexcept {
  if (!std::isfinite(value))
    return min_;
  if (step_ > 0.0)
    value = min_ + std::round((value - min_) / step_) * step_;
  return std::clamp(value, min_, max_);
}

bool RangeModel::setValue(double value) noexcept {
  double const constrained = constrain(value);
  if (constrained == value_)
    return false;
  value_ = constrained;
  return true;
}

double RangeModel::fractionOf(double value) const noexcept {
  if (max_ <= min_)
    return 0.0;
  return (std::clamp(finiteOr(value, min_), min_, max_) - min_) / span();
}

double RangeModel::valueAt(double fraction) const noexcept {
  return min_ + std::clamp(finiteOr(fraction, 0.0), 0.0, 1.0) * span();
}
