#include <zowidgets/host/base/configb.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>
#include <string>

namespace {

using namespace std::string_view_literals;
using CString = LightweightString<char>;
using WString = LightweightString<wchar_t>;

std::string textOf(configb const& tree) { return tree.toText().str(); }

// Any bytes for keys, any 32-bit code units for values, biased towards the
// characters that the text form must escape.
CString randomKey(std::mt19937& random) {
  static constexpr std::string_view kTricky = "\"\\={} \n\r\t\x01\x7f\xc3\xa9\xff#";
  std::uniform_int_distribution<int> length(0, 6);
  std::uniform_int_distribution<int> choice(0, 3);
  std::string key;
  for (int n = length(random); n > 0; --n) {
    int kind = choice(random);
    if (kind == 0)
      key += kTricky[std::uniform_int_distribution<std::size_t>(0, kTricky.size() - 1)(random)];
    else if (kind == 1)
      key += static_cast<char>(std::uniform_int_distribution<int>(0, 255)(random));
    else
      key += static_cast<char>(std::uniform_int_distribution<int>('a', 'z')(random));
  }
  return CString(key);
}

WString randomValue(std::mt19937& random) {
  static constexpr std::wstring_view kTricky = L"\"\\={}\n\r\t\u0000\u007f\u00e9\u4e2d\U0001F600"sv;
  std::uniform_int_distribution<int> length(0, 8);
  std::uniform_int_distribution<int> choice(0, 4);
  std::wstring value;
  for (int n = length(random); n > 0; --n) {
    int kind = choice(random);
    if (kind == 0)
      value += kTricky[std::uniform_int_distribution<std::size_t>(0, kTricky.size() - 1)(random)];
    else if (kind == 1)
      value += static_cast<wchar_t>(random()); // surrogates, beyond U+10FFFF, negative
    else if (kind == 2)
      value += static_cast<wchar_t>(std::uniform_int_distribution<int>(0xD800, 0xDFFF)(random));
    else
      value += static_cast<wchar_t>(std::uniform_int_distribution<int>(0x20, 0x7E)(random));
  }
  return WString(value);
}

void fillRandomly(configb& tree, std::mt19937& random, int depth) {
  std::uniform_int_distribution<int> entries(0, 4);
  for (int n = entries(random); n > 0; --n)
    tree.set(randomKey(random), randomValue(random));
  if (depth >= 4)
    return;
  std::uniform_int_distribution<int> children(0, 3 - depth / 2);
  for (int n = children(random); n > 0; --n)
    fillRandomly(tree.child(randomKey(random)), random, depth + 1);
}

configb nested(int depth) {
  configb root;
  configb* node = &root;
  for (int i = 0; i < depth; ++i)
    node = &node->child("n");
  return root;
}

} // namespace

TEST(configb, TypedValuesReadBack) {
  configb c;
  c.set("flag", true);
  c.set("count", -12);
  c.set("size", 4000000000u);
  c.set("ratio", 0.1);
  c.set("name", WString(L"Clip \u00e9"));
  EXPECT_TRUE(c.getBool("flag"));
  EXPECT_EQ(c.getInt("count"), -12);
  EXPECT_EQ(c.getUnsigned("size"), 4000000000u);
  EXPECT_EQ(c.getDouble("ratio"), 0.1);
  EXPECT_EQ(c.getString("name"), L"Clip \u00e9");
}

TEST(configb, ValuesAreStoredInTheirTextForms) {
  configb c;
  c.set("flag", false);
  c.set("count", 7);
  c.set("ratio", 2.5);
  EXPECT_EQ(c.getString("flag"), L"false");
  EXPECT_EQ(c.getString("count"), L"7");
  EXPECT_EQ(c.getString("ratio"), L"2.5");
  EXPECT_EQ(c.getDouble("count"), 7.0);
  EXPECT_TRUE(c.getBool("count"));
}

TEST(configb, NarrowAndWideLiteralsAndNull) {
  configb c;
  c.set("utf8", "caf\xc3\xa9");
  c.set("wide", L"\u4e2d");
  c.set("null", static_cast<char const*>(nullptr));
  c.set("wnull", static_cast<wchar_t const*>(nullptr));
  EXPECT_EQ(c.getString("utf8"), L"caf\u00e9");
  EXPECT_EQ(c.getString("wide"), L"\u4e2d");
  EXPECT_TRUE(c.in("null"));
  EXPECT_TRUE(c.getString("null").empty());
  EXPECT_TRUE(c.getString("wnull").empty());
}

