#include <zowidgets/host/drawing/IconNames.h>
#include <zowidgets/host/drawing/IconTheme.h>

#include "host/drawing/IconTestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

namespace {

// The system's theme, found the default way: no override, the default data
// folders.
struct IconTheme : ::testing::Test {
  ScopedEnv noOverride{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};
  ScopedEnv defaultDataDirs{"XDG_DATA_DIRS", std::nullopt};
};

constexpr char const* kSimpleSvg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)"
                                   R"(<rect width="16" height="16"/></svg>)";

TEST_F(IconTheme, EveryNameInTheTableResolvesToAnSvgOnThisMachine) {
  ASSERT_FALSE(iconNames().empty());
  for (IconName const& icon : iconNames()) {
    std::string const path = getIconPath(icon.ours);
    ASSERT_FALSE(path.empty()) << icon.ours << " (" << icon.theme << ") has no file";
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << path;
    EXPECT_EQ(std::filesystem::path(path).filename().string(), std::string(icon.theme) + ".svg");
    EXPECT_TRUE(path.starts_with(iconThemeDir())) << path;
  }
}

TEST_F(IconTheme, TheNamesTheWidgetsUseAreInTheTableOnce) {
  for (char const* name :
       {"eye-closed.png", "eye-open.png", "magnify.png", "tree-collapsed.png", "tree-expanded.png", "scroll-left.png",
        "scroll-right.png", "scroll-up.png", "scroll-down.png", "action-indicator.png", "poot.png", "eyedropper.png"})
    EXPECT_FALSE(themeIconName(name).empty()) << name;
  std::set<std::string_view> seen;
  for (IconName const& icon : iconNames())
    EXPECT_TRUE(seen.insert(icon.ours).second) << icon.ours << " is in the table twice";
}

TEST_F(IconTheme, TheThemeIsFoundUnderTheDefaultDataFolders) {
  std::string const dir = iconThemeDir();
  ASSERT_FALSE(dir.empty());
  EXPECT_EQ(std::filesystem::path(dir).filename(), "Adwaita");
}

TEST_F(IconTheme, AnUnknownNameHasNoPath) {
  EXPECT_EQ(getIconPath("no-such-icon.png"), "");
  EXPECT_EQ(getIconPath(""), "");
  // Theme names are not ours: only the table's names are asked for.
  EXPECT_EQ(getIconPath("view-reveal-symbolic"), "");
  EXPECT_TRUE(themeIconName("no-such-icon.png").empty());
}

TEST_F(IconTheme, AMissingOverrideFolderMeansNoThemeAndNoPaths) {
  ScratchFolder scratch;
  ScopedEnv missing("ZOWIDGETS_ICON_THEME_DIR", (scratch.path() / "not-there").string());
  EXPECT_EQ(iconThemeDir(), "");
  for (IconName const& icon : iconNames())
    EXPECT_EQ(getIconPath(icon.ours), "") << icon.ours;
}

TEST_F(IconTheme, TheOverrideFolderIsSearchedScalableFoldersFirst) {
  ScratchFolder theme;
  theme.write("scalable-up-to-32/status/pan-end-symbolic.svg", kSimpleSvg);
  std::filesystem::path const wanted = theme.write("scalable/ui/pan-end-symbolic.svg", kSimpleSvg);
  theme.write("scalable-up-to-32/status/process-working-symbolic.svg", kSimpleSvg);
  // Bitmaps never count.
  theme.write("16x16/actions/view-reveal-symbolic.png", "not read");
  ScopedEnv override("ZOWIDGETS_ICON_THEME_DIR", theme.path().string());

  EXPECT_EQ(iconThemeDir(), theme.path().string());
  EXPECT_EQ(getIconPath("tree-collapsed.png"), wanted.string());
  EXPECT_EQ(getIconPath("scroll-right.png"), wanted.string()) << "two names may share one icon";
  EXPECT_EQ(getIconPath("action-indicator.png"),
            (theme.path() / "scalable-up-to-32/status/process-working-symbolic.svg").string());
  EXPECT_EQ(getIconPath("eye-open.png"), "");
}

TEST_F(IconTheme, DataFoldersAreTakenInOrder) {
  ScratchFolder first, second;
  second.write("icons/Adwaita/scalable/actions/view-reveal-symbolic.svg", kSimpleSvg);
  ScopedEnv dataDirs("XDG_DATA_DIRS", first.path().string() + "::" + second.path().string() + ":/usr/share");
  EXPECT_EQ(iconThemeDir(), (second.path() / "icons/Adwaita").string());
  first.write("icons/Adwaita/scalable/actions/view-reveal-symbolic.svg", kSimpleSvg);
  EXPECT_EQ(iconThemeDir(), (first.path() / "icons/Adwaita").string());
  EXPECT_EQ(getIconPath("eye-open.png"),
            (first.path() / "icons/Adwaita/scalable/actions/view-reveal-symbolic.svg").string());
}

} // namespace
