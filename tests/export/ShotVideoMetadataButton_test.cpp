#include "ExportTestSupport.h"

#include <zowidgets/export/ShotVideoMetadataButton.h>

namespace {

class ShotVideoMetadataButtonTest : public ExportWidgetTest {
protected:
  ShotVideoMetadataButton* makeButton(std::vector<ShotVideoMetadata> const& candidates,
                                      ShotVideoMetadata const& selected) {
    ShotVideoMetadataButton::InitArgs args(candidates, selected, XY<int>(260, 24));
    return log->createChild<ShotVideoMetadataButton>(args, Glob::UserTopLeft(10, 10));
  }
  static std::vector<ShotVideoMetadata> mixed() {
    return {shot(1920, 1080), shot(720, 576), shot(1280, 720), shot(3840, 2160), shot(720, 480)};
  }
};

TEST_F(ShotVideoMetadataButtonTest, GroupsAreHeadedAndSortedByHeight) {
  ShotVideoMetadataButton* button = makeButton(mixed(), shot(1280, 720));
  std::vector<std::wstring> rows;
  for (MenuItem const& item : button->getMenu().items())
    rows.push_back(item.text.getString().str());
  EXPECT_EQ(rows, (std::vector<std::wstring>{L"Standard definition", L"720x480p 25 fps", L"720x576p 25 fps",
                                             L"High definition", L"1280x720p 25 fps", L"1920x1080p 25 fps",
                                             L"Ultra high definition", L"3840x2160p 25 fps"}));
  EXPECT_EQ(button->getSelectedFormat(), shot(1280, 720));
}

TEST_F(ShotVideoMetadataButtonTest, HeadingsCannotBeChosenAndRowsFollowTheStoredOrder) {
  ShotVideoMetadataButton* button = makeButton(mixed(), shot(720, 480));
  EXPECT_FALSE(button->getMenu().item(0).isSelectable());
  // A click on the heading of the high definition group chooses nothing.
  HeadlessInput::clickOn(*button);
  pump();
  MenuWindow* menu = button->getMenuWindow();
  ASSERT_NE(menu, nullptr);
  Zo::Box<int> const heading = menu->rowBox(3);
  HeadlessInput::clickOn(*menu, XY<int>((heading.x0 + heading.x1) / 2, (heading.y0 + heading.y1) / 2));
  pump();
  EXPECT_EQ(button->getSelectedFormat(), shot(720, 480));
  HeadlessInput::key(kKeyEscape);
  pump();
  ASSERT_EQ(button->getMenuWindow(), nullptr);
  chooseRow(*button, 5);
  EXPECT_EQ(button->getSelectedFormat(), shot(1920, 1080));
  EXPECT_EQ(button->getFormats()[3], shot(1920, 1080));
  chooseRow(*button, 7);
  EXPECT_EQ(button->getSelectedFormat(), shot(3840, 2160));
}

TEST_F(ShotVideoMetadataButtonTest, EachRowTellsItsSizeInItsTooltip) {
  ShotVideoMetadataButton* button = makeButton({shot(1920, 1080)}, shot(1920, 1080));
  EXPECT_EQ(button->getMenu().item(1).tooltip.getString(), L"1920x1080");
}

TEST_F(ShotVideoMetadataButtonTest, EqualHeightsKeepTheirOrder) {
  ShotVideoMetadata interlaced = shot(1920, 1080);
  interlaced.scanMode = ShotVideoMetadata::kInterlacedUpperFirst;
  ShotVideoMetadataButton* button = makeButton({shot(1920, 1080), interlaced, shot(1440, 1080)}, shot(1920, 1080));
  EXPECT_EQ(button->getFormats(), (std::vector<ShotVideoMetadata>{shot(1920, 1080), interlaced, shot(1440, 1080)}));
}

TEST_F(ShotVideoMetadataButtonTest, UnusualColorimetryMatchesACandidateDifferingOnlyInSamples) {
  ShotVideoMetadataButton* button = makeButton(mixed(), shot(720, 480));
  ShotVideoMetadata clip = shot(1920, 1080);
  clip.sample.colorimetry = 5;
  clip.sample.gamutScaling = 1;
  EXPECT_TRUE(button->setSelectedFormat(clip));
  EXPECT_EQ(button->getSelectedFormat(), shot(1920, 1080));
}

TEST_F(ShotVideoMetadataButtonTest, ColorimetryOf9OrAboveMustMatchExactly) {
  ShotVideoMetadataButton* button = makeButton(mixed(), shot(720, 480));
  ShotVideoMetadata clip = shot(1920, 1080);
  clip.sample.colorimetry = 9;
  EXPECT_FALSE(button->setSelectedFormat(clip));
  EXPECT_EQ(button->getSelectedFormat(), shot(720, 480));
}

TEST_F(ShotVideoMetadataButtonTest, CommonColorimetryMustMatchExactly) {
  ShotVideoMetadataButton* button = makeButton(mixed(), shot(720, 480));
  ShotVideoMetadata clip = shot(1920, 1080);
  clip.sample.colorimetry = 2;
  EXPECT_FALSE(button->setSelectedFormat(clip));
  EXPECT_EQ(button->getSelectedFormat(), shot(720, 480));
}

TEST_F(ShotVideoMetadataButtonTest, EqualCandidatesInASetCollapseBeforeTheButton) {
  ShotVideoMetadataButton::FormatSet set{shot(1920, 1080), shot(1920, 1080), shot(720, 576)};
  ShotVideoMetadataButton* button = makeButton({}, {});
  button->setFormats(set, shot(1920, 1080));
  EXPECT_EQ(button->getFormats().size(), 2u);
  EXPECT_EQ(button->getMenu().size(), 4); // two headings, two rows
  EXPECT_EQ(button->getSelectedFormat(), shot(1920, 1080));
}

TEST_F(ShotVideoMetadataButtonTest, EmptyListGivesOneRowThatCannotBeChosen) {
  ShotVideoMetadataButton* button = makeButton({}, {});
  ASSERT_EQ(button->getMenu().size(), 1);
  EXPECT_FALSE(button->getMenu().item(0).isSelectable());
  EXPECT_TRUE(button->getFormats().empty());
  EXPECT_EQ(button->getSelectedItem(), -1);
}

TEST_F(ShotVideoMetadataButtonTest, WidthFitsTheWidestRow) {
  int const narrow = ShotVideoMetadataButton::calcWidth({shot(720, 576)});
  int const wide = ShotVideoMetadataButton::calcWidth({shot(720, 576), shot(3840, 2160)});
  EXPECT_GT(wide, narrow);
}

} // namespace
