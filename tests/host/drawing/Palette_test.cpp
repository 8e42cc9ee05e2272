#include <zowidgets/host/drawing/Palette.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

double contrast(Colour const& a, Colour const& b) { return std::abs(Palette::luminance(a) - Palette::luminance(b)); }

} // namespace

TEST(Palette, DefaultIsADarkSchemeWithReadableText) {
  Palette const palette;
  EXPECT_TRUE(palette.isDark());
  EXPECT_LT(Palette::luminance(palette.childWindow()), Palette::luminance(palette.window()));
  EXPECT_GT(contrast(palette.text(), palette.window()), 0.5);
  EXPECT_GT(contrast(palette.headingText(), palette.window()), contrast(palette.text(), palette.window()));
  EXPECT_GT(contrast(palette.subheadingText(), palette.window()), 0.25);
  for (Colour const& colour :
       {palette.window(), palette.childWindow(), palette.text(), palette.headingText(), palette.subheadingText(),
        palette.selection(), palette.warning(), palette.success(), palette.doIt()}) {
    EXPECT_TRUE(colour.use());
    EXPECT_EQ(colour.alpha(), 1.0);
  }
  EXPECT_GT(palette.warning().red(), palette.warning().green());
  EXPECT_GT(palette.success().green(), palette.success().red());
}

TEST(Palette, ShadeStepsLightenAndDarken) {
  Palette palette;
  palette.setWindow(Colour(0.5, 0.2, 0.98));
  EXPECT_EQ(palette.window(0), Colour(0.5, 0.2, 0.98));
  Colour const lighter = palette.window(2);
  EXPECT_NEAR(lighter.red(), 0.5 + 2 * Palette::kShadeStep, 1e-12);
  EXPECT_NEAR(lighter.green(), 0.2 + 2 * Palette::kShadeStep, 1e-12);
  EXPECT_EQ(lighter.blue(), 1.0);
  Colour const darker = palette.window(-3);
  EXPECT_NEAR(darker.red(), 0.5 - 3 * Palette::kShadeStep, 1e-12);
  EXPECT_NEAR(darker.green(), 0.2 - 3 * Palette::kShadeStep, 1e-12);
  EXPECT_EQ(palette.window(-20).red(), 0.0);
  EXPECT_LT(Palette::luminance(palette.childWindow(-1)), Palette::luminance(palette.childWindow(1)));
  EXPECT_GT(Palette::luminance(palette.text(1)), Palette::luminance(palette.text(0)));
}

TEST(Palette, ShadingKeepsAlphaAndInvalidity) {
  Colour translucent(0.5, 0.5, 0.5);
  translucent.setAlpha(0.3);
  EXPECT_EQ(Palette::shaded(translucent, 1).alpha(), 0.3);
  EXPECT_FALSE(Palette::shaded(Colour::invalid(), 2).use());
}

TEST(Palette, WindowPaletteDerivesItsChildAndText) {
  Palette const dark;
  Palette const light = makeWindowPalette(dark, Colour(0.92, 0.92, 0.9));
  EXPECT_FALSE(light.isDark());
  EXPECT_EQ(light.window(), Colour(0.92, 0.92, 0.9));
  EXPECT_GT(Palette::luminance(light.childWindow()), Palette::luminance(light.window()));
  EXPECT_GT(contrast(light.text(), light.window()), 0.5);
  EXPECT_GT(contrast(light.headingText(), light.window()), 0.5);
  EXPECT_EQ(light.selection(), dark.selection());

  Palette const red = makeWindowPalette(dark, Colour(0.6, 0.05, 0.05));
  EXPECT_EQ(red.text(), dark.text());
  EXPECT_EQ(makeWindowPalette(dark), dark);
}

TEST(Palette, ChildPalettesSitInsideTheirParent) {
  Palette const parent;
  Palette const panel = makeChildPalette(parent, kChildPanel);
  Palette const entry = makeChildPalette(parent, kChildTextEntry);
  Palette const list = makeChildPalette(parent, kChildList);
  EXPECT_EQ(panel.window(), parent.childWindow());
  EXPECT_EQ(list.window(), parent.childWindow());
  EXPECT_LT(Palette::luminance(entry.window()), Palette::luminance(panel.window()));
  EXPECT_LT(Palette::luminance(panel.childWindow()), Palette::luminance(panel.window()));
  EXPECT_EQ(entry.text(), parent.text());
}

TEST(Palette, TextPopupAndButtonPalettes) {
  Palette const base;
  Palette const amber = makeTextPalette(base, Colour(1.0, 0.7, 0.0));
  EXPECT_EQ(amber.text(), Colour(1.0, 0.7, 0.0));
  EXPECT_EQ(amber.window(), base.window());

  Palette const popup = makePopupPalette(base);
  Palette const button = makeButtonPalette(base);
  EXPECT_GT(Palette::luminance(popup.window()), Palette::luminance(base.window()));
  EXPECT_GT(Palette::luminance(button.window()), Palette::luminance(popup.window()));
  EXPECT_EQ(button.doIt(), base.doIt());

  Palette const light = makeWindowPalette(base, Colour(0.9, 0.9, 0.9));
  EXPECT_LT(Palette::luminance(makeButtonPalette(light).window()), Palette::luminance(light.window()));
}
