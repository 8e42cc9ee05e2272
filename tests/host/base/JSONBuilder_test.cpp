#include <zowidgets/host/base/JSON.h>

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using CString = LightweightString<char>;
using WString = LightweightString<wchar_t>;

std::string compactText(void (*fill)(JSON::Builder&)) {
  JSON::Builder builder(JSON::Builder::kCompact);
  fill(builder);
  return builder.getText().str();
}

// The text of one string value, as the compact builder writes it.
std::string written(WString const& text) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startArray();
  builder.add(nullptr, text);
  builder.end();
  return builder.getText().str();
}

std::string writtenUTF8(char const* text) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startArray();
  builder.add(nullptr, text);
  builder.end();
  return builder.getText().str();
}

std::string writtenNumber(double value) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startArray();
  builder.add(nullptr, value);
  builder.end();
  return builder.getText().str();
}

void fillSample(JSON::Builder& builder) {
  builder.startChild();
  builder.add("name", "Title");
  builder.add("size", 12);
  builder.startArray("modifiers");
  builder.add(nullptr, "shift");
  builder.add(nullptr, true);
  builder.addNull(nullptr);
  builder.end();
  builder.startChild("empty");
  builder.end();
  builder.startArray("none");
  builder.end();
  builder.end();
}

} // namespace

TEST(JSONBuilder, CompactHasNoWhiteSpace) {
  EXPECT_EQ(compactText(fillSample),
            R"({"name":"Title","size":12,"modifiers":["shift",true,null],"empty":{},"none":[]})");
}

TEST(JSONBuilder, PrettyPutsOneMemberOnALine) {
  JSON::Builder builder(JSON::Builder::kPretty);
  fillSample(builder);
  EXPECT_EQ(builder.getText().str(), "{\n"
                                     "  \"name\": \"Title\",\n"
                                     "  \"size\": 12,\n"
                                     "  \"modifiers\": [\n"
                                     "    \"shift\",\n"
                                     "    true,\n"
                                     "    null\n"
                                     "  ],\n"
                                     "  \"empty\": {},\n"
                                     "  \"none\": []\n"
                                     "}");
  EXPECT_EQ(JSON::Builder().getText(), "") << "pretty is the default";
}

TEST(JSONBuilder, EscapesWhatJsonRequires) {
  EXPECT_EQ(written(WString(L"say \"hi\"")), R"(["say \"hi\""])");
  EXPECT_EQ(written(WString(L"back\\slash/")), R"(["back\\slash/"])");
  EXPECT_EQ(written(WString(L"\b\f\n\r\t")), R"(["\b\f\n\r\t"])");
  EXPECT_EQ(written(WString(std::wstring(L"\0\x01\x1f\x7f", 4))), "[\"\\u0000\\u0001\\u001f\x7f\"]");
  EXPECT_EQ(writtenUTF8("tab\there \"q\" \\"), R"(["tab\there \"q\" \\"])");
  EXPECT_EQ(writtenUTF8("\x01"), R"(["\u0001"])");
}

TEST(JSONBuilder, WritesNonAsciiAsUTF8) {
  EXPECT_EQ(written(WString(L"caf\u00e9 \u4e2d")), "[\"caf\xC3\xA9 \xE4\xB8\xAD\"]");
  EXPECT_EQ(written(WString(L"\U0001F600\U0010FFFF")), "[\"\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\"]");
  EXPECT_EQ(writtenUTF8("caf\xC3\xA9 \xF0\x9F\x98\x80"), "[\"caf\xC3\xA9 \xF0\x9F\x98\x80\"]");
}

TEST(JSONBuilder, ReplacesWhatUTF8CannotCarry) {
  std::string const replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(written(WString(std::wstring{L'a', wchar_t(0xD800), L'b'})), "[\"a" + replacement + "b\"]");
  EXPECT_EQ(written(WString(std::wstring{wchar_t(0x110000)})), "[\"" + replacement + "\"]");
  EXPECT_EQ(written(WString(std::wstring{wchar_t(-5)})), "[\"" + replacement + "\"]");
  EXPECT_EQ(writtenUTF8("caf\xE9!"), "[\"caf" + replacement + "!\"]");
  EXPECT_EQ(writtenUTF8("\xED\xA0\x80"), "[\"" + replacement + "\"]");
}

