#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/drawing/FallbackIcon.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/IconTheme.h>
#include <zowidgets/host/drawing/SvgIcon.h>

#include "host/drawing/DrawingTestSupport.h"
#include "host/drawing/IconTestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

struct IconCacheTest : ::testing::Test {
  ScopedEnv noOverride{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};
  ScopedEnv defaultDataDirs{"XDG_DATA_DIRS", std::nullopt};
  void SetUp() override { IconCache::clear(); }
  void TearDown() override { IconCache::clear(); }
};

Colour const kText(0.85, 0.85, 0.8);
Colour const kRed(0.9, 0.1, 0.1);

TEST_F(IconCacheTest, TheSameKeyHandsBackTheSameSurfaceDrawnOnce) {
  std::size_t const before = IconCache::iconsDrawn();
  IconCache::Icon const first = IconCache::get("eye-open.png", 16, kText);
  IconCache::Icon const again = IconCache::get("eye-open.png", 16, kText);
  EXPECT_TRUE(first.fromTheme);
  EXPECT_TRUE(again.surface.sharesPixelsWith(first.surface));
  EXPECT_EQ(IconCache::iconsDrawn(), before + 1);
  EXPECT_EQ(IconCache::size(), 1u);
}

TEST_F(IconCacheTest, AnotherSizeTintOrTurnIsAnotherIcon) {
  IconCache::Icon const plain = IconCache::get("eye-open.png", 16, kText);
  IconCache::Icon const bigger = IconCache::get("eye-open.png", 24, kText);
  IconCache::Icon const red = IconCache::get("eye-open.png", 16, kRed);
  IconCache::Icon const turned = IconCache::get("eye-open.png", 16, kText, 30);
  IconCache::Icon const other = IconCache::get("eye-closed.png", 16, kText);
  for (IconCache::Icon const* icon : {&bigger, &red, &turned, &other})
    EXPECT_FALSE(icon->surface.sharesPixelsWith(plain.surface));
  EXPECT_EQ(bigger.surface.width(), 24);
  EXPECT_FALSE(samePixels(red.surface, plain.surface));
  EXPECT_FALSE(samePixels(turned.surface, plain.surface));
  EXPECT_FALSE(samePixels(other.surface, plain.surface));
  EXPECT_EQ(IconCache::size(), 5u);
}

TEST_F(IconCacheTest, ThemeIconsAreTheThemesArtworkAtThatSize) {
  IconCache::Icon const icon = IconCache::get("magnify.png", 32, kRed);
  ASSERT_TRUE(icon.fromTheme);
  EXPECT_TRUE(samePixels(icon.surface, SvgIcon::renderFile(getIconPath("magnify.png"), 32, kRed)));
}

TEST_F(IconCacheTest, AnUnknownNameGetsTheDrawnStandIn) {
  IconCache::Icon const icon = IconCache::get("no-such-icon.png", 20, kRed);
  EXPECT_FALSE(icon.fromTheme);
  ASSERT_EQ(icon.surface.width(), 20);
  EXPECT_GT(countNonTransparent(icon.surface), 40);
  EXPECT_TRUE(samePixels(icon.surface, drawFallbackIcon(20, kRed)));
}

TEST_F(IconCacheTest, AnUnknownNameIsToldToTheLogOnceWhateverItsSize) {
  std::vector<std::string> logged;
  int const sink = addLogSink([&logged](std::string_view line) { logged.emplace_back(line); });
  IconCache::get("stage-ingset.png", 20, kRed);
  IconCache::get("stage-ingset.png", 32, kText);
  IconCache::get("magnify.png", 32, kRed);
  removeLogSink(sink);
  ASSERT_EQ(logged.size(), 1u) << "once per name, and nothing for a name the theme has";
  EXPECT_EQ(logged[0], "no icon named \"stage-ingset.png\" in the icon theme; a question mark stands in for it");
}