TEST(configb, DefaultsAreForMissingKeysOnly) {
  configb c;
  EXPECT_TRUE(c.getBool("missing", true));
  EXPECT_EQ(c.getInt("missing", 5), 5);
  EXPECT_EQ(c.getUnsigned("missing", 6u), 6u);
  EXPECT_EQ(c.getDouble("missing", 1.5), 1.5);
  EXPECT_EQ(c.getString("missing", L"def"), L"def");
  c.set("text", "abc");
  EXPECT_EQ(c.getInt("text", 5), 0);
  EXPECT_EQ(c.getDouble("text", 1.5), 0.0);
  EXPECT_FALSE(c.getBool("text", true));
}

TEST(configb, EntriesKeepTheOrderTheyWereFirstSet) {
  configb c;
  c.set("b", 1);
  c.set("a", 2);
  c.set("c", 3);
  c.set("a", 20);
  ASSERT_EQ(c.keys(), (std::vector<CString>{"b", "a", "c"}));
  EXPECT_EQ(c.getInt("a"), 20);
  EXPECT_EQ(c.size(), 3u);
  EXPECT_EQ(c.entryCount(), 3u);
}

TEST(configb, InAndRemove) {
  configb c;
  EXPECT_FALSE(c.in("k"));
  c.set("k", 1);
  c.set("", L"empty key");
  EXPECT_TRUE(c.in("k"));
  EXPECT_TRUE(c.in(""));
  EXPECT_TRUE(c.remove("k"));
  EXPECT_FALSE(c.in("k"));
  EXPECT_FALSE(c.remove("k"));
  EXPECT_EQ(c.size(), 1u);
}

TEST(configb, ChildrenAreMadeOnceAndKeptApartFromEntries) {
  configb c;
  configb& panel = c.child("panel");
  panel.set("width", 120);
  EXPECT_EQ(&c.child("panel"), &panel);
  EXPECT_EQ(c.findChild("panel"), &panel);
  EXPECT_EQ(c.findChild("other"), nullptr);
  EXPECT_FALSE(c.in("panel"));
  EXPECT_EQ(c.size(), 0u);
  c.set("panel", true);
  EXPECT_TRUE(c.in("panel"));
  EXPECT_EQ(c.findChild("panel")->getInt("width"), 120);
  configb const& constant = c;
  ASSERT_NE(constant.findChild("panel"), nullptr);
  EXPECT_EQ(constant.findChild("panel")->getInt("width"), 120);
}

TEST(configb, ChildReferencesSurviveMoreChildren) {
  configb c;
  configb& first = c.child("first");
  for (int i = 0; i < 100; ++i)
    c.child(CString(std::to_string(i)));
  first.set("still", 1);
  EXPECT_EQ(c.findChild("first")->getInt("still"), 1);
  EXPECT_TRUE(c.removeChild("5"));
  EXPECT_FALSE(c.removeChild("5"));
  first.set("still", 2);
  EXPECT_EQ(c.findChild("first")->getInt("still"), 2);
  ASSERT_EQ(c.children().size(), 100u);
  EXPECT_EQ(c.children().front().first, "first");
  EXPECT_EQ(c.children().back().first, "99");
}

TEST(configb, ClearEmptiesEntriesAndChildren) {
  configb c;
  c.set("a", 1);
  c.child("b").set("c", 2);
  c.clear();
  EXPECT_EQ(c.size(), 0u);
  EXPECT_TRUE(c.children().empty());
  EXPECT_EQ(c, configb());
}

TEST(configb, CopiesAreDeep) {
  configb original;
  original.set("a", 1);
  original.child("inner").set("b", 2);
  configb copy = original;
  copy.child("inner").set("b", 3);
  copy.set("a", 4);
  EXPECT_EQ(original.getInt("a"), 1);
  EXPECT_EQ(original.findChild("inner")->getInt("b"), 2);
  configb assigned;
  assigned.set("old", 1);
  assigned = original;
  EXPECT_EQ(assigned, original);
  EXPECT_FALSE(assigned.in("old"));
}

