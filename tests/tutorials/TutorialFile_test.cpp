// Tutorials on disk: the written bytes against a golden file, loading what is
// not a tutorial, and saving that never leaves half a file, even when the
// write fails or the process dies in the middle of it.
#include "tutorials/TutorialTestSupport.h"

#include <zowidgets/host/shell/OS.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Phase = Tutorial::Phase;

std::filesystem::path goldenFile() { return std::filesystem::path(ZO_GOLDEN_DIR) / "ripple-trim.ZoTutorial"; }

// A tutorial using every key of the format, with text beyond ASCII.
Zo::Ptr<Tutorial> rippleTrim() {
  auto tutorial = Zo::make<Tutorial>();
  tutorial->setName(L"Ripple trim \u2013 the \"quick\" way");
  tutorial->setCategory(L"Editing \u00E0 la carte");
  Tutorial::UIComponent timeline;
  timeline.type = "timeline";
  timeline.size = XY<double>(1280.0, 320.5);
  timeline.position = XY<double>(0.0, 24.0);
  tutorial->components().push_back(timeline);
  Tutorial::UIComponent viewer;
  viewer.type = "viewer";
  viewer.size = XY<double>(640.0, 360.0);
  viewer.position = XY<double>(320.25, 400.0);
  tutorial->components().push_back(viewer);

  auto look = Zo::make<Phase>();
  look->pause = 1.5f;
  look->pointer.target = L"timeline";
  look->message.target = L"timeline";
  look->message.relativity = kRelativeAbove;
  look->message.text = L"Clips sit on tracks here.\nWatch the cut.";
  tutorial->addPhase(look);

  auto drag = Zo::make<Phase>();
  drag->pointer.position = XY<double>(100.0, 150.0);
  drag->message.origin = kOriginBottomRight;
  drag->message.text = L"Drag the cut with Shift and Alt held";
  drag->action.event = "drag";
  drag->action.modifiers = Tutorial::Action::kAlt | Tutorial::Action::kShift;
  tutorial->addPhase(drag);

  auto done = Zo::make<Phase>();
  done->pause = 0.25f;
  done->action.event = "key Return";
  done->action.modifiers = Tutorial::Action::kCmd | Tutorial::Action::kCtrl;
  tutorial->addPhase(done);

  tutorial->addPhase(Zo::make<Phase>());
  return tutorial;
}

TEST(TutorialFile, TheWrittenFileMatchesTheGoldenFileByteForByte) {
  ScratchFolder folder;
  LightweightString<wchar_t> const path = folder.file("ripple-trim.ZoTutorial");
  rippleTrim()->save(path);
  std::string const written = readBytes(toPath(path));
  if (std::getenv("ZOWIDGETS_UPDATE_GOLDEN"))
    writeBytes(goldenFile(), written);
  std::string const golden = readBytes(goldenFile());
  ASSERT_FALSE(golden.empty()) << "no golden file at " << goldenFile()
                               << " (run with ZOWIDGETS_UPDATE_GOLDEN=1 to make it)";
  EXPECT_EQ(written, golden);
}

TEST(TutorialFile, TheGoldenFileLoadsAsTheTutorialThatWroteIt) {
  LightweightString<wchar_t> const path = LightweightString<wchar_t>::fromUTF8(goldenFile().string());
  Tutorial const loaded(path);
  Zo::Ptr<Tutorial> const expected = rippleTrim();
  EXPECT_EQ(loaded.path(), path);
  EXPECT_EQ(loaded.getID(), L"ripple-trim.ZoTutorial");
  EXPECT_EQ(loaded.name(), expected->name());
  EXPECT_EQ(loaded.category(), expected->category());
  EXPECT_EQ(loaded.getComponentPosition("viewer", 0.0f), XY<double>(320.25, 400.0));
  ASSERT_EQ(loaded.getNumPhases(), 4);
  EXPECT_EQ(loaded.getPhase(0)->message.text, L"Clips sit on tracks here.\nWatch the cut.");
  EXPECT_EQ(loaded.getPhase(1)->action.modifiers, 0x5000000u);
  EXPECT_EQ(loaded.getPhase(2)->action.modifiers, 0x2100000u);
  EXPECT_EQ(writtenText(loaded) + "\n", readBytes(goldenFile()));
}

TEST(TutorialFile, LoadingWhatIsNotJSONKeepsOnlyThePath) {
  ScratchFolder folder;
  writeBytes(folder.path() / "broken.ZoTutorial", R"({"name":"Half","category":"written",)");
  Tutorial const broken(folder.file("broken.ZoTutorial"));
  EXPECT_TRUE(broken.name().empty());
  EXPECT_TRUE(broken.category().empty());
  EXPECT_EQ(broken.getNumPhases(), 0);
  EXPECT_TRUE(broken.components().empty());
  EXPECT_EQ(broken.path(), folder.file("broken.ZoTutorial"));
  EXPECT_EQ(broken.getID(), L"broken.ZoTutorial");

  Tutorial const missing(folder.file("missing.ZoTutorial"));
  EXPECT_TRUE(missing.name().empty());
  EXPECT_EQ(missing.getID(), L"missing.ZoTutorial");
}

