#pragma once

#include <zowidgets/host/widgets/lists/iTableAdaptor.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

// A log of shots in four columns, editable, sortable and taggable, that
// counts what the table asks of it.
class ShotsTableAdaptor : public iTableAdaptor {
public:
  struct Shot {
    std::int64_t id;
    std::wstring cells[4];
  };
  std::vector<Shot> shots;
  std::set<std::int64_t> tags;
  std::map<int, int> heights; // row -> own height
  std::vector<std::wstring> stored;
  bool refuseStores = false;
  bool canSort = true;
  bool canAddRows = false;
  int locks = 0;
  int unlocks = 0;
  int cellsAsked = 0;
  std::vector<std::pair<int, int>> swaps;

  explicit ShotsTableAdaptor(int count = 6) {
    for (int i = 0; i < count; ++i)
      shots.push_back(Shot{i,
                           {L"Shot " + std::to_wstring(i + 1), L"Reel " + std::to_wstring(i % 3 + 1),
                            L"01:00:0" + std::to_wstring(i % 10) + L":00", std::to_wstring((i * 7) % 13 + 1)}});
  }

  int getSize() override { return static_cast<int>(shots.size()); }
  std::vector<TableColumnDescription> getColumnDefinitions() override {
    return {TableColumnDescription(UIString(L"Name")), TableColumnDescription(UIString(L"Reel"), 80),
            TableColumnDescription(UIString(L"In"), 110), TableColumnDescription(UIString(L"Length"), 70)};
  }
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    ++cellsAsked;
    CellData data;
    data.palette = palette;
    data.text = UIString(LightweightString<wchar_t>(shots.at(pos.y).cells[pos.x].c_str()));
    return data;
  }
  std::uint16_t getRowHeight(unsigned int row) override {
    auto found = heights.find(static_cast<int>(row));
    return found == heights.end() ? 0 : static_cast<std::uint16_t>(found->second);
  }
  std::int64_t getRowID(int row) override { return shots.at(row).id; }
  bool getTag(int row) override { return tags.count(shots.at(row).id) > 0; }
  void setTags(int first, int last, bool tagged) override {
    for (int row = first; row <= last; ++row)
      tagged ? (void)tags.insert(shots.at(row).id) : (void)tags.erase(shots.at(row).id);
  }
  int getNumTagged() override { return static_cast<int>(tags.size()); }
  bool storeFieldText(CellContext& context, LightweightString<wchar_t> const& text) override {
    if (refuseStores)
      return false;
    shots.at(context.pos.y).cells[context.pos.x] = text.str();
    stored.push_back(text.str());
    return true;
  }
  bool sort(int column, bool ascending) override {
    if (!canSort)
      return false;
    std::stable_sort(shots.begin(), shots.end(), [&](Shot const& a, Shot const& b) {
      return ascending ? a.cells[column] < b.cells[column] : b.cells[column] < a.cells[column];
    });
    return true;
  }
  bool requestAddRow() override {
    if (!canAddRows)
      return false;
    shots.push_back(Shot{static_cast<std::int64_t>(shots.size()), {L"New", L"", L"", L""}});
    return true;
  }
  bool swapFields(int a, int b) override {
    swaps.emplace_back(a, b);
    return false;
  }
  void lockData() override { ++locks; }
  void unlockData() override { ++unlocks; }
};
