#include "GalleryPagePanel.h"

#include <zowidgets/diagnostics/InfoWidget.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>
#include <zowidgets/host/widgets/popups/Menu.h>
#include <zowidgets/host/widgets/popups/StatusMessage.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TextBoxBase.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Gauge.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

void collect(Glob& widget, std::string const& className, std::vector<Glob*>& found) {
  if (className == widget.idstring())
    found.push_back(&widget);
  for (Glob* child : widget.getChildren())
    collect(*child, className, found);
}

LightweightString<wchar_t> textOf(Glob const& widget) {
  if (auto const* box = dynamic_cast<TextBoxBase const*>(&widget))
    return box->getString();
  if (auto const* label = dynamic_cast<TextLabel const*>(&widget))
    return label->getString().getString();
  if (auto const* lines = dynamic_cast<MultiLineTextBox const*>(&widget))
    return lines->getString();
  // An inspector's row: its lines one after another, its pairs as drawn.
  if (auto const* row = dynamic_cast<GlobInspector::InfoWidget const*>(&widget)) {
    std::wstring text;
    for (LabelledLine const& line : row->describe())
      for (LabelledValue const& pair : line)
        text += (text.empty() ? L"" : L" ") + pair.label.str() + pair.value.str();
    return LightweightString<wchar_t>(text);
  }
  if (auto const* button = dynamic_cast<Button const*>(&widget))
    return button->getLabel();
  if (auto const* message = dynamic_cast<Message const*>(&widget))
    return message->getText();
  if (auto const* status = dynamic_cast<StatusMessage const*>(&widget))
    return status->getText();
  if (auto const* gauge = dynamic_cast<Gauge const*>(&widget))
    return gauge->getLabel().getString();
  return {};
}

// A box in a widget's own coordinates, as a screen box.
std::string screenBoxJson(Glob const& widget, Zo::Box<int> const& box, std::string (*toScreen)(Zo::Box<int> const&)) {
  return toScreen(box.translated(widget.screenPosition()));
}

// What a table shows across: how far it is scrolled sideways, the titles of
// the columns wholly in view, and its sideways bar and thumb while shown. A
// gauge's measure in thousandths. Nothing for other widgets.
std::string valuesJson(Glob const& widget, std::string (*toScreen)(Zo::Box<int> const&),
                       std::string (*quote)(std::string_view)) {
  if (auto const* gauge = dynamic_cast<Gauge const*>(&widget))
    return ",\"measure\":" + std::to_string(std::lround(gauge->getMeasure() * 1000));
  auto const* table = dynamic_cast<TableWidget const*>(&widget);
  if (!table)
    return {};
  int const viewWidth = table->getVisibleBox().width();
  std::string inView;
  for (int column = 0; column < table->numColumns(); ++column)
    if (table->columnLeft(column) >= 0 && table->columnLeft(column) + table->getColumnWidth(column) <= viewWidth)
      inView += (inView.empty() ? "" : ",") + toNarrow(table->getColumn(column).getTitle().getString());
  std::string json = ",\"scrollX\":" + std::to_string(table->sideways().offset()) + ",\"inView\":" + quote(inView);
  ScrollBar const* bar = table->sideways().getBar();
  if (table->sideways().isBarShown())
    json +=
        ",\"hbar\":" + screenBoxJson(*bar, Zo::Box<int>(0, 0, bar->width(), bar->height()), toScreen) + ",\"thumb\":" +
        screenBoxJson(*bar, Zo::Box<int>(bar->thumbStart(), 0, bar->thumbStart() + bar->thumbLength(), bar->height()),
                      toScreen);
  return json;
}

// The family a button's label is drawn in; empty for the interface font.
std::string familyOf(Glob const& widget) {
  auto const* button = dynamic_cast<Button const*>(&widget);
  return button ? button->getFont().family().str() : std::string();
}

// An open menu's rows, as screen boxes and as texts, in order; nothing for
// any other widget.
std::string menuRowsJson(Glob const& widget, std::string (*toScreen)(Zo::Box<int> const&)) {
  auto const* menu = dynamic_cast<MenuWindow const*>(&widget);
  if (!menu)
    return {};
  std::string boxes, texts;
  for (int i = 0; i < menu->menu().size(); ++i) {
    boxes += (i ? "," : "") + toScreen(menu->rowBox(i).translated(menu->screenPosition()));
    texts += (i ? "," : "") + ("\"" + toNarrow(menu->menu().item(i).text.getString()) + "\"");
  }
  return ",\"rows\":[" + boxes + "],\"rowTexts\":[" + texts + "]";
}

} // namespace

GalleryPagePanel::GalleryPagePanel(std::string const& name, XY<int> screenPosition) {
  std::vector<GalleryPage> const pages = allPages();
  auto const page = std::find_if(pages.begin(), pages.end(), [&](GalleryPage const& p) { return p.name == name; });
  before_ = GlobManager::topLevelWindows();
  if (page != pages.end())
    windows_ = openPage(*page, PageContext{model_, screenPosition});
}

GalleryPagePanel::~GalleryPagePanel() { closePage(windows_); }

std::string GalleryPagePanel::widgetJson(std::string const& className, int index,
                                         std::string (*toScreen)(Zo::Box<int> const&),
                                         std::string (*quote)(std::string_view)) const {
  // The page's windows, then any it opened since (a drop-down, say).
  std::vector<Glob*> found;
  for (Glob* window : windows_.all)
    if (is_good_glob_ptr(window))
      collect(*window, className, found);
  for (Glob* window : windowsOpenedSince(before_))
    if (std::find(windows_.all.begin(), windows_.all.end(), window) == windows_.all.end())
      collect(*window, className, found);
  if (index < 0 || index >= static_cast<int>(found.size()))
    return "{\"error\":" + quote("no " + className + " " + std::to_string(index)) + "}";
  Glob const& widget = *found[static_cast<std::size_t>(index)];
  Zo::Box<int> const box = Zo::Box<int>(0, 0, widget.width(), widget.height()).translated(widget.screenPosition());
  return "{\"box\":" + toScreen(box) + ",\"text\":" + quote(toNarrow(textOf(widget))) +
         ",\"family\":" + quote(familyOf(widget)) + menuRowsJson(widget, toScreen) +
         valuesJson(widget, toScreen, quote) + "}";
}
