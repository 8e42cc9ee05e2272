#include <zowidgets/textentry/EmojiPanel.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/textentry/TextFilterWidget.h>
#include <zowidgets/values/notify/Callback.h>
#include <zowidgets/values/notify/UIThreadCallbackDupe.h>

#include <algorithm>
#include <map>

namespace {

constexpr int kDefaultCellsAcross = 8;
constexpr int kDefaultRowsOfCells = 6;

// A category's emoji with their names as wide text, made once: every search
// matches every name, and the table never changes.
struct CategoryTable {
  std::vector<Emoji::Character> emojis;
  std::vector<LightweightString<wchar_t>> names;
};

CategoryTable const& tableOf(Emoji::eCategory category) {
  static std::map<Emoji::eCategory, CategoryTable> tables;
  auto [entry, added] = tables.try_emplace(category);
  if (added) {
    entry->second.emojis = Emoji::getEmojis(category);
    for (Emoji::Character const& emoji : entry->second.emojis)
      entry->second.names.push_back(LightweightString<wchar_t>::fromUTF8(emoji.name));
  }
  return entry->second;
}

// The host's patterns match whole texts by default; a filter box finds its
// text anywhere in a name.
bool nameMatches(LightweightString<wchar_t> const& name, TextSearch::Criteria const& criteria) {
  return TextSearch::match(name, criteria, TextSearch::kSubstring);
}

} // namespace

// --- EmojiView ------------------------------------------------------------

EmojiPanel::EmojiView::InitArgs::InitArgs(Emoji::Character const& character)
    : StandardPanel::InitArgs(GlobCreationInfo(XY<int>(cellSide(), cellSide()))), character(character) {
  setBorder(Border());
}

EmojiPanel::EmojiView::EmojiView(InitArgs const& args) : ItemWidgetBase(args), character_(args.character) {}

int EmojiPanel::EmojiView::cellSide() { return UifStd::getRowHeight() * 3 / 2; }

void EmojiPanel::EmojiView::drawBackground(CanvasRenderer& renderer) {
  ItemWidgetBase::drawBackground(renderer);
  // The glyph takes most of the cell, leaving the ground round it for the
  // hover and selection.
  Glib::FontDesc font = UifStd::getFont();
  font.setSize(static_cast<unsigned>(std::max(height() * 2 / 3, 1)));
  Glib::TextDescription glyph(character_.text, Zo::Box<double>(0, 0, width(), height()), font, getPalette().text(),
                              Glib::eTextAlignment::Centre);
  renderer.renderPrimitive(glyph);
}

// --- EmojiPanel -----------------------------------------------------------

Border EmojiPanel::border() {
  Border edge(0, 0, 15);
  int const margin = UifStd::getWidgetGap();
  edge.setMargins(margin, margin, margin, margin);
  return edge;
}

XY<int> EmojiPanel::defaultSize() {
  int const gap = UifStd::getWidgetGap();
  int const cell = EmojiView::cellSide();
  XY<int> const user(kDefaultCellsAcross * cell + ScrollBar::thickness(),
                     UifStd::getRowHeight() + TabbedDialogue::minHeight() + 3 * gap + kDefaultRowsOfCells * cell);
  return calcPanelSize(user, 0, border());
}

EmojiPanel::InitArgs::InitArgs() : InitArgs(defaultSize()) {}

EmojiPanel::InitArgs::InitArgs(XY<int> size) : StandardPanel::InitArgs(GlobCreationInfo(size)) {
  setBorder(EmojiPanel::border());
}

EmojiPanel::EmojiPanel(InitArgs const& args) : StandardPanel(args), categories_(Emoji::getCategories()) {
  Drawable::Suspender const oneRepaint;
  addListener(args.callback);
  Zo::Box<int> const user = getUserArea();
  int const gap = UifStd::getWidgetGap();

  filter_ = createWidget<TextFilterWidget>(TextSearchWidget::InitArgs(XY<int>(user.width(), UifStd::getRowHeight())),
                                           Glob::UserTopLeft(0, 0));
  using SearchCallback = iCallbackBase<int, TextSearchWidgetEvent>;
  filter_->addListener(Broadcaster<TextSearchWidgetEvent>::Callback{
      UIThreadCallbackDupe<TextSearchWidgetEvent>::guarded(
          Zo::Ptr<SearchCallback>(new MethodCallback<EmojiPanel, TextSearchWidgetEvent>(this, &EmojiPanel::search)),
          this),
      0});

  TabbedDialogue::InitArgs tabArgs(GlobCreationInfo(XY<int>(user.width(), TabbedDialogue::minHeight())));
  tabArgs.tabs = categoryTabs();
  tabs_ = createWidget<TabbedDialogue>(tabArgs, Glob::Below(gap, filter_));
  tabs_->addListener(Broadcaster<TabbedDialogueEvent>::makeCallback(this, &EmojiPanel::handleTabEvents));

  grid_ = createWidget<Grid>(Grid::InitArgs(GlobCreationInfo(calcGridSize())), Glob::Below(gap, tabs_));
  // Only a search that found nothing leaves the grid empty.
  grid_->setEmptyText(UIString(L"No emoji matches the search"));
  showCategory(0);
}

