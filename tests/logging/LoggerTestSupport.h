#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/logging/LogSaveChooser.h>
#include <zowidgets/logging/Logger.h>
#include <zowidgets/logging/LoggerFunctions.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace Zo {
// Readable failures for the shell's recorded requests.
inline void PrintTo(ShellRequest const& request, std::ostream* out) {
  *out << (request.kind == ShellRequest::Kind::open     ? "open"
           : request.kind == ShellRequest::Kind::reveal ? "reveal"
                                                        : "drag");
  for (auto const& target : request.targets)
    *out << " " << target.toUTF8().str();
}
} // namespace Zo

// A scratch folder that saves land in, and nothing recorded of the shell's
// open, reveal and drag requests, for every test.
struct LoggerTest : HeadlessScreenTest {
  std::filesystem::path folder;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    folder = std::filesystem::temp_directory_path() / ("zo-logger-" + std::to_string(::getpid()) + "-" +
                                                       ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    LogSaveChooser::setDefaultFolder(LightweightString<wchar_t>::fromUTF8(folder.string()));
    // Saves land at once in the test's folder; the dialogues a user meets
    // are tested on their own.
    LogSaveChooser::setNameChooser([](Glob*, UIString const&, LightweightString<wchar_t> const& where,
                                      LightweightString<wchar_t> const& name,
                                      LogSaveChooser::NameChosen const& chosen) { chosen(where, name); });
    LogSaveChooser::setFolderChooser([](Glob*, UIString const&, LightweightString<wchar_t> const& where,
                                        LogSaveChooser::FolderChosen const& chosen) { chosen(where); });
    OS().clearRecordedShellRequests();
  }
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    LogSaveChooser::setDefaultFolder({});
    LogSaveChooser::setNameChooser({});
    LogSaveChooser::setFolderChooser({});
    std::filesystem::remove_all(folder);
  }

  static Logger* openLogger(unsigned flags = 0, std::uint16_t rows = 10, std::uint16_t width = 0) {
    Logger::InitArgs args(rows, width, flags);
    args.title = UIString(L"Render log");
    return make_logger(args, 100, 100);
  }
  // The real rows' texts.
  static std::vector<std::wstring> shownTexts(Logger const& logger) {
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < logger.numItems(); ++i)
      texts.push_back(logger.rows()[i].text.str());
    return texts;
  }
  static std::string readFile(std::filesystem::path const& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }
  static std::vector<std::string> readLines(std::filesystem::path const& path) {
    std::vector<std::string> lines;
    std::istringstream in(readFile(path));
    for (std::string line; std::getline(in, line);)
      lines.push_back(line);
    return lines;
  }
};