TEST(JSONBuilder, EscapesKeys) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startChild();
  builder.add("a\"b\n", 1);
  builder.add(nullptr, 2);
  builder.end();
  EXPECT_EQ(builder.getText(), R"({"a\"b\n":1,"":2})");
}

TEST(JSONBuilder, NumbersUseTheirShortestExactForm) {
  EXPECT_EQ(writtenNumber(0.1), "[0.1]");
  EXPECT_EQ(writtenNumber(1.0), "[1]");
  EXPECT_EQ(writtenNumber(-2.5), "[-2.5]");
  EXPECT_EQ(writtenNumber(1e300), "[1e+300]");
  EXPECT_EQ(writtenNumber(5e-324), "[5e-324]");
  EXPECT_EQ(writtenNumber(-0.0), "[-0.0]");
  EXPECT_EQ(writtenNumber(std::numeric_limits<double>::infinity()), "[null]");
  EXPECT_EQ(writtenNumber(std::numeric_limits<double>::quiet_NaN()), "[null]");

  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startArray();
  builder.add(nullptr, 0.1f);
  builder.add(nullptr, -7);
  builder.add(nullptr, std::numeric_limits<unsigned long long>::max());
  builder.add(nullptr, std::numeric_limits<long long>::min());
  builder.add(nullptr, static_cast<unsigned short>(65535));
  builder.end();
  EXPECT_EQ(builder.getText(), "[0.1,-7,18446744073709551615,-9223372036854775808,65535]");
}

TEST(JSONBuilder, TextClosesWhatIsStillOpen) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startChild();
  builder.startArray("list");
  builder.add(nullptr, 1);
  EXPECT_EQ(builder.getText(), R"({"list":[1]})");
  builder.add(nullptr, 2);
  builder.end();
  EXPECT_EQ(builder.getText(), R"({"list":[1,2]})");

  JSON::Builder pretty;
  pretty.startChild();
  pretty.startChild("a");
  pretty.add("b", true);
  EXPECT_EQ(pretty.getText(), "{\n  \"a\": {\n    \"b\": true\n  }\n}");
}

TEST(JSONBuilder, WritesExactlyOneDocument) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.end();
  builder.startChild();
  builder.add("a", 1);
  builder.end();
  builder.end();
  builder.startChild();
  builder.add("b", 2);
  builder.end();
  builder.add("c", 3);
  EXPECT_EQ(builder.getText(), R"({"a":1})");

  JSON::Builder scalar(JSON::Builder::kCompact);
  scalar.add(nullptr, "only");
  scalar.add(nullptr, "ignored");
  EXPECT_EQ(scalar.getText(), R"("only")");
  EXPECT_TRUE(JSON::parse(WString::fromUTF8(scalar.getText().view())));
}

TEST(JSONBuilder, SavesToFileThatParsesBack) {
  auto path = std::filesystem::temp_directory_path() / "zo_json_builder_test.json";
  JSON::Builder builder;
  fillSample(builder);
  ASSERT_TRUE(builder.saveToFile(WString::fromUTF8(path.string())));
  auto element = JSON::parseFile(WString::fromUTF8(path.string()));
  std::filesystem::remove(path);
  ASSERT_TRUE(element);
  EXPECT_EQ(element->getString("name"), "Title");
  EXPECT_EQ(element->getChild("modifiers")->getStringAttrib(0), "shift");
  // A file where a folder should be: nothing can be written under it.
  auto const blocker = std::filesystem::temp_directory_path() / "zo_json_builder_blocker";
  std::ofstream(blocker).put('x');
  EXPECT_FALSE(builder.saveToFile(WString::fromUTF8((blocker / "file.json").string())));
  std::filesystem::remove(blocker);
}

namespace {

// What an element holds, in the form the model keeps it: per kind, in order.
struct Tree {
  bool isArray = false;
  std::string name;
  std::vector<Tree> children;
  std::vector<std::pair<std::string, std::wstring>> strings;
  std::vector<std::pair<std::string, bool>> bools;
  std::vector<std::pair<std::string, double>> numbers;
};

class RandomTrees {
public:
  explicit RandomTrees(unsigned seed) : random_(seed) {}

