// Forms: the older dialogue engine with one element of every kind, and a
// line under it showing the last report the form sent its owner, as the
// owner receives it.
#include "PageLayout.h"

#include <zowidgets/forms/FoBool.h>
#include <zowidgets/forms/FoCycle.h>
#include <zowidgets/forms/FoPath.h>
#include <zowidgets/forms/FoVDbl.h>
#include <zowidgets/forms/FoVInt.h>
#include <zowidgets/forms/Form.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

constexpr double kPromptFraction = 0.4;

// The form's owner: shows each "FormUp" message it is sent.
class FormReportLabel : public TextLabel {
public:
  using TextLabel::TextLabel;
  char const* idstring() const override { return "FormReportLabel"; }
  int react(Event const& event) override {
    if (!event.isMessage() || !event.message.startsWith(form::kFormUpMsg))
      return TextLabel::react(event);
    setString(fo_eleme::msgToUIText(event.message));
    return 1;
  }
};

Glob* buildFormsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const element(16 * m.row, m.row);
  int const count = 6;
  XY<int> const sheetSize = form::calcSizeFor(count, element, 0, {});
  StandardPanel* panel = openPageWindow(context, XY<int>(sheetSize.x, sheetSize.y + m.row + m.gap), L"Forms");

  TextLabel::InitArgs reportArgs(XY<int>(sheetSize.x, m.row));
  reportArgs.text = L"Edit a field: the form's report shows here";
  auto* report = panel->createWidget<FormReportLabel>(reportArgs, Glob::UserBottomLeft(0, 0));

  auto* sheet = new form(static_cast<unsigned short>(sheetSize.x), static_cast<unsigned short>(sheetSize.y), report, 0,
                         panel->getPalette(), {}, kPromptFraction);
  panel->addChild(sheet, Glob::UserTopLeft(0, 0));
  auto const w = static_cast<unsigned short>(element.x);
  auto const h = static_cast<unsigned short>(element.y);
  sheet->m_add_element(new fo_entry(w, h, 0, L"Clip name", 40, kPromptFraction), 0);
  sheet->m_add_element(new fo_path(w, h, 1, L"Folder", 128, kPromptFraction), 0);
  sheet->m_add_element(new fo_bool(w, h, 2, L"Loop playback", true, kPromptFraction), 0);
  sheet->m_add_element(
      new fo_cycle(w, h, 3, UIString(L"Frame rate"), {L"23.976", L"24", L"25", L"29.97", L"30"}, kPromptFraction), 0);
  sheet->m_add_element(new fo_v_int(w, h, 4, L"Handles (frames)", 0, 99, kPromptFraction), 0);
  sheet->m_add_element(new fo_v_dbl(w, h, 5, L"Gain (dB)", -12.0, 12.0, 1, kPromptFraction), 0);
  sheet->m_set_element_entry(0, L"Interview A");
  sheet->m_set_element_entry(1, L"/media/rushes");
  sheet->m_set_element_choice_state(3, 2, 0);
  sheet->m_set_element_entry(4, L"12");
  sheet->m_set_element_entry(5, L"-3.5");
  return panel;
}

PageRegistrar const formsPage{"forms", "Forms",
                              "A form with every element kind (text, path, yes/no, menu choice, whole number, "
                              "decimal) and the \"FormUp\" report its owner last received",
                              buildFormsPage};

} // namespace
