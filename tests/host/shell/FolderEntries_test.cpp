#include "EnforcedPermissions.h"
#include "TempFolder.h"

#include <zowidgets/host/shell/FolderEntries.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <sys/stat.h>

namespace {

std::vector<std::string> namesOf(std::vector<FolderEntry> const& entries) {
  std::vector<std::string> names;
  for (FolderEntry const& entry : entries)
    names.push_back(entry.name);
  return names;
}

FolderEntry const* named(std::vector<FolderEntry> const& entries, std::string const& name) {
  auto found = std::find_if(entries.begin(), entries.end(), [&](FolderEntry const& e) { return e.name == name; });
  return found == entries.end() ? nullptr : &*found;
}

TEST(NaturalOrder, CountsRunsOfDigitsByTheirValue) {
  EXPECT_LT(naturalCompare("file2", "file10"), 0);
  EXPECT_GT(naturalCompare("file10", "file2"), 0);
  EXPECT_LT(naturalCompare("take 9 b", "take 10 a"), 0);
  EXPECT_LT(naturalCompare("v1.2", "v1.10"), 0);
}

TEST(NaturalOrder, IgnoresCaseAndLeadingZerosButStaysTotal) {
  EXPECT_LT(naturalCompare("apple", "Banana"), 0);
  EXPECT_LT(naturalCompare("Apple", "banana"), 0);
  EXPECT_NE(naturalCompare("a", "A"), 0) << "equal to a person, yet never equal for sorting";
  EXPECT_EQ(naturalCompare("a", "a"), 0);
  EXPECT_NE(naturalCompare("file007", "file7"), 0);
  EXPECT_LT(naturalCompare("file007", "file8"), 0);
  EXPECT_LT(naturalCompare("file", "file1"), 0);
}

int sign(int value) { return (value > 0) - (value < 0); }

// The key and then the bytes, as a sort compares two entries.
int orderByKeys(std::string const& a, std::string const& b) {
  if (int const byKey = naturalSortKey(a).compare(naturalSortKey(b)))
    return sign(byKey);
  return sign(a.compare(b));
}

TEST(NaturalOrder, SortKeysOrderAsTheComparisonDoes) {
  // Names built from pieces that meet every rule: case, leading zeros, runs
  // of digits of every length (some of nine and more), and characters below
  // and above the digits.
  std::vector<std::string> const pieces = {"a",          "B",  "z", "0", "00", "007", "1", "9",
                                           "10",         "99", "-", "/", ":",  ".",   " ", "123456789",
                                           "1234567890", "~",  "é", "_", "Z",  "000", "5", "42"};
  std::mt19937 random(20261126);
  auto name = [&] {
    std::string made;
    int const length = static_cast<int>(random() % 6);
    for (int i = 0; i < length; ++i)
      made += pieces[random() % pieces.size()];
    return made;
  };
  for (int round = 0; round < 20000; ++round) {
    std::string const a = name();
    std::string const b = name();
    ASSERT_EQ(orderByKeys(a, b), sign(naturalCompare(a, b))) << '"' << a << "\" against \"" << b << '"';
  }
}

TEST(NaturalOrder, SortKeysCountLongRunsByTheirLength) {
  EXPECT_LT(orderByKeys("take 999999999", "take 1000000000"), 0);
  EXPECT_LT(orderByKeys("take 1000000000", "take 10000000000"), 0);
  EXPECT_LT(orderByKeys("take 99", "take 123456789"), 0);
  EXPECT_LT(orderByKeys("file2", "file10"), 0);
}

TEST(FolderSorting, FoldersComeFirstForEveryKeyAndDirection) {
  std::vector<FolderEntry> entries(4);
  entries[0] = {"b.txt", false, false, false, 50, 3, {}};
  entries[1] = {"zed", true, false, false, 0, 1, {}};
  entries[2] = {"a.txt", false, false, false, 900, 2, {}};
  entries[3] = {"alpha", true, false, false, 0, 4, {}};
  sortFolderEntries(entries, FolderSortKey::kName, true);
  EXPECT_EQ(namesOf(entries), (std::vector<std::string>{"alpha", "zed", "a.txt", "b.txt"}));
  sortFolderEntries(entries, FolderSortKey::kName, false);
  EXPECT_EQ(namesOf(entries), (std::vector<std::string>{"zed", "alpha", "b.txt", "a.txt"}));
  sortFolderEntries(entries, FolderSortKey::kSize, true);
  EXPECT_EQ(namesOf(entries), (std::vector<std::string>{"alpha", "zed", "b.txt", "a.txt"}));
  sortFolderEntries(entries, FolderSortKey::kModified, false);
  EXPECT_EQ(namesOf(entries), (std::vector<std::string>{"alpha", "zed", "b.txt", "a.txt"}));
}

TEST(FolderReading, ListsNamesWithSpacesUtf8AndNoExtensionWithTheirSizes) {
  TempFolder folder;
  folder.write("my clip.mov", "12345");
  folder.write("Ünïcødé ✂.txt", "ab");
  folder.write("README", "");
  std::filesystem::create_directory(folder / "sub folder");
  int error = -1;
  std::vector<FolderEntry> const entries = readFolderEntries(folder.path().string(), &error);
  EXPECT_EQ(error, 0);
  ASSERT_EQ(entries.size(), 4u);
  ASSERT_NE(named(entries, "my clip.mov"), nullptr);
  EXPECT_EQ(named(entries, "my clip.mov")->size, 5u);
  EXPECT_EQ(named(entries, "my clip.mov")->extension(), "mov");
  ASSERT_NE(named(entries, "Ünïcødé ✂.txt"), nullptr);
  EXPECT_EQ(named(entries, "Ünïcødé ✂.txt")->size, 2u);
  ASSERT_NE(named(entries, "README"), nullptr);
  EXPECT_EQ(named(entries, "README")->extension(), "");
  ASSERT_NE(named(entries, "sub folder"), nullptr);
  EXPECT_TRUE(named(entries, "sub folder")->isFolder);
  EXPECT_FALSE(named(entries, "README")->isFolder);
}

TEST(FolderReading, AHiddenNameIsMarkedAndADotFileHasNoExtension) {
  FolderEntry entry;
  entry.name = ".bashrc";
  EXPECT_TRUE(entry.isHidden());
  EXPECT_EQ(entry.extension(), "");
  FolderEntry clip;
  clip.name = "clip.mov";
  EXPECT_FALSE(clip.isHidden());
}

TEST(FolderReading, ALinkLoopIsListedAsABrokenLinkNeverAsAFolder) {
  TempFolder folder;
  std::filesystem::create_directory_symlink("b", folder / "a");
  std::filesystem::create_directory_symlink("a", folder / "b");
  std::filesystem::create_directory_symlink(".", folder / "self");
  std::vector<FolderEntry> const entries = readFolderEntries(folder.path().string());
  ASSERT_NE(named(entries, "a"), nullptr);
  EXPECT_TRUE(named(entries, "a")->isBrokenLink);
  EXPECT_FALSE(named(entries, "a")->isFolder);
  ASSERT_NE(named(entries, "self"), nullptr);
  EXPECT_TRUE(named(entries, "self")->isFolder) << "a link to its own folder leads somewhere";
  EXPECT_TRUE(named(entries, "self")->isLink);
}

TEST(FolderReading, ALargeFolderIsReadInSlices) {
  TempFolder folder;
  for (int i = 0; i < 30; ++i)
    folder.write("clip" + std::to_string(i));
  FolderReader reader(folder.path().string());
  std::vector<FolderEntry> entries;
  EXPECT_TRUE(reader.readSome(10, entries));
  EXPECT_EQ(entries.size(), 10u);
  EXPECT_FALSE(reader.finished());
  while (reader.readSome(7, entries)) {
  }
  EXPECT_EQ(entries.size(), 30u);
  EXPECT_TRUE(reader.finished());
}

TEST(FolderReading, AFolderThatCannotBeReadReportsWhy) {
  TempFolder folder;
  std::filesystem::create_directory(folder / "locked");
  ASSERT_EQ(chmod((folder / "locked").c_str(), 0), 0);
  EnforcedPermissions permissions;
  if (!permissions.active())
    GTEST_SKIP() << "running as root without the right to drop CAP_DAC_OVERRIDE: permissions cannot be enforced";
  int error = 0;
  std::vector<FolderEntry> const entries = readFolderEntries((folder / "locked").string(), &error);
  EXPECT_EQ(error, EACCES);
  EXPECT_TRUE(entries.empty());
  FolderReader missing((folder / "gone").string());
  EXPECT_EQ(missing.error(), ENOENT);
  EXPECT_TRUE(missing.finished());
}

} // namespace
