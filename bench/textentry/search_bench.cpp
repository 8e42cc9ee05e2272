// A search keystroke in the emoji picker (every emoji's name matched, the
// tabs and the grid rebuilt, and the repaint), and a filter keystroke over a
// list of 10,000 clip names (matched, the list refilled, and the repaint).
// The peer of the matching is a plain loop of case-insensitive std::search
// over the same wide strings, the obvious way to write a filter; the
// matching alone is timed on both sides. After timing, each side must have
// found what the other found.

#include <zowidgets/host/base/Emoji.h>
#include <zowidgets/host/base/TextSearch.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/lists/ScrollList.h>
#include <zowidgets/textentry/EmojiPanel.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cwctype>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

// --- The plain loop and the host's matcher over the same strings ----------

bool containsIgnoringCase(std::wstring_view text, std::wstring_view word) {
  auto const same = [](wchar_t a, wchar_t b) { return std::towlower(a) == std::towlower(b); };
  return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
}

std::vector<int> plainMatches(std::vector<WString> const& texts, std::wstring const& word) {
  std::vector<int> found;
  for (std::size_t i = 0; i < texts.size(); ++i)
    if (containsIgnoringCase(texts[i].view(), word))
      found.push_back(static_cast<int>(i));
  return found;
}

std::vector<int> hostMatches(std::vector<WString> const& texts, TextSearch::Criteria const& criteria) {
  std::vector<int> found;
  for (std::size_t i = 0; i < texts.size(); ++i)
    if (TextSearch::match(texts[i], criteria, TextSearch::kSubstring))
      found.push_back(static_cast<int>(i));
  return found;
}

std::vector<WString> emojiNames() {
  std::vector<WString> names;
  for (Emoji::eCategory category : Emoji::getCategories())
    for (Emoji::Character const& emoji : Emoji::getEmojis(category))
      names.push_back(WString::fromUTF8(emoji.name));
  return names;
}

// Clip names of an edit: reels, takes and a few words, fixed by the row.
std::vector<WString> clipNames(int count) {
  static wchar_t const* const kWords[] = {L"interview", L"harbour", L"wide",  L"close", L"drone", L"night",
                                          L"market",    L"titles",  L"music", L"tone",  L"crowd", L"bridge"};
  std::vector<WString> names;
  for (int i = 0; i < count; ++i)
    names.emplace_back(L"Reel " + std::to_wstring(i % 40 + 1) + L" " + kWords[i % 12] + L" " + kWords[(i / 12) % 12] +
                       L" take " + std::to_wstring(i % 7 + 1));
  return names;
}

template <class Match> void timeMatching(benchmark::State& state, std::vector<WString> const& texts, Match match) {
  std::size_t found = 0;
  for (auto _ : state) {
    std::vector<int> const hits = match(texts);
    found = hits.size();
    benchmark::DoNotOptimize(hits.data());
  }
  state.counters["found"] = static_cast<double>(found);
}

void hostEmojiNameMatch(benchmark::State& state) {
  std::vector<WString> const names = emojiNames();
  TextSearch::Criteria const criteria(L"cat");
  if (hostMatches(names, criteria) != plainMatches(names, L"cat"))
    state.SkipWithError("the two loops found different emoji");
  timeMatching(state, names, [&](std::vector<WString> const& texts) { return hostMatches(texts, criteria); });
}

void plainEmojiNameMatch(benchmark::State& state) {
  timeMatching(state, emojiNames(), [](std::vector<WString> const& texts) { return plainMatches(texts, L"cat"); });
}

void hostFilterMatch10k(benchmark::State& state) {
  std::vector<WString> const names = clipNames(10'000);
  TextSearch::Criteria const criteria(L"harbour n");
  if (hostMatches(names, criteria) != plainMatches(names, L"harbour n"))
    state.SkipWithError("the two loops found different clips");
  timeMatching(state, names, [&](std::vector<WString> const& texts) { return hostMatches(texts, criteria); });
}

void plainFilterMatch10k(benchmark::State& state) {
  timeMatching(state, clipNames(10'000),
               [](std::vector<WString> const& texts) { return plainMatches(texts, L"harbour n"); });
}

// --- Whole keystrokes: match, rebuild, repaint ------------------------------

// A search in the picker, alternating between two texts so that each one
// changes what shows.
void zoEmojiSearchKeystroke(benchmark::State& state) {
  useHeadlessScreen();
  EmojiPanel::InitArgs args;
  args.screenPosition = XY<int>(0, 0);
  auto* panel = new EmojiPanel(args);
  GlobManager::realize(panel);
  wchar_t const* const texts[] = {L"cat", L"face"};
  int turn = 0;
  for (auto _ : state) {
    panel->search(TextSearchWidgetEvent{WString(texts[turn++ % 2])});
    panel->canvas()->paintPending();
  }
  panel->search(TextSearchWidgetEvent{WString(L"cat")});
  if (panel->getGrid()->getItemCount() == 0 || panel->getCategoriesShown().empty())
    state.SkipWithError("the search found no cat");
  delete panel;
}

// A filter box over a list: Return in the box refills the list with the
// clips the text finds.
struct FilteredList {
  StandardPanel* panel = nullptr;
  TextFilterWidget* filter = nullptr;
  ScrollList* list = nullptr;
  std::vector<WString> clips = clipNames(10'000);

  FilteredList() {
    StandardPanel::InitArgs panelArgs(XY<int>(400, 600));
    panelArgs.screenPosition = XY<int>(0, 0);
    panelArgs.setBorder(Border());
    panel = new StandardPanel(panelArgs);
    filter =
        panel->createWidget<TextFilterWidget>(TextSearchWidget::InitArgs(XY<int>(400, 24)), Glob::UserTopLeft(0, 0));
    list = panel->createWidget<ScrollList>(ScrollList::InitArgs(GlobCreationInfo(XY<int>(400, 570))),
                                           Glob::Below(0, filter));
    list->setStrings(clips);
    filter->addListener(Broadcaster<TextSearchWidgetEvent>::makeCallback([this](TextSearchWidgetEvent const& event) {
      TextSearch::Criteria const criteria(event.text);
      std::vector<WString> shown;
      for (WString const& clip : clips)
        if (TextSearch::match(clip, criteria, TextSearch::kSubstring))
          shown.push_back(clip);
      list->setStrings(shown);
    }));
    GlobManager::realize(panel);
  }
  ~FilteredList() { delete panel; }
};

void zoFilterKeystroke10k(benchmark::State& state) {
  useHeadlessScreen();
  FilteredList view;
  wchar_t const* const texts[] = {L"harbour n", L"drone"};
  int turn = 0;
  for (auto _ : state) {
    view.filter->setString(WString(texts[turn++ % 2]));
    view.filter->requestStartSearch();
    view.panel->canvas()->paintPending();
  }
  view.filter->setString(WString(L"harbour n"));
  view.filter->requestStartSearch();
  if (static_cast<std::size_t>(view.list->size()) != plainMatches(view.clips, L"harbour n").size())
    state.SkipWithError("the list does not hold what the filter finds");
}

} // namespace

BENCHMARK(hostEmojiNameMatch)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainEmojiNameMatch)->Unit(benchmark::kMicrosecond);
BENCHMARK(hostFilterMatch10k)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainFilterMatch10k)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoEmojiSearchKeystroke)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoFilterKeystroke10k)->Unit(benchmark::kMicrosecond);
