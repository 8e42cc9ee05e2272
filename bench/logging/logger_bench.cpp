// The logger against the peers a program might log through instead.
//
// Lines from 1 and 4 worker threads into a TaskLog shown by a Logger, timed
// until the logger holds every line, against spdlog's asynchronous logger
// (its thread pool, blocking when full) with a sink that only counts,
// timed until the sink has seen every line.
//
// 100,000 lines appended to a shown log and painted, against Qt 5's
// QPlainTextEdit::appendPlainText of the same lines and a paint offscreen.
//
// A log of 1,000,000 rows scrolled by one page, with the paint that follows.

#include "QtApplication.h"

#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/logging/Logger.h>
#include <zowidgets/logging/LoggerFunctions.h>

#include <QtGui/QImage>
#include <QtWidgets/QPlainTextEdit>

#include <spdlog/async.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <benchmark/benchmark.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kLinesPerThread = 25000;

std::vector<LightweightString<wchar_t>> linesFor(int writer) {
  std::vector<LightweightString<wchar_t>> lines;
  lines.reserve(kLinesPerThread);
  for (int i = 0; i < kLinesPerThread; ++i)
    lines.emplace_back((L"worker " + std::to_wstring(writer) + L" rendered frame " + std::to_wstring(i)).c_str());
  return lines;
}

void drain() {
  while (MessageLoop::runPending() != 0) {
  }
}

Logger* openLogger(std::uint16_t rows = 20) {
  Logger::InitArgs args(rows, 500, 0);
  return make_logger(args, 20, 20);
}

void closeAll() {
  for (Glob* window : GlobManager::topLevelWindows())
    GlobManager::requestDeletion(window);
  drain();
}

void zoLoggerFromThreads(benchmark::State& state) {
  useHeadlessScreen();
  int const threads = static_cast<int>(state.range(0));
  std::vector<std::vector<LightweightString<wchar_t>>> lines;
  for (int writer = 0; writer < threads; ++writer)
    lines.push_back(linesFor(writer));
  std::size_t const total = static_cast<std::size_t>(threads) * kLinesPerThread;
  for (auto _ : state) {
    state.PauseTiming();
    Logger* logger = openLogger();
    drain();
    state.ResumeTiming();
    std::vector<std::thread> writers;
    for (int writer = 0; writer < threads; ++writer)
      writers.emplace_back([logger, &lines, writer] {
        for (auto const& line : lines[static_cast<std::size_t>(writer)])
          loggerWrite(logger, line, LoggerBase::kOutputPlain);
      });
    while (logger->numItems() < total)
      MessageLoop::runUntil([&] { return MessageLoop::pendingCount() != 0; }, std::chrono::milliseconds(5));
    for (auto& writer : writers)
      writer.join();
    drain();
    state.PauseTiming();
    if (logger->numItems() != total)
      state.SkipWithError("lines were lost");
    closeAll();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(total));
}

// A sink that only counts what reaches it.
class CountingSink : public spdlog::sinks::base_sink<std::mutex> {
public:
  std::atomic<std::size_t> seen{0};

protected:
  void sink_it_(spdlog::details::log_msg const&) override { seen.fetch_add(1, std::memory_order_relaxed); }
  void flush_() override {}
};

void spdlogAsyncFromThreads(benchmark::State& state) {
  int const threads = static_cast<int>(state.range(0));
  std::vector<std::vector<std::string>> lines(static_cast<std::size_t>(threads));
  for (int writer = 0; writer < threads; ++writer)
    for (auto const& line : linesFor(writer))
      lines[static_cast<std::size_t>(writer)].push_back(line.toUTF8().str());
  std::size_t const total = static_cast<std::size_t>(threads) * kLinesPerThread;
  auto pool = std::make_shared<spdlog::details::thread_pool>(8192, 1);
  for (auto _ : state) {
    state.PauseTiming();
    auto sink = std::make_shared<CountingSink>();
    auto logger = std::make_shared<spdlog::async_logger>("bench", sink, pool, spdlog::async_overflow_policy::block);
    state.ResumeTiming();
    std::vector<std::thread> writers;
    for (int writer = 0; writer < threads; ++writer)
      writers.emplace_back([&logger, &lines, writer] {
        for (auto const& line : lines[static_cast<std::size_t>(writer)])
          logger->info(line);
      });
    for (auto& writer : writers)
      writer.join();
    while (sink->seen.load(std::memory_order_relaxed) < total)
      std::this_thread::yield();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(total));
}

constexpr int kAppended = 100000;

void zoLoggerAppendAndPaint(benchmark::State& state) {
  useHeadlessScreen();
  std::vector<LightweightString<wchar_t>> lines;
  for (int i = 0; i < kAppended; ++i)
    lines.emplace_back((L"Conformed clip " + std::to_wstring(i) + L" of the timeline").c_str());
  for (auto _ : state) {
    state.PauseTiming();
    Logger* logger = openLogger();
    drain();
    int const paintsBefore = logger->canvas()->paintCount();
    state.ResumeTiming();
    {
      Drawable::Suspender hold;
      for (auto const& line : lines)
        logger->write(line, LoggerBase::kOutputPlain);
      drain();
    }
    state.PauseTiming();
    if (logger->numItems() != static_cast<std::size_t>(kAppended) || logger->canvas()->paintCount() == paintsBefore)
      state.SkipWithError("the lines were not all shown and painted");
    closeAll();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * kAppended);
}

void qtPlainTextAppendAndPaint(benchmark::State& state) {
  ensureQtApplication();
  std::vector<QString> lines;
  for (int i = 0; i < kAppended; ++i)
    lines.push_back(QString::fromStdWString(L"Conformed clip " + std::to_wstring(i) + L" of the timeline"));
  for (auto _ : state) {
    state.PauseTiming();
    auto view = std::make_unique<QPlainTextEdit>();
    view->setReadOnly(true);
    view->resize(500, 20 * 23);
    QImage target(view->size(), QImage::Format_ARGB32_Premultiplied);
    state.ResumeTiming();
    for (auto const& line : lines)
      view->appendPlainText(line);
    view->render(&target);
    state.PauseTiming();
    if (view->blockCount() != kAppended)
      state.SkipWithError("the lines were not all appended");
    view.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * kAppended);
}

void zoLoggerScrollOnePage(benchmark::State& state) {
  useHeadlessScreen();
  int const rows = static_cast<int>(state.range(0));
  std::vector<LoggerBase::Item> items;
  items.reserve(static_cast<std::size_t>(rows));
  for (int i = 0; i < rows; ++i)
    items.emplace_back(LightweightString<wchar_t>((L"Row " + std::to_wstring(i) + L" of the log").c_str()),
                       LoggerBase::kOutputPlain);
  Logger* logger = openLogger(30);
  logger->setItems(items);
  drain();
  TableWidget* table = logger->table();
  int const line = UifStd::getRowHeight();
  int const page = table->numLines() * line;
  int const last = (rows - table->numLines()) * line;
  int const paintsBefore = logger->canvas()->paintCount();
  int offset = 0;
  for (auto _ : state) {
    offset = offset + page > last ? 0 : offset + page;
    table->setScrollOffset(offset);
  }
  if (logger->canvas()->paintCount() - paintsBefore < static_cast<int>(state.iterations()))
    state.SkipWithError("a scroll was not painted");
  closeAll();
}

BENCHMARK(zoLoggerFromThreads)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(spdlogAsyncFromThreads)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(zoLoggerAppendAndPaint)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(qtPlainTextAppendAndPaint)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(zoLoggerScrollOnePage)->Arg(1000000)->Unit(benchmark::kMicrosecond);

} // namespace
