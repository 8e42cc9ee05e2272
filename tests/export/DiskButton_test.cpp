#include "support/WidgetTestSupport.h"

#include <zowidgets/export/DiskButton.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

// Drives of the test's making only, so every machine sees the same list.
struct DiskButtonTest : HeadlessScreenTest {
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    DiskManager::instance().setRealDrivesListed(false);
    DiskManager::instance().clearInjectedDrives();
    plug(L"/", L"/dev/sda2", 256 * 1024);
    plug(L"/home", L"/dev/sda3", 1800 * 1024);
  }
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    DiskManager::instance().clearInjectedDrives();
    DiskManager::instance().setRealDrivesListed(true);
  }
  static MediaDrive plug(wchar_t const* mount, wchar_t const* device, std::uint64_t megabytes) {
    MediaDrive drive(mount, device, L"ext4");
    drive.sizeInMegabytes = megabytes;
    DiskManager::instance().injectDrive(drive);
    return drive;
  }
  DiskButton* openButton(bool allowAuto = false, DriveId drive = {}) {
    StandardPanel* panel = openPanel(XY<int>(320, 60));
    DiskButton::InitArgs args(XY<int>(DiskButton::calcWidth(), UifStd::getRowHeight()));
    args.allowAuto = allowAuto;
    args.drive = drive;
    return panel->createWidget<DiskButton>(args, Glob::UserTopLeft(0, 0));
  }
  static std::vector<std::wstring> labels(DiskButton const& button) {
    std::vector<std::wstring> out;
    for (MenuItem const& item : button.getMenu().items())
      out.push_back(item.text.getString().str());
    return out;
  }
};

TEST_F(DiskButtonTest, EachDriveIsARowWithItsSize) {
  std::vector<UIString> items;
  DiskButton::getMenuItems(items, true, false);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].getString(), LightweightString<wchar_t>(L"System||(256.0 GB)"));
  EXPECT_EQ(items[1].getString(), LightweightString<wchar_t>(L"Home||(1.8 TB)"));
  items.clear();
  DiskButton::getMenuItems(items, false, true);
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[0].getString(), LightweightString<wchar_t>(L"System"));
  EXPECT_EQ(items[2].getString(), DiskButton::autoLabel().getString()) << "the automatic row ends the list";
}

TEST_F(DiskButtonTest, ItShowsTheDriveAskedForAndTheFirstWhenNoneIs) {
  DiskButton* first = openButton();
  EXPECT_EQ(first->getSelectedItem(), 0);
  DiskButton* home = openButton(false, DriveId(L"/home"));
  EXPECT_EQ(home->getSelectedItem(), 1);
  EXPECT_EQ(home->getCurrentDrive(), DriveId(L"/home"));
}

TEST_F(DiskButtonTest, SetCurrentDriveSaysWhetherItChanged) {
  DiskButton* button = openButton();
  EXPECT_TRUE(button->setCurrentDrive(DriveId(L"/home")));
  EXPECT_EQ(button->getSelectedItem(), 1);
  EXPECT_FALSE(button->setCurrentDrive(DriveId(L"/home")));
}

TEST_F(DiskButtonTest, AllowingAutoAddsTheLastRow) {
  DiskButton* button = openButton();
  EXPECT_EQ(labels(*button).size(), 2u);
  button->setAllowAuto(true);
  ASSERT_EQ(labels(*button).size(), 3u);
  EXPECT_EQ(labels(*button).back(), DiskButton::autoLabel().getString().str());
  EXPECT_EQ(button->getSelectedItem(), 0) << "the choice stays";
}

TEST_F(DiskButtonTest, PluggingInADriveRebuildsTheMenuAndKeepsTheSelection) {
  DiskButton* button = openButton();
  button->setCurrentDrive(DriveId(L"/home"));
  MediaDrive const card = plug(L"/media/ann/CARD", L"/dev/sdb1", 64 * 1024);
  EXPECT_EQ(labels(*button), (std::vector<std::wstring>{L"System||(256.0 GB)", L"Home||(1.8 TB)", L"CARD||(64.0 GB)"}));
  EXPECT_EQ(button->getCurrentDrive(), DriveId(L"/home"));
  EXPECT_EQ(button->getSelectedItem(), 1);
}

TEST_F(DiskButtonTest, ChoosingADriveFromTheMenuMakesItCurrent) {
  plug(L"/media/ann/CARD", L"/dev/sdb1", 64 * 1024);
  DiskButton* button = openButton();
  HeadlessInput::clickOn(*button);
  pump();
  MenuWindow* menu = button->getMenuWindow();
  ASSERT_NE(menu, nullptr);
  Zo::Box<int> const row = menu->rowBox(2);
  HeadlessInput::clickOn(*menu, XY<int>((row.x0 + row.x1) / 2, (row.y0 + row.y1) / 2));
  pump();
  EXPECT_EQ(button->getSelectedItem(), 2);
  EXPECT_EQ(button->getCurrentDrive(), DriveId(L"/media/ann/CARD"));
}

TEST_F(DiskButtonTest, RemovingTheChosenDriveFallsBackToTheFirst) {
  MediaDrive const card = plug(L"/media/ann/CARD", L"/dev/sdb1", 64 * 1024);
  DiskButton* button = openButton(false, card.id());
  EXPECT_EQ(button->getSelectedItem(), 2);
  DiskManager::instance().removeInjectedDrive(card.id());
  EXPECT_EQ(labels(*button).size(), 2u);
  EXPECT_EQ(button->getSelectedItem(), 0);
  EXPECT_EQ(button->getCurrentDrive(), DriveId(L"/"));
}

TEST_F(DiskButtonTest, TheTitledButtonForwardsToItsButton) {
  StandardPanel* panel = openPanel(XY<int>(400, 60));
  TitledDiskButton::InitArgs args(UIString(L"Drive"), XY<int>(360, UifStd::getRowHeight()));
  auto* titled = panel->createWidget<TitledDiskButton>(args, Glob::UserTopLeft(0, 0));
  EXPECT_TRUE(titled->setCurrentDrive(DriveId(L"/home")));
  EXPECT_EQ(titled->getCurrentDrive(), DriveId(L"/home"));
  EXPECT_EQ(titled->getButton().getSelectedItem(), 1);
  titled->setAllowAuto(true);
  EXPECT_EQ(labels(titled->getButton()).size(), 3u);
  EXPECT_EQ(titled->getChildGlob(), &titled->getButton());
}

TEST_F(DiskButtonTest, LooksAsDrawn) {
  StandardPanel* panel = openPanel(XY<int>(DiskButton::calcWidth() + 20, UifStd::getRowHeight() + 20));
  DiskButton::InitArgs args(XY<int>(DiskButton::calcWidth(), UifStd::getRowHeight()));
  args.drive = DriveId(L"/home");
  panel->createWidget<DiskButton>(args, Glob::UserTopLeft(0, 0));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/disk_button.png"));
}

} // namespace
