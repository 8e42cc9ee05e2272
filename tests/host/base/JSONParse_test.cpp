#include <zowidgets/host/base/JSON.h>

#include <gtest/gtest.h>

#include <pthread.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;
namespace fs = std::filesystem;

fs::path conformanceFolder() { return fs::path(ZO_TESTDATA_DIR) / "json-conformance" / "test_parsing"; }

std::vector<fs::path> conformanceFiles(std::string const& prefix) {
  std::vector<fs::path> files;
  for (fs::directory_entry const& entry : fs::directory_iterator(conformanceFolder()))
    if (entry.path().filename().string().starts_with(prefix))
      files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

WString widePath(fs::path const& path) { return WString::fromUTF8(path.string()); }

// Reads everything an element holds, so that a broken tree shows up under
// the sanitizers rather than passing quietly.
std::size_t visitAll(JSON::Element const& element) {
  std::size_t seen = element.getName().size();
  for (auto const& attrib : element.getStringAttribs())
    seen += attrib.name.size() + attrib.value.size();
  for (auto const& attrib : element.getNumericAttribs())
    seen += attrib.name.size() + (attrib.value == attrib.value ? 1 : 0);
  for (auto const& attrib : element.getBoolAttribs())
    seen += attrib.name.size() + attrib.value;
  for (unsigned short i = 0; i < element.getNumChildren(); ++i)
    seen += 1 + visitAll(*element.getChild(i));
  return seen;
}

#define SKIP_WITHOUT_CORPUS()                                                                                          \
  if (!fs::is_directory(conformanceFolder()))                                                                          \
  GTEST_SKIP() << "conformance corpus not found at " << conformanceFolder()

class TemporaryFile {
public:
  explicit TemporaryFile(std::string const& name, std::string const& bytes)
      : path_(fs::temp_directory_path() / ("zo_json_test_" + name)) {
    std::ofstream(path_, std::ios::binary) << bytes;
  }
  ~TemporaryFile() { fs::remove(path_); }
  WString path() const { return widePath(path_); }

private:
  fs::path path_;
};

} // namespace

TEST(JSONConformance, EveryAcceptedFileParses) {
  SKIP_WITHOUT_CORPUS();
  std::vector<fs::path> files = conformanceFiles("y_");
  ASSERT_FALSE(files.empty());
  for (fs::path const& file : files) {
    Zo::Ptr<JSON::Element> element = JSON::parseFile(widePath(file));
    EXPECT_TRUE(element) << file.filename() << " must parse";
    if (element)
      visitAll(*element);
  }
}

TEST(JSONConformance, EveryRejectedFileGivesNull) {
  SKIP_WITHOUT_CORPUS();
  std::vector<fs::path> files = conformanceFiles("n_");
  ASSERT_FALSE(files.empty());
  for (fs::path const& file : files)
    EXPECT_FALSE(JSON::parseFile(widePath(file))) << file.filename() << " must be rejected";
}

TEST(JSONConformance, EveryUndecidedFileGivesAnAnswer) {
  SKIP_WITHOUT_CORPUS();
  std::vector<fs::path> files = conformanceFiles("i_");
  ASSERT_FALSE(files.empty());
  for (fs::path const& file : files) {
    auto started = std::chrono::steady_clock::now();
    Zo::Ptr<JSON::Element> element = JSON::parseFile(widePath(file));
    if (element)
      visitAll(*element);
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(5)) << file.filename() << " hangs";
    EXPECT_EQ(bool(JSON::parseFile(widePath(file))), bool(element)) << file.filename() << " gives two answers";
  }
}

TEST(JSONParse, EmptyOrBlankTextIsNull) {
  EXPECT_FALSE(JSON::parse(WString()));
  EXPECT_FALSE(JSON::parse(WString(L"")));
  EXPECT_FALSE(JSON::parse(WString(L" \t\r\n")));
}

