// An edit list of 100,000 events in a table: edit, sort, resize, tag, and
// scroll sideways to the columns beyond the view.
#include "PageLayout.h"

#include <zowidgets/host/shell/FolderEntries.h>
#include <zowidgets/host/toolkit/GlobHandle.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <cwchar>
#include <functional>
#include <regex>
#include <string>
#include <vector>

namespace {

constexpr int kFramesPerSecond = 25;

std::wstring timecode(int frames) {
  wchar_t text[16];
  int const seconds = frames / kFramesPerSecond;
  // A day's timecode: the hours wrap at 24, as on a tape.
  std::swprintf(text, 16, L"%02d:%02d:%02d:%02d", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60,
                frames % kFramesPerSecond);
  return text;
}

// `text` as a timecode "hh:mm:ss:ff" in this list's frame rate, or empty
// when it is not one. Record times run past a day, so their hours may take
// three digits; a source's wrap at 24.
std::wstring readTimecode(std::wstring const& text, bool hoursPastADay) {
  static std::wregex const source(L"([0-9]{2}):([0-9]{2}):([0-9]{2}):([0-9]{2})");
  static std::wregex const record(L"([0-9]{2,3}):([0-9]{2}):([0-9]{2}):([0-9]{2})");
  std::wsmatch parts;
  if (!std::regex_match(text, parts, hoursPastADay ? record : source))
    return {};
  int const hours = std::stoi(parts[1].str());
  int const minutes = std::stoi(parts[2].str());
  int const seconds = std::stoi(parts[3].str());
  int const frames = std::stoi(parts[4].str());
  if (minutes > 59 || seconds > 59 || frames >= kFramesPerSecond || (!hoursPastADay && hours > 23))
    return {};
  wchar_t normal[16];
  std::swprintf(normal, 16, L"%02d:%02d:%02d:%02d", hours, minutes, seconds, frames);
  return normal;
}

// Events of an edit list. Every fiftieth is a scene marker, a taller row
// across the table in the accent colour; every seventh clip has notes with a
// link. The timecode columns lie beyond the view, to the right.
class EditListAdaptor : public iTableAdaptor {
public:
  EditListAdaptor() {
    events_.reserve(kEvents);
    int record = kHourOne;
    for (int i = 0; i < kEvents; ++i) {
      Event event;
      event.id = i;
      event.marker = i % 50 == 0;
      event.cells[0] = std::to_wstring(i + 1);
      if (event.marker) {
        event.cells[1] = L"Scene " + std::to_wstring(i / 50 + 1);
      } else {
        event.cells[1] = L"A" + std::to_wstring(i % 97 + 1) + L"_take" + std::to_wstring(i % 5 + 1);
        event.cells[2] = L"Reel " + std::to_wstring(i % 12 + 1);
        int const sourceIn = kHourOne + (i % 97) * 10 * kFramesPerSecond + (i % 5) * 13;
        int const length = 2 * kFramesPerSecond + (i * 17) % 200;
        event.cells[kSourceIn] = timecode(sourceIn);
        event.cells[kSourceIn + 1] = timecode(sourceIn + length);
        event.cells[kRecordIn] = timecode(record);
        record += length;
        event.cells[kNotes] =
            i % 7 == 0 ? L"See <a href=\"notes/" + std::to_wstring(i + 1) + L".html\">notes</a>" : L"";
      }
      events_.push_back(std::move(event));
    }
  }

