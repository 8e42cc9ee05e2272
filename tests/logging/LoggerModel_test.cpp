#include "LoggerTestSupport.h"

#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/SystemWatchdog.h>
#include <zowidgets/host/widgets/values/Gauge.h>

namespace {

using LoggerModel = LoggerTest;
using Lines = std::vector<std::wstring>;

TEST_F(LoggerModel, AFirstEmptyLineIsNotShownButALaterOneIs) {
  Logger* logger = openLogger();
  loggerWrite(logger, L"", LoggerBase::kOutputPlain);
  EXPECT_EQ(logger->numItems(), 0u);
  loggerWrite(logger, L"Rendering shot 1", LoggerBase::kOutputPlain);
  loggerWrite(logger, L"", LoggerBase::kOutputPlain);
  EXPECT_EQ(shownTexts(*logger), (Lines{L"Rendering shot 1", L""}));
}

TEST_F(LoggerModel, AMultiLineWriteGivesOneRowPerLineSharingTypeAndIndent) {
  Logger* logger = openLogger();
  logger->incIndent();
  logger->incIndent();
  loggerWrite(logger, L"first\nsecond\n\nfourth", LoggerBase::kOutputWarning);
  ASSERT_EQ(shownTexts(*logger), (Lines{L"first", L"second", L"", L"fourth"}));
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(logger->rows()[i].type, LoggerBase::kOutputWarning);
    EXPECT_EQ(logger->rows()[i].indent, 2);
  }
  // The log keeps the write as one item; only the rows are split.
  EXPECT_EQ(logger->getLog()->numItems(), 1u);
}

TEST_F(LoggerModel, AStatusLineFirstAddsNoBlankRowButLaterAddsOne) {
  Logger* logger = openLogger();
  logger_status_line(logger, "Pass %d", 1);
  EXPECT_EQ(shownTexts(*logger), (Lines{L"Pass 1"}));
  logger_write(logger, "%s", "frame 12");
  logger_status_line(logger, "Pass %d", 2);
  EXPECT_EQ(shownTexts(*logger), (Lines{L"Pass 1", L"frame 12", L" ", L"Pass 2"}));
  EXPECT_EQ(logger->rows()[2].type, LoggerBase::kOutputPlain);
  EXPECT_EQ(logger->rows()[3].type, LoggerBase::kOutputStatusLine);
}

TEST_F(LoggerModel, TheFormattingFunctionsWriteTheirKinds) {
  Logger* logger = openLogger();
  logger_write(logger, "plain %d", 1);
  logger_warning(logger, "warn %s", "two");
  logger_error(logger, "error %03d", 3);
  ASSERT_EQ(shownTexts(*logger), (Lines{L"plain 1", L"warn two", L"error 003"}));
  EXPECT_EQ(logger->rows()[0].type, LoggerBase::kOutputPlain);
  EXPECT_EQ(logger->rows()[1].type, LoggerBase::kOutputWarning);
  EXPECT_EQ(logger->rows()[2].type, LoggerBase::kOutputError);
  EXPECT_TRUE(rgbOf(logger->rows()[1].fg) == rgbOf(Colour(1.0, 0.7, 0.0)));
  EXPECT_TRUE(rgbOf(logger->rows()[2].fg) == rgbOf(logger->getPalette().warning()));
}

TEST_F(LoggerModel, AFormattedTextTooLongForItsBufferEndsTheProcess) {
  Logger* logger = openLogger();
  std::string const tooLong(1024, 'x');
  EXPECT_DEATH(logger_write(logger, "%s", tooLong.c_str()), "");
  std::string const longest(1023, 'y');
  logger_write(logger, "%s", longest.c_str());
  EXPECT_EQ(logger->rows()[0].text.size(), 1023u);
}

TEST_F(LoggerModel, ADeadLoggerPointerMakesEveryFunctionDoNothing) {
  Logger* logger = openLogger();
  Zo::Ptr<iTaskLog> const log = logger->getLog();
  delete logger;
  loggerWrite(logger, L"after", LoggerBase::kOutputPlain);
  logger_write(logger, "after");
  logger_warning(logger, "after");
  logger_error(logger, "after");
  logger_status_line(logger, "after");
  logger_set_new_title(logger, L"after");
  logger_display_progress(logger, 0.5);
  logger_setFont(logger, "Sans", Colour(0, 0, 0));
  EXPECT_EQ(log->numItems(), 0u);
}

TEST_F(LoggerModel, ALoggerOpenedLateShowsTheLogsHistory) {
  Zo::Ptr<iTaskLog> log(new TaskLog);
  log->write(L"queued", LoggerBase::kOutputPlain);
  log->write(L"started", LoggerBase::kOutputSuccess);
  Logger::InitArgs args(10, 0, 0);
  args.log = log;
  Logger* logger = make_logger(args, 50, 50);
  EXPECT_EQ(shownTexts(*logger), (Lines{L"queued", L"started"}));
  log->write(L"finished", LoggerBase::kOutputPlain);
  EXPECT_EQ(shownTexts(*logger), (Lines{L"queued", L"started", L"finished"}));
}

