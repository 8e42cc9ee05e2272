#include <zowidgets/host/shell/OS.h>

#include "host/shell/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace {

using WString = LightweightString<wchar_t>;

// Sets or unsets an environment variable for one test, then restores it.
class ScopedEnvironment {
public:
  ScopedEnvironment(char const* name, std::optional<std::string> const& value) : name_(name) {
    if (char const* old = std::getenv(name))
      old_ = old;
    apply(value);
  }
  ~ScopedEnvironment() { apply(old_); }
  ScopedEnvironment(ScopedEnvironment const&) = delete;
  ScopedEnvironment& operator=(ScopedEnvironment const&) = delete;

private:
  void apply(std::optional<std::string> const& value) const {
    if (value)
      setenv(name_, value->c_str(), 1);
    else
      unsetenv(name_);
  }

  char const* name_;
  std::optional<std::string> old_;
};

// A home folder and a configuration folder of the test's own.
class UserFolders : public ::testing::Test {
protected:
  std::string home() const { return (root / "home").string(); }
  std::string config() const { return (root / "config").string(); }
  void writeUserDirs(std::string const& text) const { root.write("config/user-dirs.dirs", text); }
  static WString wide(std::string const& text) { return WString::fromUTF8(text); }

  TempFolder root;
  ScopedEnvironment homeVariable{"HOME", home()};
  ScopedEnvironment configVariable{"XDG_CONFIG_HOME", config()};
  ScopedEnvironment dataVariable{"XDG_DATA_HOME", std::nullopt};
};

} // namespace

TEST_F(UserFolders, DocumentsFromUserDirsUnderHome) {
  writeUserDirs("# written by xdg-user-dirs-update\nXDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
                "XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\nXDG_MUSIC_DIR=\"$HOME/Music\"\n");
  EXPECT_EQ(OS().documentsFolder(), wide(home() + "/Papers"));
}

TEST_F(UserFolders, DocumentsFromAnAbsolutePath) {
  writeUserDirs("XDG_DOCUMENTS_DIR=\"/srv/shared/d\u00f6cs\"\n");
  EXPECT_EQ(OS().documentsFolder(), L"/srv/shared/d\u00f6cs");
}

TEST_F(UserFolders, LastAssignmentWinsAndCommentsDoNotCount) {
  writeUserDirs("XDG_DOCUMENTS_DIR=\"$HOME/First\"\n#XDG_DOCUMENTS_DIR=\"$HOME/Commented\"\n"
                "  XDG_DOCUMENTS_DIR=\"$HOME/Second\"\nXDG_DOCUMENTS_DIRX=\"$HOME/Other\"\n");
  EXPECT_EQ(OS().documentsFolder(), wide(home() + "/Second"));
}

TEST_F(UserFolders, EscapedCharactersInTheValue) {
  writeUserDirs("XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Docs\\\"\"\n");
  EXPECT_EQ(OS().documentsFolder(), wide(home() + "/My \"Docs\""));
}

TEST_F(UserFolders, HomeItselfIsAcceptedAsTheFolder) {
  writeUserDirs("XDG_DOCUMENTS_DIR=\"$HOME\"\n");
  EXPECT_EQ(OS().documentsFolder(), wide(home()));
}

TEST_F(UserFolders, RelativeValueIsIgnored) {
  writeUserDirs("XDG_DOCUMENTS_DIR=\"Papers\"\n");
  EXPECT_EQ(OS().documentsFolder(), wide(home() + "/Documents"));
}

TEST_F(UserFolders, NoUserDirsFileGivesDocumentsUnderHome) {
  EXPECT_EQ(OS().documentsFolder(), wide(home() + "/Documents"));
}

TEST_F(UserFolders, ConfigDefaultsToDotConfigUnderHome) {
  root.write("home/.config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/FromDotConfig\"\n");
  {
    ScopedEnvironment unset("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(OS().documentsFolder(), wide(home() + "/FromDotConfig"));
  }
  {
    ScopedEnvironment relative("XDG_CONFIG_HOME", "config");
    EXPECT_EQ(OS().documentsFolder(), wide(home() + "/FromDotConfig"));
  }
}

TEST_F(UserFolders, TrailingSlashOfHomeIsNotDoubled) {
  ScopedEnvironment slashed("HOME", home() + "/");
  EXPECT_EQ(OS().documentsFolder(), wide(home() + "/Documents"));
  EXPECT_EQ(OS().appDataFolder(), wide(home() + "/.local/share/zowidgets"));
}

TEST_F(UserFolders, AppDataUnderDataHome) {
  EXPECT_EQ(OS().appDataFolder(), wide(home() + "/.local/share/zowidgets"));
  {
    ScopedEnvironment data("XDG_DATA_HOME", "/var/lib/ann/");
    EXPECT_EQ(OS().appDataFolder(), L"/var/lib/ann/zowidgets");
  }
  {
    ScopedEnvironment relative("XDG_DATA_HOME", "data");
    EXPECT_EQ(OS().appDataFolder(), wide(home() + "/.local/share/zowidgets"));
  }
}
