#include "support/WidgetTestSupport.h"

#include <thread>

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/GlobTheme.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Gauge.h>
#include <zowidgets/logging/ProgInd.h>
#include <zowidgets/logging/RenderProgressPanel.h>
#include <zowidgets/logging/TaskProgressWidget.h>
#include <zowidgets/logging/TitledProgressBar.h>

namespace {

struct ProgressTest : HeadlessScreenTest {
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    RenderProgressPanel::resetRedrawGate();
  }
  static std::wstring labelOf(Gauge const* gauge) { return gauge->getLabel().getString().str(); }
};

// A task the test drives by hand, on whichever thread calls it.
class HandDrivenTask : public BackgroundTaskBase {
public:
  using BackgroundTaskBase::reportProgress;
  void run() override {}
};

using ProgIndTest = ProgressTest;

TEST_F(ProgIndTest, TheFirstTimedReportAtTheMinimumHasNoTimeText) {
  TestClock clock(5000.0);
  ProgInd* indicator = ProgInd::make(L"Conforming");
  indicator->showTimeRemaining(true);
  indicator->update_progress(L"Reading", 0.0);
  EXPECT_EQ(labelOf(indicator->gauge()), L"Reading");
}

TEST_F(ProgIndTest, AValueAtTheMaximumIsAlwaysDrawnHoweverSoonAfterTheLastReport) {
  TestClock clock(5000.0);
  ProgInd* indicator = ProgInd::make(L"Conforming");
  indicator->update_progress(L"first", 0.2);
  clock.advance(3.0);
  indicator->update_progress(L"too soon", 0.5);
  EXPECT_EQ(labelOf(indicator->gauge()), L"first");
  EXPECT_DOUBLE_EQ(indicator->gauge()->getMeasure(), 0.2);
  indicator->update_progress(L"done", 1.0);
  EXPECT_EQ(labelOf(indicator->gauge()), L"done");
  EXPECT_DOUBLE_EQ(indicator->gauge()->getMeasure(), 1.0);
  clock.advance(11.0);
  indicator->update_progress(L"later", 0.6);
  EXPECT_EQ(labelOf(indicator->gauge()), L"later");
}

TEST_F(ProgIndTest, AValueAboveTheMaximumFillsTheBarAndGoesNoFurther) {
  TestClock clock(5000.0);
  ProgInd indicator(L"Copying", 10, 10, UifStd::getColourScheme(), 10.0, 20.0, false);
  indicator.update_progress(L"over", 35.0);
  EXPECT_DOUBLE_EQ(indicator.gauge()->getMeasure(), 1.0);
  EXPECT_EQ(indicator.gauge()->filledWidth(), indicator.gauge()->filledWidthFor(1.0));
}

TEST_F(ProgIndTest, TwoSuccessiveEstimatesOfAHundredAndEightySecondsShowNinety) {
  TestClock clock(1000.0);
  ProgInd* indicator = ProgInd::make(L"Rendering");
  indicator->showTimeRemaining(true);
  clock.advance(25000.0);
  // 25 s for a fifth: 100 s left.
  indicator->update_progress(L"Rendering", 0.2);
  EXPECT_EQ(labelOf(indicator->gauge()), L"Rendering  (00:01:40 remaining)");
  clock.advance(15000.0);
  // 40 s for a third: 80 s left, shown as the mean of 100 and 80.
  indicator->update_progress(L"Rendering", 1.0 / 3.0);
  EXPECT_EQ(labelOf(indicator->gauge()), L"Rendering  (00:01:30 remaining)");
}

TEST_F(ProgIndTest, ASnapshotIsMappedIntoTheIndicatorsRange) {
  TestClock clock(1000.0);
  ProgInd indicator(L"Copying", 10, 10, UifStd::getColourScheme(), 100.0, 300.0, false);
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = 0.25f;
  snapshot.text = L"a quarter";
  indicator.handleProgressUpdate(snapshot);
  EXPECT_DOUBLE_EQ(indicator.gauge()->getMeasure(), 0.25);
  EXPECT_EQ(labelOf(indicator.gauge()), L"a quarter");
}