TEST(JSONParse, TextAfterTheValueIsRefused) {
  EXPECT_TRUE(JSON::parse(WString(L"{} \n")));
  EXPECT_FALSE(JSON::parse(WString(L"{} x")));
  EXPECT_FALSE(JSON::parse(WString(L"{}{}")));
  EXPECT_FALSE(JSON::parse(WString(std::wstring(L"{}\0 ", 4))));
  EXPECT_FALSE(JSON::parse(WString(std::wstring(L"[\"a\0b\"]", 7))));
}

TEST(JSONParse, ExtensionsAreRefused) {
  for (wchar_t const* text : {L"[1,]", L"{\"a\":1,}", L"// c\n{}", L"[NaN]", L"[Infinity]", L"['a']", L"{a: 1}",
                              L"[01]", L"[.5]", L"[0x10]", L"[\"\\x41\"]"})
    EXPECT_FALSE(JSON::parse(WString(text))) << toNarrow(WString(text));
}

TEST(JSONParse, DepthIsBounded) {
  int const limit = JSON::ElementAssembler::kMaxDepth;
  auto nested = [](int depth) {
    return WString(std::wstring(static_cast<std::size_t>(depth), L'[') +
                   std::wstring(static_cast<std::size_t>(depth), L']'));
  };
  Zo::Ptr<JSON::Element> deepest = JSON::parse(nested(limit));
  ASSERT_TRUE(deepest);
  int depth = 1;
  for (auto element = deepest; element->getNumChildren() == 1; element = element->getChild(0))
    ++depth;
  EXPECT_EQ(depth, limit);
  EXPECT_FALSE(JSON::parse(nested(limit + 1)));
  EXPECT_FALSE(JSON::parse(WString(std::wstring(1000000, L'['))));
  EXPECT_FALSE(JSON::parse(WString(std::wstring(100000, L'{'))));
}

// Worker threads may have small stacks: the deepest nesting allowed must fit.
TEST(JSONParse, DeepestNestingFitsASmallStack) {
  struct Outcome {
    bool deepestParsed = false;
    bool deeperRefused = false;
  } outcome;
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
  auto work = [](void* argument) -> void* {
    auto* result = static_cast<Outcome*>(argument);
    auto const levels = static_cast<std::size_t>(JSON::ElementAssembler::kMaxDepth - 1);
    std::wstring deepest = std::wstring(levels, L'[') + L"{}" + std::wstring(levels, L']');
    result->deepestParsed = bool(JSON::parse(WString(deepest)));
    result->deeperRefused = !JSON::parse(WString(L"[" + deepest + L"]"));
    return nullptr;
  };
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, work, &outcome), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_TRUE(outcome.deepestParsed);
  EXPECT_TRUE(outcome.deeperRefused);
}

TEST(JSONParse, WideTextMustHoldScalarValues) {
  EXPECT_TRUE(JSON::parse(WString(std::wstring(L"[\"") + wchar_t(0x10FFFF) + L"\"]")));
  for (wchar_t bad : {wchar_t(0xD800), wchar_t(0xDFFF), wchar_t(0x110000), wchar_t(-1)})
    EXPECT_FALSE(JSON::parse(WString(std::wstring(L"[\"") + bad + L"\"]"))) << static_cast<long>(bad);
  EXPECT_FALSE(JSON::parse(WString(std::wstring(L"[") + wchar_t(-1) + L"]")));
}

TEST(JSONParse, LoneSurrogateEscapesAreRefused) {
  auto pair = JSON::parse(WString(LR"(["\ud83d\ude00"])"));
  ASSERT_TRUE(pair);
  EXPECT_EQ(pair->getWStringAttrib(0), L"\U0001F600");
  EXPECT_FALSE(JSON::parse(WString(LR"(["\ud800"])")));
  EXPECT_FALSE(JSON::parse(WString(LR"(["\ud800x"])")));
  EXPECT_FALSE(JSON::parse(WString(LR"(["\udc00"])")));
  EXPECT_FALSE(JSON::parse(WString(LR"({"\udfff": 1})")));
  EXPECT_FALSE(JSON::parse(WString(LR"(["\ude00\ud83d"])")));
}

