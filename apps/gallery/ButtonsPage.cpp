// Every kind of button, in each of its looks, with a line that says what the
// last press did.
#include "GalleryModel.h"
#include "PageLayout.h"

#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/CycleButton.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <string>

namespace {

TextLabel* addStatusLine(StandardPanel& panel, PageMetrics const& m, int width) {
  TextLabel::InitArgs args(XY<int>(width, m.row));
  args.text = L"Press a button";
  return panel.createWidget<TextLabel>(args, Glob::UserBottomLeft(m.gap, m.gap));
}

Glob* buildButtonsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const buttonWidth = m.row * 4;
  XY<int> const buttonSize(buttonWidth, 0);
  int const width = 4 * buttonWidth + 5 * m.gap;
  StandardPanel* panel = openPageWindow(context, XY<int>(width, 4 * m.row + 5 * m.gap), L"Buttons");
  TextLabel* status = addStatusLine(*panel, m, width - 2 * m.gap);
  auto report = Broadcaster<ButtonEvent>::makeCallback([status](ButtonEvent const& event) {
    status->setString(LightweightString<wchar_t>(L"Pressed " + event.button->getLabel().str()));
  });

  auto* raised = panel->createWidget<Button>(Button::InitArgs(L"Render", buttonSize), Glob::UserTopLeft(m.gap, m.gap));
  raised->setCallback(report);
  Button::InitArgs flat(L"Flat", buttonSize);
  flat.style = Button::kStyleFlat;
  panel->createWidget<Button>(flat, Glob::RightOf(m.gap))->setCallback(report);
  Button::InitArgs latching(L"Solo", buttonSize);
  latching.latching = true;
  auto* solo = panel->createWidget<Button>(latching, Glob::RightOf(m.gap));
  solo->setState(1, kRedrawNow);
  solo->setCallback(report);
  auto* inactive = panel->createWidget<Button>(Button::InitArgs(L"Delete", buttonSize), Glob::RightOf(m.gap));
  inactive->setActive(false, kRedrawNow);

  auto* push = panel->createWidget<PushButton>(PushButton::InitArgs(L"Export", buttonSize), Glob::Below(m.gap, raised));
  push->setCallback(report);
  auto* cycle = panel->createWidget<CycleButton>(CycleButton::InitArgs({L"Fit", L"Fill", L"Stretch"}, buttonSize),
                                                 Glob::RightOf(m.gap));
  // A cycle button has moved on to its next label by the time it tells.
  cycle->setCallback(Broadcaster<ButtonEvent>::makeCallback([status](ButtonEvent const& event) {
    status->setString(LightweightString<wchar_t>(L"Cycled on to " + event.button->getLabel().str()));
  }));
  panel->createWidget<LinkButton>(LinkButton::InitArgs(L"https://example.org/zowidgets", L"Project page"),
                                  Glob::RightOf(m.gap, nullptr, kAlignCentre));

  // Both "Loop" boxes show one value: ticking either moves the other.
  auto* loopBox =
      bindTo<bool>(panel->createWidget<Checkbox>(Checkbox::InitArgs(L"Loop", XY<int>()), Glob::Below(m.gap, push)),
                   context.model.loop);
  Checkbox::InitArgs loopSwitch(L"Loop", XY<int>());
  loopSwitch.appearance = Checkbox::kSwitch;
  auto* loopToggle = bindTo<bool>(panel->createWidget<Checkbox>(loopSwitch, Glob::RightOf(m.gap)), context.model.loop);
  auto* snapBox = bindTo<bool>(
      panel->createWidget<Checkbox>(Checkbox::InitArgs(L"Snap", XY<int>()), Glob::RightOf(m.gap)), context.model.snap);
  // Whichever the user flips, the status line follows.
  auto reportLoop = Broadcaster<CheckboxEvent>::makeCallback(
      [status](CheckboxEvent const& event) { status->setString(event.checked ? L"Loop on" : L"Loop off"); });
  loopBox->setCallback(reportLoop);
  loopToggle->setCallback(reportLoop);
  snapBox->setCallback(Broadcaster<CheckboxEvent>::makeCallback(
      [status](CheckboxEvent const& event) { status->setString(event.checked ? L"Snap on" : L"Snap off"); }));
  return panel;
}

PageRegistrar const buttonsPage{"buttons", "Buttons",
                                "Raised, flat, latched and inactive buttons; push, cycle and link buttons; tick "
                                "boxes and a switch bound to shared values",
                                buildButtonsPage};

} // namespace
