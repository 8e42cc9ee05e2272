#include "LoggerTestSupport.h"

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/logging/ProgInd.h>
#include <zowidgets/logging/RenderProgressPanel.h>
#include <zowidgets/logging/TaskProgressWidget.h>
#include <zowidgets/logging/TitledProgressBar.h>

namespace {

using LoggerGolden = LoggerTest;

class HandDrivenTask : public BackgroundTaskBase {
public:
  using BackgroundTaskBase::reportProgress;
  void run() override {}
};

TEST_F(LoggerGolden, EveryKindOfRow) {
  Logger* logger = openLogger(Logger::kFlagSharkGauge, 24, 420);
  TestClock clock(1000.0);
  loggerWrite(logger, L"Plain: rendering shot 1 of 3", LoggerBase::kOutputPlain);
  loggerWrite(logger, L"Unstyled: no style of its own", LoggerBase::kOutputUnstyled);
  loggerWrite(logger, L"Warning: clip.mov is offline", LoggerBase::kOutputWarning);
  loggerWrite(logger, L"Dim: cache reused", LoggerBase::kOutputDim);
  loggerWrite(logger, L"Error: disk full", LoggerBase::kOutputError);
  loggerWrite(logger, L"Status line: pass 2", LoggerBase::kOutputStatusLine);
  loggerWrite(logger, LoggerBase::HyperLink(L"Hyperlink: final.mov", {L"/renders/final.mov"}).toString(),
              LoggerBase::kOutputHyperLink);
  loggerWrite(logger, L"Subheading: audio", LoggerBase::kOutputSubheading);
  loggerWrite(logger, L"Divider", LoggerBase::kOutputDivider);
  loggerWrite(logger, L"", LoggerBase::kOutputDivider);
  loggerWrite(logger, L"Success: done", LoggerBase::kOutputSuccess);
  loggerWrite(logger, L"HTML row: <b>bold</b> and <font color=\"#3070ff\">blue</font>", LoggerBase::kOutputPlain);
  logger->incIndent();
  loggerWrite(logger, L"Indented, and long enough to wrap onto a second line in this narrow log",
              LoggerBase::kOutputPlain);
  logger->progress(0.0);
  clock.advance(20000.0);
  logger->progress(0.4);
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*logger), ZO_GOLDEN_DIR "/logger_every_kind.png"));
}

TEST_F(LoggerGolden, AProgressWindowWithTimeLeft) {
  TestClock clock(1000.0);
  ProgInd* indicator = ProgInd::make(L"Conforming the timeline");
  indicator->showTimeRemaining(true);
  clock.advance(30000.0);
  indicator->update_progress(L"Reading clips", 0.6);
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*indicator), ZO_GOLDEN_DIR "/prog_ind.png"));
}

TEST_F(LoggerGolden, TaskProgressAndTitledBars) {
  StandardPanel* panel = openPanel(XY<int>(340, 170), XY<int>(100, 100));
  TitledProgressBar::InitArgs barArgs(XY<int>(300, TitledProgressBar::calcHeight()));
  barArgs.title = UIString(L"Audio mixdown");
  auto* bar = panel->createWidget<TitledProgressBar>(barArgs, Glob::UserTopLeft(0, 0));
  bar->setProgress(0.7);
  Zo::Ptr<HandDrivenTask> task(new HandDrivenTask);
  task->reportProgress(0.35f);
  TaskProgressWidget::InitArgs plainArgs(XY<int>(300, TaskProgressWidget::calcHeight(TaskProgressWidget::kPlain)));
  plainArgs.task = task;
  plainArgs.label = UIString(L"Export to disk");
  panel->createWidget<TaskProgressWidget>(plainArgs, Glob::Below(UifStd::getRowGap(), bar));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/task_progress.png"));
}

TEST_F(LoggerGolden, TheRenderWindowWithItsLatestFrame) {
  TestClock clock(1000.0);
  RenderProgressPanel::resetRedrawGate();
  RenderProgressPanel* panel = RenderProgressPanel::make(Zo::Image::kAspect16x9);
  Zo::Image::Surface frame(64, 36);
  frame.fill(Colour(0.2, 0.45, 0.7));
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = 0.25f;
  snapshot.thumbnail = Zo::Ptr<iObject>(new Glib::VideoFrame(frame));
  clock.advance(15000.0);
  panel->handleProgressUpdate(snapshot);
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/render_progress.png"));
}

} // namespace
