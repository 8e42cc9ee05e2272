// Lists: a long list of clips with multiple selection, and a grid of
// swatches in titled groups.
#include "PageLayout.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/lists/ScrollList.h>
#include <zowidgets/host/widgets/lists/ScrollListGridViewBase.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr int kClipCount = 100'000;

std::vector<LightweightString<wchar_t>> clipNames() {
  static wchar_t const* const kinds[] = {L"Interview", L"B-roll", L"Drone", L"Archive", L"Music", L"Room tone"};
  std::vector<LightweightString<wchar_t>> names;
  names.reserve(kClipCount);
  for (int i = 0; i < kClipCount; ++i)
    names.emplace_back((std::wstring(kinds[i % 6]) + L" " + std::to_wstring(i / 6 + 1)).c_str());
  return names;
}

std::wstring describeSelection(ScrollList const& list) {
  int const count = list.getSelectionCount();
  if (count == 0)
    return L"Nothing selected";
  if (count == 1)
    return L"Selected: " + list.getStrings()[list.getSelectedIndex()].str();
  return std::to_wstring(count) + L" clips selected";
}

Glob* buildListPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const listSize(m.row * 12, m.row * 12);
  StandardPanel* panel = openPageWindow(context, XY<int>(listSize.x, listSize.y + m.row + m.gap), L"Clips");
  ScrollList::InitArgs args(listSize);
  args.strings = clipNames();
  args.selectionMode = ScrollList::kMultipleSelection;
  auto* list = panel->createWidget<ScrollList>(args, Glob::UserTopLeft(0, 0));
  TextLabel::InitArgs status(XY<int>(listSize.x, m.row));
  status.text = L"Nothing selected";
  auto* label = panel->createWidget<TextLabel>(status, Glob::Below(m.gap, list));
  list->addListener(ScrollList::makeCallback([label](ScrollListEvent const& event) {
    if (event.kind == ScrollListEvent::kItemActivated)
      label->setString(UIString(L"Opened: " + event.list->getStrings()[event.index].str()));
    else
      label->setString(UIString(describeSelection(*event.list)));
  }));
  list->claimKbdFocus();
  return panel;
}

// A swatch cell: the grid's ground with a rounded chip of its colour.
class SwatchCell : public ScrollListGridViewBase::ItemWidgetBase {
public:
  SwatchCell(int side, Colour colour) : ItemWidgetBase(InitArgs(XY<int>(side, side))), colour_(colour) {}
  Colour colour() const { return colour_; }

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    ItemWidgetBase::drawBackground(renderer);
    double const inset = width() / 6.0;
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(Zo::Box<double>(inset, inset, width() - inset, height() - inset), inset, colour_));
  }

private:
  Colour colour_;
};

// Swatches in groups; a pick shows in the label under the grid.
class SwatchGrid : public ScrollListGridViewBase {
public:
  using ScrollListGridViewBase::ScrollListGridViewBase;

  void addGroup(UIString const& title, std::vector<Colour> const& colours) {
    addSeparator(title);
    int const side = PageMetrics::current().row * 2;
    int const perRow = itemsPerRow(side);
    Glob* row = nullptr;
    Glob* previous = nullptr;
    for (size_t i = 0; i < colours.size(); ++i) {
      if (i % perRow == 0) {
        row = addRow();
        previous = nullptr;
      }
      auto* cell = new SwatchCell(side, colours[i]);
      row->addChild(cell, previous ? Glob::RightOf(0, previous) : Glob::TopLeft(0, 0));
      addItemWidget(cell);
      previous = cell;
    }
  }
};

class SwatchPage : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  SwatchGrid* grid = nullptr;
  TextLabel* label = nullptr;

  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    if (message != ScrollListGridViewBase::kItemClickMsg || sender != grid)
      return StandardPanel::handleMessageEvent(message, sender);
    auto* cell = static_cast<SwatchCell*>(grid->getItem(grid->getSelectedItem()));
    Colour const c = cell->colour();
    label->setString(UIString(L"Picked swatch " + std::to_wstring(cell->getItemIndex() + 1) + L": " +
                              std::to_wstring(std::lround(c.red() * 255)) + L", " +
                              std::to_wstring(std::lround(c.green() * 255)) + L", " +
                              std::to_wstring(std::lround(c.blue() * 255))));
    return 1;
  }
};

std::vector<Colour> hueRamp(int count, double saturation, double value) {
  std::vector<Colour> colours;
  for (int i = 0; i < count; ++i) {
    double r = 0, g = 0, b = 0;
    HSVToRGB(360.0 * i / count, saturation, value, r, g, b);
    colours.emplace_back(r, g, b);
  }
  return colours;
}

Glob* buildGridPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const gridSize(m.row * 16, m.row * 12);
  StandardPanel::InitArgs args(StandardPanel::calcPanelSize(XY<int>(gridSize.x, gridSize.y + m.row + m.gap),
                                                            StandardPanel::kTitle | StandardPanel::kPoot,
                                                            StandardPanel::getDefaultBorder()));
  args.screenPosition = context.screenPosition;
  args.standardWidgets = StandardPanel::kTitle | StandardPanel::kPoot;
  args.title = L"Swatches";
  auto* page = new SwatchPage(args);
  GlobManager::realize(page);
  page->grid = page->createWidget<SwatchGrid>(SwatchGrid::InitArgs(gridSize), Glob::UserTopLeft(0, 0));
  page->grid->addGroup(L"Vivid", hueRamp(14, 0.85, 0.9));
  page->grid->addGroup(L"Pastel", hueRamp(14, 0.35, 0.95));
  page->grid->addGroup(L"Deep", hueRamp(14, 0.9, 0.45));
  std::vector<Colour> greys;
  for (int i = 0; i <= 10; ++i)
    greys.push_back(Colour(i / 10.0, i / 10.0, i / 10.0));
  page->grid->addGroup(L"Greys", greys);
  TextLabel::InitArgs status(XY<int>(gridSize.x, m.row));
  status.text = L"Click a swatch, or use the arrow keys and Return";
  page->label = page->createWidget<TextLabel>(status, Glob::Below(m.gap, page->grid));
  page->grid->claimKbdFocus();
  return page;
}

PageRegistrar const listPage{"list", "Scroll list",
                             "A list of 100,000 clips with multiple selection by click, Shift-click, Ctrl-click and "
                             "keys; rows exist only for the lines in sight",
                             buildListPage};

PageRegistrar const gridPage{"list_grid", "Grid of items",
                             "Swatches in titled groups; a click or Return picks one, the arrow keys move across rows",
                             buildGridPage};

} // namespace
