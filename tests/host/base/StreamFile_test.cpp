#include <zowidgets/host/base/AtomicFile.h>
#include <zowidgets/host/base/DynamicIntegralStorage.h>
#include <zowidgets/host/base/StreamFile.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Bytes = std::vector<unsigned char>;

TEST(StreamFile, NumbersAreWrittenLittleEndianAndReadBack) {
  StreamFile file;
  file.setCookedChar(0xAB);
  file.setUnsignedShort(0x1234);
  file.setUnsignedLong(0xDEADBEEF);
  file.setFloat(-2.5f);
  EXPECT_EQ(file.bytes(), (Bytes{0xAB, 0x34, 0x12, 0xEF, 0xBE, 0xAD, 0xDE, 0x00, 0x00, 0x20, 0xC0}));
  file.seek(0);
  EXPECT_EQ(file.getCookedChar(), 0xAB);
  EXPECT_EQ(file.getUnsignedShort(), 0x1234);
  EXPECT_EQ(file.getUnsignedLong(), 0xDEADBEEFu);
  EXPECT_EQ(file.getFloat(), -2.5f);
  EXPECT_TRUE(file.atEnd());
  EXPECT_FALSE(file.failed());
}

TEST(StreamFile, WritingInsideOverwritesAndAtTheEndAppends) {
  StreamFile file(Bytes{1, 2, 3, 4});
  file.seek(2);
  file.setUnsignedShort(0x0605);
  EXPECT_EQ(file.bytes(), (Bytes{1, 2, 5, 6}));
  file.seek(3);
  file.setUnsignedShort(0x0807);
  EXPECT_EQ(file.bytes(), (Bytes{1, 2, 5, 7, 8}));
}

TEST(StreamFile, AReadPastTheEndGivesNothingAndMarksTheFile) {
  StreamFile file(Bytes{1, 2, 3});
  EXPECT_EQ(file.getUnsignedLong(), std::nullopt);
  EXPECT_TRUE(file.failed());
  EXPECT_TRUE(file.atEnd()) << "nothing after a failed read is read from the middle";
  EXPECT_EQ(file.getCookedChar(), std::nullopt);
}

TEST(StreamFile, AStringEndsAtAZeroByteAndOneWithoutItFails) {
  StreamFile file(Bytes{'F', 'D', 0, 'x'});
  EXPECT_EQ(file.getString(), LightweightString<char>("FD"));
  EXPECT_EQ(file.tell(), 3u);
  EXPECT_EQ(file.getString(), std::nullopt);
  EXPECT_TRUE(file.failed());
}

TEST(StreamFile, SeekingPastTheEndHoldsAtTheEnd) {
  StreamFile file(Bytes{1, 2});
  file.seek(4294967295u);
  EXPECT_EQ(file.tell(), 2u);
  EXPECT_TRUE(file.atEnd());
}

TEST(StreamFile, SavesAtomicallyAndLoadsBack) {
  std::filesystem::path const folder =
      std::filesystem::temp_directory_path() / ("zo-stream-" + std::to_string(::getpid()));
  std::string const path = (folder / "sub" / "font.bin").string();
  StreamFile file(Bytes{0, 1, 2, 255});
  ASSERT_TRUE(file.save(path)) << "the missing folder is made";
  std::optional<StreamFile> const loaded = StreamFile::load(path);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->bytes(), file.bytes());
  int leftovers = 0;
  for (auto const& entry : std::filesystem::directory_iterator(folder / "sub"))
    leftovers += entry.path().filename() != "font.bin";
  EXPECT_EQ(leftovers, 0) << "no temporary file is left beside it";
  EXPECT_FALSE(StreamFile::load((folder / "missing.bin").string()));
  std::filesystem::remove_all(folder);
}

TEST(AtomicFile, AFailedWriteLeavesWhatWasThereWholeAndNoTemporaryFileBehind) {
  std::filesystem::path const folder =
      std::filesystem::temp_directory_path() / ("zo-atomic-" + std::to_string(::getpid()));
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder / "blocked" / "inside");
  // A folder with content where the file would go: the rename over it
  // fails, and what was there is untouched.
  errno = 0;
  EXPECT_FALSE(Zo::writeFileAtomically((folder / "blocked").string(), "new text"));
  EXPECT_NE(errno, 0) << "the failure says why";
  EXPECT_TRUE(std::filesystem::is_directory(folder / "blocked" / "inside"));
  int entries = 0;
  for (auto const& entry : std::filesystem::directory_iterator(folder)) {
    EXPECT_EQ(entry.path().filename(), "blocked") << "left behind: " << entry.path();
    ++entries;
  }
  EXPECT_EQ(entries, 1);
  std::filesystem::remove_all(folder);
}

TEST(AtomicFile, ANewFileGetsTheUsersPermissionsAndAReplacedOneKeepsItsOwn) {
  std::filesystem::path const folder =
      std::filesystem::temp_directory_path() / ("zo-atomic-mode-" + std::to_string(::getpid()));
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  mode_t const saved = ::umask(027);
  auto modeOf = [](std::filesystem::path const& path) {
    struct stat info {};
    ::stat(path.c_str(), &info);
    return info.st_mode & 07777;
  };
  // Not the temporary file's private 0600.
  ASSERT_TRUE(Zo::writeFileAtomically((folder / "new.txt").string(), "text"));
  EXPECT_EQ(modeOf(folder / "new.txt"), 0640u);
  ::chmod((folder / "new.txt").c_str(), 0604);
  ASSERT_TRUE(Zo::writeFileAtomically((folder / "new.txt").string(), "again"));
  EXPECT_EQ(modeOf(folder / "new.txt"), 0604u);
  ::umask(saved);
  std::filesystem::remove_all(folder);
}

TEST(DynamicIntegralStorage, SmallValuesTakeTheSmallFormAndTheRestAnEscape) {
  StreamFile file;
  PStream stream(file);
  DynamicIntegralStorage<unsigned char, unsigned short>(254).pack(stream);
  DynamicIntegralStorage<unsigned char, unsigned short>(255).pack(stream);
  DynamicIntegralStorage<unsigned short, unsigned int>(70000).pack(stream);
  EXPECT_EQ(file.bytes(), (Bytes{254, 255, 255, 0, 0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}));
  file.seek(0);
  DynamicIntegralStorage<unsigned char, unsigned short> first, second;
  DynamicIntegralStorage<unsigned short, unsigned int> third;
  EXPECT_TRUE(first.unpack(stream));
  EXPECT_TRUE(second.unpack(stream));
  EXPECT_TRUE(third.unpack(stream));
  EXPECT_EQ(first.value(), 254);
  EXPECT_EQ(second.value(), 255);
  EXPECT_EQ(third.value(), 70000u);
  DynamicIntegralStorage<unsigned char, unsigned short> cut(7);
  StreamFile escapeOnly(Bytes{255, 1});
  PStream truncated(escapeOnly);
  EXPECT_FALSE(cut.unpack(truncated));
  EXPECT_EQ(cut.value(), 7) << "a value cut short leaves the old one";
}

} // namespace
