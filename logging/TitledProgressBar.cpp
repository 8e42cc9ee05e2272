#include <zowidgets/logging/TitledProgressBar.h>

#include <zowidgets/host/toolkit/GlobTheme.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Gauge.h>

namespace {

// The bar lies flat in its parent: no border or title bar takes room from
// its rows, as the title is shown in the label.
StandardPanel::InitArgs flat(TitledProgressBar::InitArgs const& args) {
  StandardPanel::InitArgs flatArgs = args;
  flatArgs.setBorder(Border(0));
  flatArgs.title = {};
  return flatArgs;
}

} // namespace

TitledProgressBar::TitledProgressBar(InitArgs const& args) : StandardPanel(flat(args)) {
  int const margin = UifStd::getWidgetGap();
  TextLabel::InitArgs labelArgs(XY<int>(width(), UifStd::getRowHeight()));
  labelArgs.text = args.title;
  labelArgs.font = UifStd::getFont();
  label_ = createWidget<TextLabel>(labelArgs, Glob::UserTopLeft(0, 0));
  Gauge::InitArgs gaugeArgs(XY<int>(std::max(0, width() - 2 * margin), GlobTheme::gaugeHeight()));
  gaugeArgs.barColour = getPalette().subheadingText();
  gaugeArgs.backgroundColour = getPalette().text(1);
  gauge_ = createWidget<Gauge>(gaugeArgs, Glob::BottomLeft(margin, 0));
}

int TitledProgressBar::calcHeight() { return UifStd::getRowHeight() + UifStd::getRowGap() + GlobTheme::gaugeHeight(); }

void TitledProgressBar::setString(UIString const& text) { label_->setString(text); }

void TitledProgressBar::setProgress(double fraction) {
  gauge_->setMeasure(fraction);
  gauge_->display();
}

void TitledProgressBar::resize(double width, double height) {
  StandardPanel::resize(width, height);
  int const margin = UifStd::getWidgetGap();
  label_->resize(width, label_->height());
  gauge_->resize(std::max(0.0, width - 2 * margin), gauge_->height());
}