// A task that splits its work reports each part's own progress; the
// indicator shows the progress of the whole.
TEST_F(ProgIndTest, ProgressInsideSubTasksIsShownAsProgressOfTheWhole) {
  TestClock clock(1000.0);
  ProgInd indicator(L"Rendering", 10, 10, UifStd::getColourScheme(), 0.0, 1.0, false);
  // Reports closer together than the indicator redraws are dropped; each
  // step here comes later.
  indicator.startSubTasks(std::vector<unsigned long>{1, 3});
  clock.advance(100.0);
  indicator.updateProgress(1.0, L"titles");
  EXPECT_DOUBLE_EQ(indicator.gauge()->getMeasure(), 0.25);
  clock.advance(100.0);
  indicator.nextSubTask();
  clock.advance(100.0);
  indicator.updateProgress(0.5, L"frames");
  EXPECT_DOUBLE_EQ(indicator.gauge()->getMeasure(), 0.625);
  EXPECT_EQ(labelOf(indicator.gauge()), L"frames");
  clock.advance(100.0);
  indicator.endSubTasks();
  EXPECT_DOUBLE_EQ(indicator.gauge()->getMeasure(), 1.0);
}

TEST_F(ProgIndTest, TheIndicatorSwallowsEveryEvent) {
  ProgInd* indicator = ProgInd::make({});
  EXPECT_EQ(indicator->getTitle().getString(), L"Please wait");
  Event press;
  press.type = Event::kMouseDown;
  press.buttons = kMouseLeft;
  EXPECT_EQ(indicator->react(press), 1);
  EXPECT_EQ(indicator->height(), ProgInd::calcHeight());
}

TEST_F(ProgIndTest, ReportsKeepTheInterfaceAliveByRunningWhatWaits) {
  TestClock clock(1000.0);
  ProgInd* indicator = ProgInd::make(L"Busy");
  int ran = 0;
  defer([&ran] { ++ran; });
  indicator->update_progress(L"step", 0.1);
  EXPECT_EQ(ran, 1);
  defer([&ran] { ++ran; });
  // Within the redraw gap: not drawn, but what waits still runs.
  indicator->update_progress(L"step", 0.2);
  EXPECT_EQ(ran, 2);
}

using TitledProgressBarTest = ProgressTest;

TEST_F(TitledProgressBarTest, ALabelOverAThinGaugeThatFollowsTheWidth) {
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  TitledProgressBar::InitArgs args(XY<int>(300, TitledProgressBar::calcHeight()));
  args.title = UIString(L"Audio");
  auto* bar = panel->createWidget<TitledProgressBar>(args, Glob::UserTopLeft(0, 0));
  EXPECT_EQ(bar->label()->getString().getString(), L"Audio");
  bar->setString(UIString(L"Video"));
  EXPECT_EQ(bar->label()->getString().getString(), L"Video");
  bar->setProgress(0.4);
  EXPECT_DOUBLE_EQ(bar->gauge()->getMeasure(), 0.4);
  bar->resize(200, bar->height());
  EXPECT_EQ(bar->label()->width(), 200);
  EXPECT_EQ(bar->gauge()->width(), 200 - 2 * UifStd::getWidgetGap());
  EXPECT_LT(bar->gauge()->getY(), bar->label()->getY());
  EXPECT_GE(bar->label()->getY(), 0);
}

TEST_F(TitledProgressBarTest, TheGaugeIsAsHighAsTheThemeSays) {
  UifStd::getTheme().set(GlobTheme::kGaugeHeightKey, 11);
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  TitledProgressBar::InitArgs args(XY<int>(300, TitledProgressBar::calcHeight()));
  auto* bar = panel->createWidget<TitledProgressBar>(args, Glob::UserTopLeft(0, 0));
  EXPECT_EQ(bar->gauge()->height(), 11);
  EXPECT_EQ(TitledProgressBar::calcHeight(), UifStd::getRowHeight() + UifStd::getRowGap() + 11);
}

using TaskProgressWidgetTest = ProgressTest;

