// Every icon name with its artwork at 1, 1.5 and 2 times its size, and an
// unknown name with the drawn stand-in, as the gallery's icon page shows
// them: a sheet at interface scale 1 and one at 2, compared with the golden
// pictures (ZOWIDGETS_UPDATE_GOLDEN=1 writes them afresh).
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/IconNames.h>
#include <zowidgets/host/drawing/Palette.h>

#include "host/drawing/IconTestSupport.h"
#include "support/WidgetTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr double kIconSize = 16.0;
constexpr double kIconScales[] = {1.0, 1.5, 2.0};
constexpr double kNameWidth = 150.0;
constexpr double kRowHeight = 40.0;
constexpr double kGap = 8.0;

struct IconSheetGolden : ::testing::Test {
  ScopedEnv noOverride{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};
  ScopedEnv defaultDataDirs{"XDG_DATA_DIRS", std::nullopt};
  void SetUp() override { IconCache::clear(); }
  void TearDown() override { IconCache::clear(); }
};

Zo::Image::Surface drawSheet(double scale) {
  std::vector<std::string> names;
  for (IconName const& icon : iconNames())
    names.emplace_back(icon.ours);
  names.emplace_back("no-such-icon.png");
  auto const px = [scale](double length) { return static_cast<int>(std::lround(length * scale)); };
  int const column = px(kIconSize * 2 + kGap);
  int const row = px(kRowHeight);
  int const width = px(kGap + kNameWidth) + column * 3;
  int const height = row * static_cast<int>(names.size());
  Zo::Image::Surface sheet(width, height);
  Palette const palette;
  sheet.fill(palette.window());
  CanvasRenderer renderer(sheet);
  Glib::FontDesc const font("DejaVu Sans", 13 * scale, 0);
  for (std::size_t n = 0; n < names.size(); ++n) {
    int const bottom = height - row * static_cast<int>(n + 1);
    std::wstring const label(names[n].begin(), names[n].end());
    renderer.renderPrimitive(Glib::TextDescription(
        LightweightString<wchar_t>(label.c_str()),
        Zo::Box<double>(px(kGap), bottom, px(kGap + kNameWidth), bottom + row), font, palette.text()));
    int x = px(kGap + kNameWidth);
    for (double iconScale : kIconScales) {
      int const side = px(kIconSize * iconScale);
      Zo::Image::Surface const icon = IconCache::get(names[n], side, palette.text()).surface;
      renderer.renderPrimitive(Glib::ImageDescription(icon, XY<double>(x, bottom + (row - side) / 2)));
      x += column;
    }
  }
  return sheet;
}

TEST_F(IconSheetGolden, AtScaleOne) { EXPECT_TRUE(matchesGolden(drawSheet(1.0), ZO_GOLDEN_DIR "/icon_sheet.png")); }

TEST_F(IconSheetGolden, AtScaleTwo) {
  EXPECT_TRUE(matchesGolden(drawSheet(2.0), ZO_GOLDEN_DIR "/icon_sheet_scale2.png"));
}

} // namespace