TEST_F(LoggerModel, TheLoggerHasNoFileOfItsOwn) {
  Logger* logger = openLogger();
  logger->setFilename(L"/tmp/x.txt");
  LightweightString<wchar_t> name(L"untouched");
  logger->getFilename(name);
  EXPECT_TRUE(name.empty());
  EXPECT_STREQ(logger->idstring(), "logger");
}

TEST_F(LoggerModel, FastScrollKeepsFillerRowsHalfAPageAheadOfTheText) {
  Logger* logger = openLogger(0, 10);
  int const page = logger->table()->numLines();
  ASSERT_GT(page, 1);
  logger_write(logger, "one");
  EXPECT_EQ(logger->numItems(), 1u);
  EXPECT_EQ(logger->rows().size(), static_cast<std::size_t>(page / 2));
  EXPECT_EQ(logger->getSize(), page / 2);
}

TEST_F(LoggerModel, TheSavedTextEndsWithBlankLinesWhenFillerRowsExist) {
  Logger* logger = openLogger(0, 10);
  logger_write(logger, "alpha");
  logger_write(logger, "beta");
  ASSERT_GT(logger->rows().size(), logger->numItems());
  LightweightString<wchar_t> const path =
      logger->saveToFile(LightweightString<wchar_t>::fromUTF8(folder.string()), L"render");
  ASSERT_FALSE(path.empty());
  std::vector<std::string> const lines = readLines(path.toUTF8().str());
  ASSERT_EQ(lines.size(), logger->rows().size());
  EXPECT_EQ(lines[0], "alpha");
  EXPECT_EQ(lines[1], "beta");
  for (std::size_t i = 2; i < lines.size(); ++i)
    EXPECT_EQ(lines[i], "");
}

TEST_F(LoggerModel, SavingUnderANameEndingInUpperCaseTXTGivesOneExtension) {
  Logger* logger = openLogger();
  logger_write(logger, "alpha");
  LightweightString<wchar_t> const path =
      logger->saveToFile(LightweightString<wchar_t>::fromUTF8(folder.string()), L"Render.TXT");
  EXPECT_EQ(std::filesystem::path(path.toUTF8().str()).filename(), "Render.txt");
  EXPECT_TRUE(std::filesystem::exists(folder / "Render.txt"));
}

TEST_F(LoggerModel, SavingAsTextConfirmsWithALinkToTheFile) {
  Logger* logger = openLogger();
  logger_write(logger, "alpha");
  std::size_t const windowsBefore = GlobManager::topLevelWindows().size();
  LightweightString<wchar_t> const path =
      logger->saveToFile(LightweightString<wchar_t>::fromUTF8(folder.string()), L"render");
  auto const windows = GlobManager::topLevelWindows();
  ASSERT_EQ(windows.size(), windowsBefore + 1);
  Logger* confirmation = nullptr;
  for (Glob* window : windows)
    if (window != logger && is_good_glob_ptr(window, "logger"))
      confirmation = static_cast<Logger*>(window);
  ASSERT_NE(confirmation, nullptr);
  ASSERT_EQ(confirmation->numItems(), 1u);
  EXPECT_EQ(confirmation->rows()[0].type, LoggerBase::kOutputHyperLink);
  EXPECT_EQ(LoggerBase::HyperLink::fromString(confirmation->rows()[0].text).targets().front(), path);
}

TEST_F(LoggerModel, TheSavedConfirmationStandsOverItsLogShowsItsRowWholeAndEscapeClosesIt) {
  Logger* logger = openLogger();
  logger_write(logger, "alpha");
  logger->saveToFile(LightweightString<wchar_t>::fromUTF8(folder.string()), L"render");
  Logger* confirmation = nullptr;
  for (Glob* window : GlobManager::topLevelWindows())
    if (window != logger && is_good_glob_ptr(window, "logger"))
      confirmation = static_cast<Logger*>(window);
  ASSERT_NE(confirmation, nullptr);
  pump();
  Zo::Box<int> const log = logger->canvas()->screenBox();
  Zo::Box<int> const shown = confirmation->canvas()->screenBox();
  EXPECT_NEAR((shown.x0 + shown.x1) / 2, (log.x0 + log.x1) / 2, 1) << "over the log, not in a corner";
  EXPECT_NEAR((shown.y0 + shown.y1) / 2, (log.y0 + log.y1) / 2, 1);
  TableWidget* table = confirmation->table();
  EXPECT_GE(table->getUserArea().height(), table->getCellBox(XY<int>(0, 0)).height()) << "the row whole";

  ASSERT_EQ(GlobManager::currentModal(), confirmation);
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(confirmation)) << "a modal window the user can leave from the keyboard";
  EXPECT_TRUE(is_good_glob_ptr(logger));
}

