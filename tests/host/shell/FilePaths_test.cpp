#include <zowidgets/host/shell/FilePaths.h>

#include <gtest/gtest.h>

namespace {
using WString = LightweightString<wchar_t>;
}

TEST(JoinPaths, PutsOneSeparatorBetween) {
  EXPECT_EQ(joinPaths(L"/home/ann", L"Tutorials"), L"/home/ann/Tutorials");
  EXPECT_EQ(joinPaths(L"/home/ann/", L"Tutorials"), L"/home/ann/Tutorials");
  EXPECT_EQ(joinPaths(L"/home/ann//", L"//Tutorials"), L"/home/ann/Tutorials");
  EXPECT_EQ(joinPaths(L"relative", L"*.ZoTutorial"), L"relative/*.ZoTutorial");
}

TEST(JoinPaths, KeepsTheNameInsideTheFolder) {
  EXPECT_EQ(joinPaths(L"/data", L"/etc/passwd"), L"/data/etc/passwd");
  EXPECT_EQ(joinPaths(L"/", L"etc"), L"/etc");
}

TEST(JoinPaths, EmptySideGivesTheOther) {
  EXPECT_EQ(joinPaths(L"", L"name.txt"), L"name.txt");
  EXPECT_EQ(joinPaths(L"/folder/", L""), L"/folder/");
  EXPECT_TRUE(joinPaths(WString(), WString()).empty());
}

TEST(JoinPaths, KeepsATrailingSeparatorOfTheName) { EXPECT_EQ(joinPaths(L"/a", L"b/"), L"/a/b/"); }

TEST(StripPath, GivesTheFileName) {
  EXPECT_EQ(stripPath(L"/home/ann/clip.mov"), L"clip.mov");
  EXPECT_EQ(stripPath(L"clip.mov"), L"clip.mov");
  EXPECT_EQ(stripPath(L"/clip.mov"), L"clip.mov");
  EXPECT_EQ(stripPath(L"/home/ann/.bashrc"), L".bashrc");
}

TEST(StripPath, FolderPathHasNoFileName) {
  EXPECT_TRUE(stripPath(L"/home/ann/").empty());
  EXPECT_TRUE(stripPath(L"/").empty());
  EXPECT_TRUE(stripPath(L"").empty());
}

TEST(GetPath, GivesTheFolderWithItsSeparator) {
  EXPECT_EQ(getPath(L"/home/ann/clip.mov"), L"/home/ann/");
  EXPECT_EQ(getPath(L"/clip.mov"), L"/");
  EXPECT_TRUE(getPath(L"clip.mov").empty());
  EXPECT_EQ(getPath(L"/home/ann/"), L"/home/ann/");
}

TEST(GetPath, AndStripPathMakeThePathAgain) {
  for (WString path : {L"/a/b/c.txt", L"c.txt", L"/", L"a/b/", L"", L"./.hidden", L"a.d/e"})
    EXPECT_EQ(getPath(path) + stripPath(path), path);
}

TEST(Extensions, TakeOnlyTheLastOne) {
  EXPECT_EQ(getExtension(L"/media/archive.tar.gz"), L"gz");
  EXPECT_EQ(stripExtension(L"/media/archive.tar.gz"), L"/media/archive.tar");
  EXPECT_EQ(getExtension(L"Report.HTML"), L"HTML");
  EXPECT_EQ(stripExtension(L"Report.HTML"), L"Report");
}

TEST(Extensions, NoneWithoutADot) {
  EXPECT_TRUE(getExtension(L"/media/README").empty());
  EXPECT_EQ(stripExtension(L"/media/README"), L"/media/README");
  EXPECT_TRUE(getExtension(L"").empty());
  EXPECT_TRUE(stripExtension(L"").empty());
}

TEST(Extensions, HiddenFileNameIsNotAnExtension) {
  EXPECT_TRUE(getExtension(L"/home/ann/.bashrc").empty());
  EXPECT_EQ(stripExtension(L"/home/ann/.bashrc"), L"/home/ann/.bashrc");
  EXPECT_EQ(getExtension(L".config.json"), L"json");
  EXPECT_EQ(stripExtension(L".config.json"), L".config");
  EXPECT_EQ(getExtension(L"..hidden.txt"), L"txt");
}

TEST(Extensions, DotsAlone) {
  for (WString path : {L".", L"..", L"...", L"/a/..", L"/a/."}) {
    EXPECT_TRUE(getExtension(path).empty()) << toNarrow(path);
    EXPECT_EQ(stripExtension(path), path) << toNarrow(path);
  }
}

TEST(Extensions, TrailingDotIsAnEmptyExtension) {
  EXPECT_TRUE(getExtension(L"name.").empty());
  EXPECT_EQ(stripExtension(L"name."), L"name");
}

TEST(Extensions, DotsInFoldersDoNotCount) {
  EXPECT_TRUE(getExtension(L"/projects.2024/cut").empty());
  EXPECT_EQ(stripExtension(L"/projects.2024/cut"), L"/projects.2024/cut");
  EXPECT_TRUE(getExtension(L"/projects.2024/").empty());
  EXPECT_EQ(stripExtension(L"/projects.2024/"), L"/projects.2024/");
}

TEST(Extensions, NonAsciiNames) {
  EXPECT_EQ(getExtension(L"/m\u00fcsic/K\u00f6ln.\u00e9t\u00e9"), L"\u00e9t\u00e9");
  EXPECT_EQ(stripExtension(L"/m\u00fcsic/K\u00f6ln.\u00e9t\u00e9"), L"/m\u00fcsic/K\u00f6ln");
}

TEST(MatchesWildcard, StarAndQuestionMark) {
  EXPECT_TRUE(matchesWildcard(L"a.ZoTutorial", L"*.ZoTutorial"));
  EXPECT_TRUE(matchesWildcard(L".ZoTutorial", L"*.ZoTutorial"));
  EXPECT_FALSE(matchesWildcard(L"a.ZoTutorial.bak", L"*.ZoTutorial"));
  EXPECT_TRUE(matchesWildcard(L"clip01.mov", L"clip??.mov"));
  EXPECT_FALSE(matchesWildcard(L"clip1.mov", L"clip??.mov"));
  EXPECT_TRUE(matchesWildcard(L"anything", L"*"));
  EXPECT_TRUE(matchesWildcard(L"", L"*"));
  EXPECT_TRUE(matchesWildcard(L"", L""));
  EXPECT_FALSE(matchesWildcard(L"a", L""));
}

TEST(MatchesWildcard, StarBacktracks) {
  EXPECT_TRUE(matchesWildcard(L"abcbcd", L"a*bcd"));
  EXPECT_TRUE(matchesWildcard(L"mississippi", L"*sip*"));
  EXPECT_FALSE(matchesWildcard(L"mississippi", L"*sipx*"));
  EXPECT_TRUE(matchesWildcard(L"a.b.c", L"*.*"));
  EXPECT_FALSE(matchesWildcard(L"nodot", L"*.*"));
  EXPECT_TRUE(matchesWildcard(L"*ba", L"*a"));
}

TEST(MatchesWildcard, CaseMatters) {
  EXPECT_FALSE(matchesWildcard(L"a.zotutorial", L"*.ZoTutorial"));
  EXPECT_TRUE(matchesWildcard(L"\u00c9t\u00e9.png", L"?t?.png"));
}