TEST(TutorialFile, AFailedLoadLeavesTheTutorialAsItWasButTakesThePath) {
  ScratchFolder folder;
  writeBytes(folder.path() / "binary.ZoTutorial", std::string("\x00\xFF\xFE garbage", 11));
  Zo::Ptr<Tutorial> const tutorial = rippleTrim();
  std::string const before = writtenText(*tutorial);
  tutorial->load(folder.file("binary.ZoTutorial"));
  EXPECT_EQ(writtenText(*tutorial), before);
  EXPECT_EQ(tutorial->path(), folder.file("binary.ZoTutorial"));
}

TEST(TutorialFile, SavingElsewhereMovesThePathAndLeavesTheOldFile) {
  ScratchFolder folder;
  Zo::Ptr<Tutorial> const tutorial = rippleTrim();
  tutorial->save(folder.file("first.ZoTutorial"));
  tutorial->setName(L"Renamed");
  tutorial->save(folder.file("second.ZoTutorial"));
  EXPECT_EQ(tutorial->getID(), L"second.ZoTutorial");
  EXPECT_EQ(Tutorial(folder.file("first.ZoTutorial")).name(), rippleTrim()->name());
  EXPECT_EQ(Tutorial(folder.file("second.ZoTutorial")).name(), L"Renamed");
}

TEST(TutorialFile, SavingMakesAMissingFolder) {
  ScratchFolder folder;
  LightweightString<wchar_t> const path = folder.file("deeper/still/new.ZoTutorial");
  rippleTrim()->save(path);
  EXPECT_EQ(Tutorial(path).name(), rippleTrim()->name());
}

TEST(TutorialFile, SavingWhereNoFileCanBeIsHarmless) {
  ScratchFolder folder;
  writeBytes(folder.path() / "plain", "a file, not a folder");
  Zo::Ptr<Tutorial> const tutorial = rippleTrim();
  tutorial->save(folder.file("plain/inside.ZoTutorial"));
  EXPECT_EQ(tutorial->path(), folder.file("plain/inside.ZoTutorial"));
  EXPECT_EQ(readBytes(folder.path() / "plain"), "a file, not a folder");
}

// Files as large as `bytes` at most may be written while it lives; a longer
// write fails with EFBIG instead of raising SIGXFSZ.
class FileSizeLimit {
public:
  explicit FileSizeLimit(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &saved_);
    previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limited = saved_;
    limited.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limited);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &saved_);
    std::signal(SIGXFSZ, previousHandler_);
  }

private:
  rlimit saved_{};
  void (*previousHandler_)(int) = nullptr;
};

std::vector<std::string> folderEntries(std::filesystem::path const& folder) {
  std::vector<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(TutorialFile, AWriteThatFailsLeavesTheOldFileByteIdentical) {
  ScratchFolder folder;
  LightweightString<wchar_t> const path = folder.file("kept.ZoTutorial");
  Tutorial small;
  small.setName(L"Old");
  small.setCategory(L"Kept");
  small.save(path);
  std::string const before = readBytes(toPath(path));
  ASSERT_LT(before.size(), 200u);

  Zo::Ptr<Tutorial> const large = rippleTrim();
  {
    FileSizeLimit const limit(200);
    large->save(path);
  }
  EXPECT_EQ(readBytes(toPath(path)), before);
  EXPECT_EQ(folderEntries(folder.path()), std::vector<std::string>{"kept.ZoTutorial"}) << "no temporary file is left";
  EXPECT_EQ(large->path(), path);

  large->save(path);
  EXPECT_EQ(Tutorial(path).name(), rippleTrim()->name()) << "the next save that can write, does";
}

TEST(TutorialFile, AProcessKilledWhileSavingLeavesTheOldFileWhole) {
  ScratchFolder folder;
  LightweightString<wchar_t> const path = folder.file("kept.ZoTutorial");
  Tutorial old;
  old.setName(L"Old");
  old.setCategory(L"Kept");
  old.save(path);
  std::string const before = readBytes(toPath(path));

  // The child dies of SIGXFSZ in the middle of writing the new text.
  pid_t const child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_DFL);
    rlimit limited{};
    ::getrlimit(RLIMIT_FSIZE, &limited);
    limited.rlim_cur = 100;
    ::setrlimit(RLIMIT_FSIZE, &limited);
    rippleTrim()->save(path);
    ::_exit(0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status)) << "the child was to die mid-write";
  EXPECT_EQ(WTERMSIG(status), SIGXFSZ);

  EXPECT_EQ(readBytes(toPath(path)), before);
  Tutorial const reread(path);
  EXPECT_EQ(reread.name(), L"Old");
  EXPECT_EQ(reread.category(), L"Kept");
  // The half-written temporary file stays behind, under a name that is no
  // tutorial's.
  std::vector<std::string> const left = folderEntries(folder.path());
  ASSERT_EQ(left.size(), 2u);
  EXPECT_EQ(left[0], "kept.ZoTutorial");
  EXPECT_TRUE(left[1].starts_with("kept.ZoTutorial.")) << left[1];
  EXPECT_EQ(OS().listFolder(folder.wide(), L"*.ZoTutorial").size(), 1u);
}

} // namespace
