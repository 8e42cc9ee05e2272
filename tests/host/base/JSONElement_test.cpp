#include <zowidgets/host/base/JSON.h>

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using CString = LightweightString<char>;
using WString = LightweightString<wchar_t>;

Zo::Ptr<JSON::Element> parsed(wchar_t const* text) {
  Zo::Ptr<JSON::Element> element = JSON::parse(WString(text));
  EXPECT_TRUE(element) << "did not parse: " << toNarrow(WString(text));
  return element;
}

std::vector<std::string> numericNames(JSON::Element const& element) {
  std::vector<std::string> names;
  for (unsigned short i = 0; i < element.getNumNumericAttribs(); ++i)
    names.push_back(element.getNumericAttribName(i).str());
  return names;
}

} // namespace

TEST(JSONElement, ObjectSortsMembersByKindKeepingTheirOrder) {
  auto root = parsed(LR"({"b": 2, "s": "one", "a": {"x": 1}, "t": true, "n": 1.5, "z": [], "s2": "two", "f": false})");
  ASSERT_TRUE(root);
  EXPECT_FALSE(root->isArray());
  EXPECT_EQ(root->getName(), "");

  ASSERT_EQ(root->getNumChildren(), 2);
  EXPECT_EQ(root->getChild(0)->getName(), "a");
  EXPECT_FALSE(root->getChild(0)->isArray());
  EXPECT_EQ(root->getChild(1)->getName(), "z");
  EXPECT_TRUE(root->getChild(1)->isArray());

  EXPECT_EQ(numericNames(*root), (std::vector<std::string>{"b", "n"}));
  EXPECT_EQ(root->getNumericAttribs()[0].value, 2.0);
  EXPECT_EQ(root->getNumericAttribs()[1].value, 1.5);

  ASSERT_EQ(root->getNumStringAttribs(), 2);
  EXPECT_EQ(root->getStringAttribName(0), "s");
  EXPECT_EQ(root->getStringAttrib(0), "one");
  EXPECT_EQ(root->getStringAttribName(1), "s2");
  EXPECT_EQ(root->getStringAttrib(1), "two");

  ASSERT_EQ(root->getNumBoolAttribs(), 2);
  EXPECT_EQ(root->getBoolAttribs()[0].name, "t");
  EXPECT_TRUE(root->getBoolAttribs()[0].value);
  EXPECT_EQ(root->getBoolAttribs()[1].name, "f");
  EXPECT_FALSE(root->getBoolAttribs()[1].value);
}

TEST(JSONElement, ChildrenAreFoundByIndexAndByExactKey) {
  auto root = parsed(LR"({"rows": [{"type": "bool"}, {"type": "int"}], "Rows": {}})");
  ASSERT_TRUE(root);
  auto rows = root->getChild("rows");
  ASSERT_TRUE(rows);
  EXPECT_EQ(rows, root->getChild(0));
  EXPECT_EQ(root->getChild("Rows"), root->getChild(1));
  EXPECT_FALSE(root->getChild("ROWS"));
  EXPECT_FALSE(root->getChild("missing"));
  EXPECT_FALSE(root->getChild(nullptr));

  ASSERT_EQ(rows->getNumChildren(), 2);
  EXPECT_EQ(rows->getChild(0)->getString("type"), "bool");
  EXPECT_EQ(rows->getChild(1)->getString("type"), "int");
  EXPECT_EQ(rows->getChild(0)->getName(), "") << "items of an array have no key";
}

