#include "BuilderTestSupport.h"

#include <zowidgets/builder/UIBuilderJSONTestPanel.h>
#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <random>
#include <set>
#include <sstream>

// Random descriptions, well-formed and not, built on a real panel: nothing
// crashes, every entry makes one row, the map holds one row per name, and
// the panel shrinks by exactly what the merging rule says.

using namespace BuilderTest;

namespace {

struct Entry {
  std::string type; // empty: no "type" key
  bool known = false;
  std::optional<std::string> name;
  std::optional<std::string> visibleIf;
};

class DescriptionMaker {
public:
  explicit DescriptionMaker(unsigned seed) : random_(seed) {}

  std::string make(std::vector<Entry>& entries) {
    entries.clear();
    std::ostringstream out;
    out << "{\"rows\": [";
    int const count = pick(0, 12);
    for (int i = 0; i < count; ++i) {
      Entry entry;
      out << (i ? ", " : "") << "{";
      std::vector<std::string> members;
      static char const* const kTypes[] = {"bool", "int", "text", "float", "label", "Bool", "date", ""};
      entry.type = kTypes[pick(0, 7)];
      entry.known = entry.type == "bool" || entry.type == "int" || entry.type == "text" || entry.type == "float" ||
                    entry.type == "label";
      if (!entry.type.empty())
        members.push_back("\"type\": \"" + entry.type + "\"");
      static char const* const kNames[] = {"a", "b", "c", ""};
      if (pick(0, 4) > 0) {
        entry.name = kNames[pick(0, 3)];
        members.push_back("\"name\": \"" + *entry.name + "\"");
      }
      static char const* const kRules[] = {"k=1", "k=2", "k=3", "j=1", "k", "=x", "a=true"};
      if (pick(0, 2) == 0) {
        entry.visibleIf = kRules[pick(0, 6)];
        members.push_back("\"visible if\": \"" + *entry.visibleIf + "\"");
      }
      if (pick(0, 1))
        members.push_back("\"legend\": \"" + std::string(static_cast<std::size_t>(pick(0, 30)), 'W') + "\"");
      for (char const* key : {"min", "MAX", "default", "tooltip"})
        if (pick(0, 2) == 0)
          members.push_back(std::string("\"") + key + "\": " + number());
      if (pick(0, 4) == 0)
        members.push_back("\"default\": \"" + number() + "\"");
      if (pick(0, 3) == 0) {
        std::string values = "\"values\": {";
        int const choices = pick(0, 4);
        for (int c = 0; c < choices; ++c)
          values += (c ? ", \"" : "\"") + std::string(1, static_cast<char>('A' + c)) + "\": " + number();
        members.push_back(values + "}");
      }
      if (pick(0, 4) == 0)
        members.push_back("\"choice\": \"" + number() + "\"");
      for (char const* key : {"active if", "must not be lower than", "must not be higher than", "hint", "value"})
        if (pick(0, 5) == 0)
          members.push_back(std::string("\"") + key + "\": \"" + kRules[pick(0, 6)] + "\"");
      for (char const* key : {"obfuscated", "advance"})
        if (pick(0, 5) == 0)
          members.push_back(std::string("\"") + key + "\": " + (pick(0, 1) ? "true" : "false"));
      std::shuffle(members.begin(), members.end(), random_);
      for (std::size_t m = 0; m < members.size(); ++m)
        out << (m ? ", " : "") << members[m];
      out << "}";
      entries.push_back(entry);
    }
    out << "]}";
    return out.str();
  }