XY<int> EmojiPanel::calcGridSize() const {
  Zo::Box<int> const user = getUserArea();
  int const above = TabbedDialogue::minHeight() + UifStd::getRowHeight() + 3 * UifStd::getWidgetGap();
  return XY<int>(user.width(), std::max(user.height() - above, 0));
}

std::vector<Emoji::Character> EmojiPanel::getCategoryContents(Emoji::eCategory category) const {
  CategoryTable const& table = tableOf(category);
  if (criteria_.empty())
    return table.emojis;
  std::vector<Emoji::Character> contents;
  for (std::size_t i = 0; i < table.emojis.size(); ++i)
    if (nameMatches(table.names[i], criteria_))
      contents.push_back(table.emojis[i]);
  return contents;
}

std::vector<TabbedDialogue::Page> EmojiPanel::categoryTabs() const {
  std::vector<TabbedDialogue::Page> pages;
  for (Emoji::eCategory category : categories_)
    pages.emplace_back(UIString(Emoji::asWString(Emoji::getRepresentative(category))),
                       TooltipDetails(Emoji::getDisplayString(category)), Colour::invalid());
  return pages;
}

int EmojiPanel::search(TextSearchWidgetEvent const& event) {
  Drawable::Suspender const oneRepaint;
  criteria_ = TextSearch::Criteria(event.text);
  categories_ = Emoji::getCategories();
  if (!criteria_.empty())
    std::erase_if(categories_, [this](Emoji::eCategory category) {
      std::vector<LightweightString<wchar_t>> const& names = tableOf(category).names;
      return std::none_of(names.begin(), names.end(),
                          [this](LightweightString<wchar_t> const& name) { return nameMatches(name, criteria_); });
    });
  rebuildingTabs_ = true;
  tabs_->setTabs(categoryTabs());
  rebuildingTabs_ = false;
  showCategory(0);
  return 0;
}

void EmojiPanel::showCategory(int tab) {
  grid_->clear();
  if (tab >= 0 && tab < static_cast<int>(categories_.size()))
    grid_->addData(getCategoryContents(categories_[static_cast<std::size_t>(tab)]), UIString());
  grid_->setScrollOffset(0);
  grid_->invalidate();
}

int EmojiPanel::handleTabEvents(TabbedDialogueEvent const& event) {
  if (event.kind == TabbedDialogueEvent::kChanged && !rebuildingTabs_) {
    Drawable::Suspender const oneRepaint;
    showCategory(event.tab);
  }
  return 1;
}

int EmojiPanel::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message == LightweightString<char>(ScrollListGridViewBase::kItemClickMsg) && sender == grid_) {
    int const tab = tabs_->getCurrentTab();
    int const item = grid_->getSelectedItem();
    if (tab >= 0 && tab < static_cast<int>(categories_.size()) && item >= 0) {
      std::vector<Emoji::Character> const contents = getCategoryContents(categories_[static_cast<std::size_t>(tab)]);
      if (item < static_cast<int>(contents.size()))
        broadcast(EmojiPanelEvent{contents[static_cast<std::size_t>(item)]});
    }
    grid_->clearSelection();
  }
  return 1;
}

void EmojiPanel::resize(double width, double height) {
  StandardPanel::resize(width, height);
  if (!grid_)
    return;
  int const userWidth = getUserArea().width();
  filter_->resize(userWidth, filter_->height());
  tabs_->resize(userWidth, tabs_->height());
  XY<int> const gridSize = calcGridSize();
  grid_->resize(gridSize.x, gridSize.y);
  // The cells flow again into rows of the new width.
  showCategory(tabs_->getCurrentTab());
}