TEST(JSONElement, IndicesOfAnyIntegerTypeAndOutOfRangeGiveNull) {
  auto root = parsed(LR"([{}, {}, []])");
  ASSERT_TRUE(root);
  EXPECT_TRUE(root->getChild(0));
  EXPECT_TRUE(root->getChild(2u));
  EXPECT_TRUE(root->getChild(std::size_t{1}));
  EXPECT_TRUE(root->getChild(static_cast<unsigned short>(2)));
  EXPECT_FALSE(root->getChild(3));
  EXPECT_FALSE(root->getChild(-1));
  EXPECT_FALSE(root->getChild(std::int64_t{1} << 40));
  EXPECT_FALSE(root->getChild(static_cast<unsigned short>(3)));
  EXPECT_EQ(root->getStringAttrib(0), "");
  EXPECT_EQ(root->getStringAttribName(5), "");
  EXPECT_EQ(root->getWStringAttrib(0), L"");
  EXPECT_EQ(root->getNumericAttribName(0), "");
}

TEST(JSONElement, StringsAndBooleansAreFoundByExactKey) {
  auto row = parsed(LR"({"legend": "Count", "advance": true, "obfuscated": false})");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->getString("legend"), "Count");
  EXPECT_EQ(row->getWString("legend"), L"Count");
  EXPECT_TRUE(row->hasString("legend"));
  EXPECT_FALSE(row->hasString("Legend"));
  EXPECT_EQ(row->getString("Legend"), "");
  EXPECT_TRUE(row->getString("Legend").isNull());

  EXPECT_TRUE(row->getBool("advance", false));
  EXPECT_FALSE(row->getBool("obfuscated", true));
  EXPECT_TRUE(row->getBool("Advance", true)) << "a key in another case is absent and gives the default";
  EXPECT_FALSE(row->getBool("Advance", false));
  EXPECT_TRUE(row->hasBool("advance"));
  EXPECT_FALSE(row->hasBool("ADVANCE"));
  EXPECT_EQ(row->getString(nullptr), "");
  EXPECT_TRUE(row->getBool(nullptr, true));
}

TEST(JSONElement, NumbersAreFoundWithoutRegardToAsciiCase) {
  auto row = parsed(LR"({"Min": 0, "MAX": 10, "default": 3, "tooltip": 1234, "Ünit": 5})");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->getNumber("min", -1), 0.0);
  EXPECT_EQ(row->getNumber("max", -1), 10.0);
  EXPECT_EQ(row->getNumber("DEFAULT", -1), 3.0);
  EXPECT_EQ(row->getNumber("ToolTip", -1), 1234.0);
  EXPECT_EQ(row->getNumber("mi", -1), -1.0) << "a prefix is not a match";
  EXPECT_EQ(row->getNumber("minimum", -1), -1.0);
  EXPECT_EQ(row->getNumber("Ünit", -1), 5.0);
  EXPECT_EQ(row->getNumber("ünit", -1), -1.0) << "only ASCII letters fold";
  EXPECT_TRUE(row->hasNumber("MIN"));
  EXPECT_FALSE(row->hasNumber(nullptr));

  JSON::Element::NumericAttrib const* found = row->findNumericAttrib("max");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->name, "MAX");
  EXPECT_EQ(found, &row->getNumericAttribs()[1]);
}

TEST(JSONElement, FirstMatchWinsForRepeatedKeys) {
  auto row =
      parsed(LR"({"x": 1, "X": 2, "x": 3, "s": "a", "s": "b", "b": true, "b": false, "c": {"i": 1}, "c": {"i": 2}})");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->getNumber("x", 0), 1.0);
  EXPECT_EQ(row->getNumber("X", 0), 1.0);
  EXPECT_EQ(row->getNumNumericAttribs(), 3);
  EXPECT_EQ(row->getString("s"), "a");
  EXPECT_TRUE(row->getBool("b", false));
  EXPECT_EQ(row->getChild("c")->getNumber("i", 0), 1.0);
  EXPECT_EQ(row->getNumChildren(), 2);
}