TEST(JSONParse, NumbersBeyondADoubleAreZeroWhenTinyAndRefusedWhenHuge) {
  auto number = [](wchar_t const* text) {
    Zo::Ptr<JSON::Element> element = JSON::parse(WString(text));
    return element && element->getNumNumericAttribs() == 1 ? element->getNumericAttribs()[0].value : 42.0;
  };
  EXPECT_EQ(number(L"[0.00000000000000000000000000000000]"), 0.0);
  EXPECT_EQ(number(L"[0.0000000000000000000000000000000000000000000000000000000000000000000000000001]"), 1e-76);
  EXPECT_EQ(number(L"[123e-10000000]"), 0.0);
  EXPECT_TRUE(std::signbit(number(L"[-1e-400]")));
  EXPECT_EQ(number(L"[-1e-400]"), 0.0);
  EXPECT_EQ(
      number(
          L"[0.000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"
          L"000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"
          L"000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"
          L"00000000000000000000000000000001]"),
      0.0);
  EXPECT_EQ(number(L"[1.7976931348623157e308]"), 1.7976931348623157e308);
  EXPECT_EQ(number(L"[4.9e-324]"), 4.9e-324);
  EXPECT_FALSE(JSON::parse(WString(L"[1.7976931348623159e308]")));
  EXPECT_FALSE(JSON::parse(WString(L"[1e400]")));
  EXPECT_FALSE(JSON::parse(WString(L"[-1e99999999999]")));
  EXPECT_FALSE(JSON::parse(WString(L"[" + std::wstring(400, L'9') + L"]")));
}

TEST(JSONParseFile, ReadsUTF8AndSkipsAByteOrderMark) {
  TemporaryFile plain("plain.json", "{\"name\": \"Caf\xC3\xA9 \xF0\x9F\x98\x80\"}");
  auto element = JSON::parseFile(plain.path());
  ASSERT_TRUE(element);
  EXPECT_EQ(element->getWString("name"), L"Caf\u00e9 \U0001F600");

  TemporaryFile marked("marked.json", "\xEF\xBB\xBF[\"x\"]");
  auto afterMark = JSON::parseFile(marked.path());
  ASSERT_TRUE(afterMark);
  EXPECT_EQ(afterMark->getStringAttrib(0), "x");
}

TEST(JSONParseFile, MalformedUTF8ReadsAsReplacementCharacter) {
  TemporaryFile latin1("latin1.json", "[\"caf\xE9\", \"\xC0\xAF\"]");
  auto element = JSON::parseFile(latin1.path());
  ASSERT_TRUE(element);
  EXPECT_EQ(element->getWStringAttrib(0), L"caf\uFFFD");
  EXPECT_EQ(element->getStringAttrib(0), "caf\xEF\xBF\xBD");
  EXPECT_EQ(element->getWStringAttrib(1).view().find_first_not_of(L'\uFFFD'), std::wstring_view::npos);

  TemporaryFile outside("outside.json", "[\xE9]");
  EXPECT_FALSE(JSON::parseFile(outside.path())) << "outside a string it is still not JSON";
}

TEST(JSONParseFile, MissingOrUnreadableFileIsNull) {
  EXPECT_FALSE(JSON::parseFile(widePath(fs::temp_directory_path() / "zo_json_test_no_such_file.json")));
  EXPECT_FALSE(JSON::parseFile(WString()));
  EXPECT_FALSE(JSON::parseFile(widePath(fs::temp_directory_path())));
  TemporaryFile empty("empty.json", "");
  EXPECT_FALSE(JSON::parseFile(empty.path()));
}

TEST(JSONParseFile, PathMayHoldNonAsciiCharacters) {
  TemporaryFile file("\xC3\xA9t\xC3\xA9.json", "{\"ok\": true}");
  auto element = JSON::parseFile(file.path());
  ASSERT_TRUE(element);
  EXPECT_TRUE(element->getBool("ok", false));
}
