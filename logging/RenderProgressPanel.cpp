#include <zowidgets/logging/RenderProgressPanel.h>

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Gauge.h>

#include <optional>

namespace {

constexpr ResId kRenderTitle = 10883;
constexpr ResId kRemainingText = 11415;
constexpr unsigned kStandardWidgets = StandardPanel::kTitle;

// Shared by every render window, as only one is up at a time.
std::optional<int> lastRedraw;
LogTimes::EstimateSmoother sharedEstimate;

int sideMargins() { return StandardPanel::getDefaultBorder().calcMarginSize(1 | 2) + 2 * UifStd::getIndentWidth(); }

} // namespace

RenderProgressPanel::RenderProgressPanel(XY<int> size, Zo::Image::AspectRatio aspect)
    : StandardPanel([&] {
        StandardPanel::InitArgs args(size);
        args.setBorder(StandardPanel::getDefaultBorder());
        args.standardWidgets = kStandardWidgets;
        return args;
      }()),
      startTime_(ftisqq(msecsNow())), aspect_(aspect) {
  setTitle(UIString(resourceStrW(kRenderTitle)), UifStd::getTitleFont(), kNoRedraw);
  Gauge::InitArgs args(XY<int>(getUserArea().width(), UifStd::getRowHeight()));
  args.barColour = getPalette().selection();
  args.backgroundColour = getPalette().childWindow(1);
  gauge_ = createWidget<Gauge>(args, Glob::UserBottomLeft(0, 0));
  video_.setSize(calcImageSize(static_cast<std::uint16_t>(width()), aspect_));
}

RenderProgressPanel* RenderProgressPanel::make(Zo::Image::AspectRatio aspect) {
  Drawable::Suspender hold;
  int const width = 14 * UifStd::getRowHeight();
  XY<int> const size(width, calcHeightFromWidth(static_cast<std::uint16_t>(width), aspect));
  Glob::setupRootPos(nullptr, glib_getPosForPanel(nullptr, size));
  auto* panel = new RenderProgressPanel(size, aspect);
  GlobManager::realize(panel);
  return panel;
}

XY<int> RenderProgressPanel::calcImageSize(std::uint16_t width, Zo::Image::AspectRatio aspect) {
  int const pictureWidth = std::max(0, width - sideMargins());
  return XY<int>(pictureWidth, ftisql(pictureWidth / Zo::getAspectRatio(aspect)));
}

int RenderProgressPanel::calcHeightFromWidth(std::uint16_t width, Zo::Image::AspectRatio aspect) {
  int const inner = calcImageSize(width, aspect).y + UifStd::getWidgetGap() + UifStd::getRowHeight();
  return StandardPanel::calcPanelSize(XY<int>(0, inner), kStandardWidgets, StandardPanel::getDefaultBorder()).y;
}

Zo::Box<int> RenderProgressPanel::getAreaForImage() const {
  Zo::Box<int> const user = getUserArea();
  XY<int> const size = video_.getSize();
  int const left = user.x0 + (user.width() - size.x) / 2;
  return Zo::Box<int>(left, user.y1 - size.y, left + size.x, user.y1);
}

void RenderProgressPanel::resetRedrawGate() {
  lastRedraw.reset();
  sharedEstimate.reset();
}

void RenderProgressPanel::handleProgressUpdate(ProgressSnapshot const& snapshot) {
  int const now = ftisqq(msecsNow());
  double const progress = snapshot.progress;
  if (lastRedraw && now - *lastRedraw < kRedrawGapMs && !LogTimes::tolerantEq(progress, 1.0))
    return;
  lastRedraw = now;
  if (LogTimes::tolerantEq(progress, 0.0)) {
    gauge_->setMeasure(progress);
    gauge_->display();
    return;
  }
  double const elapsed = now - startTime_;
  int const shown = sharedEstimate.next(LogTimes::remainingSeconds(elapsed, progress));
  gauge_->setLabel(UIString(LogTimes::timeText(kRemainingText, shown)));
  gauge_->setMeasure(progress);
  gauge_->display();
  if (auto const* frame = dynamic_cast<Glib::VideoFrame const*>(snapshot.thumbnail.get())) {
    video_.present(frame->pixels());
    invalidate(getAreaForImage());
  }
}

void RenderProgressPanel::draw(CanvasRenderer& renderer) {
  StandardPanel::draw(renderer);
  Zo::Box<int> const area = getAreaForImage();
  if (!video_.hasFrame()) {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<double>(area.x0, area.y0, area.x1, area.y1),
                                                   UifStd::getColourScheme().window(1)));
    return;
  }
  renderer.renderPrimitive(
      Glib::ImageDescription(video_.presented(), Zo::Box<double>(area.x0, area.y0, area.x1, area.y1)));
}
