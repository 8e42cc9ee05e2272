// The group frames a settings panel is made of.
#include "GalleryModel.h"
#include "PageLayout.h"

#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Slider.h>

namespace {

// Two rows in a group: the gain slider and the loop switch, bound to the
// gallery's shared values.
void fillGroup(WidgetGroup& group, GalleryModel& model) {
  PageMetrics const m = PageMetrics::current();
  int const width = group.width() - WidgetGroup::childXOffset();
  TitleGlob::InitArgs gainRow(XY<int>(width, m.row));
  gainRow.legend = L"Gain";
  auto* row = group.createChild<TitleGlob>(gainRow, Glob::UserTopLeft(0, 0));
  Slider::InitArgs slider(XY<int>(width * 2 / 3, m.row));
  row->setChildGlob(bindTo<double>(new Slider(slider), model.gain));
  Checkbox::InitArgs loop(L"Loop", XY<int>());
  loop.appearance = Checkbox::kSwitch;
  bindTo<bool>(group.createChild<Checkbox>(loop, Glob::Below(m.rowGap, row)), model.loop);
}

template <class Group> Group* addGroup(StandardPanel& panel, WidgetPosition const& where,
                                       typename Group::InitArgs const& args, GalleryModel& model) {
  auto* group = panel.createWidget<Group>(args, where);
  fillGroup(*group, model);
  return group;
}

Glob* buildGroupsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 14;
  int const height = WidgetGroup::calcHeightForRows(2, m.row, m.rowGap, 1);
  StandardPanel* panel =
      openPageWindow(context, XY<int>(width + 2 * m.gap, 5 * (height + m.gap) + m.row + m.gap), L"Groups");
  WidgetGroupEx::InitArgs args(XY<int>(width, height));
  args.title = L"Framed group";
  Glob* last = addGroup<WidgetGroup>(*panel, Glob::UserTopLeft(m.gap, m.gap), args, context.model);
  args.title = L"Group with a rule";
  args.separatorStyle = WidgetGroup::kSeparatorRule;
  last = addGroup<WidgetGroupEx>(*panel, Glob::Below(m.gap, last), args, context.model);
  args.title = L"Recessed section";
  args.separatorStyle = WidgetGroup::kSeparatorFrame;
  last = addGroup<WidgetGroup2>(*panel, Glob::Below(m.gap, last), args, context.model);
  args.title = L"Foldable (starts open)";
  last = addGroup<MinimizableGroup>(*panel, Glob::Below(m.gap, last), args, context.model);
  args.title = L"Foldable (starts folded)";
  auto* folded = addGroup<MinimizableGroup>(*panel, Glob::Below(m.gap, last), args, context.model);
  TextLabel::InitArgs below(XY<int>(width, m.row));
  below.text = L"Placed below the groups: moves as they fold";
  panel->createWidget<TextLabel>(below, Glob::Below(m.gap, folded));
  folded->setMinimized(true);
  return panel;
}

PageRegistrar const groupsPage{"groups", "Groups",
                               "A framed group, a group with a rule, a recessed section and two foldable groups (one "
                               "folded), each holding a slider and a switch bound to shared values",
                               buildGroupsPage};

} // namespace
