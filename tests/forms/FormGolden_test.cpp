#include "FormTestSupport.h"

#include <zowidgets/forms/FoBool.h>
#include <zowidgets/forms/FoCycle.h>
#include <zowidgets/forms/FoPath.h>
#include <zowidgets/forms/FoVDbl.h>
#include <zowidgets/forms/FoVInt.h>

namespace {

using FormGolden = FormTest;

TEST_F(FormGolden, AFormWithEveryElementKind) {
  auto* name = new fo_entry(width(), height(), 0, L"Clip name", 40, 0.4);
  auto* folder = new fo_path(width(), height(), 1, L"Folder", 128, 0.4);
  auto* loop = new fo_bool(width(), height(), 2, L"Loop playback", true);
  auto* rate = new fo_cycle(width(), height(), 3, UIString(L"Frame rate"), {L"24", L"25", L"29.97"}, 0.4);
  auto* handles = new fo_v_int(width(), height(), 4, L"Handles", 0, 99, 0.4);
  auto* gain = new fo_v_dbl(width(), height(), 5, L"Gain (dB)", -12.0, 12.0, 1, 0.4);
  form* sheet = openForm({name, folder, loop, rate, handles, gain});
  sheet->m_set_element_entry(0, L"Interview A");
  sheet->m_set_element_entry(1, L"/media/rushes");
  sheet->m_set_element_choice_state(3, 1, 0);
  sheet->m_set_element_entry(4, L"12");
  sheet->m_set_element_entry(5, L"-3.5");
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*sheet), ZO_GOLDEN_DIR "/form_every_element.png"));
}

} // namespace