TEST(configb, AssigningOwnChildIsSafe) {
  configb c;
  c.set("top", 1);
  configb& inner = c.child("inner");
  inner.set("x", 5);
  inner.child("deeper").set("y", 6);
  c = *c.findChild("inner");
  EXPECT_FALSE(c.in("top"));
  EXPECT_EQ(c.getInt("x"), 5);
  ASSERT_NE(c.findChild("deeper"), nullptr);
  EXPECT_EQ(c.findChild("deeper")->getInt("y"), 6);
  c = c;
  EXPECT_EQ(c.getInt("x"), 5);
}

TEST(configb, EqualityNeedsTheSameOrder) {
  configb ab, ba;
  ab.set("a", 1);
  ab.set("b", 2);
  ba.set("b", 2);
  ba.set("a", 1);
  EXPECT_FALSE(ab == ba);
  configb ab2;
  ab2.set("a", 1);
  ab2.set("b", 2);
  EXPECT_EQ(ab, ab2);
  ab2.child("c");
  EXPECT_FALSE(ab == ab2);
}

TEST(configb, TextFormIsReadable) {
  configb c;
  c.set("enabled", true);
  c.set("Magnifier level", 2);
  c.set("note", L"say \"hi\"\nback\\slash");
  configb& panel = c.child("panel");
  panel.set("width", 120.5);
  panel.child("empty");
  c.child("");
  EXPECT_EQ(textOf(c), "\"enabled\" = \"true\"\n"
                       "\"Magnifier level\" = \"2\"\n"
                       "\"note\" = \"say \\\"hi\\\"\\nback\\\\slash\"\n"
                       "\"panel\" {\n"
                       "  \"width\" = \"120.5\"\n"
                       "  \"empty\" {\n"
                       "  }\n"
                       "}\n"
                       "\"\" {\n"
                       "}\n");
  EXPECT_EQ(textOf(configb()), "");
}

TEST(configb, TextFormEscapesWhatUTF8CannotCarry) {
  configb c;
  c.set("k\x01\x7f", WString(std::wstring{L'a', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000),
                                          static_cast<wchar_t>(-1), L'\0', L'\u00e9'}));
  EXPECT_EQ(textOf(c), "\"k\\x{1}\\x{7f}\" = \"a\\x{d800}\\x{110000}\\x{ffffffff}\\x{0}\xc3\xa9\"\n");
  EXPECT_EQ(configb::fromText(textOf(c)), c);
}

TEST(configb, ReaderTakesAnyWhiteSpaceAndEscapes) {
  auto c = configb::fromText("\n  \"a\"=\"1\"  \"b\"\t=\r\n\"\\x{48}\\x{49}\"\n\"child\"{\"x\" = \"\"}\n\n");
  ASSERT_TRUE(c);
  EXPECT_EQ(c->getInt("a"), 1);
  EXPECT_EQ(c->getString("b"), L"HI");
  ASSERT_NE(c->findChild("child"), nullptr);
  EXPECT_TRUE(c->findChild("child")->in("x"));
  EXPECT_EQ(c->keys(), (std::vector<CString>{"a", "b"}));
}

TEST(configb, EmptyOrBlankTextIsAnEmptyTree) {
  EXPECT_EQ(configb::fromText(""), configb());
  EXPECT_EQ(configb::fromText(" \n\t\r\n"), configb());
}

TEST(configb, MalformedTextGivesNothing) {
  for (std::string_view text : {
           "\"a\"",                       // no value
           "\"a\" =",                     // no value
           "\"a\" = 1",                   // value not quoted
           "a = \"1\"",                   // key not quoted
           "\"a = \"1\"",                 // quotes out of step
           "\"a\" = \"1",                 // unterminated
           "\"a\" = \"\\q\"",             // unknown escape
           "\"a\" = \"\\\"",              // escape at the end
           "\"a\" = \"\\x41\"",           // escape without braces
           "\"a\" = \"\\x{}\"",           // no digits
           "\"a\" = \"\\x{123456789}\"",  // too many digits
           "\"a\" = \"\\x{12g}\"",        // not hex
           "\"a\" = \"\\x{-1}\"",         // not hex
           "\"a\" = \"\\x{41\"",          // unclosed escape
           "\"\\x{100}\" = \"1\"",        // a key escape is one byte
           "\"a\" = \"line\nbreak\"",     // raw control character
           "\"a\" = \"tab\there\"",       // raw control character
           "\"a\" = \"1\" \"a\" = \"2\"", // repeated key
           "\"c\" { } \"c\" { }",         // repeated child
           "}",                           // nothing to close
           "\"c\" {",                     // unclosed
           "\"c\" { \"d\" { }",           // unclosed
           "\"a\" = \"1\" junk",          // trailing text
           "\"a\" : \"1\"",               // wrong separator
           "\"a\" \"1\"",                 // missing separator
       })
    EXPECT_FALSE(configb::fromText(text)) << text;
}

