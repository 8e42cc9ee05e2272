#include <zowidgets/host/shell/FileNameRules.h>
#include <zowidgets/host/shell/FilePaths.h>

#include "host/shell/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

using namespace Zo::FilespecUtils;

namespace {

using WString = LightweightString<wchar_t>;

std::size_t utf8Size(WString const& text) { return text.toUTF8().size(); }

} // namespace

TEST(IllegalNameCharacters, ListsSeparatorsWildcardsAndControls) {
  auto illegal = getIllegalNameCharacters();
  for (wchar_t c : std::wstring(L"/\\:*?\"<>|\t\n\x01\x1f"))
    EXPECT_NE(illegal.find(c), WString::npos) << int(c);
  for (wchar_t c : std::wstring(L"aZ09 ._-()[]'\u00e9\u4e2d"))
    EXPECT_EQ(illegal.find(c), WString::npos) << int(c);
  EXPECT_EQ(illegal.find(L'\0'), WString::npos);
}

TEST(IllegalNameCharacters, AgreeWithTheTest) {
  auto illegal = getIllegalNameCharacters();
  for (wchar_t c : illegal.view())
    EXPECT_TRUE(isIllegalNameCharacter(c)) << int(c);
  EXPECT_TRUE(isIllegalNameCharacter(L'\0'));
  EXPECT_TRUE(isIllegalNameCharacter(static_cast<wchar_t>(0xD800)));
  EXPECT_TRUE(isIllegalNameCharacter(static_cast<wchar_t>(0x110000)));
  EXPECT_TRUE(isIllegalNameCharacter(static_cast<wchar_t>(-1)));
  EXPECT_FALSE(isIllegalNameCharacter(L'a'));
  EXPECT_FALSE(isIllegalNameCharacter(static_cast<wchar_t>(0x1F600)));
}

TEST(MakeValidFileName, ReplacesIllegalCharacters) {
  EXPECT_EQ(makeValidFileName(L"a/b\\c:d*e?f\"g<h>i|j"), L"a_b_c_d_e_f_g_h_i_j");
  EXPECT_EQ(makeValidFileName(L"tab\there"), L"tab_here");
  EXPECT_EQ(makeValidFileName(L"Scene 1: take 2?", L'-'), L"Scene 1- take 2-");
}

TEST(MakeValidFileName, IllegalReplacementFallsBackToUnderscore) {
  EXPECT_EQ(makeValidFileName(L"a/b", L'/'), L"a_b");
  EXPECT_EQ(makeValidFileName(L"a/b", L' '), L"a_b");
  EXPECT_EQ(makeValidFileName(L"a/b", L'.'), L"a_b");
}

TEST(MakeValidFileName, TrimsSpacesAndTrailingDots) {
  EXPECT_EQ(makeValidFileName(L"   Final cut  "), L"Final cut");
  EXPECT_EQ(makeValidFileName(L"name..."), L"name");
  EXPECT_EQ(makeValidFileName(L"name. . ."), L"name");
  EXPECT_EQ(makeValidFileName(L"\tname\n"), L"name");
}

TEST(MakeValidFileName, KeepsLeadingDotsAndInnerDots) {
  EXPECT_EQ(makeValidFileName(L".bashrc"), L".bashrc");
  EXPECT_EQ(makeValidFileName(L"archive.tar.gz"), L"archive.tar.gz");
}

TEST(MakeValidFileName, EmptyOrDotsOnlyBecomesTheReplacement) {
  EXPECT_EQ(makeValidFileName(L""), L"_");
  EXPECT_EQ(makeValidFileName(L"   "), L"_");
  EXPECT_EQ(makeValidFileName(L"."), L"_");
  EXPECT_EQ(makeValidFileName(L".."), L"_");
  EXPECT_EQ(makeValidFileName(L"", L'x'), L"x");
}

TEST(MakeValidFileName, ReservedDeviceNamesGetTheReplacement) {
  EXPECT_EQ(makeValidFileName(L"CON"), L"CON_");
  EXPECT_EQ(makeValidFileName(L"con.txt"), L"con_.txt");
  EXPECT_EQ(makeValidFileName(L"Lpt9.tar.gz"), L"Lpt9_.tar.gz");
  EXPECT_EQ(makeValidFileName(L"nul "), L"nul_");
  EXPECT_EQ(makeValidFileName(L"COM1"), L"COM1_");
  EXPECT_EQ(makeValidFileName(L"COM0"), L"COM0");
  EXPECT_EQ(makeValidFileName(L"CONSOLE"), L"CONSOLE");
  EXPECT_EQ(makeValidFileName(L"my con"), L"my con");
}

