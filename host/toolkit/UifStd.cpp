#include <zowidgets/host/toolkit/UifStd.h>

#include <zowidgets/host/drawing/TextLayout.h>

#include <cmath>

namespace {

// The sizes at scale 1, as fractions of the base font size.
constexpr double kRowHeightPerFont = 7.0 / 4.0;
constexpr double kWidgetGapPerFont = 3.0 / 10.0;
constexpr double kRowGapPerFont = 1.0 / 4.0;
constexpr double kIndentPerFont = 3.0 / 20.0;
constexpr double kTitlePerFont = 23.0 / 20.0;
constexpr double kSubscriptPerFont = 4.0 / 5.0;

// A size at scale 1, rounded to whole pixels, then scaled and rounded again.
int scaledMetric(double perFont) {
  double const atUnitScale = std::round(UifStd::kBaseFontSize * perFont);
  return static_cast<int>(std::lround(atUnitScale * UifStd::getScale()));
}

Glib::FontDesc interfaceFont(double perFont, unsigned style) {
  double const atUnitScale = std::round(UifStd::kBaseFontSize * perFont);
  return Glib::FontDesc(getDefaultFontName(0), Glib::mapFontSize(atUnitScale, UifStd::getScale()), style);
}

} // namespace

void Theme::registerParam(LightweightString<char> const& key, double defaultValue) {
  values_.try_emplace(key.str(), defaultValue);
}

void Theme::set(LightweightString<char> const& key, double value) { values_[key.str()] = value; }

bool Theme::has(LightweightString<char> const& key) const { return values_.find(key.view()) != values_.end(); }

double Theme::get(LightweightString<char> const& key, double fallback) const {
  auto found = values_.find(key.view());
  return found == values_.end() ? fallback : found->second;
}

int Theme::getInt(LightweightString<char> const& key, int fallback) const {
  auto found = values_.find(key.view());
  return found == values_.end() ? fallback : static_cast<int>(std::lround(found->second));
}

UifStd& UifStd::instance() {
  static UifStd uifStd;
  return uifStd;
}

double UifStd::getScale() { return Glib::interfaceScale(); }
void UifStd::setScale(double scale) { Glib::setInterfaceScale(scale); }

int UifStd::getRowHeight() { return scaledMetric(kRowHeightPerFont); }
int UifStd::getRowGap() { return scaledMetric(kRowGapPerFont); }
int UifStd::getWidgetGap() { return scaledMetric(kWidgetGapPerFont); }
int UifStd::getIndentWidth() { return scaledMetric(kIndentPerFont); }

WidgetSurround UifStd::getRowSeparator(int relativity) {
  switch (relativity) {
  case kRelativeAbove:
  case kRelativeBelow:
    return WidgetSurround::on(static_cast<eWidgetRelativity>(relativity), getRowGap());
  case kRelativeLeft:
  case kRelativeRight:
    return WidgetSurround::on(static_cast<eWidgetRelativity>(relativity), getWidgetGap());
  default:
    return WidgetSurround::none();
  }
}

XY<int> UifStd::measure(UIString const& text) {
  Glib::TextMetrics const metrics = Glib::TextLayout::measure(text.getString(), getFont());
  return XY<int>(static_cast<int>(std::ceil(metrics.width)), static_cast<int>(std::ceil(metrics.height)));
}

Glib::FontDesc UifStd::getFont() { return interfaceFont(1.0, 0); }
Glib::FontDesc UifStd::getTitleFont() { return interfaceFont(kTitlePerFont, Glib::FontDesc::kBold); }
Glib::FontDesc UifStd::getSubheadingFont() { return interfaceFont(1.0, Glib::FontDesc::kBold); }
Glib::FontDesc UifStd::getSubscriptFont() { return interfaceFont(kSubscriptPerFont, 0); }

Theme& UifStd::getTheme() { return instance().theme_; }

void UifStd::registerThemeParam(LightweightString<char> const& key, double defaultValue) {
  instance().theme_.registerParam(key, defaultValue);
}

Palette const& UifStd::getColourScheme() { return instance().colourScheme_; }
void UifStd::setColourScheme(Palette const& palette) { instance().colourScheme_ = palette; }

int UifStd::getWindowArrangement() { return instance().windowArrangement_.load(std::memory_order_relaxed); }
void UifStd::setWindowArrangement(int arrangement) {
  instance().windowArrangement_.store(arrangement, std::memory_order_relaxed);
}