TEST(configb, NestingIsLimited) {
  configb deepest = nested(configb::kMaxTextDepth);
  EXPECT_EQ(configb::fromText(textOf(deepest)), deepest);
  EXPECT_FALSE(configb::fromText(textOf(nested(configb::kMaxTextDepth + 1))));
  EXPECT_FALSE(configb::fromText(std::string(100000, '{')));
  std::string deepGarbage;
  for (int i = 0; i < 100000; ++i)
    deepGarbage += "\"\"{";
  EXPECT_FALSE(configb::fromText(deepGarbage));
}

TEST(configb, TrickyTextRoundTrips) {
  configb c;
  c.set("", L"");
  c.set("=", L"=");
  c.set("{", L"}");
  c.set(" lead and trail ", L"  spaced  ");
  c.set("quote\"", L"\"");
  c.set("back\\", L"\\");
  c.set("lines", L"one\ntwo\r\nthree\t");
  c.set("\xff\xfe invalid utf8", L"\U0001F600\u4e2d");
  c.set(CString(std::string("nul\0key", 7)), WString(std::wstring(L"nul\0value", 9)));
  c.set("#", L"# not a comment");
  c.child("empty child");
  c.child("}").set("{", L"\"}\"");
  auto back = configb::fromText(textOf(c));
  ASSERT_TRUE(back);
  EXPECT_EQ(*back, c);
  EXPECT_EQ(textOf(*back), textOf(c));
}

TEST(configb, RandomTreesRoundTripExactly) {
  std::mt19937 random(1234);
  for (int i = 0; i < 2000; ++i) {
    configb tree;
    fillRandomly(tree, random, 0);
    std::string text = textOf(tree);
    auto back = configb::fromText(text);
    ASSERT_TRUE(back) << text;
    ASSERT_EQ(*back, tree) << text;
    ASSERT_EQ(textOf(*back), text);
  }
}

TEST(configb, RandomGarbageNeverBreaksTheReader) {
  std::mt19937 random(99);
  static constexpr std::string_view kPieces[] = {"\"", "\\", "{", "}", "=", " ", "\n", "x", "\\x{", "41}", "\xc3"};
  int accepted = 0;
  for (int i = 0; i < 5000; ++i) {
    std::string garbage;
    int length = std::uniform_int_distribution<int>(0, 40)(random);
    for (int n = 0; n < length; ++n) {
      if (i % 2)
        garbage += static_cast<char>(std::uniform_int_distribution<int>(0, 255)(random));
      else
        garbage += kPieces[std::uniform_int_distribution<std::size_t>(0, std::size(kPieces) - 1)(random)];
    }
    auto parsed = configb::fromText(garbage);
    if (parsed) {
      ++accepted;
      ASSERT_EQ(configb::fromText(textOf(*parsed)), parsed) << garbage;
    }
  }
  EXPECT_GT(accepted, 0);
}

TEST(configb, DamagedTextEitherFailsOrReadsConsistently) {
  std::mt19937 random(4321);
  for (int i = 0; i < 3000; ++i) {
    configb tree;
    fillRandomly(tree, random, 1);
    std::string text = textOf(tree);
    if (text.empty())
      continue;
    std::size_t at = std::uniform_int_distribution<std::size_t>(0, text.size() - 1)(random);
    switch (i % 3) {
    case 0:
      text.erase(at, 1);
      break;
    case 1:
      text.insert(at, 1, "\"\\{}=\n"[i % 6]);
      break;
    default:
      text[at] = static_cast<char>(random());
    }
    auto parsed = configb::fromText(text);
    if (parsed) {
      ASSERT_EQ(configb::fromText(textOf(*parsed)), parsed) << text;
    }
  }
}
