#include <zowidgets/host/base/configb.h>
#include <zowidgets/host/shell/Preferences.h>

#include "host/shell/ServicesTestSupport.h"
#include "support/SharedState.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>

using services_test::readAll;
using services_test::ScopedEnvironment;
using services_test::ScratchFolder;
using services_test::writeAll;

namespace {

ino_t inodeOf(std::string const& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 ? info.st_ino : 0;
}

class PreferencesTest : public ::testing::Test {
protected:
  ScratchFolder folder;
  std::string const path = folder.file("preferences.conf");
};

} // namespace

TEST_F(PreferencesTest, MissingKeysGiveTheDefaults) {
  EditorPreferences store(path);
  EXPECT_TRUE(store.getPreference("absent", true));
  EXPECT_FALSE(store.getPreference("absent", false));
  EXPECT_EQ(store.getPreference("absent", 220), 220);
  EXPECT_EQ(store.getPreference("absent", 2.5), 2.5);
  EXPECT_EQ(store.getPreference("absent", L"fallback"), L"fallback");
  EXPECT_FALSE(store.hasPreference("absent"));
  EXPECT_FALSE(std::filesystem::exists(path)); // reading writes nothing
}

TEST_F(PreferencesTest, EveryTypeSurvivesInAFreshStore) {
  {
    EditorPreferences store(path);
    store.setPreference("HardwareConsoleEnabled", true);
    store.setPreference("Magnifier level", 4);
    store.setPreference("Ratio", 0.1);
    store.setPreference("Recent fonts", L"Sans|Serif \"Bold\"\n\u00e9\u6f22");
    store.setPreference("UI : Hinted 12", false);
    EXPECT_TRUE(store.hasPreference("Ratio"));
  }
  EditorPreferences reread(path);
  EXPECT_TRUE(reread.getPreference("HardwareConsoleEnabled", false));
  EXPECT_EQ(reread.getPreference("Magnifier level", 2), 4);
  EXPECT_EQ(reread.getPreference("Ratio", 0.0), 0.1);
  EXPECT_EQ(reread.getPreference("Recent fonts", L""), L"Sans|Serif \"Bold\"\n\u00e9\u6f22");
  EXPECT_FALSE(reread.getPreference("UI : Hinted 12", true));
}

TEST_F(PreferencesTest, ValuesReadAcrossTypesWhereTheirFormsAgree) {
  EditorPreferences store(path);
  store.setPreference("n", 3);
  EXPECT_EQ(store.getPreference("n", 0.0), 3.0);
  EXPECT_TRUE(store.getPreference("n", false));
  EXPECT_EQ(store.getPreference("n", L""), L"3");
}

TEST_F(PreferencesTest, TheFileIsConfigbTextWithOnePreferencesChild) {
  EditorPreferences store(path);
  store.setPreference("Magnifier width", 200);
  auto file = configb::fromText(readAll(path));
  ASSERT_TRUE(file.has_value());
  EXPECT_EQ(file->size(), 0u);
  ASSERT_EQ(file->children().size(), 1u);
  configb const* values = file->findChild("preferences");
  ASSERT_NE(values, nullptr);
  EXPECT_EQ(values->getInt("Magnifier width"), 200);
}

TEST_F(PreferencesTest, EachChangeIsWrittenAtOnceAndNoTemporaryFileStays) {
  EditorPreferences store(path);
  for (int i = 0; i < 5; ++i) {
    store.setPreference("count", i);
    EXPECT_EQ(EditorPreferences(path).getPreference("count", -1), i);
  }
  int files = 0;
  for ([[maybe_unused]] auto const& entry : std::filesystem::directory_iterator(folder.path()))
    ++files;
  EXPECT_EQ(files, 1);
}

TEST_F(PreferencesTest, AChangeReplacesTheFileAndAnUnchangedValueWritesNothing) {
  EditorPreferences store(path);
  store.setPreference("level", 2);
  ino_t const first = inodeOf(path);
  ASSERT_NE(first, 0u);
  store.setPreference("level", 2);
  EXPECT_EQ(inodeOf(path), first);
  store.setPreference("level", 3);
  EXPECT_NE(inodeOf(path), first); // a new file renamed into place, never rewritten in place
}

TEST_F(PreferencesTest, ARemovedKeyGivesItsDefaultHereAndAfterARestart) {
  EditorPreferences store(path);
  store.setPreference("level", 7);
  store.setPreference("width", 300);
  store.removePreference("level");
  EXPECT_FALSE(store.hasPreference("level"));
  EXPECT_EQ(store.getPreference("level", 2), 2);
  EditorPreferences restarted(path);
  EXPECT_FALSE(restarted.hasPreference("level"));
  EXPECT_EQ(restarted.getPreference("width", 0), 300);
  // Removing what is not there writes nothing.
  ino_t const before = inodeOf(path);
  store.removePreference("level");
  EXPECT_EQ(inodeOf(path), before);
}