TEST_F(TaskProgressWidgetTest, TheGaugeIsAsHighAsTheThemeSaysAndThePlainFormsLabelHasARowAboveIt) {
  UifStd::getTheme().set(GlobTheme::kGaugeHeightKey, 11);
  EXPECT_EQ(TaskProgressWidget::calcHeight(TaskProgressWidget::kPlain),
            UifStd::getRowHeight() + UifStd::getWidgetGap() + 11);
}

TaskProgressWidget* follow(StandardPanel* panel, Zo::Ptr<iBackgroundTask> const& task,
                           TaskProgressWidget::eAppearance appearance = TaskProgressWidget::kPlain) {
  TaskProgressWidget::InitArgs args(XY<int>(300, TaskProgressWidget::calcHeight(appearance)));
  args.task = task;
  args.label = UIString(L"Export");
  args.appearance = appearance;
  return panel->createWidget<TaskProgressWidget>(args, Glob::UserTopLeft(0, 0));
}

TEST_F(TaskProgressWidgetTest, AThousandProgressEventsInABurstLeadToOneGaugeUpdate) {
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  Zo::Ptr<HandDrivenTask> task(new HandDrivenTask);
  TaskProgressWidget* widget = follow(panel, task);
  std::thread worker([&task] {
    for (int i = 1; i <= 1000; ++i)
      task->reportProgress(static_cast<float>(i) / 1000.0f);
  });
  worker.join();
  EXPECT_EQ(MessageLoop::pendingCount(), 1u);
  pump();
  EXPECT_EQ(widget->gaugeUpdates(), 1);
  EXPECT_DOUBLE_EQ(widget->gauge()->getMeasure(), 1.0);
}

TEST_F(TaskProgressWidgetTest, TwoStatusEventsLeadToTwoBroadcastsInOrder) {
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  Zo::Ptr<HandDrivenTask> task(new HandDrivenTask);
  TaskProgressWidget* widget = follow(panel, task);
  std::vector<iBackgroundTask::eStatus> heard;
  widget->addListener(TaskProgressWidget::makeCallback(
      std::function<void(iBackgroundTask::eStatus const&)>([&heard](auto const& status) { heard.push_back(status); })));
  std::thread worker([&task] {
    task->setStatus(iBackgroundTask::kRunning);
    task->setStatus(iBackgroundTask::kCompleted);
  });
  worker.join();
  EXPECT_TRUE(heard.empty());
  pump();
  EXPECT_EQ(heard, (std::vector<iBackgroundTask::eStatus>{iBackgroundTask::kRunning, iBackgroundTask::kCompleted}));
}

TEST_F(TaskProgressWidgetTest, AWidgetDestroyedWithAnUpdatePendingDoesNothingWhenItComesDue) {
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  Zo::Ptr<HandDrivenTask> task(new HandDrivenTask);
  TaskProgressWidget* widget = follow(panel, task);
  std::thread worker([&task] {
    task->reportProgress(0.5f);
    task->setStatus(iBackgroundTask::kRunning);
  });
  worker.join();
  ASSERT_EQ(MessageLoop::pendingCount(), 2u);
  delete widget;
  pump();
  EXPECT_EQ(MessageLoop::pendingCount(), 0u);
  EXPECT_TRUE(panel->getChildren().empty());
}

TEST_F(TaskProgressWidgetTest, AnUpdateThatWouldNotMoveTheBarIsSkipped) {
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  Zo::Ptr<HandDrivenTask> task(new HandDrivenTask);
  TaskProgressWidget* widget = follow(panel, task);
  task->reportProgress(0.5f);
  pump();
  EXPECT_EQ(widget->gaugeUpdates(), 1);
  task->reportProgress(0.5001f);
  pump();
  EXPECT_EQ(widget->gaugeUpdates(), 1);
}

TEST_F(TaskProgressWidgetTest, TheTallFormHasABusySignTwoRowsHigher) {
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  Zo::Ptr<HandDrivenTask> task(new HandDrivenTask);
  TaskProgressWidget* tall = follow(panel, task, TaskProgressWidget::kTall);
  EXPECT_NE(tall->indicator(), nullptr);
  EXPECT_EQ(TaskProgressWidget::calcHeight(TaskProgressWidget::kTall) -
                TaskProgressWidget::calcHeight(TaskProgressWidget::kPlain),
            UifStd::getRowHeight() - UifStd::getWidgetGap());
}

