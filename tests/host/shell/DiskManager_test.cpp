#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/shell/DiskManager.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace {

struct DiskManagerTest : ::testing::Test {
  void TearDown() override {
    DiskManager::instance().clearInjectedDrives();
    DiskManager::instance().setRealDrivesListed(true);
  }
};

constexpr char const* kTable = "22 1 0:21 / /proc rw,nosuid - proc proc rw\n"
                               "23 1 0:22 / /sys rw - sysfs sysfs rw\n"
                               "25 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
                               "26 25 8:3 / /home rw,relatime shared:2 - ext4 /dev/sda3 rw\n"
                               "27 25 0:25 / /run/user/1000 rw - tmpfs tmpfs rw\n"
                               "28 25 8:17 / /media/ann/CARD\\0401 rw - exfat /dev/sdb1 rw\n"
                               "29 25 7:0 / /snap/core/1 ro - squashfs /dev/loop0 ro\n"
                               "30 25 8:33 / /run/media/ann/DISK rw - ext4 /dev/sdc1 rw\n"
                               "31 25 8:3 / /home rw shared:3 - ext4 /dev/sda3 rw\n"
                               "garbage line without fields\n"
                               "32 25 0:40 / /mnt/net rw - nfs server:/export rw\n";

TEST_F(DiskManagerTest, TheMountTableGivesRealDrivesRootFirstWithoutTheSystemsOwnMounts) {
  std::vector<MediaDrive> const drives = DiskManager::parseMountInfo(kTable);
  std::vector<std::wstring> mounts;
  for (MediaDrive const& drive : drives)
    mounts.push_back(drive.getMountPoint().str());
  EXPECT_EQ(mounts, (std::vector<std::wstring>{L"/", L"/home", L"/media/ann/CARD 1", L"/run/media/ann/DISK"}));
  EXPECT_EQ(drives[0].getDevice(), LightweightString<wchar_t>(L"/dev/sda2"));
  EXPECT_EQ(drives[0].getFileSystem(), LightweightString<wchar_t>(L"ext4"));
}

TEST_F(DiskManagerTest, DrivesAreNamedAsAUserKnowsThem) {
  std::vector<MediaDrive> const drives = DiskManager::parseMountInfo(kTable);
  ASSERT_EQ(drives.size(), 4u);
  EXPECT_EQ(drives[0].getUserName(), LightweightString<wchar_t>(L"System"));
  EXPECT_EQ(drives[1].getUserName(), LightweightString<wchar_t>(L"Home"));
  EXPECT_EQ(drives[2].getUserName(), LightweightString<wchar_t>(L"CARD 1"));
  EXPECT_EQ(drives[3].getUserName(), LightweightString<wchar_t>(L"DISK"));
}

TEST_F(DiskManagerTest, TheMachinesRootIsTheFirstDriveWithItsSize) {
  DiskManager& manager = DiskManager::instance();
  ASSERT_GE(manager.numDrives(), 1);
  EXPECT_EQ(manager.drives()[0].getMountPoint(), LightweightString<wchar_t>(L"/"));
  EXPECT_GT(manager.drives()[0].sizeInMegabytes, 0u) << "statvfs of /";
  EXPECT_EQ(manager.getDriveIndex(DriveId()), 0);
  EXPECT_EQ(manager.getDriveIndex(DriveId(L"/")), 0);
  EXPECT_EQ(manager.getDriveIndex(DriveId(L"/no/such/mount")), -1);
}

TEST_F(DiskManagerTest, AnInjectedDriveIsListedLastAndEachChangeIsTold) {
  DiskManager& manager = DiskManager::instance();
  int told = 0;
  auto guard = manager.addListener([&](DiskManagerEvent const& event) {
    EXPECT_EQ(event.kind, DiskManagerEvent::kDrivesChanged);
    ++told;
  });
  int const before = manager.numDrives();
  MediaDrive card(L"/media/test/CARD", L"/dev/sdz1", L"exfat");
  card.sizeInMegabytes = 64 * 1024;
  manager.injectDrive(card);
  EXPECT_EQ(told, 1);
  ASSERT_EQ(manager.numDrives(), before + 1);
  EXPECT_EQ(manager.getDriveIndex(card.id()), before);
  EXPECT_EQ(manager.drives().back().sizeInMegabytes, 64u * 1024u);
  manager.removeInjectedDrive(card.id());
  EXPECT_EQ(told, 2);
  EXPECT_EQ(manager.getDriveIndex(card.id()), -1);
  manager.refresh();
  EXPECT_EQ(told, 2) << "nothing changed, nothing told";
}

TEST_F(DiskManagerTest, WithoutTheRealDrivesOnlyInjectedOnesAreListed) {
  DiskManager& manager = DiskManager::instance();
  manager.setRealDrivesListed(false);
  EXPECT_EQ(manager.numDrives(), 0);
  EXPECT_EQ(manager.getDriveIndex(DriveId()), -1);
  manager.injectDrive(MediaDrive(L"/media/x", L"/dev/sdx", L"ext4"));
  EXPECT_EQ(manager.numDrives(), 1);
  EXPECT_EQ(manager.getDriveIndex(DriveId()), 0);
}

} // namespace

// A real mount and unmount, made by a second process in a mount namespace of
// its own so the machine's drives are left alone: its drive list hears both
// through the kernel's notice on the mount table, not through injection.
TEST(DiskManagerRealMount, AFileSystemMountedAndRemovedIsToldToListeners) {
  FILE* pipe = ::popen(ZO_MOUNT_WATCH_HELPER, "r");
  ASSERT_NE(pipe, nullptr);
  std::string output;
  char buffer[128];
  while (std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe))
    output.append(buffer, got);
  int const status = ::pclose(pipe);
  ASSERT_TRUE(WIFEXITED(status)) << output;
  if (WEXITSTATUS(status) == 77)
    GTEST_SKIP() << "this machine does not let a test make a mount namespace (needs root): " << output;
  EXPECT_EQ(WEXITSTATUS(status), 0) << output;
  EXPECT_EQ(output, "mounted heard\nremoved heard\n");
}
