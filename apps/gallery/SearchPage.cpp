// Search and filter boxes: a search box and a filter box over a short list
// of clip names, and a magnifier button that opens a search in a drop-down.
#include "PageLayout.h"

#include <zowidgets/host/base/AttribValuePair.h>
#include <zowidgets/host/base/TextSearch.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/textentry/DropDownSearchPanel.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <array>
#include <string>

namespace {

using WString = LightweightString<wchar_t>;

constexpr std::array<wchar_t const*, 10> kClips{
    L"Reel 1 interview", L"Reel 1 wide shot", L"Reel 2 harbour", L"Reel 2 interview", L"Reel 3 night market",
    L"Drone harbour",    L"Drone coastline",  L"Titles",         L"Music bed",        L"Room tone"};

// What a search finds among the clips, as one line.
WString describeMatches(WString const& text) {
  TextSearch::Criteria const criteria(text);
  std::wstring found;
  int count = 0;
  for (wchar_t const* clip : kClips)
    if (TextSearch::match(WString(clip), criteria, TextSearch::kSubstring)) {
      found += (count++ == 0 ? L"" : L", ") + std::wstring(clip);
    }
  if (count == 0)
    return WString(L"Nothing matches \u201C" + text.str() + L"\u201D");
  return WString(std::to_wstring(count) + L" found: " + found);
}

// Receives the drop-down's "StartSearch=<text>" and shows what it found.
class SearchResultLabel : public TextLabel {
public:
  using TextLabel::TextLabel;
  int react(Event const& event) override {
    Zo::AttribValuePair const request(event.message, '=');
    if (!event.isMessage() || request.attrib() != LightweightString<char>(TextSearchWidget::kStartSearchMsg))
      return TextLabel::react(event);
    setString(describeMatches(WString::fromUTF8(request.value().view())));
    return 1;
  }
};

// Two lines, wrapped: what a search finds runs long.
TextLabel* resultLine(StandardPanel* panel, PageMetrics const& m, int width, Glob* below) {
  TextLabel::InitArgs args(GlobCreationInfo(XY<int>(width, 2 * m.row)));
  args.text = L"Type, then press Return or the button";
  args.wordWrap = true;
  return panel->createWidget<TextLabel>(args, Glob::Below(m.gap / 2, below));
}

Glob* buildSearchPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 20;
  StandardPanel* panel = openPageWindow(context, XY<int>(width + 2 * m.gap, 9 * m.row + 6 * m.rowGap), L"Search");

  auto* search = panel->createWidget<TextSearchWidget>(TextSearchWidget::InitArgs(XY<int>(width, m.row)),
                                                       Glob::UserTopLeft(m.gap, m.rowGap));
  search->setGhostLabel(UIString(L"Search the clips"));
  TextLabel* searchResult = resultLine(panel, m, width, search);
  search->addListener(Broadcaster<TextSearchWidgetEvent>::makeCallback(
      [searchResult](TextSearchWidgetEvent const& event) { searchResult->setString(describeMatches(event.text)); }));

  auto* filter = panel->createWidget<TextFilterWidget>(TextSearchWidget::InitArgs(XY<int>(width, m.row)),
                                                       Glob::Below(m.rowGap, searchResult));
  filter->setGhostLabel(UIString(L"Filter: try *harbour|titles"));
  TextLabel* filterResult = resultLine(panel, m, width, filter);
  filter->addListener(Broadcaster<TextSearchWidgetEvent>::makeCallback(
      [filterResult](TextSearchWidgetEvent const& event) { filterResult->setString(describeMatches(event.text)); }));

  // The button at the right edge (as wide as its magnifier and arrow), the
  // legend taking the rest of the line.
  int const buttonWidth = DropDownSearchPanelButton::InitArgs(m.row, nullptr).size.x;
  TextLabel::InitArgs legendArgs(GlobCreationInfo(XY<int>(width - buttonWidth - m.gap, m.row)));
  legendArgs.text = L"Search in a drop-down";
  auto* legend = panel->createWidget<TextLabel>(legendArgs, Glob::Below(m.rowGap, filterResult));
  TextLabel::InitArgs droppedArgs(GlobCreationInfo(XY<int>(width, 2 * m.row)));
  droppedArgs.wordWrap = true;
  auto* dropped = panel->createWidget<SearchResultLabel>(droppedArgs, Glob::Below(m.gap / 2, legend));
  panel->createWidget<DropDownSearchPanelButton>(DropDownSearchPanelButton::InitArgs(m.row, dropped),
                                                 Glob::RightOf(m.gap, legend));
  return panel;
}

PageRegistrar const searchPage{"search", "Search and filter",
                               "A search box with a Search button that wakes at the first letter; a filter box whose "
                               "magnifier turns into a clear button after Return; and a magnifier button that opens "
                               "a search box in a drop-down, which closes after one search. Each reports what it "
                               "found among ten clip names",
                               buildSearchPage};

} // namespace