TEST_F(TaskProgressWidgetTest, AtItsOwnHeightThePlainFormShowsItsLabelWholeAboveTheGauge) {
  StandardPanel* panel = openPanel(XY<int>(400, 200));
  Zo::Ptr<HandDrivenTask> task(new HandDrivenTask);
  TaskProgressWidget* widget = follow(panel, task);
  Glob* label = nullptr;
  for (Glob* child : widget->getChildren())
    if (child->isType("TextLabel"))
      label = child;
  ASSERT_NE(label, nullptr);
  EXPECT_GE(label->getY(), widget->gauge()->getY() + widget->gauge()->height()) << "not over the gauge";
  EXPECT_LE(label->getY() + label->height(), widget->height()) << "not cut at the top";
}

using RenderProgressPanelTest = ProgressTest;

TEST_F(RenderProgressPanelTest, AtProgressZeroThereIsNoTimeText) {
  TestClock clock(1000.0);
  RenderProgressPanel* panel = RenderProgressPanel::make(Zo::Image::kAspect16x9);
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = 0.0f;
  panel->handleProgressUpdate(snapshot);
  EXPECT_TRUE(labelOf(panel->gauge()).empty());
  clock.advance(30000.0);
  snapshot.progress = 0.5f;
  panel->handleProgressUpdate(snapshot);
  EXPECT_EQ(labelOf(panel->gauge()), L"00:00:30 remaining");
}

TEST_F(RenderProgressPanelTest, ReportsCloserThanTheGapAreDroppedButTheLastIsNot) {
  TestClock clock(1000.0);
  RenderProgressPanel* panel = RenderProgressPanel::make(Zo::Image::kAspect16x9);
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = 0.25f;
  clock.advance(1000.0);
  panel->handleProgressUpdate(snapshot);
  snapshot.progress = 0.5f;
  clock.advance(5.0);
  panel->handleProgressUpdate(snapshot);
  EXPECT_DOUBLE_EQ(panel->gauge()->getMeasure(), 0.25);
  snapshot.progress = 1.0f;
  panel->handleProgressUpdate(snapshot);
  EXPECT_DOUBLE_EQ(panel->gauge()->getMeasure(), 1.0);
}

TEST_F(RenderProgressPanelTest, TheLatestFrameIsShownInThePictureArea) {
  TestClock clock(1000.0);
  RenderProgressPanel* panel = RenderProgressPanel::make(Zo::Image::kAspect16x9);
  Zo::Box<int> const area = panel->getAreaForImage();
  EXPECT_EQ(area.width(),
            RenderProgressPanel::calcImageSize(static_cast<std::uint16_t>(panel->width()), Zo::Image::kAspect16x9).x);
  Zo::Image::Surface frame(32, 18);
  frame.fill(Colour(0.0, 192.0 / 255.0, 0.0));
  ProgressReportClient::ProgressSnapshot snapshot;
  snapshot.progress = 0.5f;
  snapshot.thumbnail = Zo::Ptr<iObject>(new Glib::VideoFrame(frame));
  clock.advance(1000.0);
  panel->handleProgressUpdate(snapshot);
  pump();
  XY<int> const middle((area.x0 + area.x1) / 2, (area.y0 + area.y1) / 2);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*panel, middle)), Rgb{0, 0xC0, 0}, 2));
}

TEST_F(RenderProgressPanelTest, ThePanelWritesNoLogLines) {
  RenderProgressPanel* panel = RenderProgressPanel::make(Zo::Image::kAspect4x3);
  EXPECT_EQ(panel->getTitle().getString(), L"Rendering");
  std::size_t const children = panel->getChildren().size();
  panel->write(L"ignored", LoggerBase::kOutputPlain);
  EXPECT_EQ(panel->getChildren().size(), children);
  EXPECT_TRUE(labelOf(panel->gauge()).empty());
  EXPECT_EQ(panel->height(), RenderProgressPanel::calcHeightFromWidth(static_cast<std::uint16_t>(panel->width()),
                                                                      Zo::Image::kAspect4x3));
}

} // namespace