TEST_F(PreferencesTest, ClearForgetsEveryKeyOnDisk) {
  EditorPreferences store(path);
  store.setPreference("level", 7);
  store.setPreference("name", L"lens");
  store.clear();
  EXPECT_FALSE(store.hasPreference("level"));
  EXPECT_FALSE(store.hasPreference("name"));
  EditorPreferences restarted(path);
  EXPECT_FALSE(restarted.hasPreference("level"));
  EXPECT_FALSE(restarted.hasPreference("name"));
  ino_t const before = inodeOf(path);
  store.clear();
  EXPECT_EQ(inodeOf(path), before);
}

TEST_F(PreferencesTest, MissingFoldersAreMade) {
  std::string const nested = folder.file("a/b/preferences.conf");
  EditorPreferences store(nested);
  store.setPreference("x", 1);
  EXPECT_EQ(EditorPreferences(nested).getPreference("x", 0), 1);
}

TEST_F(PreferencesTest, CorruptFileIsMovedAsideWithAWarningAndDefaultsAreUsed) {
  std::string const garbage = "\"preferences\" { \"a\" = \"1\" \x01 nonsense";
  writeAll(path, garbage);
  ::testing::internal::CaptureStderr();
  EditorPreferences store(path);
  std::string const warning = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(warning.find("corrupt"), std::string::npos) << warning;
  EXPECT_NE(warning.find(path), std::string::npos) << warning;
  EXPECT_EQ(store.getPreference("a", 7), 7);
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(readAll(path + ".corrupt"), garbage);

  store.setPreference("a", 2);
  EXPECT_EQ(EditorPreferences(path).getPreference("a", 0), 2);
}

TEST_F(PreferencesTest, TruncatedFilesAreMovedAsideWhereverTheCutFalls) {
  {
    EditorPreferences store(path);
    store.setPreference("first", 1);
    store.setPreference("second", L"two");
  }
  std::string const whole = readAll(path);
  ASSERT_EQ(whole.back(), '\n');
  // Every cut but that of the last newline loses the closing brace at least.
  for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
    writeAll(path, whole.substr(0, length));
    ::testing::internal::CaptureStderr();
    EditorPreferences store(path);
    std::string const warning = ::testing::internal::GetCapturedStderr();
    EXPECT_FALSE(store.hasPreference("first")) << "cut at " << length;
    EXPECT_FALSE(warning.empty()) << "cut at " << length;
    EXPECT_TRUE(std::filesystem::exists(path + ".corrupt")) << "cut at " << length;
    EXPECT_FALSE(std::filesystem::exists(path)) << "cut at " << length;
  }
  writeAll(path, whole.substr(0, whole.size() - 1));
  EXPECT_EQ(EditorPreferences(path).getPreference("first", 0), 1);
}

TEST_F(PreferencesTest, AFailedWriteKeepsTheValueAndFlushTriesAgain) {
  std::string const blocker = folder.file("blocker");
  writeAll(blocker, "a file where the store's folder should be");
  std::string const blocked = folder.file("blocker/preferences.conf");
  EditorPreferences store(blocked);
  ::testing::internal::CaptureStderr();
  store.setPreference("kept", 5);
  std::string const warning = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(warning.find("cannot write"), std::string::npos) << warning;
  EXPECT_EQ(store.getPreference("kept", 0), 5);
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(store.flush());
  ::testing::internal::GetCapturedStderr();

  std::filesystem::remove(blocker);
  EXPECT_TRUE(store.flush());
  EXPECT_EQ(EditorPreferences(blocked).getPreference("kept", 0), 5);
  EXPECT_TRUE(store.flush()); // nothing left to write
}

TEST_F(PreferencesTest, ReloadTakesChangesFromAnotherWriter) {
  EditorPreferences reader(path);
  EditorPreferences writer(path);
  writer.setPreference("shared", 9);
  EXPECT_EQ(reader.getPreference("shared", 0), 0);
  reader.reload();
  EXPECT_EQ(reader.getPreference("shared", 0), 9);
}

TEST_F(PreferencesTest, AnEmptyPathKeepsTheStoreInMemory) {
  EditorPreferences store("");
  store.setPreference("x", 4);
  EXPECT_EQ(store.getPreference("x", 0), 4);
  EXPECT_TRUE(store.flush());
}

TEST(PreferencesLocation, FollowsTheOverrideThenXdgThenHome) {
  ScopedEnvironment home("HOME", "/home/someone");
  {
    ScopedEnvironment configDir("ZOWIDGETS_CONFIG_DIR", "/tmp/elsewhere");
    ScopedEnvironment xdg("XDG_CONFIG_HOME", "/xdg");
    EXPECT_EQ(EditorPreferences::defaultFilePath(), "/tmp/elsewhere/preferences.conf");
  }
  ScopedEnvironment noOverride("ZOWIDGETS_CONFIG_DIR", std::nullopt);
  {
    ScopedEnvironment xdg("XDG_CONFIG_HOME", "/xdg");
    EXPECT_EQ(EditorPreferences::defaultFilePath(), "/xdg/zowidgets/preferences.conf");
  }
  {
    ScopedEnvironment relative("XDG_CONFIG_HOME", "relative/is/ignored");
    EXPECT_EQ(EditorPreferences::defaultFilePath(), "/home/someone/.config/zowidgets/preferences.conf");
  }
  ScopedEnvironment noXdg("XDG_CONFIG_HOME", std::nullopt);
  EXPECT_EQ(EditorPreferences::defaultFilePath(), "/home/someone/.config/zowidgets/preferences.conf");
  ScopedEnvironment noHome("HOME", std::nullopt);
  EXPECT_EQ(EditorPreferences::defaultFilePath(), "");
}