TEST(MakeValidFileName, CutsLongNamesOnCharacterBoundaries) {
  auto ascii = makeValidFileName(WString(std::wstring(300, L'a')));
  EXPECT_EQ(ascii.size(), kMaxNameBytes);
  // Two bytes each in UTF-8: 127 fit, with a byte left over.
  auto accented = makeValidFileName(WString(std::wstring(200, L'\u00e9')));
  EXPECT_EQ(accented.size(), 127u);
  EXPECT_EQ(utf8Size(accented), 254u);
  auto emoji = makeValidFileName(WString(std::wstring(100, static_cast<wchar_t>(0x1F600))));
  EXPECT_EQ(emoji.size(), 63u);
}

TEST(MakeValidFileName, CutNameLosesTheSpaceItEndsOn) {
  auto text = std::wstring(254, L'a') + L" bcd";
  EXPECT_EQ(makeValidFileName(WString(text)), WString(std::wstring(254, L'a')));
}

TEST(IsValidFileName, AgreesWithTheMaker) {
  EXPECT_TRUE(isValidFileName(L"clip 01.mov"));
  EXPECT_TRUE(isValidFileName(L".bashrc"));
  EXPECT_FALSE(isValidFileName(L""));
  EXPECT_FALSE(isValidFileName(L"a/b"));
  EXPECT_FALSE(isValidFileName(L" padded"));
  EXPECT_FALSE(isValidFileName(L"dot."));
  EXPECT_FALSE(isValidFileName(L"AUX"));
  EXPECT_FALSE(isValidFileName(WString(std::wstring(256, L'a'))));
  EXPECT_TRUE(isValidFileName(WString(std::wstring(255, L'a'))));
}

TEST(MakeValidFilespec, JoinsFolderNameAndExtension) {
  EXPECT_EQ(makeValidFilespec(L"/logs", L"Render log", L".txt", false, '_'), L"/logs/Render log.txt");
  EXPECT_EQ(makeValidFilespec(L"/logs/", L"TaskLog", L"html", false), L"/logs/TaskLog.html");
  EXPECT_EQ(makeValidFilespec(L"/logs", L"a/b: c", L".txt", false, '-'), L"/logs/a-b- c.txt");
  EXPECT_EQ(makeValidFilespec(L"/logs", L"notes", L"", false), L"/logs/notes");
}

TEST(MakeValidFilespec, AlwaysAddsTheExtension) {
  EXPECT_EQ(makeValidFilespec(L"/logs", L"report.txt", L".txt", false), L"/logs/report.txt.txt");
  EXPECT_EQ(makeValidFilespec(L"/logs", L"archive.tar", L".gz", false), L"/logs/archive.tar.gz");
}

TEST(MakeValidFilespec, EmptyNameStillGetsAStem) {
  EXPECT_EQ(makeValidFilespec(L"/logs", L"", L".txt", false), L"/logs/_.txt");
  EXPECT_EQ(makeValidFilespec(L"/logs", L"   ", L".txt", false, 'x'), L"/logs/x.txt");
}

TEST(MakeValidFilespec, TrailingDotOfTheStemStaysBeforeAnExtension) {
  EXPECT_EQ(makeValidFilespec(L"/logs", L"v2.", L".txt", false), L"/logs/v2..txt");
}

TEST(MakeValidFilespec, ReservedStemIsFixed) {
  EXPECT_EQ(makeValidFilespec(L"/logs", L"prn", L".txt", false), L"/logs/prn_.txt");
}

TEST(MakeValidFilespec, LongNameKeepsItsExtension) {
  auto path = makeValidFilespec(L"/logs", WString(std::wstring(400, L'n')), L".html", false);
  auto name = path.substr(6);
  EXPECT_EQ(name.size(), kMaxNameBytes);
  EXPECT_TRUE(name.endsWith(L"n.html"));
}

TEST(MakeValidFilespec, WithoutMakeUniqueAnExistingFileIsNamed) {
  TempFolder folder;
  folder.write("log.txt");
  EXPECT_EQ(makeValidFilespec(folder.wide(), L"log", L".txt", false), folder.wide("log.txt"));
}

TEST(MakeValidFilespec, MakeUniqueCountsPastExistingFiles) {
  TempFolder folder;
  EXPECT_EQ(makeValidFilespec(folder.wide(), L"log", L".txt", true), folder.wide("log.txt"));
  folder.write("log.txt");
  folder.write("log (2).txt");
  EXPECT_EQ(makeValidFilespec(folder.wide(), L"log", L".txt", true), folder.wide("log (3).txt"));
}

TEST(MakeValidFilespec, UniqueSuffixFitsALongName) {
  TempFolder folder;
  std::string longName(260, 'n');
  auto first = makeValidFilespec(folder.wide(), WString::fromUTF8(longName), L".txt", true);
  folder.write(toNarrow(stripPath(first)));
  auto second = makeValidFilespec(folder.wide(), WString::fromUTF8(longName), L".txt", true);
  EXPECT_NE(first, second);
  EXPECT_TRUE(second.endsWith(L"n (2).txt"));
  EXPECT_EQ(utf8Size(second) - utf8Size(folder.wide()) - 1, kMaxNameBytes);
}
