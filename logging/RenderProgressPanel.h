#pragma once

#include <zowidgets/host/base/LoggerBase.h>
#include <zowidgets/host/drawing/PictureProportions.h>
#include <zowidgets/host/drawing/VideoWindow.h>
#include <zowidgets/host/toolkit/BackgroundTask.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/logging/LogTimes.h>

class Gauge;

// The window shown during a render: the latest frame above a gauge with the
// time left. It shows progress, never log lines.
class ZO_API RenderProgressPanel : public StandardPanel, public LoggerBase, public ProgressReportClient {
public:
  static constexpr int kRedrawGapMs = 11;

  RenderProgressPanel(XY<int> size, Zo::Image::AspectRatio aspect);
  char const* idstring() const override { return "RenderProgressPanel"; }

  static RenderProgressPanel* make(Zo::Image::AspectRatio aspect);
  static XY<int> calcImageSize(std::uint16_t width, Zo::Image::AspectRatio aspect);
  static int calcHeightFromWidth(std::uint16_t width, Zo::Image::AspectRatio aspect);

  Zo::Box<int> getAreaForImage() const;

  void handleProgressUpdate(ProgressSnapshot const& snapshot) override;
  void write(LightweightString<wchar_t> const&, eOutputType) override {}
  void setFilename(LightweightString<wchar_t>) override {}
  void setFilename(LightweightString<wchar_t>, LightweightString<wchar_t>) override {}

  Gauge* gauge() const noexcept { return gauge_; }
  Glib::VideoWindow const& videoWindow() const noexcept { return video_; }
  // Forgets when the last report came, so the next one is drawn: there is
  // one render window at a time and the gate is shared.
  static void resetRedrawGate();

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  Gauge* gauge_ = nullptr;
  int startTime_ = 0;
  Glib::VideoWindow video_;
  Zo::Image::AspectRatio aspect_;
};
