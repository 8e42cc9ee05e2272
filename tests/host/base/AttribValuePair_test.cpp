#include <zowidgets/host/base/AttribValuePair.h>

#include <gtest/gtest.h>

using Zo::AttribValuePair;

TEST(AttribValuePair, SplitsAtTheFirstSeparator) {
  AttribValuePair pair("mode=a=b", '=');
  EXPECT_TRUE(pair.valid());
  EXPECT_EQ(pair.attrib(), "mode");
  EXPECT_EQ(pair.value(), "a=b");
}

TEST(AttribValuePair, DropsSpaceAroundBothParts) {
  AttribValuePair pair(" enabled \t=  true ", '=');
  EXPECT_EQ(pair.attrib(), "enabled");
  EXPECT_EQ(pair.value(), "true");
  AttribValuePair inner("two words = a b", '=');
  EXPECT_EQ(inner.attrib(), "two words");
  EXPECT_EQ(inner.value(), "a b");
}

TEST(AttribValuePair, EmptyValueIsValid) {
  AttribValuePair pair("name=", '=');
  EXPECT_TRUE(pair.valid());
  EXPECT_EQ(pair.attrib(), "name");
  EXPECT_TRUE(pair.value().empty());
}

TEST(AttribValuePair, NoAttributeMeansInvalid) {
  AttribValuePair noSeparator("enabled", '=');
  EXPECT_FALSE(noSeparator.valid());
  EXPECT_TRUE(noSeparator.attrib().empty());
  EXPECT_TRUE(noSeparator.value().empty());

  AttribValuePair nothingBefore("=true", '=');
  EXPECT_FALSE(nothingBefore.valid());
  EXPECT_EQ(nothingBefore.value(), "true");

  EXPECT_FALSE(AttribValuePair("  =  ", '=').valid());
  EXPECT_FALSE(AttribValuePair("", '=').valid());
  EXPECT_FALSE(AttribValuePair().valid());
}

TEST(AttribValuePair, OtherSeparators) {
  AttribValuePair pair("key: value", ':');
  EXPECT_EQ(pair.attrib(), "key");
  EXPECT_EQ(pair.value(), "value");
  EXPECT_FALSE(AttribValuePair("key=value", ':').valid());
}

TEST(AttribValuePair, TwoPartsAreTakenAsGiven) {
  AttribValuePair pair(LightweightString<char>(" a "), LightweightString<char>(" b "));
  EXPECT_TRUE(pair.valid());
  EXPECT_EQ(pair.attrib(), " a ");
  EXPECT_EQ(pair.value(), " b ");
  EXPECT_FALSE(AttribValuePair(LightweightString<char>(""), LightweightString<char>("x")).valid());
}

TEST(AttribValuePair, AsStringJoinsAndReadsBack) {
  AttribValuePair pair(LightweightString<char>("mode"), LightweightString<char>("1|2"));
  EXPECT_EQ(pair.asString('='), "mode=1|2");
  EXPECT_EQ(AttribValuePair(pair.asString('='), '='), pair);
  EXPECT_EQ(AttribValuePair(LightweightString<char>("k"), LightweightString<char>("")).asString(':'), "k:");
}

TEST(AttribValuePair, EqualityComparesBothParts) {
  EXPECT_EQ(AttribValuePair("a=1", '='), AttribValuePair("a = 1", '='));
  EXPECT_FALSE(AttribValuePair("a=1", '=') == AttribValuePair("a=2", '='));
  EXPECT_FALSE(AttribValuePair("a=1", '=') == AttribValuePair("b=1", '='));
}

TEST(AttribValuePair, VecFromStringSplitsAList) {
  auto pairs = AttribValuePair::vecFromString("enabled=true,mode=1|2", '=', ',');
  ASSERT_EQ(pairs.size(), 2u);
  EXPECT_EQ(pairs[0].attrib(), "enabled");
  EXPECT_EQ(pairs[0].value(), "true");
  EXPECT_EQ(pairs[1].attrib(), "mode");
  EXPECT_EQ(pairs[1].value(), "1|2");
}

TEST(AttribValuePair, VecFromStringKeepsOnlyValidPairs) {
  auto pairs = AttribValuePair::vecFromString(" a = 1 ,, junk ,=3, b=2,", '=', ',');
  ASSERT_EQ(pairs.size(), 2u);
  EXPECT_EQ(pairs[0], AttribValuePair("a=1", '='));
  EXPECT_EQ(pairs[1], AttribValuePair("b=2", '='));
  EXPECT_TRUE(AttribValuePair::vecFromString("", '=', ',').empty());
  EXPECT_TRUE(AttribValuePair::vecFromString(",,,", '=', ',').empty());
}

TEST(AttribValuePair, VecFromStringOneItem) {
  auto pairs = AttribValuePair::vecFromString("x:y", ':', ';');
  ASSERT_EQ(pairs.size(), 1u);
  EXPECT_EQ(pairs[0].attrib(), "x");
  EXPECT_EQ(pairs[0].value(), "y");
}
