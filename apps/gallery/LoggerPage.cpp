// The log and its progress: a task log with rows of every kind, shown by
// the command "ShowLog" in a window that saves it as HTML (and, from its
// menu, as text); lines written from four threads at once; a progress window
// and a task's gauge.
#include "PageLayout.h"

#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/logging/SavableLogger.h>
#include <zowidgets/logging/TitledProgressBar.h>

#include <string>
#include <thread>
#include <vector>

namespace {

Zo::Ptr<iTaskLog> sampleLog() {
  Zo::Ptr<iTaskLog> log(new TaskLog);
  log->write(L"Render started", LoggerBase::kOutputStatusLine);
  log->write(LoggerBase::HyperLink(L"Read the render notes", {L"https://example.org/render-notes"}).toString(),
             LoggerBase::kOutputHyperLink);
  log->write(L"Shot 1 of 3: 240 frames", LoggerBase::kOutputPlain);
  log->write(L"clip.mov is offline; a black frame stands in", LoggerBase::kOutputWarning);
  log->write(L"<script>alert('a log line is only text')</script>", LoggerBase::kOutputPlain);
  log->write(L"Disk nearly full", LoggerBase::kOutputError);
  log->write(L"Render finished", LoggerBase::kOutputSuccess);
  return log;
}

void writeFromFourThreads(Zo::Ptr<iTaskLog> const& log) {
  std::vector<std::thread> writers;
  for (int writer = 0; writer < 4; ++writer)
    writers.emplace_back([log, writer] {
      for (int line = 0; line < 250; ++line)
        log->write(LightweightString<wchar_t>(
                       (L"Thread " + std::to_wstring(writer + 1) + L", line " + std::to_wstring(line + 1)).c_str()),
                   LoggerBase::kOutputDim);
    });
  for (auto& writer : writers)
    writer.join();
}

Glob* buildLoggerPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = 16 * m.row;
  StandardPanel* panel = openPageWindow(context, XY<int>(width + 2 * m.gap, 5 * m.row + 6 * m.gap), L"Logger");
  Zo::Ptr<iTaskLog> const log = sampleLog();

  TextLabel::InitArgs note(XY<int>(width, m.row));
  note.text = L"A task's log, shown and saved";
  auto* label = panel->createWidget<TextLabel>(note, Glob::UserTopLeft(m.gap, m.gap));

  auto* show = panel->createWidget<PushButton>(PushButton::InitArgs(L"Show log", XY<int>(7 * m.row, 0)),
                                               Glob::Below(m.gap, label));
  show->setCallback(Broadcaster<ButtonEvent>::makeCallback([panel, log](ButtonEvent const&) {
    CommandMap::callCommand(SavableLogger::kCommand, Cmd::Context{panel, log});
  }));

  auto* threads = panel->createWidget<PushButton>(
      PushButton::InitArgs(L"Write from four threads", XY<int>(10 * m.row, 0)), Glob::Below(m.gap, show));
  threads->setCallback(
      Broadcaster<ButtonEvent>::makeCallback([log](ButtonEvent const&) { writeFromFourThreads(log); }));

  TitledProgressBar::InitArgs barArgs(XY<int>(width, TitledProgressBar::calcHeight()));
  barArgs.title = UIString(L"Render progress");
  auto* bar = panel->createWidget<TitledProgressBar>(barArgs, Glob::Below(m.gap, threads));
  bar->setProgress(0.6);
  return panel;
}

PageRegistrar const loggerPage{"logger", "Logger and progress",
                               "The ShowLog command's logger over a task log with rows of every kind, which saves "
                               "it as TaskLog.html and, from its menu, as text; four threads writing at once; a "
                               "titled progress bar",
                               buildLoggerPage};

} // namespace