TEST_F(IconCacheTest, WithoutAThemeEveryNameGetsTheStandInAndTheCacheStartsAfresh) {
  IconCache::Icon const themed = IconCache::get("eye-open.png", 16, kText);
  ASSERT_TRUE(themed.fromTheme);
  ScratchFolder scratch;
  {
    ScopedEnv missing("ZOWIDGETS_ICON_THEME_DIR", (scratch.path() / "none").string());
    IconCache::Icon const bare = IconCache::get("eye-open.png", 16, kText);
    EXPECT_FALSE(bare.fromTheme);
    EXPECT_TRUE(samePixels(bare.surface, drawFallbackIcon(16, kText)));
    EXPECT_EQ(IconCache::size(), 1u);
  }
  EXPECT_TRUE(IconCache::get("eye-open.png", 16, kText).fromTheme);
}

// Icons are asked for at every paint, so the theme folder is not looked for
// again while the settings stay: a theme that appears under the same
// settings is found when an icon is next drawn afresh, and from then on the
// cache starts again with it.
TEST_F(IconCacheTest, AThemeThatAppearsIsFoundAtTheNextIconDrawnAfresh) {
  ScratchFolder scratch;
  std::filesystem::path const folder = scratch.path() / "theme";
  ScopedEnv later("ZOWIDGETS_ICON_THEME_DIR", folder.string());
  EXPECT_FALSE(IconCache::get("eye-open.png", 16, kText).fromTheme);
  scratch.write("theme/scalable/actions/view-reveal-symbolic.svg",
                R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16"><rect width="16" height="16"/></svg>)");
  scratch.write("theme/scalable/actions/view-conceal-symbolic.svg",
                R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16"><rect width="8" height="8"/></svg>)");
  std::size_t const drawn = IconCache::iconsDrawn();
  EXPECT_FALSE(IconCache::get("eye-open.png", 16, kText).fromTheme) << "kept, the folder not looked for";
  EXPECT_EQ(IconCache::iconsDrawn(), drawn);
  EXPECT_TRUE(IconCache::get("eye-closed.png", 16, kText).fromTheme);
  EXPECT_TRUE(IconCache::get("eye-open.png", 16, kText).fromTheme) << "the cache started again with the theme";
}

TEST_F(IconCacheTest, ClearForgetsEveryIcon) {
  IconCache::Icon const first = IconCache::get("poot.png", 16, kText);
  IconCache::get("poot.png", 32, kText);
  EXPECT_EQ(IconCache::size(), 2u);
  IconCache::clear();
  EXPECT_EQ(IconCache::size(), 0u);
  std::size_t const before = IconCache::iconsDrawn();
  IconCache::Icon const second = IconCache::get("poot.png", 16, kText);
  EXPECT_FALSE(second.surface.sharesPixelsWith(first.surface));
  EXPECT_TRUE(samePixels(second.surface, first.surface));
  EXPECT_EQ(IconCache::iconsDrawn(), before + 1);
}

TEST_F(IconCacheTest, KeepsAtMostItsCapacity) {
  // The stand-in is quick to draw; sizes 1 .. capacity + 10.
  int const sides = static_cast<int>(IconCache::kCapacity) + 10;
  for (int side = 1; side <= sides; ++side)
    IconCache::get("no-such-icon.png", side, kText);
  EXPECT_EQ(IconCache::size(), IconCache::kCapacity);
  // The oldest went first; the newest is still kept.
  std::size_t const before = IconCache::iconsDrawn();
  IconCache::get("no-such-icon.png", sides, kText);
  EXPECT_EQ(IconCache::iconsDrawn(), before);
  IconCache::get("no-such-icon.png", 1, kText);
  EXPECT_EQ(IconCache::iconsDrawn(), before + 1);
}

TEST_F(IconCacheTest, SidesOutOfRangeGiveEmptySurfacesAndAreNotKept) {
  EXPECT_TRUE(IconCache::get("eye-open.png", 0, kText).surface.empty());
  EXPECT_TRUE(IconCache::get("eye-open.png", SvgIcon::kMaxIconSide + 1, kText).surface.empty());
  EXPECT_EQ(IconCache::size(), 0u);
}

} // namespace
