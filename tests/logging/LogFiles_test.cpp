#include "LoggerTestSupport.h"

#include <zowidgets/export/SaveFileDialogue.h>
#include <zowidgets/host/drawing/HTMLUtils.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/files/FileChooserWindow.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/logging/LogFiles.h>
#include <zowidgets/logging/OutfileReporter.h>
#include <zowidgets/logging/SavableLogger.h>

#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <random>
#include <regex>

namespace {

using LogFilesTest = LoggerTest;
using Item = LoggerBase::Item;
using Strings = std::vector<std::string>;

Strings utf8(std::vector<LightweightString<wchar_t>> const& lines) {
  Strings out;
  for (auto const& line : lines)
    out.push_back(line.toUTF8().str());
  return out;
}

TEST(LogFileLines, EachKindOfRowHasItsOwnHTML) {
  std::vector<Item> const items{
      {L"plain", LoggerBase::kOutputPlain},
      {L"dropped", LoggerBase::kOutputUnstyled},
      {L"careful", LoggerBase::kOutputWarning},
      {L"quiet", LoggerBase::kOutputDim},
      {L"broken", LoggerBase::kOutputError},
      {L"Pass 2", LoggerBase::kOutputStatusLine},
      {L"/a/b.mov", LoggerBase::kOutputHyperLink},
      {L"Audio", LoggerBase::kOutputSubheading},
      {L"", LoggerBase::kOutputDivider},
      {L"done", LoggerBase::kOutputSuccess},
      {L"odd", static_cast<LoggerBase::eOutputType>(42)},
  };
  EXPECT_EQ(utf8(LogFiles::htmlLines(items)), (Strings{
                                                  "<pre>",
                                                  "<p>plain</p>",
                                                  "",
                                                  "<font color=\"#999900\">careful</font>",
                                                  "<i>quiet</i>",
                                                  "<font color=\"#ff0000\">broken</font>",
                                                  "",
                                                  "<b>Pass 2</b>",
                                                  "",
                                                  "<b>Audio</b>",
                                                  "",
                                                  "<b></b>",
                                                  "<font color=\"#00cc33\">done</font>",
                                                  "",
                                                  "</pre>",
                                              }));
}

TEST(LogFileLines, ALinkRowIsAnEmptyLineAndAPlainEmptyRowIsAnEmptyParagraph) {
  std::vector<Item> const items{
      {L"", LoggerBase::kOutputPlain},
      {LoggerBase::HyperLink(L"Render", {L"/r/final.mov"}).toString(), LoggerBase::kOutputHyperLink}};
  EXPECT_EQ(utf8(LogFiles::htmlLines(items)), (Strings{"<pre>", "<p></p>", "", "</pre>"}));
}

TEST(LogFileLines, MarkupInALogTextIsEscapedSoItShowsAsText) {
  std::vector<Item> const items{{L"<script>alert(1)</script>", LoggerBase::kOutputPlain},
                                {L"<img src=x onerror=\"alert(2)\">", LoggerBase::kOutputError},
                                {L"caf\u00e9 & \U0001F3AC", LoggerBase::kOutputPlain}};
  EXPECT_EQ(utf8(LogFiles::htmlLines(items)),
            (Strings{"<pre>", "<p>&lt;script&gt;alert(1)&lt;/script&gt;</p>",
                     "<font color=\"#ff0000\">&lt;img src=x onerror=&quot;alert(2)&quot;&gt;</font>",
                     "<p>caf&#xE9; &amp; &#x1F3AC;</p>", "</pre>"}));
}

// The text inside the tags one kind of row is wrapped in, or nullopt when
// the line is not in that form.
std::optional<std::wstring> unwrap(std::wstring const& line) {
  static std::wregex const wrapped(LR"(^(?:<p>|<font color="#[0-9a-f]{6}">|<i>|<b>)(.*?)(?:</p>|</font>|</i>|</b>)$)");
  std::wsmatch match;
  if (!std::regex_match(line, match, wrapped))
    return std::nullopt;
  return match[1].str();
}

TEST(LogFileLines, RandomTextsWithMarkupQuotesAndAmpersandsComeBackAsTheSameTextAndNeverAsElements) {
  std::mt19937 random(20261126);
  std::vector<std::wstring> const pieces{
      L"<",   L">", L"&",     L"\"",     L"'",      L"<script>",   L"</p>", L"&amp;", L"&#60;", L"<img onerror=x>",
      L"<b>", L" ", L"frame", L"\u00e9", L"\u4e2d", L"\U0001F600", L"\t",   L"=",     L"/"};
  std::vector<LoggerBase::eOutputType> const styled{LoggerBase::kOutputPlain,      LoggerBase::kOutputWarning,
                                                    LoggerBase::kOutputDim,        LoggerBase::kOutputError,
                                                    LoggerBase::kOutputSubheading, LoggerBase::kOutputSuccess};
  for (int round = 0; round < 500; ++round) {
    std::wstring text;
    int const length = static_cast<int>(random() % 12);
    for (int i = 0; i < length; ++i)
      text += pieces[random() % pieces.size()];
    LoggerBase::eOutputType const type = styled[random() % styled.size()];
    auto const lines = LogFiles::htmlLines({Item(LightweightString<wchar_t>(text), type)});
    ASSERT_EQ(lines.size(), 3u);
    std::optional<std::wstring> const inner = unwrap(lines[1].str());
    ASSERT_TRUE(inner) << lines[1].toUTF8().str();
    EXPECT_EQ(inner->find_first_of(L"<>\""), std::wstring::npos) << lines[1].toUTF8().str();
    EXPECT_EQ(HTMLUtils::unescape(*inner).str(), text) << lines[1].toUTF8().str();
  }
}

TEST_F(LogFilesTest, TheHTMLFileIsAlwaysTaskLogAndReplacesAnEarlierOne) {
  LightweightString<wchar_t> const where = LightweightString<wchar_t>::fromUTF8(folder.string());
  std::filesystem::path const expected = folder / "TaskLog.html";
  ASSERT_TRUE(LogFiles::saveHtml({Item(L"first", LoggerBase::kOutputPlain)}, LogFiles::htmlPath(where)));
  ASSERT_TRUE(LogFiles::saveHtml({Item(L"second", LoggerBase::kOutputPlain)}, LogFiles::htmlPath(where)));
  EXPECT_EQ(readFile(expected), "<pre>\n<p>second</p>\n</pre>\n");
}

TEST_F(LogFilesTest, ASaveInterruptedBeforeItsRenameLeavesTheEarlierFileWhole) {
  LightweightString<wchar_t> const path =
      LogFiles::textPath(LightweightString<wchar_t>::fromUTF8(folder.string()), L"log");
  ASSERT_TRUE(LogFiles::saveText({L"the earlier log", L"kept whole"}, path));
  std::string const earlier = readFile(path.toUTF8().str());

  // A child process is killed by the kernel while it writes the new file,
  // as a crash would end it: it may write no more than 4 kB.
  pid_t const child = ::fork();
  ASSERT_NE(child, -1);
  if (child == 0) {
    rlimit const limit{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::vector<LightweightString<wchar_t>> big(2000, LightweightString<wchar_t>(L"a line of a long render log"));
    LogFiles::saveText(big, path);
    ::_exit(0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status)) << "the save was not interrupted";
  EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
  EXPECT_EQ(readFile(path.toUTF8().str()), earlier);
}

TEST_F(LogFilesTest, ShowLogOpensASavableLoggerThatSavesTheLogAsHTML) {
  Zo::Ptr<iTaskLog> log(new TaskLog);
  log->write(L"<script>document.title='ran'</script>", LoggerBase::kOutputPlain);
  log->write(L"Pass 1", LoggerBase::kOutputStatusLine);
  std::size_t const before = GlobManager::topLevelWindows().size();
  CommandMap::callCommand(SavableLogger::kCommand, Cmd::Context{nullptr, log});
  auto const windows = GlobManager::topLevelWindows();
  ASSERT_EQ(windows.size(), before + 1);
  auto* logger = dynamic_cast<SavableLogger*>(windows.back());
  ASSERT_NE(logger, nullptr);
  // The status line brings a blank row above it.
  EXPECT_EQ(logger->numItems(), 3u);
  ASSERT_EQ(logger->buttons().size(), 1u);

  HeadlessInput::clickOn(*logger->buttons().front());
  pump();
  std::filesystem::path const saved = folder / "TaskLog.html";
  ASSERT_TRUE(std::filesystem::exists(saved));
  EXPECT_EQ(readFile(saved),
            "<pre>\n<p>&lt;script&gt;document.title='ran'&lt;/script&gt;</p>\n\n<b>Pass 1</b>\n</pre>\n");
}

TEST_F(LogFilesTest, TheProgramsLogStaysWhenWindowsAreTidiedAway) {
  Zo::Ptr<iTaskLog> log(new TaskLog);
  SavableLogger* logger = SavableLogger::make(log);
  EXPECT_TRUE(logger->isIndestructible());
  GlobManager::deleteDestroyableWindows();
  MessageLoop::runPending();
  auto const windows = GlobManager::topLevelWindows();
  EXPECT_NE(std::find(windows.begin(), windows.end(), logger), windows.end());
}

TEST_F(LogFilesTest, ShowLogWithoutALogDoesNothing) {
  std::size_t const before = GlobManager::topLevelWindows().size();
  CommandMap::callCommand(SavableLogger::kCommand, Cmd::Context{});
  EXPECT_EQ(GlobManager::topLevelWindows().size(), before);
}

TEST_F(LogFilesTest, AChosenFolderIsWhereTheHTMLGoesAndACancelledChoiceSavesNothing) {
  Zo::Ptr<iTaskLog> log(new TaskLog);
  log->write(L"frame", LoggerBase::kOutputPlain);
  SavableLogger* logger = SavableLogger::make(log);
  std::filesystem::create_directories(folder / "chosen");
  LightweightString<wchar_t> answer;
  int asked = 0;
  LogSaveChooser::setFolderChooser(
      [&](Glob*, UIString const&, LightweightString<wchar_t> const&, LogSaveChooser::FolderChosen const& chosen) {
        ++asked;
        chosen(answer);
      });
  logger->requestSaveHtml();
  EXPECT_FALSE(std::filesystem::exists(folder / "TaskLog.html"));
  answer = LightweightString<wchar_t>::fromUTF8((folder / "chosen").string());
  logger->requestSaveHtml();
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(std::filesystem::exists(folder / "chosen" / "TaskLog.html"));
}

template <class Window> Window* openWindow(std::function<bool(Window*)> const& wanted = {}) {
  for (Glob* window : GlobManager::topLevelWindows())
    if (auto* found = dynamic_cast<Window*>(window); found && (!wanted || wanted(found)))
      return found;
  return nullptr;
}

TEST_F(LogFilesTest, ByDefaultATextSaveAsksForANameInTheSaveDialogue) {
  LogSaveChooser::setNameChooser({});
  Logger* logger = openLogger();
  logger->getLog()->write(L"Render started", LoggerBase::kOutputPlain);
  pump();
  logger->requestSaveToFile();
  pump();
  SaveFileDialogue* dialogue = openWindow<SaveFileDialogue>();
  ASSERT_NE(dialogue, nullptr);
  EXPECT_FALSE(std::filesystem::exists(folder / "Render log.txt"));
  Button* save = nullptr;
  for (Glob* child : dialogue->getChildren())
    if (child->getName() == "save")
      save = dynamic_cast<Button*>(child);
  ASSERT_NE(save, nullptr);
  HeadlessInput::clickOn(*save);
  pump();
  EXPECT_EQ(openWindow<SaveFileDialogue>(), nullptr);
  std::string const saved = readFile(folder / "Render log.txt");
  EXPECT_EQ(saved.substr(0, saved.find('\n')), "Render started");
}

TEST_F(LogFilesTest, ATextSaveOverAnExistingFileAsksFirstAndNoKeepsTheFile) {
  outfile_reporter::overwrite = nullptr;
  std::ofstream(folder / "Render log.txt") << "an earlier render\n";
  Logger* logger = openLogger();
  logger->getLog()->write(L"Render started", LoggerBase::kOutputPlain);
  pump();
  std::size_t const windowsBefore = GlobManager::topLevelWindows().size();
  logger->requestSaveToFile();
  pump();
  ASSERT_TRUE(is_good_glob_ptr(outfile_reporter::overwrite, "warn")) << "asked before replacing";
  auto* question = static_cast<Warn*>(outfile_reporter::overwrite);
  EXPECT_EQ(question->getText().str(),
            LightweightString<wchar_t>::fromUTF8((folder / "Render log.txt").string()).str() +
                L" already exists. Do you want to replace it?");
  EXPECT_EQ(readFile(folder / "Render log.txt"), "an earlier render\n") << "nothing written before the answer";
  HeadlessInput::clickOn(*question->getButton(1));
  pump();
  EXPECT_EQ(readFile(folder / "Render log.txt"), "an earlier render\n") << "No keeps the file";
  EXPECT_EQ(GlobManager::topLevelWindows().size(), windowsBefore) << "and confirms nothing";
}

TEST_F(LogFilesTest, ATextSaveOverAnExistingFileReplacesItWhenTheUserAgrees) {
  outfile_reporter::overwrite = nullptr;
  std::ofstream(folder / "Render log.txt") << "an earlier render\n";
  Logger* logger = openLogger();
  logger->getLog()->write(L"Render started", LoggerBase::kOutputPlain);
  pump();
  logger->requestSaveToFile();
  pump();
  ASSERT_TRUE(is_good_glob_ptr(outfile_reporter::overwrite, "warn"));
  HeadlessInput::clickOn(*static_cast<Warn*>(outfile_reporter::overwrite)->getButton(0));
  pump();
  std::string const saved = readFile(folder / "Render log.txt");
  EXPECT_EQ(saved.substr(0, saved.find('\n')), "Render started");
  EXPECT_NE(openWindow<Logger>([logger](Logger* other) { return other != logger; }), nullptr)
      << "the save is confirmed";
}

TEST_F(LogFilesTest, ATextSaveThatCannotBeWrittenSaysWhyAndConfirmsNothing) {
  Logger* logger = openLogger();
  logger->getLog()->write(L"Render started", LoggerBase::kOutputPlain);
  pump();
  // A folder standing where the file would go: the write itself fails.
  std::filesystem::create_directories(folder / "render.txt");
  LightweightString<wchar_t> const path =
      logger->saveToFile(LightweightString<wchar_t>::fromUTF8(folder.string()), L"render");
  pump();
  EXPECT_TRUE(path.empty());
  EXPECT_EQ(openWindow<Logger>([logger](Logger* other) { return other != logger; }), nullptr)
      << "no \"File saved\" for a file that was not";
  Warn* message = openWindow<Warn>();
  ASSERT_NE(message, nullptr);
  EXPECT_EQ(message->getText().str(), L"Could not save " +
                                          LightweightString<wchar_t>::fromUTF8((folder / "render.txt").string()).str() +
                                          L": Is a directory.");
}

TEST_F(LogFilesTest, ByDefaultTheHTMLFolderIsChosenInTheFileBrowserAndClosingItCancels) {
  LogSaveChooser::setFolderChooser({});
  Zo::Ptr<iTaskLog> log(new TaskLog);
  log->write(L"frame", LoggerBase::kOutputPlain);
  SavableLogger* logger = SavableLogger::make(log);
  logger->requestSaveHtml();
  pump();
  FileChooserWindow* chooser = openWindow<FileChooserWindow>();
  ASSERT_NE(chooser, nullptr);
  EXPECT_EQ(chooser->getBrowser().getFolder(), LightweightString<wchar_t>::fromUTF8(folder.string()));
  GlobManager::requestDeletion(chooser);
  pump();
  EXPECT_FALSE(std::filesystem::exists(folder / "TaskLog.html"));

  // The cancelled choice leaves the logger free to ask again.
  logger->requestSaveHtml();
  pump();
  chooser = openWindow<FileChooserWindow>();
  ASSERT_NE(chooser, nullptr);
  HeadlessInput::clickOn(chooser->getChooseButton());
  pump();
  EXPECT_TRUE(std::filesystem::exists(folder / "TaskLog.html"));
}

} // namespace
