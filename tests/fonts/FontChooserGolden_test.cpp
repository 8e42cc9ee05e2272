#include "fonts/FontChooserTestSupport.h"

#include <zowidgets/fonts/FontChooserButton.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

namespace {

using namespace FontChooserInput;

// The list is filtered to families every test machine has, so the pictures
// do not depend on what else is installed.
constexpr char const* kKnownFamilies = "dejavu|liberation";

struct FontChooserGolden : HeadlessScreenTest {
  ValServer<FontDefinition> font{fontNamed("Liberation Serif", 14.0f, Glib::FontDesc::kBold)};

  FontChooserPanel* openPanel() {
    FontChooserPanel::InitArgs args(&font, kRecentKey);
    args.screenPosition = XY<int>(100, 100);
    auto* panel = new FontChooserPanel(args);
    GlobManager::realize(panel);
    typeFilter(*panel, kKnownFamilies);
    HeadlessInput::key(kKeyReturn);
    pump();
    return panel;
  }

  // A window with a button on the font at its top left.
  FontChooserButton* openButton() {
    int const row = UifStd::getRowHeight();
    window = HeadlessScreenTest::openPanel(XY<int>(row * 10, row * 2), XY<int>(100, 700));
    FontChooserButton::InitArgs args(XY<int>(row * 8, row), font.get());
    auto* button = window->createWidget<FontChooserButton>(args, Glob::UserTopLeft(0, 0));
    pump();
    return button;
  }

  StandardPanel* window = nullptr;
};

TEST_F(FontChooserGolden, PanelFilteredToKnownFamilies) {
  FontChooserPanel* panel = openPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/font_chooser_panel.png"));
}

TEST_F(FontChooserGolden, ClosedButton) {
  openButton();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*window), ZO_GOLDEN_DIR "/font_chooser_button.png"));
}

TEST_F(FontChooserGolden, ButtonWithItsPanelOpen) {
  FontChooserButton* button = openButton();
  HeadlessInput::clickOn(*button);
  pump();
  FontChooserPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  typeFilter(*panel, kKnownFamilies);
  pump();
  Zo::Box<int> const windowBox = screenBoxOf(*window);
  Zo::Box<int> const hostBox = screenBoxOf(*button->getDropDownHost());
  int const margin = UifStd::getRowHeight();
  Zo::Image::Surface const shot = screen().grab(
      Zo::Box<int>(std::min(windowBox.x0, hostBox.x0) - margin, std::min(windowBox.y0, hostBox.y0) - margin,
                   std::max(windowBox.x1, hostBox.x1) + margin, std::max(windowBox.y1, hostBox.y1) + margin));
  EXPECT_TRUE(matchesGolden(shot, ZO_GOLDEN_DIR "/font_chooser_button_open.png"));
}

} // namespace