TEST_F(LoggerModel, ClosingWithAnAutoSaveFileWritesTheRowsAndTellsTheListener) {
  struct Listener : StandardPanel {
    using StandardPanel::StandardPanel;
    int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
      heard.push_back(message.str());
      return StandardPanel::handleMessageEvent(message, sender);
    }
    std::vector<std::string> heard;
  };
  auto* listener = new Listener(StandardPanel::InitArgs(XY<int>(50, 50)));
  GlobManager::realize(listener);
  ::setenv("XDG_DATA_HOME", folder.c_str(), 1);
  Logger::InitArgs args(10, 0, 0);
  args.autoSaveFile = L"logs/last render.txt";
  args.listener = listener;
  Logger* logger = make_logger(args, 50, 50);
  logger_write(logger, "kept");
  delete logger;
  ::unsetenv("XDG_DATA_HOME");
  std::filesystem::path const saved = folder / "zowidgets" / "logs" / "last render.txt";
  ASSERT_TRUE(std::filesystem::exists(saved));
  EXPECT_EQ(readLines(saved).front(), "kept");
  EXPECT_EQ(listener->heard, (std::vector<std::string>{"logger_died"}));
}

TEST_F(LoggerModel, ProgressAtZeroRestartsTheClockAndTheLabelStaysEmptyUntilTheNextReport) {
  TestClock clock(1000.0);
  Logger* logger = openLogger(Logger::kFlagSharkGauge);
  ASSERT_NE(logger->gauge(), nullptr);
  logger->progress(0.0);
  EXPECT_TRUE(logger->gauge()->getLabel().getString().empty());
  clock.advance(10000.0);
  logger->progress(0.5);
  EXPECT_EQ(logger->gauge()->getLabel().getString(), L"00:00:10 remaining");
  clock.advance(50000.0);
  logger->progress(0.0);
  EXPECT_TRUE(logger->gauge()->getLabel().getString().empty());
  EXPECT_DOUBLE_EQ(logger->gauge()->getMeasure(), 0.0);
  clock.advance(4000.0);
  logger->progress(0.25);
  EXPECT_EQ(logger->gauge()->getLabel().getString(), L"00:00:12 remaining");
}

TEST_F(LoggerModel, ElapsedTimeRoundsToTheNearestSecondAndRemainingTimeIsCut) {
  TestClock clock(1000.0);
  Logger* logger = openLogger(Logger::kFlagSharkGauge);
  logger->progress(0.0);
  clock.advance(3499.0);
  logger->progress(1.0);
  EXPECT_EQ(logger->gauge()->getLabel().getString(), L"Elapsed time: 00:00:03");
  logger->progress(0.0);
  clock.advance(3500.0);
  logger->progress(1.0);
  EXPECT_EQ(logger->gauge()->getLabel().getString(), L"Elapsed time: 00:00:04");
  logger->progress(0.0);
  clock.advance(1900.0);
  // 1.9 s at half way leaves 1.9 s: cut to 1, never rounded to 2.
  logger->progress(0.5);
  EXPECT_EQ(logger->gauge()->getLabel().getString(), L"00:00:01 remaining");
}

TEST_F(LoggerModel, ProgressKeepsTheWatchdogQuietEvenWithoutAGauge) {
  Logger* logger = openLogger();
  ASSERT_EQ(logger->gauge(), nullptr);
  std::uint64_t const before = SystemWatchdog::heartbeatCount();
  logger_display_progress(logger, 0.3);
  EXPECT_EQ(SystemWatchdog::heartbeatCount(), before + 1);
}

TEST_F(LoggerModel, ProgressFromTheLogReachesTheGauge) {
  Logger* logger = openLogger(Logger::kFlagPlainGauge);
  ASSERT_NE(logger->gauge(), nullptr);
  logger->getLog()->reportProgress(0.75);
  EXPECT_DOUBLE_EQ(logger->gauge()->getMeasure(), 0.75);
}

TEST_F(LoggerModel, ALoggerWithoutTableOrGaugeDoesNotListen) {
  Logger* logger = openLogger(Logger::kFlagNoTable);
  EXPECT_EQ(logger->table(), nullptr);
  logger->write(L"unseen", LoggerBase::kOutputPlain);
  EXPECT_EQ(logger->numItems(), 0u);
  EXPECT_EQ(logger->getLog()->numItems(), 1u);
}

TEST_F(LoggerModel, TheTitleCanBeChanged) {
  Logger* logger = openLogger();
  logger_set_new_title(logger, L"Export log");
  EXPECT_EQ(logger->titleText(), L"Export log");
  EXPECT_EQ(logger->getTitle().getString(), L"Export log");
}

} // namespace