  Tree make(int depth, bool isArray) {
    Tree tree;
    tree.isArray = isArray;
    for (int n = below(depth < 4 ? 4 : 1); n > 0; --n) {
      Tree child = make(depth + 1, below(2) == 0);
      child.name = isArray ? std::string() : key();
      tree.children.push_back(child);
    }
    for (int n = below(4); n > 0; --n)
      tree.strings.emplace_back(isArray ? std::string() : key(), text());
    for (int n = below(3); n > 0; --n)
      tree.bools.emplace_back(isArray ? std::string() : key(), below(2) == 1);
    for (int n = below(4); n > 0; --n)
      tree.numbers.emplace_back(isArray ? std::string() : key(), number());
    return tree;
  }

  // Members of all kinds interleaved at random: the model keeps only the
  // order within each kind.
  void write(Tree const& tree, JSON::Builder& builder) {
    char const* name = tree.name.c_str();
    tree.isArray ? builder.startArray(name) : builder.startChild(name);
    std::size_t next[4] = {};
    std::size_t const sizes[4] = {tree.children.size(), tree.strings.size(), tree.bools.size(), tree.numbers.size()};
    for (std::size_t left = sizes[0] + sizes[1] + sizes[2] + sizes[3]; left > 0; --left) {
      int kind;
      do
        kind = below(4);
      while (next[kind] == sizes[kind]);
      std::size_t i = next[kind]++;
      if (kind == 0)
        write(tree.children[i], builder);
      else if (kind == 1)
        builder.add(tree.strings[i].first.c_str(), WString(tree.strings[i].second));
      else if (kind == 2)
        builder.add(tree.bools[i].first.c_str(), tree.bools[i].second);
      else
        builder.add(tree.numbers[i].first.c_str(), tree.numbers[i].second);
      if (below(8) == 0)
        builder.addNull(tree.isArray ? nullptr : key().c_str());
    }
    builder.end();
  }

private:
  int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  std::string key() {
    static constexpr std::string_view kChoices[] = {"a",      "min", "Min",         "legend",           "x y", "\"q\"",
                                                    "back\\", "\t",  "caf\xC3\xA9", "\xF0\x9F\x98\x80", "",    "type"};
    return std::string(kChoices[below(std::size(kChoices))]);
  }

  std::wstring text() {
    static constexpr std::wstring_view kTricky = L"\"\\/\b\f\n\r\t\u0001\u001f\u007f\u00e9\u4e2d\u2028\U0001F600";
    std::wstring text;
    for (int n = below(10); n > 0; --n) {
      switch (below(4)) {
      case 0:
        text += kTricky[below(static_cast<int>(kTricky.size()))];
        break;
      case 1: { // any scalar value, NUL included
        auto c = std::uniform_int_distribution<std::uint32_t>(0, 0x10FFFF - 0x800)(random_);
        text += static_cast<wchar_t>(c < 0xD800 ? c : c + 0x800);
        break;
      }
      default:
        text += static_cast<wchar_t>(std::uniform_int_distribution<int>(0x20, 0x7E)(random_));
      }
    }
    return text;
  }

  double number() {
    switch (below(4)) {
    case 0:
      return std::uniform_int_distribution<int>(-1000, 1000)(random_);
    case 1:
      return std::uniform_real_distribution<double>(-1e6, 1e6)(random_);
    case 2:
      return static_cast<float>(std::uniform_real_distribution<double>(-10, 10)(random_));
    default: { // any finite double, by its bits
      double value;
      do
        value = std::bit_cast<double>(std::uniform_int_distribution<std::uint64_t>()(random_));
      while (!std::isfinite(value));
      return value;
    }
    }
  }

