#pragma once

#include <zowidgets/host/base/Emoji.h>
#include <zowidgets/host/base/TextSearch.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/textentry/ScrollListGridView.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <vector>

class TextFilterWidget;
struct TextSearchWidgetEvent;

// The emoji the user picked.
struct ZO_API EmojiPanelEvent {
  Emoji::Character character;
};

// A picker of emoji: a filter box on top, a tab for each category (showing
// the category's first emoji; its name is the tooltip), and a scrolling grid
// of the current category's emoji. A click on a cell tells the listeners.
// A search (Return, or the filter's button) keeps only the categories with
// an emoji whose name holds the text; an empty search shows them all.
class ZO_API EmojiPanel : public StandardPanel, public Broadcaster<EmojiPanelEvent> {
public:
  // One cell of the grid: the emoji on the grid's ground.
  class ZO_API EmojiView : public ScrollListGridViewBase::ItemWidgetBase {
  public:
    struct InitArgs : StandardPanel::InitArgs {
      InitArgs() = default;
      explicit InitArgs(Emoji::Character const& character);
      Emoji::Character character;
    };

    explicit EmojiView(InitArgs const& args);
    char const* idstring() const override { return "EmojiView"; }
    Emoji::Character const& getCharacter() const noexcept { return character_; }
    // The side of a cell.
    static int cellSide();

  protected:
    void drawBackground(CanvasRenderer& renderer) override;

  private:
    Emoji::Character character_;
  };

  using Grid = ScrollListGridView<EmojiView, Emoji::Character>;

  struct InitArgs : StandardPanel::InitArgs {
    // The panel at its default size, with border().
    InitArgs();
    explicit InitArgs(XY<int> size);
    Broadcaster<EmojiPanelEvent>::Callback callback;
  };

  static Border border();
  // Room for the filter, every tab and eight cells across.
  static XY<int> defaultSize();

  explicit EmojiPanel(InitArgs const& args);
  char const* idstring() const override { return "EmojiPanel"; }

  // The grid's size: the user area less the filter row, the tab row and the
  // gaps between them.
  XY<int> calcGridSize() const;
  // A category's emoji that the current search finds, in their order.
  std::vector<Emoji::Character> getCategoryContents(Emoji::eCategory category) const;

  int search(TextSearchWidgetEvent const& event);
  int handleTabEvents(TabbedDialogueEvent const& event);

  std::vector<Emoji::eCategory> const& getCategoriesShown() const noexcept { return categories_; }
  Grid* getGrid() const noexcept { return grid_; }
  TextFilterWidget* getFilter() const noexcept { return filter_; }
  TabbedDialogue* getTabs() const noexcept { return tabs_; }

  void resize(double width, double height) override;

protected:
  // A click on a cell: its emoji goes to the listeners. Every message from
  // the children stops here.
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;

private:
  std::vector<TabbedDialogue::Page> categoryTabs() const;
  void showCategory(int tab);

  Grid* grid_ = nullptr;
  TextFilterWidget* filter_ = nullptr;
  TabbedDialogue* tabs_ = nullptr;
  TextSearch::Criteria criteria_;
  std::vector<Emoji::eCategory> categories_;
  bool rebuildingTabs_ = false;
};
