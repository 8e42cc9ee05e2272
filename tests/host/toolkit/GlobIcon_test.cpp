#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include "host/drawing/DrawingTestSupport.h"
#include "host/drawing/IconTestSupport.h"

namespace {

struct IconGlob : HeadlessScreenTest {
  ScopedEnv noOverride{"ZOWIDGETS_ICON_THEME_DIR", std::nullopt};
  ScopedEnv defaultDataDirs{"XDG_DATA_DIRS", std::nullopt};
};

// The colour of the solid pixels of an icon; 0 when none is solid.
std::uint32_t solidColour(Zo::Image::Surface const& icon) {
  for (int row = 0; row < icon.height(); ++row)
    for (int x = 0; x < icon.width(); ++x)
      if (alphaOf(icon.pixel(x, row)) == 255)
        return icon.pixel(x, row);
  return 0;
}

TEST_F(IconGlob, AnIconIsDrawnAtTheInterfaceScale) {
  StandardPanel* panel = openPanel(XY<int>(100, 60));
  for (double scale : {1.0, 1.5, 2.0}) {
    UifStd::setScale(scale);
    Zo::Image::Surface const icon = panel->loadIcon("eye-open.png", 16);
    EXPECT_EQ(icon.width(), static_cast<int>(16 * scale));
    EXPECT_EQ(icon.height(), static_cast<int>(16 * scale));
    EXPECT_GT(countNonTransparent(icon), icon.width() * icon.height() / 8);
  }
  UifStd::setScale(2.0);
  EXPECT_EQ(panel->loadIcon("magnify.png", 10.5).width(), 21);
  EXPECT_EQ(panel->loadIcon("magnify.png", 0).width(), 1);
}

TEST_F(IconGlob, AnIconTakesTheWidgetsTextColour) {
  StandardPanel* panel = openPanel(XY<int>(100, 60));
  Glob* child = panel->addChild(new Glob(GlobCreationInfo(XY<int>(20, 20))), Glob::UserTopLeft(0, 0));
  Palette red = panel->getPalette();
  red.setText(Colour(1.0, 0.0, 0.0));
  child->setPalette(red);
  EXPECT_EQ(solidColour(panel->loadIcon("eye-open.png", 16)), panel->getPalette().text().get_vlib_colour());
  EXPECT_EQ(solidColour(child->loadIcon("eye-open.png", 16)), 0xFFFF0000u);
}

TEST_F(IconGlob, ANameWithoutArtworkGivesTheDrawnStandIn) {
  StandardPanel* panel = openPanel(XY<int>(100, 60));
  Zo::Image::Surface const icon = panel->loadIcon("no-such-icon.png", 16);
  ASSERT_EQ(icon.width(), 16);
  EXPECT_GT(countNonTransparent(icon), 40);
  EXPECT_EQ(solidColour(icon), panel->getPalette().text().get_vlib_colour());
}

} // namespace
