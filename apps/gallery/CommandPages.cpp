#include "CommandPages.h"

#include "PageLayout.h"

#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/events/KeyName.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace {

using WString = LightweightString<wchar_t>;

WString describeKey(MapItem const& key) {
  std::string const name = keyName(key.keyCode);
  return name.empty() ? WString(L"no key") : toWide(name);
}

// One line per command: its name, label and key.
WString summary(Cmd::Command const& command) {
  WString line = toWide(command.name);
  if (WString label = command.label.getString(); !label.empty())
    line = WString(line.str() + L" \u2014 " + label.str());
  return WString(line.str() + L" (" + describeKey(command.mapItem).str() + L")");
}

Glob* buildCommandListPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  std::vector<std::string> const names = CommandMap::commandNames();
  int const rowsShown = std::clamp(static_cast<int>(names.size()), 1, 12);
  XY<int> const userArea(m.row * 18, rowsShown * m.row + (rowsShown - 1) * m.rowGap);
  unsigned const widgets = StandardPanel::kTitle | StandardPanel::kPoot;
  VerticalScrollingBase::InitArgs args(
      StandardPanel::calcPanelSize(userArea, widgets, StandardPanel::getDefaultBorder()));
  args.screenPosition = context.screenPosition;
  args.standardWidgets = widgets;
  args.title = toWide("Commands (" + std::to_string(names.size()) + ")");
  auto* panel = new VerticalScrollingBase(args);
  GlobManager::realize(panel);
  // A long line wraps onto as many rows as it takes, rather than running
  // past the edge.
  auto addRow = [&](WString const& text) {
    TextLabel::InitArgs row(XY<int>(panel->getView()->width(), m.row));
    row.text = text;
    auto* label = panel->createManagedWidget<TextLabel>(row);
    int const lines = Glib::TextLayout::countLines(text, label->getFont(), label->textBox().width());
    if (lines > 1) {
      // Each further line takes the font's line height, not a whole row,
      // so a wrapped entry reads as one entry rather than rows apart.
      int const lineHeight = static_cast<int>(std::ceil(Glib::TextLayout::fontMetrics(label->getFont()).lineHeight));
      // Wrapped text starts at the top: the room a row keeps round its line
      // goes half above, half below, as a one-line entry's does.
      int const spare = m.row - lineHeight;
      Border edges;
      edges.setMargins(0, 0, spare / 2, spare - spare / 2);
      label->setBorder(edges);
      label->setWordWrap(true);
      label->resize(label->width(), m.row + (lines - 1) * lineHeight);
    }
  };
  if (names.empty())
    addRow(L"No commands are registered.");
  for (std::string const& name : names)
    if (std::optional<Cmd::Command> command = CommandMap::findCommand(name))
      addRow(summary(*command));
  panel->recalcWidgetsHeight();
  panel->resetView();
  return panel;
}

// A card with the command's name, label, description and key; then the
// command runs, with the card as its origin.
Glob* buildCommandPage(PageContext const& context, std::string const& name) {
  PageMetrics const m = PageMetrics::current();
  std::optional<Cmd::Command> const command = CommandMap::findCommand(name);
  if (!command)
    return nullptr;
  int const width = m.row * 16;
  StandardPanel* card = openPageWindow(context, XY<int>(width + 2 * m.gap, 5 * m.row + 2 * m.gap), toWide(name));
  TextLabel::InitArgs text(XY<int>(width, 5 * m.row));
  text.wordWrap = true;
  text.text = WString(summary(*command).str() + L"\n" + command->description.getString().str());
  card->createWidget<TextLabel>(text, Glob::UserTopLeft(m.gap, m.gap));
  CommandMap::callCommand(name, Cmd::Context{card, {}});
  return card;
}

} // namespace

std::string fileSafeName(std::string_view name) {
  std::string safe(name);
  for (char& c : safe) {
    bool const keep =
        (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
    if (!keep)
      c = '_';
  }
  return safe;
}

std::vector<GalleryPage> commandPages() {
  std::vector<GalleryPage> pages{{"commands", "Commands",
                                  "Every registered command with its label and key; each has a page of its own that "
                                  "runs it and shows any window it opens",
                                  buildCommandListPage}};
  std::set<std::string> taken;
  for (std::string const& name : CommandMap::commandNames()) {
    std::optional<Cmd::Command> const command = CommandMap::findCommand(name);
    std::string description = command ? toNarrow(command->description.getString()) : std::string();
    // "a/b" and "a_b" are made safe alike; a number keeps their files apart.
    std::string const base = "command-" + fileSafeName(name);
    std::string pageName = base;
    for (int copy = 2; !taken.insert(pageName).second; ++copy)
      pageName = base + "-" + std::to_string(copy);
    pages.push_back({pageName, name, description.empty() ? "Runs the command" : description,
                     [name](PageContext const& context) { return buildCommandPage(context, name); }});
  }
  return pages;
}