  std::mt19937 random_;
};

std::string utf8(std::wstring const& text) { return WString(text).toUTF8().str(); }

void expectSame(Tree const& tree, JSON::Element const& element, std::string const& where) {
  EXPECT_EQ(element.isArray(), tree.isArray) << where;
  EXPECT_EQ(element.getName(), tree.name) << where;
  ASSERT_EQ(element.getNumChildren(), tree.children.size()) << where;
  ASSERT_EQ(element.getNumStringAttribs(), tree.strings.size()) << where;
  ASSERT_EQ(element.getNumBoolAttribs(), tree.bools.size()) << where;
  ASSERT_EQ(element.getNumNumericAttribs(), tree.numbers.size()) << where;
  for (std::size_t i = 0; i < tree.strings.size(); ++i) {
    EXPECT_EQ(element.getStringAttribs()[i].name, tree.strings[i].first) << where << " string " << i;
    EXPECT_EQ(element.getStringAttribs()[i].value, utf8(tree.strings[i].second)) << where << " string " << i;
  }
  for (std::size_t i = 0; i < tree.bools.size(); ++i) {
    EXPECT_EQ(element.getBoolAttribs()[i].name, tree.bools[i].first) << where << " bool " << i;
    EXPECT_EQ(element.getBoolAttribs()[i].value, tree.bools[i].second) << where << " bool " << i;
  }
  for (std::size_t i = 0; i < tree.numbers.size(); ++i) {
    EXPECT_EQ(element.getNumericAttribs()[i].name, tree.numbers[i].first) << where << " number " << i;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(element.getNumericAttribs()[i].value),
              std::bit_cast<std::uint64_t>(tree.numbers[i].second))
        << where << " number " << i << ": " << tree.numbers[i].second;
  }
  for (unsigned short i = 0; i < tree.children.size(); ++i)
    expectSame(tree.children[i], *element.getChild(i), where + "/" + std::to_string(i));
}

} // namespace

TEST(JSONBuilder, OutputParsesBackToTheSameElement) {
  RandomTrees trees(20240611);
  for (int round = 0; round < 3000; ++round) {
    Tree tree = trees.make(0, round % 5 == 0);
    for (auto style : {JSON::Builder::kCompact, JSON::Builder::kPretty}) {
      JSON::Builder builder(style);
      trees.write(tree, builder);
      CString text = builder.getText();
      Zo::Ptr<JSON::Element> element = JSON::parse(WString::fromUTF8(text.view()));
      ASSERT_TRUE(element) << "round " << round << " style " << style << " wrote unreadable text:\n" << text.str();
      expectSame(tree, *element, "round " + std::to_string(round) + " style " + std::to_string(style));
      if (HasFailure())
        FAIL() << "text was:\n" << text.str();
    }
  }
}

namespace {

// A small record that reads and writes itself, as persistable classes do.
class Note : public JSON::iPersistable {
public:
  WString title;
  float weight = 0;
  std::vector<CString> tags;

  void write(JSON::Builder& builder) const override {
    builder.startChild();
    builder.add("title", title);
    builder.add("weight", weight);
    builder.startArray("tags");
    for (CString const& tag : tags)
      builder.add(nullptr, tag);
    builder.end();
    builder.end();
  }

  bool read(Zo::Ptr<JSON::Element> const& element) override {
    if (!element)
      return false;
    title = element->getWString("title");
    weight = static_cast<float>(element->getNumber("weight", 0));
    tags.clear();
    if (auto list = element->getChild("tags"))
      for (unsigned short i = 0; i < list->getNumStringAttribs(); ++i)
        tags.push_back(list->getStringAttrib(i));
    return true;
  }
};

} // namespace

TEST(JSONPersistable, ObjectReadsBackWhatItWrote) {
  auto original = Zo::make<Note>();
  original->title = WString(L"Caf\u00e9 \"night\"");
  original->weight = 0.3f;
  original->tags = {CString("a"), CString("b\\c")};
  Zo::Ptr<JSON::iPersistable> persistable = original;

  JSON::Builder builder;
  persistable->write(builder);
  auto copy = Zo::make<Note>();
  ASSERT_TRUE(copy->read(JSON::parse(WString::fromUTF8(builder.getText().view()))));
  EXPECT_EQ(copy->title, original->title);
  EXPECT_EQ(copy->weight, original->weight);
  EXPECT_EQ(copy->tags, original->tags);
  EXPECT_FALSE(copy->read(nullptr));
}