TEST(JSONElement, ValueOfTheWrongTypeReadsAsAbsent) {
  auto row = parsed(LR"({"n": 1, "s": "text", "b": true, "o": {}, "a": ["x"], "z": null})");
  ASSERT_TRUE(row);
  for (char const* key : {"n", "b", "o", "a", "z"}) {
    EXPECT_FALSE(row->hasString(key)) << key;
    EXPECT_EQ(row->getString(key), "") << key;
    EXPECT_EQ(row->getWString(key), L"") << key;
  }
  for (char const* key : {"n", "s", "o", "a", "z"}) {
    EXPECT_FALSE(row->hasBool(key)) << key;
    EXPECT_TRUE(row->getBool(key, true)) << key;
    EXPECT_FALSE(row->getBool(key, false)) << key;
  }
  for (char const* key : {"s", "b", "o", "a", "z"}) {
    EXPECT_FALSE(row->hasNumber(key)) << key;
    EXPECT_EQ(row->getNumber(key, -1), -1.0) << key;
  }
  for (char const* key : {"n", "s", "b", "z"})
    EXPECT_FALSE(row->getChild(key)) << key;
  EXPECT_TRUE(row->getChild("o"));
  EXPECT_TRUE(row->getChild("a"));
}

TEST(JSONElement, NullsAreDropped) {
  auto root = parsed(LR"({"a": null, "list": [null, "x", null, 1, null]})");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getNumNumericAttribs() + root->getNumStringAttribs() + root->getNumBoolAttribs(), 0);
  auto list = root->getChild("list");
  ASSERT_TRUE(list);
  EXPECT_EQ(list->getNumStringAttribs(), 1);
  EXPECT_EQ(list->getStringAttrib(0), "x");
  EXPECT_EQ(list->getNumNumericAttribs(), 1);
}

TEST(JSONElement, ArrayOfStringsIsReadByIndex) {
  auto action = parsed(LR"({"event": "click", "modifiers": ["shift", "alt", "Caf\u00e9", "\ud83d\ude00"]})");
  ASSERT_TRUE(action);
  auto modifiers = action->getChild("modifiers");
  ASSERT_TRUE(modifiers);
  EXPECT_TRUE(modifiers->isArray());
  EXPECT_EQ(modifiers->getName(), "modifiers");
  ASSERT_EQ(modifiers->getNumStringAttribs(), 4);
  EXPECT_EQ(modifiers->getStringAttrib(0), "shift");
  EXPECT_EQ(modifiers->getStringAttrib(1), "alt");
  EXPECT_EQ(modifiers->getStringAttribName(0), "");
  EXPECT_EQ(modifiers->getStringAttrib(2), "Caf\xC3\xA9");
  EXPECT_EQ(modifiers->getWStringAttrib(2), L"Caf\u00e9");
  EXPECT_EQ(modifiers->getWStringAttrib(3), L"\U0001F600");
  EXPECT_EQ(modifiers->getStringAttrib(3), "\xF0\x9F\x98\x80");
  EXPECT_EQ(modifiers->getNumChildren(), 0);
}

TEST(JSONElement, MixedArrayKeepsOrderWithinEachKind) {
  auto root = parsed(LR"([3, "a", {"k": 1}, true, 1, "b", [2], false, 2])");
  ASSERT_TRUE(root);
  EXPECT_TRUE(root->isArray());
  ASSERT_EQ(root->getNumNumericAttribs(), 3);
  EXPECT_EQ(root->getNumericAttribs()[0].value, 3.0);
  EXPECT_EQ(root->getNumericAttribs()[1].value, 1.0);
  EXPECT_EQ(root->getNumericAttribs()[2].value, 2.0);
  EXPECT_EQ(root->getStringAttrib(0), "a");
  EXPECT_EQ(root->getStringAttrib(1), "b");
  ASSERT_EQ(root->getNumChildren(), 2);
  EXPECT_FALSE(root->getChild(0)->isArray());
  EXPECT_TRUE(root->getChild(1)->isArray());
  ASSERT_EQ(root->getNumBoolAttribs(), 2);
  EXPECT_TRUE(root->getBoolAttribs()[0].value);
  EXPECT_FALSE(root->getBoolAttribs()[1].value);
}

