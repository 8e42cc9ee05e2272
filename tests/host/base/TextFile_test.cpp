#include "host/shell/TempFolder.h"

#include <zowidgets/host/base/TextFile.h>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

std::string contents(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

TEST(TextFile, LinesAreWrittenWithTheChosenEnds) {
  TempFolder folder;
  TextFile file(folder.wide("lines.txt"), false);
  file.appendLine(LightweightString<char>("first"));
  file.appendLine(LightweightString<wchar_t>(L"\u00E9t\u00E9"));
  file.appendLine(LightweightString<char>());
  ASSERT_TRUE(file.save({}, TextFile::kUnixEndOfLine));
  EXPECT_EQ(contents(folder / "lines.txt"), "first\n\xC3\xA9t\xC3\xA9\n\n");
  ASSERT_TRUE(file.save(folder.wide("dos.txt"), TextFile::kDosEndOfLine));
  EXPECT_EQ(contents(folder / "dos.txt"), "first\r\n\xC3\xA9t\xC3\xA9\r\n\r\n");
  ASSERT_TRUE(file.save(folder.wide("native.txt")));
  EXPECT_EQ(contents(folder / "native.txt"), contents(folder / "lines.txt"));
  EXPECT_EQ(file.path(), folder.wide("lines.txt")) << "saving elsewhere keeps the path it was opened with";
}

TEST(TextFile, AppendedTextIsSplitIntoLines) {
  TextFile file(LightweightString<wchar_t>(), false);
  file.append("one\r\ntwo\n\nthree\n");
  ASSERT_EQ(file.numLines(), 4u);
  EXPECT_EQ(file.line(0), "one");
  EXPECT_EQ(file.line(2), "");
  EXPECT_EQ(file.line(3), "three");
  file.append("tail");
  EXPECT_EQ(file.numLines(), 5u);
  EXPECT_EQ(file.text(TextFile::kUnixEndOfLine), "one\ntwo\n\nthree\ntail\n");
  file.clear();
  EXPECT_EQ(file.text(TextFile::kUnixEndOfLine), "");
}

TEST(TextFile, AnExistingFileIsReadOnlyWhenAskedFor) {
  TempFolder folder;
  folder.write("old.txt", "a\r\nb\rc\nd");
  TextFile const read(folder.wide("old.txt"), true);
  ASSERT_EQ(read.numLines(), 4u);
  EXPECT_EQ(read.line(1), "b");
  EXPECT_EQ(read.line(3), "d");
  EXPECT_EQ(TextFile(folder.wide("old.txt"), false).numLines(), 0u);
  EXPECT_EQ(TextFile(folder.wide("missing.txt"), true).numLines(), 0u);
}

TEST(TextFile, AFileThatCannotBeWrittenIsLeftAsItWas) {
  TempFolder folder;
  folder.write("blocker", "a file where a folder should be");
  TextFile file(folder.wide("blocker/inside.txt"), false);
  file.appendLine(LightweightString<char>("text"));
  EXPECT_FALSE(file.save());
  EXPECT_EQ(contents(folder / "blocker"), "a file where a folder should be");
  EXPECT_FALSE(TextFile(LightweightString<wchar_t>(), false).save()) << "no path at all";
}

TEST(TextFile, SavingReplacesTheWholeFile) {
  TempFolder folder;
  folder.write("long.txt", "many\nlines\nof\nolder\ntext\n");
  TextFile file(folder.wide("long.txt"), false);
  file.appendLine(LightweightString<char>("short"));
  ASSERT_TRUE(file.save());
  EXPECT_EQ(contents(folder / "long.txt"), "short\n");
}

} // namespace
