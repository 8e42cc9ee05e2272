#include <zowidgets/host/drawing/HTMLUtils.h>

#include <gtest/gtest.h>

using namespace HTMLUtils;

TEST(HTMLUtils, EscapeReplacesMarkupCharacters) {
  EXPECT_EQ(escape(L"a < b && c > \"d\" 'e'"), L"a &lt; b &amp;&amp; c &gt; &quot;d&quot; 'e'");
  EXPECT_EQ(escape(L""), L"");
}

TEST(HTMLUtils, UnescapeUndoesEscape) {
  std::wstring_view const text = L"<tag attr=\"x&y\"> & ; &amp; \u00e9";
  EXPECT_EQ(unescape(escape(text).view()), text);
}

TEST(HTMLUtils, UnescapeDecodesNamedAndNumericEntities) {
  EXPECT_EQ(unescape(L"&lt;&gt;&amp;&quot;&apos;&nbsp;"), L"<>&\"'\u00A0");
  EXPECT_EQ(unescape(L"&#65;&#x42;&#X43;"), L"ABC");
}

TEST(HTMLUtils, UnescapeKeepsWhatIsNotAnEntity) {
  EXPECT_EQ(unescape(L"&unknown; & &#; &#x; &#12a; &amp"), L"&unknown; & &#; &#x; &#12a; &amp");
  // NUL, surrogates and values beyond Unicode are refused.
  EXPECT_EQ(unescape(L"&#0;&#xD800;&#x110000;&#99999999999;"), L"&#0;&#xD800;&#x110000;&#99999999999;");
}

TEST(HTMLUtils, ParagraphTagsWrapTheWholeTextByDefault) {
  EXPECT_EQ(addParagraphTags(L"hello"), L"<p>hello</p>");
  EXPECT_EQ(addParagraphTags(L"hello", -1, -1), L"<p>hello</p>");
}

TEST(HTMLUtils, TagsWrapARangeCutToTheText) {
  EXPECT_EQ(addParagraphTags(L"hello", 1, 3), L"h<p>el</p>lo");
  EXPECT_EQ(addStyleTags(L"hello", kStyleBold, 3, 100), L"hel<b>lo</b>");
  EXPECT_EQ(addStyleTags(L"hello", kStyleBold, 4, 2), L"hell<b></b>o");
}

TEST(HTMLUtils, StyleTagsNestInOrder) {
  EXPECT_EQ(addStyleTags(L"x", kStyleBold | kStyleItalic | kStyleUnderline), L"<b><i><u>x</u></i></b>");
  EXPECT_EQ(addStyleTags(L"x", kStyleItalic), L"<i>x</i>");
  EXPECT_EQ(addStyleTags(L"x", 0), L"x");
}

TEST(HTMLUtils, ColourTagsCarryTheHexColour) {
  EXPECT_EQ(addColourTags(L"warm", Colour(1.0, 0.5, 0.0)), L"<font color=\"#ff8000\">warm</font>");
  EXPECT_EQ(addColourTags(L"none", Colour::invalid()), L"none");
}

TEST(HTMLUtils, ParseColourReadsHexAndNames) {
  auto const shortHex = parseColour(L" #F80 ");
  ASSERT_TRUE(shortHex.has_value());
  EXPECT_EQ(colourToHex(*shortHex), L"#ff8800");
  auto const longHex = parseColour(L"#12abEF");
  ASSERT_TRUE(longHex.has_value());
  EXPECT_EQ(colourToHex(*longHex), L"#12abef");
  auto const named = parseColour(L"Red");
  ASSERT_TRUE(named.has_value());
  EXPECT_EQ(colourToHex(*named), L"#ff0000");
}

TEST(HTMLUtils, ParseColourRefusesWhatItDoesNotKnow) {
  for (std::wstring_view bad : {L"", L"#", L"#12", L"#1234", L"#ggg", L"rgb(1,2,3)", L"chartreuse"})
    EXPECT_FALSE(parseColour(bad).has_value()) << std::wstring(bad).size();
}