  int getSize() override { return static_cast<int>(events_.size()); }
  std::vector<TableColumnDescription> getColumnDefinitions() override {
    // Widths follow the interface's size, as its text does.
    TableColumnDescription number(UIString(L"Event"), TableColumnDescription::calcSizeFor(L"0000000"));
    number.setAlignment(Glib::eTextAlignment::Right);
    int const timecodeWidth = TableColumnDescription::calcSizeFor(L"00:00:00:00");
    // A hundred thousand events run to hundreds of hours of record time.
    int const recordWidth = TableColumnDescription::calcSizeFor(L"000:00:00:00");
    return {number,
            TableColumnDescription(UIString(L"Clip"), UifStd::getRowHeight() * 5),
            TableColumnDescription(UIString(L"Reel"), TableColumnDescription::calcSizeFor(L"Reel 0000")),
            TableColumnDescription(UIString(L"Source in"), timecodeWidth),
            TableColumnDescription(UIString(L"Source out"), timecodeWidth),
            TableColumnDescription(UIString(L"Record in"), recordWidth),
            TableColumnDescription(UIString(L"Notes"), UifStd::getRowHeight() * 5)};
  }
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    Event const& event = events_.at(pos.y);
    CellData data;
    data.palette = palette;
    data.text = UIString(LightweightString<wchar_t>(event.cells[pos.x].c_str()));
    if (event.marker) {
      data.palette.setText(palette.subheadingText());
      data.readOnly = true;
      data.fieldType = DBFieldTypes::kReadOnly;
    } else if (pos.x == 0) {
      data.fieldType = DBFieldTypes::kReadOnly;
    } else if (pos.x == kNotes) {
      data.fieldType = DBFieldTypes::kHTMLString;
    }
    return data;
  }
  std::uint16_t getRowHeight(unsigned int row) override {
    return events_[row].marker ? static_cast<std::uint16_t>(UifStd::getRowHeight() * 3 / 2) : 0;
  }
  std::int64_t getRowID(int row) override { return events_.at(row).id; }
  bool getTag(int row) override { return events_.at(row).tagged; }
  void setTags(int first, int last, bool tagged) override {
    for (int row = first; row <= last; ++row)
      events_.at(row).tagged = tagged;
  }
  bool storeFieldText(CellContext& context, LightweightString<wchar_t> const& text) override {
    std::wstring kept = text.str();
    if (context.pos.x >= kSourceIn && context.pos.x <= kRecordIn) {
      kept = readTimecode(kept, context.pos.x == kRecordIn);
      if (kept.empty()) {
        if (refused)
          refused(L"\u201c" + text.str() + L"\u201d is not a timecode: hh:mm:ss:ff, frames 00 to " +
                  std::to_wstring(kFramesPerSecond - 1));
        return false;
      }
    }
    events_.at(context.pos.y).cells[context.pos.x] = kept;
    return true;
  }
  // Told why an edit was not kept; the page sets it to its status line.
  std::function<void(std::wstring const&)> refused;
  bool sort(int column, bool ascending) override {
    if (column == 0) {
      std::stable_sort(events_.begin(), events_.end(),
                       [&](Event const& a, Event const& b) { return ascending ? a.id < b.id : b.id < a.id; });
      return true;
    }
    // Names with numbers in them sort as people read them, "Reel 2" before
    // "Reel 10": by keys made once per event.
    std::vector<std::pair<std::string, Event>> keyed;
    keyed.reserve(events_.size());
    for (Event& event : events_)
      keyed.emplace_back(naturalSortKey(LightweightString<wchar_t>(event.cells[column]).toUTF8().view()),
                         std::move(event));
    std::stable_sort(keyed.begin(), keyed.end(), [ascending](auto const& a, auto const& b) {
      return ascending ? a.first < b.first : b.first < a.first;
    });
    events_.clear();
    for (auto& [key, event] : keyed)
      events_.push_back(std::move(event));
    return true;
  }

private:
  static constexpr int kEvents = 100'000;
  static constexpr int kSourceIn = 3;
  static constexpr int kRecordIn = 5;
  static constexpr int kNotes = 6;
  static constexpr int kHourOne = 3600 * kFramesPerSecond;
  struct Event {
    std::int64_t id = 0;
    std::wstring cells[7];
    bool marker = false;
    bool tagged = false;
  };
  std::vector<Event> events_;
};

Glob* buildTablePage(PageContext const& context) {
  static EditListAdaptor editList; // outlives every page window
  PageMetrics const m = PageMetrics::current();
  int const options = TableWidget::kShowTitles | TableWidget::kFramed;
  XY<int> const tableSize(m.row * 20, TableWidget::calcHeight(13, options));
  StandardPanel* panel = openPageWindow(context, XY<int>(tableSize.x, tableSize.y + m.row + m.gap), L"Edit list");
  TableWidget::InitArgs args(tableSize);
  args.adaptor = &editList;
  args.options = options;
  args.setBorder(Border());
  auto* table = panel->createWidget<TableWidget>(args, Glob::UserTopLeft(0, 0));
  TextLabel::InitArgs status(XY<int>(tableSize.x, m.row));
  status.text = L"Type to edit a clip; Return keeps it, Escape drops it";
  auto* label = panel->createWidget<TextLabel>(status, Glob::Below(m.gap, table));
  table->addListener(TableWidget::makeCallback([label](TableWidgetEvent const& event) {
    std::wstring text;
    switch (event.type) {
    case TableWidgetEvent::kCellStored:
      text = L"Stored row " + std::to_wstring(event.cell.y + 1);
      break;
    case TableWidgetEvent::kSorted:
      text = L"Sorted by " + event.table->getColumn(event.cell.x).getTitle().getString().str();
      break;
    case TableWidgetEvent::kColumnResized:
      text = event.table->getColumn(event.cell.x).getTitle().getString().str() + L" is " +
             std::to_wstring(event.table->getColumnWidth(event.cell.x)) + L" wide";
      break;
    default:
      text = L"Row " + std::to_wstring(event.table->getCurPos().y + 1) + L", column " +
             std::to_wstring(event.table->getCurPos().x + 1);
      break;
    }
    label->setString(UIString(LightweightString<wchar_t>(text.c_str())));
  }));
  editList.refused = [label = GlobHandle(label)](std::wstring const& why) {
    if (Glob* live = label.get())
      static_cast<TextLabel*>(live)->setString(UIString(LightweightString<wchar_t>(why.c_str())));
  };
  table->setCurPos(XY<int>(1, 3), TableWidget::kShowCell | TableWidget::kQuiet);
  table->claimKbdFocus();
  return panel;
}

PageRegistrar const tablePage{"table", "Table",
                              "An edit list of 100,000 events: rows exist only for the lines in sight, scene markers "
                              "are taller rows, a clip is edited by typing, titles sort and their edges resize, and "
                              "the timecode columns beyond the view scroll in sideways",
                              buildTablePage};

} // namespace