  int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

private:
  std::string number() {
    static char const* const kNumbers[] = {"0", "-1", "3", "10", "2.5", "-7.25", "1e6", "100000", "4294967295"};
    return kNumbers[pick(0, 8)];
  }
  std::mt19937 random_;
};

// The merging rule, told again from scratch: how many rows the panel loses.
int expectedRowsLost(std::vector<Entry> const& entries, std::size_t mapped) {
  auto rule = [&](int index) -> std::optional<std::pair<std::string, std::string>> {
    std::optional<std::string> const& text = entries[static_cast<std::size_t>(index)].visibleIf;
    if (!text)
      return std::nullopt;
    std::size_t const equals = text->find('=');
    if (equals == std::string::npos || equals == 0)
      return std::nullopt;
    return std::make_pair(text->substr(0, equals), text->substr(equals + 1));
  };
  int rows = static_cast<int>(mapped);
  for (int i = 1; i < static_cast<int>(entries.size()); ++i) {
    auto const mine = rule(i);
    if (!mine)
      continue;
    int j = i - 1;
    while (j >= 0) {
      auto const theirs = rule(j);
      if (!theirs || theirs->first != mine->first || theirs->second == mine->second)
        break;
      --j;
    }
    if (j != i - 1 && j >= 0)
      rows = rows - (i - 1) + j;
  }
  return static_cast<int>(mapped) - rows;
}

struct UIBuilderJSONProperty : HeadlessScreenTest {};

TEST_F(UIBuilderJSONProperty, RandomDescriptionsBuildOneRowPerEntryAndShrinkByTheRule) {
  DescriptionMaker maker(20261121);
  std::vector<Entry> entries;
  int const pitch = UifStd::getRowHeight() + UifStd::getRowGap();
  for (int round = 0; round < 400; ++round) {
    std::string const text = maker.make(entries);
    SCOPED_TRACE(text);
    StandardPanel* panel = openPanel(XY<int>(300, 600));
    int const heightBefore = panel->height();
    Zo::Ptr<UIBuilder::Params> built = UIBuilder::buildFromJSON(toWide(text), panel);
    ASSERT_TRUE(built);
    EXPECT_EQ(UIBuilder::getNumParams(JSON::parse(toWide(text))), entries.size());
    ASSERT_EQ(panel->getChildren().size(), entries.size());
    std::set<std::string> names;
    for (Entry const& entry : entries)
      if (entry.known)
        names.insert(entry.name.value_or(""));
    EXPECT_EQ(built->getWidgets().size(), names.size());
    EXPECT_TRUE(built->getParams().empty());
    EXPECT_EQ(panel->height(), heightBefore - expectedRowsLost(entries, names.size()) * pitch);
    for (Glob* row : panel->getChildren())
      EXPECT_LE(row->width(), panel->getUserArea().width());
    GlobManager::requestDeletion(panel);
    pump();
  }
}

TEST_F(UIBuilderJSONProperty, MangledDescriptionsNeverBreakTheBuild) {
  std::mt19937 random(7);
  std::wstring const sample = UIBuilderJSONTestPanel::kSampleDescription;
  static wchar_t const kPieces[] = L"{}[]\",:0-e.tfn \\u\n";
  int built = 0;
  for (int round = 0; round < 400; ++round) {
    std::wstring text = sample;
    int const edits = std::uniform_int_distribution<int>(1, 6)(random);
    for (int e = 0; e < edits && !text.empty(); ++e) {
      std::size_t const at = std::uniform_int_distribution<std::size_t>(0, text.size() - 1)(random);
      wchar_t const piece = kPieces[std::uniform_int_distribution<std::size_t>(0, std::size(kPieces) - 2)(random)];
      switch (std::uniform_int_distribution<int>(0, 2)(random)) {
      case 0:
        text.erase(at, 1);
        break;
      case 1:
        text.insert(at, 1, piece);
        break;
      default:
        text[at] = piece;
        break;
      }
    }
    StandardPanel* panel = openPanel(XY<int>(300, 600));
    Zo::Ptr<UIBuilder::Params> result = UIBuilder::buildFromJSON(text, panel);
    ASSERT_TRUE(result);
    if (!JSON::parse(text))
      EXPECT_TRUE(panel->getChildren().empty());
    else
      built += panel->getChildren().empty() ? 0 : 1;
    GlobManager::requestDeletion(panel);
    pump();
  }
  // Some of the mangled texts are still descriptions: the build is exercised.
  EXPECT_GT(built, 0);
}

} // namespace
