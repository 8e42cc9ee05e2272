#include "emoji/EmojiTableWriter.h"
#include "emoji/EmojiTestParser.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using EmojiTest::Collector;
using EmojiTest::ParsedLine;
using EmojiTest::parseLine;
using Kind = EmojiTest::ParsedLine::Kind;

TEST(EmojiTableGenerator, AFullyQualifiedLineGivesItsSequenceAndName) {
  ParsedLine const line = parseLine("1F600                                                  ; fully-qualified     # "
                                    "\xF0\x9F\x98\x80 E1.0 grinning face");
  ASSERT_EQ(line.kind, Kind::kEmoji);
  EXPECT_EQ(line.name, "grinning face");
  EXPECT_EQ(line.codePoints, std::vector<char32_t>{0x1F600});

  ParsedLine const keycap = parseLine("0023 FE0F 20E3 ; fully-qualified # #\xEF\xB8\x8F\xE2\x83\xA3 E0.6 keycap: #");
  ASSERT_EQ(keycap.kind, Kind::kEmoji);
  EXPECT_EQ(keycap.name, "keycap: #");
  EXPECT_EQ(keycap.codePoints, (std::vector<char32_t>{0x23, 0xFE0F, 0x20E3}));
}

TEST(EmojiTableGenerator, TheEmojiAndVersionBeforeTheNameAreOptional) {
  EXPECT_EQ(parseLine("1F600 ; fully-qualified # grinning face").name, "grinning face");
  EXPECT_EQ(parseLine("1F600 ; fully-qualified # E1.0 grinning face").name, "grinning face");
  EXPECT_EQ(parseLine("1F600 ; fully-qualified # E15 grinning face").name, "grinning face");
  // A first word that is not the emoji itself belongs to the name.
  EXPECT_EQ(parseLine("1F600 ; fully-qualified # \xF0\x9F\x98\x83 E1.0 face").name, "\xF0\x9F\x98\x83 E1.0 face");
}

TEST(EmojiTableGenerator, GroupHeadingsNameTheirCategory) {
  ParsedLine const group = parseLine("# group: Smileys & Emotion");
  ASSERT_EQ(group.kind, Kind::kGroup);
  EXPECT_EQ(group.name, "Smileys & Emotion");
  EXPECT_EQ(group.identifier, "kSmileysAndEmotion");
  EXPECT_EQ(parseLine("# group: Flags\r").identifier, "kFlags");
  EXPECT_EQ(parseLine("# group: travel-and places").identifier, "kTravelAndPlaces");
}

TEST(EmojiTableGenerator, OtherStatusesCommentsAndBlankLinesAreIgnored) {
  for (char const* text : {"", "   ", "\r", "# subgroup: face-smiling", "# Status Counts", "#EOF",
                           "263A ; unqualified # \xE2\x98\xBA E0.6 smiling face",
                           "1F3FB ; component # \xF0\x9F\x8F\xBB E1.0 light skin tone",
                           "1F636 200D 1F32B ; minimally-qualified # face in clouds"})
    EXPECT_EQ(parseLine(text).kind, Kind::kIgnored) << text;
}

TEST(EmojiTableGenerator, MalformedLinesAreRecognised) {
  for (char const* text : {
           "1F600 fully-qualified # grinning face",                    // no ';'
           "1F600 ; fully-qualified",                                  // no comment
           "1F600 ; fully-qualified #",                                // no name
           "1F600 ; fully-qualified # \xF0\x9F\x98\x80 E1.0",          // no name after the version
           "; fully-qualified # nothing",                              // no code points
           "1G600 ; fully-qualified # bad hex",                        // not hexadecimal
           "-1 ; fully-qualified # negative",                          //
           "0x1F600 ; fully-qualified # prefixed",                     //
           "D800 ; fully-qualified # surrogate",                       // not a scalar value
           "110000 ; fully-qualified # beyond Unicode",                //
           "0001F600 ; fully-qualified # too many digits",             //
           "1F600 ; qualified # unknown status",                       //
           "1F600 ; fully-qualified # bad \xC3\x28 UTF-8",             // broken UTF-8
           "1F600 ; fully-qualified # overlong \xC0\xAF",              //
           "1F600 ; fully-qualified # encoded \xED\xA0\x80 surrogate", //
           "1F600 ; fully-qualified # control \x01 character",         //
           "# group:",                                                 // a heading without a name
           "# group: & -",                                             // or without a letter
       })
    EXPECT_EQ(parseLine(text).kind, Kind::kMalformed) << text;
  std::string sequence;
  for (std::size_t i = 0; i <= EmojiTest::kMaxSequenceLength; ++i)
    sequence += "1F600 ";
  EXPECT_EQ(parseLine(sequence + "; fully-qualified # long").kind, Kind::kMalformed);
}

