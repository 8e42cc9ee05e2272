// Hints: a one-off hint beside the button it is about, acknowledged with its
// OK button and remembered in the preferences, with buttons that ask for it
// the way an application does and that forget the acknowledgement.
#include "PageLayout.h"

#include <zowidgets/hints/HintWindow.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

constexpr unsigned kGalleryHintId = 9001;

Hint exportHint() {
  return Hint(UIString(L"Export renders the sequence to a file.\nPress OK once you know; the hint won't come back."),
              kGalleryHintId, L"https://example.org/help/export");
}

WidgetPosition besideExport(Glob* exportButton) {
  return Glob::RightOf(UifStd::getWidgetGap(), exportButton, kAlignCentre);
}

// Reports on the page, if the label still lives.
void report(TextLabel* label, IdStamp const& stamp, LightweightString<wchar_t> const& text) {
  if (EventHandler::valid(label, stamp))
    label->setString(text);
}

Glob* buildHintsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const buttonWidth = m.row * 7;
  StandardPanel* panel = openPageWindow(context, XY<int>(3 * buttonWidth + 4 * m.gap, 2 * m.row + 3 * m.gap), L"Hints");
  TextLabel::InitArgs statusArgs(XY<int>(3 * buttonWidth + 2 * m.gap, m.row));
  statusArgs.text = L"The hint is about the Export button";
  auto* status = panel->createWidget<TextLabel>(statusArgs, Glob::UserTopLeft(m.gap, m.gap));
  IdStamp const statusStamp = EventHandler::stampOf(status);

  auto* ask = panel->createWidget<PushButton>(PushButton::InitArgs(L"Try the hint", XY<int>(buttonWidth, 0)),
                                              Glob::UserBottomLeft(m.gap, m.gap));
  auto* reset = panel->createWidget<PushButton>(PushButton::InitArgs(L"Reset the hint", XY<int>(buttonWidth, 0)),
                                                Glob::RightOf(m.gap));
  // At the right, so that the hint beside it lies clear of the page.
  auto* exportButton =
      panel->createWidget<PushButton>(PushButton::InitArgs(L"Export", XY<int>(buttonWidth, 0)), Glob::RightOf(m.gap));
  ask->setCallback(Broadcaster<ButtonEvent>::makeCallback([=](ButtonEvent const&) {
    Hint const hint = exportHint();
    if (hint.hasBeenIssued()) {
      report(status, statusStamp, L"Acknowledged already: reset to see it again");
      return;
    }
    HintWindow::make(hint, besideExport(exportButton));
    report(status, statusStamp, L"Not acknowledged yet, so it shows");
  }));
  reset->setCallback(Broadcaster<ButtonEvent>::makeCallback([=](ButtonEvent const&) {
    exportHint().setIssued(false);
    report(status, statusStamp, L"Forgotten: the hint will show again");
  }));

  // Shown at once, whatever the preferences say, so that the page's picture
  // has it.
  HintWindow::make(exportHint(), besideExport(exportButton));
  return panel;
}

PageRegistrar const hintsPage{"hints", "Hints",
                              "A HintWindow beside the button it is about, with an OK button that acknowledges "
                              "it for good and a link (F6 takes the keys into it and back); buttons that ask "
                              "for the hint as an application does and that forget the acknowledgement",
                              buildHintsPage};

} // namespace
