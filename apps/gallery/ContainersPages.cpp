// Layout containers: a space divider, a simple tabbed panel and split tabs
// that merge into one row when narrow.
#include "PageLayout.h"

#include <zowidgets/containers/SimpleTabbedPanel.h>
#include <zowidgets/containers/SpaceDivider.h>
#include <zowidgets/containers/SpaceDividerTestPanel.h>
#include <zowidgets/containers/SplitTabsWidget.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <cstdio>

namespace {

using WString = LightweightString<wchar_t>;

WString describeSplit(SpaceDivider const& divider) {
  char text[64];
  std::snprintf(text, sizeof text, "Split %.3f, bins %d pixels wide", divider.getSplitPos(),
                divider.getWidget(SpaceDivider::kFirstWidget)->width());
  return toWide(text);
}

// Bins beside a viewer over a timeline. The stacked side names the other
// axis in "DividerID", so hiding the timeline keeps its size and the viewer
// takes the room.
Glob* buildSpaceDividerPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const dividerSize(m.row * 20, m.row * 10);
  StandardPanel* panel =
      openPageWindow(context, XY<int>(dividerSize.x, dividerSize.y + 2 * (m.row + m.rowGap)), L"Space divider");
  Palette const& palette = panel->getPalette();
  auto* outer = panel->createWidget<SpaceDivider>(SpaceDivider::InitArgs(dividerSize, kSideBySide, 0.35f),
                                                  Glob::UserTopLeft(0, 0));
  outer->createWidgetX<TextLabel>(SpaceDividerTestPanel::paneArgs(palette, L"Bins"), SpaceDivider::kFirstWidget)
      ->setMinSize(XY<int>(m.row * 4, 0));
  SpaceDivider::InitArgs innerArgs(XY<int>(), kStacked, 0.3f);
  innerArgs.useParentAllotment = true;
  innerArgs.config.set(SpaceDivider::kDividerIDKey, "left");
  auto* inner = outer->createWidgetX<SpaceDivider>(innerArgs, SpaceDivider::kSecondWidget);
  inner->setSplitterType(SpaceDivider::kStandardSplitter);
  inner->createWidgetX<TextLabel>(SpaceDividerTestPanel::paneArgs(palette, L"Viewer"), SpaceDivider::kFirstWidget);
  Glob* timeline = inner->createWidgetX<TextLabel>(SpaceDividerTestPanel::paneArgs(palette, L"Timeline"),
                                                   SpaceDivider::kSecondWidget);
  inner->resize(inner->width(), inner->height());
  outer->resize(dividerSize.x, dividerSize.y);

  TextLabel::InitArgs statusArgs(XY<int>(dividerSize.x, m.row));
  statusArgs.text = describeSplit(*outer);
  auto* status = panel->createWidget<TextLabel>(statusArgs, Glob::UserBottomLeft(0, 0));
  outer->getSplitter()->addListener(Broadcaster<SplitterEvent>::makeCallback(
      [status, outer](SplitterEvent const&) { status->setString(describeSplit(*outer)); }));
  Checkbox::InitArgs showArgs(L"Show the timeline", XY<int>(Checkbox::calcWidth(L"Show the timeline"), m.row), true);
  auto* show = panel->createWidget<Checkbox>(showArgs, Glob::Above(m.rowGap, status));
  show->setCallback(Broadcaster<CheckboxEvent>::makeCallback(
      [inner, timeline, show](CheckboxEvent const&) { inner->setWidgetVisible(timeline, show->isChecked()); }));
  return panel;
}

SimpleTabbedPanel::Page labelPage(Palette const& palette, wchar_t const* title, wchar_t const* text) {
  TextLabel::InitArgs args = SpaceDividerTestPanel::paneArgs(palette, text);
  args.useParentAllotment = false;
  return SimpleTabbedPanel::Page::of<TextLabel>(args, title);
}

Glob* buildSimpleTabsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const size(m.row * 16, m.row * 7);
  StandardPanel* window = openPageWindow(context, size, L"Simple tabbed panel");
  SimpleTabbedPanel::InitArgs args(size);
  args.setBorder(Border());
  Palette const& palette = window->getPalette();
  args.pages = {labelPage(palette, L"Clip", L"Clip settings"), labelPage(palette, L"Audio", L"Audio settings"),
                labelPage(palette, L"Notes", L"Notes")};
  window->createWidget<SimpleTabbedPanel>(args, Glob::UserTopLeft(0, 0));
  return window;
}

TextLabel::InitArgs centred(wchar_t const* text) {
  TextLabel::InitArgs args;
  args.text = text;
  args.alignment = Glib::eTextAlignment::Centre;
  return args;
}

// The button switches the tabs between two widths either side of the width
// below which they merge.
Glob* buildSplitTabsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const wide = m.row * 24;
  int const narrow = m.row * 12;
  int const tabsHeight = m.row * 7;
  StandardPanel* window = openPageWindow(context, XY<int>(wide, tabsHeight + m.row + m.rowGap), L"Split tabs");
  auto* tabs = window->createWidget<SplitTabsWidget>(
      SplitTabsWidget::InitArgs(XY<int>(wide, tabsHeight), static_cast<unsigned short>(m.row * 16)),
      Glob::UserTopLeft(0, 0));
  tabs->addLeftPage<TextLabel>(L"Bins", centred(L"Clips and sequences"));
  tabs->addLeftPage<TextLabel>(L"Effects", centred(L"Effects to drag onto clips"));
  tabs->addRightPage<TextLabel>(L"Viewer", centred(L"The playing frame"));
  tabs->addRightPage<TextLabel>(L"Scopes", centred(L"Waveform and vectorscope"));
  tabs->resize(wide, tabsHeight);
  PushButton::InitArgs buttonArgs(L"Narrow", XY<int>(m.row * 5, 0));
  auto* button = window->createWidget<PushButton>(buttonArgs, Glob::UserBottomLeft(0, 0));
  button->setCallback(
      Broadcaster<ButtonEvent>::makeCallback([tabs, button, wide, narrow, tabsHeight](ButtonEvent const&) {
        bool const widen = tabs->width() < wide;
        tabs->resize(widen ? wide : narrow, tabsHeight);
        button->setLabel(widen ? L"Narrow" : L"Widen");
      }));
  return window;
}

PageRegistrar const spaceDividerPage{
    "spacedivider", "Space divider",
    "A SpaceDivider: bins beside a viewer over a timeline. Drag the hairline or the bar (or Tab to one and use the "
    "arrow keys); the bins stop at four rows. Untick the timeline and the viewer takes its room",
    buildSpaceDividerPage};

PageRegistrar const simpleTabsPage{"simpletabs", "Simple tabbed panel",
                                   "A SimpleTabbedPanel: a bare row of tabs over the panel's own pages; click a tab",
                                   buildSimpleTabsPage};

PageRegistrar const splitTabsPage{
    "splittabs", "Split tabs",
    "A SplitTabsWidget: two groups of tabs with a bar between; Narrow merges them into one row, left first, and "
    "Widen splits them again where the bar was",
    buildSplitTabsPage};

} // namespace
