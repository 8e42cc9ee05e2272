#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/logging/OutfileReporter.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using WString = LightweightString<wchar_t>;

class Listener : public StandardPanel {
public:
  explicit Listener(InitArgs const& args) : StandardPanel(args) {}
  int handleMessageEvent(LightweightString<char> const& message, Glob*) override {
    heard.push_back(message.str());
    return 1;
  }
  std::vector<std::string> heard;
};

struct OutfileReporterTest : HeadlessScreenTest {
  fs::path folder;
  Listener* listener = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    outfile_reporter::anyone = nullptr;
    outfile_reporter::overwrite = nullptr;
    outfile_reporter::msg = nullptr;
    folder = fs::temp_directory_path() / ("zo-reporter-" + std::to_string(::getpid()));
    fs::remove_all(folder);
    fs::create_directories(folder);
    std::ofstream(folder / "take 1.mov") << "clip";
    StandardPanel::InitArgs args(XY<int>(200, 100));
    args.screenPosition = XY<int>(20, 20);
    listener = new Listener(args);
    GlobManager::realize(listener);
  }
  void TearDown() override {
    fs::remove_all(folder);
    HeadlessScreenTest::TearDown();
  }
  WString existing() const { return WString::fromUTF8((folder / "take 1.mov").string()); }
  static std::wstring textOf(Glob* window) { return static_cast<Message*>(window)->getText().str(); }
};

TEST_F(OutfileReporterTest, AUsablePathShowsNothing) {
  outfile_reporter const report(WString::fromUTF8((folder / "new.mov").string()), false, listener);
  EXPECT_EQ(report.code, kOutfileUsable);
  EXPECT_EQ(report.getMessage(), nullptr);
  EXPECT_EQ(outfile_reporter::anyone, &report);
}

TEST_F(OutfileReporterTest, ChoosingToReplaceTellsTheListenerAndRefusingSaysNothing) {
  {
    outfile_reporter const report(existing(), false, listener);
    ASSERT_EQ(report.code, kOutfileExists);
    ASSERT_TRUE(is_good_glob_ptr(outfile_reporter::overwrite, "warn"));
    EXPECT_EQ(textOf(outfile_reporter::overwrite), existing().str() + L" already exists. Do you want to replace it?");
  }
  auto* warn = static_cast<Warn*>(outfile_reporter::overwrite);
  EXPECT_EQ(outfile_reporter::anyone, nullptr) << "the reporter is gone, its dialogue stays";
  HeadlessInput::clickOn(*warn->getButton(0));
  pump();
  EXPECT_EQ(listener->heard, std::vector<std::string>{"outfile_replace_file"});

  outfile_reporter const again(existing(), false, listener, "ReplaceTake");
  HeadlessInput::clickOn(*static_cast<Warn*>(outfile_reporter::overwrite)->getButton(1));
  pump();
  EXPECT_EQ(listener->heard, std::vector<std::string>{"outfile_replace_file"}) << "a refusal says nothing";
  outfile_reporter const third(existing(), false, listener, "ReplaceTake");
  HeadlessInput::clickOn(*static_cast<Warn*>(outfile_reporter::overwrite)->getButton(0));
  pump();
  EXPECT_EQ(listener->heard, (std::vector<std::string>{"outfile_replace_file", "ReplaceTake"}));
}

TEST_F(OutfileReporterTest, WithOverwritingAllowedAnExistingFileGivesNoReport) {
  EXPECT_EQ(outfile_uif_report(existing(), true, listener), kOutfileUsable);
  EXPECT_EQ(outfile_reporter::overwrite, nullptr);
  EXPECT_EQ(outfile_reporter::msg, nullptr);
  EXPECT_EQ(outfile_reporter::anyone, nullptr) << "the plain function leaves no reporter";
}

TEST_F(OutfileReporterTest, ASecondReportClosesTheDialogueOfTheFirst) {
  EXPECT_EQ(outfile_uif_report(existing(), false, listener), kOutfileExists);
  Glob* first = outfile_reporter::overwrite;
  ASSERT_TRUE(is_good_glob_ptr(first, "warn"));
  EXPECT_EQ(outfile_uif_report(WString::fromUTF8((folder / "gone" / "a.mov").string()), false, listener),
            kOutfileNoFolder);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(first)) << "only one report shows at a time";
  EXPECT_EQ(outfile_reporter::overwrite, nullptr);
  ASSERT_TRUE(is_good_glob_ptr(outfile_reporter::msg, "warn"));
  EXPECT_EQ(textOf(outfile_reporter::msg),
            L"The folder does not exist (" + WString::fromUTF8((folder / "gone").string()).str() + L"/)");
  Glob* second = outfile_reporter::msg;
  outfile_uif_report(existing(), false, listener);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(second)) << "a message is closed the same way";
}

TEST_F(OutfileReporterTest, AnInvalidNameIsNamedWithoutItsFolderOrExtension) {
  EXPECT_EQ(outfile_uif_report(WString::fromUTF8((folder / "a:b.mov").string()), false, listener), kOutfileInvalidName);
  EXPECT_EQ(textOf(outfile_reporter::msg), L"\"a:b\" is not a valid file name.");
}

TEST_F(OutfileReporterTest, NoPermissionIsSaidInWords) {
  EXPECT_EQ(outfile_uif_report(L"/proc/zo-render.mov", false, listener), kOutfileNoPermission);
  EXPECT_EQ(textOf(outfile_reporter::msg), L"You do not have permission to write to this location.");
  outfile_uif_report(L"/anywhere/x.mov", false, listener, nullptr, kOutfileNoPermissionFloppy);
  EXPECT_EQ(textOf(outfile_reporter::msg), L"You do not have permission to write to this location.");
}

TEST_F(OutfileReporterTest, AGivenCodeIsReportedWithoutACheck) {
  outfile_reporter const report(existing(), false, listener, nullptr, kOutfileUsable);
  EXPECT_EQ(report.code, kOutfileUsable) << "the file exists, but the code given stands";
  EXPECT_EQ(report.getMessage(), nullptr);
}

TEST_F(OutfileReporterTest, AReplaceMessageOfMoreThan31CharactersIsCutAt31) {
  outfile_reporter report(WString::fromUTF8((folder / "new.mov").string()), false, listener,
                          "ReplaceTheRenderedFileWithTheNewOne");
  EXPECT_EQ(std::string(report.getReplaceMessage()), std::string("ReplaceTheRenderedFileWithTheNewOne").substr(0, 31));
  report.set_replace_message("");
  report.set_replace_message(nullptr);
  EXPECT_EQ(std::string(report.getReplaceMessage()).size(), 31u) << "null and empty leave it";
  outfile_reporter const plain(WString::fromUTF8((folder / "new.mov").string()), false, listener);
  EXPECT_STREQ(plain.getReplaceMessage(), "outfile_replace_file");
}

} // namespace