TEST(JSONElement, TopLevelScalarIsTheOneAttributeOfItsRoot) {
  auto number = parsed(L"-12.5");
  ASSERT_TRUE(number);
  EXPECT_TRUE(number->isArray());
  ASSERT_EQ(number->getNumNumericAttribs(), 1);
  EXPECT_EQ(number->getNumericAttribs()[0].value, -12.5);
  EXPECT_EQ(number->getNumericAttribs()[0].name, "");

  auto text = parsed(LR"("hello")");
  ASSERT_TRUE(text);
  EXPECT_EQ(text->getStringAttrib(0), "hello");

  auto flag = parsed(L" true ");
  ASSERT_TRUE(flag);
  EXPECT_TRUE(flag->getBoolAttribs()[0].value);

  auto nothing = parsed(L"null");
  ASSERT_TRUE(nothing);
  EXPECT_EQ(nothing->getNumChildren() + nothing->getNumStringAttribs() + nothing->getNumBoolAttribs() +
                nothing->getNumNumericAttribs(),
            0);
}

TEST(JSONElement, NumbersReadExactly) {
  auto root = parsed(LR"([0.1, -0.0, 1e300, 5e-324, 9007199254740993, -9223372036854775808, 18446744073709551615,
                         1E2, 2.5e-3, 123456789.123456789])");
  ASSERT_TRUE(root);
  std::vector<double> expected{0.1,
                               -0.0,
                               1e300,
                               5e-324,
                               9007199254740992.0,
                               -9223372036854775808.0,
                               18446744073709551615.0,
                               100.0,
                               2.5e-3,
                               123456789.123456789};
  ASSERT_EQ(root->getNumNumericAttribs(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(std::bit_cast<std::uint64_t>(root->getNumericAttribs()[i].value),
              std::bit_cast<std::uint64_t>(expected[i]))
        << "item " << i;
}

TEST(JSONElement, EscapesAndNonAsciiTextDecode) {
  auto root = parsed(LR"({"t": "a\"b\\c\/d\b\f\n\r\t\u0001\u00e9\u4e2d\ud83d\ude00", "k\u00e9y": "é中😀"})");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getWString("t"), L"a\"b\\c/d\b\f\n\r\t\u0001\u00e9\u4e2d\U0001F600");
  EXPECT_EQ(root->getStringAttribName(1), "k\xC3\xA9y");
  EXPECT_EQ(root->getWString("k\xC3\xA9y"), L"\u00e9\u4e2d\U0001F600");
}

TEST(JSONElement, NamesAndTextsEndInNul) {
  auto root = parsed(LR"({"key": "value", "n": 1, "list": ["item"]})");
  ASSERT_TRUE(root);
  JSON::Element::StringAttrib const& string = root->getStringAttribs()[0];
  EXPECT_EQ(string.name.data()[string.name.size()], '\0');
  EXPECT_EQ(string.value.data()[string.value.size()], '\0');
  EXPECT_STREQ(root->getNumericAttribs()[0].name.data(), "n");
  EXPECT_STREQ(root->getChild(0)->getName().data(), "list");
}

TEST(JSONElement, ChildOutlivesItsRoot) {
  Zo::Ptr<JSON::Element> child;
  {
    auto root = parsed(LR"({"rows": [{"legend": "kept", "Min": 2}]})");
    ASSERT_TRUE(root);
    child = root->getChild("rows")->getChild(0);
  }
  ASSERT_TRUE(child);
  EXPECT_EQ(child->getString("legend"), "kept");
  EXPECT_EQ(child->getNumber("min", 0), 2.0);
  EXPECT_EQ(child->getNumericAttribs()[0].name, "Min");
}

