#include "FormTestSupport.h"

#include <zowidgets/forms/FoBool.h>
#include <zowidgets/forms/FoCycle.h>
#include <zowidgets/forms/FoEntry.h>
#include <zowidgets/forms/FoPath.h>
#include <zowidgets/forms/FoVDbl.h>
#include <zowidgets/forms/FoVInt.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>

namespace {

using FormElements = FormTest;
using Messages = std::vector<std::string>;

// Accepts only absolute paths, as a stricter path element of a dialogue would.
class AbsolutePathElement : public fo_path {
public:
  using fo_path::fo_path;
  int m_validate_entry(LightweightString<wchar_t> text) override { return text.startsWith(L"/") ? 0 : 1; }
};

TEST_F(FormElements, ABoolIsTickedByAClickAndReadAsAChoiceState) {
  auto* tick = new fo_bool(width(), height(), 0, L"Loop playback", false);
  form* sheet = openForm({tick});
  EXPECT_EQ(sheet->m_get_element_type(0), kFormBool);
  EXPECT_EQ(sheet->m_get_element_choice_state(0), 0);
  HeadlessInput::clickOn(*tick->getCheckbox());
  pump();
  EXPECT_TRUE(tick->getCheckbox()->isChecked());
  EXPECT_EQ(sheet->m_get_element_choice_state(0), 1);
  EXPECT_EQ(received(), (Messages{"FormUp 000 Yes"}));
}

TEST_F(FormElements, ABoolGivenAPromptFractionPutsItsBoxInLineWithTheFieldsOfThatFraction) {
  auto* entry = new fo_entry(width(), height(), 0, L"Name", 40, 0.4);
  auto* tick = new fo_bool(width(), height(), 1, L"Loop", false, 0.4);
  auto* standard = new fo_bool(width(), height(), 2, L"Repeat", false);
  openForm({entry, tick, standard});
  EXPECT_DOUBLE_EQ(tick->getPromptFraction(), 0.4);
  EXPECT_DOUBLE_EQ(standard->getPromptFraction(), fo_bool::kDefaultPromptFraction);
  int const fieldLeft = entry->getTextBox()->screenPosition().x;
  EXPECT_EQ(tick->getCheckbox()->screenPosition().x, fieldLeft);
  EXPECT_GT(standard->getCheckbox()->screenPosition().x, fieldLeft);
}

TEST_F(FormElements, ABoolsEntryTicksOnTheYesTextInAnyCase) {
  auto* tick = new fo_bool(width(), height(), 0, L"Loop", false);
  form* sheet = openForm({tick});
  sheet->m_set_element_entry(0, L"yES");
  EXPECT_TRUE(tick->getValue());
  EXPECT_TRUE(tick->getCheckbox()->isChecked());
  sheet->m_set_element_entry(0, L"No");
  EXPECT_FALSE(tick->getCheckbox()->isChecked());
  sheet->m_set_element_entry(0, L"Yes please");
  EXPECT_FALSE(tick->getValue());
  // The yes text is the string table's, so it follows the language.
  setResourceString(fo_bool::kYesResource, L"Ja");
  sheet->m_set_element_entry(0, L"ja");
  EXPECT_TRUE(tick->getValue());
  sheet->m_set_element_entry(0, L"Yes");
  EXPECT_FALSE(tick->getValue());
  // Setting raises no report.
  EXPECT_TRUE(received().empty());
}

TEST_F(FormElements, TwoEmptyTextsCountAsEqualForABool) {
  auto* tick = new fo_bool(width(), height(), 0, L"Loop", false);
  form* sheet = openForm({tick});
  sheet->m_set_element_entry(0, L"");
  EXPECT_FALSE(tick->getValue()) << "the English yes text is not empty";
  setResourceString(fo_bool::kYesResource, L"");
  sheet->m_set_element_entry(0, L"");
  EXPECT_TRUE(tick->getValue());
}

TEST_F(FormElements, ACycleReportsTheChosenRowsName) {
  auto* cycle = new fo_cycle(width(), height(), 1, UIString(L"Frame rate"), {L"24", L"25", L"29.97"}, 0.5);
  form* sheet = openForm({new fo_bool(width(), height(), 0, L"Loop", false), cycle});
  EXPECT_EQ(sheet->m_get_element_type(1), kFormCycle);
  chooseRow(*cycle, 2);
  EXPECT_EQ(received(), (Messages{"FormUp 001 29.97"}));
  EXPECT_EQ(sheet->m_get_element_choice_state(1), 2);
  EXPECT_EQ(cycle->m_get_choice_state_label(), LightweightString<wchar_t>(L"29.97"));
}

TEST_F(FormElements, SettingACyclesStateShowsItOnTheButtonWithoutAReport) {
  auto* cycle = new fo_cycle(width(), height(), 0, UIString(L"Rate"), {L"24", L"25", L"30"}, 0.5);
  form* sheet = openForm({cycle});
  sheet->m_set_element_choice_state(0, 1, 0);
  EXPECT_EQ(cycle->getMenuButton()->getSelectedItem(), 1);
  EXPECT_EQ(sheet->m_get_element_choice_state(0), 1);
  sheet->m_set_element_choice_state(0, 3, 0);
  EXPECT_EQ(sheet->m_get_element_choice_state(0), 1) << "beyond the choices";
  EXPECT_TRUE(received().empty());
}

TEST_F(FormElements, AnEntryTakesTypedTextAndIsReadUntilReturn) {
  auto* entry = new fo_entry(width(), height(), 0, L"Clip name", 40, 0.5);
  form* sheet = openForm({entry});
  EXPECT_EQ(sheet->m_get_element_type(0), kFormEntry);
  EXPECT_TRUE(entry->m_is_unread());
  HeadlessInput::clickOn(*entry->getTextBox());
  HeadlessInput::typeText("Take 3");
  pump();
  EXPECT_TRUE(received().empty());
  EXPECT_EQ(sheet->m_get_element_entry(0), LightweightString<wchar_t>(L"Take 3"));
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_FALSE(entry->m_is_unread());
  EXPECT_EQ(received(), (Messages{"FormUp 000 Take 3"}));
}

TEST_F(FormElements, AnEntryHoldsAtMostItsMaximumLength) {
  auto* entry = new fo_entry(width(), height(), 0, L"Code", 4, 0.5);
  openForm({entry});
  typeInto(*entry, "ABCDEFG");
  EXPECT_EQ(received(), (Messages{"FormUp 000 ABCD"}));
}

TEST_F(FormElements, SettingAnEntryShowsItInTheBox) {
  auto* entry = new fo_entry(width(), height(), 0, L"Clip name", 40, 0.5);
  form* sheet = openForm({entry});
  sheet->m_set_element_entry(0, L"Interview");
  EXPECT_EQ(entry->getTextBox()->getString(), LightweightString<wchar_t>(L"Interview"));
  EXPECT_TRUE(received().empty());
}

TEST_F(FormElements, APathTakesAnyTextAndRemembersItAsGood) {
  auto* path = new fo_path(width(), height(), 0, L"Folder", 10, 0.5);
  form* sheet = openForm({path});
  EXPECT_EQ(sheet->m_get_element_type(0), kFormPath);
  EXPECT_EQ(path->getMaxChars(), fo_path::kMaxPathChars) << "the length asked for is not used";
  typeInto(*path, "media/clips");
  EXPECT_EQ(received(), (Messages{"FormUp 000 media/clips"}));
  EXPECT_EQ(path->getLastGoodPath(), LightweightString<wchar_t>(L"media/clips"));
}

TEST_F(FormElements, AStricterPathGoesBackToTheLastGoodOne) {
  auto* path = new AbsolutePathElement(width(), height(), 0, L"Folder", 10, 0.5);
  openForm({path});
  typeInto(*path, "/media/clips");
  typeInto(*path, "relative");
  EXPECT_EQ(received(), (Messages{"FormUp 000 /media/clips", "FormUp 000 /media/clips"}));
  EXPECT_EQ(path->getTextBox()->getString(), LightweightString<wchar_t>(L"/media/clips"));
  // Set by the program, a path is shown as given and the last good path stays.
  path->m_set_entry(L"other");
  EXPECT_EQ(path->getTextBox()->getString(), LightweightString<wchar_t>(L"other"));
  EXPECT_EQ(path->getLastGoodPath(), LightweightString<wchar_t>(L"/media/clips"));
  EXPECT_EQ(path->m_validate_state(), 1);
  EXPECT_EQ(path->getTextBox()->getString(), LightweightString<wchar_t>(L"/media/clips"));
}

TEST_F(FormElements, AnIntegerIsTypedAndClampedToItsLimits) {
  auto* number = new fo_v_int(width(), height(), 0, L"Handles", 1, 10, 0.5);
  form* sheet = openForm({number});
  EXPECT_EQ(sheet->m_get_element_type(0), kFormInteger);
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"1")) << "it starts at its minimum";
  typeInto(*number, "7");
  typeInto(*number, "42");
  EXPECT_EQ(received(), (Messages{"FormUp 000 7", "FormUp 000 10"}));
  EXPECT_EQ(number->m_get_value(), 10);
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"10"));
  number->m_set_value(-5);
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"1"));
}

TEST_F(FormElements, ADecimalIsTypedAndWrittenWithItsPrecision) {
  auto* number = new fo_v_dbl(width(), height(), 0, L"Gain", -12.0, 12.0, 1, 0.5);
  form* sheet = openForm({number});
  EXPECT_EQ(sheet->m_get_element_type(0), kFormDouble);
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"-12.0"));
  typeInto(*number, "3.25");
  EXPECT_DOUBLE_EQ(number->m_get_value(), 3.25);
  typeInto(*number, "99");
  EXPECT_EQ(received(), (Messages{"FormUp 000 3.25", "FormUp 000 12.0"}));
  number->m_set_entry(L"2.46");
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"2.5"));
  number->m_set_value(-40.0);
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"-12.0"));
}

} // namespace
