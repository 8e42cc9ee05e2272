#include <zowidgets/host/widgets/values/SharkGauge.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {
constexpr int kSecondsPerMinute = 60;
constexpr int kSecondsPerHour = 3600;
// Keeps a fraction just under a whole percentage, held as a double a hair
// below it, from showing one percent too few.
constexpr double kPercentTolerance = 1e-9;
} // namespace

int SharkGauge::calcHeight() { return UifStd::getRowHeight(); }

LightweightString<wchar_t> SharkGauge::formatDuration(double seconds) {
  long const whole = std::isfinite(seconds) && seconds > 0.0 ? static_cast<long>(seconds) : 0L;
  char text[32];
  std::snprintf(text, sizeof text, "%02ld:%02ld:%02ld", whole / kSecondsPerHour,
                whole % kSecondsPerHour / kSecondsPerMinute, whole % kSecondsPerMinute);
  return LightweightString<wchar_t>(std::wstring(text, text + std::char_traits<char>::length(text)));
}

int SharkGauge::percentFor(double fraction) {
  double const clamped = std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0.0;
  return static_cast<int>(std::floor(clamped * 100.0 + kPercentTolerance));
}

bool SharkGauge::isShowingValue(double fraction) const {
  return Gauge::isShowingValue(fraction) && percentFor(fraction) == percentDone();
}

void SharkGauge::drawLabel(CanvasRenderer& renderer, Look const& look) {
  Zo::Box<double> const box(look.textIndent, 0, width() - look.textIndent, height());
  LightweightString<wchar_t> const percent(std::to_wstring(percentDone()) + L"%");
  drawText(renderer, look, Glib::TextDescription(percent, box, look.font, look.text, Glib::eTextAlignment::Right));
  if (getLabel().empty())
    return;
  // The label keeps clear of the percentage.
  double const percentWidth = Glib::TextDescription::calcBounds(percent, look.font).width();
  Zo::Box<double> const labelBox(box.x0, box.y0, std::max(box.x0, box.x1 - percentWidth - look.textIndent), box.y1);
  drawText(renderer, look,
           Glib::TextDescription(getLabel().getString(), labelBox, look.font, look.text, Glib::eTextAlignment::Left));
}