// The description of a panel, read through the operations a panel builder
// uses: the root's first child holds one object per row.
TEST(JSONElement, PanelDescriptionReadsAsRows) {
  auto root = parsed(LR"({"rows": [
    {"type": "bool", "name": "b", "legend": "Enabled", "default": true},
    {"type": "int", "name": "n", "legend": "Count", "min": 0, "max": 10, "default": 3, "visible if": "b=true"},
    {"type": "int", "name": "m", "legend": "Mode", "values": {"Fast": 1, "Best": 2}, "choice": "2",
     "visible if": "b=false"},
    {"type": "text", "name": "t", "legend": "Title", "hint": "your name", "advance": true, "tooltip": 4711}
  ]})");
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 1);
  auto rows = root->getChild(0);
  ASSERT_EQ(rows->getNumChildren(), 4);

  auto flag = rows->getChild(0);
  EXPECT_EQ(flag->getString("type"), "bool");
  EXPECT_TRUE(flag->getBool("default", false));
  EXPECT_EQ(flag->getNumber("default", -1), -1.0) << "a boolean default is not a number";

  auto count = rows->getChild(1);
  EXPECT_EQ(count->getNumber("min", -1), 0.0);
  EXPECT_EQ(count->getNumber("max", -1), 10.0);
  EXPECT_EQ(count->getNumber("default", -1), 3.0);
  EXPECT_EQ(count->getWString("visible if"), L"b=true");
  EXPECT_FALSE(count->getChild("values"));

  auto mode = rows->getChild(2);
  auto values = mode->getChild("values");
  ASSERT_TRUE(values);
  ASSERT_EQ(values->getNumNumericAttribs(), 2);
  EXPECT_EQ(values->getNumericAttribName(0), "Fast");
  EXPECT_EQ(values->getNumericAttribs()[0].value, 1.0);
  EXPECT_EQ(values->getNumericAttribName(1), "Best");
  EXPECT_EQ(values->getNumericAttribs()[1].value, 2.0);
  EXPECT_EQ(mode->getString("choice"), "2");

  auto title = rows->getChild(3);
  EXPECT_EQ(title->getString("hint"), "your name");
  EXPECT_TRUE(title->getBool("advance", false));
  EXPECT_FALSE(title->getBool("obfuscated", false));
  EXPECT_EQ(title->getNumber("tooltip", 999999), 4711.0);
}

TEST(JSONElementAssembler, BuildsElementsFromEvents) {
  JSON::ElementAssembler assembler;
  EXPECT_FALSE(assembler.result());
  ASSERT_TRUE(assembler.startObject());
  assembler.key("legend");
  std::string transient = "copied";
  assembler.addString(transient);
  transient = "changed";
  assembler.key("Max");
  assembler.addNumber(10);
  assembler.key("gone");
  assembler.addNull();
  assembler.key("list");
  ASSERT_TRUE(assembler.startArray());
  assembler.key("ignored inside an array");
  assembler.addBool(true);
  assembler.end();
  EXPECT_FALSE(assembler.result()) << "no root before it ends";
  assembler.end();

  auto root = assembler.result();
  ASSERT_TRUE(root);
  EXPECT_EQ(root->getString("legend"), "copied");
  EXPECT_EQ(root->getNumber("max", 0), 10.0);
  EXPECT_EQ(root->getNumNumericAttribs(), 1);
  auto list = root->getChild("list");
  ASSERT_TRUE(list);
  EXPECT_EQ(list->getBoolAttribs()[0].name, "");
  EXPECT_TRUE(list->getBoolAttribs()[0].value);
}

TEST(JSONElementAssembler, RefusesToStartBeyondTheDepthLimit) {
  JSON::ElementAssembler assembler;
  for (int depth = 0; depth < JSON::ElementAssembler::kMaxDepth; ++depth)
    ASSERT_TRUE(assembler.startArray()) << depth;
  EXPECT_FALSE(assembler.startArray());
  EXPECT_FALSE(assembler.startObject());
}

TEST(JSONElementAssembler, TopLevelScalarMakesARoot) {
  JSON::ElementAssembler assembler;
  assembler.addString("alone");
  auto root = assembler.result();
  ASSERT_TRUE(root);
  EXPECT_TRUE(root->isArray());
  EXPECT_EQ(root->getStringAttrib(0), "alone");
}