TEST(PreferencesStore, PrefsLivesInTheConfiguredFolder) {
  char const* folder = std::getenv("ZOWIDGETS_CONFIG_DIR");
  ASSERT_NE(folder, nullptr);
  EXPECT_EQ(prefs().filePath(), std::string(folder) + "/preferences.conf");
  EXPECT_EQ(&prefs(), &prefs());
}

TEST(PreferencesStore, ConfigIntReadsPrefsAndClamps) {
  resetSharedState();
  EXPECT_EQ(config_int("track_button_glow", 0, INT_MIN, INT_MAX), 0);
  EXPECT_EQ(config_int("track_button_glow", 50, 0, 10), 10);
  prefs().setPreference("track_button_glow", 1);
  EXPECT_EQ(config_int("track_button_glow", 0, INT_MIN, INT_MAX), 1);
  prefs().setPreference("track_button_glow", -40);
  EXPECT_EQ(config_int("track_button_glow", 0, -5, 5), -5);
  prefs().setPreference("track_button_glow", 400);
  EXPECT_EQ(config_int("track_button_glow", 0, -5, 5), 5);
  EXPECT_EQ(EditorPreferences(prefs().filePath()).getPreference("track_button_glow", 0), 400);
}

#ifdef ZO_PREFS_HELPER

namespace {

// Runs the helper with the store in `folder`; gives its exit status and what
// it printed.
struct HelperRun {
  int status = -1;
  std::string output;
};

HelperRun runHelper(std::filesystem::path const& folder, std::string const& arguments) {
  // No core file from the helper that aborts on purpose.
  std::string const command =
      "ulimit -c 0; ZOWIDGETS_CONFIG_DIR='" + folder.string() + "' '" ZO_PREFS_HELPER "' " + arguments + " 2>/dev/null";
  HelperRun run;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe)
    return run;
  char buffer[256];
  while (std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe))
    run.output.append(buffer, got);
  run.status = ::pclose(pipe);
  return run;
}

bool exitedCleanly(int status) { return WIFEXITED(status) && WEXITSTATUS(status) == 0; }

} // namespace

TEST_F(PreferencesTest, AValueSetInAnotherProcessIsReadHere) {
  ASSERT_TRUE(exitedCleanly(runHelper(folder.path(), "set 'Magnifier level' int 6").status));
  ASSERT_TRUE(exitedCleanly(runHelper(folder.path(), "set 'Recent fonts' text 'Sans|Serif'").status));
  ASSERT_TRUE(exitedCleanly(runHelper(folder.path(), "set HardwareMackieEnabled bool true").status));
  EditorPreferences store(path);
  EXPECT_EQ(store.getPreference("Magnifier level", 2), 6);
  EXPECT_EQ(store.getPreference("Recent fonts", L""), L"Sans|Serif");
  EXPECT_TRUE(store.getPreference("HardwareMackieEnabled", false));
}

TEST_F(PreferencesTest, AValueSetHereIsReadInAnotherProcess) {
  {
    EditorPreferences store(path);
    store.setPreference("Magnifier height", 330);
    store.setPreference("Scale", 1.25);
  }
  HelperRun height = runHelper(folder.path(), "get 'Magnifier height' int");
  EXPECT_TRUE(exitedCleanly(height.status));
  EXPECT_EQ(height.output, "330");
  HelperRun scale = runHelper(folder.path(), "get Scale double");
  EXPECT_EQ(scale.output, "1.25");
  EXPECT_EQ(runHelper(folder.path(), "get Missing int").output, "0");
}

TEST_F(PreferencesTest, AProcessThatDiesRightAfterASetLeavesTheValueOnDisk) {
  {
    EditorPreferences store(path);
    store.setPreference("before", 1);
  }
  HelperRun crash = runHelper(folder.path(), "set-and-abort after int 2");
  EXPECT_FALSE(exitedCleanly(crash.status));
  EditorPreferences store(path);
  EXPECT_EQ(store.getPreference("before", 0), 1);
  EXPECT_EQ(store.getPreference("after", 0), 2);
  EXPECT_FALSE(std::filesystem::exists(path + ".corrupt"));
}

#else

TEST(PreferencesAcrossProcesses, NeedsTheHelperProgram) {
  GTEST_SKIP() << "prefs_helper is not built: add tests/host/helpers to the build to run the restart tests";
}

#endif