TEST(EmojiTableGenerator, TheCollectorKeepsOrderSkipsMalformedLinesAndEmptyGroups) {
  Collector collector;
  for (char const* line : {
           "1F600 ; fully-qualified # before any group",
           "# group: Smileys & Emotion",
           "1F600 ; fully-qualified # grinning face",
           "nonsense",
           "1F603 ; fully-qualified # grinning face with big eyes",
           "# group: Component",
           "1F3FB ; component # light skin tone",
           "# group: Flags",
           "1F1EB 1F1F7 ; fully-qualified # flag: France",
           "# group: Smileys & Emotion",
           "1F604 ; fully-qualified # grinning face with smiling eyes",
       })
    collector.add(line);
  EXPECT_EQ(collector.malformedLines(), 2u);
  std::vector<EmojiTest::Group> const groups = collector.groups();
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[0].identifier, "kSmileysAndEmotion");
  ASSERT_EQ(groups[0].emoji.size(), 3u);
  EXPECT_EQ(groups[0].emoji[0].name, "grinning face");
  EXPECT_EQ(groups[0].emoji[1].name, "grinning face with big eyes");
  EXPECT_EQ(groups[0].emoji[2].name, "grinning face with smiling eyes");
  EXPECT_EQ(groups[1].name, "Flags");
  ASSERT_EQ(groups[1].emoji.size(), 1u);
  EXPECT_EQ(groups[1].emoji[0].codePoints, (std::vector<char32_t>{0x1F1EB, 0x1F1F7}));
}

TEST(EmojiTableGenerator, LiteralsEscapeEverythingButPlainPrintableText) {
  EXPECT_EQ(EmojiTest::escapedForLiteral("keycap: #"), "keycap: #");
  EXPECT_EQ(EmojiTest::escapedForLiteral("say \"hi\"\\?"), "say \\042hi\\042\\134\\077");
  // Octal escapes are three digits long, so a digit after one stays a digit.
  EXPECT_EQ(EmojiTest::escapedForLiteral("\xF0\x9F\x98\x80"
                                         "1"),
            "\\360\\237\\230\\2001");
  EXPECT_EQ(EmojiTest::escapedForLiteral(std::string("a\0b\n", 4)), "a\\000b\\012");
}

TEST(EmojiTableGenerator, TheTableNamesEachGroupsCategoryAndRange) {
  Collector collector;
  for (char const* line : {"# group: Smileys & Emotion", "1F600 ; fully-qualified # grinning face",
                           "1F603 ; fully-qualified # grinning face with big eyes", "# group: Flags",
                           "1F1EB 1F1F7 ; fully-qualified # flag: France"})
    collector.add(line);
  std::ostringstream source;
  EmojiTest::writeTable(source, collector.groups(), "test data");
  std::string const text = source.str();
  EXPECT_NE(text.find("{Emoji::kSmileysAndEmotion, \"Smileys & Emotion\", 0, 2},"), std::string::npos) << text;
  EXPECT_NE(text.find("{Emoji::kFlags, \"Flags\", 2, 3},"), std::string::npos) << text;
  EXPECT_NE(text.find("kGroupCount = 2;"), std::string::npos) << text;
  EXPECT_NE(text.find("{\"\\360\\237\\230\\200\", \"grinning face\"},"), std::string::npos) << text;
  EXPECT_NE(text.find("{\"\\360\\237\\207\\253\\360\\237\\207\\267\", \"flag: France\"},"), std::string::npos) << text;
  EXPECT_NE(text.find("kEntryCount = 3;"), std::string::npos) << text;
}
