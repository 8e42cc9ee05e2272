#include <zowidgets/host/base/JSON.h>

#include <gtest/gtest.h>

namespace {

TEST(JSONParseError, AGoodTextHasNoError) {
  JSON::ParseError error{3, 4, "stale"};
  EXPECT_TRUE(JSON::parse(L"{\"a\": [1, 2]}", error));
  EXPECT_EQ(error.line, 0);
  EXPECT_EQ(error.column, 0);
  EXPECT_TRUE(error.message.empty());
}

TEST(JSONParseError, AMissingCommaIsPlacedByLineAndColumn) {
  JSON::ParseError error;
  EXPECT_FALSE(JSON::parse(L"{\"rows\": [\n  {\"a\": 1}\n  {\"b\": 2}\n]}", error));
  EXPECT_EQ(error.line, 3);
  EXPECT_EQ(error.column, 3);
  EXPECT_NE(error.message.find("comma"), std::string::npos) << error.message;
}

TEST(JSONParseError, ColumnsCountCharactersNotBytes) {
  JSON::ParseError error;
  EXPECT_FALSE(JSON::parse(L"[\"Grüße €\" 1]", error));
  EXPECT_EQ(error.line, 1);
  EXPECT_EQ(error.column, 12);
}

TEST(JSONParseError, EmptyTextAndTextAfterTheValueAreNamed) {
  JSON::ParseError error;
  EXPECT_FALSE(JSON::parse(L"", error));
  EXPECT_NE(error.message.find("empty"), std::string::npos) << error.message;
  EXPECT_FALSE(JSON::parse(L"{} {}", error));
  EXPECT_EQ(error.column, 4);
  EXPECT_NE(error.message.find("root"), std::string::npos) << error.message;
}

TEST(JSONParseError, RefusalsOfOurOwnSayWhy) {
  JSON::ParseError error;
  EXPECT_FALSE(JSON::parse(L"[1e400]", error));
  EXPECT_NE(error.message.find("too big"), std::string::npos) << error.message;
  EXPECT_FALSE(JSON::parse(std::wstring(300, L'[') + std::wstring(300, L']'), error));
  EXPECT_EQ(error.message, "Objects and arrays are nested too deeply.");
  EXPECT_FALSE(JSON::parse(L"[\"\\udc00\"]", error));
  EXPECT_EQ(error.message, "A string holds a lone surrogate.");
  std::wstring withSurrogate = L"[\"x\"]";
  withSurrogate[2] = static_cast<wchar_t>(0xD800);
  EXPECT_FALSE(JSON::parse(withSurrogate, error));
  EXPECT_EQ(error.message, "The text holds a character that is not a Unicode scalar value.");
}

} // namespace
